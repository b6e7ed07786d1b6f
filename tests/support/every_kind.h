/// Lists with an action of every kind.
#pragma once

#include "support/device_moments.h"

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

/// One of each kind that a file's list may hold, those that stop the list at its end; commands over
/// each transport and with a program.
inline std::vector<p_Action> EveryKindOf(const ListFields& list) {
    const bool isEnter = list == EnterList;
    const bool isLeave = list == LeaveList;
    const bool isFreq = list == FreqList;
    std::vector<p_Action> actions{WaitFor(5),
                                  Tell(L"Close the door"),
                                  Command(0),
                                  Command(1),
                                  Command(2),
                                  Command(0, L"exerciser"),
                                  Macro(),
                                  OnDevice(atSetDevice, L"EUT"),
                                  OnDevice(atSwitchUnit, L"Unit")};
    const auto add = [&](bool isKnown, const std::vector<p_Action>& more) {
        actions.insert(actions.end(), more.begin(), isKnown ? more.end() : more.begin());
    };
    add(isFreq, {Follow(L"Generator"), Follow({}, L"EUT")});
    add(isEnter || isLeave || isFreq, {OnDevice(atCheckEut, L"EUT")});
    add(isEnter || isLeave, {OnDevice(atSwitchAmp, L"Amplifier"), Action(atProtRec)});
    add(isEnter, {Ask(L"Lamp green?"), OnDevice(atMonitorEUT, L"EUT"), Comment(true),
                  Action(atGotoSingle), Action(atTestStop)});
    return actions;
}

inline p_Subrange FullSet() {
    p_Subrange set;
    for (const ListFields& list : ActionLists) {
        Fill(set, list, EveryKindOf(list));
    }
    return set;
}
inline void FillNumbered(EngineState& state, const NumberedSets& numbered) {
    state.*numbered.count = 2;
    (state.*numbered.sets).Redim(0, 1);
    (state.*numbered.sets)[0] = (state.*numbered.sets)[1] = FullSet();
}
inline void FillKeys(EngineState& state) {
    state.VKSTestUKeys.Redim(0, 1);
    state.VKSTestUKeys[0] = L"T1";
    state.VKSTestUKeys[1] = L"T2";
    for (DynArray<String>* keys : {&state.VKSStepKeys, &state.VKSStepUKeys, &state.VKSStepNames}) {
        keys->Redim(0, 1);
    }
    state.VKSStepKeys[0] = L"S1";
    state.VKSStepKeys[1] = L"S2";
    state.VKSStepUKeys[0] = state.VKSStepUKeys[1] = L"T1";
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
/// Makes `state` serve `moduleKind` with full lists: two numbered sets, and every set has all four
/// lists.
inline void FillModule(EngineState& state, aceModul moduleKind) {
    const ModuleRow& module = ModuleTable[moduleKind];
    for (const FixedSet& fixed : module.AllFixed()) {
        state.*fixed.set = FullSet();
    }
    for (const NumberedSets& numbered : module.AllNumbered()) {
        FillNumbered(state, numbered);
    }
    FillKeys(state);
    FillRows(state);
    state.Modul = moduleKind;
}

}  // namespace ace::test
