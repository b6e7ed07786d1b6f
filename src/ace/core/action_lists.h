/// The four lists of a `p_Subrange` that are stored and run, as data.
#pragma once

#include <ace/core/action_records.h>

namespace ace {

/// One list of a set: its count and its array.
struct ListFields {
    std::int32_t p_Subrange::*count;
    DynArray<p_Action> p_Subrange::*actions;
    bool operator==(const ListFields&) const = default;
};

inline constexpr ListFields EnterList{&p_Subrange::EnterCount, &p_Subrange::Enter};
inline constexpr ListFields LeaveList{&p_Subrange::LeaveCount, &p_Subrange::Leave};
inline constexpr ListFields FreqList{&p_Subrange::FreqCount, &p_Subrange::Freq};
inline constexpr ListFields MlcList{&p_Subrange::MlcCount, &p_Subrange::Mlc};

/// The lists in the order in which they are cleaned, written and numbered from 1. The fifth list is
/// not among them.
inline constexpr ListFields ActionLists[] = {EnterList, LeaveList, FreqList, MlcList};

/// Erases the array and sets the count to 0. Error 10 while the list is held, and both stand.
inline void EmptyList(p_Subrange& set, const ListFields& list) {
    (set.*list.actions).Erase();
    set.*list.count = 0;
}

}  // namespace ace
