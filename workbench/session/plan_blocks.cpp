#include "workbench/session/plan_blocks.h"

#include <algorithm>
#include <map>

namespace ace::workbench {

namespace {

/// What the lists of a block have in common: the kind of their first moment, and which actions run
/// how often.
using BlockKey = std::pair<MomentCall, std::vector<std::pair<std::size_t, std::size_t>>>;

BlockKey KeyOf(const PlanBlock& block) {
    BlockKey key{block.first.call, {}};
    for (const BlockLine& line : block.lines) {
        key.second.emplace_back(line.action->like, line.times);
    }
    return key;
}

/// Lists that go by a number have others like them; those with a name have none.
bool GoesByNumber(const PlanBlock& block) {
    return block.first.number != 0;
}

PlanBlock BlockOf(const RehearsedList& list, const std::vector<RehearsedAction>& actions) {
    PlanBlock block{list.first, list.moments, {}, list.begun, list.workMs};
    for (std::size_t i = list.begin; i < list.end; ++i) {
        if (actions[i].times != 0) {
            block.lines.push_back({&actions[i], actions[i].times});
        }
    }
    return block;
}

void Merge(PlanBlock& block, const PlanBlock& other) {
    block.moments.insert(block.moments.end(), other.moments.begin(), other.moments.end());
    for (std::size_t i = 0; i < block.lines.size(); ++i) {
        block.lines[i].times += other.lines[i].times;
    }
    block.begun += other.begun;
    block.workMs += other.workMs;
}

std::vector<const RehearsedAction*> NotBegun(const Rehearsal& rehearsal, bool hasWatcher) {
    std::vector<const RehearsedAction*> actions;
    for (const RehearsedAction& action : rehearsal.actions) {
        if (action.times == 0 && action.watcher.empty() != hasWatcher) {
            actions.push_back(&action);
        }
    }
    return actions;
}

}  // namespace

std::vector<PlanBlock> BlocksOf(const Rehearsal& rehearsal) {
    std::vector<PlanBlock> blocks;
    std::map<BlockKey, std::size_t> places;
    for (const RehearsedList& list : rehearsal.lists) {
        PlanBlock block = BlockOf(list, rehearsal.actions);
        if (GoesByNumber(block)) {
            const auto [known, isNew] = places.try_emplace(KeyOf(block), blocks.size());
            if (!isNew) {
                Merge(blocks[known->second], block);
                continue;
            }
        }
        blocks.push_back(std::move(block));
    }
    for (PlanBlock& block : blocks) {
        std::ranges::stable_sort(block.moments, {}, &RehearsedMoments::number);
    }
    return blocks;
}

std::vector<const RehearsedAction*> NeverBegun(const Rehearsal& rehearsal) {
    return NotBegun(rehearsal, false);
}

std::vector<const RehearsedAction*> LeftToDevices(const Rehearsal& rehearsal) {
    return NotBegun(rehearsal, true);
}

}  // namespace ace::workbench
