#include "workbench/session/answers.h"

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::IsEmpty;

Prompt Question(String message, String moment = L"start of test", String operation = L"StartTest") {
    return {PromptKind::Question, std::move(message), std::move(moment), std::move(operation)};
}
Prompt Notification(String message) {
    return {PromptKind::Notification, std::move(message), L"start of test", L"StartTest"};
}
Prompt Failure(String message) {
    return {PromptKind::Failure, std::move(message), L"start of test", L"StartTest"};
}

/// The word that answers; "-" when no line does.
String Taken(Answers& answers, const Prompt& prompt) {
    const std::optional<Reply> reply = answers.Take(prompt);
    return reply ? String(WordOf(prompt.kind, *reply)) : L"-";
}

TEST(Answers, ALineFitsByMomentKindAndMessage) {
    Answers answers(L"enter subrange 2 | question | Door closed? | No\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?")), L"-");
    EXPECT_EQ(Taken(answers, Question(L"Lamp on?", L"enter subrange 2")), L"-");
    EXPECT_EQ(Taken(answers, Notification(L"Door closed?")), L"-");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?", L"enter subrange 2")), L"No");
}

TEST(Answers, AMomentMayBeNamedByItsOperation) {
    Answers answers(L"starttest | question | * | Yes\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?")), L"Yes");
}

TEST(Answers, TheLineBreaksOfAMessageAreSlashes) {
    Answers answers(L"* | notification | Door / Lamp | Stop\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Notification(L"Door\r\nLamp")), L"Stop");
}

TEST(Answers, ALineAnswersOnceAndTheFirstThatFitsAnswers) {
    Answers answers(L"* | question | Door* | Yes\n* | question | * | No\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?")), L"Yes");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?")), L"No");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?")), L"-");
}

TEST(Answers, AlwaysAnswersAsOftenAsItFits) {
    Answers answers(L"* | question | * | Always yes\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"1")), L"Yes");
    EXPECT_EQ(Taken(answers, Question(L"2")), L"Yes");
}

TEST(Answers, AFailureIsIgnoredIgnoredForGoodOrStopsTheTest) {
    Answers answers(
        L"* | failure | Generator* | Ignore\n* | Failure | * | ignore all\n* | failure | * | "
        L"Stop\n",
        L"a.txt");
    EXPECT_EQ(Taken(answers, Notification(L"Generator")), L"-");
    EXPECT_EQ(Taken(answers, Failure(L"Generator / Device")), L"Ignore");
    EXPECT_EQ(Taken(answers, Failure(L"Generator / Device")), L"Ignore all");
    EXPECT_EQ(Taken(answers, Failure(L"Amplifier")), L"Stop");
    EXPECT_EQ(Taken(answers, Failure(L"Amplifier")), L"-");
}

TEST(Answers, StopIsForNotificationsAndFailures) {
    Answers answers(L"* | * | * | always Stop\n* | notification | * | Stop\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Notification(L"A")), L"Stop");
    EXPECT_EQ(Taken(answers, Failure(L"A")), L"Stop");
    EXPECT_EQ(Taken(answers, Question(L"A")), L"-");
    Answers forNotifications(L"* | notification | * | Stop\n", L"a.txt");
    EXPECT_EQ(Taken(forNotifications, Failure(L"A")), L"-");
}

TEST(Answers, ForAllKindsTheAnswerSaysWhichItIsFor) {
    Answers answers(L"* | * | * | OK\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"Door closed?")), L"-");
    EXPECT_EQ(Taken(answers, Notification(L"Door closed?")), L"OK");
}

TEST(Answers, AMessageMayHoldABarAndTheLinesMayEndWithCrLf) {
    Answers answers(L"# comment\r\n\r\n* | question | A | B? | Yes\r\n", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"A | B?")), L"Yes");
}

TEST(Answers, WhatWasNeverUsedIsKnownByItsLine) {
    Answers answers(L"* | question | A | Yes\n\n* | question | B | No", L"a.txt");
    EXPECT_EQ(Taken(answers, Question(L"A")), L"Yes");
    ASSERT_EQ(answers.Unused().size(), 1U);
    EXPECT_EQ(answers.Unused()[0]->line, 3U);
    EXPECT_EQ(answers.Unused()[0]->source, L"* | question | B | No");
    EXPECT_EQ(Taken(answers, Question(L"B")), L"No");
    EXPECT_THAT(answers.Unused(), IsEmpty());
}

TEST(Answers, ALineThatMakesNoSenseIsRefusedWithItsNumber) {
    const struct {
        const wchar_t* text;
        const char* refusal;
    } rows[] = {
        {L"\n# c\nYes\n",
         "4 a.txt:3: an answer is written as moment | question | message | answer"},
        {L"* | question | Yes",
         "4 a.txt:1: an answer is written as moment | question | message | answer"},
        {L"* | riddle | * | Yes",
         "4 a.txt:1: \"riddle\" must be question, notification, failure or * for all"},
        {L"* | question | * | Maybe",
         "4 a.txt:1: \"Maybe\" is no answer: Yes or No to a question, OK or Stop to a "
         "notification, Ignore, Ignore all or Stop to a failure"},
        {L"* | failure | * | Yes", "4 a.txt:1: \"Yes\" is no answer to a failure"},
        {L"* | question | * | OK", "4 a.txt:1: \"OK\" is no answer to a question"},
        {L"* | notification | * | always No", "4 a.txt:1: \"No\" is no answer to a notification"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(RefusalOf([&] { Answers(row.text, L"a.txt"); }), row.refusal);
    }
}

}  // namespace
}  // namespace ace::workbench
