#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <ace/core/action_store.h>
#include <ace/core/text.h>
#include <ace/matrix/row_removal.h>

namespace ace {

bool RowRemoval::HasArrays() const {
    const DynArray<p_Subrange>& sets = x_state.VKSSteps;
    const Array2D<double>& ids = x_state.VKSDUTIds;
    const std::int32_t last = x_count - 1;
    return sets.IsAllocated() && !sets.IsHeld() && sets.LowerBound() == 0 &&
           sets.UpperBound() >= last && ids.IsAllocated() && ids.RowLowerBound() == 0 &&
           ids.RowUpperBound() >= last && ids.ColumnLowerBound() == 0 &&
           ids.ColumnUpperBound() == LastKeyColumn;
}

bool RowRemoval::HasOwnKeys() {
    if (!x_hasOwnKeys.has_value()) {
        x_hasOwnKeys = AllKeysAreOwn();
    }
    return *x_hasOwnKeys;
}

bool RowRemoval::AllKeysAreOwn() const {
    for (std::int32_t row = 0; row < x_count; ++row) {
        if (FindRow(x_state, KeyOf(x_state, row)) != row) {
            return false;
        }
    }
    return true;
}

void RowRemoval::Delete(std::int32_t row, const RowKey& key) {
    if (x_hasFailed) {
        DeleteVKSDUTStep(x_state, key);
        return;
    }
    const auto message = [&] { return FreqMessage(x_state.Context, key[0]); };
    x_keyGone.resize(static_cast<std::size_t>(x_count));
    x_setGone.resize(static_cast<std::size_t>(x_count));
    try {
        Logged(x_state.Context, EngineLines(L"DeleteVKSDUTStep"), message,
               [&](const Statements& stmt) { DeleteTraced(stmt, row); });
    } catch (...) {
        Fail(row);
        throw;
    }
}

/// Key first, then the lists, then the end of the array of the keys.
void RowRemoval::DeleteTraced(const Statements& stmt, std::int32_t row) {
    x_keyGone[static_cast<std::size_t>(row)] = 1;
    ++x_keysGone;
    x_lastKey = row;
    DeleteSet(stmt, row);
    if (x_hasFailed) {
        CutKeys(x_state, stmt);
    } else {
        ++x_keysCut;
    }
}

/// As `DeleteEntry` traces it; a repeated statement is that operation itself.
void RowRemoval::DeleteSet(const Statements& stmt, std::int32_t row) {
    std::int32_t index = 0;
    const auto message = [&] { return L"Index = " + IntegerText(PlaceNow(row) + 1); };
    stmt([&] {
        if (x_hasFailed) {
            modActions::DeleteEntry(x_state.Context, x_state.VKSSteps, x_state.VKSStepCount, index);
            return;
        }
        try {
            Logged(x_state.Context, ModuleLines(L"DeleteEntry"), message, [&](const Statements&) {
                x_setGone[static_cast<std::size_t>(row)] = 1;
                ++x_setsGone;
                x_spare = x_end;
                while (x_end >= 0 && x_setGone[static_cast<std::size_t>(x_end)] != 0) {
                    --x_end;
                }
            });
        } catch (...) {
            index = PlaceNow(row) + (x_setGone[static_cast<std::size_t>(row)] != 0 ? 0 : 1);
            Fail(row);
            throw;
        }
    });
}

std::int32_t RowRemoval::PlaceNow(std::int32_t row) const {
    return row - static_cast<std::int32_t>(
                     std::count(x_setGone.begin(), x_setGone.begin() + row, char{1}));
}

void RowRemoval::Fail(std::int32_t row) {
    if (!x_hasFailed) {
        x_placeOfFailure = PlaceNow(row);
        x_hasFailed = true;
        Settle();
    }
}

void RowRemoval::Settle() {
    if (!x_isSettled && x_keysGone > 0) {
        x_isSettled = true;
        SettleKeys();
        SettleSets();
    }
}

/// Behind the last row stays what stood there before the last deletion: a copy of the last row, or
/// the row that went when it was the last one itself.
void RowRemoval::SettleSets() {
    if (x_setsGone == 0) {
        return;
    }
    DynArray<p_Subrange>& sets = x_state.VKSSteps;
    std::int32_t target = 0;
    for (std::int32_t row = 0; row < x_count; ++row) {
        if (x_setGone[static_cast<std::size_t>(row)] == 0) {
            if (row != target) {
                sets.SwapElements(target, row);
            }
            ++target;
        }
    }
    x_state.VKSStepCount = target;
    const bool isTaken = x_setGone[static_cast<std::size_t>(x_spare)] == 0;
    if (!isTaken) {
        sets.SwapElements(target, x_spare);
    }
    sets.RedimPreserve(target);
    if (isTaken) {
        const Statements stmt(x_state.Context);
        stmt([&] { CopyEntry(sets[target - 1], sets[target]); });
    }
}

/// The first deletion keeps the row behind the last one if there is one, and else the last one, and
/// each moves it along. A deletion that did not cut the array leaves its last row twice.
void RowRemoval::SettleKeys() {
    Array2D<double>& ids = x_state.VKSDUTIds;
    if (x_keysCut == 0) {
        ids.CloseRowGap(x_lastKey);
        return;
    }
    const RowKey spare = KeyOf(x_state, std::min(x_count, ids.RowUpperBound()));
    std::int32_t target = 0;
    for (std::int32_t row = 0; row < x_count; ++row) {
        if (x_keyGone[static_cast<std::size_t>(row)] == 0) {
            PutKey(x_state, target++, KeyOf(x_state, row));
        }
    }
    const std::int32_t last = target + (x_keysCut == x_keysGone ? 0 : 1);
    ids.RedimPreserveRows(last);
    for (std::int32_t row = target; row <= last; ++row) {
        PutKey(x_state, row, spare);
    }
}

// ---- walks over the rows -----------------------------------------------------------------------

namespace {

/// One by one, from row `from` down.
void DeleteFromLast(EngineState& state, const Statements& stmt, std::size_t column, double value,
                    std::int32_t from) {
    for (std::int32_t row = from; row >= 0; --row) {
        const RowKey key = stmt([&] { return KeyOf(state, row); });
        if (key[column] == value) {
            stmt([&] { DeleteVKSDUTStep(state, key); });
        }
    }
}

/// One by one, from row `from` on.
void DeleteFromFirst(EngineState& state, const Statements& stmt, std::size_t column, double value,
                     std::int32_t from) {
    for (std::int32_t row = from; row < state.VKSStepCount;) {
        const std::int32_t before = state.VKSStepCount;
        const RowKey key = stmt([&] { return KeyOf(state, row); });
        if (key[column] == value) {
            stmt([&] { DeleteVKSDUTStep(state, key); });
        }
        row += state.VKSStepCount == before ? 1 : 0;
    }
}

/// Answers the row from which the rest has to go one by one; that behind the last when all is done.
std::int32_t RemoveFromFirst(EngineState& state, const Statements& stmt, RowRemoval& removal,
                             std::size_t column, double value) {
    const std::int32_t count = state.VKSStepCount;
    for (std::int32_t row = 0; row < count; ++row) {
        const RowKey key = KeyOf(state, row);
        if (key[column] != value) {
            continue;
        }
        if (!removal.HasOwnKeys()) {
            return row;
        }
        const std::int32_t before = removal.Count();
        stmt([&] { removal.Delete(row, key); });
        if (removal.HasFailed()) {
            return removal.PlaceOfFailure() + (state.VKSStepCount == before ? 1 : 0);
        }
    }
    return count;
}

/// Rows by what they have in a column. For a few values all rows are looked at for each; for more,
/// they are sorted first.
class RowsByValue {
  public:
    RowsByValue(const EngineState& state, std::size_t column, std::int32_t values)
        : x_state(state), x_column(column) {
        constexpr std::int32_t Few = 4;
        if (values > Few) {
            Sort();
        }
    }
    /// From the last to the first.
    std::vector<std::int32_t> RowsOf(double value) const {
        return x_isSorted ? RowsInOrder(value) : RowsOfAll(value);
    }

  private:
    void Sort() {
        for (std::int32_t row = 0; row < x_state.VKSStepCount; ++row) {
            const double value = KeyOf(x_state, row)[x_column];
            if (!std::isnan(value)) {
                x_rows.emplace_back(value, row);
            }
        }
        if (!std::is_sorted(x_rows.begin(), x_rows.end())) {
            std::sort(x_rows.begin(), x_rows.end());
        }
        x_isSorted = true;
    }
    std::vector<std::int32_t> RowsInOrder(double value) const {
        constexpr auto Last = std::numeric_limits<std::int32_t>::max();
        const auto end = std::upper_bound(x_rows.begin(), x_rows.end(), std::pair(value, Last));
        std::vector<std::int32_t> rows;
        for (auto at = end; at != x_rows.begin() && std::prev(at)->first == value; --at) {
            rows.push_back(std::prev(at)->second);
        }
        return rows;
    }
    std::vector<std::int32_t> RowsOfAll(double value) const {
        std::vector<std::int32_t> rows;
        for (std::int32_t row = x_state.VKSStepCount - 1; row >= 0; --row) {
            if (x_state.VKSDUTIds.Row(row)[x_column] == value) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    const EngineState& x_state;
    std::size_t x_column;
    std::vector<std::pair<double, std::int32_t>> x_rows;
    bool x_isSorted = false;
};

/// Deletes the rows of a value as long as that can be done at once. Where it can't, answers the row
/// from which the rest has to go one by one.
std::int32_t RemoveFromLast(EngineState& state, const Statements& stmt, RowRemoval& removal,
                            const std::vector<std::int32_t>& rows) {
    if (!rows.empty() && !removal.HasOwnKeys()) {
        return state.VKSStepCount - 1;
    }
    for (const std::int32_t row : rows) {
        if (removal.IsGone(row)) {
            continue;
        }
        const RowKey key = KeyOf(state, row);
        stmt([&] { removal.Delete(row, key); });
        if (removal.HasFailed()) {
            return removal.PlaceOfFailure() - 1;
        }
    }
    return -1;
}

/// Runs a walk that deletes, and settles what it has deleted however it ends.
template <class Walk>
auto Settling(RowRemoval& removal, Walk&& walk) {
    try {
        const auto answer = walk();
        removal.Settle();
        return answer;
    } catch (...) {
        removal.Settle();
        throw;
    }
}

}  // namespace

void DeleteRows(EngineState& state, const Statements& stmt, std::size_t column, double value) {
    RowRemoval removal(state);
    std::int32_t from = 0;
    if (removal.HasArrays()) {
        from =
            Settling(removal, [&] { return RemoveFromFirst(state, stmt, removal, column, value); });
    }
    DeleteFromFirst(state, stmt, column, value, from);
}

void DeleteRowsOfEach(EngineState& state, const Statements& stmt, std::size_t column,
                      std::int32_t count,
                      const std::function<std::optional<double>(std::int32_t)>& valueOf) {
    RowRemoval removal(state);
    std::optional<RowsByValue> rows;
    if (removal.HasArrays()) {
        rows.emplace(state, column, count);
    }
    Settling(removal, [&] {
        for (std::int32_t entry = 0; entry < count; ++entry) {
            const std::optional<double> value = valueOf(entry);
            if (!value) {
                continue;
            }
            std::int32_t from = state.VKSStepCount - 1;
            if (rows) {
                from = RemoveFromLast(state, stmt, removal, rows->RowsOf(*value));
            }
            if (!rows || removal.MustGiveWay()) {
                rows.reset();
                DeleteFromLast(state, stmt, column, *value, from);
            }
        }
        return true;
    });
}

}  // namespace ace
