/// The editor on a device-under-test matrix whose rows are those that its tables and flags ask for.
#pragma once

#include <array>

#include "editor/shown_editor.h"

namespace ace::test {

/// One entry of the matrix's table of frequencies.
struct NamedFrequency {
    double hertz;
    String name;
};

class ShownMatrix : public ShownEditor {
  protected:
    using Row = std::array<double, 3>;  ///< frequency, bandwidth id, power id

    void SetFrequencies(const std::vector<NamedFrequency>& frequencies) {
        const auto last = static_cast<std::int32_t>(frequencies.size()) - 1;
        State().VKSDUTFreqCount = last + 1;
        State().VKSDUTFreqs.Redim(0, last);
        State().VKSDUTFreqNames.Redim(0, last);
        for (std::int32_t i = 0; i <= last; ++i) {
            State().VKSDUTFreqs[i] = frequencies[static_cast<std::size_t>(i)].hertz;
            State().VKSDUTFreqNames[i] = frequencies[static_cast<std::size_t>(i)].name;
        }
    }
    static void SetNames(DynArray<String>& array, std::int32_t& count, const Lines& names) {
        count = static_cast<std::int32_t>(names.size());
        array.Redim(0, count - 1);
        std::ranges::copy(names, array.begin());
    }
    void SetBandwidths(const Lines& names) {
        SetNames(State().VKSDUTBandwidthNames, State().VKSDUTBandwidthCount, names);
    }
    void SetPowers(const Lines& names) {
        SetNames(State().VKSDUTPowerNames, State().VKSDUTPowerCount, names);
    }
    void SetInfluence(bool frequency, bool bandwidth, bool power) {
        State().VKSInfByFreq = frequency;
        State().VKSInfByBandwidth = bandwidth;
        State().VKSInfByPower = power;
    }
    void SetRows(const std::vector<Row>& rows) {
        const auto count = static_cast<std::int32_t>(rows.size());
        MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, count);
        State().VKSDUTIds.Redim(0, count - 1, 0, 2);
        for (std::int32_t row = 0; row < count; ++row) {
            for (std::int32_t column = 0; column < 3; ++column) {
                State().VKSDUTIds(row, column) =
                    rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            }
        }
    }
    void FillRow(std::int32_t row, const std::vector<p_Action>& actions) {
        Fill(State().VKSSteps[row], EnterList, actions);
    }
    void OpenMode(std::int32_t mode) {
        State().VKSDUTTemplate = mode;
        Open(aceVKSDUT);
    }
};

}  // namespace ace::test
