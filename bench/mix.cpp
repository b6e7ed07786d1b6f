#include "bench/mix.h"

namespace ace::bench {

namespace {

template <class Record>
p_Action ActionOf(p_ActionTypes kind, const Record& record) {
    p_Action action;
    action.ActionType = kind;
    action.Parameter = record;
    return action;
}

aceRemote Command() {
    aceRemote record;
    record.Command = L":SOUR:POW:LEV:IMM:AMPL -12.50 DBM";
    record.GpibAddress = 28;
    record.TcpHost = L"signal-generator.chamber-2.example";
    return record;
}

aceTrackFreq Following() {
    aceTrackFreq record;
    record.GenName = L"Signal generator of chamber 2";
    record.TableName = L"Level for 10 V/m, side A, horizontal";
    return record;
}

aceSetDevice Device(const String& path) {
    aceSetDevice record;
    record.DevName = L"RF switch matrix of chamber 2";
    record.ChanNo = 117;
    record.Path = path;
    return record;
}

aceAPI Macro() {
    aceAPI record;
    record.Program = L"C:\\EMC\\Macros\\log_equipment.mac";
    record.Parameters.Redim(1, 2);
    record.Parameters[1] = L"#FREQ#";
    record.Parameters[2] = L"EUT Monitor of chamber 2";
    return record;
}

}  // namespace

p_Action MixedAction(std::int32_t index) {
    constexpr std::int32_t Kinds = 6;
    switch (index % Kinds) {
        case 0:
            return ActionOf(atRemote, Command());
        case 1:
            return ActionOf(atTrackFreq, Following());
        case 2:
            return ActionOf(atSetDevice, Device({}));
        case 3:
            return ActionOf(atAPI, Macro());
        case 4:
            return ActionOf(atSwitchUnit, Device(L"GENERATOR-AMPLIFIER1-ANTENNA1"));
        default:
            return ActionOf(atWait, aceWait{1500.0});
    }
}

void FillWithMix(p_Subrange& test, std::int32_t size) {
    test.FreqCount = size;
    test.Freq.Redim(0, size - 1);
    for (std::int32_t i = 0; i < size; ++i) {
        test.Freq[i] = MixedAction(i);
    }
}

}  // namespace ace::bench
