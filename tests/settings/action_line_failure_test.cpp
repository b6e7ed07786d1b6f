#include "settings/section_fixture.h"

namespace ace {
namespace {

using test::Action;
using test::ErrorOf;
using testing::ElementsAre;

struct ActionLineFailure : test::SectionTest {};

struct BadLine {
    StringView line;  ///< stands third in a section with two enter and two frequency entries
    std::int32_t error;
};
constexpr BadLine BadLines[] = {
    {L"; a comment", 5},
    {L"no equal sign: here", 5},
    {L"Remark=without colon", 5},
    {L"EnterAction1=WAIT", 5},
    {L"ab", 5},
    {L"EnterAction3=STOP:", 9},
    {L"EnterAction0=STOP:", 9},
    {L"EnterAction-1=STOP:", 9},
    {L"EnterAction=STOP:", 9},
    {L"EnterActionX=STOP:", 9},
    {L"EnterAction99999999999=STOP:", 9},
    {L"EnterAction1e999=STOP:", 6},
    {L"LeaveAction1=WAIT:1", 9},
    {L"NumOfLeaveActions=0", 9},
    {L"NumOfLeaveActions=-1", 9},
    {L"NumOfLeaveActions=", 9},
    {L"NumOfLeaveActions=many", 9},
    {L"NumOfLeaveActions=99999999999", 6},
    {L"NumOfLeaveActions=-99999999999", 6},
    {L"NumOfLeaveActions=-2147483648", 9},
    {L"NumOfLeaveActions=100001", 7},
    {L"NumOfLeaveActions=2147483647", 7},
    {L"EnterAction1=WAIT:1e999", 6},
    {L"EnterAction1=NOTIFY:text", 9},
    {L"EnterAction1=NOTIFY:text,file", 9},
    {L"EnterAction1=QUESTION:", 9},
    {L"EnterAction1=REMOTE:", 9},
    {L"EnterAction1=REMOTE:,,,", 9},
    {L"EnterAction1=REMOTE:CMD", 9},
    {L"EnterAction1=REMOTE:CMD,x,1,1,,0,", 13},
    {L"EnterAction1=REMOTE:CMD,,1,1,,0,", 13},
    {L"EnterAction1=REMOTE:CMD,0,1", 9},
    {L"EnterAction1=REMOTE:CMD,0,1,1", 9},
    {L"EnterAction1=REMOTE:CMD,1,99999999999,1,,0,", 6},
    {L"EnterAction1=REMOTE:CMD,2,host", 9},
    {L"EnterAction1=REMOTE:CMD,9", 9},
    {L"EnterAction1=GPIB:20", 5},
    {L"EnterAction1=GPIB:20,1", 5},
    {L"EnterAction1=GPIB:", 5},
    {L"EnterAction1=SETDEV:", 9},
    {L"EnterAction1=SETDEV:M", 9},
    {L"EnterAction1=SETDEV:M,", 13},
    {L"EnterAction1=SETDEV:M,X", 13},
    {L"EnterAction1=SETDEV:M,99999999999", 6},
    {L"EnterAction1=CHECKEUT:M,1,0,0,0,0,20,0", 9},
    {L"EnterAction1=CHECKEUT:M,X,0,0,0,0,20,0,10", 13},
    {L"EnterAction1=CHECKEUT:M,1,0,0,0,0,20,0,1e39", 6},
    {L"EnterAction1=CHECKEUT:M,1,0,0,0,0,20,0,-1e39", 6},
    {L"EnterAction1=MONITOREUT:M,1", 9},
    {L"EnterAction1=SWITCHAMP:A", 9},
    {L"EnterAction1=SWITCHAMP:A,on", 13},
    {L"EnterAction1=SWITCHUNIT:U", 9},
    {L"FrequAction1=FREQTRACK:M", 9},
    {L"FrequAction1=FREQTRACK:M,X", 13},
    {L"FrequAction1=FREQTRACK:M,X,,", 13},
    {L"FrequAction1=FREQTRACK:G,T,X,0,1", 13},
    {L"FrequAction1=FREQTRACK:G,T,40,,1", 13},
    {L"FrequAction1=FREQTRACK:G,T,40,0,yes", 13},
    {L"FrequAction1=FREQTRACK:G,T,40,0,", 13},
    {L"FrequAction1=SYNCGEN:M", 91},
    {L"FrequAction1=SYNCGEN:M,100", 91},
    {L"FrequAction1=SYNCGEN:", 91},
    {L"FrequAction1=SYNCGEN:G,T,40", 9},
    {L"FrequAction1=SYNCGEN:G,T,40,0", 9},
};

TEST_F(ActionLineFailure, EachBadLineHasItsNumber) {
    for (const BadLine& bad : BadLines) {
        target = {};
        EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=2", L"NumOfFreqActions=2", String(bad.line)}),
                  bad.error)
            << testing::PrintToString(String(bad.line));
    }
}

TEST_F(ActionLineFailure, TheLargestListIsMade) {
    Read({L"NumOfLeaveActions=100000"});
    EXPECT_EQ(target.Leave.UpperBound(), 99999);
}

TEST_F(ActionLineFailure, WhatWasStoredBeforeTheLineStays) {
    const Lines lines{L"NumOfEnterActions=3", L"EnterAction1=STOP:", L"EnterAction2=WAIT:1",
                      L"EnterAction2=SWITCHAMP:A,on", L"EnterAction3=STOP:"};
    EXPECT_EQ(ErrorOfReading(lines), 13);
    EXPECT_EQ(Entry(0), Action(atTestStop));
    EXPECT_EQ(Entry(1), Action(atSwitchAmp, aceWait{1.0}));
    EXPECT_EQ(Entry(2), p_Action());
    EXPECT_EQ(context.ReaderRecords.SetDevice.DevName, L"A");
}

TEST_F(ActionLineFailure, ALineThatCanNotBeSplitStopsBeforeAnyEntryIsRead) {
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=1", L"EnterAction1=STOP:", L"; remark"}), 5);
    EXPECT_EQ(target.EnterCount, 1);
    EXPECT_EQ(Entry(0), p_Action());
}

TEST_F(ActionLineFailure, ACountBelowOneStandsAndTheListStays) {
    test::Fill(target, EnterList, {Action(atTestStop)});
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=0"}), 9);
    EXPECT_EQ(target.EnterCount, 0);
    EXPECT_EQ(target.Enter.UpperBound(), 0);
}

TEST_F(ActionLineFailure, ATooLargeCountChangesNothing) {
    test::Fill(target, EnterList, {Action(atTestStop)});
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=100001"}), 7);
    EXPECT_EQ(target, SetWith(Action(atTestStop)));
}

TEST_F(ActionLineFailure, AHeldListIsError10) {
    test::Fill(target, EnterList, {Action(atTestStop)});
    const DynArray<p_Action>::Hold hold(target.Enter);
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=2"}), 10);
    EXPECT_EQ(ErrorOfReading({}), 10);
    EXPECT_EQ(Entry(0), Action(atTestStop));
}

TEST_F(ActionLineFailure, TheCounterIsRaisedBeforeALaterFieldOfACheckFails) {
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=1", L"EnterAction1=CHECKEUT:M,300"}), 9);
    EXPECT_EQ(context.DeviceSectionCounter, 300);
}

TEST_F(ActionLineFailure, TheErrorIsReportedOnceAndRaisedWithTheSameDescription) {
    try {
        Read({L"NumOfEnterActions=1", L"EnterAction1=SETDEV:M,X"});
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 13);
        EXPECT_EQ(error.Description(), L"type mismatch");
        EXPECT_EQ(error.Source(), L"");
    }
    EXPECT_THAT(TakeEffects(), ElementsAre(L"SettingsFile.GetSection(\"S\")",
                                           L"TraceLog.ReportError(13, \"type mismatch\", 1)"));
}

TEST_F(ActionLineFailure, AnActionWithoutItsRecordCanNotBeWritten) {
    const p_ActionTypes kinds[] = {atWait,       atNotify,    atRemote,   atSetDevice,
                                   atCheckEut,   atTrackFreq, atComment,  atSwitchAmp,
                                   atSwitchUnit, atAPI,       atQuestion, atMonitorEUT};
    for (const p_ActionTypes kind : kinds) {
        EXPECT_EQ(ErrorOf([&] { Written(SetWith(Action(kind))); }), 13) << kind;
        EXPECT_EQ(ErrorOf([&] { Written(SetWith(Action(kind, std::int32_t{5}))); }), 13) << kind;
    }
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"), testing::IsEmpty());
}

TEST_F(ActionLineFailure, AnErrorOfWriteSectionIsReportedByWriteActionListToo) {
    EXPECT_EQ(ErrorOf([&] { Written(SetWith(Action(atWait))); }), 13);
    EXPECT_THAT(TakeEffects(), ElementsAre(L"TraceLog.ReportError(13, \"type mismatch\", 1)",
                                           L"TraceLog.ReportError(13, \"type mismatch\", 1)"));
}

TEST_F(ActionLineFailure, ACountBeyondTheArrayIsError9) {
    p_Subrange set = SetWith(Action(atTestStop));
    set.EnterCount = 2;
    EXPECT_EQ(ErrorOf([&] { Written(set); }), 9);
}

TEST_F(ActionLineFailure, AHostCallThatFailsOnceIsRunAgainWhenTheLogSaysSo) {
    host->reportAnswers = {ITraceLog::RetryStatement, ITraceLog::RetryStatement,
                           ITraceLog::RetryStatement};
    for (const StringView call : {L"SettingsFile.GetSection", L"SystemServices", L"Utilities"}) {
        host->faults.FailOperation(call, 1, 70);
    }
    ReadList(Enter, {L"SOUND:gone", L"SETDEV:M,250"});
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"SettingsFile.GetSection(\"S\") -> error 70",
                            L"TraceLog.ReportError(70, \"scripted failure\", 1)",
                            L"SettingsFile.GetSection(\"S\")",
                            L"SystemServices.FileIsUsable(\"gone\", true, false) -> error 70",
                            L"TraceLog.ReportError(70, \"scripted failure\", 1)",
                            L"SystemServices.FileIsUsable(\"gone\", true, false)",
                            L"Utilities.Max(100, [250]) -> error 70",
                            L"TraceLog.ReportError(70, \"scripted failure\", 1)",
                            L"Utilities.Max(100, [250])"));
    EXPECT_EQ(context.DeviceSectionCounter, 250);
}

TEST_F(ActionLineFailure, ReadingWritesAStartLineAndAnEndLineWithoutModule) {
    context.TraceLog();
    context.Platform();
    host->tracing = true;
    host->journal.Clear();
    Read({L"NumOfEnterActions=1"});
    EXPECT_THAT(
        host->journal.Lines(),
        ElementsAre(L"TraceLog.IsEnabled()", L"Platform.ThreadId()",
                    L"TraceLog.WriteLine(\"start\", \"ZOLTA_ActionsEngine\", "
                    L"\"modActions (Code)\", \"ReadSection\", \"\", \"1\")",
                    L"SettingsFile.GetSection(\"S\")", L"TraceLog.IsEnabled()",
                    L"Platform.ThreadId()",
                    L"TraceLog.WriteLine(\"end\", \"\", \"\", \"ReadSection\", \"\", \"1\")"));
}

TEST_F(ActionLineFailure, TheEndLineIsMissingAfterAnError) {
    host->tracing = true;
    EXPECT_EQ(ErrorOfReading({L"; remark"}), 5);
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.WriteLine"), testing::SizeIs(1));
}

TEST_F(ActionLineFailure, WritingTracesTheSectionAndEachOfItsLists) {
    host->tracing = true;
    p_Subrange source = SetWith(Action(atTestStop));
    test::Fill(source, MlcList, {Action(atTestStop)});
    Written(source);
    const String start =
        L"TraceLog.WriteLine(\"start\", \"ZOLTA_ActionsEngine\", \"modActions (Code)\", ";
    const String end = L"TraceLog.WriteLine(\"end\", \"\", \"\", ";
    EXPECT_THAT(
        host->journal.LinesOf(L"TraceLog.WriteLine"),
        ElementsAre(
            start + L"\"WriteActionList\", \"\", \"1\")", start + L"\"WriteSection\", \"\", \"1\")",
            end + L"\"WriteSection\", \"\", \"1\")", start + L"\"WriteSection\", \"\", \"1\")",
            end + L"\"WriteSection\", \"\", \"1\")", end + L"\"WriteActionList\", \"\", \"1\")"));
}

}  // namespace
}  // namespace ace
