#include "workbench/words/slips.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include <ace/core/text.h>

namespace ace::workbench {

namespace {

bool SameLetter(wchar_t a, wchar_t b) {
    return LowerCase(a) == LowerCase(b);
}

/// Letters to change, add, take away or exchange with their neighbour to come from one to the
/// other.
std::size_t DistanceOf(StringView a, StringView b) {
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    std::vector<std::size_t> next(b.size() + 1);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        next[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = SameLetter(a[i - 1], b[j - 1]);
            next[j] = std::min({row[j] + 1, next[j - 1] + 1, row[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && SameLetter(a[i - 1], b[j - 2]) &&
                SameLetter(a[i - 2], b[j - 1])) {
                next[j] = std::min(next[j], before[j - 2] + 1);
            }
        }
        before = row;
        row.swap(next);
    }
    return row.back();
}

}  // namespace

bool IsSlipOf(StringView text, StringView word) {
    constexpr std::size_t LongWord = 6;
    constexpr std::size_t MostCut = 3;
    const std::size_t most = word.size() < LongWord ? 1 : 2;
    const std::size_t longer = std::max(text.size(), word.size());
    const std::size_t shorter = std::min(text.size(), word.size());
    if (EqualNoCase(text, word) || shorter < 3 || longer - shorter > MostCut) {
        return false;
    }
    const bool isCut = text.size() < word.size() && text.size() > MostCut &&
                       EqualNoCase(text, word.substr(0, text.size()));
    return isCut || DistanceOf(text, word) <= most;
}

StringView NearestWord(StringView text, std::span<const StringView> words) {
    for (const StringView word : words) {
        if (EqualNoCase(text, word)) {
            return word;
        }
    }
    const auto near =
        std::ranges::find_if(words, [&](StringView word) { return IsSlipOf(text, word); });
    return near == words.end() ? StringView() : *near;
}

}  // namespace ace::workbench
