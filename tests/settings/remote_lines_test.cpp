#include "settings/section_fixture.h"

namespace ace {
namespace {

struct RemoteLines : test::SectionTest {
    static aceRemote Sent(std::int32_t iface) {
        aceRemote record;
        record.Command = L"*IDN?";
        record.Iface = iface;
        record.ProgID = -1.0;
        return record;
    }
};

TEST_F(RemoteLines, ACommandOverTheBus) {
    aceRemote expected = Sent(0);
    expected.GpibAddress = 20;
    expected.Terminator = 1;
    ReadList(Enter, {L"REMOTE:*IDN?,0,20,1,,0,"});
    EXPECT_EQ(RecordAt<aceRemote>(0), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"REMOTE:*IDN?,0,20,1,,0,");
}

TEST_F(RemoteLines, ACommandOverTheSerialPort) {
    aceRemote expected = Sent(1);
    expected.SerComPort = 4;
    expected.Terminator = 2;
    ReadList(Leave, {L"REMOTE:*IDN?,1,4,2,,0,"});
    EXPECT_EQ(RecordAt<aceRemote>(0, Leave), expected);
    EXPECT_EQ(WrittenAs(Entry(0, Leave), Leave), L"REMOTE:*IDN?,1,4,2,,0,");
}

TEST_F(RemoteLines, ACommandOverTheNetwork) {
    aceRemote expected = Sent(2);
    expected.TcpHost = L"192.168.17.21";
    expected.TcpPort = 5025;
    expected.Terminator = 10;
    ReadList(Enter, {L"REMOTE:*IDN?,2,192.168.17.21,5025:10,,0,"});
    EXPECT_EQ(RecordAt<aceRemote>(0), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"REMOTE:*IDN?,2,192.168.17.21,5025:10,,0,");
}

TEST_F(RemoteLines, AProgramStart) {
    aceRemote expected;
    expected.Program = L"c:\\run.exe";
    expected.WaitPrgSync = true;
    expected.ProgID = -1.0;
    ReadList(Enter, {L"REMOTE:,,,,c:\\run.exe,1,"});
    EXPECT_EQ(RecordAt<aceRemote>(0), expected);
    EXPECT_EQ(WrittenAs(Entry(0)), L"REMOTE:,,,,c:\\run.exe,1,");
}

TEST_F(RemoteLines, ACommandAndAProgramInOneLine) {
    ReadList(Enter, {L"REMOTE:*RST,0,20,1,c:\\run.exe,1,"});
    EXPECT_EQ(RecordAt<aceRemote>(0).Command, L"*RST");
    EXPECT_EQ(RecordAt<aceRemote>(0).Program, L"c:\\run.exe");
    EXPECT_TRUE(RecordAt<aceRemote>(0).WaitPrgSync);
    EXPECT_EQ(WrittenAs(Entry(0)), L"REMOTE:*RST,0,20,1,c:\\run.exe,1,");
}

TEST_F(RemoteLines, CommasOfACommandAreEscapedAndItsLineEndsAreNot) {
    aceRemote record = Sent(0);
    record.Command = L"CONF 1,2\r\nREAD";
    EXPECT_EQ(WrittenAs(test::Action(atRemote, record)),
              L"REMOTE:CONF 1\x01"
              L"2\r\nREAD,0,0,0,,0,");
    ReadList(Enter, {L"REMOTE:CONF 1\x01"
                     L"2\x7f,0,20,1,,0,"});
    EXPECT_EQ(RecordAt<aceRemote>(0).Command, L"CONF 1,2\x7f");
}

TEST_F(RemoteLines, AnyOtherTransportMovesTheProgramWhereTheReaderDoesNotLook) {
    aceRemote record = Sent(7);
    record.Program = L"c:\\run.exe";
    record.WaitPrgSync = true;
    const String line = L"REMOTE:*IDN?,7,,,,,c:\\run.exe,1,";
    EXPECT_EQ(WrittenAs(test::Action(atRemote, record)), line);
    ReadList(Enter, {line});
    EXPECT_EQ(RecordAt<aceRemote>(0).Iface, 7);
    EXPECT_EQ(RecordAt<aceRemote>(0).Program, L"");
    EXPECT_FALSE(RecordAt<aceRemote>(0).WaitPrgSync);
}

TEST_F(RemoteLines, ATcpIpTerminatorIsReadInTheFirstListOnly) {
    const String lines[] = {L"REMOTE:A,1,4,3,,0,", L"REMOTE:B,2,host,5025:10,,0,"};
    ReadList(Enter, {lines[0], lines[1]});
    EXPECT_EQ(RecordAt<aceRemote>(1).TcpPort, 5025);
    EXPECT_EQ(RecordAt<aceRemote>(1).Terminator, 10);
    EXPECT_EQ(WrittenAs(Entry(1)), lines[1]);
    for (const std::size_t list : {Leave, Freq, Mlc}) {
        ReadList(list, {lines[0], lines[1]});
        EXPECT_EQ(RecordAt<aceRemote>(1, list).TcpPort, 5025);
        EXPECT_EQ(RecordAt<aceRemote>(1, list).Terminator, 3);
        ReadList(list, {lines[1]});
        EXPECT_EQ(RecordAt<aceRemote>(0, list).Terminator, 0);
    }
}

TEST_F(RemoteLines, ATcpIpPortWithoutTerminatorHasTerminatorZeroInTheFirstList) {
    ReadList(Enter, {L"REMOTE:A,1,4,3,,0,", L"REMOTE:B,2,host,5025,,0,"});
    EXPECT_EQ(RecordAt<aceRemote>(1).TcpPort, 5025);
    EXPECT_EQ(RecordAt<aceRemote>(1).Terminator, 0);
}

TEST_F(RemoteLines, AnEmptyCommandKeepsTransportAddressesAndTerminator) {
    ReadList(Enter, {L"REMOTE:A,1,4,3,,0,", L"REMOTE:,9,9,9,prog,0,"});
    const aceRemote& read = RecordAt<aceRemote>(1);
    EXPECT_EQ(read.Command, L"");
    EXPECT_EQ(read.Iface, 1);
    EXPECT_EQ(read.SerComPort, 4);
    EXPECT_EQ(read.Terminator, 3);
    EXPECT_EQ(read.Program, L"prog");
}

TEST_F(RemoteLines, ALineOfFiveFieldsKeepsWhetherToWaitForTheProgram) {
    ReadList(Enter, {L"REMOTE:,,,,one,1,", L"REMOTE:,,,,two", L"REMOTE:,,,,three,"});
    EXPECT_TRUE(RecordAt<aceRemote>(1).WaitPrgSync);
    EXPECT_EQ(RecordAt<aceRemote>(1).Program, L"two");
    EXPECT_FALSE(RecordAt<aceRemote>(2).WaitPrgSync);
}

TEST_F(RemoteLines, AnOldBusLineTakesAllBehindItsSecondComma) {
    aceRemote expected;
    expected.GpibAddress = 20;
    expected.Terminator = 1;
    expected.Command = L"CONF 1,2 \x01 :X";
    ReadList(Leave, {L"GPIB:20,1,CONF 1,2 \x01 :X"});
    EXPECT_EQ(RecordAt<aceRemote>(0, Leave), expected);
    EXPECT_EQ(RecordAt<aceRemote>(0, Leave).ProgID, 0.0);
    ReadList(Enter, {L"GPIB:,,"});
    EXPECT_EQ(RecordAt<aceRemote>(0), aceRemote());
}

TEST_F(RemoteLines, AnOldProgramLineTakesItsWholeValue) {
    aceRemote expected;
    expected.Program = L"c:\\run.exe /a,b:c";
    expected.ProgID = -1.0;
    ReadList(Enter, {L"DLL:c:\\run.exe /a,b:c"});
    EXPECT_EQ(RecordAt<aceRemote>(0), expected);
}

TEST_F(RemoteLines, OldLinesKeepWhatTheLineBeforeLeft) {
    ReadList(Enter, {L"REMOTE:CMD,1,4,2,,1,", L"DLL:prog", L"GPIB:20,1,*RST"});
    EXPECT_EQ(RecordAt<aceRemote>(1).Command, L"CMD");
    EXPECT_EQ(RecordAt<aceRemote>(1).Program, L"prog");
    EXPECT_TRUE(RecordAt<aceRemote>(1).WaitPrgSync);
    EXPECT_EQ(RecordAt<aceRemote>(2).Program, L"prog");
    EXPECT_EQ(RecordAt<aceRemote>(2).ProgID, -1.0);
    EXPECT_EQ(RecordAt<aceRemote>(2).SerComPort, 4);
    EXPECT_EQ(RecordAt<aceRemote>(2).Iface, 0);
}

}  // namespace
}  // namespace ace
