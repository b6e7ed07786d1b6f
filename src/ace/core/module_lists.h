/// The action lists of the nine module kinds.
#pragma once

#include <ace/core/action_records.h>
#include <ace/host/array_2d.h>

namespace ace {

/// The lists of all nine module kinds with their counts, keys and the matrix. The engine's object
/// holds one of these, the editor works on a copy, and the print makes another; each uses the lists
/// of one kind. A set is a record with its lists, numbered sets are an array of them with the
/// count beside it. Four of the counts start at -1 and three at 0, and readers accept both.
struct ModuleLists {
    p_Subrange MainTest;
    DynArray<p_Subrange> MainSubranges;
    p_Subrange MoniEut;
    p_Subrange MoniLoop;
    DynArray<p_Subrange> MoniChannels;
    p_Subrange EMSAutoGeneral;
    DynArray<p_Subrange> EMSAutoSteps;
    p_Subrange EMIAutoTest;
    DynArray<p_Subrange> EMIAutoSteps;
    p_Subrange TSTest;
    DynArray<p_Subrange> TSTests;
    p_Subrange AziChart;
    p_Subrange VKSDUTGlob;
    p_Subrange VKSTemplate;
    DynArray<p_Subrange> VKSTests;
    DynArray<p_Subrange> VKSSteps;  ///< steps of a wireless template, or rows of the matrix

    DynArray<String> VKSStepKeys;   ///< per step: its key
    DynArray<String> VKSStepUKeys;  ///< per step: unique key of the test that owns it
    DynArray<String> VKSStepNames;  ///< per step: its name
    DynArray<String> VKSTestUKeys;  ///< per test: its unique key
    DynArray<String> VKSHostUKeys;  ///< the host's list of tests
    DynArray<String> VKSHostNames;

    std::int32_t MainSubrangeCount = -1;
    std::int32_t MoniChannelCount = -1;
    std::int32_t EMSAutoStepCount = -1;
    std::int32_t EMIAutoStepCount = -1;
    std::int32_t TSTestCount = 0;
    std::int32_t VKSTestCount = 0;
    std::int32_t VKSStepCount = 0;

    std::int32_t VKSDUTTemplate = 0;  ///< template number of the matrix
    Boolean VKSInfByFreq;
    Boolean VKSInfByBandwidth;
    Boolean VKSInfByPower;
    Array2D<double> VKSDUTIds;  ///< per row: frequency in hertz, bandwidth id, power id; -1 for all
    DynArray<double> VKSDUTFreqs;  ///< hertz
    DynArray<String> VKSDUTFreqNames;
    DynArray<String> VKSDUTBandwidthNames;  ///< index is the id
    DynArray<String> VKSDUTPowerNames;      ///< index is the id
    std::int32_t VKSDUTFreqCount = 0;
    std::int32_t VKSDUTBandwidthCount = 0;
    std::int32_t VKSDUTPowerCount = 0;

    bool operator==(const ModuleLists&) const = default;
};

}  // namespace ace
