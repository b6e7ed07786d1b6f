/// What one engine object holds.
#pragma once

#include <array>

#include <ace/core/action_records.h>
#include <ace/host/array_2d.h>

namespace ace {

class ThreadContext;
class __aceActionsEngine;  // NOLINT(bugprone-reserved-identifier): the host knows this name

/// Numbered sections known to be in the file, per array; a save of a fresh object leaves -1.
struct SavedCounts {
    std::int32_t MainSubranges = 0;
    std::int32_t MoniChannels = 0;
    std::int32_t EMSAutoSteps = 0;
    std::int32_t EMIAutoSteps = 0;
    std::int32_t TSTests = 0;
    std::int32_t VKSTests = 0;
    std::int32_t VKSSteps = 0;
};

/// The fields of an engine object: those of all nine module kinds, of which it serves one. Four of
/// the counts start at -1 and three at 0, and readers accept both.
struct EngineState {
    explicit EngineState(ThreadContext& context) : Context(context) {}

    ThreadContext& Context;  ///< what all objects of the thread share; outlives the object

    String FileName;               ///< file of the last `LoadActions`
    aceModul Modul = aceTemplate;  ///< the module kind that this object serves
    Boolean InternalSubrangeOp;  ///< a move or swap is at work; the editor is told once at its end

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
    SavedCounts SavedCount;

    std::array<Boolean, ModulCount> ChangeFlags;  ///< lists differ from the file, by module kind
    Boolean IsAutoModule;        ///< the last load was for the steps of an automatic test
    Boolean EmiTemplate;         ///< the template loaded last measures emission
    double LastFrequency = 0.0;  ///< hertz; -1.0 from `StartTest` to the first `NewFrequency`
    aceVKSVar VKSReplaceVars;    ///< replace variables of the matrix

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
    Boolean VKSResult;  ///< verdict of the last `VKSStep`

    __aceActionsEngine* EventSink = nullptr;  ///< the host's; none for no events
};

}  // namespace ace
