/// Taking many rows out of the matrix at once.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <ace/matrix/matrix_rows.h>

namespace ace {

/// Deletes rows one after the other, as `DeleteVKSDUTStep` would with the same trace lines, and
/// moves what stays only once: in `Settle`, until when the arrays are as they were. The trace log,
/// all that a deletion asks of the host, lets no messages run, so nobody looks at them meanwhile.
/// Where a statement of a deletion fails, all is settled as the deletions one by one would have
/// left it, and the rest has to go one by one.
class RowRemoval {
  public:
    explicit RowRemoval(EngineState& state) : x_state(state) {}

    /// There are an array for the keys and one for the lists, which is not held, with an element
    /// for each row. Without them rows can't go in this way.
    bool HasArrays() const;
    /// Each row is found by its own key. Where two have the same, or a value is no number, rows
    /// can't go in this way. The first answer, from before all deletions, stands.
    bool HasOwnKeys();
    /// Deletes a row, which is named by its place before all deletions. Handled. After a failure it
    /// deletes the first row of `key`, as it stands then.
    void Delete(std::int32_t row, const RowKey& key);
    /// The row has been deleted already, as for a value that stands twice in a table.
    bool IsGone(std::int32_t row) const {
        return !x_setGone.empty() && x_setGone[static_cast<std::size_t>(row)] != 0;
    }
    /// A statement has failed: what was deleted has been settled, and `PlaceOfFailure` is where the
    /// row stood then.
    bool HasFailed() const { return x_hasFailed; }
    /// The rest has to go one by one.
    bool MustGiveWay() const { return x_hasFailed || x_hasOwnKeys == false; }
    /// Rows that are left, before a failure.
    std::int32_t Count() const { return x_count - x_setsGone; }
    std::int32_t PlaceOfFailure() const { return x_placeOfFailure; }
    /// Moves what stays to where it belongs. Does nothing when that is done. Error 7, handled, when
    /// there is no memory for the copy in the spare element, which is then empty.
    void Settle();

  private:
    bool AllKeysAreOwn() const;
    std::int32_t PlaceNow(std::int32_t row) const;
    void DeleteTraced(const Statements& stmt, std::int32_t row);
    void DeleteSet(const Statements& stmt, std::int32_t row);
    void Fail(std::int32_t row);
    void SettleSets();
    void SettleKeys();

    EngineState& x_state;
    std::int32_t x_count = x_state.VKSStepCount;  ///< rows before all deletions
    std::optional<bool> x_hasOwnKeys;
    std::vector<char> x_keyGone;  ///< by row: not 0 when its key has been deleted
    std::vector<char> x_setGone;  ///< the same of its lists
    std::int32_t x_keysGone = 0;
    std::int32_t x_setsGone = 0;
    std::int32_t x_keysCut = 0;        ///< deletions after which the array of the keys was cut
    std::int32_t x_lastKey = -1;       ///< the row whose key went last
    std::int32_t x_end = x_count - 1;  ///< the last row whose lists are there
    std::int32_t x_spare = -1;         ///< what `x_end` was before the last deletion
    bool x_isSettled = false;
    bool x_hasFailed = false;
    std::int32_t x_placeOfFailure = -1;
};

/// Deletes every row with `value` in a column, from the first to the last. A row that can't be
/// found by its own key, because its frequency is no number, is passed over. Each deletion is a
/// statement.
void DeleteRows(EngineState& state, const Statements& stmt, std::size_t column, double value);

/// For each of the entries from 0 to `count` - 1, deletes every row with its value in a column,
/// from the last to the first. `valueOf` is asked in turn; nothing for an entry whose rows stay.
void DeleteRowsOfEach(EngineState& state, const Statements& stmt, std::size_t column,
                      std::int32_t count,
                      const std::function<std::optional<double>(std::int32_t)>& valueOf);

}  // namespace ace
