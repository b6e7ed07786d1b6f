/// What one engine object holds.
#pragma once

#include <array>
#include <memory>

#include <ace/core/module_lists.h>
#include <ace/core/place_index.h>

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

/// The fields of an engine object: the lists of all nine module kinds, of which it serves one, and
/// what it knows of its file and of the test beside them. What an engine and its operations hold of
/// it keeps the context too; `shared_from_this` doesn't, and is what the context's own parts keep.
struct EngineState : ModuleLists, std::enable_shared_from_this<EngineState> {
    explicit EngineState(ThreadContext& context) : Context(context) {}

    ThreadContext& Context;  ///< what all objects of the thread share; outlives the object

    String FileName;               ///< file of the last `LoadActions`
    aceModul Modul = aceTemplate;  ///< the module kind that this object serves
    Boolean InternalSubrangeOp;  ///< a move or swap is at work; the editor is told once at its end

    SavedCounts SavedCount;

    std::array<Boolean, ModulCount> ChangeFlags;  ///< lists differ from the file, by module kind
    Boolean IsAutoModule;  ///< the last load was for the steps of an automatic test; for the editor
    Boolean EmiTemplate;   ///< the template loaded last measures emission; for the editor
    double LastFrequency = 0.0;  ///< hertz; -1.0 from `StartTest` to the first `NewFrequency`
    aceVKSVar VKSReplaceVars;    ///< replace variables of the matrix
    Boolean VKSResult;           ///< verdict of the last `VKSStep`

    /// Where each key of `VKSDUTIds`, and each pair of `VKSStepKeys` and `VKSStepUKeys`, stands
    /// first. Only the look-ups use them, and they look after themselves.
    mutable PlaceIndex RowPlaces;
    mutable PlaceIndex StepPlaces;

    /// The host's; none for no events, and once the object has gone.
    __aceActionsEngine* EventSink = nullptr;
};

}  // namespace ace
