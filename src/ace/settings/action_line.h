/// The lines of a section: lists of actions as text, and text as lists of actions.
#pragma once

#include <ace/core/action_lists.h>
#include <ace/core/thread_context.h>

namespace ace {

/// The keys of a list in a section.
struct ListKeys {
    StringView count;  ///< of the line that says how many entries there are
    StringView entry;  ///< of each entry, followed by its number from 1
};
/// How many characters each entry key has: the reader tells key from number by that.
inline constexpr std::size_t EntryKeyLength = 11;
/// Indexed like `ActionLists`.
inline constexpr ListKeys ActionListKeys[] = {
    {L"NumOfEnterActions", L"EnterAction"},
    {L"NumOfLeaveActions", L"LeaveAction"},
    {L"NumOfFreqActions", L"FrequAction"},
    {L"NumOfMlcActions", L"MLLeaAction"},
};
/// What a file may ask for at most: entries of a list, steps of a wireless test, rows of the
/// matrix. More is error 7, so that a damaged number can't exhaust the memory.
inline constexpr std::int32_t MostEntries = 100000;

/// Gives the fields of a device action what its line leaves unsaid: no device, no flag but that of
/// the cycle, a cycle of 20 s, a wait of 10 s, amplifier state 2. Paths, section number and the
/// objects of the device's kind stay.
void ResetSetDevice(aceSetDevice& record);

namespace modActions {

/// Fills the four lists of `target` from a section. An empty or missing section empties them; a
/// list without count line in a section with lines stays as it was. A line that can't be read ends
/// the reading: error 5, 6, 7, 9, 13 or 91; what was stored before it stays. Fields that a line
/// does not name come from the line before that filled the same record, in file order over all
/// lists. `observer` is told of every line; none costs nothing. Traced and handled.
void ReadSection(ThreadContext& context, ISettingsFile& settings, const String& section,
                 p_Subrange& target, ILineObserver* observer = nullptr);

/// The lines of one list: an array with bounds 0 to `count`, the count line first. Nothing for a
/// count below 1 and for a list number outside 1 to 4. An action without the record of its kind is
/// error 13, a count beyond the array error 9. Traced and handled.
Value WriteSection(ThreadContext& context, const DynArray<p_Action>& actions, std::int32_t count,
                   std::int32_t listNumber);

/// Replaces a section by the four lists of `source`, in one call, also when there is nothing to
/// write. Traced and handled.
void WriteActionList(ThreadContext& context, ISettingsFile& settings, const String& section,
                     const p_Subrange& source);

}  // namespace modActions

}  // namespace ace
