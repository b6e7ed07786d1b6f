/// Rows that go at once leave what they would leave one by one, whatever fails on the way.
#include <set>

#include <ace/matrix/matrix_rows.h>

#include "support/sweep.h"

namespace ace::test {
namespace {

/// An operation that deletes rows.
struct Operation {
    const char* name;
    void (*act)(aceActionsEngine& engine);
};
void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}
const Operation Operations[] = {
    {"Frequency", [](aceActionsEngine& engine) { engine.DeleteVKSDUTFreq(100); }},
    {"LastFrequency", [](aceActionsEngine& engine) { engine.DeleteVKSDUTFreq(200); }},
    {"Bandwidth", [](aceActionsEngine& engine) { engine.DeleteVKSDUTBandwidthID(1); }},
    {"Power", [](aceActionsEngine& engine) { engine.DeleteVKSDUTPowerID(0); }},
    {"Influence", [](aceActionsEngine& engine) { engine.SetVKSDUTInfluence(0, 1, 1); }},
    {"TwoInfluences", [](aceActionsEngine& engine) { engine.SetVKSDUTInfluence(1, 0, 0); }},
    {"All", [](aceActionsEngine& engine) { engine.DeleteVKSDUTAll(); }},
};

/// How the rows stand: at once they can go only from arrays of the usual form.
enum class Way { AtOnce, OneByOne };

/// A matrix of 2 x 2 x 2 rows, each with a wait of its own in two lists, and a row for a frequency
/// that is in no table.
struct Rig : SweepRig {
    explicit Rig(Way way) {
        EngineState& state = MakeEngine().State();
        state.Modul = aceVKSDUT;
        for (const double frequency : {100.0, 200.0}) {
            engine->AddVKSDUTFreq(L"f", frequency);
        }
        for (const wchar_t* name : {L"x", L"y"}) {
            engine->AddVKSDUTBandwidthID(name);
            engine->AddVKSDUTPowerID(name);
        }
        engine->SetVKSDUTInfluence(1, 1, 1);
        state.VKSDUTIds(3, 0) = 777;
        for (std::int32_t row = 0; row <= state.VKSStepCount; ++row) {
            for (const ListFields& list : {EnterList, FreqList}) {
                Fill(state.VKSSteps[row], list, {Action(atWait, aceWait{row + 1.0})});
            }
        }
        if (way == Way::OneByOne) {
            Widen(state.VKSDUTIds);
        }
        host->journal.Clear();
    }
    /// The same keys with a fourth column.
    static void Widen(Array2D<double>& ids) {
        const Array2D<double> narrow = ids;
        ids.Redim(0, narrow.RowUpperBound(), 0, 3);
        for (std::int32_t row = 0; row <= narrow.RowUpperBound(); ++row) {
            for (std::int32_t column = 0; column < 3; ++column) {
                ids(row, column) = narrow(row, column);
            }
        }
    }
};

/// Milliseconds of the wait in the enter list of each set, the spare element included.
std::vector<double> WaitsOf(const EngineState& state) {
    std::vector<double> waits;
    for (std::int32_t row = 0; row <= state.VKSSteps.UpperBound(); ++row) {
        waits.push_back(std::get<aceWait>(state.VKSSteps[row].Enter[0].Parameter).Time);
    }
    return waits;
}

/// The keys of all rows, the spare element included.
std::vector<RowKey> KeysOf(const EngineState& state) {
    std::vector<RowKey> keys;
    for (std::int32_t row = 0; row <= state.VKSDUTIds.RowUpperBound(); ++row) {
        keys.push_back(KeyOf(state, row));
    }
    return keys;
}

/// All that can be seen behind an operation, spare elements included.
struct Outcome {
    std::int32_t error = 0;
    std::int32_t count = 0;
    std::vector<String> calls;
    std::vector<p_Subrange> sets;
    std::vector<double> keys;
    std::size_t answersLeft = 0;
    bool operator==(const Outcome&) const = default;
};

Outcome RunOf(const Operation& operation, Way way, std::size_t k, bool tracing,
              const std::vector<std::int32_t>& answers) {
    Rig rig(way);
    rig.host->tracing = tracing;
    rig.host->reportAnswers = {answers.begin(), answers.end()};
    if (k > 0) {
        rig.host->faults.FailCall(k, SweepError);
    }
    Outcome outcome;
    outcome.error = ErrorOf([&] { operation.act(*rig.engine); });
    const EngineState& state = rig.engine->State();
    outcome.count = state.VKSStepCount;
    outcome.calls = rig.host->journal.Lines();
    outcome.answersLeft = rig.host->reportAnswers.size();
    for (std::int32_t row = 0; row <= state.VKSSteps.UpperBound(); ++row) {
        outcome.sets.push_back(state.VKSSteps[row]);
    }
    for (std::int32_t row = 0; row <= state.VKSDUTIds.RowUpperBound(); ++row) {
        for (std::int32_t column = 0; column < 3; ++column) {
            outcome.keys.push_back(state.VKSDUTIds(row, column));
        }
    }
    return outcome;
}

/// Lines of error reports name a line of the source, which differs.
std::vector<String> WithoutLineNumbers(const std::vector<String>& lines) {
    std::vector<String> others;
    for (const String& line : lines) {
        others.push_back(line.starts_with(L"TraceLog.ReportError") ? L"report" : line);
    }
    return others;
}

class RowRemovalTest : public ::testing::TestWithParam<Operation> {
  protected:
    /// Lets each call of the host fail in turn, once, with these answers to the reports.
    static void CompareAll(bool tracing, const std::vector<std::int32_t>& answers) {
        const std::size_t calls = RunOf(GetParam(), Way::AtOnce, 0, tracing, {}).calls.size();
        for (std::size_t k = 0; k <= calls; ++k) {
            SCOPED_TRACE(k);
            Outcome atOnce = RunOf(GetParam(), Way::AtOnce, k, tracing, answers);
            Outcome oneByOne = RunOf(GetParam(), Way::OneByOne, k, tracing, answers);
            atOnce.calls = WithoutLineNumbers(atOnce.calls);
            oneByOne.calls = WithoutLineNumbers(oneByOne.calls);
            EXPECT_EQ(atOnce.error, oneByOne.error);
            EXPECT_EQ(atOnce.calls, oneByOne.calls);
            EXPECT_EQ(atOnce.keys, oneByOne.keys);
            EXPECT_TRUE(atOnce == oneByOne);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Operations, RowRemovalTest, ::testing::ValuesIn(Operations),
                         [](const auto& row) { return row.param.name; });

TEST_P(RowRemovalTest, LeavesTheSameWhereTheErrorIsRaised) {
    CompareAll(false, {});
    CompareAll(true, {});
}

TEST_P(RowRemovalTest, LeavesTheSameWhereTheStatementThatFailedRunsAgain) {
    CompareAll(false, {5});
    CompareAll(true, {5});
}

/// Of an error that passes through more than one operation, an outer statement runs again.
TEST_P(RowRemovalTest, LeavesTheSameWhereAnOuterStatementRunsAgain) {
    CompareAll(true, {0, 5});
    CompareAll(true, {0, 0, 5});
}

/// How many rows there are is seen by every call of the host: before all deletions and behind them.
TEST(RowRemoval, RowsOfAUsualMatrixGoAllAtOnce) {
    for (const Way way : {Way::AtOnce, Way::OneByOne}) {
        Rig rig(way);
        std::set<std::int32_t> counts;
        rig.host->journal.Observe(
            [&](const sim::HostCall&) { counts.insert(rig.engine->State().VKSStepCount); });
        rig.engine->DeleteVKSDUTFreq(100);
        rig.host->journal.Observe(nullptr);  // the engine goes behind the counts
        EXPECT_EQ(counts, way == Way::AtOnce ? (std::set{5, 8}) : (std::set{5, 6, 7, 8}));
    }
}

/// The first three rows go. The wait in the spare element is that of the last row, the key there
/// what stood behind the last one before.
TEST(RowRemoval, RowsThatStayMoveDownWithTheirKeysAndTheSpareElementsStay) {
    for (const Way way : {Way::AtOnce, Way::OneByOne}) {
        Rig rig(way);
        rig.engine->DeleteVKSDUTFreq(100);
        const EngineState& state = rig.engine->State();
        EXPECT_EQ(state.VKSStepCount, 5);
        EXPECT_EQ(WaitsOf(state), (std::vector<double>{4, 5, 6, 7, 8, 8}));
        EXPECT_EQ(KeysOf(state),
                  (std::vector<RowKey>{
                      {777, 1, 1}, {200, 0, 0}, {200, 0, 1}, {200, 1, 0}, {200, 1, 1}, {0, 0, 0}}));
    }
}

/// The table of a file may hold a frequency twice; the rows of it go once.
TEST(RowRemoval, RowsOfAFrequencyThatStandsTwiceInTheTableGoOnce) {
    SweepRig rig;
    EngineState& state = rig.MakeEngine().State();
    state.Modul = aceVKSDUT;
    for (std::int32_t i = 1; i <= 6; ++i) {
        rig.engine->AddVKSDUTFreq(L"f", 100.0 * i);
    }
    rig.engine->SetVKSDUTInfluence(1, 0, 0);
    ASSERT_EQ(state.VKSStepCount, 6);
    state.VKSDUTFreqs[1] = 100;
    state.VKSDUTFreqs[5] = 500;
    rig.engine->SetVKSDUTInfluence(0, 0, 0);
    ASSERT_EQ(state.VKSStepCount, 3);  // two that are in no table any more, and the one for all
    EXPECT_EQ(state.VKSDUTIds(0, 0), 200.0);
    EXPECT_EQ(state.VKSDUTIds(1, 0), 600.0);
    EXPECT_EQ(state.VKSDUTIds(2, 0), -1.0);
}

/// Two equal rows, and one that can't be found: such a matrix loses its rows one by one.
TEST(RowRemoval, RowsOfOneKeyGoInTheOrderOfTheirPlaces) {
    SweepRig rig;
    EngineState& state = rig.MakeEngine().State();
    state.Modul = aceVKSDUT;
    const double keys[][3] = {{1, -1, 0}, {1, -1, 1}, {1, -1, 0}, {1, -1, 2}};
    state.VKSStepCount = 4;
    state.VKSDUTPowerCount = 3;
    state.VKSDUTPowerNames.Redim(0, 2);
    state.VKSSteps.Redim(0, 4);
    state.VKSDUTIds.Redim(0, 4, 0, 2);
    for (std::int32_t row = 0; row < 4; ++row) {
        state.VKSSteps[row].EnterCount = row;
        for (std::int32_t column = 0; column < 3; ++column) {
            state.VKSDUTIds(row, column) = keys[row][column];
        }
    }
    rig.engine->DeleteVKSDUTPowerID(0);
    ASSERT_EQ(state.VKSStepCount, 2);
    EXPECT_EQ(state.VKSSteps[0].EnterCount, 1);
    EXPECT_EQ(state.VKSSteps[1].EnterCount, 3);
    EXPECT_EQ(state.VKSDUTIds(0, 2), 0.0);
    EXPECT_EQ(state.VKSDUTIds(1, 2), 1.0);
}

}  // namespace
}  // namespace ace::test
