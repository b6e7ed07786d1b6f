#include <ace/settings/wireless_sections.h>

#include "settings/sections_fixture.h"

namespace ace {
namespace {

using test::ErrorOf;
using testing::ElementsAre;

std::vector<String> TextsOf(const DynArray<String>& texts) {
    return {texts.begin(), texts.end()};
}

struct WirelessTemplate : test::SectionsTest {
    WirelessTemplate() {
        host->files[L"f"] = sim::ParseSections(
            L"[ActionsOnVKSTemplate]\nNumOfEnterActions=1\nEnterAction1=WAIT:1.000\n"
            L"[ActionsOnTest1_VKS]\nVKS_UKey=A\nSUBSTEPS=3\n"
            L"[ActionsOnTest1]\nNumOfEnterActions=1\nEnterAction1=WAIT:10.000\n"
            L"[ActionsOnStepA_1_VKS]\nVKS_Name=first\nVKS_Key=a1\n"
            L"[ActionsOnStepA_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:11.000\n"
            L"[ActionsOnStepA_2_VKS]\nVKS_Name=nameless\nVKS_Key=\n"
            L"[ActionsOnStepA_3_VKS]\nVKS_Name=third\nVKS_Key=a3\n"
            L"[ActionsOnStepA_3]\nNumOfEnterActions=1\nEnterAction1=WAIT:13.000\n"
            L"[ActionsOnTest2_VKS]\nVKS_UKey=\nSUBSTEPS=9\n"
            L"[ActionsOnTest3_VKS]\nVKS_UKey=C\nSUBSTEPS=1\n"
            L"[ActionsOnTest3]\nNumOfEnterActions=1\nEnterAction1=WAIT:30.000\n"
            L"[ActionsOnStepC_1_VKS]\nVKS_Name=only\nVKS_Key=c1\n"
            L"[ActionsOnStepC_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:31.000\n");
    }
};

TEST_F(WirelessTemplate, IsReadTestByTestWithItsSteps) {
    EXPECT_EQ(Load(aceVKSTemplate, 3), 3);
    EXPECT_THAT(
        TakeFileCalls(),
        ElementsAre(
            L"OpenSettingsFile(301, 10, \"f\", 0, 0)", L"GetSection(\"ActionsOnVKSTemplate\")",
            L"GetString(\"ActionsOnTest1_VKS\", \"VKS_UKey\", \"\")",
            L"GetLong(\"ActionsOnTest1_VKS\", \"SUBSTEPS\", 0)", L"GetSection(\"ActionsOnTest1\")",
            L"GetString(\"ActionsOnStepA_1_VKS\", \"VKS_Key\", \"\")",
            L"GetString(\"ActionsOnStepA_1_VKS\", \"VKS_Name\", \"\")",
            L"GetSection(\"ActionsOnStepA_1\")",
            L"GetString(\"ActionsOnStepA_2_VKS\", \"VKS_Key\", \"\")",
            L"GetString(\"ActionsOnStepA_3_VKS\", \"VKS_Key\", \"\")",
            L"GetString(\"ActionsOnStepA_3_VKS\", \"VKS_Name\", \"\")",
            L"GetSection(\"ActionsOnStepA_3\")",
            L"GetString(\"ActionsOnTest2_VKS\", \"VKS_UKey\", \"\")",
            L"GetString(\"ActionsOnTest3_VKS\", \"VKS_UKey\", \"\")",
            L"GetLong(\"ActionsOnTest3_VKS\", \"SUBSTEPS\", 0)", L"GetSection(\"ActionsOnTest3\")",
            L"GetString(\"ActionsOnStepC_1_VKS\", \"VKS_Key\", \"\")",
            L"GetString(\"ActionsOnStepC_1_VKS\", \"VKS_Name\", \"\")",
            L"GetSection(\"ActionsOnStepC_1\")", L"Release()"));
}

TEST_F(WirelessTemplate, ATestWithEmptyKeyIsPassedOverAndTheGapCloses) {
    Load(aceVKSTemplate, 3);
    EXPECT_EQ(state.VKSTemplate, WaitSet(1));
    EXPECT_EQ(state.VKSTestCount, 2);
    EXPECT_EQ(state.SavedCount.VKSTests, 3);
    EXPECT_EQ(state.VKSTestUKeys[0], L"A");
    EXPECT_EQ(state.VKSTestUKeys[1], L"C");
    EXPECT_EQ(state.VKSTests[0], WaitSet(10));
    EXPECT_EQ(state.VKSTests[1], WaitSet(30));
}

TEST_F(WirelessTemplate, AStepWithEmptyKeyIsSkipped) {
    Load(aceVKSTemplate, 3);
    EXPECT_EQ(state.VKSStepCount, 3);
    EXPECT_EQ(state.SavedCount.VKSSteps, 3);
    EXPECT_THAT(TextsOf(state.VKSStepUKeys), ElementsAre(L"A", L"A", L"C"));
    EXPECT_THAT(TextsOf(state.VKSStepKeys), ElementsAre(L"a1", L"a3", L"c1"));
    EXPECT_THAT(TextsOf(state.VKSStepNames), ElementsAre(L"first", L"third", L"only"));
    EXPECT_EQ(state.VKSSteps.UpperBound(), 2);
    EXPECT_EQ(state.VKSSteps[0], WaitSet(11));
    EXPECT_EQ(state.VKSSteps[1], WaitSet(13));
    EXPECT_EQ(state.VKSSteps[2], WaitSet(31));
}

TEST_F(WirelessTemplate, TheArraysOfTheTestsHaveASpareElementAndThoseOfTheStepsOneAtLeast) {
    host->files[L"f"].clear();
    Load(aceVKSTemplate, 3);
    EXPECT_EQ(state.VKSTests.UpperBound(), 3);
    EXPECT_EQ(state.VKSTestUKeys.UpperBound(), 3);
    EXPECT_EQ(state.VKSHostUKeys.UpperBound(), 3);
    EXPECT_EQ(state.VKSHostNames.UpperBound(), 3);
    EXPECT_EQ(state.VKSStepUKeys.UpperBound(), 0);
    EXPECT_EQ(state.VKSStepNames.UpperBound(), 0);
    EXPECT_EQ(state.VKSStepKeys.UpperBound(), 0);
    EXPECT_FALSE(state.VKSSteps.IsAllocated());
    EXPECT_EQ(state.VKSTestCount, 0);
    EXPECT_EQ(state.VKSStepCount, 0);
    EXPECT_EQ(state.SavedCount.VKSTests, 3);
}

TEST_F(WirelessTemplate, WithoutTestsOnlyTheTemplatesListsAreRead) {
    Load(aceVKSTemplate, 3);
    TakeEffects();
    Load(aceVKSTemplate, 0);
    EXPECT_THAT(TakeFileCalls(),
                ElementsAre(L"OpenSettingsFile(301, 10, \"f\", 0, 0)",
                            L"GetSection(\"ActionsOnVKSTemplate\")", L"Release()"));
    EXPECT_FALSE(state.VKSTests.IsAllocated());
    EXPECT_EQ(state.VKSTestCount, 0);
}

TEST_F(WirelessTemplate, BelowOneTestThereIsNeitherTestNorStepAndTheNumberCountsAsSaved) {
    Load(aceVKSTemplate, 3);
    state.VKSStepCount = 1;
    state.VKSSteps.Redim(0, 0);
    Load(aceVKSTemplate, -1);
    EXPECT_EQ(state.VKSTestCount, 0);
    EXPECT_EQ(state.VKSStepCount, 0);
    EXPECT_FALSE(state.VKSTests.IsAllocated());
    EXPECT_FALSE(state.VKSSteps.IsAllocated());
    EXPECT_EQ(state.SavedCount.VKSTests, -1);
}

/// The gaps are closed, and what is left over is deleted.
const std::vector<String> SavedWithoutTheGap{
    L"OpenSettingsFile(20, 10, \"f\", 0, 0)",
    L"SetSection(\"ActionsOnVKSTemplate\", "
    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:1.000\\r\\n\")",
    L"SetSection(\"ActionsOnStepA_1\", "
    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:11.000\\r\\n\")",
    L"SetString(\"ActionsOnStepA_1_VKS\", \"VKS_Name\", \"first\")",
    L"SetString(\"ActionsOnStepA_1_VKS\", \"VKS_Key\", \"a1\")",
    L"SetSection(\"ActionsOnStepA_2\", "
    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:13.000\\r\\n\")",
    L"SetString(\"ActionsOnStepA_2_VKS\", \"VKS_Name\", \"third\")",
    L"SetString(\"ActionsOnStepA_2_VKS\", \"VKS_Key\", \"a3\")",
    L"SetSection(\"ActionsOnTest1\", "
    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:10.000\\r\\n\")",
    L"SetString(\"ActionsOnTest1_VKS\", \"VKS_UKey\", \"A\")",
    L"SetLong(\"ActionsOnTest1_VKS\", \"SUBSTEPS\", 2)",
    L"SetSection(\"ActionsOnStepC_1\", "
    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:31.000\\r\\n\")",
    L"SetString(\"ActionsOnStepC_1_VKS\", \"VKS_Name\", \"only\")",
    L"SetString(\"ActionsOnStepC_1_VKS\", \"VKS_Key\", \"c1\")",
    L"SetSection(\"ActionsOnTest2\", "
    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:30.000\\r\\n\")",
    L"SetString(\"ActionsOnTest2_VKS\", \"VKS_UKey\", \"C\")",
    L"SetLong(\"ActionsOnTest2_VKS\", \"SUBSTEPS\", 1)",
    L"GetString(\"ActionsOnTest3_VKS\", \"VKS_UKey\", \"\")",
    L"GetLong(\"ActionsOnTest3_VKS\", \"SUBSTEPS\", 0)",
    L"Delete ActionsOnStepC_1",
    L"Delete ActionsOnStepC_1_VKS",
    L"Delete ActionsOnTest3",
    L"Delete ActionsOnTest3_VKS",
    L"GetString(\"ActionsOnTest4_VKS\", \"VKS_UKey\", \"\")",
    L"GetLong(\"ActionsOnTest4_VKS\", \"SUBSTEPS\", 0)",
    L"Delete ActionsOnTest4",
    L"Delete ActionsOnTest4_VKS",
    L"Release()"};

TEST_F(WirelessTemplate, TheNextSaveClosesTheGapInTheFileAndDeletesTheRest) {
    Load(aceVKSTemplate, 3);
    TakeEffects();
    Save(aceVKSTemplate);
    EXPECT_THAT(TakeSaveCalls(), testing::ElementsAreArray(SavedWithoutTheGap));
    EXPECT_EQ(state.SavedCount.VKSTests, 2);
}

TEST_F(WirelessTemplate, AStepWhoseTestIsGoneIsNotWrittenAndKeysCompareExactly) {
    Load(aceVKSTemplate, 1);
    state.VKSStepUKeys[0] = L"a";
    state.VKSStepUKeys[1] = L"B";
    TakeEffects();
    Save(aceVKSTemplate);
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile.SetString"), testing::SizeIs(1));
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile.SetLong"),
                ElementsAre(L"SettingsFile.SetLong(\"ActionsOnTest1_VKS\", \"SUBSTEPS\", 0)"));
}

TEST_F(WirelessTemplate, MoreThanAHundredThousandStepsAreError7) {
    host->files[L"f"][L"ActionsOnTest1_VKS"] = {L"VKS_UKey=A", L"SUBSTEPS=100001"};
    EXPECT_EQ(ErrorOf([&] { Load(aceVKSTemplate, 1); }), 7);
    EXPECT_EQ(state.VKSTestCount, 0);
}

/// The section behind the last one that was saved has been read by nobody yet.
TEST_F(WirelessTemplate, ALeftoverThatAsksForMoreStepsIsDeletedAsFarAsStepsCanBeRead) {
    host->files[L"f"] = sim::ParseSections(
        L"[ActionsOnTest1_VKS]\nVKS_UKey=A\nSUBSTEPS=2147483647\n"
        L"[ActionsOnStepA_100000]\nNumOfEnterActions=0\n"
        L"[ActionsOnStepA_100001]\nNumOfEnterActions=0\n");
    state.SavedCount.VKSTests = 1;
    host->journal.KeepNone();
    EXPECT_EQ(ErrorOf([&] { Save(aceVKSTemplate); }), 0);
    EXPECT_EQ(host->files[L"f"].count(L"ActionsOnTest1_VKS"), 0U);
    EXPECT_EQ(host->files[L"f"].count(L"ActionsOnStepA_100000"), 0U);
    EXPECT_EQ(host->files[L"f"].count(L"ActionsOnStepA_100001"), 1U);
}

TEST_F(WirelessTemplate, LoadingEndsTheUseOfReplaceVariables) {
    for (const aceModul moduleKind : {aceVKSTemplate, aceVKSDUT}) {
        state.VKSReplaceVars.count = 2;
        Load(moduleKind, 0);
        EXPECT_EQ(state.VKSReplaceVars.count, 0);
    }
    state.VKSReplaceVars.count = 2;
    Load(aceTemplate, 0);
    EXPECT_EQ(state.VKSReplaceVars.count, 2);
}

struct Matrix : test::SectionsTest {
    Matrix() {
        host->files[L"f"] = sim::ParseSections(
            L"[ActionsOnVKSTemplate_2]\nCount=2\nFreq=0\nBandwidth=1\nPower=1\n"
            L"[ActionsOnStep_2_1_VKS]\nID0=2402000000\nID1=1\nID2=2\n"
            L"[ActionsOnStep_2_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:1.000\n"
            L"[ActionsOnStep_2_2]\nNumOfEnterActions=1\nEnterAction1=WAIT:2.000\n"
            L"[ActionsOnVKSTemplate_3]\nCount=0\n"
            L"[ActionsOnVKSDUTGlob]\nNumOfEnterActions=1\nEnterAction1=WAIT:9.000\n");
    }
};

TEST_F(Matrix, IsReadRowByRowAndHandsTheCountBack) {
    EXPECT_EQ(Load(aceVKSDUT, 2), 2);
    EXPECT_THAT(TakeFileCalls(),
                ElementsAre(L"OpenSettingsFile(302, 10, \"f\", 0, 0)",
                            L"GetLong(\"ActionsOnVKSTemplate_2\", \"Count\", 0)",
                            L"GetBoolean(\"ActionsOnVKSTemplate_2\", \"Freq\", false)",
                            L"GetBoolean(\"ActionsOnVKSTemplate_2\", \"Bandwidth\", false)",
                            L"GetBoolean(\"ActionsOnVKSTemplate_2\", \"Power\", false)",
                            L"GetDouble(\"ActionsOnStep_2_1_VKS\", \"ID0\", -1)",
                            L"GetLong(\"ActionsOnStep_2_1_VKS\", \"ID1\", -1)",
                            L"GetLong(\"ActionsOnStep_2_1_VKS\", \"ID2\", -1)",
                            L"GetSection(\"ActionsOnStep_2_1\")",
                            L"GetDouble(\"ActionsOnStep_2_2_VKS\", \"ID0\", -1)",
                            L"GetLong(\"ActionsOnStep_2_2_VKS\", \"ID1\", -1)",
                            L"GetLong(\"ActionsOnStep_2_2_VKS\", \"ID2\", -1)",
                            L"GetSection(\"ActionsOnStep_2_2\")", L"Release()"));
    EXPECT_EQ(state.VKSDUTTemplate, 2);
    EXPECT_FALSE(state.VKSInfByFreq);
    EXPECT_TRUE(state.VKSInfByBandwidth);
    EXPECT_TRUE(state.VKSInfByPower);
    EXPECT_EQ(state.VKSStepCount, 2);
    EXPECT_EQ(state.SavedCount.VKSSteps, 2);
    EXPECT_EQ(state.VKSSteps.UpperBound(), 2);
    EXPECT_EQ(state.VKSSteps[0], WaitSet(1));
    EXPECT_EQ(state.VKSSteps[1], WaitSet(2));
}

TEST_F(Matrix, ARowWithoutIdsReadsMinusOne) {
    Load(aceVKSDUT, 2);
    const double expected[2][3] = {{2402000000.0, 1.0, 2.0}, {-1.0, -1.0, -1.0}};
    for (const std::int32_t row : {0, 1}) {
        for (const std::int32_t column : {0, 1, 2}) {
            EXPECT_EQ(state.VKSDUTIds(row, column), expected[row][column]);
        }
    }
    EXPECT_EQ(state.VKSDUTIds.RowUpperBound(), 2);
    EXPECT_EQ(state.VKSDUTIds.ColumnUpperBound(), 2);
}

TEST_F(Matrix, OnlyTemplateThreeHasGlobalLists) {
    state.VKSDUTGlob = WaitSet(5);
    Load(aceVKSDUT, 2);
    EXPECT_EQ(state.VKSDUTGlob, WaitSet(5));
    Save(aceVKSDUT);
    EXPECT_THAT(host->files[L"f"][L"ActionsOnVKSDUTGlob"], WaitLines(9));
    EXPECT_EQ(Load(aceVKSDUT, 3), 0);
    EXPECT_EQ(state.VKSDUTGlob, WaitSet(9));
    EXPECT_FALSE(state.VKSSteps.IsAllocated());
    state.VKSDUTGlob = WaitSet(7);
    Save(aceVKSDUT);
    EXPECT_THAT(host->files[L"f"][L"ActionsOnVKSDUTGlob"], WaitLines(7));
}

TEST_F(Matrix, IsWrittenRowByRowAndOneSectionTooManyIsDeleted) {
    Load(aceVKSDUT, 2);
    state.VKSStepCount = 1;
    TakeEffects();
    Save(aceVKSDUT);
    EXPECT_THAT(
        TakeSaveCalls(),
        ElementsAre(L"OpenSettingsFile(20, 10, \"f\", 0, 0)",
                    L"SetLong(\"ActionsOnVKSTemplate_2\", \"Count\", 1)",
                    L"SetBoolean(\"ActionsOnVKSTemplate_2\", \"Freq\", false)",
                    L"SetBoolean(\"ActionsOnVKSTemplate_2\", \"Bandwidth\", true)",
                    L"SetBoolean(\"ActionsOnVKSTemplate_2\", \"Power\", true)",
                    L"SetDouble(\"ActionsOnStep_2_1_VKS\", \"ID0\", 2402000000)",
                    L"SetLong(\"ActionsOnStep_2_1_VKS\", \"ID1\", 1)",
                    L"SetLong(\"ActionsOnStep_2_1_VKS\", \"ID2\", 2)",
                    L"SetSection(\"ActionsOnStep_2_1\", "
                    L"\"NumOfEnterActions=1\\r\\nEnterAction1=WAIT:1.000\\r\\n\")",
                    L"Delete ActionsOnStep_2_2", L"Delete ActionsOnStep_2_2_VKS",
                    L"Delete ActionsOnStep_2_3", L"Delete ActionsOnStep_2_3_VKS", L"Release()"));
    EXPECT_EQ(state.SavedCount.VKSSteps, 1);
}

TEST_F(Matrix, TheGlobalListsAreWrittenLast) {
    Load(aceVKSDUT, 3);
    state.VKSDUTGlob = {};
    TakeEffects();
    Save(aceVKSDUT);
    EXPECT_THAT(TakeSaveCalls(),
                ElementsAre(L"OpenSettingsFile(20, 10, \"f\", 0, 0)",
                            L"SetLong(\"ActionsOnVKSTemplate_3\", \"Count\", 0)",
                            L"SetBoolean(\"ActionsOnVKSTemplate_3\", \"Freq\", false)",
                            L"SetBoolean(\"ActionsOnVKSTemplate_3\", \"Bandwidth\", false)",
                            L"SetBoolean(\"ActionsOnVKSTemplate_3\", \"Power\", false)",
                            L"Delete ActionsOnStep_3_1", L"Delete ActionsOnStep_3_1_VKS",
                            L"Write ActionsOnVKSDUTGlob", L"Release()"));
}

TEST_F(Matrix, IdsAreRoundedToLongsOnWriting) {
    Load(aceVKSDUT, 2);
    state.VKSDUTIds(0, 1) = 2.5;
    state.VKSDUTIds(0, 2) = 3e9;
    EXPECT_EQ(ErrorOf([&] { Save(aceVKSDUT); }), 6);
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile.SetLong").back(),
                L"SettingsFile.SetLong(\"ActionsOnStep_2_1_VKS\", \"ID1\", 2)");
}

TEST_F(Matrix, MoreThanAHundredThousandRowsAreError7) {
    host->files[L"f"][L"ActionsOnVKSTemplate_2"] = {L"Count=100001"};
    EXPECT_EQ(ErrorOf([&] { Load(aceVKSDUT, 2); }), 7);
    EXPECT_EQ(state.VKSStepCount, 0);
    EXPECT_FALSE(state.VKSSteps.IsAllocated());
}

}  // namespace
}  // namespace ace
