#include "workbench/transports/macro_inputs.h"

#include <algorithm>
#include <limits>

#include <ace/core/text.h>
#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/files/text_lines.h"
#include "workbench/transports/transport_errors.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::size_t MostInputs = std::numeric_limits<std::int16_t>::max();

[[noreturn]] void RaiseInLine(std::size_t number, const String& why) {
    throw RunTimeError(TransportErrors::BadConfiguration,
                       L"line " + std::to_wstring(number) + L": " + why);
}

/// `line` has no blanks around it and is not empty.
MacroInput ParseInput(StringView line, std::size_t number) {
    const std::size_t blank = std::min(line.find_first_of(L" \t"), line.size());
    const StringView kind = line.substr(0, blank);
    const bool isTable = EqualNoCase(kind, L"table");
    if (!isTable && !EqualNoCase(kind, L"value")) {
        RaiseInLine(number, L"an input begins with \"value\" or \"table\", not with \"" +
                                String(kind) + L"\"");
    }
    const StringView name = Trimmed(line.substr(blank));
    if (name.empty()) {
        RaiseInLine(number, L"the input has no name");
    }
    return {isTable, String(name)};
}

}  // namespace

std::string InputsFileOf(const std::string& macro) {
    return macro + ".inputs";
}

std::vector<MacroInput> ParseMacroInputs(StringView text) {
    std::vector<MacroInput> inputs;
    std::size_t number = 0;
    for (const StringView whole : LinesOf(text)) {
        ++number;
        const StringView line = Trimmed(whole);
        if (IsEmptyOrComment(line, L"#")) {
            continue;
        }
        if (inputs.size() == MostInputs) {
            RaiseInLine(number, L"there are too many inputs");
        }
        inputs.push_back(ParseInput(line, number));
    }
    return inputs;
}

std::vector<MacroInput> ReadMacroInputs(const std::string& macro) {
    const std::string file = InputsFileOf(macro);
    const std::optional<String> text = ReadTextFile(file);
    if (!text) {
        return {};
    }
    try {
        return ParseMacroInputs(*text);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Number(), FromUtf8(file) + L": " + error.Description());
    }
}

}  // namespace ace::workbench
