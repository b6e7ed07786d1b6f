/// Finding where a key stands in arrays, without a walk over them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ace {

/// The first place of each key in one or two arrays that stand beside each other. The arrays are
/// anybody's to change and tell nobody, so the index remembers how often each has been changed when
/// it last looked, and begins anew when that has moved. Keys are not copied: what is found is
/// compared with the arrays, so that only what stands there is ever an answer.
class PlaceIndex {
  public:
    /// `DynArray::Changes` of the arrays.
    using Changes = std::array<std::uint32_t, 2>;

    /// True when the index stands for the arrays as they are.
    bool IsCurrent(const Changes& changes) const { return x_changes == changes; }
    /// The arrays have been changed at `first` and behind, and nowhere else. An index that has such
    /// a place begins anew: a count that fell without a change of the arrays leaves it with some.
    void Follow(const Changes& changes, std::int32_t first) {
        if (x_end > first) {
            Clear();
        } else {
            x_changes = changes;
        }
    }
    /// Makes the index stand for places 0 to `end` - 1, or more. `hashOf(place)` is the hash of the
    /// key at a place, `areEqual(a, b)` compares those of two places. Asks for memory.
    template <class HashOf, class AreEqual>
    void Update(const Changes& changes, std::int32_t end, HashOf&& hashOf, AreEqual&& areEqual) {
        if (!IsCurrent(changes)) {
            Clear();
            x_changes = changes;
        }
        for (; x_end < end; ++x_end) {
            const std::size_t hash = hashOf(x_end);
            if (Find(hash, [&](std::int32_t place) { return areEqual(place, x_end); }) < 0) {
                Insert(hash, x_end);
            }
        }
    }
    /// The first place with this hash of which `isIt(place)` says that it is the key; -1 for none.
    template <class IsIt>
    std::int32_t Find(std::size_t hash, IsIt&& isIt) const {
        if (x_slots.empty()) {
            return -1;
        }
        for (std::size_t at = hash & Mask(); x_slots[at].place >= 0; at = (at + 1) & Mask()) {
            if (x_slots[at].hash == hash && isIt(x_slots[at].place)) {
                return x_slots[at].place;
            }
        }
        return -1;
    }
    /// Forgets all places.
    void Clear();

  private:
    struct Slot {
        std::size_t hash = 0;
        std::int32_t place = -1;  ///< -1 for a free slot
    };

    std::size_t Mask() const { return x_slots.size() - 1; }
    void Insert(std::size_t hash, std::int32_t place);
    void Put(std::size_t hash, std::int32_t place);

    std::vector<Slot> x_slots;  ///< a power of two, at most half of them taken
    std::size_t x_taken = 0;
    std::int32_t x_end = 0;
    Changes x_changes{};
};

}  // namespace ace
