#include "settings/section_fixture.h"

namespace ace {
namespace {

struct RecordLines : test::SectionTest {
    /// The record that one line gives in a section of its own.
    template <class Record>
    Record ReadOne(const String& value, std::size_t list = Enter) {
        ReadList(list, {value});
        EXPECT_FALSE(Entry(0, list).IgnoreErr);
        return RecordAt<Record>(0, list);
    }
    aceSetDevice ResetDevice() {
        aceSetDevice record;
        record.UseTimeCyc = true;
        record.CycleTime = 20.0;
        record.WaitTime = 10.0F;
        record.AmpState = 2;
        return record;
    }
};

TEST_F(RecordLines, Wait) {
    EXPECT_EQ(ReadOne<aceWait>(L"WAIT:1500.250").Time, 1500.25);
    EXPECT_EQ(ReadOne<aceWait>(L"WAIT: 7 s").Time, 7.0);
    EXPECT_EQ(ReadOne<aceWait>(L"WAIT:").Time, 0.0);
    EXPECT_EQ(ReadOne<aceWait>(L"WAIT:1,5").Time, 1.0);
}

TEST_F(RecordLines, ApiParametersCountFromOne) {
    const aceAPI read = ReadOne<aceAPI>(L"API:c:\\m.mac||#FREQ#||||a,b:c");
    EXPECT_EQ(read.Program, L"c:\\m.mac");
    ASSERT_EQ(read.Parameters.LowerBound(), 1);
    ASSERT_EQ(read.Parameters.UpperBound(), 3);
    EXPECT_EQ(read.Parameters[1], L"#FREQ#");
    EXPECT_EQ(read.Parameters[2], L"");
    EXPECT_EQ(read.Parameters[3], L"a,b:c");
    EXPECT_EQ(WrittenAs(Entry(0)), L"API:c:\\m.mac||#FREQ#||||a,b:c");
}

TEST_F(RecordLines, ApiWithoutParametersHasOneEmptyElementAtZero) {
    ReadList(Enter, {L"API:m||1||2", L"API:n", L"API:o||3", L"API:|p|"});
    const auto& none = RecordAt<aceAPI>(1).Parameters;
    EXPECT_EQ(none.LowerBound(), 0);
    EXPECT_EQ(none.UpperBound(), 0);
    EXPECT_EQ(none[0], L"");
    EXPECT_EQ(WrittenAs(Entry(1)), L"API:n");
    EXPECT_EQ(RecordAt<aceAPI>(2).Parameters.LowerBound(), 1);
    EXPECT_EQ(RecordAt<aceAPI>(2).Parameters.UpperBound(), 1);
    EXPECT_EQ(RecordAt<aceAPI>(3).Program, L"|p|");
}

/// The working record keeps its array from line to line: neither size nor texts may stay.
TEST_F(RecordLines, TwoMacroLinesWithParametersInOneSectionHaveTheirOwn) {
    ReadList(Enter, {L"API:m||1||2||3", L"API:n||4", L"API:o||5||6"});
    const auto parameters = [&](std::int32_t entry) {
        const auto& read = RecordAt<aceAPI>(entry).Parameters;
        EXPECT_EQ(read.LowerBound(), 1);
        return std::vector<String>(read.begin(), read.end());
    };
    EXPECT_THAT(parameters(0), testing::ElementsAre(L"1", L"2", L"3"));
    EXPECT_THAT(parameters(1), testing::ElementsAre(L"4"));
    EXPECT_THAT(parameters(2), testing::ElementsAre(L"5", L"6"));
}

TEST_F(RecordLines, ThreeBarsSplitAfterTheFirstTwo) {
    const aceAPI read = ReadOne<aceAPI>(L"API:m|||x");
    EXPECT_EQ(read.Program, L"m");
    EXPECT_EQ(read.Parameters[1], L"|x");
}

TEST_F(RecordLines, NotifyAndQuestion) {
    for (const p_ActionTypes kind : {atNotify, atQuestion}) {
        const String word = kind == atNotify ? L"NOTIFY:" : L"QUESTION:";
        ReadList(Enter, {word + L"two\x7flines\x01 a comma,c:\\a.wav,1"});
        const aceNotify& read = RecordAt<aceNotify>(0);
        EXPECT_EQ(Entry(0).ActionType, kind);
        EXPECT_EQ(read.Message, L"two\r\nlines, a comma");
        EXPECT_EQ(read.WaveFile, L"c:\\a.wav");
        EXPECT_TRUE(read.Beep);
        EXPECT_EQ(WrittenAs(Entry(0)), word + L"two\x7flines\x01 a comma,c:\\a.wav,1");
    }
}

TEST_F(RecordLines, AFlagIsTrueOnlyForExactlyOne) {
    EXPECT_TRUE(ReadOne<aceNotify>(L"NOTIFY:t,,1").Beep);
    for (const StringView flag : {L"0", L"", L"-1", L"1 ", L" 1", L"true", L"2"}) {
        EXPECT_FALSE(ReadOne<aceNotify>(L"NOTIFY:t,," + String(flag)).Beep);
    }
}

TEST_F(RecordLines, OnlyWholeLineEndsOfAMessageAreEscaped) {
    aceNotify record;
    record.Message = L"a\rb\nc\r\nd";
    EXPECT_EQ(WrittenAs(test::Action(atNotify, record)),
              L"NOTIFY:a\rb\nc\x7f"
              L"d,,0");
}

TEST_F(RecordLines, ACommentReadsANumberAsItsFlagAndEmptiesTheRest) {
    const StringView values[] = {L"1", L"-1", L"0.5", L"2 generators"};
    for (const StringView value : values) {
        EXPECT_TRUE(ReadOne<aceNotify>(L"COMMENT:" + String(value)).GeneratorOff);
    }
    EXPECT_FALSE(ReadOne<aceNotify>(L"COMMENT:0").GeneratorOff);
    EXPECT_FALSE(ReadOne<aceNotify>(L"COMMENT:").GeneratorOff);
    EXPECT_FALSE(ReadOne<aceNotify>(L"COMMENT:true").GeneratorOff);
    aceNotify record;
    record.Message = L"never stored";
    record.GeneratorOff = true;
    EXPECT_EQ(WrittenAs(test::Action(atComment, record)), L"COMMENT:1");
}

TEST_F(RecordLines, ACommentHasNoTextSoundOrBeepWhateverStoodAroundIt) {
    ReadList(Enter, {L"NOTIFY:text,file,1", L"COMMENT:0", L"COMMENT:1,text,file,1"});
    for (const std::int32_t i : {1, 2}) {
        const aceNotify& comment = RecordAt<aceNotify>(i);
        EXPECT_EQ(comment.Message, L"");
        EXPECT_EQ(comment.WaveFile, L"");
        EXPECT_FALSE(comment.Beep);
    }
}

TEST_F(RecordLines, AnOldMessageIsTakenAsItStands) {
    const aceNotify read = ReadOne<aceNotify>(L"MSG:Cameras on, \x01 and \x7f, EUT: run?");
    EXPECT_EQ(read.Message, L"Cameras on, \x01 and \x7f, EUT: run?");
    EXPECT_EQ(read.WaveFile, L"");
    EXPECT_FALSE(read.Beep);
}

TEST_F(RecordLines, ASoundThatCanNotBeFoundTurnsIntoABeep) {
    host->usableFiles = {L"c:\\there.wav"};
    ReadList(Enter, {L"SOUND:c:\\there.wav", L"SOUND:c:\\gone.wav", L"SOUND:"});
    EXPECT_EQ(RecordAt<aceNotify>(0).WaveFile, L"c:\\there.wav");
    EXPECT_FALSE(RecordAt<aceNotify>(0).Beep);
    EXPECT_EQ(RecordAt<aceNotify>(1).WaveFile, L"c:\\gone.wav");
    EXPECT_TRUE(RecordAt<aceNotify>(1).Beep);
    EXPECT_EQ(RecordAt<aceNotify>(2).WaveFile, L"");
    EXPECT_TRUE(RecordAt<aceNotify>(2).Beep);
    EXPECT_THAT(
        host->journal.LinesOf(L"SystemServices"),
        testing::ElementsAre(L"SystemServices.FileIsUsable(\"c:\\there.wav\", true, false)",
                             L"SystemServices.FileIsUsable(\"c:\\gone.wav\", true, false)"));
}

TEST_F(RecordLines, SetDevice) {
    aceSetDevice expected = ResetDevice();
    expected.DevName = L"BC Generator";
    expected.ChanNo = 103;
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SETDEV:BC Generator,103"), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"SETDEV:BC Generator,103");
    expected.SigPathName = L"Path FM";
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SETDEV:BC Generator,103,Path FM"), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"SETDEV:BC Generator,103,Path FM");
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SETDEV:BC Generator,103,Path FM,more"), expected);
    expected.ChanNo = -3;
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SETDEV:BC Generator,-3,Path FM"), expected);
}

TEST_F(RecordLines, CheckAndMonitorOfTheEquipment) {
    aceSetDevice expected = ResetDevice();
    expected.DevName = L"Monitor";
    expected.ChanNo = 102;
    expected.StopTest = expected.Notify = expected.WaitState = expected.LoadingPos = true;
    expected.UseTimeCyc = false;
    expected.CycleTime = 20.5;
    expected.WaitTime = 10.25F;
    expected.LastCheck = -1.0F;
    for (const String word : {L"CHECKEUT:", L"MONITOREUT:"}) {
        EXPECT_EQ(ReadOne<aceSetDevice>(word + L"Monitor,102,1,0,1,0,20.5,1,10.25,1"), expected);
        EXPECT_EQ(WrittenAs(Entry(0)), word + L"Monitor,102,1,0,1,0,20.50,1,10.25,1");
        EXPECT_EQ(ReadOne<aceSetDevice>(word + L"Monitor,102,1,0,1,0,20.5,1,10.25,-1,x"), expected);
    }
}

TEST_F(RecordLines, TimesOfACheckShowTwoDecimalsAndAPointOnEveryLocale) {
    host->decimalSeparator = L',';
    aceSetDevice record = ResetDevice();
    record.DevName = L"M";
    EXPECT_EQ(WrittenAs(test::Action(atCheckEut, record)), L"CHECKEUT:M,0,0,0,0,1,20.00,0,10.00,0");
}

TEST_F(RecordLines, SwitchAmp) {
    aceSetDevice expected = ResetDevice();
    expected.DevName = L"Amp 250W";
    expected.AmpState = 3;
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SWITCHAMP:Amp 250W,3"), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"SWITCHAMP:Amp 250W,3");
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SWITCHAMP:Amp 250W,3,4"), expected);
}

TEST_F(RecordLines, SwitchUnit) {
    aceSetDevice expected = ResetDevice();
    expected.DevName = L"RF Matrix A";
    expected.Path = L"GEN-AMP1";
    EXPECT_EQ(ReadOne<aceSetDevice>(L"SWITCHUNIT:RF Matrix A,GEN-AMP1"), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"SWITCHUNIT:RF Matrix A,GEN-AMP1");
}

TEST_F(RecordLines, TrackAMonitoringDevice) {
    aceTrackFreq expected;
    expected.TableType = 40;
    expected.MoniName = L"CAN Receiver";
    expected.DelayTime = 100;
    for (const StringView more : {L"", L",x", L",x,y"}) {
        const String value = L"FREQTRACK:CAN Receiver,100" + String(more);
        EXPECT_EQ(ReadOne<aceTrackFreq>(value, Freq), expected);
    }
    EXPECT_EQ(WrittenAs(Entry(0, Freq), Freq), L"FREQTRACK:CAN Receiver,100");
}

TEST_F(RecordLines, SynchroniseAGenerator) {
    aceTrackFreq expected;
    expected.GenName = L"RF Gen 2";
    expected.TableName = L"Level 10Vm";
    expected.TableType = 41;
    expected.TableMeasClass = 2;
    expected.AskOnMeasStart = true;
    for (const String word : {L"FREQTRACK:", L"SYNCGEN:"}) {
        const String value = word + L"RF Gen 2,Level 10Vm,41,2,1";
        expected.SigPathName = L"";
        EXPECT_EQ(ReadOne<aceTrackFreq>(value, Freq), expected);
        EXPECT_EQ(WrittenAs(Entry(0, Freq), Freq), L"FREQTRACK:RF Gen 2,Level 10Vm,41,2,1");
        expected.SigPathName = L"Path 1";
        EXPECT_EQ(ReadOne<aceTrackFreq>(value + L",Path 1", Freq), expected);
        EXPECT_EQ(WrittenAs(Entry(0, Freq), Freq), L"FREQTRACK:RF Gen 2,Level 10Vm,41,2,1,Path 1");
    }
}

TEST_F(RecordLines, AGeneratorLineTakesAPathOnlyFromExactlySixFields) {
    ReadList(Freq, {L"FREQTRACK:G,T,40,0,true,Path", L"FREQTRACK:G,T,40,0,FALSE",
                    L"FREQTRACK:G,T,40,0,1,Path", L"FREQTRACK:G,T,40,0,0,Path,x"});
    EXPECT_EQ(RecordAt<aceTrackFreq>(0, Freq).SigPathName, L"Path");
    EXPECT_TRUE(RecordAt<aceTrackFreq>(0, Freq).AskOnMeasStart);
    EXPECT_EQ(RecordAt<aceTrackFreq>(1, Freq).SigPathName, L"");
    EXPECT_FALSE(RecordAt<aceTrackFreq>(1, Freq).AskOnMeasStart);
    EXPECT_EQ(RecordAt<aceTrackFreq>(2, Freq).SigPathName, L"Path");
    EXPECT_EQ(RecordAt<aceTrackFreq>(3, Freq).SigPathName, L"");
}

TEST_F(RecordLines, TheKindsWithoutRecordIgnoreAnyValue) {
    const String words[] = {L"STOP:",    L"STPLEV:",  L"GOTOSGL:",
                            L"PROTREC:", L"NBBETSI:", L"PARKACC:"};
    for (const String& word : words) {
        ReadList(Enter, {word + L"what,ever"});
        EXPECT_EQ(Entry(0).Parameter, ActionParameter());
        EXPECT_EQ(WrittenAs(Entry(0)), word);
    }
}

}  // namespace
}  // namespace ace
