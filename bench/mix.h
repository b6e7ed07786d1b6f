/// The actions of a list that acts at every frequency.
#pragma once

#include <ace/core/action_records.h>

namespace ace::bench {

/// Elements of the mix: a hundred of each of its six kinds.
inline constexpr std::int32_t MixElements = 600;

/// Fills the every-frequency list with a command, a following generator, a device that is set, a
/// macro, a switched path and a wait, over and over, `size` in all. No text of theirs is short.
void FillWithMix(p_Subrange& test, std::int32_t size);

/// One action of the kinds of the mix, by its place there.
p_Action MixedAction(std::int32_t index);
/// Places of the kinds that are measured apart as well.
inline constexpr std::int32_t CommandOfMix = 0;
inline constexpr std::int32_t MacroOfMix = 3;
inline constexpr std::int32_t WaitOfMix = 5;

}  // namespace ace::bench
