/// The rows of the matrix: a key of three values each, with a list of actions beside it.
#pragma once

#include <array>
#include <unordered_set>

#include <ace/core/operation.h>

namespace ace {

/// Frequency in hertz, bandwidth id and power id; -1 stands for all of a dimension.
using RowKey = std::array<double, 3>;

/// What a row for a whole dimension has in its place.
inline constexpr double All = -1.0;
/// The key of all frequencies, bandwidths and powers.
inline constexpr RowKey AllRow{All, All, All};
/// The frequency that is a mode of its own: no influence of the frequency takes it away.
inline constexpr double TestMode = 0.0;

/// The columns of a key go from 0 to this one.
inline constexpr std::int32_t LastKeyColumn = 2;

/// The key of row `row`, from 0; error 9 outside the array of the keys.
RowKey KeyOf(const ModuleLists& lists, std::int32_t row);
/// Writes the key of a row; errors as above.
void PutKey(EngineState& state, std::int32_t row, const RowKey& key);
/// Gives the array of the keys one row more than there are rows, as one statement. Error 9 where
/// there is no array.
void CutKeys(EngineState& state, const Statements& stmt);

/// The first row of a key, whose values are compared as numbers: both zeros are one, and what is no
/// number equals nothing. -1 for none. Error 9 where the keys are fewer than the rows.
std::int32_t FindRow(const EngineState& state, const RowKey& key);
/// The same in anybody's lists. `places` is the index of these lists and of no others: it is kept
/// with them and looks after itself.
std::int32_t FindRow(const ModuleLists& lists, PlaceIndex& places, const RowKey& key);

/// The row that the operations of the matrix take for a frequency (hertz), a bandwidth and a power:
/// that of the key which they are looked for under, else the row for everything. The key comes back
/// in the arguments. -1 for none; errors as above, and error 9 where the keys or the lists have no
/// such row.
std::int32_t TakeRow(EngineState& state, double& frequency, std::int32_t& bandwidth,
                     std::int32_t& power);

/// The keys of all rows at once, so that a rebuild needs no walk over the rows for each of them.
class RowKeys {
  public:
    explicit RowKeys(const EngineState& state);
    bool Contains(const RowKey& key) const { return x_keys.contains(key); }
    void Insert(const RowKey& key) { x_keys.insert(key); }

  private:
    struct Hash {
        std::size_t operator()(const RowKey& key) const;
    };
    std::unordered_set<RowKey, Hash> x_keys;
};

/// Adds an empty row behind the last unless `keys` has it already. The list beside it keeps the
/// frequency list of the spare element, which nothing reads. Handled.
void AddVKSDUTStep(EngineState& state, RowKeys& keys, const RowKey& key);

/// Removes the first row of a key, if there is one. Handled.
void DeleteVKSDUTStep(EngineState& state, const RowKey& key);

}  // namespace ace
