#include "support/store_fixture.h"

namespace ace::test {

p_Subrange Letter(wchar_t letter) {
    p_Subrange set;
    for (const ListFields& list : ActionLists) {
        Fill(set, list, {WaitFor(letter - L'A' + 1)});
    }
    return set;
}

String TextOf(const p_Subrange& set) {
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

Lines TextsOf(const DynArray<p_Subrange>& sets) {
    Lines texts;
    for (const p_Subrange& set : sets) {
        texts.push_back(TextOf(set));
    }
    return sets.IsAllocated() ? texts : Lines{L"unallocated"};
}

Lines TextsOf(const DynArray<String>& texts) {
    return texts.IsAllocated() ? Lines(texts.begin(), texts.end()) : Lines{L"unallocated"};
}

DynArray<p_Subrange> Letters(StringView letters) {
    std::vector<p_Subrange> sets;
    for (const wchar_t letter : letters) {
        sets.push_back(letter == L' ' ? p_Subrange{} : Letter(letter));
    }
    return ArrayOf(sets);
}

}  // namespace ace::test
