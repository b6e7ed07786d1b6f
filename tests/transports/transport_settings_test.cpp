#include "workbench/transports/transport_settings.h"

#include <cstring>

#include "support/file_fixture.h"
#include "workbench/files/disk_settings_file.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class TransportSettingsTest : public FolderTest {
  protected:
    TransportSettings ReadText(const std::string& text) {
        Write("workbench.ini", text);
        return ReadTransportSettings(*SettingsFiles().Open(WidePath("workbench.ini")));
    }
    RunTimeError ErrorOf(const std::string& text) {
        return ErrorIn([&] { ReadText(text); });
    }
};

TEST_F(TransportSettingsTest, AnEmptyFileGivesTheDefaults) {
    const TransportSettings settings = ReadText("");
    EXPECT_EQ(settings.tcp.connect, Milliseconds{5000});
    EXPECT_EQ(settings.tcp.write, Milliseconds{5000});
    EXPECT_EQ(settings.serialStall, Milliseconds{5000});
    EXPECT_THAT(settings.serialDevices, IsEmpty());
    EXPECT_EQ(settings.gpibLibrary, "");
    EXPECT_EQ(settings.macroSync, "MacroSync.ini");
    EXPECT_EQ(settings.soundPlayer, L"");
}

TEST_F(TransportSettingsTest, EveryKeyIsRead) {
    const TransportSettings settings = ReadText(
        "[Tcp]\nConnectTimeoutMs=1\nWriteTimeoutMs=3600000\n"
        "[Serial]\nWriteTimeoutMs=250\n"
        "[SerialPorts]\n; the rack\nCOM3=/dev/ttyUSB0\n com12 = /dev/my line \n#COM4=x\n\n"
        "[Gpib]\nLibrary= /opt/bus/libgpib.so\n"
        "[MacroSync]\nFile=/srv/MacroSync.ini\n[Sound]\nPlayer=play -q\n");
    EXPECT_EQ(settings.tcp.connect, Milliseconds{1});
    EXPECT_EQ(settings.tcp.write, Milliseconds{3600000});
    EXPECT_EQ(settings.serialStall, Milliseconds{250});
    EXPECT_THAT(settings.serialDevices,
                ElementsAre(Pair(3, "/dev/ttyUSB0"), Pair(12, "/dev/my line")));
    EXPECT_EQ(settings.gpibLibrary, "/opt/bus/libgpib.so");
    EXPECT_EQ(settings.macroSync, "/srv/MacroSync.ini");
    EXPECT_EQ(settings.soundPlayer, L"play -q");
}

TEST_F(TransportSettingsTest, KeyThatItsSectionDoesNotHaveIsAnErrorThatNamesIt) {
    const RunTimeError error = ErrorOf("[Tcp]\n; times\n\nconnecttimeoutms=1\nWriteTimoutMs=2\n");
    EXPECT_EQ(error.Number(), TransportErrors::BadConfiguration);
    EXPECT_EQ(error.Description(),
              L"configuration, [Tcp]: \"WriteTimoutMs\" is no key of this section");
    EXPECT_EQ(
        ErrorOf("[OtaMeasurements]\nActionSyncTimeOuts=3\n").Description(),
        L"configuration, [OtaMeasurements]: \"ActionSyncTimeOuts\" is no key of this section");
}

TEST_F(TransportSettingsTest, SectionOfSomebodyElseIsNobodysBusiness) {
    EXPECT_EQ(ReadText("[Window]\nLeft=3\n").tcp.write, Milliseconds{5000});
}

TEST_F(TransportSettingsTest, OfTwoLinesForAPortTheFirstHolds) {
    EXPECT_THAT(ReadText("[SerialPorts]\nCOM3=a\nCOM3=b\n").serialDevices,
                ElementsAre(Pair(3, "a")));
}

TEST_F(TransportSettingsTest, ATimeOutOfRangeIsAnErrorThatNamesTheKey) {
    for (const char* time : {"0", "-1", "3600001"}) {
        const RunTimeError error = ErrorOf("[Tcp]\nWriteTimeoutMs=" + std::string(time) + "\n");
        EXPECT_EQ(error.Number(), TransportErrors::BadConfiguration);
        EXPECT_EQ(error.Description(), L"configuration, [Tcp] WriteTimeoutMs: " +
                                           String(time, time + std::strlen(time)) +
                                           L" is not a time from 1 to 3600000 milliseconds");
    }
}

TEST_F(TransportSettingsTest, ATimeThatIsNoNumberIsTheErrorOfTheFile) {
    EXPECT_EQ(ErrorOf("[Serial]\nWriteTimeoutMs=soon\n").Number(), 13);
}

TEST_F(TransportSettingsTest, ALineThatMapsNoPortIsAnError) {
    for (const char* line : {"COM3", "COM3=", "COM=x", "COM0=x", "COM32768=x", "COM3x=x", "3=x",
                             "TTY3=x", "COM99999999999=x"}) {
        EXPECT_EQ(ErrorOf("[SerialPorts]\n" + std::string(line) + "\n").Number(),
                  TransportErrors::BadConfiguration)
            << line;
    }
    EXPECT_THAT(ReadText("[SerialPorts]\nCOM32767=x\n").serialDevices,
                ElementsAre(Pair(32767, "x")));
}

}  // namespace
}  // namespace ace::workbench
