/// A plan as it is told on a page or in a window: lists with the same actions as one, and the
/// actions that the test never begins. All of it points into the rehearsal, which must stay.
#pragma once

#include "workbench/session/rehearsal.h"

namespace ace::workbench {

/// An action of a block.
struct BlockLine {
    const RehearsedAction* action;
    std::size_t times;  ///< that it was begun, in all lists of the block; never 0
};

/// A list, or all those that go by a number (of the subrange, step, test, channel or row), run
/// first in moments of one kind and begin the same actions equally often.
struct PlanBlock {
    Moment first;                             ///< in which it ran first
    std::vector<RehearsedMoments> moments{};  ///< in which it ran, by their numbers
    std::vector<BlockLine> lines{};  ///< of the first list, without actions that were never begun
    std::size_t begun = 0;           ///< actions, of all lists
    double workMs = 0.0;             ///< time that they took, milliseconds
};

/// The lists of which actions were begun, in the order in which the test reaches the first of each
/// block.
std::vector<PlanBlock> BlocksOf(const Rehearsal& rehearsal);

/// The actions that this test can't begin, in the order of the file.
std::vector<const RehearsedAction*> NeverBegun(const Rehearsal& rehearsal);
/// Those that only the readings of a device would begin, which is well in a plan.
std::vector<const RehearsedAction*> LeftToDevices(const Rehearsal& rehearsal);

}  // namespace ace::workbench
