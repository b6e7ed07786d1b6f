#include "workbench/cli/set_up_arguments.h"

#include "workbench/files/disk_settings_file.h"
#include "workbench/files/text_encoding.h"
#include "workbench/files/text_lines.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

aceModul ReadModule(const std::string& argument) {
    const String text = FromUtf8(argument);
    const ModuleWords* const module = FindModuleWords(text);
    if (module == nullptr) {
        RefuseUse(L"--module: \"" + text + L"\" is no module: 0 to 8, or a name such as " +
                  L"aceTemplate");
    }
    return module->moduleKind;
}

std::int32_t ReadSubRanges(const std::string& argument) {
    const String text = FromUtf8(argument);
    const std::optional<std::int32_t> number = WholeInteger(text);
    if (!number || *number < 0 || *number > MostSubranges) {
        RefuseUse(L"--subranges: \"" + text + L"\" is no whole number from 0 to " +
                  std::to_wstring(MostSubranges));
    }
    return *number;
}

std::int32_t ReadTemplate(const std::string& argument) {
    const String text = FromUtf8(argument);
    const std::optional<std::int32_t> number = WholeInteger(text);
    if (!number || *number < 0 || *number > 3) {
        RefuseUse(L"--template: \"" + text + L"\" is no template number: 0 by frequency, " +
                  L"1 by bandwidth, 2 by power, 3 the lists for all rows");
    }
    return *number;
}

/// What `read` finds at `path`.
template <class Read>
auto Existing(const std::string& path, Read&& read) {
    try {
        if (auto content = read(path)) {
            return *std::move(content);
        }
    } catch (const RunTimeError& error) {
        RefuseFile(error.Description());
    }
    RefuseFile(FromUtf8(path) + L": there is no such file");
}

}  // namespace

SetUpOptions ReadOptions(const SetUpArguments& arguments) {
    SetUpOptions options;
    if (arguments.module) {
        options.moduleKind = ReadModule(*arguments.module);
    }
    if (arguments.subRanges) {
        options.subRanges = ReadSubRanges(*arguments.subRanges);
    }
    if (arguments.matrixTemplate) {
        options.matrixTemplate = ReadTemplate(*arguments.matrixTemplate);
    }
    return options;
}

SettingsDocument ExistingDocument(const std::string& file) {
    return Existing(file, [](const std::string& path) { return LoadDocument(path); });
}

String ExistingText(const std::string& file) {
    return Existing(file, ReadTextFile);
}

}  // namespace ace::workbench
