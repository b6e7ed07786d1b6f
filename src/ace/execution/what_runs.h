/// What a test runs of the lists, for those who tell it beforehand: checks and plans of a file.
#pragma once

#include <ace/core/action_kinds.h>
#include <ace/core/module_lists.h>

namespace ace {

/// The kinds that can act at a frequency; the every-frequency walk passes over all others without a
/// word.
inline constexpr KindSet FrequencyKinds(atWait, atRemote, atSetDevice, atCheckEut, atSwitchUnit,
                                        atTrackFreq, atAPI);
/// The set whose every-frequency list a module runs; none for modules without such a moment and for
/// values outside the members.
p_Subrange ModuleLists::*FrequencySetOf(std::int32_t moduleKind);
/// A list of the set that a module has once, or has by number, has a moment that runs it.
bool HasMoment(std::int32_t moduleKind, p_Subrange ModuleLists::*fixed, std::int32_t listNumber);
bool HasMoment(std::int32_t moduleKind, DynArray<p_Subrange> ModuleLists::*sets,
               std::int32_t listNumber);
/// At the end of a module's test parking the accessories becomes a request to the host; anywhere
/// else that kind does nothing.
bool ParksAtTheEnd(std::int32_t moduleKind);
/// Kinds of a host's test in which generators and monitoring devices follow no frequency.
bool FollowsNoFrequency(std::int32_t testKind);
/// The code of a command's terminator stands for characters, or for none on purpose. Any other code
/// sends none either.
bool IsTerminatorCode(std::int32_t code);
/// What is sent behind a command with that code.
StringView TerminatorOf(std::int32_t code);

}  // namespace ace
