#include <ace/core/actions_engine.h>
#include <ace/execution/api_macro.h>

#include "support/remote_fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

const String Running = L"StatusDisplay.ShowStatus(\"Execute API Macro: log.mac\", false, false)";
const String Load = L"ApiMacro.Load(\"log.mac\", nothing, nothing)";
const String Execute = L"ApiMacro.Execute()";
const String Finished = L"ApiMacro.WaitFinished()";
const String Result = L"ApiMacro.GetResult()";

class RunApiMacro : public RoutineTest {
  protected:
    RunApiMacro() {
        record.Program = L"log.mac";
        record.Parameters.Redim(0, 0);
    }
    Boolean Run() { return modActions::RunApiMacro(context, record); }
    void SetParameters(const std::vector<String>& texts) {
        record.Parameters.Redim(1, static_cast<std::int32_t>(texts.size()));
        for (std::size_t i = 0; i < texts.size(); ++i) {
            record.Parameters[static_cast<std::int32_t>(i) + 1] = texts[i];
        }
    }
    void SetVariable(const String& search, const Value& value) {
        record.vks.count = 1;
        record.vks.strSearch.Redim(0, 0);
        record.vks.strSearch[0] = search;
        record.vks.valReplace.Redim(0, 0);
        record.vks.valReplace[0] = value;
    }

    aceAPI record;
};

TEST_F(RunApiMacro, AMacroWithoutParametersLoadsWithNothing) {
    record.Freq = 150e6;
    EXPECT_TRUE(Run());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(Load, Running, Execute, Finished, Result, Result, StatusCleared));
}

/// Parameters count from 1: what stands at 0 is none, and nothing is looked for in it.
TEST_F(RunApiMacro, WithoutAParameterAtOneNothingIsFilledIn) {
    record.Parameters[0] = L"#FREQ#";
    EXPECT_TRUE(Run());
    const std::vector<String> lines = host->journal.Lines();
    EXPECT_EQ(lines.at(0), L"Factory.MakeApiMacro()");
    EXPECT_EQ(lines.at(1), Load);
    EXPECT_EQ(record.Parameters[0], L"#FREQ#");
}

TEST_F(RunApiMacro, TheNameOfTheProgramIsTakenAsItStands) {
    record.Program = L"#FREQ##A#.mac";
    SetParameters({L"#A#"});
    SetVariable(L"#A#", String(L"x"));
    Run();
    EXPECT_EQ(TakeCalls()[0], L"ApiMacro.Load(\"#FREQ##A#.mac\", [\"x\"], nothing)");
}

TEST_F(RunApiMacro, FewerVariablesThanTheirCountSaysEndItInSilence) {
    SetParameters({L"#A#"});
    record.vks.count = 1;
    EXPECT_FALSE(Run());
    EXPECT_THAT(TakeCalls(), ElementsAre(StatusCleared));
}

TEST_F(RunApiMacro, TheFrequencyIsFilledInWithOneDecimalAndTheLocalesSeparator) {
    SetParameters({L"#FREQ#", L"EUT #FREQ# Hz"});
    record.Freq = 150e6;
    host->decimalSeparator = L',';
    EXPECT_TRUE(Run());
    EXPECT_EQ(TakeCalls()[0],
              L"ApiMacro.Load(\"log.mac\", [\"150000000,0\", \"EUT 150000000,0 Hz\"], nothing)");
}

TEST_F(RunApiMacro, VariablesComeBeforeTheFrequencySoThatTheirValuesAreFilledInToo) {
    SetParameters({L"#WHAT#"});
    SetVariable(L"#WHAT#", String(L"at #FREQ#"));
    record.Freq = 1.0;
    Run();
    EXPECT_EQ(TakeCalls()[0], L"ApiMacro.Load(\"log.mac\", [\"at 1.0\"], nothing)");
}

TEST_F(RunApiMacro, AVariableCalledFreqWinsOverTheFrequency) {
    SetParameters({L"#FREQ#"});
    SetVariable(L"#FREQ#", 2.5);
    host->decimalSeparator = L',';
    record.Freq = 1.0;
    Run();
    EXPECT_EQ(TakeCalls()[0], L"ApiMacro.Load(\"log.mac\", [\"2.5\"], nothing)");
}

/// A host that calls back when it is asked for the locale may run a macro with fewer parameters:
/// this one then has none of its own left.
TEST_F(RunApiMacro, AnotherMacroAtTheQuestionForTheLocaleEndsItInSilence) {
    SetParameters({L"1", L"#FREQ#"});
    host->beforeCall = [&](StringView operation, const auto&) {
        if (operation == L"Platform.DecimalSeparator") {
            SetParameters({String(100, L'x')});
        }
    };
    EXPECT_FALSE(Run());
    EXPECT_THAT(TakeCalls(), ElementsAre(StatusCleared));
}

TEST_F(RunApiMacro, VariablesThatAreReplacedAtTheQuestionForTheLocaleAreTheNewOnes) {
    SetParameters({L"#A#"});
    SetVariable(L"#A#", 2.5);
    host->beforeCall = [&](StringView operation, const auto&) {
        if (operation == L"Platform.DecimalSeparator") {
            SetVariable(L"#A#", 3.5);
        }
    };
    EXPECT_TRUE(Run());
    EXPECT_EQ(TakeCalls()[0], L"ApiMacro.Load(\"log.mac\", [\"3.5\"], nothing)");
}

TEST_F(RunApiMacro, FailureToLoadLeavesTheFilledTextsInTheRecord) {
    SetParameters({L"at #FREQ#"});
    record.Freq = 1.0;
    host->faults.FailOperation(L"ApiMacro.Load", 1, 77);
    EXPECT_FALSE(Run());
    ASSERT_EQ(record.Parameters.UpperBound(), 1);
    EXPECT_EQ(record.Parameters[1], L"at 1.0");
    EXPECT_TRUE(Run());
}

TEST_F(RunApiMacro, AMacroThatDoesNotLoadFailsInSilence) {
    host->macros[L"log.mac"].loads = false;
    EXPECT_FALSE(Run());
    EXPECT_THAT(TakeCalls(), ElementsAre(Load, StatusCleared));
}

TEST_F(RunApiMacro, AMacroThatDoesNotStartShowsTheRunnersText) {
    host->macros[L"log.mac"].starts = false;
    host->macros[L"log.mac"].errorText = L"no licence";
    host->user.ExpectBox(L"no licence");
    EXPECT_FALSE(Run());
    EXPECT_THAT(
        TakeCalls(),
        ElementsAre(Load, Running, Execute,
                    L"UserDialogs.ShowMessageBox(\"no licence\", 16, \"T(9430)\")", StatusCleared));
}

TEST_F(RunApiMacro, AMacroThatFailsIsNamedInAMessage) {
    host->macros[L"log.mac"].results = {false, false};
    host->user.ExpectBox(L"T(9183) [log.mac]");
    EXPECT_FALSE(Run());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(Load, Running, Execute, Finished, Result, Result,
                            L"UserDialogs.ShowMessageBox(\"T(9183) [log.mac]\", 48, \"T(9430)\")",
                            StatusCleared));
}

TEST_F(RunApiMacro, TheFirstAnswerIsTheResultAndTheSecondOnlyDecidesTheMessage) {
    host->macros[L"log.mac"].results = {true, false};
    host->user.ExpectBox(L"T(9183) [log.mac]");
    EXPECT_TRUE(Run());
    EXPECT_EQ(host->journal.LinesOf(L"UserDialogs").size(), 1U);
    host->macros[L"log.mac"].results = {false, true};
    host->journal.Clear();
    EXPECT_FALSE(Run());
    EXPECT_EQ(host->journal.LinesOf(L"UserDialogs").size(), 0U);
}

TEST_F(RunApiMacro, AnArrayThatWasNeverMadeEndsInSilence) {
    record.Parameters.Erase();
    EXPECT_FALSE(Run());
    EXPECT_THAT(TakeCalls(), ElementsAre(StatusCleared));
}

TEST_F(RunApiMacro, OneMacroObjectServesTheThread) {
    Run();
    const std::shared_ptr<IApiMacro> first = context.RunningMacro;
    Run();
    EXPECT_EQ(context.RunningMacro, first);
}

TEST_F(RunApiMacro, AnErrorInAnyCallEndsItInSilenceAndClearsTheStatus) {
    EXPECT_TRUE(Run());  // makes the runner
    TakeCalls();
    const String calls[] = {Load, Running, Execute, Finished, Result};
    for (std::size_t k = 1; k <= std::size(calls); ++k) {
        host->faults.Clear();
        host->faults.FailCall(k, 57);
        EXPECT_FALSE(Run()) << k;
        const std::vector<String> seen = TakeCalls();
        ASSERT_EQ(seen.size(), k + 1);
        EXPECT_EQ(seen[k - 1], calls[k - 1] + L" -> error 57");
        EXPECT_EQ(seen.back(), StatusCleared);
    }
}

TEST_F(RunApiMacro, StopAllActionsBreaksOffTheMacroThatRuns) {
    aceActionsEngine engine(context);
    host->macros[L"log.mac"].whileRunning = [&] { engine.StopAllActions(); };
    host->macros[L"log.mac"].results = {false, false};
    host->user.ExpectBox(L"T(9183) [log.mac]");
    host->journal.Clear();
    EXPECT_FALSE(Run());
    EXPECT_THAT(
        TakeCalls(),
        ElementsAre(Load, Running, Execute, Finished, L"ApiMacro.Abort()", StatusCleared, Result,
                    Result, L"UserDialogs.ShowMessageBox(\"T(9183) [log.mac]\", 48, \"T(9430)\")",
                    StatusCleared));
}

}  // namespace
}  // namespace ace::test
