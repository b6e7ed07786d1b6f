/// The nodes of the matrix of the device under test as data.
#pragma once

#include <ace/core/place_index.h>
#include <ace/editor/tree_plan.h>
#include <ace/settings/wireless_sections.h>

namespace ace {

/// How the matrix is shown, which its template number says: by which of its dimensions, or its
/// global lists. Any other number shows nothing.
enum MatrixMode : std::int32_t {
    MatrixByFrequency = 0,
    MatrixByBandwidth = 1,
    MatrixByPower = 2,
    MatrixGlobalLists = GlobalTemplate,
};

/// The first row, from 0, with this key; -1 for none. `frequencyIndex` is a place in the table of
/// frequencies, -1 for all and -2 for the test mode; the ids are -1 for all. `places` is the index
/// of these lists, see `FindRow`. Error 9 outside the table, and where the keys are fewer than the
/// rows.
std::int32_t FindDutStep(const ModuleLists& lists, PlaceIndex& places, std::int32_t frequencyIndex,
                         std::int32_t bandwidthId, std::int32_t powerId);

/// Hands the nodes of the matrix to `add`, in the mode that `lists` says. The key of a leaf has the
/// number of its row, -1 for none. Error 9 where tables are shorter than their counts.
void PlanMatrix(const ModuleLists& lists, PlaceIndex& places, const NodeSink& add);

/// True in the modes whose roots stand sorted.
bool HasSortedRoots(const ModuleLists& lists);

}  // namespace ace
