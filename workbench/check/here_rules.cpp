// What is not on this machine.
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "workbench/check/rule_tests.h"
#include "workbench/files/text_encoding.h"
#include "workbench/transports/command_line.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

bool IsPlainFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

/// As a shell looks for it: a name without "/" in the folders of PATH.
bool IsProgram(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        return IsPlainFile(name);
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody changes the surroundings of this program
    const char* const folders = std::getenv("PATH");
    std::istringstream path(folders != nullptr ? folders : "");
    for (std::string folder; std::getline(path, folder, ':');) {
        if (IsPlainFile((folder.empty() ? "." : folder) + "/" + name)) {
            return true;
        }
    }
    return false;
}

}  // namespace

void RuleTests::SoundNotHere(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceNotify>();
    const bool isOwn = !action.line.inherited.Contains(LineField::WaveFile);
    if (action.file.Input().here && record != nullptr && isOwn && !record->WaveFile.empty() &&
        !IsPlainFile(ToUtf8(record->WaveFile))) {
        found.At(action, {QuotedLine(record->WaveFile)});
    }
}

void RuleTests::ProgramNotHere(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceRemote>();
    if (!action.file.Input().here || record == nullptr || record->Program.empty()) {
        return;
    }
    try {
        const std::vector<std::string> words = SplitCommandLine(record->Program);
        if (!IsProgram(words.front())) {
            found.At(action, {QuotedLine(FromUtf8(words.front()))});
        }
    } catch (const RunTimeError& error) {
        found.At(action, {QuotedLine(record->Program) + L", " + error.Description()});
    }
}

void RuleTests::MacroNotHere(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceAPI>();
    if (action.file.Input().here && record != nullptr && !record->Program.empty() &&
        !IsProgram(ToUtf8(record->Program))) {
        found.At(action, {QuotedLine(record->Program)});
    }
}

}  // namespace ace::workbench
