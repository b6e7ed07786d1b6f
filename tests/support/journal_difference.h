/// What a failed comparison of two journals prints: the first call that differs, with the calls
/// before it, instead of both journals whole. `EXPECT_EQ` of two lists of lines does so by itself.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace ace::test {

/// "equal" where they are; otherwise the place of the first difference, at most three equal lines
/// before it, the two lines and a mark under the first character that differs. Texts are UTF-8.
std::string FirstDifference(const std::vector<std::wstring>& one,
                            const std::vector<std::wstring>& other);

}  // namespace ace::test

namespace testing::internal {

// gtest's own routine for EXPECT_EQ and ASSERT_EQ; the precompiled header of the tests makes sure
// that each of them knows this one.
template <>
AssertionResult CmpHelperEQ(const char* oneExpression, const char* otherExpression,
                            const std::vector<std::wstring>& one,
                            const std::vector<std::wstring>& other);

}  // namespace testing::internal
