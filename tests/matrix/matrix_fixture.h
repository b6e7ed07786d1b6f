/// A device-under-test matrix whose rows are read as a whole.
#pragma once

#include <cmath>

#include "support/fake_editor.h"
#include "support/store_fixture.h"

namespace ace::test {

inline const String EngineModule = L"aceActionsEngine (Code)";
inline const String CodeModule = L"modActions (Code)";

/// Rows in their order as texts: "2400_-1_0 A" has the frequency 2400 Hz, all bandwidths, power 0
/// and the waits of the letter A in its list, "-1_-1_-1 ." is the empty row for everything.
class MatrixTest : public EngineTest {
  protected:
    MatrixTest() { State().Modul = aceVKSDUT; }

    static String KeyText(double frequency, double bandwidth, double power) {
        return std::to_wstring(std::llround(frequency)) + L"_" +
               std::to_wstring(static_cast<int>(bandwidth)) + L"_" +
               std::to_wstring(static_cast<int>(power));
    }
    Lines Rows() {
        Lines rows;
        for (std::int32_t i = 0; i < State().VKSStepCount; ++i) {
            const Array2D<double>& ids = State().VKSDUTIds;
            rows.push_back(KeyText(ids(i, 0), ids(i, 1), ids(i, 2)) + L" " +
                           TextOf(State().VKSSteps[i]).substr(0, 1));
        }
        return rows;
    }
    /// Gives the rows the letters in their order.
    void Mark(StringView letters) {
        for (std::size_t i = 0; i < letters.size(); ++i) {
            Fill(State().VKSSteps[static_cast<std::int32_t>(i)], EnterList,
                 {WaitFor(letters[i] - L'A' + 1)});
        }
    }
    void AddFrequencies(const std::vector<double>& frequencies) {
        for (const double frequency : frequencies) {
            engine->AddVKSDUTFreq(std::to_wstring(std::llround(frequency)), frequency);
        }
    }
    void AddBandwidths(const Lines& names) {
        for (const String& name : names) {
            engine->AddVKSDUTBandwidthID(name);
        }
    }
    void AddPowers(const Lines& names) {
        for (const String& name : names) {
            engine->AddVKSDUTPowerID(name);
        }
    }
    /// Rows as a file left them, one behind the other, with a spare row.
    void HaveRows(const std::vector<std::array<double, 3>>& keys) {
        const auto count = static_cast<std::int32_t>(keys.size());
        State().VKSSteps.Redim(0, count);
        State().VKSDUTIds.Redim(0, count, 0, 2);
        State().VKSStepCount = count;
        for (std::int32_t row = 0; row < count; ++row) {
            for (std::int32_t column = 0; column < 3; ++column) {
                State().VKSDUTIds(row, column) =
                    keys[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            }
        }
    }
    template <class T>
    static std::vector<T> First(const DynArray<T>& array, std::int32_t count) {
        return {array.begin(), array.begin() + count};
    }
    Lines BandwidthNames() {
        return First(State().VKSDUTBandwidthNames, State().VKSDUTBandwidthCount);
    }
    Lines PowerNames() { return First(State().VKSDUTPowerNames, State().VKSDUTPowerCount); }
    Lines FrequencyNames() { return First(State().VKSDUTFreqNames, State().VKSDUTFreqCount); }
    std::vector<double> Frequencies() {
        return First(State().VKSDUTFreqs, State().VKSDUTFreqCount);
    }
};

}  // namespace ace::test
