#include <algorithm>

#include <ace/core/moment_table.h>
#include <ace/execution/what_runs.h>

namespace ace {

bool HasMoment(std::int32_t moduleKind, p_Subrange ModuleLists::*fixed, std::int32_t listNumber) {
    const ListFields& list = ActionLists[listNumber - 1];
    const bool isMoment = std::ranges::any_of(MomentTable(), [&](const MomentRow& row) {
        return row.moduleKind == moduleKind && row.fixed == fixed && row.list == list;
    });
    return fixed != nullptr &&
           (isMoment || (list == FreqList && FrequencySetOf(moduleKind) == fixed));
}

bool HasMoment(std::int32_t moduleKind, DynArray<p_Subrange> ModuleLists::*sets,
               std::int32_t listNumber) {
    return std::ranges::any_of(MomentTable(), [&](const MomentRow& row) {
        return row.moduleKind == moduleKind && row.fixed == nullptr && row.numbered->sets == sets &&
               row.list == ActionLists[listNumber - 1];
    });
}

}  // namespace ace
