/// Lists with an action of every kind.
#pragma once

#include "support/device_moments.h"
#include "support/every_moment.h"

namespace ace::test {

/// A command over an interface, and a program behind it.
inline p_Action Command(std::int32_t iface, const String& program = {}) {
    aceRemote record;
    record.Command = L"*RST";
    record.Iface = iface;
    record.TcpHost = L"gen";
    record.TcpPort = 5025;
    record.SerComPort = 2;
    record.Program = program;
    return Action(atRemote, record);
}
inline p_Action Macro() {
    aceAPI record;
    record.Program = L"log.mac";
    record.Parameters.Redim(1, 1);
    record.Parameters[1] = L"#FREQ#";
    return Action(atAPI, record);
}

/// The kinds that answer true, known in enter lists alone: a list ends with the first of them, but
/// for those of a channel.
inline constexpr p_ActionTypes SignalKinds[] = {atComment, atStopLevSweep, atGotoSingle, atNbBbEtsi,
                                                atTestStop};
inline p_Action Signal(p_ActionTypes kind) {
    return kind == atComment ? Comment(true) : Action(kind);
}

/// Time of the wait in each list that nothing before it ends, in milliseconds.
inline constexpr double LastWait = 5;

/// One of each kind that a file's list may hold; commands over each transport and with a program.
/// Behind the wait stand those that may end the list: the tracking, which does so outside
/// `aceTemplate`, and the signals.
inline std::vector<p_Action> EveryKindOf(const ListFields& list) {
    const bool isEnter = list == EnterList;
    const bool isLeave = list == LeaveList;
    const bool isFreq = list == FreqList;
    std::vector<p_Action> actions{Tell(L"Close the door"),
                                  Command(0),
                                  Command(1),
                                  Command(2),
                                  Command(0, L"exerciser"),
                                  Macro(),
                                  OnDevice(atSetDevice, L"EUT"),
                                  OnDevice(atSetDevice, L"Injector"),
                                  OnDevice(atSwitchUnit, L"Unit")};
    const auto add = [&](bool isKnown, const std::vector<p_Action>& more) {
        actions.insert(actions.end(), more.begin(), isKnown ? more.end() : more.begin());
    };
    add(isEnter || isLeave || isFreq, {OnDevice(atCheckEut, L"EUT")});
    add(isEnter || isLeave,
        {OnDevice(atSwitchAmp, L"Amplifier"), Action(atProtRec), Action(atParkAcc)});
    add(isEnter, {Ask(L"Lamp green?"), OnDevice(atMonitorEUT, L"EUT")});
    add(true, {WaitFor(LastWait)});
    add(isFreq, {Follow(L"Generator"), Follow({}, L"EUT")});
    for (const p_ActionTypes kind : SignalKinds) {
        add(isEnter, {Signal(kind)});
    }
    return actions;
}

inline p_Subrange FullSet() {
    p_Subrange set;
    for (const ListFields& list : ActionLists) {
        Fill(set, list, EveryKindOf(list));
    }
    return set;
}
/// The signal alone.
inline p_Subrange SignalSet(p_ActionTypes kind) {
    p_Subrange set;
    Fill(set, EnterList, {Signal(kind)});
    return set;
}
inline void FillNumbered(EngineState& state, const NumberedSets& numbered, const p_Subrange& set) {
    state.*numbered.count = 2;
    (state.*numbered.sets).Redim(0, 1);
    (state.*numbered.sets)[0] = (state.*numbered.sets)[1] = set;
}
inline void FillKeys(EngineState& state) {
    state.VKSTestUKeys.Redim(0, 1);
    state.VKSTestUKeys[0] = FirstTest;
    state.VKSTestUKeys[1] = SecondTest;
    for (DynArray<String>* keys : {&state.VKSStepKeys, &state.VKSStepUKeys, &state.VKSStepNames}) {
        keys->Redim(0, 1);
    }
    state.VKSStepKeys[0] = FirstStep;
    state.VKSStepKeys[1] = L"S2";
    state.VKSStepUKeys[0] = state.VKSStepUKeys[1] = FirstTest;
}
/// A row for everything and one for 2.4 GHz.
inline void FillRows(EngineState& state) {
    state.VKSDUTTemplate = 3;
    state.VKSInfByFreq = true;
    state.VKSDUTIds.Redim(0, 1, 0, 2);
    for (const std::int32_t column : {0, 1, 2}) {
        state.VKSDUTIds(0, column) = state.VKSDUTIds(1, column) = -1.0;
    }
    state.VKSDUTIds(1, 0) = 2.4e9;
}
/// Makes `state` serve `moduleKind`: two numbered sets, and every set is a copy of `set`, which has
/// all four lists by default.
inline void FillModule(EngineState& state, aceModul moduleKind, const p_Subrange& set = FullSet()) {
    const ModuleRow& module = ModuleTable[moduleKind];
    for (const FixedSet& fixed : module.AllFixed()) {
        state.*fixed.set = set;
    }
    for (const NumberedSets& numbered : module.AllNumbered()) {
        FillNumbered(state, numbered, set);
    }
    FillKeys(state);
    FillRows(state);
    state.Modul = moduleKind;
}

}  // namespace ace::test
