#include <ace/core/place_index.h>

namespace ace {

void PlaceIndex::Clear() {
    x_slots.clear();
    x_taken = 0;
    x_end = 0;
    x_changes = {};
}

void PlaceIndex::Insert(std::size_t hash, std::int32_t place) {
    constexpr std::size_t Smallest = 16;
    if (2 * (x_taken + 1) > x_slots.size()) {
        std::vector<Slot> larger(x_slots.empty() ? Smallest : 2 * x_slots.size());
        x_slots.swap(larger);
        for (const Slot& slot : larger) {
            if (slot.place >= 0) {
                Put(slot.hash, slot.place);
            }
        }
    }
    Put(hash, place);
    ++x_taken;
}

void PlaceIndex::Put(std::size_t hash, std::int32_t place) {
    std::size_t at = hash & Mask();
    while (x_slots[at].place >= 0) {
        at = (at + 1) & Mask();
    }
    x_slots[at] = {hash, place};
}

}  // namespace ace
