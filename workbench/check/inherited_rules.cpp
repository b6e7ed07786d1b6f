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

/// Tells of a field that is inherited with a value that matters, in these words.
void Tell(const CheckedAction& action, const Found& found, LineField field, bool matters,
          StringView words) {
    if (const Origin origin = matters ? OriginOf(action, field) : Origin(); origin.isInherited) {
        found.At(action, {String(words), origin.words});
    }
}

/// The same for a text, which matters unless it is empty, in quotation marks behind `what`.
void TellText(const CheckedAction& action, const Found& found, LineField field, const String& text,
              StringView what = {}) {
    if (!text.empty() && action.line.inherited.Contains(field)) {
        Tell(action, found, field, true, String(what) + QuotedLine(text));
    }
}

}  // namespace

void RuleTests::InheritedMessage(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceNotify>()) {
        TellText(action, found, LineField::Message, record->Message);
    }
}

void RuleTests::InheritedSound(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceNotify>();
    if (record != nullptr) {
        TellText(action, found, LineField::WaveFile, record->WaveFile, L"the sound ");
        Tell(action, found, LineField::Beep, static_cast<bool>(record->Beep), L"the beep");
    }
}

void RuleTests::InheritedCommand(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceRemote>()) {
        TellText(action, found, LineField::Command, record->Command);
    }
}

void RuleTests::InheritedProgram(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceRemote>();
    if (record != nullptr) {
        TellText(action, found, LineField::RemoteProgram, record->Program);
        Tell(action, found, LineField::WaitPrgSync, !record->Program.empty() && record->WaitPrgSync,
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
        TellText(action, found, LineField::DeviceSigPathName, record->SigPathName);
    }
}

void RuleTests::InheritedGenerator(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceTrackFreq>()) {
        TellText(action, found, LineField::GenName, record->GenName);
    }
}

void RuleTests::InheritedMonitor(const CheckedAction& action, const Found& found) {
    if (const auto* const record = action.As<aceTrackFreq>()) {
        TellText(action, found, LineField::MoniName, record->MoniName);
    }
}

void RuleTests::InheritedLoadingPosition(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceSetDevice>();
    if (record != nullptr && (action.IsOf(L"CHECKEUT:") || action.IsOf(L"MONITOREUT:"))) {
        Tell(action, found, LineField::LoadingPos, static_cast<bool>(record->LoadingPos), {});
    }
}

}  // namespace ace::workbench
