// What is not on this machine.
#include "workbench/check/rule_tests.h"
#include "workbench/files/text_encoding.h"
#include "workbench/transports/command_line.h"
#include "workbench/transports/machine_files.h"
#include "workbench/transports/macro_runner.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

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
        if (!FindProgram(words.front(), SearchPath())) {
            found.At(action, {QuotedLine(FromUtf8(words.front()))});
        }
    } catch (const RunTimeError& error) {
        found.At(action, {QuotedLine(record->Program) + L", " + error.Description()});
    }
}

void RuleTests::MacroNotHere(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceAPI>();
    if (!action.file.Input().here || record == nullptr || record->Program.empty()) {
        return;
    }
    try {
        LoadMacro(ToUtf8(record->Program));
    } catch (const RunTimeError& error) {
        found.At(action, {QuotedLine(record->Program), error.Description()});
    }
}

}  // namespace ace::workbench
