/// The engine's arrays as those of the models, and back.
#pragma once

#include "support/store_fixture.h"
#include "support/store_model.h"

namespace ace::test {

inline constexpr ListFields UtilList{&p_Subrange::UtilCount, &p_Subrange::Util};

/// A list with one wait of `content` milliseconds; 0 is the empty list.
inline void Write(p_Subrange& set, const ListFields& list, int content) {
    EmptyList(set, list);
    if (content != 0) {
        Fill(set, list, {WaitFor(content)});
    }
}
inline int Read(const p_Subrange& set, const ListFields& list) {
    const DynArray<p_Action>& actions = set.*list.actions;
    if (set.*list.count != static_cast<std::int32_t>(actions.Size())) {
        return -1;
    }
    return actions.Size() == 0 ? 0 : static_cast<int>(std::get<aceWait>(actions[0].Parameter).Time);
}
inline void Write(p_Subrange& set, const ModelEntry& entry) {
    Write(set, EnterList, entry.enter);
    Write(set, LeaveList, entry.leave);
    Write(set, FreqList, entry.freq);
    Write(set, MlcList, entry.mlc);
    Write(set, UtilList, entry.util);
}
inline ModelEntry Read(const p_Subrange& set) {
    return {Read(set, EnterList), Read(set, LeaveList), Read(set, FreqList), Read(set, MlcList),
            Read(set, UtilList)};
}
inline ModelArray<ModelEntry> Read(const DynArray<p_Subrange>& sets) {
    ModelArray<ModelEntry> array;
    for (const p_Subrange& set : sets) {
        array.elements.push_back(Read(set));
    }
    array.made = sets.IsAllocated();
    return array;
}
inline ModelArray<String> Read(const DynArray<String>& texts) {
    return {{texts.begin(), texts.end()}, texts.IsAllocated()};
}

}  // namespace ace::test
