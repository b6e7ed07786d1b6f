#include "workbench/devices/fault_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fixture.h"
#include "support/refusal.h"

namespace ace::workbench {
namespace {

using ace::test::ErrorOf;
using enum FaultSubject;
using enum FaultAct;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Numbers of the errors of so many calls, 0 for those that go through.
std::vector<std::int32_t> Calls(FaultRules& rules, std::size_t count, FaultSubject subject,
                                StringView name, FaultAct act) {
    std::vector<std::int32_t> errors;
    for (std::size_t i = 0; i < count; ++i) {
        errors.push_back(ErrorOf([&] { rules.Count(subject, name, act); }));
    }
    return errors;
}

TEST(FaultRules, FailureStandsAtOneCall) {
    FaultRules rules(L"GPIB 0:13 fails at the 3rd write\n", L"f.txt");
    EXPECT_THAT(Calls(rules, 5, Gpib, L"GPIB 0:13", Write), ElementsAre(0, 0, 4010, 0, 0));
}

TEST(FaultRules, FailureFromACallOnAndAtEveryCall) {
    FaultRules rules(
        L"TCP gen:5025 fails from the 2nd write on\nCOM3 fails at every opening, error 8020\n",
        L"f.txt");
    EXPECT_THAT(Calls(rules, 3, Tcp, L"TCP gen:5025", Write), ElementsAre(0, 4010, 4010));
    EXPECT_THAT(Calls(rules, 2, Serial, L"COM3", Opening), ElementsAre(8020, 8020));
    EXPECT_THAT(Calls(rules, 2, Serial, L"COM3", Write), ElementsAre(0, 0));
}

TEST(FaultRules, OtherNamesAndOtherActsDoNotCount) {
    FaultRules rules(L"device EUT fails at the 2nd reading", L"f.txt");
    EXPECT_THAT(Calls(rules, 3, Device, L"EUT 2", Reading), ElementsAre(0, 0, 0));
    EXPECT_THAT(Calls(rules, 3, Device, L"EUT", State), ElementsAre(0, 0, 0));
    EXPECT_THAT(Calls(rules, 2, Device, L"eut", Reading), ElementsAre(0, 4010));
}

TEST(FaultRules, AnyCallOfADeviceCountsAsCall) {
    FaultRules rules(L"device EUT fails at the 3rd call, error -5", L"f.txt");
    EXPECT_EQ(ErrorOf([&] { rules.Count(Device, L"EUT", State); }), 0);
    EXPECT_EQ(ErrorOf([&] { rules.Count(Device, L"EUT", Reading); }), 0);
    EXPECT_EQ(ErrorOf([&] { rules.Count(Device, L"EUT", Call); }), -5);
}

TEST(FaultRules, ProgramsAndMacrosAreMeantByPatterns) {
    FaultRules rules(
        L"program *tool.exe* fails at the 1st start\nmacro *.mac fails at the 1st run\n", L"f.txt");
    EXPECT_EQ(ErrorOf([&] { rules.Count(Program, L"C:\\x\\TOOL.exe /a", Start); }), 4010);
    EXPECT_EQ(ErrorOf([&] { rules.Count(Macro, L"log.mac", FaultAct::Run); }), 4010);
    EXPECT_EQ(ErrorOf([&] { rules.Count(Macro, L"log.txt", FaultAct::Run); }), 0);
}

TEST(FaultRules, ErrorNamesItsRuleWhichIsToldBefore) {
    FaultRules rules(L"# policy\r\n\r\nGPIB 0:1 fails at every write\r\n", L"f.txt");
    std::vector<std::size_t> told;
    rules.onFault = [&](const FaultRule& rule) { told.push_back(rule.line); };
    try {
        rules.Count(Gpib, L"GPIB 0:1", Write);
        ADD_FAILURE() << "no failure";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Description(), L"on purpose: GPIB 0:1 fails at every write");
    }
    EXPECT_THAT(told, ElementsAre(3U));
}

TEST(FaultRules, RulesThatNothingCameToAreKnown) {
    FaultRules rules(L"GPIB 0:1 fails at the 1st write\nGPIB 0:1 fails at the 2nd write\n",
                     L"f.txt");
    EXPECT_EQ(Calls(rules, 1, Gpib, L"GPIB 0:1", Write).front(), 4010);
    EXPECT_THAT(rules.Unused(), ElementsAre(L"GPIB 0:1 fails at the 2nd write"));
    EXPECT_EQ(Calls(rules, 1, Gpib, L"GPIB 0:1", Write).front(), 4010);
    EXPECT_THAT(rules.Unused(), IsEmpty());
}

TEST(FaultRules, TwoRulesThatHitTheSameCallAreBothUsedAndTheFirstOneCounts) {
    FaultRules rules(L"COM1 fails at every write, error 7\nCOM1 fails at the 1st write, error 8\n",
                     L"f.txt");
    EXPECT_THAT(Calls(rules, 1, Serial, L"COM1", Write), ElementsAre(7));
    EXPECT_THAT(rules.Unused(), IsEmpty());
}

TEST(FaultRules, EmptyScriptLetsNothingFail) {
    FaultRules rules(L"# nothing\n", L"f.txt");
    EXPECT_TRUE(rules.IsEmpty());
    EXPECT_THAT(Calls(rules, 2, Gpib, L"GPIB 0:1", Write), ElementsAre(0, 0));
}

struct BadRow {
    const wchar_t* text;
    std::string reason;
};
const std::string Form =
    "a failure is written like \"GPIB 0:13 fails at the 40th write\", \"device NAME fails at every "
    "reading\" or \"program PATTERN fails from the 2nd start on\"";
const BadRow BadRows[] = {
    {L"GPIB 0:13 breaks", Form},
    {L"GPIB 0:13 fails sometimes", Form},
    {L"GPIB 0:13 fails at the write", Form},
    {L"GPIB 0:13 fails at the 0th write", Form},
    {L"GPIB 0:13 fails from the 2nd write", Form},
    {L"TCP 1.2.3.4:5 fails from the on", Form},
    {L"USB 3 fails at every write",
     "what fails is GPIB 0:13, COM3, TCP host:port, device NAME, program PATTERN or macro PATTERN"},
    {L"GPIB 0:13 fails at every reading",
     "\"reading\" is nothing that can fail here: opening, write"},
    {L"device X fails at every write",
     "\"write\" is nothing that can fail here: activation, state, setting, reading, switching, "
     "call"},
    {L"program X fails at every run", "\"run\" is nothing that can fail here: start"},
    {L"macro X fails at every start", "\"start\" is nothing that can fail here: run"},
    {L"COM1 fails at every write, error 0",
     "behind \"error\" stands the number of a run-time error, not 0"},
    {L"macro *.mac fails at the 1st run, error 8202",
     "a macro fails with a text and has no error number"},
    {L"program X fails at the 2nd start, error 5",
     "a start can't fail with error 5: the engine takes it for the answer that the program does "
     "not "
     "run yet"},
    {L"COM1 fails at every write, error x",
     "behind \"error\" stands the number of a run-time error, not 0"},
};

TEST(FaultRules, WhatMakesNoSenseIsToldWithItsLine) {
    for (const BadRow& row : BadRows) {
        EXPECT_EQ(RefusalOf([&] { FaultRules(L"# comment\n" + String(row.text), L"f.txt"); }),
                  "4 f.txt:2: " + row.reason);
    }
}

}  // namespace
}  // namespace ace::workbench
