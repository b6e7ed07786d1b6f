#include "workbench/files/name_index.h"

#include <bit>
#include <utility>

namespace ace::workbench {

namespace {

constexpr std::size_t SmallestSize = 8;

}  // namespace

/// FNV-1a (Fowler, Noll, Vo; public domain) over the lower-case bytes.
std::uint32_t NameIndex::HashOf(std::string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char c : name) {
        const bool isUpper = c >= 'A' && c <= 'Z';
        const auto byte = static_cast<unsigned char>(isUpper ? c - 'A' + 'a' : c);
        hash = (hash ^ byte) * 16777619U;
    }
    return hash;
}

void NameIndex::Reserve(std::size_t names) {
    if (names * 2 > x_slots.size()) {
        Grow(std::bit_ceil(names * 2));
    }
}

void NameIndex::Add(std::string_view name, std::size_t number) {
    if ((x_used + 1) * 2 > x_slots.size()) {
        Grow(x_slots.empty() ? SmallestSize : x_slots.size() * 2);
    }
    Insert({HashOf(name), static_cast<std::uint32_t>(number)});
}

void NameIndex::Insert(Slot entry) {
    std::size_t slot = entry.hash & (x_slots.size() - 1);
    while (x_slots[slot].number != Empty) {
        slot = Next(slot);
    }
    x_slots[slot] = entry;
    ++x_used;
}

void NameIndex::Grow(std::size_t size) {
    const std::vector<Slot> old = std::exchange(x_slots, std::vector<Slot>(size));
    x_used = 0;
    for (const Slot& entry : old) {
        if (entry.number != Empty && entry.number != Removed) {
            Insert(entry);
        }
    }
}

}  // namespace ace::workbench
