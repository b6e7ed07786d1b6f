#include "check/check_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

std::vector<std::string> FindingsInExample(const std::string& name, const Beside& beside = {},
                                           const SetUpOptions& options = {}) {
    return Shortly(FindingsIn(Example(name), beside, options));
}

TEST(CheckExamples, TheRadiatedImmunityTestWaitsForTheOperatorAtItsStartAndThatIsAll) {
    EXPECT_THAT(FindingsInExample("ri_template.ini"), ElementsAre("26 waits-for-operator"));
    EXPECT_THAT(FindingsInExample("ri_template.ini", {.bench = Example("ri_devices.ini"),
                                                      .faults = Example("ri_faults.txt")}),
                ElementsAre("26 waits-for-operator"));
}

TEST(CheckExamples, NoTemplateOfTheMatrixGivesAFalseAlarm) {
    for (const std::int32_t number : {0, 2, 3}) {
        EXPECT_THAT(FindingsInExample("wireless_dut.ini", {}, {.matrixTemplate = number}),
                    IsEmpty())
            << number;
    }
}

/// Read line by line; a command in a list without terminators of TCP/IP takes over the 10 of
/// line 10.
TEST(CheckExamples, EveryTrapIsFound) {
    EXPECT_THAT(FindingsInExample("lint_traps.ini"),
                UnorderedElementsAre(
                    "7 waits-for-operator", "8 sound-taken-over", "8 sound-taken-over",
                    "8 waits-for-operator", "9 message-taken-over", "9 waits-for-operator",
                    "10 terminator-unknown", "11 command-taken-over", "11 terminator-taken-over",
                    "11 terminator-unknown", "12 unknown-keyword", "12 empty-entry",
                    "13 decimals-lost", "14 no-device-section", "15 foreign-key",
                    "17 signal-path-taken-over", "18 keyword-of-another-list", "18 empty-entry",
                    "19 parks-nothing", "20 terminator-lost", "20 terminator-taken-over",
                    "20 terminator-unknown", "22 skipped-at-frequency", "23 placeholder-stays",
                    "23 terminator-lost", "23 terminator-taken-over", "23 terminator-unknown",
                    "24 waits-for-operator", "25 generator-taken-over", "25 waits-for-operator",
                    "26 no-device-section", "28 empty-entry", "29 entry-twice",
                    "31 list-never-runs", "35 terminator-none", "36 section-beyond"));
}

TEST(CheckExamples, WhatStopsTheLoadIsFoundAndTheRestOfTheFileAsWell) {
    EXPECT_THAT(FindingsInExample("load_stops.ini"),
                ElementsAre("5 no-equal-sign", "11 no-device-section", "8 radiation-stays"));
}

TEST(CheckExamples, AllLinesThatStopTheLoadAreFoundInOneCheck) {
    const std::string text = SingleTest +
                             "[ActionsOnTest]\n"
                             "NumOfEnterActions=0\n"
                             "EnterAction1=WAIT:1\n"  // its count is told already
                             "; remark\n"
                             "NumOfLeaveActions=1\n"
                             "LeaveAction1=SWITCHAMP:Amp A\n"
                             "LeaveAction2=WAIT:1\n"
                             "FrequAction1=WAIT:1\n"
                             "FrequAction2=WAIT:1\n"  // it is in the same list without a count
                             "[ActionsOnSR1]\n"
                             "NumOfEnterActions=1\n"
                             "EnterAction1=SETDEV:DAQ,one\n";
    EXPECT_THAT(Shortly(FindingsIn(text)),
                ElementsAre("5 count-below-one", "7 no-equal-sign", "9 too-few-fields",
                            "10 beyond-count", "11 no-count", "15 no-number"));
}

}  // namespace
}  // namespace ace::workbench
