#include "workbench/session/effect_words.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <ace/core/text.h>
#include <ace/execution/plain_actions.h>
#include <ace/host/user_dialogs.h>

#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// The arguments of a call by number, as they are; the empty text behind the last one.
class Values {
  public:
    explicit Values(sim::CallArguments arguments) : x_arguments(arguments) {}
    std::size_t size() const { return x_arguments.size(); }
    String operator[](std::size_t index) const {
        return index < size() ? sim::PlainText(x_arguments[index]) : String();
    }
    bool IsTrue(std::size_t index) const {
        const bool* const value = index < size() ? std::get_if<bool>(&x_arguments[index]) : nullptr;
        return value != nullptr && *value;
    }

  private:
    sim::CallArguments x_arguments;
};

String Waiting(const Values& values) {
    return L"wait " + SecondsText(ReadNumber(values[3]));
}

/// Both flags stand for a wait, which has a line of its own; no text clears the status line.
String Status(const Values& values) {
    const bool isWait = values.IsTrue(1) && values.IsTrue(2);
    const String text = isWait ? String() : values[0];
    return text.empty() ? text : L"status line " + QuotedLine(text);
}

/// The text that says what the operator waits for; none ends that.
String Busy(const Values& values) {
    const String text = values[0];
    return text.empty() ? text : L"busy: " + OneLine(text);
}

/// A question has a line of its own, with its answer.
String MessageBox(const Values& values) {
    const bool isQuestion = (ReadRoundedNumber(values[1]) & IUserDialogs::YesNo) != 0;
    return isQuestion ? String() : L"message " + QuotedLine(values[0]);
}

String StateOfAmplifier(const String& number) {
    static constexpr StringView States[] = {L"power off", L"power on", L"standby", L"operate",
                                            L"reset"};
    const auto state = WholeInteger(number);
    const bool isKnown = state && *state >= 0 && *state < std::ssize(States);
    return isKnown ? String(States[*state]) : L"state " + number;
}

String AmplifierState(const Values& values) {
    return values[0] + L": " + StateOfAmplifier(values[1]);
}

/// An event about an amplifier has the number of its state as text.
String Event(const Values& values) {
    const bool isOfAmplifier = WholeInteger(values[1]) == modActions::AmplifierEvent;
    return L"event to the devices: " +
           (isOfAmplifier ? L"amplifier " + StateOfAmplifier(values[2]) : values[2]);
}

String Tuned(const Values& values) {
    return values[0] + L": frequency " + FrequencyText(ReadNumber(values[1]));
}

String Output(const Values& values) {
    return values[0] + L": output " + (values.IsTrue(1) ? L"on" : L"off");
}

/// One operation: the pattern of its words with the arguments as %1 to %9, or a function that makes
/// them. Neither stands for a call that is not told.
struct EffectRow {
    StringView operation;
    StringView pattern{};
    String (*make)(const Values& values) = nullptr;
    LineKind kind = LineKind::Effect;
};
constexpr EffectRow Effects[] = {
    {L"SystemServices.ShowTimedMessage", {}, Waiting},
    {L"Platform.sndPlaySoundA", L"sound %1"},
    {L"Platform.Beep", L"beep"},
    {L"DeviceList.PostEvent", {}, Event},
    {L"StatusDisplay.ShowStatus", {}, Status},
    {L"TraceLog.ReportError", L"error report: error %1, %2"},
    {L"DeviceList.CloseSocket", L"close the TCP/IP connection %1"},
    {L"GpibDriver.CloseDevice", L"close the bus device %1"},
    {L"SystemServices.SetProgressText", {}, Busy},
    {L"SystemServices.WriteMacroSync", L"macro synchronisation: %3"},
    {L"UserDialogs.ShowMessageBox", {}, MessageBox, LineKind::Dialog},
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

/// By length, then by name: most comparisons end with the length.
constexpr bool ComesBefore(StringView a, StringView b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}
constexpr auto SortedEffects = [] {
    auto rows = std::to_array(Effects);
    std::ranges::sort(rows, ComesBefore, &EffectRow::operation);
    return rows;
}();

/// None for a call that the table does not know.
const EffectRow* FindEffect(const sim::HostCall& call) {
    const auto* const row =
        std::ranges::lower_bound(SortedEffects, call.operation, ComesBefore, &EffectRow::operation);
    return row != SortedEffects.end() && row->operation == call.operation ? row : nullptr;
}

}  // namespace

String EffectWords(const sim::HostCall& call) {
    if (call.isQuestion) {
        return {};
    }
    const EffectRow* const row = FindEffect(call);
    if (row == nullptr) {
        return sim::JournalEntry(call).Line();
    }
    const Values values(call.arguments);
    return row->make != nullptr ? row->make(values) : Filled(row->pattern, values);
}

LineKind EffectKind(const sim::HostCall& call) {
    const EffectRow* const row = FindEffect(call);
    return row != nullptr ? row->kind : LineKind::Effect;
}

}  // namespace ace::workbench
