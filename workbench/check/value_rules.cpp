// Values that mean something else than they seem to.
#include <algorithm>

#include <ace/execution/what_runs.h>

#include "workbench/check/rule_tests.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::int32_t LargestPort = 65535;
constexpr std::int32_t HighestPrimary = 30;
constexpr std::int32_t BoardUnit = 100;
constexpr std::int32_t HighestSerial = 256;
constexpr std::int32_t HighestAmplifierState = 4;
/// Longer than this in milliseconds no wait is handed on: some 25 days.
constexpr double LongestWait = 2147483647.0;

/// What a field says, for people.
struct FieldWords {
    LineField field;
    StringView words;
};
/// Of the fields in which a reader takes anything: a number is what can be read at the beginning, 0
/// for nothing, and a yes only 1.
constexpr FieldWords LooseFields[] = {
    {LineField::Time, L"milliseconds"},
    {LineField::GeneratorOff, L"1 for the generator off, or 0"},
    {LineField::CycleTime, L"the seconds between two checks"},
    {LineField::WaitTime, L"the seconds of the longest wait"},
    {LineField::LoadingPos, L"1 for the loading position, or 0"},
    {LineField::GpibAddress, L"the bus address"},
    {LineField::SerComPort, L"the serial port"},
    {LineField::TcpPort, L"the port"},
    {LineField::Terminator, L"the code of the terminator"},
    {LineField::Beep, L"the beep"},
    {LineField::WaitPrgSync, L"the wait for the program"},
    {LineField::StopTest, L"the stop of the test"},
    {LineField::CommToTable, L"the comment in the table"},
    {LineField::Notify, L"the message to the operator"},
    {LineField::UseTimeCyc, L"the check once in a while"},
    {LineField::WaitState, L"the wait for the state"},
};
String WordsOf(LineField field) {
    const auto* const row = std::ranges::find(LooseFields, field, &FieldWords::field);
    return String(row != std::end(LooseFields) ? row->words : LineFieldRowOf(field).name);
}

/// The command's form, whose transport stands in its second field.
const aceRemote* CommandOf(const CheckedAction& action) {
    const auto* const record = action.As<aceRemote>();
    return record != nullptr && !record->Command.empty() ? record : nullptr;
}

bool StartsProgram(const CheckedAction& action) {
    const auto* const record = action.As<aceRemote>();
    return record != nullptr && !record->Program.empty();
}

void TellUnlessNumber(const CheckedAction& action, const Found& found, StringView text,
                      LineField field) {
    if (!WholeNumber(text)) {
        found.At(action, {QuotedLine(String(text)), WordsOf(field)});
    }
}

/// Hands each field of the action's line that is read so to `look`, with its text.
template <class Look>
void ForEachField(const CheckedAction& action, FieldReading reading, Look&& look) {
    std::size_t index = 0;
    for (const FormField& field : action.line.Form().fields) {
        const auto text = field.reading == reading ? action.line.Field(index) : std::nullopt;
        if (text) {
            look(field.field, *text);
        }
        ++index;
    }
}

}  // namespace

void RuleTests::TextForNumber(const CheckedAction& action, const Found& found) {
    ForEachField(action, FieldReading::Number, [&](LineField field, StringView text) {
        TellUnlessNumber(action, found, text, field);
    });
    ForEachField(action, FieldReading::Port, [&](LineField field, StringView text) {
        const PortText port = SplitPort(text);
        TellUnlessNumber(action, found, port.port, field);
        if (port.terminator) {
            TellUnlessNumber(action, found, *port.terminator, LineField::Terminator);
        }
    });
}

void RuleTests::FlagUnknown(const CheckedAction& action, const Found& found) {
    ForEachField(action, FieldReading::Flag, [&](LineField field, StringView text) {
        if (text != L"0" && text != L"1" && (!text.empty() || StartsProgram(action))) {
            found.At(action, {QuotedLine(String(text)), WordsOf(field)});
        }
    });
}

void RuleTests::WaitOutside(const CheckedAction& action, const Found& found) {
    double milliseconds = 0.0;
    if (const auto* const wait = action.As<aceWait>()) {
        milliseconds = wait->Time;
    } else if (const auto* const track = action.As<aceTrackFreq>()) {
        milliseconds = track->DelayTime;
    } else if (action.line.TextOf(LineField::WaitTime)) {
        milliseconds = 1000.0 * static_cast<double>(action.As<aceSetDevice>()->WaitTime);
    }
    if (milliseconds < 0.0 || milliseconds > LongestWait) {
        found.At(action, {milliseconds < 0.0 ? L"less than nothing" : L"longer than 24 days"});
    }
}

void RuleTests::UnknownTransport(const CheckedAction& action, const Found& found) {
    const aceRemote* const record = CommandOf(action);
    if (record != nullptr && record->Iface != aceRemote::Gpib &&
        record->Iface != aceRemote::Serial && record->Iface != aceRemote::TcpIp) {
        found.At(action, {std::to_wstring(record->Iface)});
    }
}

void RuleTests::UnknownTerminator(const CheckedAction& action, const Found& found) {
    const aceRemote* const record = CommandOf(action);
    if (record != nullptr && !IsTerminatorCode(record->Terminator)) {
        found.At(action, {std::to_wstring(record->Terminator)});
    }
}

void RuleTests::NoTerminator(const CheckedAction& action, const Found& found) {
    const aceRemote* const record = CommandOf(action);
    if (record != nullptr && IsTerminatorCode(record->Terminator) &&
        TerminatorOf(record->Terminator).empty()) {
        found.At(action);
    }
}

void RuleTests::PortOutside(const CheckedAction& action, const Found& found) {
    const aceRemote* const record = CommandOf(action);
    if (record == nullptr) {
        return;
    }
    const std::int32_t primary = record->GpibAddress % BoardUnit;
    if (record->Iface == aceRemote::Gpib && (record->GpibAddress < 0 || primary > HighestPrimary)) {
        found.At(action, {L"the bus address " + std::to_wstring(record->GpibAddress),
                          L"100 times the board plus 0 to 30"});
    }
    if (record->Iface == aceRemote::Serial &&
        (record->SerComPort < 1 || record->SerComPort > HighestSerial)) {
        found.At(action, {L"the serial port " + std::to_wstring(record->SerComPort), L"1 to 256"});
    }
    if (record->Iface == aceRemote::TcpIp &&
        (record->TcpPort < 1 || record->TcpPort > LargestPort)) {
        found.At(action, {L"the port " + std::to_wstring(record->TcpPort), L"1 to 65535"});
    }
}

void RuleTests::HostMissing(const CheckedAction& action, const Found& found) {
    const aceRemote* const record = CommandOf(action);
    if (record != nullptr && record->Iface == aceRemote::TcpIp &&
        Trimmed(record->TcpHost).empty()) {
        found.At(action);
    }
}

bool RuleTests::IsAmplifierState(std::int32_t state) {
    return state >= 0 && state <= HighestAmplifierState;
}

void RuleTests::AmplifierStateOutside(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceSetDevice>();
    if (record != nullptr && action.IsOf(L"SWITCHAMP:") && !IsAmplifierState(record->AmpState)) {
        found.At(action, {std::to_wstring(record->AmpState)});
    }
}

void RuleTests::NothingToDo(const CheckedAction& action, const Found& found) {
    const auto* const remote = action.As<aceRemote>();
    const auto* const macro = action.As<aceAPI>();
    if ((remote != nullptr && remote->Command.empty() && remote->Program.empty()) ||
        (macro != nullptr && macro->Program.empty())) {
        found.At(action);
    }
}

}  // namespace ace::workbench
