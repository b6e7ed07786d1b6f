/// Generators and monitoring devices that follow the frequency within the moments of a test.
#include "support/device_moments.h"

namespace ace::test {
namespace {

const String Question = L"UserDialogs.ShowMessageBox(\"T(9432)\", 4, \"T(9430): T(9431)\")";
const String TableAsked = L"SystemServices.GetTable(0, 10, \"Levels\", 0, false)";

/// The calls that wake the generator and leave its output off.
Lines Woken() {
    return {Called(L"RfGenerator.CommonDevice", L"Gen"), StateOf(L"Gen"),
            Called(L"RfGenerator.SetRfOn", L"Gen", false), Called(L"RfGenerator.Execute", L"Gen")};
}
/// The generator follows at the level 0 of a table without entries.
Lines Followed(double hertz, bool isOn) {
    return {Called(L"Utilities.IsEqual", hertz, 0.0),
            Called(L"RfGenerator.SetFrequency", L"Gen", hertz),
            Called(L"CalTable.GetValue", L"Levels", hertz, 1, 2),
            Called(L"RfGenerator.SetLevel", L"Gen", 0.0),
            Called(L"RfGenerator.SetRfOn", L"Gen", isOn),
            Called(L"RfGenerator.Execute", L"Gen")};
}
/// A monitoring device is tuned, and the message for its settling shows.
Lines Tuned(double hertz) {
    return {Called(L"MonitorDevice.CommonDevice", L"EUT"), StateOf(L"EUT"), UsedFor(L"EUT", 8),
            Called(L"MonitorDevice.SetFrequency", L"EUT", hertz),
            L"SystemServices.ShowTimedMessage(\"Wait for Monitoring ... 0 ms\\r\\nPlease wait\", "
            L"64, \"T(9430): T(9431)\", 0)"};
}

class GeneratorMoments : public DeviceMoments {
  protected:
    GeneratorMoments() { context.UserDialogs(); }
    void FollowEverywhere(const std::vector<p_Action>& actions) {
        Fill(State().MainTest, FreqList, actions);
    }
    /// How often the operator was asked; the journal is empty afterwards.
    std::size_t TakeQuestions() {
        const std::size_t count = host->journal.LinesOf(L"UserDialogs").size();
        host->journal.Clear();
        return count;
    }

    std::shared_ptr<sim::SimRfGenerator> generator = Add<sim::SimRfGenerator>(L"Gen");
    std::shared_ptr<sim::SimMonitor> monitor = Add<sim::SimMonitor>(L"EUT");
    std::shared_ptr<sim::SimCalTable> table = Add<sim::SimCalTable>(L"Levels");
};

// ---- the start of the test ---------------------------------------------------------------------

/// No frequency yet: the generator gets none, the monitoring device gets the 0 as it stands.
TEST_F(GeneratorMoments, TheStartOfATestFindsTheGeneratorAndTunesTheMonitorTo0) {
    FollowEverywhere({Follow(L"Gen"), WaitFor(1), Follow(L"", L"EUT")});
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeCalls(), Journal(Yielded, TestAsked(), Found(L"Gen"), Woken(), TableAsked,
                                   Compared(L"0", L"0"), Yielded, Yielded, TestAsked(),
                                   Found(L"EUT"), Tuned(0.0)));
    EXPECT_EQ(generator->output, sim::SimRfGenerator::Output{});
}

TEST_F(GeneratorMoments, AtAFrequencyBothFollowWithWhatWasFoundAtTheStart) {
    FollowEverywhere({Follow(L"Gen"), Follow(L"", L"EUT")});
    engine->StartTest();
    TakeCalls();
    EXPECT_FALSE(engine->NewFrequency(80e6, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"80000000", L"-1"), Yielded, TestAsked(),
                                   Followed(80e6, true), Yielded, TestAsked(), Tuned(80e6)));
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{80e6, 0.0, true}));
    EXPECT_EQ(monitor->frequency, 80e6);
}

/// The record keeps its last frequency, and the next test begins with it.
TEST_F(GeneratorMoments, TheNextTestBeginsWithTheLastFrequency) {
    FollowEverywhere({Follow(L"Gen"), Follow(L"", L"EUT")});
    engine->StartTest();
    engine->NewFrequency(80e6, false);
    engine->StopTest();
    TakeCalls();
    engine->StartTest();
    EXPECT_EQ(TakeCalls(), Journal(Yielded, TestAsked(), Woken(), Followed(80e6, true), Yielded,
                                   TestAsked(), Tuned(80e6)));
}

TEST_F(GeneratorMoments, AStopOfTheOperatorEndsTheTrackingAtTheStart) {
    FollowEverywhere({Follow(L"gone"), Follow(L"Gen")});
    Answer(L"cmdStopTest");
    EXPECT_TRUE(engine->StartTest());
    EXPECT_EQ(TakeCalls(), Journal(Yielded, TestAsked(), Found(L"gone"), ErrorShown()));
    EXPECT_TRUE(context.TestRunning);
}

TEST_F(GeneratorMoments, OtherModulesTrackNothingAtTheStart) {
    for (const aceModul moduleKind :
         {aceMonitoring, aceEMSAutoTemplateGeneral, aceEMIAutoTemplate, aceAziChart}) {
        Serve(moduleKind);
        for (p_Subrange* set :
             {&State().MoniEut, &State().EMSAutoGeneral, &State().EMIAutoTest, &State().AziChart}) {
            Fill(*set, FreqList, {Follow(L"Gen")});
        }
        EXPECT_FALSE(engine->StartTest());
        EXPECT_EQ(TakeCalls(), Lines{}) << moduleKind;
    }
}

// ---- the question ------------------------------------------------------------------------------

TEST_F(GeneratorMoments, TheQuestionComesOnceBeforeTheTestAndItsAnswerHolds) {
    FollowEverywhere({Follow(L"Gen", {}, true)});
    for (const bool isEnabled : {false, true}) {
        host->user.ExpectQuestion(isEnabled);
        engine->StartTest();
        EXPECT_EQ(TakeQuestions(), 1U);
        for (const double hertz : {80e6, 81e6}) {
            engine->NewFrequency(hertz, false);
            EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{hertz, 0.0, isEnabled}));
        }
        engine->StopTest();
        EXPECT_EQ(TakeQuestions(), 0U);
        EXPECT_EQ(context.GeneratorEnabled, isEnabled);
    }
}

TEST_F(GeneratorMoments, TheQuestionStandsBeforeTheLookups) {
    FollowEverywhere({Follow(L"Gen", {}, true)});
    host->user.ExpectQuestion(false);
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeCalls(), Journal(Yielded, TestAsked(), Question, Found(L"Gen"), TableAsked,
                                   Compared(L"0", L"0")));
}

/// The mark of the running test decides, not the course of the test.
TEST_F(GeneratorMoments, AFrequencyBehindTheEndOfTheTestAsksAgain) {
    FollowEverywhere({Follow(L"Gen", {}, true)});
    host->user.ExpectQuestion(true);
    engine->StartTest();
    engine->NewFrequency(80e6, false);
    engine->StopTest();
    EXPECT_EQ(TakeQuestions(), 1U);
    host->user.ExpectQuestion(false);
    engine->NewFrequency(81e6, false);
    EXPECT_EQ(TakeQuestions(), 1U);
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{81e6, 0.0, false}));
}

/// Whoever makes an object clears that mark for all of them.
TEST_F(GeneratorMoments, AnObjectThatIsMadeDuringTheTestBringsTheQuestionBack) {
    FollowEverywhere({Follow(L"Gen", {}, true)});
    host->user.ExpectQuestion(false);
    engine->StartTest();
    const aceActionsEngine other(context);
    EXPECT_FALSE(context.GeneratorEnabled);
    TakeQuestions();
    host->user.ExpectQuestion(true);
    engine->NewFrequency(80e6, false);
    EXPECT_EQ(TakeQuestions(), 1U);
    EXPECT_TRUE(generator->output.isOn);
}

TEST_F(GeneratorMoments, EachActionThatAsksDecidesForAllGenerators) {
    FollowEverywhere({Follow(L"Gen", {}, true), Follow(L"Gen", {}, true)});
    host->user.ExpectQuestion(true);
    host->user.ExpectQuestion(false);
    engine->StartTest();
    EXPECT_EQ(TakeQuestions(), 2U);
    engine->NewFrequency(80e6, false);
    EXPECT_FALSE(generator->output.isOn);
}

// ---- outside a template ------------------------------------------------------------------------

TEST_F(GeneratorMoments, OutsideATemplateATrackingLosesItsRecordBeforeItsDeviceIsTouched) {
    Serve(aceMonitoring);
    Fill(State().MoniEut, FreqList, {Follow(L"Gen", L"EUT"), OnDevice(atSetDevice, L"EUT")});
    EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(80e6, false); }), 13);
    EXPECT_EQ(TakeCalls(),
              Journal(Compared(L"80000000", L"0"), Yielded, MismatchReported, MismatchReported));
    EXPECT_EQ(State().MoniEut.Freq[0].Parameter, ActionParameter(std::int32_t{5}));
    engine->StartTest();
    EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(80e6, false); }), 13);
    EXPECT_EQ(State().MoniEut.Freq[0].Parameter, ActionParameter(std::int32_t{5}));
    EXPECT_EQ(host->journal.LinesOf(L"DeviceList"), Lines{});
}

TEST_F(GeneratorMoments, InATestOfKind1Or2TheWholeSweepTouchesNoDevice) {
    host->testState = 0;
    FollowEverywhere({Follow(L"Gen", L"EUT", true)});
    const Lines asked = {TestAsked(), L"TestInfo.TestKind(\"\")"};
    for (const std::int32_t kind : {1, 2}) {
        host->testKind = kind;
        EXPECT_FALSE(engine->StartTest());
        EXPECT_EQ(TakeCalls(), Journal(Yielded, asked, asked));
        EXPECT_FALSE(engine->NewFrequency(80e6, false));
        EXPECT_EQ(TakeCalls(), Journal(Compared(L"80000000", L"-1"), Yielded, asked, asked));
        engine->StopTest();
    }
}

}  // namespace
}  // namespace ace::test
