#include "workbench/transports/transport_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/refusal.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TransportSettings ReadText(const std::string& text) {
    return ReadTransportSettings(SettingsDocument(text), L"w.ini");
}
std::string ErrorOf(const std::string& text) {
    return RefusalOf([&] { ReadText(text); });
}

TEST(TransportSettings, AnEmptyFileGivesTheDefaults) {
    const TransportSettings settings = ReadText("");
    EXPECT_EQ(settings.tcp.connect, Milliseconds{5000});
    EXPECT_EQ(settings.tcp.write, Milliseconds{5000});
    EXPECT_EQ(settings.serialStall, Milliseconds{5000});
    EXPECT_THAT(settings.serialDevices, IsEmpty());
    EXPECT_EQ(settings.gpibLibrary, "");
    EXPECT_EQ(settings.macroSync, "MacroSync.ini");
    EXPECT_EQ(settings.soundPlayer, L"");
}

TEST(TransportSettings, EveryKeyIsRead) {
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

TEST(TransportSettings, KeyThatItsSectionDoesNotHaveIsAnErrorThatNamesItsLine) {
    EXPECT_EQ(ErrorOf("[Tcp]\n; times\n\nconnecttimeoutms=1\nWriteTimoutMs=2\n"),
              "4 w.ini:5: [Tcp]: \"WriteTimoutMs\" is no key of this section");
    EXPECT_EQ(ErrorOf("\n[OtaMeasurements]\nActionSyncTimeOuts=3\n"),
              "4 w.ini:3: [OtaMeasurements]: \"ActionSyncTimeOuts\" is no key of this section");
}

TEST(TransportSettings, SectionThatNobodyReadsIsAnErrorThatNamesItsLine) {
    EXPECT_EQ(ErrorOf("; mine\n[Tcpp]\nConnectTimeoutMs=3\n"),
              "4 w.ini:2: [Tcpp] is no section of the configuration, which has Tcp, Serial, "
              "SerialPorts, Gpib, MacroSync, Sound, OtaMeasurements");
}

TEST(TransportSettings, WhatStandsTwiceIsAnErrorBecauseOnlyOneOfThemCouldHold) {
    EXPECT_EQ(ErrorOf("[SerialPorts]\nCOM3=a\nCOM4=a\ncom3=b\n"),
              "4 w.ini:4: [SerialPorts]: COM3 stands here twice");
    EXPECT_EQ(ErrorOf("[Tcp]\nWriteTimeoutMs=1\n;\nwritetimeoutms =2\n"),
              "4 w.ini:4: [Tcp]: \"writetimeoutms\" stands here twice");
    EXPECT_EQ(ErrorOf("[Serial]\n[Tcp]\n[Sound]\n[tcp]\n"),
              "4 w.ini:2: [Tcp] stands in the file twice");
}

TEST(TransportSettings, WhatIsNoTimeInItsRangeIsAnErrorThatNamesTheLine) {
    for (const std::string time : {"0", "-1", "3600001", "soon", "", "1.5", "99999999999"}) {
        EXPECT_EQ(ErrorOf("[Serial]\n[Tcp]\n\nWriteTimeoutMs=" + time + "\n"),
                  "4 w.ini:4: [Tcp] WriteTimeoutMs: \"" + time +
                      "\" is not a time from 1 to 3600000 milliseconds");
    }
}

TEST(TransportSettings, ALineThatMapsNoPortIsAnError) {
    for (const std::string line : {"COM3", "COM3=", "COM=x", "COM0=x", "COM32768=x", "COM3x=x",
                                   "3=x", "TTY3=x", "COM99999999999=x"}) {
        EXPECT_EQ(
            ErrorOf("[SerialPorts]\nCOM1=x\n" + line + "\n"),
            "4 w.ini:3: [SerialPorts]: \"" + line + "\" is not of the form COM3=/dev/ttyUSB0");
    }
    EXPECT_THAT(ReadText("[SerialPorts]\nCOM32767=x\n").serialDevices,
                ElementsAre(Pair(32767, "x")));
}

}  // namespace
}  // namespace ace::workbench
