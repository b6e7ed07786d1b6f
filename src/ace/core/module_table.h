/// The module kinds as data: which lists each has, where they stand in its settings file, and the
/// host's numbers for that file. The one place where this is told.
#pragma once

#include <span>

#include <ace/core/engine_state.h>

namespace ace {

/// A set that a module has once.
struct FixedSet {
    p_Subrange ModuleLists::*set = nullptr;
    StringView section;     ///< its section in the settings file
    bool emptyMlc = false;  ///< a load empties the fourth list too
};

/// Lists that a module has by number, with the count kept beside them.
struct NumberedSets {
    DynArray<p_Subrange> ModuleLists::*sets = nullptr;
    std::int32_t ModuleLists::*count = nullptr;
    std::int32_t SavedCounts::*saved = nullptr;
    StringView sectionWord;  ///< followed by the number from 1
};

/// One module kind.
struct ModuleRow {
    aceModul moduleKind = aceTemplate;
    std::int32_t nameRow = 0;   ///< its row among the file names of the thread
    std::int32_t readKind = 0;  ///< host's file kind for loading
    /// Host's file kind for device settings. Intentional: it differs from the one for loading.
    std::int32_t settFileKind = 0;
    std::array<FixedSet, 2> fixed{};
    std::array<NumberedSets, 2> numbered{};
    bool isAutoModule = false;

    constexpr std::span<const FixedSet> AllFixed() const {
        const std::size_t first = fixed[0].set != nullptr ? 1 : 0;
        return std::span(fixed).first(fixed[1].set != nullptr ? 2 : first);
    }
    constexpr std::span<const NumberedSets> AllNumbered() const {
        const std::size_t first = numbered[0].sets != nullptr ? 1 : 0;
        return std::span(numbered).first(numbered[1].sets != nullptr ? 2 : first);
    }
};

/// Intentional: every module is written as this file kind, whatever it was read as.
inline constexpr std::int32_t WriteKind = 20;
/// Constant second argument of opening a settings file.
inline constexpr std::int32_t OpenMode = 10;
/// File names are kept for eight rows: both lists of the susceptibility test share one.
inline constexpr std::int32_t FileNameRows = 8;

inline constexpr NumberedSets MainSubrangeSets{&ModuleLists::MainSubranges,
                                               &ModuleLists::MainSubrangeCount,
                                               &SavedCounts::MainSubranges, L"ActionsOnSR"};
inline constexpr NumberedSets MoniChannelSets{&ModuleLists::MoniChannels,
                                              &ModuleLists::MoniChannelCount,
                                              &SavedCounts::MoniChannels, L"ActionsOnChannel"};
inline constexpr NumberedSets EMSAutoStepSets{&ModuleLists::EMSAutoSteps,
                                              &ModuleLists::EMSAutoStepCount,
                                              &SavedCounts::EMSAutoSteps, L"ActionsOnStep"};
inline constexpr NumberedSets EMIAutoStepSets{&ModuleLists::EMIAutoSteps,
                                              &ModuleLists::EMIAutoStepCount,
                                              &SavedCounts::EMIAutoSteps, L"ActionsOnStep"};
inline constexpr NumberedSets TSTestSets{&ModuleLists::TSTests, &ModuleLists::TSTestCount,
                                         &SavedCounts::TSTests, L"ActionsOnTest"};
inline constexpr NumberedSets VKSTestSets{&ModuleLists::VKSTests, &ModuleLists::VKSTestCount,
                                          &SavedCounts::VKSTests, L"ActionsOnTest"};
inline constexpr NumberedSets VKSStepSets{&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount,
                                          &SavedCounts::VKSSteps, L"ActionsOnStep"};

/// Indexed by `aceModul`.
inline constexpr ModuleRow ModuleTable[ModulCount] = {
    {aceTemplate, 0, 20, 20, {{{&ModuleLists::MainTest, L"ActionsOnTest"}}}, {{MainSubrangeSets}}},
    {aceMonitoring,
     1,
     25,
     20,
     {{{&ModuleLists::MoniEut, L"ActionsOnEutMon", true},
       {&ModuleLists::MoniLoop, L"ActionsOnMonTestLoop", true}}},
     {{MoniChannelSets}}},
    {aceEMSAutoTemplateGeneral,
     2,
     26,
     26,
     {{{&ModuleLists::EMSAutoGeneral, L"ActionsOnEMSAutoTest"}}}},
    {aceEMSAutoTemplate, 2, 26, 26, {}, {{EMSAutoStepSets}}, true},
    {aceEMIAutoTemplate,
     3,
     24,
     24,
     {{{&ModuleLists::EMIAutoTest, L"ActionsOnEMIAutoTest"}}},
     {{EMIAutoStepSets}},
     true},
    {aceTSTemplate,
     4,
     29,
     29,
     {{{&ModuleLists::TSTest, L"ActionsOnTestSequence"}}},
     {{TSTestSets}}},
    {aceAziChart, 5, 37, 37, {{{&ModuleLists::AziChart, L"ActionsOnAzimuthChart"}}}},
    {aceVKSTemplate,
     6,
     301,
     301,
     {{{&ModuleLists::VKSTemplate, L"ActionsOnVKSTemplate"}}},
     {{VKSTestSets, VKSStepSets}}},
    {aceVKSDUT,
     7,
     302,
     302,
     {{{&ModuleLists::VKSDUTGlob, L"ActionsOnVKSDUTGlob"}}},
     {{VKSStepSets}}},
};

/// The row of a module kind; none for a value outside the members.
constexpr const ModuleRow* FindModule(std::int32_t moduleKind) {
    return moduleKind >= 0 && moduleKind < ModulCount ? &ModuleTable[moduleKind] : nullptr;
}

}  // namespace ace
