#include <ace/execution/walks.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

constexpr FixedPlace EnterOfTest{&ModuleLists::VKSTemplate, EnterList};

aceVKSVar Variables(const String& search, const Value& value) {
    aceVKSVar variables;
    variables.count = 1;
    variables.strSearch.Redim(0, 0);
    variables.strSearch[0] = search;
    variables.valReplace.Redim(0, 0);
    variables.valReplace[0] = value;
    return variables;
}

/// A kind, the record that stands in it, and where that record keeps replace variables.
struct KindRow {
    std::int32_t kind;
    ActionParameter parameter;
    bool takes = false;
};
const KindRow Kinds[] = {
    {atWait, aceWait{}},
    {atNotify, aceNotify{}, true},
    {atRemote, aceRemote{}, true},
    {atSetDevice, aceSetDevice{}},
    {atCheckEut, aceSetDevice{}},
    {atTrackFreq, aceTrackFreq{}},
    {atComment, aceNotify{}},
    {atProtRec, {}},
    {atTestStop, {}},
    {atGotoSingle, {}},
    {atStopLevSweep, {}},
    {atNbBbEtsi, {}},
    {atSwitchAmp, aceSetDevice{}},
    {atSwitchUnit, aceSetDevice{}},
    {atAPI, aceAPI{}, true},
    {atParkAcc, {}},
    {atQuestion, aceNotify{}, true},
    {atMonitorEUT, aceSetDevice{}},
    {18, aceNotify{}},
    {-1, aceNotify{}},
};

/// The replace variables of whatever record stands in an action; none where it has no such field.
const aceVKSVar* VariablesOf(const p_Action& action) {
    if (const auto* notify = std::get_if<aceNotify>(&action.Parameter)) {
        return &notify->vks;
    }
    if (const auto* remote = std::get_if<aceRemote>(&action.Parameter)) {
        return &remote->vks;
    }
    if (const auto* api = std::get_if<aceAPI>(&action.Parameter)) {
        return &api->vks;
    }
    return nullptr;
}

class WirelessWalkTest : public EngineTest {
  protected:
    WirelessWalkTest() { State().VKSReplaceVars = Variables(L"#FREQ#", String(L"2400")); }

    Boolean WalkEnter() { return WirelessWalk(State(), EnterOfTest, aceVKSTemplate); }
    void FillEnter(const std::vector<p_Action>& actions) {
        Fill(State().VKSTemplate, EnterList, actions);
    }
};

TEST_F(WirelessWalkTest, ReplaceVariablesAreCopiedForExactlyFourKinds) {
    for (const KindRow& row : Kinds) {
        p_Action action = Action(static_cast<p_ActionTypes>(row.kind), row.parameter);

        TakeReplaceVariables(State(), action);

        if (row.takes) {
            ASSERT_NE(VariablesOf(action), nullptr) << row.kind;
            EXPECT_EQ(*VariablesOf(action), State().VKSReplaceVars) << row.kind;
        } else {
            EXPECT_EQ(action.Parameter, row.parameter) << row.kind;
        }
    }
}

TEST_F(WirelessWalkTest, RecordInTheListKeepsTheVariablesOfItsLastRunAndItsPlaceholders) {
    FillEnter({Tell(L"Now at #FREQ# MHz")});
    comments->answers = {false};

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Told(L"Now at 2400 MHz")));
    const aceNotify& kept = std::get<aceNotify>(State().VKSTemplate.Enter[0].Parameter);
    EXPECT_EQ(kept.vks, Variables(L"#FREQ#", String(L"2400")));
    EXPECT_EQ(kept.Message, L"Now at #FREQ# MHz");
}

TEST_F(WirelessWalkTest, VariablesAreCopiedBehindTheMessagesBeforeTheElement) {
    FillEnter({Ask(L"#FREQ#?")});
    comments->answers = {false};
    host->onYield = [&](std::size_t n) {
        if (n == 1) {
            State().VKSReplaceVars = Variables(L"#FREQ#", String(L"5800"));
        }
    };

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Asked(L"5800?")));
}

TEST_F(WirelessWalkTest, WithoutVariablesThoseOfTheLastRunAreForgotten) {
    FillEnter({Ask(L"#FREQ#?")});
    comments->answers = {false, false};
    WalkEnter();
    State().VKSReplaceVars.count = 0;
    TakeEffects();

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Asked(L"#FREQ#?")));
}

TEST_F(WirelessWalkTest, FirstTrueResultEndsTheWalk) {
    FillEnter({WaitFor(1), Ask(L"Go on?"), WaitFor(2)});
    comments->answers = {true};

    EXPECT_TRUE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Asked(L"Go on?")));
}

TEST_F(WirelessWalkTest, KindOfTheFourWithoutItsRecordIsATypeMismatch) {
    FillEnter({Action(atNotify, aceWait{}), WaitFor(1)});

    EXPECT_EQ(ErrorOf([&] { WalkEnter(); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(Yielded));
}

TEST_F(WirelessWalkTest, EmptyListAnswersFalseAndLetsNoMessagesRun) {
    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(WirelessWalkTest, ListIsHeldWhileItsElementRuns) {
    FillEnter({WaitFor(1)});
    std::int32_t number = 0;
    host->onTimedMessage = [&] { number = ErrorOf([&] { State().VKSTemplate.Enter.Erase(); }); };

    WalkEnter();

    EXPECT_EQ(number, 10);
}

}  // namespace
}  // namespace ace::test
