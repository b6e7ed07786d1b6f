#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String EngineCode = L"aceActionsEngine (Code)";

class EutRequestsTest : public EngineTest {};

p_Action Check(bool loadingPos) {
    aceSetDevice record;
    record.LoadingPos = loadingPos;
    return Action(atCheckEut, record);
}

// ---- the requests ------------------------------------------------------------------------------

TEST_F(EutRequestsTest, BitsAreAnsweredOnceAndTheCommentEachTime) {
    context.EutCheckRequest = acEutStoreComment | acEutStopTest;
    context.EutCheckComment = L"no signal";
    Value comment;

    EXPECT_EQ(engine->GetCheckEutAction(comment), 129);
    EXPECT_EQ(std::get<String>(comment), L"no signal");

    comment = std::int32_t{1};
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
    EXPECT_EQ(std::get<String>(comment), L"no signal");
}

TEST_F(EutRequestsTest, EmptyCommentIsATextToo) {
    Value comment;

    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);

    EXPECT_EQ(std::get<String>(comment), L"");
}

TEST_F(EutRequestsTest, RequestsAreTracedWithoutAMessage) {
    host->tracing = true;
    Value comment;

    engine->GetCheckEutAction(comment);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineCode, L"GetCheckEutAction", L""), End(L"GetCheckEutAction")));
}

TEST_F(EutRequestsTest, RequestsOfOneObjectAreTakenByAnother) {
    aceActionsEngine other(context);
    context.EutCheckRequest = acEutParkAccessories;
    Value comment;

    EXPECT_EQ(other.GetCheckEutAction(comment), 4);
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
}

// ---- the loading position ----------------------------------------------------------------------

TEST_F(EutRequestsTest, CheckAtTheLoadingPositionIsFoundInTheListOfAnEmissionTest) {
    State().Modul = aceEMIAutoTemplate;
    Fill(State().EMIAutoTest, FreqList, {WaitFor(1), Check(false)});
    EXPECT_FALSE(engine->NewFrqCheckForAccLoading());

    Fill(State().EMIAutoTest, FreqList, {WaitFor(1), Check(false), Check(true)});
    EXPECT_TRUE(engine->NewFrqCheckForAccLoading());
    State().EMIAutoTest.FreqCount = 2;
    EXPECT_FALSE(engine->NewFrqCheckForAccLoading());
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(EutRequestsTest, OnlyChecksWantTheLoadingPosition) {
    State().Modul = aceEMIAutoTemplate;
    p_Action set = Check(true);
    set.ActionType = atSetDevice;
    p_Action monitor = Check(true);
    monitor.ActionType = atMonitorEUT;
    Fill(State().EMIAutoTest, FreqList, {set, monitor});
    Fill(State().EMIAutoTest, EnterList, {Check(true)});
    Fill(State().EMIAutoTest, LeaveList, {Check(true)});

    EXPECT_FALSE(engine->NewFrqCheckForAccLoading());
}

TEST_F(EutRequestsTest, OtherModulesHaveNoLoadingPosition) {
    Fill(State().EMIAutoTest, FreqList, {Check(true)});
    Fill(State().MainTest, FreqList, {Check(true)});
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        State().Modul = static_cast<aceModul>(moduleKind);
        EXPECT_EQ(engine->NewFrqCheckForAccLoading(), moduleKind == aceEMIAutoTemplate)
            << moduleKind;
    }
}

TEST_F(EutRequestsTest, LookingForTheLoadingPositionIsTracedWithoutAMessage) {
    host->tracing = true;

    engine->NewFrqCheckForAccLoading();

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineCode, L"NewFrqCheckForAccLoading", L""),
                                     End(L"NewFrqCheckForAccLoading")));
}

TEST_F(EutRequestsTest, CheckWithoutItsRecordIsReportedAndRaised) {
    State().Modul = aceEMIAutoTemplate;
    Fill(State().EMIAutoTest, FreqList, {Action(atCheckEut)});

    EXPECT_EQ(ErrorOf([&] { engine->NewFrqCheckForAccLoading(); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(MismatchReported));
}

}  // namespace
}  // namespace ace::test
