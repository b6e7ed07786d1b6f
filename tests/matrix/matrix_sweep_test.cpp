#include "matrix/matrix_fixture.h"
#include "support/sweep_steps.h"

namespace ace::test {
namespace {

/// The rows by their keys, and what stands in the tables.
String MatrixLeft(const SweepRig& rig) {
    const EngineState& state = rig.engine->State();
    String text = L"rows";
    for (std::int32_t row = 0; row < state.VKSStepCount; ++row) {
        const Array2D<double>& ids = state.VKSDUTIds;
        text += ids.IsAllocated() && row <= ids.RowUpperBound()
                    ? L" " + std::to_wstring(static_cast<int>(ids(row, 0))) + L"_" +
                          std::to_wstring(static_cast<int>(ids(row, 1))) + L"_" +
                          std::to_wstring(static_cast<int>(ids(row, 2)))
                    : L" ?";
    }
    return text + L", tables " + std::to_wstring(state.VKSDUTFreqCount) +
           std::to_wstring(state.VKSDUTBandwidthCount) + std::to_wstring(state.VKSDUTPowerCount);
}
String StepsLeft(const SweepRig& rig) {
    const EngineState& state = rig.engine->State();
    String text = std::to_wstring(state.VKSStepCount);
    for (const String& key : TextsOf(state.VKSStepKeys)) {
        text += L" " + key;
    }
    return text;
}
String PairsLeft(const SweepRig& rig) {
    return std::to_wstring(rig.engine->State().VKSReplaceVars.count);
}
String VerdictLeft(const SweepRig& rig) {
    return rig.engine->VKSGetResult() ? L"passed" : L"failed";
}

void PrepareMatrix(SweepRig& rig) {
    rig.MakeEngine().State().Modul = aceVKSDUT;
}
/// One frequency with influence, two powers without.
void PrepareRows(SweepRig& rig) {
    PrepareMatrix(rig);
    rig.engine->AddVKSDUTFreq(L"2400", 2400);
    rig.engine->AddVKSDUTBandwidthID(L"20");
    rig.engine->AddVKSDUTPowerID(L"low");
    rig.engine->SetVKSDUTInfluence(1, 0, 0);
}
void PrepareTracedMatrix(SweepRig& rig) {
    PrepareMatrix(rig);
    rig.host->tracing = true;
}
/// A wireless test and its step, a matrix row and the global lists, each with one question.
void PrepareQuestions(SweepRig& rig, aceModul moduleKind) {
    rig.MakeEngine().State().Modul = aceVKSTemplate;
    rig.engine->AddSubrange(1, L"T");
    rig.engine->AddVKSStep(L"s", L"T", L"name");
    EngineState& state = rig.engine->State();
    state.VKSDUTIds.Redim(0, 1, 0, 2);
    for (const std::int32_t column : {0, 1, 2}) {
        state.VKSDUTIds(0, column) = -1.0;
    }
    for (p_Subrange* set : {&state.VKSTests[0], &state.VKSSteps[0], &state.VKSDUTGlob}) {
        Fill(*set, EnterList, {Action(atQuestion, aceNotify{})});
        Fill(*set, LeaveList, {Action(atQuestion, aceNotify{})});
    }
    state.Modul = moduleKind;
}
void PrepareTest(SweepRig& rig) {
    PrepareQuestions(rig, aceVKSTemplate);
}
void PrepareRow(SweepRig& rig) {
    PrepareQuestions(rig, aceVKSDUT);
}

// ---- operations that change the matrix -----------------------------------------------------

const String None = L"rows, tables 000";
const String NoneWithOne = L"rows, tables 100";
const String AllWithOne = L"rows -1_-1_-1, tables 100";

/// A rebuild at `depth` that adds the row for everything.
Steps FirstRowSteps(std::int32_t depth, const String& before, const String& entered,
                    const String& after) {
    return Operation(depth, before,
                     Operation(depth + 1, before, Operation(depth + 2, before, {}, entered), after),
                     after);
}
Steps AddFrequencySteps() {
    return Operation(1, None, FirstRowSteps(2, NoneWithOne, L"rows ?, tables 100", AllWithOne),
                     AllWithOne);
}
/// `start` and `end` are the calls of the two lines, and the first asks for the separator too where
/// it tells a frequency.
Steps TracedSteps() {
    const String asked = L"TraceLog.IsEnabled";
    const std::vector<String> line = {asked, L"Platform.ThreadId", L"TraceLog.WriteLine"};
    const std::vector<String> frequencyLine = {asked, L"Platform.DecimalSeparator",
                                               L"Platform.ThreadId", L"TraceLog.WriteLine"};
    return Raised(1, frequencyLine) + Raised(2, line) + Raised(3, frequencyLine) + Raised(4, line) +
           Raised(4, line) + Raised(3, line) + Raised(2, line) + Raised(1, line);
}

const String OneRow = L"rows 2400_-1_-1, tables 111";

/// The key of a row goes before its list: the spare key, all zeros, then stands in its place.
const String KeyGone = L"rows 0_0_0, tables 111";

/// The row of the frequency goes, and the row for everything comes.
Steps InfluenceSteps() {
    const String deletedEntry = L"rows, tables 111";
    const String all = L"rows -1_-1_-1, tables 111";
    return Operation(
        1, OneRow,
        Operation(2, OneRow,
                  Operation(3, OneRow, Operation(4, KeyGone, {}, deletedEntry), deletedEntry) +
                      Operation(3, deletedEntry, Operation(4, deletedEntry, {}, KeyGone), all),
                  all),
        all);
}
Steps RenameSteps() {
    return Operation(1, OneRow, Operation(2, OneRow, Operation(3, OneRow, {}, OneRow), OneRow),
                     OneRow);
}
Steps DeleteFrequencySteps() {
    const String noRow = L"rows, tables 111";
    return Operation(1, OneRow, Operation(2, OneRow, Operation(3, KeyGone, {}, noRow), noRow),
                     L"rows, tables 011");
}
Steps DeleteAllSteps() {
    const String noPower = L"rows 2400_-1_-1, tables 110";
    const String noBandwidth = L"rows 2400_-1_-1, tables 100";
    const String keyGone = L"rows 0_0_0, tables 100";
    const String noRow = L"rows, tables 100";
    return Operation(
        1, OneRow,
        Operation(2, OneRow, {}, noPower) + Operation(2, noPower, {}, noBandwidth) +
            Operation(2, noBandwidth,
                      Operation(3, noBandwidth, Operation(4, keyGone, {}, noRow), noRow), None),
        None);
}

/// A row that was added without its key, because the host failed in between, is error 9 for all
/// that follows: the first two can't be called again.
std::vector<SweepRow> ReportedRows() {
    const Steps alone = Operation(1, {}, {}, {});
    return {
        {"AddVKSDUTFreq", PrepareMatrix,
         [](SweepRig& rig) { rig.engine->AddVKSDUTFreq(L"2400", 2400); }, MatrixLeft,
         AddFrequencySteps(), false},
        {"AddVKSDUTFreqTraced", PrepareTracedMatrix,
         [](SweepRig& rig) { rig.engine->AddVKSDUTFreq(L"2400", 2400); }, MatrixLeft, TracedSteps(),
         false},
        {"AddVKSDUTBandwidthID", PrepareRows,
         [](SweepRig& rig) { rig.engine->AddVKSDUTBandwidthID(L"40", 0); }, MatrixLeft,
         RenameSteps()},
        {"AddVKSDUTPowerID", PrepareRows,
         [](SweepRig& rig) { rig.engine->AddVKSDUTPowerID(L"high", 0); }, MatrixLeft,
         RenameSteps()},
        {"SetVKSDUTInfluence", PrepareRows,
         [](SweepRig& rig) { rig.engine->SetVKSDUTInfluence(0, 0, 0); }, MatrixLeft,
         InfluenceSteps()},
        {"DeleteVKSDUTFreq", PrepareRows, [](SweepRig& rig) { rig.engine->DeleteVKSDUTFreq(2400); },
         MatrixLeft, DeleteFrequencySteps()},
        {"DeleteVKSDUTBandwidthID", PrepareRows,
         [](SweepRig& rig) { rig.engine->DeleteVKSDUTBandwidthID(0); }, MatrixLeft,
         Operation(1, OneRow, {}, L"rows 2400_-1_-1, tables 101")},
        {"DeleteVKSDUTPowerID", PrepareRows,
         [](SweepRig& rig) { rig.engine->DeleteVKSDUTPowerID(0); }, MatrixLeft,
         Operation(1, OneRow, {}, L"rows 2400_-1_-1, tables 110")},
        {"DeleteVKSDUTAll", PrepareRows, [](SweepRig& rig) { rig.engine->DeleteVKSDUTAll(); },
         MatrixLeft, DeleteAllSteps()},
    };
}
std::vector<SweepRow> OtherReportedRows() {
    return {
        {"AddVKSStep", PrepareTest,
         [](SweepRig& rig) { rig.engine->AddVKSStep(L"new", L"T", L"name"); }, StepsLeft,
         Operation(1, L"1 s ", Operation(2, L"1 s ", {}, L"2 s "), L"2 s new ")},
        {"SetVKSTests", PrepareTest,
         [](SweepRig& rig) {
             rig.engine->SetVKSTests(ArrayOf<String>({L"T"}), ArrayOf<String>({L"Test"}));
         },
         [](const SweepRig& rig) { return rig.engine->State().VKSHostNames[0]; },
         Raised(1, {L"TraceLog.IsEnabled"}) + Raised(1, {L"TraceLog.IsEnabled"}, L"Test")},
        {"SetVKSReplaceVar", PrepareMatrix,
         [](SweepRig& rig) {
             rig.engine->SetVKSReplaceVar(ArrayOf<String>({L"a", L"b"}), ArrayOf<Value>({1, 2}));
         },
         PairsLeft, Operation(1, L"0", {}, L"2")},
    };
}

// ---- operations that run lists or only ask -----------------------------------------------------

const String InRangeCall = L"Utilities.InRange";

/// A question without a message, which reports its own failures.
Steps QuestionSteps() {
    const String asked = L"TraceLog.IsEnabled";
    const String yield = L"Platform.Yield";
    return Raised(0, {yield}) + Raised(1, {asked, yield, yield, asked});
}
Steps ChosenSteps() {
    return Raised(0, {InRangeCall}) + QuestionSteps();
}
void RunRow(SweepRig& rig) {
    double frequency = 2400;
    std::int32_t bandwidth = 0;
    std::int32_t power = 0;
    rig.engine->VKSDUTStep(frequency, bandwidth, power);
}
void CountRow(SweepRig& rig) {
    double frequency = 2400;
    std::int32_t bandwidth = 0;
    std::int32_t power = 0;
    rig.engine->VKSDUTStepActionCount(frequency, bandwidth, power);
}
void AskForAll(SweepRig& rig) {
    rig.engine->VKSGetResult();
    rig.engine->VKSStepsHaveActions();
    rig.engine->VKSDUTStepGlobBeforeCount();
    rig.engine->VKSDUTStepGlobAfterCount();
    rig.engine->VKSInfByFreq();
    rig.engine->VKSInfByBandwidth();
    rig.engine->VKSInfByPower();
}

/// Raised as they come; only the question reports its own.
std::vector<SweepRow> BareRows() {
    Steps step = ChosenSteps();
    for (SweepStep& call : step) {
        call.left = L"passed";
    }
    return {
        {"BeforeVKSTest", PrepareTest, [](SweepRig& rig) { rig.engine->BeforeVKSTest(L"T"); },
         VerdictLeft, ChosenSteps()},
        {"AfterVKSTest", PrepareTest, [](SweepRig& rig) { rig.engine->AfterVKSTest(L"T"); },
         VerdictLeft, ChosenSteps()},
        {"VKSStep", PrepareTest, [](SweepRig& rig) { rig.engine->VKSStep(L"T", L"s"); },
         VerdictLeft, step},
        {"VKSStepHaveActions", PrepareTest,
         [](SweepRig& rig) { rig.engine->VKSStepHaveActions(L"T", L"s"); }, VerdictLeft,
         Raised(0, {InRangeCall}, L"failed")},
        {"VKSDUTStepGlobBefore", PrepareRow,
         [](SweepRig& rig) { rig.engine->VKSDUTStepGlobBefore(); }, VerdictLeft, QuestionSteps()},
        {"VKSDUTStepGlobAfter", PrepareRow,
         [](SweepRig& rig) { rig.engine->VKSDUTStepGlobAfter(); }, VerdictLeft, QuestionSteps()},
        {"VKSDUTStep", PrepareRow, RunRow, VerdictLeft, ChosenSteps()},
        {"VKSDUTStepActionCount", PrepareRow, CountRow, VerdictLeft, Raised(0, {InRangeCall})},
        {"Readers", PrepareRow, AskForAll, VerdictLeft, {}},
    };
}

class MatrixSweep : public ::testing::TestWithParam<SweepRow> {};

TEST_P(MatrixSweep, EveryHostCallThatFailsEndsTheOperationByItsPattern) {
    Sweep(GetParam());
}

const auto NameOf = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(Reported, MatrixSweep, ::testing::ValuesIn(ReportedRows()), NameOf);
INSTANTIATE_TEST_SUITE_P(OthersReported, MatrixSweep, ::testing::ValuesIn(OtherReportedRows()),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Bare, MatrixSweep, ::testing::ValuesIn(BareRows()), NameOf);

}  // namespace
}  // namespace ace::test
