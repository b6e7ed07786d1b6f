/// What the numbers of the plain model stand for: actions, and what the tree shows of them.
#pragma once

#include "editor/edit_model.h"
#include "support/engine_fixture.h"

namespace ace::test {

inline ActionParameter ParameterOf(int type, const ModelRecord& record) {
    const std::int32_t content = record.content;
    const String digits = std::to_wstring(content);
    const bool isOdd = content % 2 != 0;
    switch (type) {
        case WaitRecord:
            return aceWait{content * 1000.0};
        case NotifyRecord:
            return aceNotify{.Message = (record.isCapital ? L"M" : L"m") + digits,
                             .GeneratorOff = isOdd};
        case RemoteRecord:
            return aceRemote{.Command = content % 4 == 0 ? String() : L"c" + digits,
                             .Iface = content % 3,
                             .GpibAddress = 100 + content % 30,
                             .SerComPort = content,
                             .TcpHost = L"h" + digits,
                             .TcpPort = content,
                             .Program = L"x\\p" + digits};
        case DeviceRecord:
            return aceSetDevice{.DevName = L"d" + digits,
                                .ChanNo = record.section,
                                .LastCheck = aceSetDevice::NeverChecked,
                                .AmpState = content % 6,
                                .Path = L"p" + digits};
        case TrackRecord:
            return aceTrackFreq{.MoniName = L"o" + digits,
                                .GenName = isOdd ? L"g" + digits : String()};
        default:
            return aceAPI{.Program = L"a" + digits};
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
