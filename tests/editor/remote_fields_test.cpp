/// What the fields of the pane of commands do while the operator works on them.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

const String TestButton = L"cmdTestAction(1)";
const sim::FormAct ChangeCommand = sim::Type(L"txtGpibCommand", L"*CLS");

class RemoteFields : public ShownDialog {
  protected:
    /// A command whose fields all have a value of their own.
    static p_Action Full(std::int32_t iface) {
        aceRemote record;
        record.Command = L"*RST";
        record.Iface = iface;
        record.GpibAddress = 120;
        record.SerComPort = 3;
        record.TcpHost = L"gen";
        record.TcpPort = 5025;
        record.Terminator = 2;
        record.Program = L"log.exe";
        return Action(atRemote, record);
    }
    /// The record behind the acts, which are done on `action`, and OK. The command is another one,
    /// so that all of it is stored.
    aceRemote Record(const p_Action& action, Acts acts) {
        acts.push_back(ChangeCommand);
        return RecordOf<aceRemote>(Edited(action, std::move(acts)));
    }
    static p_Action WithCommand(p_Action action) {
        RecordOf<aceRemote>(action).Command = L"*CLS";
        return action;
    }
};

// ---- an action that is opened -------------------------------------------------------------------

class EachInterface : public RemoteFields, public ::testing::WithParamInterface<std::int32_t> {};
INSTANTIATE_TEST_SUITE_P(Of, EachInterface, ::testing::Values(0, 1, 2));

TEST_P(EachInterface, OkWithoutAChangeLeavesTheActionAsItWas) {
    EXPECT_EQ(Edited(Full(GetParam()), {}), Full(GetParam()));
    EXPECT_FALSE(engine->Change());
}

TEST_P(EachInterface, AddressPortAndTerminatorSurviveAnEditOfTheCommand) {
    EXPECT_EQ(Edited(Full(GetParam()), {ChangeCommand}), WithCommand(Full(GetParam())));
    EXPECT_TRUE(engine->Change());
}

TEST_F(RemoteFields, AnAddressThatTheListLacksStandsThereAndStays) {
    const std::pair<std::int32_t, String> addresses[] = {
        {1205, L"12:5"}, {401, L"4:1"}, {100, L"1:0"}, {131, L"1:31"}, {-120, L"-1:-20"}};
    for (const auto& [address, shown] : addresses) {
        EXPECT_EQ(Edited(Gpib(address, L"*RST"), {See(L"cboGpibAddress", shown), ChangeCommand}),
                  Gpib(address, L"*CLS"));
    }
}

TEST_F(RemoteFields, APortAndATerminatorThatTheListsLackStay) {
    p_Action action = Serial(9, L"*RST");
    RecordOf<aceRemote>(action).Terminator = 7;
    EXPECT_EQ(Edited(action, {See(L"cboComPort", L""), See(L"cboTerminator", L""), ChangeCommand}),
              WithCommand(action));
}

/// None is chosen for it, and the list begins with the bus.
TEST_F(RemoteFields, AnInterfaceOutsideTheListBecomesTheBus) {
    const aceRemote record =
        Record(Tcp(L"gen", 5025, L"*RST", 7),
               {See(L"cboIface", L"GPIB"),
                SeeShown({L"lblGpibAddress", L"cboGpibAddress"}, {L"lblPort", L"lblHost"})});
    EXPECT_EQ(record.Iface, 0);
}

/// What is edited is another action, and opens the device for itself.
TEST_F(RemoteFields, AnEditedCommandHasNoHandle) {
    p_Action action = Gpib(120, L"*RST");
    RecordOf<aceRemote>(action).DrvHdl = 5;
    RecordOf<aceRemote>(action).ProgID = 1234.0;
    const aceRemote record = Record(action, {});
    EXPECT_EQ(record.DrvHdl, -1);
    EXPECT_EQ(record.ProgID, 1234.0);
}

TEST_F(RemoteFields, TheDeviceThatARunHasOpenedStaysOpenWhateverTheDialogShows) {
    p_Action action = Gpib(120, L"*RST");
    RecordOf<aceRemote>(action).DrvHdl = 5;
    OpenWith(aceTemplate, {action});
    const std::pair<sim::FormAct, std::int32_t> ends[] = {{PressCancel, 5},
                                                          {PressOk, aceRemote::NoHandle}};
    for (const auto& [end, handle] : ends) {
        ShowLine({sim::Choose(L"cboGpibAddress", 3), sim::Choose(L"cboIface", 0), end});
        EXPECT_EQ(RecordOf<aceRemote>(Stored()).DrvHdl, handle);
    }
    EXPECT_THAT(host->journal.LinesOf(L"GpibDriver"), ::testing::IsEmpty());
}

// ---- the interface ------------------------------------------------------------------------------

TEST_F(RemoteFields, EachInterfaceShowsItsOwnFields) {
    OpenWith(aceTemplate);
    const std::vector<String> gpib{L"lblGpibAddress", L"cboGpibAddress"};
    const std::vector<String> tcp{L"lblHost", L"txtHost", L"txtTcpPort"};
    const auto seeHidden = [](const std::vector<String>& names) { return SeeShown({}, names); };
    ShowNew(atRemote, {SeeShown(gpib, {L"lblPort", L"cboComPort"}), seeHidden(tcp),
                       sim::Choose(L"cboIface", 1), SeeShown({L"lblPort", L"cboComPort"}, gpib),
                       seeHidden(tcp), sim::Choose(L"cboIface", 2), SeeShown(tcp, gpib),
                       SeeShown({L"lblPort"}, {L"cboComPort"}), sim::Choose(L"cboIface", 0),
                       SeeShown(gpib, tcp), seeHidden({L"lblPort", L"cboComPort"}), PressCancel});
}

TEST_F(RemoteFields, ChoosingTheSerialPortBeginsWithTheFirstPortAndCr) {
    const aceRemote record =
        Record(Full(0), {sim::Choose(L"cboIface", 1), See(L"cboComPort", L"COM1"),
                         See(L"cboTerminator", L"CR (0D hex)")});
    EXPECT_EQ(record.Iface, 1);
    EXPECT_EQ(record.SerComPort, 1);
    EXPECT_EQ(record.Terminator, 1);
    EXPECT_EQ(record.GpibAddress, 120);
}

TEST_F(RemoteFields, ChoosingTheNetworkBeginsWithCrAndTheFirstPortToo) {
    const aceRemote record =
        Record(Full(0), {sim::Choose(L"cboIface", 2), See(L"cboTerminator", L"CR (0D hex)"),
                         See(L"txtHost", L"gen"), See(L"txtTcpPort", L"5025")});
    EXPECT_EQ(record.Iface, 2);
    EXPECT_EQ(record.SerComPort, 1);
    EXPECT_EQ(record.Terminator, 1);
    EXPECT_EQ(record.TcpPort, 5025);
}

TEST_F(RemoteFields, ChoosingTheBusBeginsWithTheFirstAddressAndNl) {
    const aceRemote record =
        Record(Full(1), {sim::Choose(L"cboIface", 0), See(L"cboGpibAddress", L"0:1"),
                         See(L"cboTerminator", L"NL (0A hex)")});
    EXPECT_EQ(record.Iface, 0);
    EXPECT_EQ(record.GpibAddress, 1);
    EXPECT_EQ(record.Terminator, 0);
    EXPECT_EQ(record.SerComPort, 3);
}

TEST_P(EachInterface, ChoosingTheSameOnceMoreBeginsAnewToo) {
    const aceRemote record = Record(Full(GetParam()), {sim::Choose(L"cboIface", GetParam())});
    EXPECT_EQ(record.Iface, GetParam());
    EXPECT_EQ(record.Terminator, GetParam() == 0 ? 0 : 1);
    EXPECT_EQ(record.GpibAddress, GetParam() == 0 ? 1 : 120);
    EXPECT_EQ(record.SerComPort, GetParam() == 0 ? 3 : 1);
}

/// The boxes store what is chosen at once, whether the interface reads it or not.
TEST_F(RemoteFields, AnAddressThatWasChosenStaysWhenTheInterfaceChanges) {
    const aceRemote record =
        Record(Full(0), {sim::Choose(L"cboGpibAddress", 44), sim::Choose(L"cboIface", 1),
                         sim::Choose(L"cboComPort", 4), sim::Choose(L"cboTerminator", 3)});
    EXPECT_EQ(record.GpibAddress, 115);
    EXPECT_EQ(record.SerComPort, 5);
    EXPECT_EQ(record.Terminator, 3);
}

// ---- text fields that are left ------------------------------------------------------------------

TEST_F(RemoteFields, TheHostIsKeptWhenItsFieldIsLeft) {
    const aceRemote record =
        Record(Full(2), {sim::Type(L"txtHost", L"amp"), sim::Choose(L"cboIface", 0)});
    EXPECT_EQ(record.TcpHost, L"amp");
}

struct LeftPort {
    String text;
    std::int32_t kept;
};
class LeftPorts : public RemoteFields, public ::testing::WithParamInterface<LeftPort> {};
const LeftPort AllLeftPorts[] = {
    {L"5026", 5026},  {L"32767", 32767}, {L"-1", -1}, {L"-32768", -32768}, {L"-32769", 5025},
    {L"32768", 5025}, {L"50000", 5025},  {L"", 5025}, {L"five", 5025},     {L"5026x", 5025}};
INSTANTIATE_TEST_SUITE_P(Each, LeftPorts, ::testing::ValuesIn(AllLeftPorts));

/// No box comes up; the interface is left, so that OK doesn't read the field.
TEST_P(LeftPorts, APortThatIsLeftIsKeptWhen16BitsHoldIt) {
    const aceRemote record =
        Record(Full(2), {sim::Type(L"txtTcpPort", GetParam().text), sim::Choose(L"cboIface", 0)});
    EXPECT_EQ(record.TcpPort, GetParam().kept);
}

TEST_F(RemoteFields, AProgramIsKeptWhenItsFieldIsLeft) {
    const aceRemote record =
        Record(Full(0), {sim::Type(L"txtDll", L"C:\\other.exe"), sim::Focus(L"txtGpibCommand")});
    EXPECT_EQ(record.Program, L"C:\\other.exe");
}

TEST_F(RemoteFields, TheBoxOfTheConfirmationIsKeptAtOnce) {
    EXPECT_TRUE(Record(Full(0), {sim::Tick(L"chkWaitForProgramCompleted", true)}).WaitPrgSync);
    p_Action waiting = Full(0);
    RecordOf<aceRemote>(waiting).WaitPrgSync = true;
    EXPECT_FALSE(Record(waiting, {sim::Tick(L"chkWaitForProgramCompleted", false)}).WaitPrgSync);
}

// ---- the test button ----------------------------------------------------------------------------

TEST_F(RemoteFields, TheTestIsThereForACommandOrAProgram) {
    OpenWith(aceTemplate, {Gpib(5, L"*RST"), Started(L"log.exe")});
    ShowLine({SeeEnabled(TestButton, true), PressCancel}, 0);
    ShowLine({SeeEnabled(TestButton, true), PressCancel}, 1);
    ShowNew(atRemote, {SeeEnabled(TestButton, false), PressCancel});
}

/// Intentional: each field looks at its own text alone.
TEST_F(RemoteFields, AFieldThatIsClearedTakesTheTestAwayWhateverTheOtherHolds) {
    OpenWith(aceTemplate, {Full(0)});
    ShowLine({sim::Type(L"txtGpibCommand", L""), SeeEnabled(TestButton, false),
              sim::Type(L"txtDll", L"x"), SeeEnabled(TestButton, true), sim::Type(L"txtDll", L""),
              SeeEnabled(TestButton, false), sim::Type(L"txtGpibCommand", L"y"),
              SeeEnabled(TestButton, true), PressCancel});
}

// ---- programs that are chosen or dropped --------------------------------------------------------

const String Asked = L"UserDialogs.OpenFile(\"Programs (*.exe;*.bat)|*.exe;*.bat\", \"*.exe\", \"";

TEST_F(RemoteFields, AProgramThatIsChosenIsTakenWithItsPath) {
    OpenWith(aceTemplate);
    host->user.ExpectFile(L"C:\\Tools\\log.exe");
    ShowNew(atRemote, {sim::Press(L"cmdSelDll"), See(L"txtDll", L"C:\\Tools\\log.exe"),
                       SeeEnabled(TestButton, true), PressOk});
    EXPECT_EQ(RecordOf<aceRemote>(Stored()).Program, L"C:\\Tools\\log.exe");
}

TEST_F(RemoteFields, MessagesRunBeforeAndBehindTheChoiceOfAProgram) {
    OpenWith(aceTemplate, {Started(L"C:\\old.exe")});
    host->user.ExpectFile(std::nullopt);
    ShowLine({sim::Do([&](Form&) { host->journal.Clear(); }), sim::Press(L"cmdSelDll"),
              sim::Do([&](Form&) {
                  EXPECT_THAT(TakeEffects(),
                              ElementsAre(Yielded, Asked + L"C:\\old.exe\")", Yielded));
              }),
              See(L"txtDll", L"C:\\old.exe"), PressOk});
    EXPECT_EQ(Stored(), Started(L"C:\\old.exe"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(RemoteFields, TheChoiceBeginsNowhereForNoProgramAndForTheWordsThatSaySo) {
    OpenWith(aceTemplate);
    host->user.ExpectFile(std::nullopt);
    host->user.ExpectFile(std::nullopt);
    ShowNew(atRemote, {sim::Press(L"cmdSelDll"), sim::Type(L"txtDll", L"T(9113)"),
                       sim::Press(L"cmdSelDll"), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs.OpenFile"),
                ElementsAre(Asked + L"\")", Asked + L"\")"));
}

TEST_F(RemoteFields, AProgramThatIsDroppedIsTakenInAnyCaseOfItsEnding) {
    for (const String file : {L"C:\\a.exe", L"C:\\a.EXE", L"C:\\a.Exe"}) {
        const p_Action stored =
            Added(atRemote, {sim::DropFiles(L"txtDll", {file}), SeeFocus(L"txtGpibCommand"),
                             See(L"txtDll", file), SeeEnabled(TestButton, true)});
        EXPECT_EQ(RecordOf<aceRemote>(stored).Program, file);
    }
}

TEST_F(RemoteFields, OfDroppedFilesOnlyTheFirstIsLookedAtAndOthersAreIgnored) {
    const std::vector<String> drops[] = {
        {L"C:\\a.txt"}, {L"C:\\a.bat"}, {L"C:\\a.txt", L"C:\\b.exe"}, {L"exe"}, {L""}, {}};
    for (const std::vector<String>& files : drops) {
        EXPECT_EQ(Edited(Full(0), {sim::DropFiles(L"txtDll", files), See(L"txtDll", L"log.exe")}),
                  Full(0));
        EXPECT_FALSE(engine->Change());
    }
    const p_Action first =
        Edited(Full(0), {sim::DropFiles(L"txtDll", {L"C:\\a.exe", L"C:\\b.txt"})});
    EXPECT_EQ(RecordOf<aceRemote>(first).Program, L"C:\\a.exe");
}

}  // namespace
}  // namespace ace::test
