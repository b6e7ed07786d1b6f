// What an entry has that its line does not say: a line above has said it.
#include "workbench/check/rule_tests.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// Where an inherited value comes from: nothing for the value with which every section begins, and
/// for a field that the line sets itself.
struct Origin {
    bool isInherited = false;
    String words;  ///< "line 33, EnterAction2" or "an earlier section"
};

Origin OriginOf(const CheckedAction& action, LineField field) {
    const FieldOrigin origin = action.line.origins[static_cast<std::size_t>(field)];
    if (!action.line.inherited.Contains(field) || origin == FromReset) {
        return {};
    }
    if (origin == FromEarlierSection) {
        return {true, L"an earlier section"};
    }
    const CheckedLine* const line = action.section.LineAt(origin);
    const String number = L"line " + std::to_wstring(action.section.FileLine(origin));
    return {true, line != nullptr ? number + L" (" + line->key + L")" : number};
}

/// Tells of a field that is inherited with a value that matters.
void Tell(const CheckedAction& action, const Found& found, LineField field, bool matters,
          const String& value) {
    if (const Origin origin = OriginOf(action, field); origin.isInherited && matters) {
        found.At(action, {value, origin.words});
    }
}

}  // namespace

void RuleTests::InheritedMessage(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceNotify>()) {
        Tell(action, found, LineField::Message, !record->Message.empty(),
             QuotedLine(record->Message));
    }
}

void RuleTests::InheritedSound(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceNotify>();
    if (record != nullptr) {
        Tell(action, found, LineField::WaveFile, !record->WaveFile.empty(),
             L"the sound " + QuotedLine(record->WaveFile));
        Tell(action, found, LineField::Beep, static_cast<bool>(record->Beep), L"the beep");
    }
}

void RuleTests::InheritedCommand(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceRemote>()) {
        Tell(action, found, LineField::Command, !record->Command.empty(),
             QuotedLine(record->Command));
    }
}

void RuleTests::InheritedProgram(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceRemote>();
    if (record != nullptr) {
        const bool starts = !record->Program.empty();
        Tell(action, found, LineField::RemoteProgram, starts, QuotedLine(record->Program));
        Tell(action, found, LineField::WaitPrgSync, starts && record->WaitPrgSync,
             L"the wait for its confirmation");
    }
}

void RuleTests::InheritedTerminator(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceRemote>();
    if (record != nullptr && !record->Command.empty() && record->Iface == aceRemote::TcpIp) {
        const bool isWritten = WrittenTerminator(action) == record->Terminator;
        Tell(action, found, LineField::Terminator, record->Terminator != 0 && !isWritten,
             std::to_wstring(record->Terminator));
    }
}

void RuleTests::InheritedSignalPath(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceSetDevice>();
        record != nullptr && action.IsOf(L"SETDEV:")) {
        Tell(action, found, LineField::DeviceSigPathName, !record->SigPathName.empty(),
             QuotedLine(record->SigPathName));
    }
}

void RuleTests::InheritedGenerator(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceTrackFreq>()) {
        Tell(action, found, LineField::GenName, !record->GenName.empty(),
             QuotedLine(record->GenName));
    }
}

void RuleTests::InheritedMonitor(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceTrackFreq>()) {
        Tell(action, found, LineField::MoniName, !record->MoniName.empty(),
             QuotedLine(record->MoniName));
    }
}

void RuleTests::InheritedLoadingPosition(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceSetDevice>();
    if (record != nullptr && (action.IsOf(L"CHECKEUT:") || action.IsOf(L"MONITOREUT:"))) {
        Tell(action, found, LineField::LoadingPos, static_cast<bool>(record->LoadingPos), {});
    }
}

}  // namespace ace::workbench
