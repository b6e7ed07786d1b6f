/// Sets of lists that tell where they came from, and a store that is compared as a whole.
#pragma once

#include "support/engine_fixture.h"

namespace ace::test {

/// A set whose four lists each hold one wait of as many milliseconds as `letter` counts from A.
p_Subrange Letter(wchar_t letter);

/// The letters of the four lists of a set, a point for an empty one: "..A." has frequency actions
/// only. A question mark is none of these.
String TextOf(const p_Subrange& set);

/// All elements, the spare one behind the last included; one line says that there is no array.
Lines TextsOf(const DynArray<p_Subrange>& sets);
Lines TextsOf(const DynArray<String>& texts);

/// An array from 0 with these elements.
template <class T>
DynArray<T> ArrayOf(const std::vector<T>& elements) {
    DynArray<T> array;
    array.Redim(0, static_cast<std::int32_t>(elements.size()) - 1);
    std::copy(elements.begin(), elements.end(), array.begin());
    return array;
}
/// One set for each letter; a blank is an empty one.
DynArray<p_Subrange> Letters(StringView letters);

}  // namespace ace::test
