#include <algorithm>
#include <functional>

#include <ace/core/action_store.h>
#include <ace/core/held_lists.h>
#include <ace/core/text.h>
#include <ace/host/rounding.h>
#include <ace/matrix/matrix_rows.h>

namespace ace {

namespace {

constexpr std::int32_t Columns = 3;

void PutKey(EngineState& state, std::int32_t row, const RowKey& key) {
    for (std::int32_t column = 0; column < Columns; ++column) {
        state.VKSDUTIds(row, column) = key[static_cast<std::size_t>(column)];
    }
}

void EnlargeIds(EngineState& state) {
    if (state.VKSDUTIds.IsAllocated()) {
        state.VKSDUTIds.RedimPreserveRows(state.VKSStepCount);
    } else {
        state.VKSDUTIds.Redim(0, state.VKSStepCount, 0, Columns - 1);
    }
}

/// As `ReserveUpTo`.
void ReserveIds(EngineState& state, std::int32_t count) {
    if (state.VKSDUTIds.IsAllocated() && count > state.VKSDUTIds.RowUpperBound()) {
        const std::int32_t before = state.VKSDUTIds.RowUpperBound();
        state.VKSDUTIds.RedimPreserveRows(count);
        state.VKSDUTIds.RedimPreserveRows(before);
    }
}

String KeyMessage(ThreadContext& context, const RowKey& key) {
    return L"Freq = " + FormatGeneral(key[0], context.Platform().DecimalSeparator());
}

}  // namespace

RowKey KeyOf(const EngineState& state, std::int32_t row) {
    const double* const cells = state.VKSDUTIds.Row(row);
    return {cells[0], cells[1], cells[2]};
}

std::int32_t FindRow(const EngineState& state, const RowKey& key) {
    for (std::int32_t row = 0; row < state.VKSStepCount; ++row) {
        if (std::equal(key.begin(), key.end(), state.VKSDUTIds.Row(row))) {
            return row;
        }
    }
    return -1;
}

RowKeys::RowKeys(const EngineState& state) {
    for (std::int32_t row = 0; row < state.VKSStepCount; ++row) {
        Insert(KeyOf(state, row));
    }
}

/// Both zeros are one value, and hash alike.
std::size_t RowKeys::Hash::operator()(const RowKey& key) const {
    constexpr std::size_t Spread = 1000003;
    const std::hash<double> hash;
    return (hash(key[0]) * Spread + hash(key[1])) * Spread + hash(key[2]);
}

void AddVKSDUTStep(EngineState& state, RowKeys& keys, const RowKey& key) {
    const auto message = [&] { return KeyMessage(state.Context, key); };
    Logged(state.Context, EngineLines(L"AddVKSDUTStep"), message, [&](const Statements& stmt) {
        if (keys.Contains(key)) {
            return;
        }
        std::int32_t index = stmt([&] { return CheckedDifference(state.VKSStepCount, -1); });
        stmt([&] { ReserveIds(state, index); });
        stmt([&] {
            modActions::AddEntry(state.Context, state.VKSSteps, state.VKSStepCount, index);
        });
        stmt([&] { EnlargeIds(state); });
        stmt([&] { PutKey(state, state.VKSStepCount - 1, key); });
        stmt([&] { keys.Insert(key); });
    });
}

void DeleteVKSDUTStep(EngineState& state, const RowKey& key) {
    const auto message = [&] { return KeyMessage(state.Context, key); };
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
        if (state.VKSStepCount >= 0) {
            stmt([&] { state.VKSDUTIds.RedimPreserveRows(state.VKSStepCount); });
        } else {
            stmt([&] { state.VKSDUTIds.Redim(0, 0, 0, Columns - 1); });
        }
    });
}

}  // namespace ace
