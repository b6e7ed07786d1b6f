/// A sample of the cases that are too many for every run.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>

namespace ace::test {

/// Takes one of `share` cases in the mean, the same ones every time. ACE_PROVE in the environment
/// takes all of them, and ACE_SEED=n another sample.
class Sample {
  public:
    explicit Sample(std::uint64_t share)
        : x_share(std::getenv("ACE_PROVE") != nullptr ? 1 : share),
          x_random(FromEnvironment("ACE_SEED", 1)) {}
    bool Takes() { return x_random() % x_share == 0; }

  private:
    static std::uint64_t FromEnvironment(const char* name, std::uint64_t byDefault) {
        const char* const text = std::getenv(name);
        return text != nullptr ? std::strtoull(text, nullptr, 10) : byDefault;
    }

    std::uint64_t x_share;
    std::mt19937_64 x_random;
};

}  // namespace ace::test
