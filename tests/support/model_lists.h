/// Entries and arrays of the plain models that random tests compare with.
#pragma once

#include <vector>

namespace ace::test {

/// An entry: what stands in its five lists, an empty one being 0.
struct ModelEntry {
    int enter = 0;
    int leave = 0;
    int freq = 0;
    int mlc = 0;
    int util = 0;
    bool operator==(const ModelEntry&) const = default;
};

/// An array that can be missing; otherwise its elements go from 0 to `upper`, spare ones included.
template <class T>
struct ModelArray {
    std::vector<T> elements;
    bool made = false;

    int Upper() const { return static_cast<int>(elements.size()) - 1; }
    bool Has(int index) const { return made && index >= 0 && index <= Upper(); }
    T& At(int index) { return elements[static_cast<std::size_t>(index)]; }
    const T& At(int index) const { return elements[static_cast<std::size_t>(index)]; }
    /// False when there can be no such array.
    bool Resize(int upper) {
        if (upper < 0) {
            return false;
        }
        elements.resize(static_cast<std::size_t>(upper) + 1);
        made = true;
        return true;
    }
    void MakeAnew() {
        elements.assign(1, T());
        made = true;
    }
    bool operator==(const ModelArray&) const = default;
};

}  // namespace ace::test
