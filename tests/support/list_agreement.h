/// What must hold of the lists of an engine whatever was called, and everything that a refused call
/// leaves as it was.
#pragma once

#include <string>
#include <vector>

#include <ace/core/action_lists.h>
#include <ace/core/thread_context.h>

namespace ace::test {

/// The lists in which count and elements disagree, and those that are still held, in words.
class ListAgreement {
  public:
    /// Of the lists of all module kinds. A spare element behind the counted ones is allowed in the
    /// numbered sets; a wireless template has one for each test that the file left out.
    static std::vector<std::string> Breaches(const ModuleLists& lists) {
        ListAgreement asked;
        for (const ModuleRow& module : ModuleTable) {
            for (const FixedSet& fixed : module.AllFixed()) {
                asked.AskSet("module " + std::to_string(module.moduleKind), lists.*fixed.set);
            }
            for (const NumberedSets& numbered : module.AllNumbered()) {
                asked.AskNumbered("module " + std::to_string(module.moduleKind), lists, numbered);
            }
        }
        asked.AskTable("frequencies", lists.VKSDUTFreqCount, lists.VKSDUTFreqs.Size());
        asked.AskTable("names", lists.VKSDUTFreqCount, lists.VKSDUTFreqNames.Size());
        asked.AskTable("bandwidths", lists.VKSDUTBandwidthCount, lists.VKSDUTBandwidthNames.Size());
        asked.AskTable("powers", lists.VKSDUTPowerCount, lists.VKSDUTPowerNames.Size());
        return asked.x_breaches;
    }
    /// Also of the keys, which lists that a test has filled by hand may lack. The steps of a
    /// wireless template have three texts each, the rows of the matrix their numbers.
    static std::vector<std::string> BreachesWithKeys(const EngineState& state) {
        ListAgreement asked;
        asked.x_breaches = Breaches(state);
        asked.AskBeside("keys of tests", state.VKSTestCount, state.VKSTestUKeys.Size());
        asked.AskBeside("host's keys of tests", state.VKSTestCount, state.VKSHostUKeys.Size());
        asked.AskBeside("host's names of tests", state.VKSTestCount, state.VKSHostNames.Size());
        if (state.Modul == aceVKSDUT) {
            asked.AskBeside("numbers of rows", state.VKSStepCount, RowsOf(state.VKSDUTIds));
        } else {
            asked.AskBeside("keys of steps", state.VKSStepCount, state.VKSStepKeys.Size());
            asked.AskBeside("tests of steps", state.VKSStepCount, state.VKSStepUKeys.Size());
            asked.AskBeside("names of steps", state.VKSStepCount, state.VKSStepNames.Size());
        }
        return asked.x_breaches;
    }

  private:
    void Tell(const std::string& place, std::int64_t count, std::size_t elements) {
        x_breaches.push_back(place + ": count " + std::to_string(count) + ", elements " +
                             std::to_string(elements));
    }
    void AskSet(const std::string& place, const p_Subrange& set) {
        for (const ListFields& list : ActionLists) {
            const DynArray<p_Action>& actions = set.*list.actions;
            if (std::cmp_not_equal(set.*list.count, actions.Size())) {
                Tell(place, set.*list.count, actions.Size());
            }
            if (actions.IsHeld()) {
                x_breaches.push_back(place + ": held");
            }
        }
    }
    void AskNumbered(const std::string& place, const ModuleLists& lists,
                     const NumberedSets& numbered) {
        const DynArray<p_Subrange>& sets = lists.*numbered.sets;
        const std::int64_t count = lists.*numbered.count;
        const bool moreAllowed = numbered.sets == &ModuleLists::VKSTests;
        const auto size = static_cast<std::int64_t>(sets.Size());
        if (size < count || (size > std::max<std::int64_t>(count, 0) + 1 && !moreAllowed)) {
            Tell(place + ", numbered", count, sets.Size());
        }
        if (sets.IsHeld()) {
            x_breaches.push_back(place + ", numbered: held");
        }
        for (const p_Subrange& set : sets) {
            AskSet(place + ", numbered set", set);
        }
    }
    static std::size_t RowsOf(const Array2D<double>& ids) {
        return ids.IsAllocated() ? static_cast<std::size_t>(ids.RowUpperBound()) + 1 : 0;
    }
    /// What stands beside counted lists is there for each of them.
    void AskBeside(const std::string& place, std::int32_t count, std::size_t elements) {
        if (std::cmp_less(elements, count)) {
            Tell(place, count, elements);
        }
    }
    void AskTable(const std::string& place, std::int32_t count, std::size_t elements) {
        if (std::cmp_not_equal(count, elements) && std::cmp_not_equal(count + 1, elements)) {
            Tell(place, count, elements);
        }
    }

    std::vector<std::string> x_breaches;
};

/// What a call that ends with error 10 leaves as it was. The `Change` flag is not among it.
struct Unchanged {
    explicit Unchanged(const EngineState& state)
        : lists(state),
          saved{state.SavedCount.MainSubranges, state.SavedCount.MoniChannels,
                state.SavedCount.EMSAutoSteps,  state.SavedCount.EMIAutoSteps,
                state.SavedCount.TSTests,       state.SavedCount.VKSTests,
                state.SavedCount.VKSSteps},
          fileName(state.FileName),
          moduleKind(state.Modul),
          isAuto(state.IsAutoModule),
          measuresEmission(state.EmiTemplate),
          checksSystem(state.Context.SystemCheck),
          isMoving(state.InternalSubrangeOp),
          variables(state.VKSReplaceVars),
          fileNames(state.Context.ModuleFileNames) {}
    bool operator==(const Unchanged&) const = default;

    ModuleLists lists;
    std::array<std::int32_t, 7> saved;
    String fileName;
    aceModul moduleKind;
    Boolean isAuto;
    Boolean measuresEmission;
    Boolean checksSystem;
    Boolean isMoving;
    aceVKSVar variables;
    std::array<String, FileNameRows> fileNames;
};

}  // namespace ace::test
