/// What the numbers of the plain model stand for: actions, and what the tree shows of them.
#pragma once

#include "editor/edit_model.h"
#include "support/engine_fixture.h"

namespace ace::test {

inline aceNotify NotifyOf(const ModelRecord& record) {
    aceNotify made;
    made.Message = (record.isCapital ? L"M" : L"m") + std::to_wstring(record.content);
    made.GeneratorOff = record.content % 2 != 0;
    return made;
}
inline aceRemote RemoteOf(const ModelRecord& record) {
    const String digits = std::to_wstring(record.content);
    aceRemote made;
    made.Command = record.content % 4 == 0 ? String() : L"c" + digits;
    made.Iface = record.content % 3;
    made.GpibAddress = 100 + record.content % 30;
    made.SerComPort = made.TcpPort = record.content;
    made.TcpHost = L"h" + digits;
    made.Program = L"x\\p" + digits;
    return made;
}
inline aceSetDevice DeviceOf(const ModelRecord& record) {
    const String digits = std::to_wstring(record.content);
    aceSetDevice made;
    made.DevName = L"d" + digits;
    made.ChanNo = record.section;
    made.LastCheck = aceSetDevice::NeverChecked;
    made.AmpState = record.content % 6;
    made.Path = L"p" + digits;
    return made;
}
inline aceTrackFreq TrackOf(const ModelRecord& record) {
    const String digits = std::to_wstring(record.content);
    aceTrackFreq made;
    made.MoniName = L"o" + digits;
    made.GenName = record.content % 2 != 0 ? L"g" + digits : String();
    return made;
}
inline aceAPI MacroOf(const ModelRecord& record) {
    aceAPI made;
    made.Program = L"a" + std::to_wstring(record.content);
    return made;
}
inline ActionParameter ParameterOf(int type, const ModelRecord& record) {
    switch (type) {
        case WaitRecord:
            return aceWait{record.content * 1000.0};
        case NotifyRecord:
            return NotifyOf(record);
        case RemoteRecord:
            return RemoteOf(record);
        case DeviceRecord:
            return DeviceOf(record);
        case TrackRecord:
            return TrackOf(record);
        default:
            return MacroOf(record);
    }
}

inline p_Action ActionOf(const ModelAction& action) {
    p_Action made;
    made.ActionType = static_cast<p_ActionTypes>(action.kind);
    if (action.record) {
        made.Parameter = ParameterOf(RecordTypeOf[action.kind], *action.record);
    }
    return made;
}

inline String RemoteDetail(int content, bool isWireless) {
    const String digits = std::to_wstring(content);
    if (content % 4 == 0) {
        return L"p" + digits;
    }
    const String ways[] = {L"Gpib1:" + std::to_wstring(content % 30), L"COM" + digits,
                           L"\\\\h" + digits + (isWireless ? L":" + digits : String())};
    return ways[content % 3] + L",c" + digits;
}

/// What an action shows behind its title.
inline String DetailOf(const ModelAction& action, bool isWireless) {
    if (!action.record) {
        return {};
    }
    const int content = action.record->content;
    const String digits = std::to_wstring(content);
    const String states[] = {L"Off", L"On", L"Standby", L"Operate", L"Reset", L""};
    switch (action.kind) {
        case atWait:
            return L": " + digits + L".000 s";
        case atNotify:
        case atQuestion:
            return (action.record->isCapital ? L": M" : L": m") + digits;
        case atRemote:
            return L": " + RemoteDetail(content, isWireless);
        case atTrackFreq:
            return (content % 2 != 0 ? L": g" : L": o") + digits;
        case atComment:
            return content % 2 != 0 ? L", T(9080)" : L"";
        case atSwitchAmp:
            return L": d" + digits + L" --> " + states[content % 6];
        case atSwitchUnit:
            return L": d" + digits + L" --> p" + digits;
        case atAPI:
            return L": a" + digits;
        default:
            return L": d" + digits;
    }
}

/// Titles by kind.
inline constexpr StringView ModelTitles[ModelKinds] = {
    L"T(9063)", L"T(9064)", L"T(9062)", L"T(9061)", L"T(9065)",  L"T(9066)",
    L"T(9069)", L"T(9068)", L"T(9070)", L"T(9042)", L"T(9071)",  L"T(9072)",
    L"T(9073)", L"T(9074)", L"T(9078)", L"T(9077)", L"Question", L"Monitor EUT"};

inline p_Subrange SetOf(const ModelSet& model) {
    const auto actions = [](const ModelList& list) {
        std::vector<p_Action> made;
        for (const ModelAction& action : list) {
            made.push_back(ActionOf(action));
        }
        return made;
    };
    p_Subrange set;
    Fill(set, EnterList, actions(model.enter));
    Fill(set, LeaveList, actions(model.leave));
    Fill(set, FreqList, actions(model.freq));
    Fill(set, MlcList, actions(model.mlc));
    return set;
}

}  // namespace ace::test
