/// Sets of lists that tell where they came from, and a store that is compared as a whole.
#pragma once

#include "support/engine_fixture.h"

namespace ace::test {

/// A set whose four lists each hold one wait of as many milliseconds as `letter` counts from A.
inline p_Subrange Letter(wchar_t letter) {
    p_Subrange set;
    for (const ListFields& list : ActionLists) {
        Fill(set, list, {WaitFor(letter - L'A' + 1)});
    }
    return set;
}

/// The letters of the four lists of a set, a point for an empty one: "..A." has frequency actions
/// only. A question mark is none of these.
inline String TextOf(const p_Subrange& set) {
    String text;
    for (const ListFields& list : ActionLists) {
        const std::int32_t count = set.*list.count;
        const DynArray<p_Action>& actions = set.*list.actions;
        if (count == 0 && !actions.IsAllocated()) {
            text += L'.';
        } else if (count == 1 && actions.Size() == 1) {
            const double wait = std::get<aceWait>(actions[0].Parameter).Time;
            text += static_cast<wchar_t>(L'A' + static_cast<int>(wait) - 1);
        } else {
            text += L'?';
        }
    }
    return text;
}

/// All elements, the spare one behind the last included; one line says that there is no array.
inline Lines TextsOf(const DynArray<p_Subrange>& sets) {
    Lines texts;
    for (const p_Subrange& set : sets) {
        texts.push_back(TextOf(set));
    }
    return sets.IsAllocated() ? texts : Lines{L"unallocated"};
}
inline Lines TextsOf(const DynArray<String>& texts) {
    return texts.IsAllocated() ? Lines(texts.begin(), texts.end()) : Lines{L"unallocated"};
}

/// An array from 0 with these elements.
template <class T>
DynArray<T> ArrayOf(const std::vector<T>& elements) {
    DynArray<T> array;
    array.Redim(0, static_cast<std::int32_t>(elements.size()) - 1);
    std::copy(elements.begin(), elements.end(), array.begin());
    return array;
}
/// One set for each letter; a blank is an empty one.
inline DynArray<p_Subrange> Letters(StringView letters) {
    std::vector<p_Subrange> sets;
    for (const wchar_t letter : letters) {
        sets.push_back(letter == L' ' ? p_Subrange{} : Letter(letter));
    }
    return ArrayOf(sets);
}

}  // namespace ace::test
