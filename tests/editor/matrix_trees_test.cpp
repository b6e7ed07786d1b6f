#include "editor/shown_actions.h"
#include "editor/shown_matrix.h"

namespace ace::test {
namespace {

/// The matrix in all its modes, with every combination of the dimensions that have influence. The
/// tables stand in an order that no sorting gives; the first row has a wait, the last one a check.
class MatrixTrees : public ShownMatrix {
  protected:
    MatrixTrees() {
        SetBandwidths({L"80 MHz", L"20 MHz"});
        SetPowers({L"Low", L"high"});
    }
    void SetTestMode(bool isThere) {
        x_hasTestMode = isThere;
        SetFrequencies(isThere
                           ? std::vector<NamedFrequency>{{5.2e9, L"5.2 GHz"},
                                                         {0.0, L"idle"},
                                                         {2.4e9, L"2.4 GHz"}}
                           : std::vector<NamedFrequency>{{5.2e9, L"5.2 GHz"}, {2.4e9, L"2.4 GHz"}});
    }
    /// -1 for all of a dimension without influence.
    static std::vector<double> Ids(bool hasInfluence, std::int32_t count) {
        std::vector<double> ids;
        for (std::int32_t id = 0; hasInfluence && id < count; ++id) {
            ids.push_back(id);
        }
        return hasInfluence ? ids : std::vector<double>{-1.0};
    }
    std::vector<double> Frequencies(std::int32_t mode) {
        const DynArray<double>& table = State().VKSDUTFreqs;
        if (State().VKSInfByFreq) {
            return {table.begin(), table.end()};
        }
        return mode == 0 && x_hasTestMode ? std::vector<double>{-1.0, 0.0}
                                          : std::vector<double>{-1.0};
    }
    /// The rows of these flags, frequency outermost; where it has no influence the row of the test
    /// mode stands directly behind the one for all frequencies.
    std::vector<Row> Rows(std::int32_t mode) {
        const bool byFrequency = State().VKSInfByFreq;
        std::vector<Row> rows;
        for (const double outer : byFrequency ? Frequencies(mode) : std::vector<double>{-1.0}) {
            for (const double b : Ids(State().VKSInfByBandwidth, 2)) {
                for (const double p : Ids(State().VKSInfByPower, 2)) {
                    for (const double f : byFrequency ? std::vector{outer} : Frequencies(mode)) {
                        rows.push_back({f, b, p});
                    }
                }
            }
        }
        return rows;
    }
    Lines TreeWith(std::int32_t mode, bool frequency, bool bandwidth, bool power) {
        SetInfluence(frequency, bandwidth, power);
        SetRows(Rows(mode));
        FillRow(0, {WaitFor(1000)});
        FillRow(State().VKSStepCount - 1, {Camera});
        OpenMode(mode);
        return Tree();
    }
    /// The trees of a mode, each with a heading.
    Lines TreesOf(std::int32_t mode) {
        Lines lines;
        for (const bool hasTestMode : {false, true}) {
            SetTestMode(hasTestMode);
            for (const bool f : {false, true}) {
                for (const bool b : {false, true}) {
                    for (const bool p : {false, true}) {
                        Append(lines, String(L"== flags ") + (f ? L"F" : L"-") + (b ? L"B" : L"-") +
                                          (p ? L"P, " : L"-, ") +
                                          (hasTestMode ? L"with 0.0 ==" : L"without 0.0 =="));
                        Append(lines, TreeWith(mode, f, b, p));
                    }
                }
            }
        }
        return lines;
    }

  private:
    bool x_hasTestMode = false;
};

TEST_F(MatrixTrees, ByFrequency) {
    EXPECT_EQ(TreesOf(0), GoldenLines("editor/matrix_mode_0.txt"));
}

TEST_F(MatrixTrees, ByBandwidth) {
    EXPECT_EQ(TreesOf(1), GoldenLines("editor/matrix_mode_1.txt"));
}

TEST_F(MatrixTrees, ByPower) {
    EXPECT_EQ(TreesOf(2), GoldenLines("editor/matrix_mode_2.txt"));
}

TEST_F(MatrixTrees, GlobalListsShowAloneAndAlikeWhateverTheMatrixIs) {
    Fill(State().VKSDUTGlob, EnterList, {WaitFor(250)});
    Fill(State().VKSDUTGlob, LeaveList, {Camera});
    for (const bool hasTestMode : {false, true}) {
        SetTestMode(hasTestMode);
        for (std::uint32_t flags = 0; flags < 8; ++flags) {
            EXPECT_EQ(TreeWith(3, (flags & 4) != 0, (flags & 2) != 0, (flags & 1) != 0),
                      GoldenLines("editor/matrix_global.txt"))
                << flags;
        }
    }
}

TEST_F(MatrixTrees, AnyOtherModeShowsNothing) {
    SetTestMode(true);
    for (const std::int32_t mode : {-1, 4, 1000}) {
        EXPECT_EQ(TreeWith(mode, true, true, true), Lines{}) << mode;
    }
}

}  // namespace
}  // namespace ace::test
