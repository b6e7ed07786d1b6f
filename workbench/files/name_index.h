/// A table of names that are kept elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ace::workbench {

/// Maps names, whose letters A to Z may have either case, to numbers below 2^32 - 2. A caller tells
/// by a number whether it has the name, so no name is copied. Sized ahead it allocates once.
class NameIndex {
  public:
    static constexpr std::size_t None = static_cast<std::size_t>(-1);

    void Reserve(std::size_t names);

    /// The number for which `hasName(number)` is true; `None` when there is none.
    template <class HasName>
    std::size_t Find(std::string_view name, HasName&& hasName) const {
        const std::size_t slot = SlotOf(name, hasName);
        return slot == None ? None : x_slots[slot].number;
    }
    /// Adds a name that is not there.
    void Add(std::string_view name, std::size_t number);
    /// Takes a name away, if it is there.
    template <class HasName>
    void Remove(std::string_view name, HasName&& hasName) {
        if (const std::size_t slot = SlotOf(name, hasName); slot != None) {
            x_slots[slot].number = Removed;
        }
    }

  private:
    static constexpr std::uint32_t Empty = static_cast<std::uint32_t>(-1);
    static constexpr std::uint32_t Removed = static_cast<std::uint32_t>(-2);

    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = Empty;
    };

    static std::uint32_t HashOf(std::string_view name);
    std::size_t Next(std::size_t slot) const { return (slot + 1) & (x_slots.size() - 1); }
    void Insert(Slot entry);
    void Grow(std::size_t size);

    template <class HasName>
    std::size_t SlotOf(std::string_view name, HasName&& hasName) const {
        if (x_slots.empty()) {
            return None;
        }
        const std::uint32_t hash = HashOf(name);
        for (std::size_t slot = hash & (x_slots.size() - 1);; slot = Next(slot)) {
            const Slot& entry = x_slots[slot];
            if (entry.number == Empty) {
                return None;
            }
            if (entry.hash == hash && entry.number != Removed && hasName(entry.number)) {
                return slot;
            }
        }
    }

    std::vector<Slot> x_slots;  ///< as many as a power of two, at most half of them used
    std::size_t x_used = 0;     ///< removed names included
};

}  // namespace ace::workbench
