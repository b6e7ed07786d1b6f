/// Every operation from every call of the host inside every moment, on lists with every kind;
/// afterwards counts and elements agree, and a refused call has changed nothing. A sample runs by
/// default, a larger one of the calls in which messages run; ACE_PROVE=1 in the environment runs
/// all, and ACE_SEED another sample.
#include "execution/lists_of_every_kind.h"
#include "support/fake_editor.h"
#include "support/list_agreement.h"
#include "support/sample.h"

namespace ace::test {
namespace {

// ---- the moments from inside of which it is called ---------------------------------------------

/// A load lets no messages run. A host that calls back from one all the same keeps its lists whole.
template <aceModul Modul>
void LoadLists(aceActionsEngine& engine) {
    engine.LoadActions(L"lists.ini", Modul == aceVKSDUT ? 3 : 2, Modul);
}
constexpr MomentCall Loads[] = {
    {"LoadActions", aceTemplate, {}, LoadLists<aceTemplate>},
    {"LoadActions", aceMonitoring, {}, LoadLists<aceMonitoring>},
    {"LoadActions", aceVKSTemplate, {}, LoadLists<aceVKSTemplate>},
    {"LoadActions", aceVKSDUT, {}, LoadLists<aceVKSDUT>},
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

/// The calls of the host from which is called.
using PlaceFilter = bool (*)(StringView operation);
bool AllCalls(StringView) {
    return true;
}
bool OtherCalls(StringView operation) {
    return !MessagesRunIn(operation);
}

/// A moment on fresh lists; at its `place`-th call of the host that counts, `act` is called once.
class ReentryRun {
  public:
    ReentryRun(const MomentCall& moment, const Filling& filling, PlaceFilter counts)
        : x_moment(moment), x_counts(counts), x_lists(filling) {}

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
            x_places += x_counts(operation) ? 1U : 0U;
            if (!reached && x_places == place) {
                reached = true;
                Call(act);
            }
        };
        const std::int32_t error = ErrorOf([&] { x_moment.run(*x_lists.engine); });
        host.beforeCall = nullptr;
        EXPECT_NE(error, TooManyCalls) << NameOf(x_moment) << ", " << act.name;
        Judge(act, place);
        return reached;
    }

  private:
    static constexpr std::size_t MostCalls = 100000;
    static constexpr std::int32_t TooManyCalls = 9999;

    void Call(const ActRow& act) {
        const EngineState& state = x_lists.engine->State();
        const Unchanged before(state);
        const std::int32_t error = ErrorOf([&] { act.call(*x_lists.engine); });
        if (error == Errors::ArrayInUse) {
            x_wasRefused = true;
            EXPECT_TRUE(Unchanged(state) == before)
                << act.name << " in " << NameOf(x_moment) << ", " << x_places;
        }
    }
    void Judge(const ActRow& act, std::size_t place) {
        EXPECT_THAT(ListAgreement::Breaches(x_lists.engine->State()), ::testing::IsEmpty())
            << act.name << " in " << NameOf(x_moment) << ", " << place;
    }

    const MomentCall& x_moment;
    PlaceFilter x_counts;
    std::size_t x_places = 0;
    bool x_wasRefused = false;
    FilledLists x_lists;
};

// ---- the sample --------------------------------------------------------------------------------

/// A sample of the places of several moments, each with every operation.
class ReentrySample {
  public:
    ReentrySample(PlaceFilter counts, std::uint64_t share) : x_counts(counts), x_sample(share) {}
    ~ReentrySample() {
        EXPECT_GT(x_refused, 0U) << "a sample without a refused call proves little";
    }

    void Run(const MomentCall& moment, const p_Subrange& set = FullSet()) {
        const Filling filling(moment.moduleKind, set);
        const std::size_t places = PlacesOf(moment, filling);
        EXPECT_GE(places, 1U) << NameOf(moment);
        for (std::size_t i = 0; i < places * std::size(Acts); ++i) {
            if (x_sample.Takes()) {
                ReentryRun run(moment, filling, x_counts);
                EXPECT_TRUE(run.At(i / std::size(Acts) + 1, Acts[i % std::size(Acts)]));
                x_refused += run.WasRefused() ? 1U : 0U;
            }
        }
    }

  private:
    /// Number of places that a moment has when nothing is called in it.
    std::size_t PlacesOf(const MomentCall& moment, const Filling& filling) const {
        ReentryRun run(moment, filling, x_counts);
        run.At(std::numeric_limits<std::size_t>::max(), {"nothing", [](auto&) {}});
        return run.Places();
    }

    PlaceFilter x_counts;
    Sample x_sample;
    std::size_t x_refused = 0;
};

TEST(GeneratedReentry, EveryOperationFromEveryYieldLeavesCountsAndElementsInAgreement) {
    ReentrySample sample(MessagesRunIn, 100);
    for (const MomentCall& moment : EveryMoment) {
        sample.Run(moment);
    }
}

TEST(GeneratedReentry, EveryOperationFromEveryOtherCallOfTheHostDoesSoToo) {
    ReentrySample sample(OtherCalls, 1000);
    for (const MomentCall& moment : EveryMoment) {
        sample.Run(moment);
    }
}

TEST(GeneratedReentry, EveryOperationFromEveryCallOfTheHostAtASignalDoesSoToo) {
    ReentrySample sample(AllCalls, 200);
    for (const MomentCall& moment : EveryMoment) {
        const MomentRow* row = FindMoment(moment.moduleKind, moment.time);
        for (const p_ActionTypes kind : SignalKinds) {
            if (row != nullptr && row->list == EnterList) {
                sample.Run(moment, SignalSet(kind));
            }
        }
    }
}

TEST(GeneratedReentry, EveryOperationFromEveryCallOfTheHostInALoadDoesSoToo) {
    ReentrySample sample(AllCalls, 300);
    for (const MomentCall& load : Loads) {
        sample.Run(load);
    }
}

// ---- what the lists reach ----------------------------------------------------------------------

/// So that all kinds before it run, whatever the moment.
TEST(GeneratedReentry, UndisturbedEachMomentComesToTheWaitOfItsList) {
    for (const MomentCall& moment : EveryMoment) {
        FilledLists lists{Filling(moment.moduleKind)};
        lists.host->journal.Bound(1000);
        const bool tracks = moment.time == ptEveryFreq && moment.moduleKind != aceTemplate;
        EXPECT_EQ(ErrorOf([&] { moment.run(*lists.engine); }), tracks ? Errors::TypeMismatch : 0)
            << NameOf(moment);
        EXPECT_THAT(lists.host->journal.LinesOf(L"SystemServices.ShowTimedMessage"),
                    ::testing::Contains(::testing::EndsWith(String(L", 5)"))))
            << NameOf(moment);
    }
}

TEST(GeneratedReentry, UndisturbedTheStopOfAnAutomaticTestLeavesTheRequestToPark) {
    for (const aceModul moduleKind : {aceEMSAutoTemplateGeneral, aceEMIAutoTemplate, aceAziChart}) {
        FilledLists lists{Filling(moduleKind)};
        lists.engine->StopTest();
        EXPECT_EQ(lists.context.EutCheckRequest & acEutParkAccessories, acEutParkAccessories)
            << moduleKind;
    }
}

}  // namespace
}  // namespace ace::test
