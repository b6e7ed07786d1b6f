/// Every operation of the engine, with arguments that are good and such that are not.
#pragma once

#include "support/lists_of_every_kind.h"

namespace ace::test {

struct OperationRow {
    const char* name;
    void (*call)(aceActionsEngine& engine);
};

template <std::int32_t Number>
void LoadAgain(aceActionsEngine& engine) {
    engine.LoadActions(L"lists.ini", Number, engine.State().Modul);
}
template <aceModul Modul>
void LoadAs(aceActionsEngine& engine) {
    engine.LoadActions(L"lists.ini", 3, Modul);
}
inline void SetPlaceholders(aceActionsEngine& engine) {
    DynArray<String> placeholders;
    placeholders.Redim(0, 1);
    DynArray<Value> values;
    values.Redim(0, 1);
    engine.SetVKSReplaceVar(placeholders, values);
}
/// An engine that prints itself.
inline void PrintLists(aceActionsEngine& engine) {
    Array2D<String> rows;
    rows.Redim(0, 0, 0, 1);
    engine.PrintStrings(engine.State().Modul, engine, rows, 0);
}
inline void AnnounceTests(aceActionsEngine& engine) {
    DynArray<String> keys;
    keys.Redim(0, 1);
    engine.SetVKSTests(keys, keys);
}
/// Everything that only answers.
inline void AskAll(aceActionsEngine& engine) {
    double frequency = 2.4e9;
    std::int32_t id = 0;
    engine.Change();
    engine.InitReceiver();
    engine.VKSInfByFreq();
    engine.VKSInfByBandwidth();
    engine.VKSInfByPower();
    engine.StepNumber();
    engine.TestNumber();
    engine.EUT_UseSetDevice();
    engine.NewFrqCheckForAccLoading();
    engine.VKSGetResult();
    engine.VKSStepsHaveActions();
    engine.VKSStepHaveActions(L"T1", L"S1");
    engine.VKSDUTStepGlobBeforeCount();
    engine.VKSDUTStepGlobAfterCount();
    engine.VKSDUTStepActionCount(frequency, id, id);
}

inline constexpr OperationRow EveryOperation[] = {
    {"LoadActions 0", LoadAgain<0>},
    {"LoadActions 1", LoadAgain<1>},
    {"LoadActions 2", LoadAgain<2>},
    {"LoadActions 3", LoadAgain<3>},
    {"LoadActions of too many", LoadAgain<100001>},
    {"LoadActions as template", LoadAs<aceTemplate>},
    {"LoadActions as monitoring", LoadAs<aceMonitoring>},
    {"LoadActions as wireless template", LoadAs<aceVKSTemplate>},
    {"LoadActions as matrix", LoadAs<aceVKSDUT>},
    {"LoadActions of a damaged file",
     [](auto& engine) { engine.LoadActions(L"damaged.ini", 2, engine.State().Modul); }},
    {"LoadActions of an empty file",
     [](auto& engine) { engine.LoadActions(L"empty.ini", 2, engine.State().Modul); }},
    {"SaveActions", [](auto& engine) { engine.SaveActions(L"saved.ini"); }},
    {"WriteActionLists",
     [](auto& engine) { engine.WriteActionLists(L"saved.ini", aceTSTemplate); }},
    {"PrintStrings", PrintLists},
    {"Change true", [](auto& engine) { engine.Change(true); }},
    {"Change false", [](auto& engine) { engine.Change(false); }},
    {"AddSubrange 1", [](auto& engine) { engine.AddSubrange(1, L"T9"); }},
    {"AddSubrange 9", [](auto& engine) { engine.AddSubrange(9, {}); }},
    {"DeleteSubrange 1", [](auto& engine) { engine.DeleteSubrange(1, L"T1"); }},
    {"DeleteSubrange 2", [](auto& engine) { engine.DeleteSubrange(2, L"T2"); }},
    {"MoveSubrange", [](auto& engine) { engine.MoveSubrange(1, 2); }},
    {"SwapSubrange", [](auto& engine) { engine.SwapSubrange(2, 1); }},
    {"AddVKSStep", [](auto& engine) { engine.AddVKSStep(L"S9", L"T1", L"new"); }},
    {"SetVKSTests", AnnounceTests},
    {"SetVKSReplaceVar", SetPlaceholders},
    {"AddVKSDUTFreq", [](auto& engine) { engine.AddVKSDUTFreq(L"5 GHz", 5e9); }},
    {"AddVKSDUTFreq again", [](auto& engine) { engine.AddVKSDUTFreq(L"renamed", 2.4e9); }},
    {"AddVKSDUTBandwidthID", [](auto& engine) { engine.AddVKSDUTBandwidthID(L"80 MHz", -1); }},
    {"AddVKSDUTPowerID", [](auto& engine) { engine.AddVKSDUTPowerID(L"20 dBm", -1); }},
    {"AddVKSDUTPowerID again", [](auto& engine) { engine.AddVKSDUTPowerID(L"renamed", 0); }},
    {"DeleteVKSDUTFreq", [](auto& engine) { engine.DeleteVKSDUTFreq(2.4e9); }},
    {"DeleteVKSDUTBandwidthID", [](auto& engine) { engine.DeleteVKSDUTBandwidthID(0); }},
    {"DeleteVKSDUTPowerID", [](auto& engine) { engine.DeleteVKSDUTPowerID(0); }},
    {"DeleteVKSDUTAll", [](auto& engine) { engine.DeleteVKSDUTAll(); }},
    {"SetVKSDUTInfluence all", [](auto& engine) { engine.SetVKSDUTInfluence(1, 1, 1); }},
    {"SetVKSDUTInfluence none", [](auto& engine) { engine.SetVKSDUTInfluence(0, 0, 0); }},
    {"StartTest", [](auto& engine) { engine.StartTest(); }},
    {"StopTest", [](auto& engine) { engine.StopTest(); }},
    {"StopAllActions", [](auto& engine) { engine.StopAllActions(); }},
    {"NewFrequency", [](auto& engine) { engine.NewFrequency(31e6, true); }},
    {"EnterSubrange", [](auto& engine) { engine.EnterSubrange(1); }},
    {"Trigger", [](auto& engine) { engine.Trigger(1, {}); }},
    {"EnterNoGo", [](auto& engine) { engine.EnterNoGo(1, {}); }},
    {"EnterStep", [](auto& engine) { engine.EnterStep(1); }},
    {"BeforeStep", [](auto& engine) { engine.BeforeStep(1); }},
    {"AfterStep", [](auto& engine) { engine.AfterStep(1); }},
    {"BeforeTest", [](auto& engine) { engine.BeforeTest(1); }},
    {"VKSStep", [](auto& engine) { engine.VKSStep(L"T1", L"S1"); }},
    {"VKSDUTStep", RunRow},
    {"VKSDUTStepGlobBefore", [](auto& engine) { engine.VKSDUTStepGlobBefore(); }},
    {"StepDescription", [](auto& engine) { engine.StepDescription(1); }},
    {"GetNoGo", [](auto& engine) { engine.GetNoGo(1); }},
    {"GetCheckEutAction", TakeRequest},
    {"all questions", AskAll},
    {"LeaveSubrange", [](auto& engine) { engine.LeaveSubrange(1); }},
    {"Go", [](auto& engine) { engine.Go(1, {}); }},
    {"BeforeTestLoop", [](auto& engine) { engine.BeforeTestLoop(); }},
    {"AfterTestLoop", [](auto& engine) { engine.AfterTestLoop(); }},
    {"AfterTest", [](auto& engine) { engine.AfterTest(1); }},
    {"BeforeVKSTest", [](auto& engine) { engine.BeforeVKSTest(L"T1"); }},
    {"AfterVKSTest", [](auto& engine) { engine.AfterVKSTest(L"T1"); }},
    {"VKSDUTStepGlobAfter", [](auto& engine) { engine.VKSDUTStepGlobAfter(); }},
    {"EditorSelectSubrange", [](auto& engine) { engine.EditorSelectSubrange(1); }},
    {"Release", [](auto& engine) { engine.Release(); }},
    {"another engine", [](auto& engine) { aceActionsEngine(engine.State().Context); }},
};

}  // namespace ace::test
