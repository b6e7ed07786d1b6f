/// Plans of what is not counted where it begins: parking, lists that wait for a device, stops.
#include "rehearsal_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// ---- parking -------------------------------------------------------------------------------

TEST_F(RehearsalTest, ParkingAtTheEndIsCountedWithItsListAlthoughItIsARequest) {
    Rehearse("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n" + Enter({"PARKACC:", "WAIT:1"}) +
             Leave({"PARKACC:", "WAIT:2", "PARKACC:"}));
    EXPECT_THAT(Actions(), ElementsAre(StartsWith("[ActionsOnAzimuthChart] EnterAction1 x1: "),
                                       StartsWith("[ActionsOnAzimuthChart] EnterAction2 x1: "),
                                       StartsWith("[ActionsOnAzimuthChart] LeaveAction1 x1: "),
                                       StartsWith("[ActionsOnAzimuthChart] LeaveAction2 x1: "),
                                       StartsWith("[ActionsOnAzimuthChart] LeaveAction3 x1: ")));
    EXPECT_THAT(Lists(), ElementsAre("StartTest 0: 1; 2 actions, 0.001 s",
                                     "StopTest 0: 1; 3 actions, 0.002 s"));
    EXPECT_EQ(found.parkedAtTheEnd, 2U);
}

TEST_F(RehearsalTest, ParkingBehindAStopOfTheEndIsNotReached) {
    Rehearse("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n" +
                 Leave({"PARKACC:", "SWITCHUNIT:Matrix,A", "PARKACC:"}),
             "* | failure | * | Stop\n", [](sim::SimHost&) {});
    EXPECT_THAT(Actions(), ElementsAre(StartsWith("[ActionsOnAzimuthChart] LeaveAction1 x1: "),
                                       StartsWith("[ActionsOnAzimuthChart] LeaveAction2 x1: "),
                                       StartsWith("[ActionsOnAzimuthChart] LeaveAction3 x0: ")));
}

struct CountRow {
    std::string text;
    std::size_t all;     ///< actions that the test comes to
    std::size_t parked;  ///< of which so many are requests of the end
};

std::string Test(int moduleKind, int subRanges) {
    return "[Workbench]\nModule=" + std::to_string(moduleKind) +
           "\nSubRanges=" + std::to_string(subRanges) + "\n";
}

/// Wireless lists need their names.
const std::string WirelessTest =
    Test(7, 1) + "[ActionsOnVKSTemplate]\n" + Enter({"PARKACC:"}) + Leave({"WAIT:1", "PARKACC:"}) +
    "[ActionsOnTest1]\n" + Enter({"PARKACC:", "WAIT:1"}) +
    "[ActionsOnTest1_VKS]\nVKS_UKey=POWER\nSUBSTEPS=1\n[ActionsOnStepPOWER_1]\n" +
    Enter({"WAIT:1", "PARKACC:", "PARKACC:"}) +
    "[ActionsOnStepPOWER_1_VKS]\nVKS_Name=Power\nVKS_Key=P1\n";

/// Two rows.
const std::string MatrixTest =
    Test(8, 2) +
    "[Workbench.DUT]\nFreq0=1000000\nBandwidthName0=wide\nPowerName0=low\nPowerName1=high\n"
    "InfluencedByPower=1\n[ActionsOnVKSTemplate_2]\nCount=2\nFreq=0\nBandwidth=0\nPower=1\n"
    "[ActionsOnStep_2_1_VKS]\nID0=-1\nID1=-1\nID2=0\n[ActionsOnStep_2_1]\n" +
    Enter({"PARKACC:", "WAIT:1"}) + "[ActionsOnStep_2_2_VKS]\nID0=-1\nID1=-1\nID2=1\n" +
    "[ActionsOnStep_2_2]\n" + Enter({"PARKACC:"});

const CountRow CountRows[] = {
    {Test(0, 2) + ThreeAndTwo + "[ActionsOnTest]\n" + Enter({"WAIT:1", "PARKACC:"}) +
         Leave({"PARKACC:", "WAIT:1"}) + Freq({"WAIT:1"}) + "[ActionsOnSR1]\n" +
         Enter({"PARKACC:"}),
     2 + 2 + 5 + 1, 0},
    {Test(1, 2) + ThreeAndTwo + "[ActionsOnEutMon]\n" + Enter({"PARKACC:"}) + Leave({"PARKACC:"}) +
         Mlc({"WAIT:1"}) + "[ActionsOnMonTestLoop]\n" + Enter({"PARKACC:", "WAIT:1"}),
     1 + 1 + 5 + 2, 0},
    {Test(2, 1) + ThreeAndTwo + "[ActionsOnEMSAutoTest]\n" + Enter({"PARKACC:"}) +
         Leave({"WAIT:1", "PARKACC:", "PARKACC:", "WAIT:1"}) + "[ActionsOnStep1]\n" +
         Enter({"PARKACC:"}),
     1 + 4 + 1, 2},
    {Test(3, 1) + "[ActionsOnStep1]\n" + Enter({"PARKACC:", "WAIT:1"}), 2, 0},
    {Test(4, 1) + ThreeAndTwo + "[ActionsOnEMIAutoTest]\n" + Enter({"WAIT:1"}) +
         Leave({"PARKACC:"}) + "[ActionsOnStep1]\n" + Enter({"PARKACC:"}) +
         Leave({"PARKACC:", "WAIT:1"}),
     1 + 1 + 1 + 2, 1},
    {Test(5, 1) + "[ActionsOnTestSequence]\n" + Leave({"PARKACC:"}) + "[ActionsOnTest1]\n" +
         Enter({"PARKACC:"}) + Leave({"WAIT:1"}),
     3, 0},
    {Test(6, 0) + "[ActionsOnAzimuthChart]\n" + Leave({"PARKACC:", "WAIT:1"}), 2, 1},
    {WirelessTest, 1 + 2 + 2 + 3, 0},
    {MatrixTest, 2 + 1, 0},
};

TEST_F(RehearsalTest, TheActionsOfThePlanAreThoseThatARunCountsAndTheRequestsOfItsEnd) {
    ASSERT_EQ(std::size(CountRows), std::size_t{ModulCount});
    for (const CountRow& row : CountRows) {
        SCOPED_TRACE(row.text);
        Rehearse(row.text);
        std::size_t all = 0;
        std::size_t ofLists = 0;
        for (const RehearsedAction& action : found.actions) {
            all += action.times;
        }
        for (const RehearsedList& list : found.lists) {
            ofLists += list.begun;
        }
        EXPECT_EQ(all, row.all);
        EXPECT_EQ(ofLists, row.all);
        EXPECT_EQ(found.counts.actions, row.all - row.parked);
        EXPECT_EQ(found.parkedAtTheEnd, row.parked);
        EXPECT_THAT(Ends(), IsEmpty());
    }
}

// ---- lists that wait for a device ----------------------------------------------------------

const std::string OneSweep =
    "[Workbench]\nModule=1\nSubRanges=3\n[Workbench.Subrange1]\nStartHz=1"
    "\nStopHz=4\nStepPercent=100\n";

TEST_F(RehearsalTest, ListsThatOnlyAReadingBeginsNameTheirDevice) {
    Rehearse(OneSweep +
             "[Workbench.Channel1]\nDevice=Hot\nTriggerAbove=0.5\n[Workbench.Channel2]\nDevice=EUT"
             "\nNoGoAbove=0.5\n[ActionsOnChannel1]\n" +
             Enter({"WAIT:1"}) + Freq({"WAIT:3"}) + "[ActionsOnChannel2]\n" + Enter({"WAIT:1"}) +
             Leave({"WAIT:2"}) + Freq({"WAIT:3"}) + "[ActionsOnChannel3]\n" + Enter({"WAIT:1"}));
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnChannel1] EnterAction1 x0: Wait: 0.001 s",
                                       "[ActionsOnChannel1] FrequAction1 x0 by Hot: Wait: 0.003 s",
                                       "[ActionsOnChannel2] EnterAction1 x0 by EUT: Wait: 0.001 s",
                                       "[ActionsOnChannel2] LeaveAction1 x0 by EUT: Wait: 0.002 s",
                                       "[ActionsOnChannel2] FrequAction1 x0: Wait: 0.003 s",
                                       "[ActionsOnChannel3] EnterAction1 x0: Wait: 0.001 s"));
}

TEST_F(RehearsalTest, AListThatTheFileBeginsOrATestWithoutFrequenciesWaitsForNoDevice) {
    const std::string watched = "[Workbench.Channel1]\nDevice=EUT\nNoGoAbove=0.5\n";
    const std::string fails = "[ActionsOnChannel1]\nNumOfEnterActions=2\nEnterAction2=WAIT:3\n";
    Rehearse(OneSweep + watched + "NoGo=1\n" + fails);
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnChannel1] EnterAction1 x1: ",
                                       "[ActionsOnChannel1] EnterAction2 x0: Wait: 0.003 s"));
    Rehearse("[Workbench]\nModule=1\nSubRanges=1\n" + watched + fails);
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnChannel1] EnterAction1 x0: ",
                                       "[ActionsOnChannel1] EnterAction2 x0: Wait: 0.003 s"));
}

// ---- the action behind which the test is stopped -------------------------------------------

/// In a single test tracking starts at the start of the test, whether that stops it or not.
TEST_F(RehearsalTest, TheActionThatStopsIsNamedAlthoughTrackingStartsBehindIt) {
    const std::string track = Freq({"FREQTRACK:Meter,100"});
    Rehearse(AtStart({"WAIT:1", "STOP:", "WAIT:2"}) + track);
    EXPECT_THAT(Ends(), ElementsAre("start of test: the test is stopped"));
    EXPECT_EQ(found.actions[found.ends[0].action].text, L"Stop test");
    Rehearse(AtStart({"WAIT:1", "QUESTION:Door?,,0"}) + track, "* | question | * | No\n");
    EXPECT_THAT(Ends(), ElementsAre("start of test: the test is stopped"));
    EXPECT_EQ(found.actions[found.ends[0].action].text, L"Question: Door?");
}

TEST_F(RehearsalTest, TheDialogThatStopsTheStartOfTrackingNamesItsAction) {
    Rehearse(AtStart({"WAIT:1"}) + Freq({"WAIT:2", "FREQTRACK:Meter,100"}),
             "* | failure | * | Stop\n", [](sim::SimHost&) {});
    EXPECT_THAT(Ends(), ElementsAre("start of test: the test is stopped"));
    EXPECT_EQ(found.actions[found.ends[0].action].text, L"Track frequency: Meter");
}

/// The list of a channel runs to its end.
TEST_F(RehearsalTest, TheActionThatStopsIsNamedAlthoughItsChannelRunsOn) {
    Rehearse(OneSweep + "[Workbench.Channel1]\nNoGo=1\n[ActionsOnChannel1]\n" +
             Enter({"WAIT:1", "STOP:", "WAIT:3"}));
    EXPECT_THAT(Ends(), ElementsAre("channel 1 no-go: the test is stopped"));
    EXPECT_EQ(found.actions[found.ends[0].action].text, L"Stop test");
}

// ---- classes of devices --------------------------------------------------------------------

/// A device is what the actions say that need one class, wherever they stand.
TEST_F(RehearsalTest, AnActionThatNeedsAClassGoesBeforeOneThatTakesAny) {
    Rehearse(AtStart({"SETDEV:Amp,7", "SWITCHAMP:Amp,3", "SETDEV:EUT,103,Path 1",
                      "CHECKEUT:EUT,101,1,0,0,0,0.00,0,0.00,0"}));
    EXPECT_THAT(Devices(), ::testing::Contains(
                               ::testing::AllOf(StartsWith("Amp: "), HasSubstr("operate x1"))));
    EXPECT_THAT(Devices(), ::testing::Contains(::testing::AllOf(
                               StartsWith("EUT: "), HasSubstr("channel 101 is read x1"))));
}

}  // namespace
}  // namespace ace::workbench
