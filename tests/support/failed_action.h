/// What the sweeps over actions share: the answers of the form that shows a failure, and what an
/// action did under one of them.
#pragma once

#include <string>
#include <vector>

#include <ace/core/action_records.h>

namespace ace::test {

/// A button of the form, and what comes of it.
struct Answer {
    const wchar_t* button;
    bool stops;
    bool ignoresAll;
};
inline constexpr Answer Answers[] = {
    {L"cmdIgnore", false, false}, {L"cmdIgnoreAll", false, true}, {L"cmdStopTest", true, false}};

/// What an action did.
struct Done {
    Boolean stops;
    p_Action action;            ///< as it was afterwards
    std::vector<String> calls;  ///< of the host, without those that every action begins with
    std::vector<String> complaints;
    std::int32_t request = 0;  ///< what a check had asked for
};

/// The calls behind the first `k`, without texts and what surrounds the form.
inline std::vector<String> Tail(const std::vector<String>& calls, std::size_t k) {
    std::vector<String> tail;
    for (std::size_t i = k; i < calls.size(); ++i) {
        if (!calls[i].starts_with(L"Language.") && calls[i] != L"FormHost.Hide") {
            tail.push_back(calls[i]);
        }
    }
    return tail;
}

}  // namespace ace::test
