#include "settings/section_fixture.h"

namespace ace {
namespace {

using test::Action;
using testing::ElementsAre;
using testing::IsEmpty;

struct ActionLine : test::SectionTest {};

TEST_F(ActionLine, AnEmptyOrMissingSectionYieldsNoListsAndLeavesUtilAlone) {
    for (const ListFields& list : ActionLists) {
        test::Fill(target, list, {Action(atTestStop)});
    }
    target.UtilCount = 4;
    target.Util.Redim(0, 3);
    Read({});
    p_Subrange expected;
    expected.UtilCount = 4;
    expected.Util.Redim(0, 3);
    EXPECT_EQ(target, expected);
}

TEST_F(ActionLine, TheFifthListTakesNoPartInReadingAndWriting) {
    target.UtilCount = 1;
    target.Util.Redim(0, 0);
    target.Util[0] = Action(atTestStop);
    EXPECT_THAT(Written(target), IsEmpty());
    Read({L"NumOfEnterActions=1", L"NumOfUtilActions=x:1"});
    EXPECT_EQ(target.UtilCount, 1);
    EXPECT_EQ(target.Util[0].ActionType, atTestStop);
}

TEST_F(ActionLine, AnEntryLineWithoutACountLineOfItsListIsError9) {
    EXPECT_EQ(ErrorOfReading({L"NumOfLeaveActions=1", L"EnterAction1=STOP:"}), 9);
}

TEST_F(ActionLine, TheCountLineMayStandBehindItsEntries) {
    Read({L"EnterAction2=STOP:", L"EnterAction1=WAIT:1", L"NumOfEnterActions=2"});
    EXPECT_EQ(Entry(0), Action(atWait, aceWait{1.0}));
    EXPECT_EQ(Entry(1), Action(atTestStop));
}

TEST_F(ActionLine, KeysAndKeywordsAreReadWithoutRegardToCase) {
    Read({L"numofENTERactions=1", L"enteraction1=setdev:Meter,7,Path"});
    EXPECT_EQ(Entry(0).ActionType, atSetDevice);
    EXPECT_EQ(RecordAt<aceSetDevice>(0).DevName, L"Meter");
    EXPECT_EQ(RecordAt<aceSetDevice>(0).ChanNo, 7);
    EXPECT_EQ(RecordAt<aceSetDevice>(0).SigPathName, L"Path");
}

TEST_F(ActionLine, AWaitShowsThreeDecimalsAndAPointOnEveryLocale) {
    for (const wchar_t separator : {L'.', L','}) {
        host->decimalSeparator = separator;
        EXPECT_EQ(WrittenAs(Action(atWait, aceWait{1.5})), L"WAIT:1.500");
        EXPECT_EQ(WrittenAs(Action(atWait, aceWait{0.0})), L"WAIT:0.000");
    }
}

TEST_F(ActionLine, OnlyThreeDecimalsOfAWaitSurviveASave) {
    ReadList(Enter, {WrittenAs(Action(atWait, aceWait{1500.12345}))});
    EXPECT_EQ(RecordAt<aceWait>(0).Time, 1500.123);
}

TEST_F(ActionLine, ANotificationOfTwoLinesWithACommaSurvivesInOneLineOfTheFile) {
    aceNotify record;
    record.Message = L"Door closed,\r\nlamp green?";
    const p_Subrange source = SetWith(Action(atNotify, record));
    EXPECT_THAT(Written(source),
                ElementsAre(L"NumOfEnterActions=1",
                            L"EnterAction1=NOTIFY:Door closed\x01\x7flamp green?,,0"));
    Read(host->files[L"f"][L"S"]);
    EXPECT_EQ(target, source);
}

TEST_F(ActionLine, ANotificationWithoutTextAndSoundHasThreeFields) {
    ReadList(Enter, {L"NOTIFY:,,1"});
    aceNotify expected;
    expected.Beep = true;
    EXPECT_EQ(Entry(0), Action(atNotify, expected));
    EXPECT_EQ(WrittenAs(Entry(0)), L"NOTIFY:,,1");
}

TEST_F(ActionLine, ATcpIpTerminatorIsWrittenInEveryListAndReadInTheFirst) {
    aceRemote record;
    record.Command = L"*RST";
    record.Iface = 2;
    record.TcpHost = L"h";
    record.TcpPort = 5025;
    record.Terminator = 10;
    const p_Action action = Action(atRemote, record);
    EXPECT_EQ(WrittenAs(action), L"REMOTE:*RST,2,h,5025:10,,0,");
    EXPECT_EQ(WrittenAs(action, Freq), L"REMOTE:*RST,2,h,5025:10,,0,");
    ReadList(Enter, {WrittenAs(action)});
    EXPECT_EQ(RecordAt<aceRemote>(0).TcpPort, 5025);
    EXPECT_EQ(RecordAt<aceRemote>(0).Terminator, 10);
    ReadList(Freq, {L"REMOTE:X,0,1,2,,0,", WrittenAs(action, Freq)});
    EXPECT_EQ(RecordAt<aceRemote>(1, Freq).TcpPort, 5025);
    EXPECT_EQ(RecordAt<aceRemote>(1, Freq).Terminator, 2);
}

TEST_F(ActionLine, ACheckLineOfNineFieldsLoadsWithLoadingPosInherited) {
    ReadList(Enter,
             {L"CHECKEUT:M,101,0,1,0,1,20.00,1,10.00,1", L"CHECKEUT:M,101,0,1,0,1,20.00,1,10.00"});
    EXPECT_TRUE(RecordAt<aceSetDevice>(1).LoadingPos);
    ReadList(Enter, {L"CHECKEUT:M,101,0,1,0,1,20.00,1,10.00"});
    EXPECT_FALSE(RecordAt<aceSetDevice>(0).LoadingPos);
}

TEST_F(ActionLine, ADeviceSectionNumberRaisesTheCounterAndNeverLowersIt) {
    const String words[] = {L"SETDEV:M,", L"CHECKEUT:M,", L"MONITOREUT:M,"};
    for (const String& word : words) {
        context.DeviceSectionCounter = 100;
        ReadList(Enter, {word + L"250,0,0,0,0,1,0,1,0", word + L"50,0,0,0,0,1,0,1,0"});
        EXPECT_EQ(context.DeviceSectionCounter, 250);
        ReadList(Enter, {word + L"50,0,0,0,0,1,0,1,0"});
        EXPECT_EQ(context.DeviceSectionCounter, 250);
    }
    EXPECT_THAT(host->journal.LinesOf(L"Utilities").front(), L"Utilities.Max(100, [250])");
}

TEST_F(ActionLine, TwoSetDeviceLinesInARowShareTheSignalPathOfTheFirst) {
    ReadList(Enter, {L"SETDEV:A,101,X", L"SETDEV:B,102"});
    EXPECT_EQ(RecordAt<aceSetDevice>(0).SigPathName, L"X");
    EXPECT_EQ(RecordAt<aceSetDevice>(1).SigPathName, L"X");
}

TEST_F(ActionLine, AQuestionInALeaveListIsWrittenAndComesBackAsAnEmptyWait) {
    const p_Subrange source = SetWith(Action(atQuestion, aceNotify{}), Leave);
    Read(Written(source));
    EXPECT_EQ(host->files[L"f"][L"S"].at(1), L"LeaveAction1=QUESTION:,,0");
    EXPECT_EQ(target.LeaveCount, 1);
    EXPECT_EQ(Entry(0, Leave), p_Action());
}

TEST_F(ActionLine, AMonitorLineAfterAGeneratorLineKeepsTheGeneratorAndIsSavedAsOne) {
    ReadList(Freq, {L"FREQTRACK:G,T,40,0,1,P", L"FREQTRACK:M,100"});
    EXPECT_EQ(RecordAt<aceTrackFreq>(1, Freq).GenName, L"G");
    EXPECT_EQ(RecordAt<aceTrackFreq>(1, Freq).MoniName, L"M");
    EXPECT_EQ(WrittenAs(Entry(1, Freq), Freq), L"FREQTRACK:G,T,40,0,1,P");
}

TEST_F(ActionLine, AGeneratorLineAfterAMonitorLineKeepsTheMonitor) {
    ReadList(Freq, {L"FREQTRACK:M,100", L"FREQTRACK:G,T,40,0,1"});
    EXPECT_EQ(RecordAt<aceTrackFreq>(1, Freq).MoniName, L"M");
    EXPECT_EQ(RecordAt<aceTrackFreq>(1, Freq).DelayTime, 100);
    EXPECT_EQ(RecordAt<aceTrackFreq>(1, Freq).GenName, L"G");
}

TEST_F(ActionLine, NotifyRecordsInheritFromLineToLine) {
    ReadList(Enter, {L"COMMENT:1", L"NOTIFY:text,file,1", L"MSG:other", L"SOUND:gone"});
    EXPECT_TRUE(RecordAt<aceNotify>(1).GeneratorOff);
    EXPECT_EQ(RecordAt<aceNotify>(2).WaveFile, L"file");
    EXPECT_TRUE(RecordAt<aceNotify>(2).Beep);
    EXPECT_EQ(RecordAt<aceNotify>(3).Message, L"other");
}

TEST_F(ActionLine, InheritanceGoesInFileOrderOverAllLists) {
    Read({L"LeaveAction1=SETDEV:A,101,X", L"NumOfEnterActions=1", L"NumOfLeaveActions=1",
          L"EnterAction1=SETDEV:B,102"});
    EXPECT_EQ(RecordAt<aceSetDevice>(0).SigPathName, L"X");
}

TEST_F(ActionLine, WorkingRecordsAreResetOncePerSection) {
    ReadList(Enter, {L"SETDEV:A,101,X", L"NOTIFY:text,file,1", L"COMMENT:1", L"API:m||1"});
    ReadList(Enter, {L"SETDEV:B,102", L"MSG:m", L"DLL:p"});
    EXPECT_EQ(RecordAt<aceSetDevice>(0).SigPathName, L"");
    EXPECT_EQ(RecordAt<aceNotify>(1).WaveFile, L"");
    EXPECT_FALSE(RecordAt<aceNotify>(1).GeneratorOff);
    EXPECT_EQ(context.ReaderRecords.Api.Program, L"");
    EXPECT_EQ(context.ReaderRecords.Api.Parameters.UpperBound(), 0);
}

/// Left in the record by an action that ran, they would reach the next command of any test.
TEST_F(ActionLine, ARecordThatComesFromALineHasNoReplaceVariables) {
    aceVKSVar left;
    left.count = 1;
    left.strSearch.Redim(0, 0);
    left.strSearch[0] = L"#FREQ#";
    left.valReplace.Redim(0, 0);
    left.valReplace[0] = 5.0;
    WorkingRecords& records = context.ReaderRecords;
    records.Api.vks = records.Notify.vks = records.Remote.vks = left;
    ReadList(Enter, {L"API:m", L"NOTIFY:at #FREQ#,,0", L"REMOTE:F #FREQ#,0,5,0,,0,"});
    EXPECT_EQ(RecordAt<aceAPI>(0).vks, aceVKSVar());
    EXPECT_EQ(RecordAt<aceNotify>(1).vks, aceVKSVar());
    EXPECT_EQ(RecordAt<aceRemote>(2).vks, aceVKSVar());
}

TEST_F(ActionLine, ASectionBeginsWithAnEmptyTcpIpHost) {
    ReadList(Enter, {L"REMOTE:A,2,192.168.17.21,5025:0,,0,"});
    ReadList(Enter, {L"REMOTE:A,0,5,0,,0,"});
    EXPECT_EQ(RecordAt<aceRemote>(0).TcpHost, L"");
}

TEST_F(ActionLine, AnEmptySectionResetsTheWorkingRecordsToo) {
    context.ReaderRecords.Remote.Program = L"left";
    Read({});
    EXPECT_EQ(context.ReaderRecords.Remote.Program, L"");
}

TEST_F(ActionLine, ASkippedLineLeavesTheWorkingRecordsAlone) {
    Read({L"NumOfEnterActions=1", L"NumOfLeaveActions=1", L"LeaveAction1=QUESTION:from leave,,1",
          L"EnterAction1=SOUND:"});
    EXPECT_EQ(RecordAt<aceNotify>(0).Message, L"");
}

TEST_F(ActionLine, TheLaterOfTwoLinesWithOneNumberWins) {
    Read({L"NumOfEnterActions=1", L"EnterAction1=WAIT:5", L"EnterAction1=STOP:"});
    EXPECT_EQ(Entry(0).ActionType, atTestStop);
    EXPECT_EQ(Entry(0).Parameter, ActionParameter(aceWait{5.0}));
    Read({L"NumOfEnterActions=1", L"EnterAction1=STOP:", L"EnterAction1=API:m",
          L"EnterAction1=WAIT:5"});
    EXPECT_EQ(Entry(0), Action(atWait, aceWait{5.0}));
}

TEST_F(ActionLine, AMissingCountLineLeavesTheListAsItWas) {
    test::Fill(target, MlcList, {Action(atTestStop)});
    test::Fill(target, LeaveList, {Action(atGotoSingle)});
    Read({L"NumOfEnterActions=1", L"MLLeaAction1=WAIT:2"});
    EXPECT_EQ(target.LeaveCount, 1);
    EXPECT_EQ(Entry(0, Leave), Action(atGotoSingle));
    EXPECT_EQ(Entry(0, Mlc), Action(atWait, aceWait{2.0}));
}

TEST_F(ActionLine, ARepeatedCountLineMakesTheListAnew) {
    Read({L"NumOfEnterActions=3", L"EnterAction1=STOP:", L"NumOfEnterActions=2"});
    EXPECT_EQ(target.EnterCount, 2);
    EXPECT_EQ(target.Enter.UpperBound(), 1);
    EXPECT_EQ(Entry(0), Action(atTestStop));
    EXPECT_EQ(Entry(1), p_Action());
}

TEST_F(ActionLine, ACountIsReadAsARoundedNumber) {
    Read({L"NumOfEnterActions= 2.5 entries", L"NumOfMlcActions=3.5"});
    EXPECT_EQ(target.EnterCount, 2);
    EXPECT_EQ(target.MlcCount, 4);
}

TEST_F(ActionLine, ForeignKeysAndUnknownKeywordsAreSkipped) {
    Read({L"NumOfEnterActions=1", L"Remark=changed: yesterday", L"EnterAction1=RS232:MODE RUN,3",
          L"EnterAction1=TCPIP:x", L"EnterAction99=RS232:x", L"EnterAction=TCPIP:x",
          L"Enter Action1=STOP:", L" EnterAction1=STOP:", L"EnterActio=STOP:", L"", L"x"});
    EXPECT_EQ(target.EnterCount, 1);
    EXPECT_EQ(Entry(0), p_Action());
}

TEST_F(ActionLine, ABlankBeforeTheKeywordMakesItUnknown) {
    ReadList(Enter, {L" STOP:", L"STOP :", L"STOP:"});
    EXPECT_EQ(Entry(0), p_Action());
    EXPECT_EQ(Entry(1), p_Action());
    EXPECT_EQ(Entry(2), Action(atTestStop));
}

TEST_F(ActionLine, TheNumberInAKeyIsReadLikeAnyNumber) {
    Read({L"NumOfEnterActions=3", L"EnterAction 2x=STOP:", L"EnterAction03=GOTOSGL:",
          L"EnterAction1.25=STPLEV:"});
    EXPECT_EQ(Entry(0), Action(atStopLevSweep));
    EXPECT_EQ(Entry(1), Action(atTestStop));
    EXPECT_EQ(Entry(2), Action(atGotoSingle));
}

TEST_F(ActionLine, ListsAreWrittenInTheirOrderEachUnderItsCountLine) {
    p_Subrange source = SetWith(Action(atTestStop), Mlc);
    test::Fill(source, FreqList, {Action(atWait, aceWait{5}), Action(atProtRec)});
    test::Fill(source, EnterList, {Action(atParkAcc)});
    Written(source);
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"),
                ElementsAre(L"SettingsFile.SetSection(\"S\", "
                            L"\"NumOfEnterActions=1\\r\\nEnterAction1=PARKACC:\\r\\n"
                            L"NumOfFreqActions=2\\r\\nFrequAction1=WAIT:5.000\\r\\n"
                            L"FrequAction2=PROTREC:\\r\\n"
                            L"NumOfMlcActions=1\\r\\nMLLeaAction1=STOP:\\r\\n\")",
                            L"SettingsFile.Release()"));
}

TEST_F(ActionLine, ASetWithoutActionsIsWrittenAsTheEmptyText) {
    p_Subrange source;
    source.EnterCount = -1;
    Written(source);
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"),
                ElementsAre(L"SettingsFile.SetSection(\"S\", \"\")", L"SettingsFile.Release()"));
}

TEST_F(ActionLine, AKindOutsideTheKindsLeavesTheKeyAlone) {
    EXPECT_EQ(WrittenAs(Action(static_cast<p_ActionTypes>(18))), L"");
    EXPECT_EQ(WrittenAs(Action(static_cast<p_ActionTypes>(-1)), Mlc), L"");
}

TEST_F(ActionLine, WriteSectionAnswersNothingForNoEntriesAndForAnUnknownList) {
    const p_Subrange set = SetWith(Action(atTestStop));
    const auto written = [&](std::int32_t count, std::int32_t list) {
        return modActions::WriteSection(context, set.Enter, count, list);
    };
    EXPECT_EQ(written(0, 1), Value());
    EXPECT_EQ(written(-1, 1), Value());
    EXPECT_EQ(written(1, 0), Value());
    EXPECT_EQ(written(1, 5), Value());
    const auto lines = std::get<DynArray<String>>(written(1, 4));
    EXPECT_EQ(lines.LowerBound(), 0);
    EXPECT_EQ(lines.UpperBound(), 1);
    EXPECT_EQ(lines[0], L"NumOfMlcActions=1");
    EXPECT_EQ(lines[1], L"MLLeaAction1=STOP:");
}

}  // namespace
}  // namespace ace
