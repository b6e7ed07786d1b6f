#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// What the line of an action says in the tree: commands, programs, devices and macros.
class TreeDeviceLines : public ShownEditor {
  protected:
    String Line(const p_Action& action, aceModul moduleKind = aceAziChart) {
        p_Subrange& set = moduleKind == aceAziChart      ? State().AziChart
                          : moduleKind == aceVKSTemplate ? State().VKSTemplate
                                                         : State().VKSDUTGlob;
        State().VKSDUTTemplate = 3;
        Fill(set, EnterList, {action});
        Open(moduleKind);
        const TreeNode line = tree.FirstChild(tree.FirstRoot());
        return tree.Image(line) + L" " + tree.Caption(line);
    }
    static String Long(std::size_t count) { return String(count, L'x'); }

    static constexpr aceModul Wireless[] = {aceVKSTemplate, aceVKSDUT};
};

// ---- commands and programs ---------------------------------------------------------------------

TEST_F(TreeDeviceLines, GpibAddressHoldsBoardAndAddress) {
    EXPECT_EQ(Line(Gpib(120, L"*RST")), L"REM T(9062): Gpib1:20,*RST");
    EXPECT_EQ(Line(Gpib(20, L"*RST")), L"REM T(9062): Gpib0:20,*RST");
    EXPECT_EQ(Line(Gpib(0, L"*RST")), L"REM T(9062): Gpib0:0,*RST");
    EXPECT_EQ(Line(Gpib(1030, L"*RST")), L"REM T(9062): Gpib10:30,*RST");
}

TEST_F(TreeDeviceLines, SerialPortIsToldByItsNumber) {
    EXPECT_EQ(Line(Serial(12, L"OUTP ON")), L"REM T(9062): COM12,OUTP ON");
}

TEST_F(TreeDeviceLines, PortOfAHostShowsInTheWirelessModulesAlone) {
    EXPECT_EQ(Line(Tcp(L"gen", 5025, L"*RST")), L"REM T(9062): \\\\gen,*RST");
    for (const aceModul module : Wireless) {
        EXPECT_EQ(Line(Tcp(L"gen", 5025, L"*RST"), module), L"REM T(9062): \\\\gen:5025,*RST");
    }
}

TEST_F(TreeDeviceLines, AnyOtherInterfaceShowsAsAHost) {
    for (const std::int32_t iface : {3, 7, -1}) {
        EXPECT_EQ(Line(Tcp(L"gen", 5025, L"*RST", iface)), L"REM T(9062): \\\\gen,*RST") << iface;
    }
}

TEST_F(TreeDeviceLines, CommandOf20CharactersShowsWholeAndOneOf21WithDots) {
    EXPECT_EQ(Line(Gpib(120, Long(20))), L"REM T(9062): Gpib1:20," + Long(20));
    const String longer = Long(20) + L"y";
    EXPECT_EQ(Line(Gpib(120, longer)), L"REM T(9062): Gpib1:20," + Long(20) + L"...");
    EXPECT_EQ(Line(Serial(2, longer)), L"REM T(9062): COM2," + Long(20) + L"...");
    EXPECT_EQ(Line(Tcp(L"gen", 1, longer)), L"REM T(9062): \\\\gen," + Long(20) + L"...");
}

TEST_F(TreeDeviceLines, WirelessModulesShow50CharactersOfACommand) {
    for (const aceModul module : Wireless) {
        const String longer = Long(50) + L"y";
        EXPECT_EQ(Line(Gpib(120, Long(50)), module), L"REM T(9062): Gpib1:20," + Long(50));
        EXPECT_EQ(Line(Gpib(120, longer), module), L"REM T(9062): Gpib1:20," + Long(50) + L"...");
        EXPECT_EQ(Line(Serial(2, longer), module), L"REM T(9062): COM2," + Long(50) + L"...");
        EXPECT_EQ(Line(Tcp(L"gen", 1, longer), module),
                  L"REM T(9062): \\\\gen:1," + Long(50) + L"...");
    }
}

TEST_F(TreeDeviceLines, ProgramShowsByItsFilePart) {
    EXPECT_EQ(Line(Started(L"C:\\tools\\exerciser.exe /q")), L"REM T(9062): exerciser.exe /q");
    EXPECT_EQ(Line(Started(L"exerciser")), L"REM T(9062): exerciser");
    EXPECT_EQ(Line(Started(L"C:\\" + Long(60))), L"REM T(9062): " + Long(60));
    EXPECT_EQ(Line(Started({})), L"REM T(9062): ");
}

TEST_F(TreeDeviceLines, CommandGoesBeforeTheProgram) {
    p_Action both = Gpib(120, L"*RST");
    std::get<aceRemote>(both.Parameter).Program = L"C:\\tools\\exerciser.exe";
    EXPECT_EQ(Line(both), L"REM T(9062): Gpib1:20,*RST");
}

// ---- devices -----------------------------------------------------------------------------------

TEST_F(TreeDeviceLines, DeviceKindsShowTheName) {
    EXPECT_EQ(Line(Device(atSetDevice, L"Turntable")), L"DEV T(9061): Turntable");
    EXPECT_EQ(Line(Device(atCheckEut, L"Camera")), L"EUT T(9065): Camera");
    EXPECT_EQ(Line(Device(atMonitorEUT, L"Camera")), L"MON Monitor EUT: Camera");
    EXPECT_EQ(Line(Device(atSetDevice, {})), L"DEV T(9061): ");
}

TEST_F(TreeDeviceLines, AmplifierShowsItsStateAsAWord) {
    const Lines words{L"Off", L"On", L"Standby", L"Operate", L"Reset"};
    for (std::int32_t state = 0; state < 5; ++state) {
        EXPECT_EQ(Line(Amplifier(L"Amp", state)),
                  L"SWA T(9073): Amp --> " + words[static_cast<std::size_t>(state)]);
    }
    for (const std::int32_t state : {-1, 5, 100}) {
        EXPECT_EQ(Line(Amplifier(L"Amp", state)), L"SWA T(9073): Amp --> ") << state;
    }
}

TEST_F(TreeDeviceLines, SwitchUnitShowsItsPath) {
    EXPECT_EQ(Line(Unit(L"Unit", L"Path A")), L"SWU T(9074): Unit --> Path A");
    EXPECT_EQ(Line(Unit(L"Unit", {})), L"SWU T(9074): Unit --> ");
}

TEST_F(TreeDeviceLines, GeneratorGoesBeforeTheMonitorInATrackingAction) {
    aceTrackFreq record;
    record.MoniName = L"Probe 2";
    EXPECT_EQ(Line(Action(atTrackFreq, record)), L"TRC T(9066): Probe 2");
    record.GenName = L"Generator 1";
    EXPECT_EQ(Line(Action(atTrackFreq, record)), L"TRC T(9066): Generator 1");
    EXPECT_EQ(Line(Action(atTrackFreq, aceTrackFreq{})), L"TRC T(9066): ");
}

TEST_F(TreeDeviceLines, MacroShowsWithItsWholePath) {
    EXPECT_EQ(Line(Api(L"C:\\macros\\log.mac")), L"API T(9078): C:\\macros\\log.mac");
}

}  // namespace
}  // namespace ace::test
