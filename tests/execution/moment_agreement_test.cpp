#include <algorithm>

#include "support/engine_fixture.h"
#include "support/every_moment.h"

namespace ace::test {
namespace {

class MomentAgreement : public EngineTest {
  protected:
    /// A module with two empty sets of each kind; the step and the row can be found by their keys.
    void Serve(aceModul moduleKind) {
        EngineState& state = State();
        state.Modul = moduleKind;
        for (const NumberedSets& numbered : FindModule(moduleKind)->AllNumbered()) {
            (state.*numbered.sets).Redim(0, 1);
            state.*numbered.count = 2;
        }
        for (DynArray<String>* texts : {&state.VKSTestUKeys, &state.VKSStepUKeys}) {
            texts->Redim(0, 1);
            (*texts)[0] = FirstTest;
            (*texts)[1] = SecondTest;
        }
        state.VKSStepKeys.Redim(0, 1);
        state.VKSStepKeys[0] = FirstStep;
        state.VKSDUTIds.Redim(0, 0, 0, 2);
        state.VKSDUTIds(0, 0) = state.VKSDUTIds(0, 1) = state.VKSDUTIds(0, 2) = -1.0;
    }
    /// A wait of this list was seen when the moment ran.
    bool Runs(const MomentCall& moment) {
        host->journal.Clear();
        moment.run(*engine);
        const Lines lines = TakeEffects();
        return std::find(lines.begin(), lines.end(), Waited(1)[0]) != lines.end();
    }
    static void Put(ActionList list) {
        list.actions.Redim(0, 0);
        list.actions[0] = WaitFor(1);
        list.count = 1;
    }
};

TEST_F(MomentAgreement, EachMomentRunsTheListThatTheTableNamesAndNoOtherOfItsModule) {
    for (const MomentCall& own : EveryMoment) {
        Serve(own.moduleKind);
        for (const std::int32_t set : {0, 1}) {
            Put(ListOf(State(), own, set));
        }
        for (const MomentCall& moment : EveryMoment) {
            if (moment.moduleKind == own.moduleKind) {
                EXPECT_EQ(Runs(moment), moment.time == own.time)
                    << NameOf(own) << ": its list at " << moment.name;
            }
        }
        static_cast<ModuleLists&>(State()) = ModuleLists();
    }
}

TEST_F(MomentAgreement, EveryRowOfTheTableIsReached) {
    for (const MomentRow& row : MomentTable()) {
        const bool isReached =
            std::any_of(std::begin(EveryMoment), std::end(EveryMoment), [&](const auto& moment) {
                return moment.moduleKind == row.moduleKind && moment.time == row.time;
            });
        EXPECT_TRUE(isReached) << row.moduleKind << ", " << row.time;
    }
}

/// Intentional: the general lists of a susceptibility test have an every-frequency list that runs
/// and that no editor shows.
TEST_F(MomentAgreement, TheEveryFrequencyListOfTheGeneralListsAloneIsNotInTheTable) {
    for (const MomentCall& moment : EveryMoment) {
        const bool isHidden =
            moment.moduleKind == aceEMSAutoTemplateGeneral && moment.time == ptEveryFreq;
        EXPECT_EQ(FindMoment(moment.moduleKind, moment.time) == nullptr, isHidden)
            << NameOf(moment);
    }
}

}  // namespace
}  // namespace ace::test
