/// How the action dialog comes up: when, for which kinds, and where the operator begins.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

const String Code = L"frmEditor (Code)";

class DialogOpening : public ShownDialog {
  protected:
    Lines FormsShown() { return host->journal.LinesOf(L"FormHost.ShowModal"); }
    template <class Kind>
    const Kind& Loaded(const String& name) {
        const auto form = std::dynamic_pointer_cast<frmEditor>(context.Editor);
        return dynamic_cast<const Kind&>(ControlOn(*form, name));
    }
};

// ---- kinds with nothing to edit -----------------------------------------------------------------

struct BareKind {
    p_ActionTypes kind;
    aceModul moduleKind;
};
class BareKinds : public DialogOpening, public ::testing::WithParamInterface<BareKind> {};
const BareKind AllBareKinds[] = {{atProtRec, aceEMIAutoTemplate}, {atParkAcc, aceEMIAutoTemplate},
                                 {atTestStop, aceMonitoring},     {atGotoSingle, aceMonitoring},
                                 {atStopLevSweep, aceMonitoring}, {atNbBbEtsi, aceMonitoring}};

TEST_P(BareKinds, ANewActionWithoutFieldsIsAddedAtOnce) {
    OpenWith(GetParam().moduleKind, {WaitFor(1000)});
    DoubleClickKind(GetParam().kind);
    EXPECT_THAT(FormsShown(), IsEmpty());
    EXPECT_THAT(host->journal.LinesOf(L"Platform.Yield"), IsEmpty());
    ASSERT_EQ(Set().EnterCount, 2);
    EXPECT_EQ(Stored(1), Action(GetParam().kind));
    EXPECT_TRUE(engine->Change());
}

TEST_P(BareKinds, ADoubleClickOnALineWithoutFieldsShowsItAgainAndChangesNothing) {
    OpenWith(GetParam().moduleKind, {Action(GetParam().kind)});
    DoubleClickLine();
    EXPECT_THAT(FormsShown(), IsEmpty());
    EXPECT_EQ(Stored(), Action(GetParam().kind));
    EXPECT_FALSE(engine->Change());
}

/// Whatever was edited before, a kind without fields takes no record along.
TEST_P(BareKinds, ItTakesNoRecordOfTheActionBefore) {
    OpenWith(GetParam().moduleKind, {WaitFor(1000)});
    ShowLine({PressCancel});
    Select(NodeKey());
    DoubleClickKind(GetParam().kind);
    EXPECT_EQ(Stored(1), Action(GetParam().kind));
}

INSTANTIATE_TEST_SUITE_P(Each, BareKinds, ::testing::ValuesIn(AllBareKinds), [](const auto& one) {
    return "Kind" + std::to_string(static_cast<int>(one.param.kind));
});

// ---- the trace ----------------------------------------------------------------------------------

TEST_F(DialogOpening, TheTraceTellsWhetherTheActionIsNew) {
    OpenWith(aceTemplate, {WaitFor(1000)});
    host->tracing = true;
    ShowNew(atWait, {PressCancel});
    EXPECT_THAT(TakeEffects(), Contains(Start(Code, L"ShowEditor", L"AddNew = True")));
    ShowLine({PressCancel});
    EXPECT_THAT(TakeEffects(), Contains(Start(Code, L"ShowEditor", L"AddNew = False")));
}

TEST_F(DialogOpening, AKindWithoutFieldsIsTracedLikeTheOthers) {
    OpenWith(aceMonitoring);
    host->tracing = true;
    host->journal.Clear();
    DoubleClickKind(atTestStop);
    const Lines positioned{Start(Code, L"GetPosition", L""), End(L"GetPosition")};
    EXPECT_EQ(TakeEffects(),
              Journal(Start(Code, L"m_List_DblClick", L""),
                      Start(Code, L"ShowEditor", L"AddNew = True"), Start(Code, L"AddAction", L""),
                      positioned, Start(Code, L"DisplayTree", L"PerfTime = 6, Subrange = 0"),
                      L"Tree.AddChild(\"NGO0\", \"CHI0NGO0\", \"T(9070)\", \"STP\")",
                      L"Tree.SetExpanded(\"NGO0\", true)", End(L"DisplayTree"), End(L"AddAction"),
                      End(L"ShowEditor"), End(L"m_List_DblClick")));
}

TEST_F(DialogOpening, ADialogThatIsCancelledIsTracedToItsEnd) {
    OpenWith(aceTemplate);
    host->tracing = true;
    host->journal.Clear();
    ShowNew(atWait, {PressCancel});
    EXPECT_EQ(Calls(), Journal(Start(Code, L"m_List_DblClick", L""),
                               Start(Code, L"ShowEditor", L"AddNew = True"), L"Form \"frmEditor\"",
                               L"FormHost.Hide(\"frmEditor\")", End(L"ShowEditor"),
                               End(L"m_List_DblClick")));
}

// ---- where the operator begins ------------------------------------------------------------------

TEST_F(DialogOpening, TheFocusIsOnTheTimeOfAWait) {
    OpenWith(aceTemplate);
    ShowNew(atWait, {SeeFocus(L"txtWait"), PressCancel});
}

TEST_F(DialogOpening, TheMessageIsSelectedWhole) {
    OpenWith(aceVKSTemplate, {Tell(L"Door"), Ask(L"Lamp on?")});
    const auto selected = [](std::int32_t length) {
        return sim::Do([=](Form& form) {
            const auto& box = dynamic_cast<TextBox&>(ControlOn(form, L"txtMessage"));
            EXPECT_EQ(box.selectionStart, 0);
            EXPECT_EQ(box.selectionLength, length);
        });
    };
    ShowLine({SeeFocus(L"txtMessage"), selected(4), PressCancel}, 0);
    ShowLine({SeeFocus(L"txtMessage"), selected(8), PressCancel}, 1);
}

/// So that typing replaces it.
TEST_F(DialogOpening, TheCommandIsSelectedWhole) {
    const p_Action stored = Edited(
        Gpib(5, L"*RST"), {SeeFocus(L"txtGpibCommand"), sim::Insert(L"txtGpibCommand", L"X")});
    EXPECT_EQ(RecordOf<aceRemote>(stored).Command, L"X");
}

TEST_F(DialogOpening, TheFocusOfACommentIsNowhere) {
    OpenWith(aceMonitoring);
    ShowNew(atComment, {SeeFocus(L""), PressCancel});
}

TEST_F(DialogOpening, ADialogThatCameUpBeforeComesUpTheSameWay) {
    OpenWith(aceTemplate, {WaitFor(1000)});
    ShowLine({sim::Focus(L"cmdOK"), PressCancel});
    ShowLine({SeeFocus(L"txtWait"), PressCancel});
}

// ---- what is new --------------------------------------------------------------------------------

TEST_F(DialogOpening, ANewWaitIsOfTenSecondsWhateverWasEditedBefore) {
    OpenWith(aceTemplate, {WaitFor(1000)});
    ShowLine({PressCancel});
    ShowNew(atWait, {See(L"txtWait", L"10"), PressOk});
    EXPECT_EQ(Stored(1), WaitFor(10000));
}

TEST_F(DialogOpening, TheSecondsOfAWaitShowWithTheSeparatorOfThePlace) {
    host->decimalSeparator = L',';
    OpenWith(aceTemplate, {WaitFor(2500)});
    ShowLine({See(L"txtWait", L"2,5"), PressOk});
    EXPECT_EQ(Stored(), WaitFor(2500));
    EXPECT_FALSE(engine->Change());
}

// ---- the lists that stay ------------------------------------------------------------------------

TEST_F(DialogOpening, TheAddressesAreThoseOfFourBoards) {
    OpenWith(aceTemplate);
    const auto& box = Loaded<DropDown>(L"cboGpibAddress");
    ASSERT_EQ(box.list.size(), 120U);
    for (std::size_t board = 0; board < 4; ++board) {
        for (std::size_t address = 1; address <= 30; ++address) {
            EXPECT_EQ(box.list[board * 30 + address - 1],
                      std::to_wstring(board) + L":" + std::to_wstring(address));
        }
    }
    EXPECT_EQ(box.listIndex, 0);
}

TEST_F(DialogOpening, AnAddressIsTheItemOfItsBoardAndItsNumber) {
    OpenWith(aceTemplate, {Gpib(120, L"*IDN?"), Gpib(1, L"*IDN?"), Gpib(330, L"*IDN?")});
    constexpr std::int32_t Items[] = {49, 0, 119};
    for (int line = 0; line < 3; ++line) {
        ShowLine({sim::Do([&](Form& form) {
                      EXPECT_EQ(form.Find<DropDown>(L"cboGpibAddress")->listIndex, Items[line]);
                  }),
                  PressCancel},
                 line);
    }
}

TEST_F(DialogOpening, TheOtherListsAreThoseOfTheDesign) {
    OpenWith(aceTemplate);
    EXPECT_THAT(
        Loaded<DropDown>(L"cboComPort").list,
        ElementsAre(L"COM1", L"COM2", L"COM3", L"COM4", L"COM5", L"COM6", L"COM7", L"COM8"));
    EXPECT_THAT(Loaded<DropDown>(L"cboIface").list, ElementsAre(L"GPIB", L"RS232", L"TCP/IP"));
    const auto& terminators = Loaded<DropDown>(L"cboTerminator");
    EXPECT_THAT(terminators.list, ElementsAre(L"NL (0A hex)", L"CR (0D hex)", L"CR+NL", L"<NONE>"));
    EXPECT_EQ(terminators.listIndex, 0);
    EXPECT_THAT(Loaded<DropDown>(L"cboSwitchAmp").list,
                ElementsAre(L"Power Off", L"Power On", L"Standby", L"Operate", L"Reset"));
    EXPECT_THAT(Loaded<DropDown>(L"cboSUPaths").list,
                ElementsAre(L"Power Off", L"Power On", L"Standby", L"Operate"));
    const auto& options = Loaded<OptionGroup>(L"optTrackFrq").options;
    ASSERT_EQ(options.size(), 2U);
    EXPECT_EQ(options[0].caption, L"RF Generator");
    EXPECT_EQ(options[1].caption, L"Monitoring Device");
}

struct DesignedBox {
    StringView name;
    StringView unit;
    double minimum;
    double maximum;
    std::optional<std::int32_t> decimals;
    StringView text;
};
constexpr DesignedBox DesignedBoxes[] = {
    {L"txtWait", L"s", 0.001, 3600.0, {}, L"0"},
    {L"txtWaitTime", L"s", 1.0, 3600.0, 2, L"10.00"},
    {L"txtCycleTime", L"s", 0.001, 600.0, 2, L"10.00"},
    {L"txtDelayTime", L"ms", 1.0, 600.0, 0, L"100"},
};

TEST_F(DialogOpening, TheValueBoxesAreThoseOfTheDesign) {
    OpenWith(aceTemplate);
    for (const DesignedBox& row : DesignedBoxes) {
        const auto& box = Loaded<ValueBox>(String(row.name));
        EXPECT_EQ(box.unit, row.unit) << testing::PrintToString(row.name);
        EXPECT_EQ(box.minimum, row.minimum) << testing::PrintToString(row.name);
        EXPECT_EQ(box.maximum, row.maximum) << testing::PrintToString(row.name);
        EXPECT_EQ(box.decimals, row.decimals) << testing::PrintToString(row.name);
        EXPECT_EQ(box.text, row.text) << testing::PrintToString(row.name);
    }
}

TEST_F(DialogOpening, TheTitleIsTheTextOfItsNumber) {
    OpenWith(aceTemplate);
    EXPECT_EQ(std::dynamic_pointer_cast<frmEditor>(context.Editor)->title, L"T(9021)");
}

}  // namespace
}  // namespace ace::test
