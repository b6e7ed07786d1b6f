#include "workbench/session/action_places.h"

#include <ace/core/actions_engine.h>

#include "session_fixture.h"
#include "workbench/files/trace_file.h"
#include "workbench/session/loaded_engines.h"

namespace ace::workbench {
namespace {

class ActionPlacesTest : public SessionTest {
  protected:
    /// Loads a file; its engines stay.
    ModuleLists& Load(const std::string& text) {
        Write("test.ini", text);
        const TestSetUp setUp = SetUpOf(text);
        engines = LoadEngines(context, setUp, WidePath("test.ini"));
        return static_cast<aceActionsEngine&>(*engines.engine).State();
    }
    /// What the user reads of an action, without the folder of the test.
    std::string TextOf(const p_Action& action) const {
        const std::optional<ActionSource> source = engines.places.Find(&action);
        if (!source) {
            return "nowhere";
        }
        const std::string text = ToUtf8(SourceText(WidePath("test.ini"), *source));
        EXPECT_TRUE(text.starts_with(Path("test.ini")));
        return text.substr(Path("test.ini").size());
    }
    ThreadContext context{std::make_shared<SessionHost>()};
    LoadedEngines engines;
};

TEST_F(ActionPlacesTest, AnActionIsToldByFileLineSectionEntryAndValue) {
    const ModuleLists& lists = Load(
        "[Workbench]\nModule=0\nSubRanges=2\n"
        "[ActionsOnTest]\nNumOfLeaveActions=2\nLeaveAction2=WAIT:1\nLeaveAction1=WAIT:2\n"
        "[ActionsOnSR2]\nNumOfEnterActions=1\nEnterAction1=API:a\n");
    EXPECT_EQ(TextOf(lists.MainTest.Leave[0]), ":7: [ActionsOnTest] LeaveAction1 \"WAIT:2\"");
    EXPECT_EQ(TextOf(lists.MainTest.Leave[1]), ":6: [ActionsOnTest] LeaveAction2 \"WAIT:1\"");
    EXPECT_EQ(TextOf(lists.MainSubranges[1].Enter[0]),
              ":10: [ActionsOnSR2] EnterAction1 \"API:a\"");
}

TEST_F(ActionPlacesTest, TheLastLineThatFilledAnEntryIsItsOwn) {
    const ModuleLists& lists = Load(
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=1\n"
        "EnterAction1=WAIT:1\nEnterAction1=WAIT:2\n");
    EXPECT_EQ(TextOf(lists.MainTest.Enter[0]), ":7: [ActionsOnTest] EnterAction1 \"WAIT:2\"");
}

TEST_F(ActionPlacesTest, AnEmptyEntryIsToldByTheLineThatWasPassedOverOrByItsKeyAlone) {
    const ModuleLists& lists = Load(
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=2\n"
        "EnterAction2=SWICHAMP:Amp A,3\n");
    EXPECT_EQ(TextOf(lists.MainTest.Enter[0]), ": [ActionsOnTest] EnterAction1");
    EXPECT_EQ(TextOf(lists.MainTest.Enter[1]),
              ":6: [ActionsOnTest] EnterAction2 \"SWICHAMP:Amp A,3\"");
}

/// Test sections without key leave no gap, and the steps of all tests stand in one array.
TEST_F(ActionPlacesTest, WirelessTestsAndStepsAreToldByTheirSections) {
    const ModuleLists& lists = Load(
        "[Workbench]\nModule=7\nSubRanges=2\n"
        "[ActionsOnTest2_VKS]\nVKS_UKey=B\nSUBSTEPS=2\n"
        "[ActionsOnTest2]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n"
        "[ActionsOnStepB_2_VKS]\nVKS_Key=S\n"
        "[ActionsOnStepB_2]\nNumOfEnterActions=1\nEnterAction1=WAIT:2\n");
    EXPECT_EQ(TextOf(lists.VKSTests[0].Enter[0]), ":9: [ActionsOnTest2] EnterAction1 \"WAIT:1\"");
    EXPECT_EQ(TextOf(lists.VKSSteps[0].Enter[0]),
              ":14: [ActionsOnStepB_2] EnterAction1 \"WAIT:2\"");
}

TEST_F(ActionPlacesTest, AllActionsComeBySetListAndEntryWithTheirLines) {
    const ModuleLists& lists = Load(
        "[Workbench]\nModule=0\nSubRanges=1\n[ActionsOnSR1]\nNumOfEnterActions=1\n"
        "EnterAction1=WAIT:1\n[ActionsOnTest]\nNumOfFreqActions=2\nNumOfLeaveActions=1\n"
        "FrequAction2=WAIT:2\nFrequAction1=WAIT:3\n");
    std::vector<String> sources;
    std::vector<const p_Action*> actions;
    for (const PlacedAction& placed : engines.places.All()) {
        sources.push_back(placed.source.section + L" " + EntryKey(placed.source) + L" " +
                          std::to_wstring(placed.source.lineIndex));
        actions.push_back(placed.action);
    }
    EXPECT_THAT(sources, ::testing::ElementsAre(
                             L"ActionsOnTest LeaveAction1 -1", L"ActionsOnTest FrequAction1 3",
                             L"ActionsOnTest FrequAction2 2", L"ActionsOnSR1 EnterAction1 1"));
    EXPECT_THAT(actions,
                ::testing::ElementsAre(&lists.MainTest.Leave[0], &lists.MainTest.Freq[0],
                                       &lists.MainTest.Freq[1], &lists.MainSubranges[0].Enter[0]));
}

/// Its influence rules out the row for all powers; the next one takes its place.
TEST_F(ActionPlacesTest, ARowOfAMatrixKeepsItsSectionWhenOthersGo) {
    const ModuleLists& lists = Load(
        "[Workbench]\nModule=8\nSubRanges=2\n[Workbench.DUT]\nFreq0=1\nBandwidthName0=a\n"
        "PowerName0=b\nInfluencedByPower=1\n[ActionsOnVKSTemplate_2]\nCount=2\nPower=1\n"
        "[ActionsOnStep_2_1_VKS]\nID0=-1\nID1=-1\nID2=-1\n"
        "[ActionsOnStep_2_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n"
        "[ActionsOnStep_2_2_VKS]\nID0=-1\nID1=-1\nID2=0\n"
        "[ActionsOnStep_2_2]\nNumOfEnterActions=1\nEnterAction1=WAIT:2\n");
    ASSERT_EQ(lists.VKSStepCount, 1);
    EXPECT_EQ(TextOf(lists.VKSSteps[0].Enter[0]),
              ":25: [ActionsOnStep_2_2] EnterAction1 \"WAIT:2\"");
}

/// A matrix of one combination whose only row is for that bandwidth alone, with two actions: the
/// first entry is filled twice, the third is passed over.
std::string OneBandwidth(const std::string& flagOfTest, const std::string& flagOfFile,
                         const std::string& id) {
    return "[Workbench]\nModule=8\nSubRanges=2\n[Workbench.DUT]\nFreq0=1\nBandwidthName0=a\n"
           "PowerName0=b\n" +
           flagOfTest + "[ActionsOnVKSTemplate_2]\nCount=1\nBandwidth=" + flagOfFile +
           "\n[ActionsOnStep_2_1_VKS]\nID0=-1\nID1=" + id +
           "\nID2=-1\n[ActionsOnStep_2_1]\nNumOfEnterActions=3\nEnterAction1=WAIT:1\n"
           "EnterAction1=WAIT:2\nEnterAction2=WAIT:3\nEnterAction3=WIAT:3\n";
}

TEST_F(ActionPlacesTest, TheActionsOfARowThatIsRuledOutAreCountedBySection) {
    const auto gone = [&](const std::string& text) {
        Load(text);
        std::vector<std::pair<String, std::size_t>> sections;
        for (const GoneSection& section : engines.places.Gone()) {
            sections.emplace_back(section.section, section.actions);
        }
        return sections;
    };
    const std::vector row{std::pair(String(L"ActionsOnStep_2_1"), std::size_t{2})};
    EXPECT_EQ(gone(OneBandwidth("", "0", "0")), row);
    EXPECT_THAT(gone(OneBandwidth("", "1", "0")), ::testing::IsEmpty());
    EXPECT_EQ(gone(OneBandwidth("", "1", "-1")), row);
    EXPECT_THAT(gone(OneBandwidth("", "0", "-1")), ::testing::IsEmpty());
    // no combination asks for it, but the matrix has it
    EXPECT_THAT(gone(OneBandwidth("", "1", "7")), ::testing::IsEmpty());
}

/// The flag of the file gives the row up while the tables are announced; that of the test makes it
/// anew, without its actions.
TEST_F(ActionPlacesTest, ARowThatWasMadeAnewIsNotTheOneOfTheFile) {
    const ModuleLists& lists = Load(OneBandwidth("InfluencedByBandwidth=0\n", "1", "-1"));
    ASSERT_EQ(lists.VKSStepCount, 1);
    EXPECT_EQ(lists.VKSSteps[0].EnterCount, 0);
    EXPECT_EQ(engines.rowsNow, std::vector{-1});
    EXPECT_EQ(engines.places.Gone().size(), 1U);
}

TEST_F(ActionPlacesTest, WhatStandsInNoListComesFromNowhere) {
    Load(
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=1\n"
        "EnterAction1=WAIT:1\n");
    EXPECT_EQ(TextOf(p_Action{}), "nowhere");
    EXPECT_FALSE(engines.places.Find(nullptr));
}

TEST_F(ActionPlacesTest, AFileThatHasGoneIsToldWithoutItsLine) {
    EXPECT_EQ(SourceText(L"gone.ini", {L"ActionsOnTest", 3, 0, 4}),
              L"gone.ini: [ActionsOnTest] FrequAction1");
}

/// A run names the action beside number and text, on the screen and in the trace.
TEST_F(ActionPlacesTest, ARunTimeErrorNamesItsAction) {
    const std::string text =
        "[Workbench]\nModule=0\nSubRanges=1\n"
        "[ActionsOnSR1]\nNumOfEnterActions=2\nEnterAction1=WAIT:1\nEnterAction2=SWICHAMP:Amp A,3\n";
    const auto trace = std::make_shared<TraceFile>(Path("trace.txt"), [] { return "now "; });
    EXPECT_EQ(RunText(text, {}, [&](SessionHost& host, Session&) { host.traceFile = trace; }),
              Outcome::Failed);
    const std::string words = "ERROR 13: type mismatch at " + Path("test.ini") +
                              ":7: [ActionsOnSR1] EnterAction2 \"SWICHAMP:Amp A,3\"";
    EXPECT_THAT(kept.lines, ::testing::Contains("enter subrange 1: " + words));
    trace->Make();
    EXPECT_THAT(Read("trace.txt"), ::testing::HasSubstr(words));
}

}  // namespace
}  // namespace ace::workbench
