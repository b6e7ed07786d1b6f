/// What is just a finding, and what is just none.
#include "check/check_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::Not;

/// A file, and a rule that finds something on a line of it; 0 for nothing anywhere.
struct LimitCase {
    std::string text;
    std::string rule;
    std::size_t line;
    Beside beside{};
};

const Beside OneAmplifier{.bench = "[Devices]\nAmp A=Amplifiers\n"};
const std::string OneLeave = "NumOfLeaveActions=1\nLeaveAction1=";

const LimitCase Limits[] = {
    // 30.15 s are no number of a single exactly
    {SingleTest + Start({"CHECKEUT:DAQ,101,0,0,0,0,20.1,1,30.15,0"}), "decimals-lost", 0},
    {SingleTest + Start({"CHECKEUT:DAQ,101,0,0,0,0,20.1,1,30.155,0"}), "decimals-lost", 6},
    {SingleTest + Start({"CHECKEUT:DAQ,101,0,0,0,0,20,1,30,yes"}), "text-for-number", 6},
    {SingleTest + AtFrequency({"FREQTRACK:M,100,1,1"}), "too-many-fields", 6},
    {SingleTest + AtFrequency({"FREQTRACK:G,T,40,0,0,P"}), "too-many-fields", 0},
    // a pause of the radiation is something
    {SingleTest + Start({"NOTIFY:,,0"}), "nothing-to-do", 0},
    {SingleTest + Start({"WAIT:1"}) + " \n[Mine]\n", "foreign-key", 0},
    {SingleTest + Start({"REMOTE:C,2,h,1:2,,0,"}) + OneLeave + "REMOTE:C,2,h,1:2,,0,\n",
     "terminator-taken-over", 0},
    {SingleTest + Start({"SWITCHAMP:,2"}), "no-such-device", 6, OneAmplifier},
    {SingleTest + Start({"SWITCHAMP:,3"}), "radiation-stays", 0},
};

/// A matrix of one row that runs template 2; what follows begins on line 10.
const std::string OneRow =
    "[Workbench]\nModule=8\nSubRanges=2\n[Workbench.DUT]\nFreq0=0\nBandwidthName0=B\n"
    "PowerName0=P\n[ActionsOnVKSTemplate_2]\nCount=1\n";
/// A wireless test with one step; what follows begins on line 7.
const std::string OneStep =
    "[Workbench]\nModule=7\nSubRanges=1\n[ActionsOnTest1_VKS]\nVKS_UKey=B\nSUBSTEPS=1\n";
const std::string Steps = "[Workbench]\nModule=3\nSubRanges=1\n";

const LimitCase SectionLimits[] = {
    {OneRow + "[ActionsOnStep_2_1]\n", "section-unread", 0},
    {OneRow + "[ActionsOnStep_2_2]\n", "section-unread", 10},
    {OneRow + "[ActionsOnStep_0_2]\n", "section-unread", 0},
    {OneRow + "[ActionsOnVKSDUTGlob]\n", "section-unread", 0},
    {OneRow + "[ActionsOnVKSTemplate_0]\nCuont=1\n", "key-misspelt", 11},
    {OneStep + "[ActionsOnStepB_1]\n[ActionsOnStepB_1_VKS]\nVKS_Key=S\n", "section-unread", 0},
    {OneStep + "[ActionsOnStepB_1_VKS]\nVKS_Keys=S\n", "key-misspelt", 8},
    {OneStep + "[ActionsOnStepB_2]\n", "section-unread", 7},
    {OneStep + "[ActionsOnTest2]\n", "section-beyond", 7},
    // inside the number of tests, but without its key
    {"[Workbench]\nModule=7\nSubRanges=1\n[ActionsOnTest1]\n", "section-unread", 4},
    {"[Workbench]\nModule=7\nSubRanges=1\n[ActionsOnTest1]\n", "section-beyond", 0},
    // the general lists of a susceptibility test stand in one file with its steps
    {Steps + "[ActionsOnEMSAutoTest]\n", "section-unread", 0},
    {Steps + "[Actions101-Device]\nInput=1\n", "device-section-unused", 0},
    {"[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Channel1]\nDevice=Amp A\nNoGoAbove=1\n",
     "channel-without-device", 5, OneAmplifier},
};

void ExpectLimits(std::span<const LimitCase> rows) {
    for (const LimitCase& row : rows) {
        const auto lines = Shortly(FindingsIn(row.text, row.beside));
        if (row.line != 0) {
            EXPECT_THAT(lines, Contains(std::to_string(row.line) + " " + row.rule)) << row.text;
        } else {
            EXPECT_THAT(lines, Not(Contains(EndsWith(" " + row.rule)))) << row.text;
        }
    }
}

TEST(CheckRules, KeepToTheirLimits) {
    ExpectLimits(Limits);
}

TEST(CheckRules, KnowTheSectionsOfEveryModule) {
    ExpectLimits(SectionLimits);
}

/// Following the advice makes the finding go.
TEST(CheckRules, AnEmptyNameEndsWhatATrackingLineTakesOver) {
    const auto findings = [](const std::vector<std::string>& entries) {
        return Shortly(FindingsIn(SingleTest + AtFrequency(entries)));
    };
    EXPECT_THAT(findings({"FREQTRACK:G,T,40,0,0", "FREQTRACK:M,100"}),
                Contains("7 generator-taken-over"));
    EXPECT_THAT(findings({"FREQTRACK:G,T,40,0,0", "FREQTRACK:,,40,0,0", "FREQTRACK:M,100"}),
                Not(Contains(EndsWith("generator-taken-over"))));
    EXPECT_THAT(findings({"FREQTRACK:M,100", "FREQTRACK:,0", "FREQTRACK:G,T,40,0,0"}),
                Not(Contains(EndsWith("monitor-taken-over"))));
}

/// In a list that no moment runs it only keeps the file from being saved.
TEST(CheckRules, AnEmptyEntryEndsTheTestOnlyWhereItRuns) {
    const auto emptyIn = [](const std::string& text) {
        for (const Finding& finding : FindingsIn(SingleTest + text)) {
            if (finding.rule->name == L"empty-entry") {
                return finding;
            }
        }
        return Finding{};
    };
    const Finding runs = emptyIn("[ActionsOnSR1]\nNumOfEnterActions=1\n");
    EXPECT_TRUE(EndsTest(runs));
    EXPECT_EQ(runs.meaning,
              L"no line fills EnterAction1, so it comes back empty: the test ends "
              L"there with an error, and the file can't be saved");
    const Finding never = emptyIn("[ActionsOnSR1]\nNumOfFreqActions=1\n");
    EXPECT_FALSE(EndsTest(never));
    EXPECT_EQ(never.meaning,
              L"no line fills FrequAction1, so it comes back empty: the file can't be saved");
}

TEST(CheckRules, AMisspeltCountIsToldWithTheKeyThatWasMeant) {
    const std::vector<Finding> findings =
        FindingsIn(SingleTest + "[ActionsOnTest]\nNumOfEnterAction=1\n");
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(ToUtf8(findings[0].rule->name), "no-colon");
    EXPECT_THAT(ToUtf8(findings[0].advice), EndsWith("Did you mean NumOfEnterActions?"));
}

}  // namespace
}  // namespace ace::workbench
