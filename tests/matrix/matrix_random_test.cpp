#include <random>

#include "matrix/matrix_model_fixture.h"
#include "support/sample.h"

namespace ace::test {
namespace {

// ---- all combinations of the flags -------------------------------------------------------------

/// From one combination of the flags to another, under a template number.
using Transition = std::tuple<unsigned, unsigned, int>;

class FlagsTest : public MatrixModelTest, public ::testing::WithParamInterface<Transition> {
  protected:
    FlagsTest() { SetTemplate(std::get<2>(GetParam())); }

    /// A table of each dimension; 0 is the test mode.
    void Grow(std::size_t entries) {
        constexpr std::array<double, 4> frequencies = {2400, 0, 5000, 900};
        for (std::size_t i = 0; i < entries; ++i) {
            AddFrequency(frequencies.at(i));
            AddName(1, -1);
            AddName(2, -1);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Transitions, FlagsTest,
                         ::testing::Combine(::testing::Range(0U, 8U), ::testing::Range(0U, 8U),
                                            ::testing::Values(0, 1)));

TEST_P(FlagsTest, RowsFollowTheFlagsForTablesOfEverySize) {
    for (std::size_t entries = 0; entries <= 4; ++entries) {
        SetInfluence(std::get<0>(GetParam()));
        Grow(entries);
        EditAll();
        SetInfluence(std::get<1>(GetParam()));
        Compare();
        SetInfluence(std::get<0>(GetParam()));
        Compare();
        DeleteAll();
        Compare();
    }
}

TEST_P(FlagsTest, RowsFollowTablesThatGrowAndShrinkUnderTheFlags) {
    SetInfluence(std::get<0>(GetParam()));
    Grow(3);
    EditAll();
    AddFrequency(900);
    AddName(1, -1);
    Compare();
    DeleteName(2, 1);
    DeleteFrequency(0);
    EditAll();
    SetInfluence(std::get<1>(GetParam()));
    Compare();
    AddName(2, -1);
    DeleteName(1, 0);
    DeleteFrequency(2400);
    AddFrequency(0);
    Compare();
}

TEST_P(FlagsTest, RebuildThatFindsEverythingInPlaceChangesNothing) {
    SetInfluence(std::get<0>(GetParam()));
    Grow(3);
    SetInfluence(std::get<1>(GetParam()));
    EditAll();
    const EngineState before = State();

    SetInfluence(std::get<1>(GetParam()));
    AddName(1, 0);
    AddFrequency(0);

    EXPECT_EQ(State().VKSDUTIds, before.VKSDUTIds);
    EXPECT_EQ(State().VKSSteps, before.VKSSteps);
    Compare();
}

// ---- random sequences ------------------------------------------------------------------------

class MatrixRandomTest : public MatrixModelTest, public ::testing::WithParamInterface<unsigned> {
  protected:
    int Draw(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    /// The last two are never in the table.
    double DrawFrequency(int last) {
        constexpr std::array<double, 7> pool = {0, 900, 2400, 2400.5, 5000, -1, 1234};
        return pool.at(static_cast<std::size_t>(Draw(0, last)));
    }
    int DrawId(int dimension) {
        return Draw(-2, model.tables.at(static_cast<std::size_t>(dimension) - 1).count + 1);
    }
    /// Rows as a file may hold them: of unknown values, and some twice.
    void LoadRows() {
        const int rows = Draw(0, 6);
        State().VKSStepCount = model.rows = rows;
        State().VKSSteps.Redim(0, rows);
        State().VKSDUTIds.Redim(0, rows, 0, 2);
        model.lists = {};
        model.lists.Resize(rows);
        model.keys = {};
        model.keys.Resize(rows);
        for (int row = 0; row < rows; ++row) {
            const ModelKey key = {DrawFrequency(6), static_cast<double>(Draw(-1, 3)),
                                  static_cast<double>(Draw(-1, 3))};
            model.keys.At(row) = key;
            for (const int column : {0, 1, 2}) {
                State().VKSDUTIds(row, column) = key.at(static_cast<std::size_t>(column));
            }
        }
        EditAll();
    }
    void Step() {
        const int dimension = Draw(1, 2);
        const std::function<void()> acts[] = {
            [&] { SetInfluence(static_cast<unsigned>(Draw(0, 7))); },
            [&] { AddFrequency(DrawFrequency(4)); },
            [&] { AddFrequency(DrawFrequency(4)); },
            [&] { DeleteFrequency(DrawFrequency(6)); },
            [&] { AddName(dimension, DrawId(dimension)); },
            [&] { AddName(dimension, -1); },
            [&] { DeleteName(dimension, DrawId(dimension)); },
            [&] { EditAll(); },
            [&] { Draw(0, 3) == 0 ? DeleteAll() : EditAll(); },
            [&] { Draw(0, 3) == 0 ? LoadRows() : EditAll(); },
            [&] { Draw(0, 3) == 0 ? SetTemplate(Draw(0, 3)) : EditAll(); },
        };
        acts[static_cast<std::size_t>(Draw(0, static_cast<int>(std::size(acts)) - 1))]();
    }
    /// What a step of a random key would run.
    void ComparePick() {
        if (!State().VKSSteps.IsAllocated()) {
            return;
        }
        double frequency = DrawFrequency(6);
        std::int32_t bandwidth = Draw(-1, 4);
        std::int32_t power = Draw(-1, 4);
        const int list =
            model.ListOf({frequency, static_cast<double>(bandwidth), static_cast<double>(power)});
        EXPECT_EQ(engine->VKSDUTStepActionCount(frequency, bandwidth, power), list == 0 ? 0 : 1);
    }

    std::mt19937 random{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Seeds, MatrixRandomTest, SeedsTo(8, 400));

TEST_P(MatrixRandomTest, LongSequencesOfOperationsFollowTheModel) {
    for (int step = 0; step < 400 && !HasFailure(); ++step) {
        Step();
        Compare();
        ComparePick();
        host->journal.Clear();
    }
}

}  // namespace
}  // namespace ace::test
