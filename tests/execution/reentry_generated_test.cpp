/// Every operation from every call of the host inside every moment, on lists with every kind;
/// afterwards counts and elements agree, and a refused call has changed nothing. A sample runs by
/// default, a larger one of the calls in which messages run; ACE_PROVE=1 in the environment runs
/// all, and ACE_SEED another sample.
#include "support/every_operation.h"
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
    bool At(std::size_t place, const OperationRow& act) {
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

    void Call(const OperationRow& act) {
        const EngineState& state = x_lists.engine->State();
        const Unchanged before(state);
        const std::int32_t error = ErrorOf([&] { act.call(*x_lists.engine); });
        if (error == Errors::ArrayInUse) {
            x_wasRefused = true;
            EXPECT_TRUE(Unchanged(state) == before)
                << act.name << " in " << NameOf(x_moment) << ", " << x_places;
        }
    }
    void Judge(const OperationRow& act, std::size_t place) {
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
        for (std::size_t i = 0; i < places * std::size(EveryOperation); ++i) {
            if (x_sample.Takes()) {
                ReentryRun run(moment, filling, x_counts);
                EXPECT_TRUE(run.At(i / std::size(EveryOperation) + 1,
                                   EveryOperation[i % std::size(EveryOperation)]));
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
