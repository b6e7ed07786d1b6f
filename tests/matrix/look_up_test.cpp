/// Rows and steps are found without a walk, with the answers of one: the first place counts, as the
/// arrays stand at the moment, whoever has written them.
#include <limits>

#include <ace/core/module_columns.h>
#include <ace/matrix/matrix_rows.h>
#include <ace/matrix/step_tree.h>

#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

class LookUpTest : public MatrixTest {
  protected:
    void HaveSteps(const std::vector<std::pair<String, String>>& steps) {
        State().VKSStepCount = static_cast<std::int32_t>(steps.size());
        State().VKSStepKeys.Redim(0, State().VKSStepCount);
        State().VKSStepUKeys.Redim(0, State().VKSStepCount);
        for (std::int32_t i = 0; i < State().VKSStepCount; ++i) {
            State().VKSStepUKeys[i] = steps[static_cast<std::size_t>(i)].first;
            State().VKSStepKeys[i] = steps[static_cast<std::size_t>(i)].second;
        }
    }
    std::int32_t Row(double frequency, double bandwidth = -1, double power = -1) {
        return FindRow(State(), {frequency, bandwidth, power});
    }
    std::int32_t Step(const String& test, const String& step) {
        return FindStep(State(), test, step);
    }
};

// ---- rows --------------------------------------------------------------------------------------

TEST_F(LookUpTest, TheFirstOfTwoEqualRowsIsFound) {
    HaveRows({{1, -1, -1}, {2, -1, -1}, {2, -1, -1}});
    EXPECT_EQ(Row(2), 1);
    EXPECT_EQ(Row(3), -1);
}

TEST_F(LookUpTest, ACopyOfTheListsIsLookedUpByAnIndexOfItsOwn) {
    HaveRows({{1, -1, -1}, {2, -1, -1}});
    ModuleLists copy;
    PlaceIndex places;
    CopyMatrix(State(), copy);
    EXPECT_EQ(FindRow(copy, places, {2, -1, -1}), 1);
    State().VKSDUTIds(0, 0) = 2;
    EXPECT_EQ(Row(2), 0);
    EXPECT_EQ(FindRow(copy, places, {2, -1, -1}), 1);
    CopyMatrix(State(), copy);
    EXPECT_EQ(FindRow(copy, places, {2, -1, -1}), 0) << "the index follows its lists";
    copy.VKSDUTIds.Erase();
    EXPECT_EQ(ErrorOf([&] { FindRow(copy, places, {2, -1, -1}); }), 9);
}

TEST_F(LookUpTest, EachOfTheThreeValuesCounts) {
    HaveRows({{1, 2, 3}, {3, 2, 1}, {1, 3, 2}});
    EXPECT_EQ(Row(1, 3, 2), 2);
    EXPECT_EQ(Row(2, 1, 3), -1);
}

TEST_F(LookUpTest, BothZerosAreOneValueAndWhatIsNoNumberIsNone) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    HaveRows({{none, -1, -1}, {-0.0, -1, -1}, {0.0, -1, -1}});
    EXPECT_EQ(Row(0.0), 1);
    EXPECT_EQ(Row(-0.0), 1);
    EXPECT_EQ(Row(none), -1);
}

TEST_F(LookUpTest, ACellThatIsWrittenMovesItsRow) {
    HaveRows({{1, -1, -1}, {2, -1, -1}});
    EXPECT_EQ(Row(2), 1);
    State().VKSDUTIds(0, 0) = 2;
    EXPECT_EQ(Row(2), 0);
    EXPECT_EQ(Row(1), -1);
    State().VKSDUTIds(1, 0) = 1;
    EXPECT_EQ(Row(1), 1);
}

TEST_F(LookUpTest, RowsBehindTheCountAreNotFoundUntilItRises) {
    HaveRows({{1, -1, -1}, {2, -1, -1}, {3, -1, -1}});
    EXPECT_EQ(Row(3), 2);
    State().VKSStepCount = 2;
    EXPECT_EQ(Row(3), -1);
    State().VKSStepCount = 3;
    EXPECT_EQ(Row(3), 2);
    State().VKSStepCount = 0;
    EXPECT_EQ(Row(1), -1);
}

TEST_F(LookUpTest, AnArrayThatIsReplacedOrMadeAnewIsSearchedAnew) {
    HaveRows({{1, -1, -1}, {2, -1, -1}});
    const Array2D<double> before = State().VKSDUTIds;
    EXPECT_EQ(Row(2), 1);
    HaveRows({{2, -1, -1}, {1, -1, -1}});
    EXPECT_EQ(Row(2), 0);
    State().VKSDUTIds = before;
    EXPECT_EQ(Row(2), 1);
}

/// As a walk: what stands before the end of the array is found, and behind it is error 9.
TEST_F(LookUpTest, RowsWithoutKeysAreErrorNineUnlessTheKeyStandsBeforeThem) {
    HaveRows({{1, -1, -1}, {2, -1, -1}});
    State().VKSStepCount = 5;
    EXPECT_EQ(Row(2), 1);
    EXPECT_EQ(ErrorOf([&] { Row(3); }), 9);
    State().VKSDUTIds.Erase();
    EXPECT_EQ(ErrorOf([&] { Row(1); }), 9);
    State().VKSStepCount = 0;
    EXPECT_EQ(Row(1), -1);
}

TEST_F(LookUpTest, RowsAreFoundWhereADeletionHasMovedThem) {
    engine->SetVKSDUTInfluence(1, 0, 1);
    AddFrequencies({100, 200});
    AddPowers({L"a", L"b", L"c"});
    EXPECT_EQ(Row(200, -1, 2), 5);
    engine->DeleteVKSDUTPowerID(0);
    EXPECT_EQ(Row(200, -1, 2), -1);
    EXPECT_EQ(Row(200, -1, 1), 3);
    engine->DeleteVKSDUTFreq(100);
    EXPECT_EQ(Row(200, -1, 1), 1);
}

// ---- steps -------------------------------------------------------------------------------------

TEST_F(LookUpTest, AStepIsFoundByTestAndKeyTogetherAndTheFirstOneCounts) {
    HaveSteps({{L"A", L"1"}, {L"B", L"1"}, {L"A", L"2"}, {L"A", L"2"}, {L"", L"A1"}});
    EXPECT_EQ(Step(L"B", L"1"), 1);
    EXPECT_EQ(Step(L"A", L"2"), 2);
    EXPECT_EQ(Step(L"B", L"2"), -1);
    EXPECT_EQ(Step(L"A1", L""), -1);
}

/// A load without tests, and an editor that hands its lists back, lower the count and leave the
/// keys.
TEST_F(LookUpTest, AStepThatComesAfterTheCountFellIsFoundOnce) {
    State().Modul = aceVKSTemplate;
    for (const wchar_t* key : {L"1", L"2", L"3", L"4", L"5"}) {
        engine->AddVKSStep(key, L"A", L"name");
    }
    EXPECT_EQ(Step(L"A", L"5"), 4);
    State().VKSStepCount = 0;
    State().VKSSteps.Erase();
    engine->AddVKSStep(L"new", L"A", L"name");
    engine->AddVKSStep(L"new", L"A", L"name");
    EXPECT_EQ(State().VKSStepCount, 1);
    EXPECT_EQ(Step(L"A", L"new"), 0);
    EXPECT_EQ(ErrorOf([&] { engine->AddVKSStep(L"5", L"A", L"name"); }), 0);
    EXPECT_EQ(Step(L"A", L"5"), 1);
    EXPECT_EQ(Step(L"A", L"1"), -1);
}

TEST_F(LookUpTest, AKeyThatIsWrittenMovesItsStep) {
    HaveSteps({{L"A", L"1"}, {L"A", L"2"}});
    EXPECT_EQ(Step(L"A", L"2"), 1);
    State().VKSStepKeys[0] = L"2";
    EXPECT_EQ(Step(L"A", L"2"), 0);
    EXPECT_EQ(Step(L"A", L"1"), -1);
    State().VKSStepUKeys[1] = L"B";
    EXPECT_EQ(Step(L"B", L"2"), 1);
    State().VKSStepCount = 1;
    EXPECT_EQ(Step(L"B", L"2"), -1);
}

TEST_F(LookUpTest, StepsWithoutKeysAreErrorNineUnlessTheKeyStandsBeforeThem) {
    HaveSteps({{L"A", L"1"}});
    State().VKSStepCount = 4;
    EXPECT_EQ(Step(L"A", L"1"), 0);
    EXPECT_EQ(ErrorOf([&] { Step(L"A", L"2"); }), 9);
}

/// Each step is looked for before it is added, and the index grows with them.
TEST_F(LookUpTest, AStepThatWasAddedIsFoundAndNotAddedAgain) {
    for (const wchar_t* key : {L"1", L"2", L"3", L"2", L"1"}) {
        engine->AddVKSStep(key, L"A", L"name");
    }
    EXPECT_EQ(State().VKSStepCount, 3);
    State().VKSStepKeys[1] = L"9";
    engine->AddVKSStep(L"2", L"A", L"name");
    engine->AddVKSStep(L"9", L"A", L"name");
    EXPECT_EQ(State().VKSStepCount, 4);
    EXPECT_EQ(Step(L"A", L"2"), 3);
}

}  // namespace
}  // namespace ace::test
