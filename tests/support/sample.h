/// A sample of what is too much for every run: of cases, and of the seeds of random sessions. It is
/// the same one every time. ACE_SEED=n in the environment takes another, ACE_PROVE takes all, as
/// scripts/prove does.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>

namespace ace::test {

inline bool WantsAll() {
    return std::getenv("ACE_PROVE") != nullptr;
}
/// 1 unless the environment names another.
inline unsigned FirstSeed() {
    const char* const text = std::getenv("ACE_SEED");
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : 1U;
}

/// Takes one of `share` cases in the mean.
class Sample {
  public:
    explicit Sample(std::uint64_t share) : x_share(WantsAll() ? 1 : share), x_random(FirstSeed()) {}
    bool Takes() { return x_random() % x_share == 0; }

  private:
    std::uint64_t x_share;
    std::mt19937_64 x_random;
};

/// So many seeds in a row, from the first one on: `sample` of them, or `whole`.
inline auto SeedsTo(unsigned sample, unsigned whole) {
    const unsigned first = FirstSeed();
    return ::testing::Range(first, first + (WantsAll() ? whole : sample));
}

}  // namespace ace::test
