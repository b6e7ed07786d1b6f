#include "support/journal_difference.h"

#include <algorithm>

namespace ace::test {
namespace {

using Lines = std::vector<std::wstring>;
constexpr std::size_t ShownBefore = 3;

std::string Utf8(const std::wstring& text) {
    return (testing::Message() << text).GetString();
}

/// "   12: " with blanks where `label` is empty.
std::string Indented(const std::string& label, const std::string& text) {
    constexpr std::size_t Width = 6;
    return std::string(Width - std::min(Width, label.size()), ' ') + label + "  " + text + "\n";
}

std::string LineAt(const Lines& lines, std::size_t index) {
    return index < lines.size() ? Utf8(lines[index]) : "(nothing more)";
}

/// A mark below the first character that differs; none where one of the lines is missing.
std::string Mark(const Lines& one, const Lines& other, std::size_t index) {
    if (index >= one.size() || index >= other.size()) {
        return "";
    }
    const std::wstring& left = one[index];
    const std::wstring& right = other[index];
    const auto differs = std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first;
    return Indented("", std::string(static_cast<std::size_t>(differs - left.begin()), ' ') + "^");
}

}  // namespace

std::string FirstDifference(const Lines& one, const Lines& other) {
    const auto differs = std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first;
    const auto index = static_cast<std::size_t>(differs - one.begin());
    if (index == one.size() && index == other.size()) {
        return "equal";
    }
    const auto number = [](std::size_t at) { return std::to_string(at + 1) + ":"; };
    std::string text = "line " + std::to_string(index + 1) + " of " + std::to_string(one.size()) +
                       " and " + std::to_string(other.size()) + " differs\n";
    for (std::size_t at = index - std::min(index, ShownBefore); at < index; ++at) {
        text += Indented(number(at), LineAt(one, at));
    }
    return text + Indented(number(index), LineAt(one, index)) + Indented("", LineAt(other, index)) +
           Mark(one, other, index);
}

}  // namespace ace::test

namespace testing::internal {

template <>
AssertionResult CmpHelperEQ(const char* oneExpression, const char* otherExpression,
                            const std::vector<std::wstring>& one,
                            const std::vector<std::wstring>& other) {
    if (one == other) {
        return AssertionSuccess();
    }
    return AssertionFailure() << "Expected equality of these lines:\n  " << oneExpression << "\n  "
                              << otherExpression << "\n"
                              << ace::test::FirstDifference(one, other);
}

}  // namespace testing::internal
