#include "workbench/session/effect_words.h"

#include <vector>

#include <ace/core/text.h>

#include "workbench/session/wording.h"

namespace ace::workbench {

namespace {

using Values = std::vector<String>;

String ValueAt(const Values& values, std::size_t index) {
    return index < values.size() ? values[index] : String();
}

String Waiting(const Values& values) {
    return L"wait " + SecondsText(ReadNumber(ValueAt(values, 3)));
}

/// Both flags stand for a wait, which has a line of its own; no text clears the status line.
String Status(const Values& values) {
    const bool isWait = ValueAt(values, 1) == L"true" && ValueAt(values, 2) == L"true";
    return isWait || ValueAt(values, 0).empty() ? String()
                                                : L"status line " + QuotedLine(values[0]);
}

/// The text that says what the operator waits for; none ends that.
String Busy(const Values& values) {
    return ValueAt(values, 0).empty() ? String() : L"busy: " + OneLine(values[0]);
}

String MessageBox(const Values& values) {
    return L"message " + QuotedLine(ValueAt(values, 0));
}

/// One operation: the pattern of its words with the arguments as %1 to %9, or a function that makes
/// them. Neither stands for a call that is not told.
struct EffectRow {
    StringView operation;
    StringView pattern{};
    String (*make)(const Values& values) = nullptr;
};
constexpr EffectRow Effects[] = {
    {L"SystemServices.ShowTimedMessage", {}, Waiting},
    {L"Platform.sndPlaySoundA", L"sound %1"},
    {L"Platform.Beep", L"beep"},
    {L"DeviceList.PostEvent", L"event to the devices: %3"},
    {L"StatusDisplay.ShowStatus", {}, Status},
    {L"TraceLog.ReportError", L"error report: error %1, %2"},
    {L"DeviceList.CloseSocket", L"close the TCP/IP connection %1"},
    {L"GpibDriver.CloseDevice", L"close the bus device %1"},
    {L"SystemServices.SetProgressText", {}, Busy},
    {L"SystemServices.WriteMacroSync", L"macro synchronisation: %3"},
    {L"UserDialogs.ShowMessageBox", {}, MessageBox},
    {L"ApiMacro.Abort", L"the API macro is told to end"},
    // told with their outcome by the host whose transports they are
    {L"DeviceList.FindSocket"},
    {L"DeviceList.OpenSocket"},
    {L"DeviceList.SendSocket"},
    {L"DeviceList.SocketIsOpen"},
    {L"GpibDriver.OpenDevice"},
    {L"GpibDriver.WriteString"},
    {L"SerialPort.CommPort"},
    {L"SerialPort.PortOpen"},
    {L"SerialPort.Output"},
    {L"Platform.ActivateProgram"},
    {L"Platform.StartProgram"},
    {L"ApiMacro.Load"},
    {L"ApiMacro.Execute"},
    {L"ApiMacro.WaitFinished"},
    {L"ApiMacro.GetResult"},
    // no effect in the laboratory
    {L"SystemServices.ReadMacroSync"},
    {L"SystemServices.GetGlobalSettings"},
    {L"SettingsFile.GetLong"},
    {L"Utilities.Wait"},
    {L"FormHost.ShowModal"},
    {L"Platform.Yield"},
    {L"SystemServices.OpenSettingsFile"},
    {L"SystemServices.FileIsUsable"},
    {L"SystemServices.GetCurrentTest"},
    {L"TestInfo.GetTestState"},
    {L"TraceLog.WriteLine"},
    {L"Utilities.IsEqual"},
    {L"Utilities.Max"},
    {L"Utilities.InRange"},
};

String WordsOf(const EffectRow& row, const Values& values) {
    return row.make != nullptr ? row.make(values) : Filled(row.pattern, values);
}

}  // namespace

String EffectWords(const sim::JournalEntry& entry) {
    if (entry.isQuestion) {
        return {};
    }
    for (const EffectRow& row : Effects) {
        if (row.operation == entry.operation) {
            return WordsOf(row, entry.values);
        }
    }
    return entry.Line();
}

}  // namespace ace::workbench
