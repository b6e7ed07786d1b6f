#include <string>
#include <type_traits>
#include <vector>

#include <ace/core/action_lists.h>

#include "core/opaque_device.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

struct MemberRow {
    std::string name;
    std::int32_t member;
    std::int32_t value;
};

const MemberRow Members[] = {
    {"atWait", atWait, 0},
    {"atNotify", atNotify, 1},
    {"atRemote", atRemote, 2},
    {"atSetDevice", atSetDevice, 3},
    {"atCheckEut", atCheckEut, 4},
    {"atTrackFreq", atTrackFreq, 5},
    {"atComment", atComment, 6},
    {"atProtRec", atProtRec, 7},
    {"atTestStop", atTestStop, 8},
    {"atGotoSingle", atGotoSingle, 9},
    {"atStopLevSweep", atStopLevSweep, 10},
    {"atNbBbEtsi", atNbBbEtsi, 11},
    {"atSwitchAmp", atSwitchAmp, 12},
    {"atSwitchUnit", atSwitchUnit, 13},
    {"atAPI", atAPI, 14},
    {"atParkAcc", atParkAcc, 15},
    {"atQuestion", atQuestion, 16},
    {"atMonitorEUT", atMonitorEUT, 17},
    {"ptStartTest", ptStartTest, 0},
    {"ptStopTest", ptStopTest, 1},
    {"ptEnterSubRange", ptEnterSubRange, 2},
    {"ptLeaveSubrange", ptLeaveSubrange, 3},
    {"ptEveryFreq", ptEveryFreq, 4},
    {"ptTrigger", ptTrigger, 5},
    {"ptNoGo", ptNoGo, 6},
    {"ptGo", ptGo, 7},
    {"ptStep", ptStep, 8},
    {"ptBefore", ptBefore, 9},
    {"ptAfter", ptAfter, 10},
    {"ptBeforeTest", ptBeforeTest, 11},
    {"ptAfterTest", ptAfterTest, 12},
    {"aceTemplate", aceTemplate, 0},
    {"aceMonitoring", aceMonitoring, 1},
    {"aceEMSAutoTemplateGeneral", aceEMSAutoTemplateGeneral, 2},
    {"aceEMSAutoTemplate", aceEMSAutoTemplate, 3},
    {"aceEMIAutoTemplate", aceEMIAutoTemplate, 4},
    {"aceTSTemplate", aceTSTemplate, 5},
    {"aceAziChart", aceAziChart, 6},
    {"aceVKSTemplate", aceVKSTemplate, 7},
    {"aceVKSDUT", aceVKSDUT, 8},
    {"acEutNoAction", acEutNoAction, 0},
    {"acEutStoreComment", acEutStoreComment, 1},
    {"acEutRepeatSubrangeMeas", acEutRepeatSubrangeMeas, 2},
    {"acEutParkAccessories", acEutParkAccessories, 4},
    {"acEutStopTest", acEutStopTest, 128},
};

TEST(ActionEnums, MembersHaveTheNumbersThatTheHostKnows) {
    for (const MemberRow& row : Members) {
        EXPECT_EQ(row.member, row.value) << row.name;
    }
}

TEST(ActionEnums, Are32BitsWideAndCarryValuesOutsideTheirMembers) {
    EXPECT_EQ(sizeof(p_ActionTypes), 4U);
    EXPECT_EQ(sizeof(p_PerformTimes), 4U);
    EXPECT_EQ(sizeof(aceModul), 4U);
    EXPECT_EQ(sizeof(acEutCheck), 4U);
    const p_Action action = Action(static_cast<p_ActionTypes>(1000000));
    EXPECT_EQ(action.ActionType, 1000000);
}

TEST(BooleanTest, IsMinusOneOrZeroIn16Bits) {
    EXPECT_EQ(sizeof(Boolean), 2U);
    EXPECT_EQ(Boolean(true).Bits(), -1);
    EXPECT_EQ(Boolean(false).Bits(), 0);
    EXPECT_EQ(Boolean().Bits(), 0);
    EXPECT_TRUE(Boolean(true));
    EXPECT_FALSE((std::is_convertible_v<std::int32_t, Boolean>));
    EXPECT_FALSE((std::is_convertible_v<const wchar_t*, Boolean>));
}

TEST(ActionRecords, NumbersHaveTheWidthOfTheInterface) {
    EXPECT_TRUE((std::is_same_v<decltype(aceWait::Time), double>));
    EXPECT_TRUE((std::is_same_v<decltype(aceRemote::ProgID), double>));
    EXPECT_TRUE((std::is_same_v<decltype(aceAPI::Freq), double>));
    EXPECT_TRUE((std::is_same_v<decltype(aceTrackFreq::Freq), double>));
    EXPECT_TRUE((std::is_same_v<decltype(aceSetDevice::CycleTime), double>));
    EXPECT_TRUE((std::is_same_v<decltype(aceSetDevice::LastCheck), float>));
    EXPECT_TRUE((std::is_same_v<decltype(aceSetDevice::WaitTime), float>));
    EXPECT_EQ(sizeof(IAmplifierState), 4U);
    EXPECT_EQ(sizeof(ITableType), 4U);
    EXPECT_EQ(sizeof(ITableMeasClass), 4U);
}

TEST(ActionRecords, TheHostKnowsThemUnderOneName) {
    EXPECT_TRUE((std::is_same_v<aceTypes::p_Action, p_Action>));
    EXPECT_TRUE((std::is_same_v<aceTypes::p_Subrange, p_Subrange>));
    EXPECT_TRUE((std::is_same_v<aceTypes::aceModul, aceModul>));
    EXPECT_TRUE((std::is_same_v<aceTypes::aceTrackFreq, aceTrackFreq>));
}

// ---- fresh records -----------------------------------------------------------------------------

TEST(ActionRecords, AFreshActionIsAWaitWithoutRecordAndLatch) {
    const p_Action action;
    EXPECT_EQ(action.ActionType, atWait);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(action.Parameter));
    EXPECT_FALSE(action.IgnoreErr);
}

TEST(ActionRecords, AFreshListSetHasNoCountsAndNoArrays) {
    const p_Subrange lists;
    EXPECT_EQ(lists.EnterCount, 0);
    EXPECT_EQ(lists.LeaveCount, 0);
    EXPECT_EQ(lists.FreqCount, 0);
    EXPECT_EQ(lists.MlcCount, 0);
    EXPECT_EQ(lists.UtilCount, 0);
    for (const DynArray<p_Action>* list :
         {&lists.Enter, &lists.Leave, &lists.Freq, &lists.Mlc, &lists.Util}) {
        EXPECT_FALSE(list->IsAllocated());
    }
}

TEST(ActionRecords, AFreshRemoteRecordHasNoHandleAndNoProgram) {
    const aceRemote record;
    EXPECT_EQ(record.DrvHdl, -1);
    EXPECT_EQ(record.ProgID, 0.0);
    EXPECT_EQ(record.Iface, 0);
    EXPECT_EQ(record.GpibAddress, 0);
    EXPECT_EQ(record.SerComPort, 0);
    EXPECT_EQ(record.TcpPort, 0);
    EXPECT_EQ(record.Terminator, 0);
    EXPECT_FALSE(record.WaitPrgSync);
    EXPECT_EQ(record.Command + record.TcpHost + record.Program, L"");
    EXPECT_EQ(record.vks.count, 0);
    EXPECT_FALSE(record.vks.strSearch.IsAllocated());
    EXPECT_FALSE(record.vks.valReplace.IsAllocated());
}

TEST(ActionRecords, AFreshDeviceRecordHasNoDeviceAndAFirstCheckAtZero) {
    const aceSetDevice record;
    EXPECT_EQ(record.LastCheck, 0.0F);
    EXPECT_EQ(record.WaitTime, 0.0F);
    EXPECT_EQ(record.CycleTime, 0.0);
    EXPECT_EQ(record.ChanNo, 0);
    EXPECT_EQ(record.AmpState, 0);
    EXPECT_FALSE(record.StopTest || record.CommToTable || record.Notify || record.LoadingPos ||
                 record.UseTimeCyc || record.WaitState);
    EXPECT_FALSE(record.Device || record.MoniDev || record.BcGen || record.AmplDev ||
                 record.SwitchDev || record.SigPath);
}

TEST(ActionRecords, AFreshTrackingRecordHasNoDevice) {
    const aceTrackFreq record;
    EXPECT_EQ(record.DelayTime, 0);
    EXPECT_EQ(record.Freq, 0.0);
    EXPECT_EQ(record.TableType, 0);
    EXPECT_EQ(record.TableMeasClass, 0);
    EXPECT_FALSE(record.AskOnMeasStart);
    EXPECT_FALSE(record.MoniDev || record.GenDev || record.SigPath || record.CalTable);
}

TEST(ActionRecords, AFreshMacroRecordHasNoParameters) {
    EXPECT_FALSE(aceAPI().Parameters.IsAllocated());
    EXPECT_EQ(aceAPI().Freq, 0.0);
    EXPECT_EQ(aceWait().Time, 0.0);
    EXPECT_FALSE(aceNotify().Beep || aceNotify().GeneratorOff);
}

// ---- records inside an action ------------------------------------------------------------------

TEST(RecordOfTest, TakesTheRecordOutOfTheAction) {
    p_Action action = Action(atWait, aceWait{1500.0});
    EXPECT_EQ(RecordOf<aceWait>(action).Time, 1500.0);
    RecordOf<aceWait>(action).Time = 2.0;
    const p_Action& constant = action;
    EXPECT_EQ(RecordOf<aceWait>(constant).Time, 2.0);
}

TEST(RecordOfTest, IsError13WhenSomethingElseStandsThere) {
    const std::vector<ActionParameter> others = {std::monostate(), aceNotify(),    aceRemote(),
                                                 aceAPI(),         aceSetDevice(), aceTrackFreq(),
                                                 std::int32_t{5}};
    for (const ActionParameter& other : others) {
        p_Action action = Action(atWait, other);
        EXPECT_EQ(ErrorOf([&] { RecordOf<aceWait>(action); }), 13) << other.index();
        EXPECT_EQ(ErrorOf([&] { RecordOf<aceWait>(std::as_const(action)); }), 13);
        EXPECT_EQ(action.Parameter, other);
    }
    p_Action wait = Action(atRemote, aceWait());
    EXPECT_EQ(ErrorOf([&] { RecordOf<aceRemote>(wait); }), 13);
}

TEST(ActionRecords, AnActionCanCarryABareInteger) {
    const p_Action action = Action(atTrackFreq, std::int32_t{5});
    EXPECT_EQ(std::get<std::int32_t>(action.Parameter), 5);
}

// ---- copies ------------------------------------------------------------------------------------

TEST(ActionRecords, ACopyOfAListSetIsDeep) {
    p_Subrange lists;
    Fill(lists, EnterList, {Action(atRemote, aceRemote())});
    p_Subrange copy = lists;
    RecordOf<aceRemote>(copy.Enter[0]).DrvHdl = 7;
    copy.Enter.RedimPreserve(4);
    copy.EnterCount = 5;
    EXPECT_EQ(RecordOf<aceRemote>(lists.Enter[0]).DrvHdl, -1);
    EXPECT_EQ(lists.Enter.UpperBound(), 0);
    EXPECT_EQ(lists.EnterCount, 1);
}

TEST(ActionRecords, TheFifthListTakesPartInCopies) {
    p_Subrange lists;
    lists.UtilCount = 1;
    lists.Util.Redim(0, 0);
    lists.Util[0] = Action(atTestStop);
    const p_Subrange copy = lists;
    EXPECT_EQ(copy.UtilCount, 1);
    EXPECT_EQ(copy.Util[0].ActionType, atTestStop);
}

TEST(ActionRecords, ReplaceVariablesAreCopiedDeep) {
    aceRemote record;
    record.vks.count = 1;
    record.vks.strSearch.Redim(0, 0);
    record.vks.valReplace.Redim(0, 0);
    record.vks.valReplace[0] = 1.5;
    aceRemote copy = record;
    copy.vks.valReplace[0] = String(L"other");
    EXPECT_EQ(record.vks.valReplace[0], Value(1.5));
}

TEST(ActionRecords, DeviceReferencesAreSharedByAllCopies) {
    const OpaqueDevice device;
    aceSetDevice record;
    record.Device = device.As<IDevice>();
    const p_Action action = Action(atSetDevice, record);
    record.Device.reset();
    const p_Action copy = action;
    EXPECT_EQ(RecordOf<aceSetDevice>(copy).Device, RecordOf<aceSetDevice>(action).Device);
    EXPECT_EQ(device.References(), 2);
}

TEST(ActionRecords, CompareFieldByField) {
    p_Subrange a;
    Fill(a, FreqList, {Action(atWait, aceWait{1.0})});
    p_Subrange b = a;
    EXPECT_EQ(a, b);
    RecordOf<aceWait>(b.Freq[0]).Time = 2.0;
    EXPECT_NE(a, b);
    b = a;
    b.Freq[0].IgnoreErr = true;
    EXPECT_NE(a, b);
}

// ---- the lists as data -------------------------------------------------------------------------

TEST(ActionListsTest, AreFourInTheOrderOfTheFileWithoutTheFifth) {
    EXPECT_EQ(std::size(ActionLists), 4U);
    EXPECT_EQ(ActionLists[0].actions, &p_Subrange::Enter);
    EXPECT_EQ(ActionLists[1].actions, &p_Subrange::Leave);
    EXPECT_EQ(ActionLists[2].actions, &p_Subrange::Freq);
    EXPECT_EQ(ActionLists[3].actions, &p_Subrange::Mlc);
    EXPECT_EQ(ActionLists[0].count, &p_Subrange::EnterCount);
    EXPECT_EQ(ActionLists[1].count, &p_Subrange::LeaveCount);
    EXPECT_EQ(ActionLists[2].count, &p_Subrange::FreqCount);
    EXPECT_EQ(ActionLists[3].count, &p_Subrange::MlcCount);
}

TEST(ActionListsTest, AnEmptiedListHasNoArray) {
    p_Subrange lists;
    Fill(lists, LeaveList, {Action(atTestStop)});
    EmptyList(lists, LeaveList);
    EXPECT_EQ(lists, p_Subrange());
}

}  // namespace
}  // namespace ace::test
