#include "support/sample.h"

#include <gmock/gmock.h>
#include <optional>
#include <string>
#include <vector>

namespace ace::test {
namespace {

/// A variable of the environment that is as it was when the scope ends; no value stands for none.
class Variable {
  public:
    Variable(const char* name, const char* value) : x_name(name) {
        if (const char* const before = std::getenv(name)) {
            x_before = before;
        }
        Set(value);
    }
    ~Variable() { Set(x_before ? x_before->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void Set(const char* value) const {
        if (value != nullptr) {
            ::setenv(x_name, value, 1);
        } else {
            ::unsetenv(x_name);
        }
    }
    const char* x_name;
    std::optional<std::string> x_before;
};

std::vector<unsigned> Seeds() {
    const ::testing::internal::ParamGenerator<unsigned> seeds = SeedsTo(3, 5);
    return {seeds.begin(), seeds.end()};
}

TEST(SampleTest, TheSeedsAreAFewFrom1AndAllOfThemWhenAllAreToBeProved) {
    const Variable seed("ACE_SEED", nullptr);
    {
        const Variable prove("ACE_PROVE", nullptr);
        EXPECT_THAT(Seeds(), ::testing::ElementsAre(1, 2, 3));
    }
    const Variable prove("ACE_PROVE", "1");
    EXPECT_THAT(Seeds(), ::testing::ElementsAre(1, 2, 3, 4, 5));
}

TEST(SampleTest, TheSeedsBeginAtTheOneOfTheEnvironment) {
    const Variable seed("ACE_SEED", "40");
    const Variable prove("ACE_PROVE", nullptr);
    EXPECT_THAT(Seeds(), ::testing::ElementsAre(40, 41, 42));
}

TEST(SampleTest, AnotherSeedTakesOtherCases) {
    const Variable prove("ACE_PROVE", nullptr);
    const auto taken = [](const char* seed) {
        const Variable variable("ACE_SEED", seed);
        Sample sample(2);
        std::vector<bool> answers;
        for (int i = 0; i < 64; ++i) {
            answers.push_back(sample.Takes());
        }
        return answers;
    };
    EXPECT_EQ(taken("7"), taken("7"));
    EXPECT_NE(taken("7"), taken("8"));
}

}  // namespace
}  // namespace ace::test
