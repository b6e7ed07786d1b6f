/// How many of its random sessions a test runs.
#pragma once

#include <cstdlib>
#include <gtest/gtest.h>

namespace ace::test {

/// Seeds from 1: the first few as a sample; all of them when ACE_PROVE is set, as scripts/prove
/// does.
inline auto SeedsTo(unsigned sample, unsigned whole) {
    return ::testing::Range(1U, 1U + (std::getenv("ACE_PROVE") == nullptr ? sample : whole));
}

}  // namespace ace::test
