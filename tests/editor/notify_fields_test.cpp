/// What the fields of the pane of notifications do while the operator works on them.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

const String TestButton = L"cmdTestAction(0)";
const String Gong = L"C:\\Sounds\\gong.wav";

class NotifyFields : public ShownDialog {
  protected:
    static p_Action Beeping() {
        aceNotify record;
        record.Beep = true;
        return Action(atNotify, record);
    }
};

// ---- the beep -----------------------------------------------------------------------------------

TEST_F(NotifyFields, TheTestIsThereForABeepAMessageOrASound) {
    OpenWith(aceTemplate, {Beeping(), Tell(L"Door"), Sound(Gong)});
    for (const int line : {0, 1, 2}) {
        ShowLine({SeeEnabled(TestButton, true), PressCancel}, line);
    }
    ShowNew(atNotify, {SeeEnabled(TestButton, false), PressCancel});
}

TEST_F(NotifyFields, ATickedBeepEnablesTheTestAndAnUntickedOneDisablesIt) {
    OpenWith(aceTemplate);
    ShowNew(atNotify, {sim::Tick(L"chkBeep", true), SeeEnabled(TestButton, true),
                       sim::Tick(L"chkBeep", false), SeeEnabled(TestButton, false), PressCancel});
}

TEST_F(NotifyFields, WithoutTheBeepAMessageOrASoundKeepsTheTest) {
    OpenWith(aceTemplate, {Sound(Gong)});
    const Acts beep{sim::Tick(L"chkBeep", true), sim::Tick(L"chkBeep", false),
                    SeeEnabled(TestButton, true), PressCancel};
    ShowLine(beep);
    Acts message = beep;
    message.insert(message.begin(), sim::Type(L"txtMessage", L"Door"));
    ShowNew(atNotify, message);
}

TEST_F(NotifyFields, ABeepThatIsTickedAndUntickedIsNone) {
    EXPECT_EQ(Edited(Tell(L"Door"), {sim::Tick(L"chkBeep", true), sim::Tick(L"chkBeep", false)}),
              Tell(L"Door"));
    EXPECT_FALSE(engine->Change());
}

// ---- the field of the sound ---------------------------------------------------------------------

TEST_F(NotifyFields, TheFieldShowsTheFileWithoutItsFolder) {
    OpenWith(aceTemplate, {Sound(Gong), Sound(L"gong.wav"), Sound(L"C:\\Sounds\\")});
    ShowLine({See(L"txtSoundFile", L"gong.wav"), PressCancel}, 0);
    ShowLine({See(L"txtSoundFile", L"gong.wav"), PressCancel}, 1);
    ShowLine({See(L"txtSoundFile", L""), PressCancel}, 2);
}

TEST_F(NotifyFields, ASoundWhoseFieldIsNotTouchedKeepsItsFolder) {
    const p_Action stored = Edited(Sound(Gong), {sim::Tick(L"chkBeep", true)});
    EXPECT_EQ(RecordOf<aceNotify>(stored).WaveFile, Gong);
}

/// Intentional: what stands in the field is the file, once it is left.
TEST_F(NotifyFields, AFieldThatIsLeftLosesTheFolderOfItsSound) {
    const p_Action stored =
        Edited(Sound(Gong), {sim::Focus(L"txtSoundFile"), sim::Focus(L"txtMessage")});
    EXPECT_EQ(RecordOf<aceNotify>(stored).WaveFile, L"gong.wav");
}

/// Intentional: the same with the words for no file.
TEST_F(NotifyFields, AFieldThatIsLeftUntouchedStoresItsWordsForNoFile) {
    const p_Action stored =
        Edited(Tell(L"Door"), {sim::Focus(L"txtSoundFile"), sim::Focus(L"txtMessage")});
    EXPECT_EQ(RecordOf<aceNotify>(stored).WaveFile, L"T(9113)");
}

TEST_F(NotifyFields, ClearingTheFieldTakesTheSoundAway) {
    aceNotify record;
    record.Message = L"Door";
    record.WaveFile = Gong;
    EXPECT_EQ(Edited(Action(atNotify, record), {sim::Type(L"txtSoundFile", L"")}), Tell(L"Door"));
}

/// Cancelling takes nothing over, not even with the next action.
TEST_F(NotifyFields, AFieldThatIsCancelledIsNotLeft) {
    OpenWith(aceTemplate, {Sound(Gong)});
    ShowLine({sim::Type(L"txtSoundFile", L"other.wav"), sim::PressKey(Keys::Escape)});
    ShowLine({sim::Tick(L"chkBeep", true), PressOk});
    EXPECT_EQ(RecordOf<aceNotify>(Stored()).WaveFile, Gong);
}

// ---- sounds that are chosen or dropped ----------------------------------------------------------

const String Asked = L"UserDialogs.OpenFile(\"Sound Files (*.wav)|*.wav\", \"*.wav\", \"";

TEST_F(NotifyFields, ASoundThatIsChosenShowsItsNameAndKeepsItsPath) {
    OpenWith(aceTemplate);
    host->user.ExpectFile(Gong);
    ShowNew(atNotify, {sim::Press(L"cmdSelSound"), See(L"txtSoundFile", L"gong.wav"),
                       SeeEnabled(TestButton, true), PressOk});
    EXPECT_EQ(Stored(), Sound(Gong));
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs.OpenFile"), ElementsAre(Asked + L"\")"));
}

TEST_F(NotifyFields, MessagesRunBeforeAndBehindTheChoiceOfASound) {
    OpenWith(aceTemplate, {Sound(Gong)});
    host->user.ExpectFile(std::nullopt);
    ShowLine({sim::Do([&](Form&) { host->journal.Clear(); }), sim::Press(L"cmdSelSound"),
              sim::Do([&](Form&) {
                  EXPECT_THAT(TakeEffects(), ElementsAre(Yielded, Asked + Gong + L"\")", Yielded));
              }),
              See(L"txtSoundFile", L"gong.wav"), SeeEnabled(TestButton, true), PressOk});
    EXPECT_EQ(Stored(), Sound(Gong));
    EXPECT_FALSE(engine->Change());
}

/// Intentional: a beep alone doesn't keep the test.
TEST_F(NotifyFields, AChoiceThatIsCancelledLeavesTheTestForAMessageOrASoundAlone) {
    OpenWith(aceTemplate, {Beeping(), Tell(L"Door")});
    host->user.ExpectFile(std::nullopt);
    host->user.ExpectFile(std::nullopt);
    ShowLine({sim::Press(L"cmdSelSound"), SeeEnabled(TestButton, false), PressCancel}, 0);
    ShowLine({sim::Press(L"cmdSelSound"), SeeEnabled(TestButton, true), PressCancel}, 1);
}

TEST_F(NotifyFields, ASoundThatIsDroppedShowsItsNameAloneAndKeepsItsPath) {
    for (const String ending : {L".wav", L".WAV", L".Wav"}) {
        const p_Action stored =
            Added(atNotify, {sim::DropFiles(L"txtSoundFile", {L"C:\\Sounds\\b" + ending}),
                             See(L"txtSoundFile", L"b"), SeeEnabled(TestButton, true)});
        EXPECT_EQ(stored, Sound(L"C:\\Sounds\\b" + ending));
    }
}

TEST_F(NotifyFields, ADroppedSoundTakesTheBeepAway) {
    EXPECT_EQ(Edited(Beeping(), {sim::DropFiles(L"txtSoundFile", {Gong}),
                                 SeeTicked(L"chkBeep", false), SeeEnabled(TestButton, true)}),
              Sound(Gong));
}

TEST_F(NotifyFields, OfDroppedFilesOnlyTheFirstIsLookedAtAndOthersAreIgnored) {
    const std::vector<String> drops[] = {
        {L"C:\\a.mp3"}, {L"C:\\a.mp3", L"C:\\b.wav"}, {L"wav"}, {L""}, {}};
    for (const std::vector<String>& files : drops) {
        EXPECT_EQ(
            Edited(Beeping(), {sim::DropFiles(L"txtSoundFile", files),
                               See(L"txtSoundFile", L"T(9113)"), SeeTicked(L"chkBeep", true)}),
            Beeping());
        EXPECT_FALSE(engine->Change());
    }
}

}  // namespace
}  // namespace ace::test
