/// Which actions are told as the same one.
#include "workbench/session/like_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;

p_Action SetDevice(std::int32_t section) {
    aceSetDevice record;
    record.DevName = L"Meter";
    record.ChanNo = section;
    return {atSetDevice, record, false};
}

p_Action Macro(const std::vector<String>& parameters) {
    aceAPI record;
    record.Program = L"c.mac";
    record.Parameters.Redim(0, static_cast<std::int32_t>(parameters.size()));
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        record.Parameters[static_cast<std::int32_t>(i + 1)] = parameters[i];
    }
    return {atAPI, record, false};
}

p_Action Notify(const String& message, bool beeps) {
    aceNotify record;
    record.Message = message;
    record.Beep = beeps;
    return {atNotify, record, false};
}

/// For each action the first one that is like it; all have the same line.
std::vector<std::size_t> Likes(const std::vector<p_Action>& actions) {
    LikeActions like;
    std::vector<std::size_t> first;
    for (std::size_t i = 0; i < actions.size(); ++i) {
        first.push_back(like.FirstLike(actions[i], L"line", i));
    }
    return first;
}

TEST(LikeActions, AnActionIsLikeTheFirstThatIsTheSameInAllItHolds) {
    EXPECT_THAT(Likes({SetDevice(7), SetDevice(8), SetDevice(7), SetDevice(8), SetDevice(7)}),
                ElementsAre(0, 1, 0, 1, 0));
    EXPECT_THAT(Likes({Macro({L"1"}), Macro({L"2"}), Macro({}), Macro({L"2"}), Macro({})}),
                ElementsAre(0, 1, 2, 1, 2));
    EXPECT_THAT(
        Likes({Notify(L"a", true), Notify(L"a", false), Notify(L"b", true), Notify(L"a", false)}),
        ElementsAre(0, 1, 2, 1));
}

/// The same texts in a row are not yet the same parameters.
TEST(LikeActions, WhatIsSpreadOtherwiseOverItsFieldsDiffers) {
    EXPECT_THAT(Likes({Macro({L"12"}), Macro({L"1", L"2"}), Macro({L"12"})}), ElementsAre(0, 1, 0));
    p_Action sound = Notify({}, false);
    std::get<aceNotify>(sound.Parameter).WaveFile = L"a";
    EXPECT_THAT(Likes({Notify(L"a", false), sound, SetDevice(0)}), ElementsAre(0, 1, 2));
}

TEST(LikeActions, AnotherLineIsAnotherAction) {
    const p_Action action = SetDevice(7);
    LikeActions like;
    EXPECT_EQ(like.FirstLike(action, L"Set device: Meter", 0), 0U);
    EXPECT_EQ(like.FirstLike(action, L"Check EUT: Meter", 1), 1U);
}

/// Each section number comes twice, the second time behind all others.
TEST(LikeActions, ThousandsWithTheSameLineAreFound) {
    std::vector<p_Action> actions;
    for (std::int32_t i = 0; i < 5000; ++i) {
        actions.push_back(SetDevice(i));
    }
    for (std::int32_t i = 0; i < 5000; ++i) {
        actions.push_back(SetDevice(i));
    }
    const std::vector<std::size_t> likes = Likes(actions);
    for (std::size_t i = 0; i < 10'000; ++i) {
        ASSERT_EQ(likes[i], i % 5000) << i;
    }
}

}  // namespace
}  // namespace ace::workbench
