#include <optional>

#include <ace/core/text.h>
#include <ace/editor/matrix_plan.h>
#include <ace/matrix/matrix_rows.h>

namespace ace {

namespace {

/// What a node says of each dimension: a place in its table, or one of these.
constexpr std::int32_t NotSplit = -1;
constexpr std::int32_t TestModeIndex = -2;

/// One of the three dimensions.
struct Axis {
    std::size_t column;
    Boolean ModuleLists::*influences;
    std::int32_t ModuleLists::*count;
    DynArray<String> ModuleLists::*names;
    StringView all;  ///< the caption of a dimension without influence, where it comes first
};
using L = ModuleLists;
constexpr Axis Frequency{0, &L::VKSInfByFreq, &L::VKSDUTFreqCount, &L::VKSDUTFreqNames,
                         L"All Frequencies"};
constexpr Axis Bandwidth{1, &L::VKSInfByBandwidth, &L::VKSDUTBandwidthCount,
                         &L::VKSDUTBandwidthNames, L"All Bandwidths"};
constexpr Axis Power{2, &L::VKSInfByPower, &L::VKSDUTPowerCount, &L::VKSDUTPowerNames,
                     L"All Power Levels"};

/// From the outermost to the innermost, indexed by mode.
struct Nesting {
    Axis outer;
    std::array<Axis, 2> inner;
};
constexpr Nesting Nestings[] = {{Frequency, {Bandwidth, Power}},
                                {Bandwidth, {Power, Frequency}},
                                {Power, {Bandwidth, Frequency}}};

/// A node of the matrix, by its place in each dimension.
using Cell = std::array<std::int32_t, 3>;
constexpr Cell Undivided{NotSplit, NotSplit, NotSplit};

/// The walk over one matrix.
struct MatrixWalk {
    const ModuleLists& lists;
    PlaceIndex& places;
    const NodeSink& add;
    std::array<const Axis*, 2> inner{};  ///< those of the inner dimensions that have influence
    std::size_t depth = 0;               ///< how many those are

    const String& Name(const Axis& axis, std::int32_t index) const {
        return (lists.*axis.names)[index];
    }
};

Cell With(Cell cell, const Axis& axis, std::int32_t index) {
    cell[axis.column] = index;
    return cell;
}

void AddLeaf(const MatrixWalk& walk, const Cell& cell, const String& parent,
             const String& caption) {
    const std::int32_t row = FindDutStep(walk.lists, walk.places, cell[0], cell[1], cell[2]);
    walk.add({.key = L"STE" + IntegerText(row), .parent = parent, .caption = {0, caption}});
}

String GroupKey(const Cell& cell) {
    return L"TST" + IntegerText(cell[0]) + L'_' + IntegerText(cell[1]) + L'_' +
           IntegerText(cell[2]);
}

/// Answers the key.
String AddGroup(const MatrixWalk& walk, const Cell& cell, const String& parent,
                const String& caption) {
    String key = GroupKey(cell);
    walk.add({.key = key,
              .parent = parent,
              .caption = {0, caption},
              .icon = MatrixGroupIcon,
              .isSorted = true});
    return key;
}

/// A group where something is split below it, otherwise a leaf.
void AddHead(const MatrixWalk& walk, const Cell& leaf, const Cell& group, const String& caption) {
    if (walk.depth == 0) {
        AddLeaf(walk, leaf, {}, caption);
    } else {
        AddGroup(walk, group, {}, caption);
    }
}

/// A leaf for each entry of the innermost dimension.
void AddLeaves(const MatrixWalk& walk, const Axis& axis, const Cell& leaf, const String& parent) {
    for (std::int32_t i = 0; i < walk.lists.*axis.count; ++i) {
        AddLeaf(walk, With(leaf, axis, i), parent, walk.Name(axis, i));
    }
}

/// What stands below the group `parent`: `group` and `leaf` are its cell as groups and as leaves
/// have it.
void AddInner(const MatrixWalk& walk, const Cell& group, const Cell& leaf, const String& parent) {
    if (walk.depth == 1) {
        AddLeaves(walk, *walk.inner[0], leaf, parent);
    } else if (walk.depth == 2) {
        const Axis& axis = *walk.inner[0];
        for (std::int32_t i = 0; i < walk.lists.*axis.count; ++i) {
            const String key = AddGroup(walk, With(group, axis, i), parent, walk.Name(axis, i));
            AddLeaves(walk, *walk.inner[1], With(leaf, axis, i), key);
        }
    }
}

void AddOuter(const MatrixWalk& walk, const Axis& outer, std::int32_t index,
              const String& caption) {
    const Cell cell = With(Undivided, outer, index);
    if (walk.depth == 0) {
        AddLeaf(walk, cell, {}, caption);
    } else {
        AddInner(walk, cell, cell, AddGroup(walk, cell, {}, caption));
    }
}

/// The caption of the frequency 0, which is a mode of its own; none without such a frequency.
std::optional<String> TestModeCaption(const ModuleLists& lists) {
    for (std::int32_t i = 0; i < lists.VKSDUTFreqCount; ++i) {
        if (lists.VKSDUTFreqs[i] == TestMode) {
            return lists.VKSDUTFreqNames[i];
        }
    }
    return std::nullopt;
}

/// Without influence of the frequency, beside the test mode. Intentional: the group with the
/// caption of the frequency 0 holds the rows of all frequencies, and "Testmode" those of the test
/// mode; as leaves they stand the other way round.
void AddTestModes(const MatrixWalk& walk, const String& caption) {
    const auto cell = [](std::int32_t index) { return With(Undivided, Frequency, index); };
    AddHead(walk, cell(TestModeIndex), cell(0), caption);
    AddHead(walk, cell(NotSplit), cell(NotSplit), L"Testmode");
    for (const std::int32_t index : {TestModeIndex, NotSplit}) {
        AddInner(walk, cell(index + 1), cell(index), GroupKey(cell(index + 1)));
    }
}

void AddMode(const MatrixWalk& walk, const Axis& outer,
             const std::optional<String>& testModeCaption) {
    if (walk.lists.*outer.influences) {
        for (std::int32_t i = 0; i < walk.lists.*outer.count; ++i) {
            AddOuter(walk, outer, i, walk.Name(outer, i));
        }
    } else if (outer.column == Frequency.column && testModeCaption) {
        AddTestModes(walk, *testModeCaption);
    } else {
        AddOuter(walk, outer, NotSplit, String(outer.all));
    }
}

void AddGlobalLists(const NodeSink& add) {
    const auto addOne = [&](p_PerformTimes time, const String& caption) {
        const MomentRow* const moment = FindMoment(aceVKSDUT, time);
        add({.key = String(moment->key),
             .caption = {0, caption},
             .moment = moment,
             .isExpanded = true});
    };
    addOne(ptBefore, L"Before specific Actions");
    addOne(ptAfter, L"After specific Actions");
}

}  // namespace

std::int32_t FindDutStep(const ModuleLists& lists, PlaceIndex& places, std::int32_t frequencyIndex,
                         std::int32_t bandwidthId, std::int32_t powerId) {
    const auto frequency = [&] {
        switch (frequencyIndex) {
            case NotSplit:
                return All;
            case TestModeIndex:
                return TestMode;
            default:
                return lists.VKSDUTFreqs[frequencyIndex];
        }
    };
    return FindRow(lists, places,
                   {frequency(), static_cast<double>(bandwidthId), static_cast<double>(powerId)});
}

void PlanMatrix(const ModuleLists& lists, PlaceIndex& places, const NodeSink& add) {
    const std::optional<String> testModeCaption = TestModeCaption(lists);
    if (lists.VKSDUTTemplate == MatrixGlobalLists) {
        AddGlobalLists(add);
    } else if (HasSortedRoots(lists)) {
        const Nesting& nesting = Nestings[lists.VKSDUTTemplate];
        MatrixWalk walk{lists, places, add};
        for (const Axis& axis : nesting.inner) {
            if (lists.*axis.influences) {
                walk.inner[walk.depth++] = &axis;
            }
        }
        AddMode(walk, nesting.outer, testModeCaption);
    }
}

bool HasSortedRoots(const ModuleLists& lists) {
    return lists.VKSDUTTemplate >= MatrixByFrequency && lists.VKSDUTTemplate <= MatrixByPower;
}

}  // namespace ace
