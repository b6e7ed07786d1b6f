/// The actions that act at every frequency, all of them, with texts of a real length.
#include <memory>
#include <string>

#include <ace/core/actions_engine.h>
#include <ace/core/text.h>
#include <ace/host/checked_numbers.h>
#include <ace/host/monitor_device.h>
#include <ace/host/rf_generator.h>
#include <ace/host/switch_unit.h>

#include "bench/cases.h"
#include "bench/mix.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

struct Bench {
    ThreadContext context{HostWithDevices()};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    double frequency = 0.0;
};

std::shared_ptr<Bench> WithMix() {
    auto bench = std::make_shared<Bench>();
    p_Subrange& test = bench->engine->State().MainTest;
    FillWithMix(test, MixElements);
    bench->engine->StartTest();
    return bench;
}

// ---- the floor: the same calls with a fresh copy of each record --------------------------------

void Call(ThreadContext& context, aceRemote& record) {
    const std::int32_t rest = record.GpibAddress % 100;
    const std::int32_t board = record.GpibAddress / 100;
    const String text = record.Command + L"\n";
    if (record.DrvHdl == -1) {
        record.DrvHdl = context.GpibDriver().OpenDevice(
            static_cast<std::int16_t>(board), static_cast<std::int16_t>(rest), 0, 11, 1, 0);
    }
    context.StatusDisplay->ShowStatus(
        context.ActionStatusTexts[1] + IntegerText(board) + L":" + IntegerText(rest), false, false);
    context.GpibDriver().WriteString(static_cast<std::int16_t>(record.DrvHdl), text);
    context.StatusDisplay->ShowStatus({}, false, false);
}

void Call(ThreadContext& context, aceTrackFreq& record) {
    static_cast<void>(context.SystemServices().CurrentTest());
    if (!record.GenDev) {
        record.GenDev =
            std::dynamic_pointer_cast<IRfGenerator>(context.DeviceList().GetDevice(record.GenName));
    }
    if (!record.CalTable) {
        bool flag = false;
        record.CalTable = context.SystemServices().GetTable(record.TableType, 10, record.TableName,
                                                            record.TableMeasClass, flag);
    }
    if (context.Utilities().IsEqual(record.Freq, 0.0)) {
        return;
    }
    record.GenDev->SetFrequency(record.Freq);
    const double level = record.CalTable->GetValue(record.Freq, 1, Value(2));
    record.GenDev->SetLevel(level);
    record.GenDev->SetRfOn(true);
    record.GenDev->Execute();
}

void Call(ThreadContext& context, aceSetDevice& record, bool isSwitch) {
    if (!record.Device) {
        record.Device = context.DeviceList().GetDevice(record.DevName);
    }
    if (isSwitch) {
        static_cast<void>(record.Device->State());
        if (!record.SwitchDev) {
            record.SwitchDev = std::dynamic_pointer_cast<ISwitchUnit>(record.Device);
        }
        record.SwitchDev->SwitchPath(record.Path);
        return;
    }
    static_cast<void>(context.TraceLog().IsEnabled());
    const std::shared_ptr<ISettingsFile> settings =
        context.SystemServices().OpenSettingsFile(20, 10, context.ModuleFileNames[0], 0, 0);
    const String section = L"Actions" + IntegerText(record.ChanNo);
    static_cast<void>(record.Device->State());
    static_cast<void>(context.DeviceList().ClassName(record.Device->DeviceClass()));
    if (!record.MoniDev) {
        record.MoniDev = std::dynamic_pointer_cast<IMonitorDevice>(record.Device);
    }
    std::int32_t mode = IMonitorDevice::UseToSet;
    record.MoniDev->SetUseMode(mode);
    record.Device->LoadSettings(settings, section + L"-Device");
    record.MoniDev->SetChannel(record.ChanNo, 1);
    static_cast<void>(record.Device->State());
}

void Call(ThreadContext& context, aceAPI& record) {
    if (!context.RunningMacro) {
        context.RunningMacro = context.Factory().MakeApiMacro();
    }
    IApiMacro& macro = *context.RunningMacro;
    for (std::int32_t i = 1; i <= record.Parameters.UpperBound(); ++i) {
        if (record.Parameters[i].find(L"#FREQ#") != String::npos) {
            const wchar_t separator = context.Platform().DecimalSeparator();
            ReplaceAll(record.Parameters[i], L"#FREQ#", FormatFixed(record.Freq, 1, separator));
        }
    }
    Value unread;
    String text;
    String errorText;
    macro.Load(record.Program, record.Parameters, {}, unread);
    context.StatusDisplay->ShowStatus(L"Execute API Macro: " + record.Program, false, false);
    macro.Execute(text, errorText, unread);
    macro.WaitFinished();
    static_cast<void>(macro.GetResult());
    static_cast<void>(macro.GetResult());
    context.StatusDisplay->ShowStatus({}, false, false);
}

void Call(ThreadContext& context, const aceWait& record) {
    const wchar_t separator = context.Platform().DecimalSeparator();
    const String time = WithPoint(FormatFixed(record.Time / 1000.0, 3, separator));
    const String status = context.ActionStatusTexts[0] + L" " + time + L" s";
    context.StatusDisplay->ShowStatus(status, true, true);
    std::int32_t style = 64;
    context.SystemServices().ShowTimedMessage(status + L"\r\n" + context.Language().Text(9044),
                                              style, context.ActionStatusTexts[0],
                                              RoundToLong(record.Time));
    context.StatusDisplay->ShowStatus({}, false, false);
}

/// A wait finds out nothing, and the texts of a macro are filled in, so that they do not go back.
template <class Record>
void Out(ThreadContext& context, const p_Action& action) {
    Record record = RecordOf<Record>(action);
    Call(context, record);
}

template <class Record, class... More>
void OutAndBack(ThreadContext& context, p_Action& action, More... more) {
    Record record = RecordOf<Record>(action);
    Call(context, record, more...);
    action.Parameter = record;
}

void RunElement(ThreadContext& context, p_Action& action, double frequency) {
    context.Platform().Yield();
    static_cast<void>(context.TraceLog().IsEnabled());
    switch (action.ActionType) {
        case atRemote:
            OutAndBack<aceRemote>(context, action);
            break;
        case atTrackFreq:
            RecordOf<aceTrackFreq>(action).Freq = frequency;
            OutAndBack<aceTrackFreq>(context, action);
            break;
        case atSetDevice:
            OutAndBack<aceSetDevice>(context, action, false);
            break;
        case atSwitchUnit:
            OutAndBack<aceSetDevice>(context, action, true);
            break;
        case atAPI:
            RecordOf<aceAPI>(action).Freq = frequency;
            Out<aceAPI>(context, action);
            break;
        default:
            Out<aceWait>(context, action);
            break;
    }
    static_cast<void>(context.TraceLog().IsEnabled());
}

Work SameCallsWithFreshRecords() {
    return [bench = WithMix()] {
        bench->frequency += 1.0;
        p_Subrange& test = bench->engine->State().MainTest;
        for (std::int32_t i = 0; i < test.FreqCount; ++i) {
            RunElement(bench->context, test.Freq[i], bench->frequency);
        }
    };
}

/// Of a hundred actions of each kind. A device that is set asks twice whether to trace, less its
/// end line, which a set that succeeds does not write.
std::vector<CallCount> CallsOfTheMix() {
    constexpr std::size_t Each = MixElements / 6;
    return {
        {Call::Yield, MixElements}, {Call::TraceQuestion, std::size_t{2} * MixElements + Each + 2},
        {Call::Status, 6 * Each},   {Call::BusWrite, Each},
        {Call::Generator, Each},    {Call::Channel, Each},
        {Call::MacroLoad, Each},    {Call::MacroResult, 2 * Each},
        {Call::Path, Each},         {Call::TimedMessage, Each}};
}

}  // namespace

std::vector<Case> MixCases() {
    return {{"the kinds that act at every frequency, mixed, beside fresh copies of their records",
             "action",
             MixElements,
             SameCallsWithFreshRecords,
             [] {
                 return [bench = WithMix()] {
                     bench->frequency += 1.0;
                     bench->engine->NewFrequency(bench->frequency, false);
                 };
             },
             {.instructions = 0.75},
             MixElements,
             CallsOfTheMix()}};
}

}  // namespace ace::bench
