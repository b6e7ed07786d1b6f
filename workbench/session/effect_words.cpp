#include "workbench/session/effect_words.h"

#include <iterator>
#include <vector>

#include <ace/core/text.h>

#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

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

/// A question has a line of its own, with its answer.
String MessageBox(const Values& values) {
    constexpr double QuestionStyle = 4.0;
    if (ReadNumber(ValueAt(values, 1)) == QuestionStyle) {
        return {};
    }
    return L"message " + QuotedLine(ValueAt(values, 0));
}

String AmplifierState(const Values& values) {
    static constexpr StringView States[] = {L"power off", L"power on", L"standby", L"operate",
                                            L"reset"};
    const auto state = WholeInteger(ValueAt(values, 1));
    const bool isKnown = state && *state >= 0 && *state < std::ssize(States);
    return ValueAt(values, 0) + L": " +
           (isKnown ? String(States[*state]) : L"state " + ValueAt(values, 1));
}

String Tuned(const Values& values) {
    return ValueAt(values, 0) + L": frequency " + FrequencyText(ReadNumber(ValueAt(values, 1)));
}

String Output(const Values& values) {
    return ValueAt(values, 0) + L": output " + (ValueAt(values, 1) == L"true" ? L"on" : L"off");
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
    {L"Device.Activate", L"%1: is activated"},
    {L"Device.LoadSettings", L"%1: takes its settings from [%3]"},
    {L"MonitorDevice.SetChannel", L"%1: channel %2 is set"},
    {L"MonitorDevice.ReadChannel", L"%1: channel %2 is read"},
    {L"MonitorDevice.SetFrequency", {}, Tuned},
    {L"BcGenerator.Apply", L"%1: its settings are applied"},
    {L"Amplifier.SetState", {}, AmplifierState},
    {L"SwitchUnit.SwitchPath", L"%1: path %2"},
    {L"Receiver.SetParameter", L"%1: parameter %2 is %3"},
    {L"SignalPath.Prepare", L"%1: is made ready"},
    {L"RfGenerator.SetFrequency", {}, Tuned},
    {L"RfGenerator.SetLevel", L"%1: level %2"},
    {L"RfGenerator.SetRfOn", {}, Output},
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
    {L"Device.Name"},
    {L"Device.DeviceClass"},
    {L"Device.State"},
    {L"DeviceList.ClassName"},
    {L"DeviceList.GetDevice"},
    {L"DeviceList.DevicesOfClass"},
    {L"MonitorDevice.CommonDevice"},
    {L"MonitorDevice.SetUseMode"},
    {L"BcGenerator.SetSignalPath"},
    {L"Receiver.CommonDevice"},
    {L"RfGenerator.CommonDevice"},
    {L"RfGenerator.Execute"},
    {L"SignalPath.CommonDevice"},
    {L"SignalPath.GetCorrection"},
    {L"CalTable.GetValue"},
    {L"SystemServices.GetTable"},
    {L"TestInfo.TestKind"},
    {L"Utilities.IsSameValue"},
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
