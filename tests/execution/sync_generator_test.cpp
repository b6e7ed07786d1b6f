#include <ace/execution/sync_generator.h>

#include "support/device_fixture.h"

namespace ace::test {
namespace {

const String KindAsked = L"TestInfo.TestKind(\"\")";
const String Question = L"UserDialogs.ShowMessageBox(\"T(9432)\", 4, \"T(9430): T(9431)\")";
const String TableAsked = L"SystemServices.GetTable(40, 10, \"Levels\", 2, false)";

/// A generator that follows a table, without a path unless a test names one.
class SyncGenerator : public DeviceTest {
  protected:
    SyncGenerator() {
        record.GenName = L"Gen";
        record.TableName = L"Levels";
        record.TableType = 40;
        record.TableMeasClass = 2;
        record.Freq = 150e6;
        table->levels = {{100e6, -20.0}, {200e6, -10.0}};
    }
    Boolean Sync() { return modActions::SyncGenerator(context, record, ignoreAll); }
    void NameThePath() {
        record.SigPathName = L"Cable";
        path->correction = {{100e6, 2.0}, {200e6, 3.0}};
    }
    static String GeneratorState() { return Called(L"RfGenerator.CommonDevice", L"Gen"); }
    static Lines SwitchedOff() {
        return {Called(L"RfGenerator.SetRfOn", L"Gen", false),
                Called(L"RfGenerator.Execute", L"Gen")};
    }
    /// The generator is woken before the test.
    static Lines Ready() { return Journal(GeneratorState(), StateOf(L"Gen"), SwitchedOff()); }
    static String Compared(double frequency) {
        return Called(L"Utilities.IsEqual", frequency, 0.0);
    }
    /// The steps with a frequency, without a path; halfway between the two entries of the table.
    static Lines Followed(bool isOn) {
        return {Compared(150e6),
                Called(L"RfGenerator.SetFrequency", L"Gen", 150e6),
                Called(L"CalTable.GetValue", L"Levels", 150e6, 1, 2),
                Called(L"RfGenerator.SetLevel", L"Gen", -15.0),
                Called(L"RfGenerator.SetRfOn", L"Gen", isOn),
                Called(L"RfGenerator.Execute", L"Gen")};
    }

    std::shared_ptr<sim::SimRfGenerator> generator = Add<sim::SimRfGenerator>(L"Gen");
    std::shared_ptr<sim::SimCalTable> table = Add<sim::SimCalTable>(L"Levels");
    std::shared_ptr<sim::SimSignalPath> path = Add<sim::SimSignalPath>(L"Cable");
    aceTrackFreq record;
};

// ---- before the test ---------------------------------------------------------------------------

TEST_F(SyncGenerator, BeforeTheTestTheGeneratorIsFoundSwitchedOffAndThenFollows) {
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Found(L"Gen"), Ready(), TableAsked, Followed(true)));
    EXPECT_TRUE(context.GeneratorEnabled);
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{150e6, -15.0, true}));
    EXPECT_EQ(record.GenDev, generator);
    EXPECT_EQ(record.CalTable, table);
    EXPECT_EQ(record.SigPath, nullptr);
}

TEST_F(SyncGenerator, NothingIsTraced) {
    host->tracing = true;
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Found(L"Gen"), Ready(), TableAsked, Followed(true)));
}

TEST_F(SyncGenerator, AFrequencyOf0SetsNothingOnTheGeneratorButTheTableIsFetched) {
    record.Freq = 0.0;
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"Gen"), Ready(), TableAsked, Compared(0.0)));
    EXPECT_EQ(record.CalTable, table);
    EXPECT_EQ(generator->output, sim::SimRfGenerator::Output{});
}

TEST_F(SyncGenerator, WhatWasFoundIsKeptAndNotFetchedAgain) {
    NameThePath();
    Sync();
    TakeCalls();
    record.GenName = record.SigPathName = record.TableName = L"another name";
    record.Freq = 0.0;
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Ready(), Called(L"SignalPath.CommonDevice", L"Cable"),
                      StateOf(L"Cable"), Compared(0.0)));
}

// ---- the signal path ---------------------------------------------------------------------------

TEST_F(SyncGenerator, APathIsLookedUpBeforeTheGeneratorAndItsCorrectionAdded) {
    NameThePath();
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Found(L"Cable"), Called(L"SignalPath.Prepare", L"Cable"),
                      Found(L"Gen"), Ready(), Called(L"SignalPath.CommonDevice", L"Cable"),
                      StateOf(L"Cable"), TableAsked, Compared(150e6),
                      Called(L"RfGenerator.SetFrequency", L"Gen", 150e6),
                      Called(L"CalTable.GetValue", L"Levels", 150e6, 1, 2),
                      Called(L"SignalPath.GetCorrection", L"Cable", 150e6, 1),
                      Called(L"RfGenerator.SetLevel", L"Gen", -12.5),
                      Called(L"RfGenerator.SetRfOn", L"Gen", true),
                      Called(L"RfGenerator.Execute", L"Gen")));
    EXPECT_EQ(record.SigPath, path);
}

TEST_F(SyncGenerator, ASignalPathWithoutCorrectionAdds0) {
    NameThePath();
    path->correction.clear();
    EXPECT_FALSE(Sync());
    EXPECT_EQ(generator->output.level, -15.0);
}

TEST_F(SyncGenerator, APathThatIsNotFoundFailsBeforeTheGeneratorIsLookedUp) {
    record.SigPathName = L"nowhere";
    ExpectError(L"cmdStopTest", L"T(9321)", L"Gen", 0, L"");
    EXPECT_TRUE(Sync());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"nowhere"), ErrorShown()));
}

TEST_F(SyncGenerator, AnInactivePathIsActivatedAndOneThatStaysOffFails) {
    NameThePath();
    path->state = 0;
    record.Freq = 0.0;
    EXPECT_FALSE(Sync());
    const String common = Called(L"SignalPath.CommonDevice", L"Cable");
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Found(L"Cable"), Called(L"SignalPath.Prepare", L"Cable"),
                      Found(L"Gen"), Ready(), common, Woken(L"Cable"), TableAsked, Compared(0.0)));
    path->state = path->stateOnceActivated = 0;
    ExpectError(L"cmdIgnore", L"T(9321)", L"Gen", 4010, L"T(3350)");
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Ready(), common, Woken(L"Cable"), ErrorShown()));
}

// ---- waking the generator ----------------------------------------------------------------------

TEST_F(SyncGenerator, AnInactiveGeneratorIsActivatedAndSwitchedOff) {
    generator->state = 0;
    record.Freq = 0.0;
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"Gen"), GeneratorState(), Woken(L"Gen"),
                                   SwitchedOff(), TableAsked, Compared(0.0)));
}

TEST_F(SyncGenerator, AGeneratorThatDoesNotBecomeActiveFailsBeforeTheTable) {
    for (const std::int32_t state : {0, 2}) {
        generator->state = 0;
        generator->stateOnceActivated = state;
        record.GenDev = nullptr;
        ExpectError(L"cmdStopTest", L"T(9321)", L"Gen", 4010, L"T(3350)");
        EXPECT_TRUE(Sync());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"Gen"), GeneratorState(), Woken(L"Gen"),
                                       ErrorShown()));
    }
}

TEST_F(SyncGenerator, AGeneratorInAnotherStateIsNotSwitchedOffAndFollows) {
    generator->state = 2;
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"Gen"), GeneratorState(), StateOf(L"Gen"),
                                   TableAsked, Followed(true)));
}

// ---- the question ------------------------------------------------------------------------------

TEST_F(SyncGenerator, TheAnswerYesEnablesTheOutput) {
    record.AskOnMeasStart = true;
    host->user.ExpectQuestion(true);
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Question, Found(L"Gen"), Ready(), TableAsked, Followed(true)));
    EXPECT_TRUE(context.GeneratorEnabled);
}

/// Nothing is woken for an output that stays off, the path neither.
TEST_F(SyncGenerator, TheAnswerNoLeavesTheOutputOffButTheGeneratorStillFollows) {
    record.AskOnMeasStart = true;
    generator->state = 0;
    NameThePath();
    path->state = 0;
    path->correction.clear();
    host->user.ExpectQuestion(false);
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Question, Found(L"Cable"),
                      Called(L"SignalPath.Prepare", L"Cable"), Found(L"Gen"), TableAsked,
                      Compared(150e6), Called(L"RfGenerator.SetFrequency", L"Gen", 150e6),
                      Called(L"CalTable.GetValue", L"Levels", 150e6, 1, 2),
                      Called(L"SignalPath.GetCorrection", L"Cable", 150e6, 1),
                      Called(L"RfGenerator.SetLevel", L"Gen", -15.0),
                      Called(L"RfGenerator.SetRfOn", L"Gen", false),
                      Called(L"RfGenerator.Execute", L"Gen")));
    EXPECT_FALSE(context.GeneratorEnabled);
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{150e6, -15.0, false}));
}

TEST_F(SyncGenerator, BeforeTheTestTheOutputIsEnabledAnewEachTime) {
    record.AskOnMeasStart = true;
    host->user.ExpectQuestion(false);
    Sync();
    record.AskOnMeasStart = false;
    Sync();
    EXPECT_TRUE(context.GeneratorEnabled);
}

// ---- during the test ---------------------------------------------------------------------------

TEST_F(SyncGenerator, DuringTheTestTheSameActionOnlyTracksWithTheOutputAsItWasDecided) {
    for (const bool isEnabled : {true, false}) {
        record.AskOnMeasStart = true;
        host->user.ExpectQuestion(isEnabled);
        context.TestRunning = false;
        Sync();
        context.TestRunning = true;
        TakeCalls();
        EXPECT_FALSE(Sync());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Followed(isEnabled)));
        EXPECT_EQ(context.GeneratorEnabled, isEnabled);
    }
}

/// The generator and the table are looked up whenever they are missing, the path is not; nobody is
/// asked and nothing is woken.
TEST_F(SyncGenerator, DuringTheTestNoPathIsLookedUpAndNothingIsWoken) {
    context.TestRunning = true;
    context.GeneratorEnabled = true;
    record.AskOnMeasStart = true;
    NameThePath();
    generator->state = 0;
    EXPECT_FALSE(Sync());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"Gen"), TableAsked, Followed(true)));
    EXPECT_EQ(record.SigPath, nullptr);
}

// ---- the host's test ---------------------------------------------------------------------------

TEST_F(SyncGenerator, InATestOfKind1Or2NothingAtAllHappensNotEvenTheLookup) {
    host->testState = 0;
    record.AskOnMeasStart = true;
    for (const std::int32_t kind : {1, 2}) {
        host->testKind = kind;
        EXPECT_FALSE(Sync());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), KindAsked));
    }
    EXPECT_FALSE(context.GeneratorEnabled);
}

TEST_F(SyncGenerator, InATestOfAnyOtherKindTheGeneratorFollows) {
    host->testState = 0;
    context.TestRunning = true;
    record.GenDev = generator;
    record.CalTable = table;
    for (const std::int32_t kind : {0, 3, -1}) {
        host->testKind = kind;
        EXPECT_FALSE(Sync());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), KindAsked, Followed(false)));
    }
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(SyncGenerator, AGeneratorThatIsNotFoundOrIsNoneIsShownByItsName) {
    Add<sim::SimMonitor>(L"EUT");
    for (const wchar_t* name : {L"gone", L"EUT"}) {
        record.GenName = name;
        ExpectError(L"cmdIgnore", L"T(9321)", name, 0, L"");
        EXPECT_FALSE(Sync());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(name), ErrorShown()));
    }
}

TEST_F(SyncGenerator, ATableThatIsNotFoundIsShownUnderTheGeneratorsName) {
    record.TableName = L"gone";
    ExpectError(L"cmdStopTest", L"T(9321)", L"Gen", 0, L"");
    EXPECT_TRUE(Sync());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Found(L"Gen"), Ready(),
                      L"SystemServices.GetTable(40, 10, \"gone\", 2, false)", ErrorShown()));
    EXPECT_EQ(record.CalTable, nullptr);
}

TEST_F(SyncGenerator, IgnoreAllIsHandedBackAndSilencesEveryLaterFailure) {
    host->faults.FailOperation(L"RfGenerator.SetLevel", 1, 77, sim::FaultScript::Until::ForEver);
    ExpectError(L"cmdIgnoreAll", L"T(9321)", L"Gen", 77, L"scripted failure");
    EXPECT_FALSE(Sync());
    EXPECT_TRUE(ignoreAll);
    EXPECT_FALSE(Sync());
    record.CalTable = nullptr;
    record.TableName = L"gone";
    EXPECT_FALSE(Sync());
}

/// Only a check knows these numbers as an abort.
TEST_F(SyncGenerator, AnAbortIsAFailureLikeAnyOther) {
    host->faults.FailOperation(L"RfGenerator.SetFrequency", 1, 8202);
    ExpectError(L"cmdIgnore", L"T(9321)", L"Gen", 8202, L"scripted failure");
    EXPECT_FALSE(Sync());
}

}  // namespace
}  // namespace ace::test
