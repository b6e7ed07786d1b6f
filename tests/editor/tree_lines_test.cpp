#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// What the line of an action says in the tree, kind by kind: shown in an azimuth chart, which has
/// nothing of its own, or in one of the two wireless modules.
class TreeLines : public ShownEditor {
  protected:
    /// The lines of a list, each without its key.
    Lines Shown(const std::vector<p_Action>& actions, aceModul moduleKind = aceAziChart) {
        p_Subrange& set = moduleKind == aceAziChart      ? State().AziChart
                          : moduleKind == aceVKSTemplate ? State().VKSTemplate
                                                         : State().VKSDUTGlob;
        State().VKSDUTTemplate = 3;
        Fill(set, EnterList, actions);
        Open(moduleKind);
        Lines shown;
        for (TreeNode line = tree.FirstChild(tree.FirstRoot()); line;
             line = tree.NextSibling(line)) {
            shown.push_back(tree.Image(line) + L" " + tree.Caption(line));
        }
        return shown;
    }
    String Line(const p_Action& action, aceModul moduleKind = aceAziChart) {
        const Lines lines = Shown({action}, moduleKind);
        EXPECT_EQ(lines.size(), 1U);
        return lines.empty() ? String() : lines.front();
    }
    static String Long(std::size_t count) { return String(count, L'x'); }

    static constexpr aceModul Wireless[] = {aceVKSTemplate, aceVKSDUT};
};

// ---- which entries show ------------------------------------------------------------------------

TEST_F(TreeLines, KindsWithoutARecordShowWithAnEmptyParameter) {
    EXPECT_EQ(Shown({Action(atProtRec), Action(atParkAcc), Action(atTestStop),
                     Action(atStopLevSweep), Action(atGotoSingle), Action(atNbBbEtsi)}),
              (Lines{L"REC T(9068)", L"PAC T(9077)", L"STP T(9070)", L"STL T(9071)", L"SGL T(9042)",
                     L"NBB T(9072)"}));
}

TEST_F(TreeLines, KindsWithoutARecordShowWhateverTheParameterHolds) {
    EXPECT_EQ(Shown({Action(atProtRec, aceWait{1}), Action(atGotoSingle, 7)}),
              (Lines{L"REC T(9068)", L"SGL T(9042)"}));
}

TEST_F(TreeLines, OtherKindsWithAnEmptyParameterDoNotShow) {
    for (const p_ActionTypes kind :
         {atWait, atNotify, atRemote, atSetDevice, atCheckEut, atTrackFreq, atComment, atSwitchAmp,
          atSwitchUnit, atAPI, atQuestion, atMonitorEUT}) {
        EXPECT_EQ(Shown({Action(kind)}), Lines{}) << kind;
    }
}

TEST_F(TreeLines, KindsAboveTheLastOneDoNotShow) {
    for (const std::int32_t kind : {18, 19, 1000}) {
        EXPECT_EQ(Shown({Action(static_cast<p_ActionTypes>(kind), aceWait{1000})}), Lines{})
            << kind;
    }
}

TEST_F(TreeLines, KeyIsThePlaceInTheListAlsoBehindEntriesThatDoNotShow) {
    Fill(State().AziChart, EnterList,
         {Broken(), WaitFor(1000), Action(static_cast<p_ActionTypes>(18), aceWait{1}), Camera});
    Open(aceAziChart);
    EXPECT_EQ(Tree(), (Lines{L"ETE \"T(9096)\" ACT", L"  CHI1ETE \"T(9063): 1.000 s\" WAI",
                             L"  CHI3ETE \"T(9065): Camera\" EUT", L"EFR \"T(9103)\" ACT",
                             L"LTE \"T(9097)\" ACT"}));
}

TEST_F(TreeLines, RecordOfAnotherKindIsATypeMismatch) {
    for (const p_ActionTypes kind :
         {atNotify, atRemote, atSetDevice, atCheckEut, atTrackFreq, atComment, atSwitchAmp,
          atSwitchUnit, atAPI, atQuestion, atMonitorEUT}) {
        EXPECT_EQ(ErrorOf([&] { Shown({Action(kind, aceWait{1000})}); }), 13) << kind;
    }
    EXPECT_EQ(ErrorOf([&] { Shown({Action(atWait, aceNotify{})}); }), 13);
}

/// Outside a single test, a run leaves a bare number in a tracking action.
TEST_F(TreeLines, BareNumberInATrackingActionIsATypeMismatch) {
    EXPECT_EQ(ErrorOf([&] { Shown({Action(atTrackFreq, 7)}); }), 13);
}

// ---- wait --------------------------------------------------------------------------------------

TEST_F(TreeLines, WaitIsToldInSecondsWithThreeDecimals) {
    EXPECT_EQ(Shown({WaitFor(1500), WaitFor(1), WaitFor(0), WaitFor(3600000), WaitFor(4.5)}),
              (Lines{L"WAI T(9063): 1.500 s", L"WAI T(9063): 0.001 s", L"WAI T(9063): 0.000 s",
                     L"WAI T(9063): 3600.000 s", L"WAI T(9063): 0.005 s"}));
}

TEST_F(TreeLines, WaitHasAPointWhereTheMachineHasAComma) {
    host->decimalSeparator = L',';
    EXPECT_EQ(Line(WaitFor(1500)), L"WAI T(9063): 1.500 s");
}

// ---- messages ----------------------------------------------------------------------------------

TEST_F(TreeLines, MessageOf40CharactersShowsWholeAndOneOf41WithDots) {
    EXPECT_EQ(Line(Tell(Long(40))), L"NOT T(9064): " + Long(40));
    EXPECT_EQ(Line(Tell(Long(40) + L"y")), L"NOT T(9064): " + Long(40) + L"...");
    EXPECT_EQ(Line(Ask(Long(40))), L"QUE Question: " + Long(40));
    EXPECT_EQ(Line(Ask(Long(40) + L"y")), L"QUE Question: " + Long(40) + L"...");
}

TEST_F(TreeLines, WirelessModulesShow65CharactersOfAMessage) {
    for (const aceModul module : Wireless) {
        EXPECT_EQ(Line(Tell(Long(65)), module), L"NOT T(9064): " + Long(65));
        EXPECT_EQ(Line(Tell(Long(65) + L"y"), module), L"NOT T(9064): " + Long(65) + L"...");
        EXPECT_EQ(Line(Ask(Long(66)), module), L"QUE Question: " + Long(65) + L"...");
    }
}

TEST_F(TreeLines, MessageOfTwoLinesShowsOnOne) {
    EXPECT_EQ(Line(Tell(L"Close the door\r\nand lock it\r\n")),
              L"NOT T(9064): Close the door and lock it ");
}

TEST_F(TreeLines, LineEndOfOneCharacterStays) {
    EXPECT_EQ(Line(Tell(L"a\nb\rc\r\n\nd")), L"NOT T(9064): a\nb\rc \nd");
}

/// Shown it has 40 characters, stored 41: the dots go by what is stored.
TEST_F(TreeLines, LineEndCountsTwoForTheDotsAndOneForTheCut) {
    const String message = Long(19) + L"\r\n" + Long(20);
    const String shown = Long(19) + L" " + Long(20);
    EXPECT_EQ(Line(Tell(message)), L"NOT T(9064): " + shown + L"...");
    EXPECT_EQ(Line(Tell(message.substr(1))), L"NOT T(9064): " + shown.substr(1));
}

TEST_F(TreeLines, LineEndIsReplacedBeforeTheCut) {
    EXPECT_EQ(Line(Tell(Long(39) + L"\r\n" + Long(5))), L"NOT T(9064): " + Long(39) + L" ...");
}

TEST_F(TreeLines, MessageGoesBeforeTheSound) {
    aceNotify record;
    record.Message = L"Close the door";
    record.WaveFile = L"C:\\sounds\\ding.wav";
    EXPECT_EQ(Line(Action(atNotify, record)), L"NOT T(9064): Close the door");
    record.Message.clear();
    EXPECT_EQ(Line(Action(atNotify, record)), L"NOT T(9064): ding.wav");
    EXPECT_EQ(Line(Action(atQuestion, record)), L"QUE Question: ding.wav");
}

TEST_F(TreeLines, FilePartStandsBehindTheLastBackslashAlone) {
    EXPECT_EQ(
        Shown({Sound(L"ding.wav"), Sound(L"C:/sounds/ding.wav"), Sound(L"C:\\sounds\\")}),
        (Lines{L"NOT T(9064): ding.wav", L"NOT T(9064): C:/sounds/ding.wav", L"NOT T(9064): "}));
}

TEST_F(TreeLines, NeitherMessageNorSoundIsATextOfItsOwn) {
    aceNotify beep;
    beep.Beep = true;
    EXPECT_EQ(Line(Action(atNotify, beep)), L"NOT T(9064): T(9124)");
    EXPECT_EQ(Line(Action(atQuestion, beep)), L"QUE Question: T(9124)");
}

TEST_F(TreeLines, CommentTellsOnlyWhetherTheGeneratorIsOff) {
    aceNotify record;
    record.Message = L"Never shown";
    record.WaveFile = L"ding.wav";
    EXPECT_EQ(Line(Action(atComment, record)), L"MSG T(9069)");
    record.GeneratorOff = true;
    EXPECT_EQ(Line(Action(atComment, record)), L"MSG T(9069), T(9080)");
}

}  // namespace
}  // namespace ace::test
