/// A plain model of the device-under-test matrix, for random tests. It knows nothing of the engine.
#pragma once

#include <array>

#include "support/store_model.h"

namespace ace::test {

using ModelKey = std::array<double, 3>;

/// A table of names whose entries are known by their index.
struct ModelTable {
    ModelArray<std::wstring> names;
    int count = 0;

    void Append(const std::wstring& name) {
        ++count;
        names.Resize(count - 1);
        names.At(count - 1) = name;
    }
    /// Error 9 for a negative index; one behind the last entry closes no gap.
    int Remove(int index) {
        for (int i = index; i <= count - 2; ++i) {
            if (!names.Has(i) || !names.Has(i + 1)) {
                return StoreModel::OutOfBounds;
            }
            names.At(i) = names.At(i + 1);
        }
        --count;
        names.Resize(count);
        return 0;
    }
};

/// Rows, tables and flags of one object. Each operation answers the number of its error.
struct MatrixModel {
    ModelArray<ModelEntry> lists;
    ModelArray<ModelKey> keys;
    int rows = 0;
    ModelArray<double> frequencies;
    ModelArray<std::wstring> frequencyNames;
    int frequencyCount = 0;
    std::array<ModelTable, 2> tables;  ///< bandwidths, powers
    std::array<bool, 3> influence{};
    int templateNumber = 0;

    void SetInfluence(bool frequency, bool bandwidth, bool power) {
        influence = {frequency, bandwidth, power};
        Create();
    }

    void AddFrequency(const std::wstring& name, double frequency) {
        int found = -1;
        for (int i = 0; i < frequencyCount && found < 0; ++i) {
            found = frequencies.At(i) == frequency ? i : -1;
        }
        if (found < 0) {
            ++frequencyCount;
            frequencies.Resize(frequencyCount - 1);
            frequencyNames.Resize(frequencyCount - 1);
            frequencies.At(frequencyCount - 1) = frequency;
            found = frequencyCount - 1;
        }
        frequencyNames.At(found) = name;
        Create();
    }

    void DeleteFrequency(double frequency) {
        DeleteRowsWith(0, frequency);
        for (int i = 0; i < frequencyCount; ++i) {
            if (frequencies.At(i) != frequency) {
                continue;
            }
            for (int k = i; k < frequencyCount - 1; ++k) {
                frequencies.At(k) = frequencies.At(k + 1);
                frequencyNames.At(k) = frequencyNames.At(k + 1);
            }
            --frequencyCount;
            frequencies.Resize(frequencyCount);
            frequencyNames.Resize(frequencyCount);
            return;
        }
    }

    /// `dimension` is 1 for bandwidths and 2 for powers.
    void AddName(int dimension, const std::wstring& name, int id) {
        ModelTable& table = TableOf(dimension);
        if (id == -1 || id > table.count - 1) {
            table.Append(name);
        } else if (id >= 0) {
            table.names.At(id) = name;
        }
        Create();
    }

    int DeleteName(int dimension, int id) {
        ModelTable& table = TableOf(dimension);
        DeleteRowsWith(dimension, id);
        if (table.count < 1) {
            return 0;
        }
        if (id < 0) {
            return StoreModel::OutOfBounds;
        }
        for (int row = 0; row < rows; ++row) {
            if (At(row, dimension) > id) {
                At(row, dimension) -= 1;
            }
        }
        return table.Remove(id);
    }

    void DeleteAll() {
        for (const int dimension : {2, 1}) {
            for (int times = TableOf(dimension).count; times > 0; --times) {
                DeleteName(dimension, 0);
            }
        }
        for (int times = frequencyCount; times > 0; --times) {
            DeleteFrequency(frequencies.At(0));
        }
    }

    /// What a step runs: the list of the key's row, or of the row for everything; 0 for none.
    int ListOf(ModelKey key) const {
        if (key[0] != 0.0 && !influence[0]) {
            key[0] = -1;
        }
        key[1] = influence[1] ? key[1] : -1;
        key[2] = influence[2] ? key[2] : -1;
        int row = Find(key);
        row = row < 0 ? Find({-1, -1, -1}) : row;
        return row < 0 ? 0 : lists.At(row).enter;
    }

  private:
    ModelTable& TableOf(int dimension) { return tables[static_cast<std::size_t>(dimension) - 1]; }
    double& At(int row, int dimension) { return keys.At(row)[static_cast<std::size_t>(dimension)]; }
    bool Influences(int dimension) const { return influence[static_cast<std::size_t>(dimension)]; }

    int Find(const ModelKey& key) const {
        for (int row = 0; row < rows; ++row) {
            if (keys.At(row) == key) {
                return row;
            }
        }
        return -1;
    }
    void AddRow(const ModelKey& key) {
        if (Find(key) >= 0) {
            return;
        }
        int index = rows + 1;
        StoreModel::AddEntry(lists, rows, index);
        keys.Resize(rows);
        keys.At(rows - 1) = key;
    }
    void DeleteRow(const ModelKey& key) {
        const int row = Find(key);
        for (int i = row; i < keys.Upper(); ++i) {
            keys.At(i) = keys.At(i + 1);
        }
        int index = row + 1;
        StoreModel::DeleteEntry(lists, rows, index);
        keys.Resize(rows);
    }
    void DeleteRowsWith(int dimension, double value) {
        for (int row = 0; row < rows;) {
            if (At(row, dimension) == value) {
                DeleteRow(ModelKey(keys.At(row)));
            } else {
                ++row;
            }
        }
    }
    void DeleteRowsUpwards(int dimension, double value) {
        for (int row = rows - 1; row >= 0; --row) {
            if (At(row, dimension) == value) {
                DeleteRow(ModelKey(keys.At(row)));
            }
        }
    }
    int CountOf(int dimension) {
        return dimension == 0 ? frequencyCount : TableOf(dimension).count;
    }

    void Remove(int dimension) {
        if (Influences(dimension)) {
            DeleteRowsUpwards(dimension, -1);
            return;
        }
        for (int entry = 0; entry < CountOf(dimension); ++entry) {
            const double value = dimension == 0 ? frequencies.At(entry) : entry;
            if (dimension != 0 || value != 0.0 || templateNumber != 0) {
                DeleteRowsUpwards(dimension, value);
            }
        }
    }
    void Create() {
        Remove(0);
        Remove(1);
        Remove(2);
        bool testMode = false;
        for (int i = 0; i < frequencyCount; ++i) {
            testMode = testMode || frequencies.At(i) == 0.0;
        }
        for (int f = Influences(0) ? 0 : -1; f < (Influences(0) ? CountOf(0) : 0); ++f) {
            for (int b = Influences(1) ? 0 : -1; b < (Influences(1) ? CountOf(1) : 0); ++b) {
                for (int p = Influences(2) ? 0 : -1; p < (Influences(2) ? CountOf(2) : 0); ++p) {
                    const double frequency = f == -1 ? -1.0 : frequencies.At(f);
                    AddRow({frequency, static_cast<double>(b), static_cast<double>(p)});
                    if (f == -1 && templateNumber == 0 && testMode) {
                        AddRow({0.0, static_cast<double>(b), static_cast<double>(p)});
                    }
                }
            }
        }
    }
};

}  // namespace ace::test
