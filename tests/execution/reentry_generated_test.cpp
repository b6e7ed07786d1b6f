/// Every operation from every place inside every moment at which messages run, on lists with every
/// kind; afterwards counts and elements agree, and a refused call has changed nothing. A sample
/// runs by default; ACE_PROVE=1 in the environment runs all, and ACE_SEED another sample.
#include "core/fake_editor.h"
#include "execution/lists_of_every_kind.h"
#include "support/list_agreement.h"
#include "support/sample.h"

namespace ace::test {
namespace {

// ---- the moments from inside of which it is called ---------------------------------------------

struct MomentRow {
    const char* name;
    aceModul moduleKind;
    void (*call)(aceActionsEngine& engine);
};

void RunRow(aceActionsEngine& engine) {
    double frequency = 2.4e9;
    std::int32_t bandwidth = 0;
    std::int32_t power = 0;
    engine.VKSDUTStep(frequency, bandwidth, power);
}

constexpr MomentRow Moments[] = {
    {"StartTest", aceTemplate, [](auto& engine) { engine.StartTest(); }},
    {"NewFrequency", aceTemplate, [](auto& engine) { engine.NewFrequency(30e6, true); }},
    {"EnterSubrange", aceTemplate, [](auto& engine) { engine.EnterSubrange(1); }},
    {"LeaveSubrange", aceTemplate, [](auto& engine) { engine.LeaveSubrange(2); }},
    {"StopTest", aceTemplate, [](auto& engine) { engine.StopTest(); }},
    {"StartTest", aceMonitoring, [](auto& engine) { engine.StartTest(); }},
    {"NewFrequency", aceMonitoring, [](auto& engine) { engine.NewFrequency(30e6, true); }},
    {"StopTest", aceMonitoring, [](auto& engine) { engine.StopTest(); }},
    {"BeforeTestLoop", aceMonitoring, [](auto& engine) { engine.BeforeTestLoop(); }},
    {"AfterTestLoop", aceMonitoring, [](auto& engine) { engine.AfterTestLoop(); }},
    {"AfterStep", aceMonitoring, [](auto& engine) { engine.AfterStep(1); }},
    {"Trigger", aceMonitoring, [](auto& engine) { engine.Trigger(1, L"Radio"); }},
    {"EnterNoGo", aceMonitoring, [](auto& engine) { engine.EnterNoGo(2, L"Radio"); }},
    {"Go", aceMonitoring, [](auto& engine) { engine.Go(1, L"Radio"); }},
    {"StartTest", aceEMSAutoTemplateGeneral, [](auto& engine) { engine.StartTest(); }},
    {"EnterStep", aceEMSAutoTemplate, [](auto& engine) { engine.EnterStep(1); }},
    {"BeforeStep", aceEMIAutoTemplate, [](auto& engine) { engine.BeforeStep(2); }},
    {"AfterStep", aceEMIAutoTemplate, [](auto& engine) { engine.AfterStep(1); }},
    {"StopTest", aceEMIAutoTemplate, [](auto& engine) { engine.StopTest(); }},
    {"BeforeTest", aceTSTemplate, [](auto& engine) { engine.BeforeTest(1); }},
    {"AfterTest", aceTSTemplate, [](auto& engine) { engine.AfterTest(2); }},
    {"StartTest", aceAziChart, [](auto& engine) { engine.StartTest(); }},
    {"NewFrequency", aceAziChart, [](auto& engine) { engine.NewFrequency(30e6, true); }},
    {"StartTest", aceVKSTemplate, [](auto& engine) { engine.StartTest(); }},
    {"BeforeVKSTest", aceVKSTemplate, [](auto& engine) { engine.BeforeVKSTest(L"T1"); }},
    {"VKSStep", aceVKSTemplate, [](auto& engine) { engine.VKSStep(L"T1", L"S1"); }},
    {"AfterVKSTest", aceVKSTemplate, [](auto& engine) { engine.AfterVKSTest(L"T2"); }},
    {"VKSDUTStepGlobAfter", aceVKSDUT, [](auto& engine) { engine.VKSDUTStepGlobAfter(); }},
    {"VKSDUTStepGlobBefore", aceVKSDUT, [](auto& engine) { engine.VKSDUTStepGlobBefore(); }},
    {"VKSDUTStep", aceVKSDUT, RunRow},
};

/// A load lets no messages run. A host that calls back from one all the same keeps its lists whole.
template <aceModul Modul>
void LoadLists(aceActionsEngine& engine) {
    engine.LoadActions(L"lists.ini", Modul == aceVKSDUT ? 3 : 2, Modul);
}
constexpr MomentRow Loads[] = {
    {"LoadActions", aceTemplate, LoadLists<aceTemplate>},
    {"LoadActions", aceMonitoring, LoadLists<aceMonitoring>},
    {"LoadActions", aceVKSTemplate, LoadLists<aceVKSTemplate>},
    {"LoadActions", aceVKSDUT, LoadLists<aceVKSDUT>},
};

// ---- what is called there ----------------------------------------------------------------------

using Act = void (*)(aceActionsEngine& engine);
struct ActRow {
    const char* name;
    Act call;
};

template <std::int32_t Number>
void LoadAgain(aceActionsEngine& engine) {
    engine.LoadActions(L"lists.ini", Number, engine.State().Modul);
}
template <aceModul Modul>
void LoadAs(aceActionsEngine& engine) {
    engine.LoadActions(L"lists.ini", 3, Modul);
}
void SetPlaceholders(aceActionsEngine& engine) {
    DynArray<String> placeholders;
    placeholders.Redim(0, 1);
    DynArray<Value> values;
    values.Redim(0, 1);
    engine.SetVKSReplaceVar(placeholders, values);
}
void AnnounceTests(aceActionsEngine& engine) {
    DynArray<String> keys;
    keys.Redim(0, 1);
    engine.SetVKSTests(keys, keys);
}
void TakeRequest(aceActionsEngine& engine) {
    Value comment;
    engine.GetCheckEutAction(comment);
}
/// Everything that only answers.
void AskAll(aceActionsEngine& engine) {
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

constexpr ActRow Acts[] = {
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

// ---- one run -----------------------------------------------------------------------------------

/// A moment on fresh lists; at its `place`-th call of the host that counts, `act` is called once.
class ReentryRun {
  public:
    ReentryRun(const MomentRow& moment, bool everyCall)
        : x_moment(moment), x_everyCall(everyCall) {}

    /// Places that were passed so far.
    std::size_t Places() const { return x_places; }
    /// The call ended with error 10.
    bool WasRefused() const { return x_wasRefused; }
    /// False when the moment has no such place.
    bool At(std::size_t place, const ActRow& act) {
        KindsHost& host = *x_lists.host;
        std::size_t calls = 0;
        bool reached = false;
        host.beforeCall = [&](StringView operation, const auto&) {
            if (++calls > MostCalls) {
                throw RunTimeError(TooManyCalls, L"this moment does not end");
            }
            x_places += CountsAsPlace(operation) ? 1U : 0U;
            if (!reached && x_places == place) {
                reached = true;
                Call(act);
            }
        };
        const std::int32_t error = ErrorOf([&] { x_moment.call(*x_lists.engine); });
        host.beforeCall = nullptr;
        EXPECT_NE(error, TooManyCalls) << x_moment.name << x_moment.moduleKind << ", " << act.name;
        Judge(act, place);
        return reached;
    }

  private:
    static constexpr std::size_t MostCalls = 100000;
    static constexpr std::int32_t TooManyCalls = 9999;

    bool CountsAsPlace(StringView operation) const {
        return x_everyCall || MessagesRunIn(operation);
    }
    void Call(const ActRow& act) {
        const EngineState& state = x_lists.engine->State();
        const Unchanged before(state);
        const std::int32_t error = ErrorOf([&] { act.call(*x_lists.engine); });
        if (error == Errors::ArrayInUse) {
            x_wasRefused = true;
            EXPECT_TRUE(Unchanged(state) == before)
                << act.name << " in " << x_moment.name << x_moment.moduleKind << ", " << x_places;
        }
    }
    void Judge(const ActRow& act, std::size_t place) {
        EXPECT_THAT(ListAgreement::Breaches(x_lists.engine->State()), ::testing::IsEmpty())
            << act.name << " in " << x_moment.name << x_moment.moduleKind << ", " << place;
    }

    const MomentRow& x_moment;
    bool x_everyCall;
    std::size_t x_places = 0;
    bool x_wasRefused = false;
    ListsOfEveryKind x_lists{x_moment.moduleKind};
};

// ---- the sample --------------------------------------------------------------------------------

/// Number of places that a moment has when nothing is called in it.
std::size_t PlacesOf(const MomentRow& moment, bool everyCall) {
    ReentryRun run(moment, everyCall);
    run.At(std::numeric_limits<std::size_t>::max(), {"nothing", [](auto&) {}});
    return run.Places();
}

void RunSample(std::span<const MomentRow> moments, bool everyCall, std::uint64_t share) {
    Sample sample(share);
    std::size_t refused = 0;
    for (const MomentRow& moment : moments) {
        const std::size_t places = PlacesOf(moment, everyCall);
        EXPECT_GE(places, 10U) << moment.name << moment.moduleKind;
        for (std::size_t i = 0; i < places * std::size(Acts); ++i) {
            if (sample.Takes()) {
                ReentryRun run(moment, everyCall);
                EXPECT_TRUE(run.At(i / std::size(Acts) + 1, Acts[i % std::size(Acts)]));
                refused += run.WasRefused() ? 1U : 0U;
            }
        }
    }
    EXPECT_GT(refused, 0U) << "a sample without a refused call proves little";
}

TEST(GeneratedReentry, EveryOperationFromEveryYieldLeavesCountsAndElementsInAgreement) {
    RunSample(Moments, false, 200);
}

TEST(GeneratedReentry, EveryOperationFromEveryCallOfTheHostDoesSoToo) {
    RunSample(Moments, true, 2000);
}

TEST(GeneratedReentry, EveryOperationFromEveryCallOfTheHostInALoadDoesSoToo) {
    RunSample(Loads, true, 300);
}

}  // namespace
}  // namespace ace::test
