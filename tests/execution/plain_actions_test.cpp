#include <ace/execution/dispatcher.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

class PlainActionsTest : public EngineTest {
  protected:
    Boolean Do(p_Action action, std::int32_t moduleKind = aceMonitoring) {
        return modActions::DoAction(context, action, moduleKind);
    }
};

p_Action Notification(p_ActionTypes kind, const String& waveFile, bool beep,
                      const String& message) {
    aceNotify record;
    record.WaveFile = waveFile;
    record.Beep = beep;
    record.Message = message;
    return Action(kind, record);
}

const String Beeped = L"Platform.Beep()";
const String Played = L"Platform.sndPlaySoundA(\"gong.wav\", 19)";

// ---- wait --------------------------------------------------------------------------------------

TEST_F(PlainActionsTest, WaitShowsTheTimeSpendsItInATimedMessageAndClearsTheStatus) {
    EXPECT_FALSE(Do(WaitFor(2000)));

    EXPECT_EQ(TakeEffects(),
              (Lines{L"StatusDisplay.ShowStatus(\"Wait 2.000 s\", true, true)",
                     L"SystemServices.ShowTimedMessage(\"Wait 2.000 s\\r\\nPlease wait\", 64, "
                     L"\"Wait\", 2000)",
                     L"StatusDisplay.ShowStatus(\"\", false, false)"}));
}

TEST_F(PlainActionsTest, WaitWithTimeZeroShowsZeroAndStillShowsTheMessage) {
    EXPECT_FALSE(Do(WaitFor(0)));

    EXPECT_EQ(TakeEffects(), Waited(L"0.000", 0));
}

TEST_F(PlainActionsTest, HalvesOfAMillisecondGoToTheEvenNeighbour) {
    Do(WaitFor(1500.5));
    EXPECT_EQ(TakeEffects(), Waited(L"1.501", 1500));

    Do(WaitFor(1501.5));
    EXPECT_EQ(TakeEffects(), Waited(L"1.502", 1502));
}

TEST_F(PlainActionsTest, WaitKeepsTheDotUnderACommaLocale) {
    host->decimalSeparator = L',';

    Do(WaitFor(12345.6));

    EXPECT_EQ(TakeEffects(), Waited(L"12.346", 12346));
}

TEST_F(PlainActionsTest, AnyErrorEndsTheWaitWithoutAReport) {
    const Lines all = Waited(1);
    for (std::size_t k = 0; k < all.size(); ++k) {
        const std::size_t nameEnd = all[k].find(L'(');
        host->faults.FailOperation(all[k].substr(0, nameEnd), k == 2 ? 2 : 1, 77);

        EXPECT_FALSE(Do(WaitFor(1))) << k;

        Lines expected(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(k) + 1);
        expected.back() += L" -> error 77";
        EXPECT_EQ(TakeEffects(), expected) << k;
        host->faults.Clear();
    }
}

TEST_F(PlainActionsTest, WaitBeyondTheRangeOfMillisecondsLeavesTheStatusStanding) {
    EXPECT_FALSE(Do(WaitFor(2147483648.0)));

    EXPECT_EQ(TakeEffects(),
              (Lines{L"StatusDisplay.ShowStatus(\"Wait 2147483.648 s\", true, true)"}));
}

TEST_F(PlainActionsTest, WaitWithoutAStatusDisplayDoesNothing) {
    context.StatusDisplay.reset();

    EXPECT_FALSE(Do(WaitFor(1)));

    EXPECT_EQ(TakeEffects(), Lines{});
}

// ---- sound -------------------------------------------------------------------------------------

/// A notification without a message, and what its sound leaves in the journal.
struct SoundRow {
    String waveFile;
    bool beep;
    bool broken;
    Lines sound;
};
const SoundRow Sounds[] = {
    {L"gong.wav", false, false, {Played}},
    {L"gong.wav", true, false, {Played, Beeped}},
    {L"gong.wav", false, true, {Played, Beeped}},
    {L"gong.wav", true, true, {Played, Beeped, Beeped}},
    {L"", true, false, {Beeped}},
    {L"", false, false, {}},
};

TEST_F(PlainActionsTest, MissingWaveFileGivesOneBeepAndWithBeepSetTwo) {
    for (const SoundRow& row : Sounds) {
        host->brokenSounds = row.broken ? std::set<String>{L"gong.wav"} : std::set<String>{};

        EXPECT_FALSE(Do(Notification(atNotify, row.waveFile, row.beep, L"")));
        EXPECT_EQ(TakeEffects(), Journal(row.sound, StandbyOn, Yielded, RadiationOn, Yielded));

        EXPECT_FALSE(Do(Notification(atQuestion, row.waveFile, row.beep, L"")));
        EXPECT_EQ(TakeEffects(), Journal(row.sound, Yielded, Yielded));
    }
}

TEST_F(PlainActionsTest, AnyErrorEndsTheSoundSilentlyAndTheActionGoesOn) {
    host->faults.FailOperation(L"Platform.sndPlaySoundA", 1, 77);
    EXPECT_FALSE(Do(Notification(atNotify, L"gong.wav", true, L"")));
    EXPECT_EQ(TakeEffects(),
              Journal(Played + L" -> error 77", StandbyOn, Yielded, RadiationOn, Yielded));

    host->faults.Clear();
    host->faults.FailOperation(L"Platform.Beep", 1, 77);
    host->brokenSounds = {L"gong.wav"};
    EXPECT_FALSE(Do(Notification(atQuestion, L"gong.wav", true, L"")));
    EXPECT_EQ(TakeEffects(), Journal(Played, Beeped + L" -> error 77", Yielded, Yielded));
}

// ---- notify ------------------------------------------------------------------------------------

TEST_F(PlainActionsTest, NotifySoundsPausesTheRadiationAndTellsTheOperator) {
    comments->answers = {false};

    EXPECT_FALSE(Do(Notification(atNotify, L"gong.wav", true, L"Turn the table")));

    EXPECT_EQ(TakeEffects(), Journal(Played, Beeped, Told(L"Turn the table")));
}

TEST_F(PlainActionsTest, NotifyAnswersTrueWhenTheOperatorStopsTheTest) {
    comments->answers = {true};

    EXPECT_TRUE(Do(Tell(L"Turn the table")));

    EXPECT_EQ(TakeEffects(), Told(L"Turn the table"));
}

TEST_F(PlainActionsTest, EmptyNotifyStillPostsBothEventsAndAnswersFalse) {
    EXPECT_FALSE(Do(Tell(L"")));

    EXPECT_EQ(TakeEffects(), Journal(StandbyOn, Yielded, RadiationOn, Yielded));
}

TEST_F(PlainActionsTest, SystemCheckMutesTheNotifyOfATemplateButForItsWaveFile) {
    context.SystemCheck = true;
    const Lines pause = {StandbyOn, Yielded, RadiationOn, Yielded};

    EXPECT_FALSE(Do(Notification(atNotify, L"", true, L"Hello"), aceTemplate));
    EXPECT_EQ(TakeEffects(), pause);

    EXPECT_FALSE(Do(Notification(atNotify, L"gong.wav", false, L"Hello"), aceTemplate));
    EXPECT_EQ(TakeEffects(), Journal(Played, pause));

    // The wave file brings the sound routine along, and with it the beep.
    EXPECT_FALSE(Do(Notification(atNotify, L"gong.wav", true, L"Hello"), aceTemplate));
    EXPECT_EQ(TakeEffects(), Journal(Played, Beeped, pause));
}

TEST_F(PlainActionsTest, SystemCheckLeavesTheNotifyOfOtherModulesAlone) {
    context.SystemCheck = true;
    for (std::int32_t moduleKind = aceMonitoring; moduleKind <= aceVKSDUT + 1; ++moduleKind) {
        comments->answers = {true};
        EXPECT_TRUE(Do(Notification(atNotify, L"", true, L"Hello"), moduleKind)) << moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Beeped, Told(L"Hello"))) << moduleKind;
    }
}

TEST_F(PlainActionsTest, WithoutSystemCheckATemplateIsNotSilent) {
    comments->answers = {false};

    Do(Notification(atNotify, L"", true, L"Hello"), aceTemplate);

    EXPECT_EQ(TakeEffects(), Journal(Beeped, Told(L"Hello")));
}

TEST_F(PlainActionsTest, NotifyNeverReadsGeneratorOff) {
    p_Action action = Tell(L"Hello");
    std::get<aceNotify>(action.Parameter).GeneratorOff = true;
    comments->answers = {false};

    EXPECT_FALSE(Do(action));

    EXPECT_EQ(TakeEffects(), Told(L"Hello"));
}

TEST_F(PlainActionsTest, CommentFormIsMadeOnFirstNeedAndServesAllLaterMessages) {
    context.CommentForm.reset();
    Do(Tell(L""));
    EXPECT_EQ(context.CommentForm, nullptr);

    host->user.Expect(L"frmComment", sim::Press(L"cmdClose"));
    Do(Tell(L"one"));
    const std::shared_ptr<ICommentForm> made = context.CommentForm;
    EXPECT_NE(made, nullptr);

    host->user.Expect(L"frmComment", sim::Press(L"cmdClose"));
    Do(Ask(L"two"));
    EXPECT_EQ(context.CommentForm, made);
}

TEST_F(PlainActionsTest, FewerPairsThanTheCountSaysFailTheActionBeforeAnythingIsShown) {
    p_Action action = Tell(L"#A#");
    std::get<aceNotify>(action.Parameter).vks.count = 1;

    EXPECT_EQ(ErrorOf([&] { Do(action); }), 9);

    EXPECT_EQ(TakeEffects(), Journal(StandbyOn, Yielded, SubscriptReported));
}

// ---- question ----------------------------------------------------------------------------------

TEST_F(PlainActionsTest, QuestionSoundsAndAsksWithoutAnyEvent) {
    comments->answers = {false};

    EXPECT_FALSE(Do(Notification(atQuestion, L"gong.wav", true, L"Door closed?")));

    EXPECT_EQ(TakeEffects(), Journal(Played, Beeped, Asked(L"Door closed?")));
}

TEST_F(PlainActionsTest, QuestionAnsweredNoIsTrue) {
    comments->answers = {true};

    EXPECT_TRUE(Do(Ask(L"Door closed?")));

    EXPECT_EQ(TakeEffects(), Asked(L"Door closed?"));
}

TEST_F(PlainActionsTest, QuestionWithAnEmptyMessageIsFalseAtOnceAfterItsSound) {
    EXPECT_FALSE(Do(Notification(atQuestion, L"", true, L"")));

    EXPECT_EQ(TakeEffects(), Journal(Beeped, Yielded, Yielded));
}

TEST_F(PlainActionsTest, SystemCheckHasNoEffectOnAQuestion) {
    context.SystemCheck = true;
    comments->answers = {true};

    EXPECT_TRUE(Do(Notification(atQuestion, L"", true, L"Door closed?"), aceTemplate));

    EXPECT_EQ(TakeEffects(), Journal(Beeped, Asked(L"Door closed?")));
}

}  // namespace
}  // namespace ace::test
