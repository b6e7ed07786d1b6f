// Values that mean something else than they seem to.
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

/// A field of a form, by its index from 0.
struct FieldForm {
    StringView keyword;
    std::size_t field;
    StringView words;
};
/// The reader takes of these what it can read at their beginning, and 0 for the rest.
constexpr FieldForm NumberFields[] = {
    {L"WAIT:", 0, L"milliseconds"},
    {L"CHECKEUT:", 6, L"the seconds between two checks"},
    {L"CHECKEUT:", 8, L"the seconds of the longest wait"},
    {L"MONITOREUT:", 6, L"the seconds between two checks"},
    {L"MONITOREUT:", 8, L"the seconds of the longest wait"},
    {L"CHECKEUT:", 9, L"1 for the loading position, or 0"},
    {L"MONITOREUT:", 9, L"1 for the loading position, or 0"},
    {L"COMMENT:", 0, L"1 for the generator off, or 0"},
    {L"GPIB:", 0, L"the bus address"},
    {L"GPIB:", 1, L"the code of the terminator"},
};
/// Anything but 1 is no.
constexpr FieldForm FlagFields[] = {
    {L"NOTIFY:", 2, L"the beep"},
    {L"QUESTION:", 2, L"the beep"},
    {L"REMOTE:", 5, L"the wait for the program"},
    {L"CHECKEUT:", 2, L"the stop of the test"},
    {L"CHECKEUT:", 3, L"the comment in the table"},
    {L"CHECKEUT:", 4, L"the message to the operator"},
    {L"CHECKEUT:", 5, L"the check once in a while"},
    {L"CHECKEUT:", 7, L"the wait for the state"},
    {L"MONITOREUT:", 2, L"the stop of the test"},
    {L"MONITOREUT:", 3, L"the comment in the table"},
    {L"MONITOREUT:", 4, L"the message to the operator"},
    {L"MONITOREUT:", 5, L"the check once in a while"},
    {L"MONITOREUT:", 7, L"the wait for the state"},
};

/// The field of that index; nothing behind the last one.
std::optional<StringView> FieldOf(StringView value, std::size_t index) {
    for (; index > 0; --index) {
        const std::size_t comma = value.find(L',');
        if (comma == StringView::npos) {
            return std::nullopt;
        }
        value.remove_prefix(comma + 1);
    }
    return value.substr(0, value.find(L','));
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
                      StringView words) {
    if (!WholeNumber(text)) {
        found.At(action, {QuotedLine(String(text)), String(words)});
    }
}

/// Address, port and terminator of a command.
void LookAtTransport(const CheckedAction& action, const aceRemote& record, const Found& found) {
    const StringView value = action.line.Value();
    const StringView address = FieldOf(value, 2).value_or(StringView());
    const StringView last = FieldOf(value, 3).value_or(StringView());
    if (record.Iface == aceRemote::Gpib || record.Iface == aceRemote::Serial) {
        const bool isBus = record.Iface == aceRemote::Gpib;
        TellUnlessNumber(action, found, address, isBus ? L"the bus address" : L"the serial port");
        TellUnlessNumber(action, found, last, L"the code of the terminator");
    } else if (record.Iface == aceRemote::TcpIp) {
        const std::size_t colon = last.find(L':');
        TellUnlessNumber(action, found, last.substr(0, colon), L"the port");
        if (colon != StringView::npos) {
            TellUnlessNumber(action, found, last.substr(colon + 1), L"the code of the terminator");
        }
    }
}

}  // namespace

void RuleTests::TextForNumber(const CheckedAction& action, const Found& found) {
    for (const FieldForm& form : NumberFields) {
        const auto field = FieldOf(action.line.Value(), form.field);
        if (action.IsOf(form.keyword) && field) {
            TellUnlessNumber(action, found, *field, form.words);
        }
    }
    if (const aceRemote* const record = CommandOf(action);
        record != nullptr && action.IsOf(L"REMOTE:")) {
        LookAtTransport(action, *record, found);
    }
}

void RuleTests::FlagUnknown(const CheckedAction& action, const Found& found) {
    for (const FieldForm& form : FlagFields) {
        const auto field = FieldOf(action.line.Value(), form.field);
        if (action.IsOf(form.keyword) && field && *field != L"0" && *field != L"1" &&
            (!field->empty() || StartsProgram(action))) {
            found.At(action, {QuotedLine(String(*field)), String(form.words)});
        }
    }
}

void RuleTests::WaitOutside(const CheckedAction& action, const Found& found) {
    const auto* const wait = action.As<aceWait>();
    if (wait != nullptr && (wait->Time < 0.0 || wait->Time > LongestWait)) {
        found.At(action, {wait->Time < 0.0 ? L"less than nothing" : L"longer than 24 days"});
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
    constexpr std::int32_t None = 3;
    const aceRemote* const record = CommandOf(action);
    if (record != nullptr && record->Terminator == None) {
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

void RuleTests::AmplifierStateOutside(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceSetDevice>();
    if (record != nullptr && action.IsOf(L"SWITCHAMP:") &&
        (record->AmpState < 0 || record->AmpState > HighestAmplifierState)) {
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
