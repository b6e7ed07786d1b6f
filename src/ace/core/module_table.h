/// The module kinds as data: which lists each has, where they stand in its settings file, and the
/// host's numbers for that file. The one place where this is told.
#pragma once

#include <span>

#include <ace/core/engine_state.h>

namespace ace {

/// A list set that a module has once.
struct FixedList {
    p_Subrange EngineState::*list = nullptr;
    StringView section;     ///< its section in the settings file
    bool emptyMlc = false;  ///< a load empties the fourth list too
};

/// Lists that a module has by number, with the count kept beside them.
struct NumberedList {
    DynArray<p_Subrange> EngineState::*lists = nullptr;
    std::int32_t EngineState::*count = nullptr;
    std::int32_t SavedCounts::*saved = nullptr;
    StringView sectionWord;  ///< followed by the number from 1
};

/// One module kind.
struct ModuleRow {
    aceModul modul = aceTemplate;
    std::int32_t nameRow = 0;       ///< its row among the file names of the thread
    std::int32_t readKind = 0;      ///< host's file kind for loading
    std::int32_t settFileKind = 0;  ///< host's file kind for device settings; differs on purpose
    std::array<FixedList, 2> fixed{};
    std::array<NumberedList, 2> numbered{};
    bool isAutoModule = false;

    constexpr std::span<const FixedList> FixedLists() const {
        const std::size_t first = fixed[0].list != nullptr ? 1 : 0;
        return std::span(fixed).first(fixed[1].list != nullptr ? 2 : first);
    }
    constexpr std::span<const NumberedList> NumberedLists() const {
        const std::size_t first = numbered[0].lists != nullptr ? 1 : 0;
        return std::span(numbered).first(numbered[1].lists != nullptr ? 2 : first);
    }
};

/// Every module is written as this file kind, whatever it was read as; that is how files of all
/// installations came to be.
inline constexpr std::int32_t WriteKind = 20;
/// Constant second argument of opening a settings file.
inline constexpr std::int32_t OpenMode = 10;
/// File names are kept for eight rows: both lists of the susceptibility test share one.
inline constexpr std::int32_t FileNameRows = 8;

inline constexpr NumberedList MainSubrangesList{&EngineState::MainSubranges,
                                                &EngineState::MainSubrangeCount,
                                                &SavedCounts::MainSubranges, L"ActionsOnSR"};
inline constexpr NumberedList MoniChannelsList{&EngineState::MoniChannels,
                                               &EngineState::MoniChannelCount,
                                               &SavedCounts::MoniChannels, L"ActionsOnChannel"};
inline constexpr NumberedList EMSAutoStepsList{&EngineState::EMSAutoSteps,
                                               &EngineState::EMSAutoStepCount,
                                               &SavedCounts::EMSAutoSteps, L"ActionsOnStep"};
inline constexpr NumberedList EMIAutoStepsList{&EngineState::EMIAutoSteps,
                                               &EngineState::EMIAutoStepCount,
                                               &SavedCounts::EMIAutoSteps, L"ActionsOnStep"};
inline constexpr NumberedList TSTestsList{&EngineState::TSTests, &EngineState::TSTestCount,
                                          &SavedCounts::TSTests, L"ActionsOnTest"};
inline constexpr NumberedList VKSTestsList{&EngineState::VKSTests, &EngineState::VKSTestCount,
                                           &SavedCounts::VKSTests, L"ActionsOnTest"};
inline constexpr NumberedList VKSStepsList{&EngineState::VKSSteps, &EngineState::VKSStepCount,
                                           &SavedCounts::VKSSteps, L"ActionsOnStep"};

/// Indexed by `aceModul`.
inline constexpr ModuleRow ModuleTable[ModulCount] = {
    {aceTemplate, 0, 20, 20, {{{&EngineState::MainTest, L"ActionsOnTest"}}}, {{MainSubrangesList}}},
    {aceMonitoring,
     1,
     25,
     20,
     {{{&EngineState::MoniEut, L"ActionsOnEutMon", true},
       {&EngineState::MoniLoop, L"ActionsOnMonTestLoop", true}}},
     {{MoniChannelsList}}},
    {aceEMSAutoTemplateGeneral,
     2,
     26,
     26,
     {{{&EngineState::EMSAutoGeneral, L"ActionsOnEMSAutoTest"}}}},
    {aceEMSAutoTemplate, 2, 26, 26, {}, {{EMSAutoStepsList}}, true},
    {aceEMIAutoTemplate,
     3,
     24,
     24,
     {{{&EngineState::EMIAutoTest, L"ActionsOnEMIAutoTest"}}},
     {{EMIAutoStepsList}},
     true},
    {aceTSTemplate,
     4,
     29,
     29,
     {{{&EngineState::TSTest, L"ActionsOnTestSequence"}}},
     {{TSTestsList}}},
    {aceAziChart, 5, 37, 37, {{{&EngineState::AziChart, L"ActionsOnAzimuthChart"}}}},
    {aceVKSTemplate,
     6,
     301,
     301,
     {{{&EngineState::VKSTemplate, L"ActionsOnVKSTemplate"}}},
     {{VKSTestsList, VKSStepsList}}},
    {aceVKSDUT,
     7,
     302,
     302,
     {{{&EngineState::VKSDUTGlob, L"ActionsOnVKSDUTGlob"}}},
     {{VKSStepsList}}},
};

/// The row of a module kind; none for a value outside the members.
constexpr const ModuleRow* FindModule(std::int32_t modul) {
    return modul >= 0 && modul < ModulCount ? &ModuleTable[modul] : nullptr;
}

}  // namespace ace
