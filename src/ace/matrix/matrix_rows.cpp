#include <algorithm>
#include <bit>

#include <ace/core/action_store.h>
#include <ace/core/held_lists.h>
#include <ace/host/checked_numbers.h>
#include <ace/matrix/matrix_rows.h>

namespace ace {

namespace {

/// As `ReserveUpTo`.
Array2D<double> ReserveIds(Array2D<double>& ids, std::int32_t count) {
    Array2D<double> fresh;
    if (!ids.IsAllocated() && count >= 0) {
        fresh.Redim(0, count, 0, LastKeyColumn);
    } else if (ids.IsAllocated() && count > ids.RowUpperBound()) {
        const std::int32_t before = ids.RowUpperBound();
        ids.RedimPreserveRows(count);
        ids.RedimPreserveRows(before);
    }
    return fresh;
}

/// As `EnlargeTo`.
void EnlargeIds(Array2D<double>& ids, std::int32_t count, Array2D<double>& fresh) {
    if (fresh.IsAllocated()) {
        ids = std::move(fresh);
    } else {
        ids.RedimPreserveRows(count);
    }
}

/// Both zeros are one value, and hash alike; what is no number equals nothing.
std::size_t HashOf(const RowKey& key) {
    constexpr std::size_t Spread = 0x9E3779B97F4A7C15U;
    std::size_t hash = 0;
    for (const double value : key) {
        hash = (hash ^ std::bit_cast<std::uint64_t>(value + 0.0)) * Spread;
        hash ^= hash >> 32;
    }
    return hash;
}

bool IsAt(const ModuleLists& lists, std::int32_t row, const RowKey& key) {
    return std::equal(key.begin(), key.end(), lists.VKSDUTIds.Row(row));
}

/// The walk over the rows, which says what the answer is.
std::int32_t WalkToRow(const ModuleLists& lists, const RowKey& key) {
    for (std::int32_t row = 0; row < lists.VKSStepCount; ++row) {
        if (IsAt(lists, row, key)) {
            return row;
        }
    }
    return -1;
}

/// False when the array has not a row for each, so that a walk ends in an error, or when there is
/// no memory for the index.
bool UpdateIndex(const ModuleLists& lists, PlaceIndex& places) {
    const Array2D<double>& ids = lists.VKSDUTIds;
    const bool hasAll = ids.IsAllocated() && ids.RowLowerBound() == 0 &&
                        ids.RowUpperBound() >= lists.VKSStepCount - 1;
    if (!hasAll) {
        return false;
    }
    try {
        places.Update(
            {ids.Changes(), 0}, lists.VKSStepCount,
            [&](std::int32_t row) { return HashOf(KeyOf(lists, row)); },
            [&](std::int32_t a, std::int32_t b) { return IsAt(lists, a, KeyOf(lists, b)); });
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace

RowKey KeyOf(const ModuleLists& lists, std::int32_t row) {
    const double* const cells = lists.VKSDUTIds.Row(row);
    return {cells[0], cells[1], cells[2]};
}

void PutKey(EngineState& state, std::int32_t row, const RowKey& key) {
    for (std::int32_t column = 0; column <= LastKeyColumn; ++column) {
        state.VKSDUTIds(row, column) = key[static_cast<std::size_t>(column)];
    }
}

void CutKeys(EngineState& state, const Statements& stmt) {
    if (state.VKSStepCount >= 0) {
        stmt([&] { state.VKSDUTIds.RedimPreserveRows(state.VKSStepCount); });
    } else {
        stmt([&] { state.VKSDUTIds.Redim(0, 0, 0, LastKeyColumn); });
    }
}

std::int32_t FindRow(const EngineState& state, const RowKey& key) {
    return FindRow(state, state.RowPlaces, key);
}

std::int32_t FindRow(const ModuleLists& lists, PlaceIndex& places, const RowKey& key) {
    if (!UpdateIndex(lists, places)) {
        return WalkToRow(lists, key);
    }
    const std::int32_t row =
        places.Find(HashOf(key), [&](std::int32_t place) { return IsAt(lists, place, key); });
    return row < lists.VKSStepCount ? row : -1;
}

RowKeys::RowKeys(const EngineState& state) {
    for (std::int32_t row = 0; row < state.VKSStepCount; ++row) {
        Insert(KeyOf(state, row));
    }
}

std::size_t RowKeys::Hash::operator()(const RowKey& key) const {
    return HashOf(key);
}

void AddVKSDUTStep(EngineState& state, RowKeys& keys, const RowKey& key) {
    const auto message = [&] { return FreqMessage(state.Context, key[0]); };
    Logged(state.Context, EngineLines(L"AddVKSDUTStep"), message, [&](const Statements& stmt) {
        if (keys.Contains(key)) {
            return;
        }
        std::int32_t index = stmt([&] { return CheckedSum(state.VKSStepCount, 1); });
        Array2D<double> fresh = stmt([&] { return ReserveIds(state.VKSDUTIds, index); });
        stmt([&] {
            modActions::AddEntry(state.Context, state.VKSSteps, state.VKSStepCount, index);
        });
        stmt([&] { EnlargeIds(state.VKSDUTIds, state.VKSStepCount, fresh); });
        stmt([&] { PutKey(state, state.VKSStepCount - 1, key); });
        stmt([&] { keys.Insert(key); });
    });
}

void DeleteVKSDUTStep(EngineState& state, const RowKey& key) {
    const auto message = [&] { return FreqMessage(state.Context, key[0]); };
    Logged(state.Context, EngineLines(L"DeleteVKSDUTStep"), message, [&](const Statements& stmt) {
        const std::int32_t row = stmt([&] { return FindRow(state, key); });
        if (row < 0) {
            return;
        }
        stmt([&] { RequireFree(state.VKSSteps); });
        state.VKSDUTIds.CloseRowGap(row);
        std::int32_t index = row + 1;
        stmt([&] {
            modActions::DeleteEntry(state.Context, state.VKSSteps, state.VKSStepCount, index);
        });
        CutKeys(state, stmt);
    });
}

}  // namespace ace
