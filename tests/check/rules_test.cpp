#include "check/check_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::Not;

/// A file that breaks a rule, on that line, and nearly the same one that does not.
struct RuleCase {
    std::string rule;
    std::size_t line;
    std::string bad;
    std::string good;
    Beside beside{};
    std::optional<Beside> besideGood{};  ///< where it differs
};

const std::string Examples = ACE_EXAMPLES;
const std::string Monitoring = "[Workbench]\nModule=1\nSubRanges=1\n";
const Beside WithBench{
    .bench =
        "[Devices]\nAmp A=Amplifiers\nDAQ=Monitoring\nGen=Generators\nUnit=SwitchUnits\n"
        "[Unit]\nPaths=P1, P2\n[Tables]\nT1=80MHz:-30\n"};
const Beside Here{.here = true};

const RuleCase StopCases[] = {
    {"no-equal-sign", 6,
     SingleTest + "[ActionsOnTest]\nNumOfEnterActions=1\n; remark\nEnterAction1=WAIT:1\n",
     SingleTest + Start({"WAIT:1"})},
    {"no-colon", 6, SingleTest + Start({"WAIT"}), SingleTest + Start({"WAIT:1"})},
    {"count-below-one", 5, SingleTest + "[ActionsOnTest]\nNumOfEnterActions=0\n",
     SingleTest + "[ActionsOnTest]\n"},
    {"count-too-large", 5, SingleTest + "[ActionsOnTest]\nNumOfEnterActions=100001\n",
     SingleTest + Start({"WAIT:1"})},
    {"no-count", 5, SingleTest + "[ActionsOnTest]\nEnterAction1=WAIT:1\n",
     SingleTest + Start({"WAIT:1"})},
    {"beyond-count", 7, SingleTest + Start({"WAIT:1"}) + "EnterAction2=WAIT:1\n",
     SingleTest + Start({"WAIT:1", "WAIT:1"})},
    {"no-number", 6, SingleTest + Start({"SETDEV:DAQ,one"}),
     SingleTest + Start({"SETDEV:DAQ,101"})},
    {"number-too-large", 6, SingleTest + Start({"SWITCHAMP:Amp A,9999999999"}),
     SingleTest + Start({"SWITCHAMP:Amp A,2"})},
    {"too-few-fields", 6, SingleTest + Start({"NOTIFY:x"}), SingleTest + Start({"NOTIFY:x,,0"})},
    {"load-fails", 0,
     "[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=0\nBandwidthName0=B\n"
     "PowerName0=P\n[ActionsOnVKSTemplate_0]\nCount=many\n",
     "[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=0\nBandwidthName0=B\n"
     "PowerName0=P\n[ActionsOnVKSTemplate_0]\nCount=0\n"},
    {"empty-entry", 5, SingleTest + "[ActionsOnTest]\nNumOfEnterActions=2\nEnterAction1=WAIT:1\n",
     SingleTest + Start({"WAIT:1"})},
};

const std::string Sweep1 =
    "[Workbench.Subrange1]\nStartHz=80000000\nStopHz=81000000\nStepPercent=1\n";
const std::string Swept = SingleTest + Sweep1;

const RuleCase LostCases[] = {
    {"unknown-keyword", 6, SingleTest + Start({"SWICHAMP:Amp A,2"}),
     SingleTest + Start({"SWITCHAMP:Amp A,2"})},
    {"keyword-of-another-list", 6, SingleTest + AtFrequency({"QUESTION:x,,0"}),
     SingleTest + Start({"QUESTION:x,,0"})},
    {"foreign-key", 7, SingleTest + Start({"WAIT:1"}) + "Remark=a:b\n",
     SingleTest + Start({"WAIT:1"}) + "[Mine]\nRemark=a:b\n"},
    {"entry-twice", 6, SingleTest + Start({"WAIT:1"}) + "EnterAction1=WAIT:2\n",
     SingleTest + Start({"WAIT:1", "WAIT:2"})},
    {"count-twice", 6,
     SingleTest +
         "[ActionsOnTest]\nNumOfEnterActions=1\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n",
     SingleTest + Start({"WAIT:1"})},
    {"no-sections", 0, SingleTest + "[Mine]\nx=1\n", SingleTest + "[ActionsOnSR1]\n"},
    {"section-beyond", 4, SingleTest + "[ActionsOnSR2]\n", SingleTest + "[ActionsOnSR1]\n"},
    {"section-misspelt", 4, SingleTest + "[ActionOnSR1]\n", SingleTest + "[Actions of mine]\n"},
    {"section-unread", 4, SingleTest + "[ActionsOnStep1]\n", SingleTest + "[ActionsOnSR1]\n"},
    {"section-twice", 5, SingleTest + "[ActionsOnSR1]\n[actionsonsr1]\n",
     SingleTest + "[ActionsOnSR1]\n"},
    {"header-broken", 8, Swept + "[ActionsOnTest\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n",
     Swept + Start({"WAIT:1"})},
    {"number-without-section", 3, "[Workbench]\nModule=0\nSubRanges=2\n" + Sweep1,
     "[Workbench]\nModule=0\nSubRanges=2\n" + Sweep1 + "[ActionsOnSR2]\n"},
    {"key-misspelt", 8,
     SingleTest + "[Workbench.Subrange1]\nStartHz=1\nStopHz=2\nStepPercent=1\nDwell=5\n",
     SingleTest + "[Workbench.Subrange1]\nStartHz=1\nStopHz=2\nStepPercent=1\nFieldVm=5\n"},
    {"key-twice", 4, "[Workbench]\nModule=0\nSubRanges=1\nSubRanges=1\n", SingleTest},
    {"terminator-lost", 6,
     SingleTest + "[ActionsOnTest]\nNumOfLeaveActions=1\nLeaveAction1=REMOTE:C,2,h,1:2,,0,\n",
     SingleTest + "[ActionsOnTest]\nNumOfLeaveActions=1\nLeaveAction1=REMOTE:C,2,h,1:0,,0,\n"},
    // without a path the field is not written, and then the path above is taken over
    {"save-changes", 7, SingleTest + Start({"SETDEV:DAQ,101,P", "SETDEV:DAQ,102,"}),
     SingleTest + Start({"SETDEV:DAQ,101,P", "SETDEV:DAQ,102,Q"})},
    {"decimals-lost", 6, SingleTest + Start({"WAIT:1.2345"}), SingleTest + Start({"WAIT:1.234"})},
    {"too-many-fields", 6, SingleTest + Start({"CHECKEUT:DAQ,101,0,0,0,0,20,00,1,30,00,0"}),
     SingleTest + Start({"CHECKEUT:DAQ,101,0,0,0,0,20.00,1,30.00,0"})},
    {"no-device-section", 6, SingleTest + Start({"SETDEV:DAQ,101"}),
     SingleTest + Start({"SETDEV:DAQ,101"}) + "[Actions101-Device]\nInput=1\n"},
    {"device-section-unused", 7,
     SingleTest + Start({"SWITCHAMP:Amp A,2"}) + "[Actions101-Device]\nInput=1\n",
     SingleTest + Start({"SETDEV:DAQ,101"}) + "[Actions101-Device]\nInput=1\n"},
};

const std::string OneLeave = "NumOfLeaveActions=1\nLeaveAction1=";

const RuleCase TakenOverCases[] = {
    {"message-taken-over", 7, SingleTest + Start({"NOTIFY:hello,,0", "SOUND:"}),
     SingleTest + Start({"SOUND:", "SOUND:"})},
    {"sound-taken-over", 7, SingleTest + Start({"NOTIFY:a,x.wav,0", "MSG:b"}),
     SingleTest + Start({"NOTIFY:a,,0", "MSG:b"})},
    {"command-taken-over", 7, SingleTest + Start({"REMOTE:C,0,13,0,,0,", "DLL:prog"}),
     SingleTest + Start({"REMOTE:C,0,13,0,,0,", "REMOTE:,,,,prog,0,"})},
    {"program-taken-over", 7, SingleTest + Start({"REMOTE:,,,,prog,1,", "GPIB:13,0,C"}),
     SingleTest + Start({"REMOTE:,,,,prog,1,", "REMOTE:C,0,13,0,,0,"})},
    {"terminator-taken-over", 8,
     SingleTest + Start({"REMOTE:C,2,h,1:2,,0,"}) + OneLeave + "REMOTE:C,2,h,1,,0,\n",
     SingleTest + Start({"REMOTE:C,2,h,1:0,,0,"}) + OneLeave + "REMOTE:C,2,h,1,,0,\n"},
    {"signal-path-taken-over", 7, SingleTest + Start({"SETDEV:A,101,P", "SETDEV:B,101"}),
     SingleTest + Start({"SETDEV:A,101,P", "SETDEV:B,101,"})},
    {"generator-taken-over", 7,
     SingleTest + AtFrequency({"FREQTRACK:G,T,40,0,0", "FREQTRACK:M,100"}),
     SingleTest + AtFrequency({"FREQTRACK:M,100", "FREQTRACK:M,100"})},
    {"monitor-taken-over", 7, SingleTest + AtFrequency({"FREQTRACK:M,100", "FREQTRACK:G,T,40,0,0"}),
     SingleTest + AtFrequency({"FREQTRACK:G,T,40,0,0", "FREQTRACK:G,T,40,0,0"})},
    {"loading-position-taken-over", 7,
     SingleTest + Start({"CHECKEUT:A,101,0,0,0,0,1,0,1,1", "CHECKEUT:A,101,0,0,0,0,1,0,1"}),
     SingleTest + Start({"CHECKEUT:A,101,0,0,0,0,1,0,1,0", "CHECKEUT:A,101,0,0,0,0,1,0,1"})},
};

/// A matrix of one combination with one row, whose section stands on line 15.
std::string OneRow(const std::string& byBandwidth, const std::string& bandwidth) {
    return "[Workbench]\nModule=8\nSubRanges=2\n[Workbench.DUT]\nFreq0=1\nBandwidthName0=B\n"
           "PowerName0=P\n[ActionsOnVKSTemplate_2]\nCount=1\nBandwidth=" +
           byBandwidth + "\n[ActionsOnStep_2_1_VKS]\nID0=-1\nID1=" + bandwidth +
           "\nID2=-1\n[ActionsOnStep_2_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n";
}
const std::string TwoTests =
    "[Workbench]\nModule=7\nSubRanges=2\n[ActionsOnTest1_VKS]\nVKS_UKey=A\nSUBSTEPS=0\n"
    "[ActionsOnTest2_VKS]\n";

/// A channel in a test of two frequencies; the key stands on line 9.
std::string ChannelAt(const std::string& key) {
    return Monitoring + Sweep1 + "[Workbench.Channel1]\n" + key + "[ActionsOnEutMon]\n";
}

const RuleCase RunCases[] = {
    {"skipped-at-frequency", 6, SingleTest + AtFrequency({"NOTIFY:a,,0"}),
     SingleTest + AtFrequency({"WAIT:1"})},
    {"list-never-runs", 5, SingleTest + "[ActionsOnSR1]\nNumOfFreqActions=1\nFrequAction1=WAIT:1\n",
     SingleTest + AtFrequency({"WAIT:1"})},
    {"row-ruled-out", 15, OneRow("0", "0"), OneRow("1", "0")},
    {"wireless-key-twice", 8, TwoTests + "VKS_UKey=A\n", TwoTests + "VKS_UKey=a\n"},
    {"channel-event-beyond", 9, ChannelAt("Trigger=3\n"), ChannelAt("Trigger=2\n")},
    {"tracking-outside", 6,
     Monitoring + "[ActionsOnEutMon]\nNumOfFreqActions=1\nFrequAction1=FREQTRACK:M,100\n",
     SingleTest + AtFrequency({"FREQTRACK:M,100"})},
    {"result-stops-test", 6, SingleTest + Start({"COMMENT:0"}),
     Monitoring + "[ActionsOnChannel1]\nNumOfEnterActions=1\nEnterAction1=COMMENT:0\n"},
    {"stops-here", 6, SingleTest + Start({"STOP:"}),
     Monitoring + "[ActionsOnChannel1]\nNumOfEnterActions=1\nEnterAction1=STOP:\n"},
    {"tracks-nothing", 7,
     "[Workbench]\nModule=0\nSubRanges=1\nTestKind=2\n" + AtFrequency({"FREQTRACK:M,100"}),
     "[Workbench]\nModule=0\nSubRanges=1\nTestKind=3\n" + AtFrequency({"FREQTRACK:M,100"})},
    {"parks-nothing", 6, SingleTest + Start({"PARKACC:"}),
     "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n" + OneLeave + "PARKACC:\n"},
    {"waits-for-operator", 6, SingleTest + Start({"NOTIFY:Door closed?,,0"}),
     SingleTest + "[ActionsOnTest]\n" + OneLeave + "NOTIFY:Done.,,0\n"},
    {"placeholder-stays", 6, SingleTest + Start({"REMOTE:F #FREQ#,0,13,0,,0,"}),
     SingleTest + AtFrequency({"API:m||#FREQ#"})},
    {"radiation-stays", 6, SingleTest + Start({"SWITCHAMP:Amp A,3"}),
     SingleTest + Start({"SWITCHAMP:Amp A,3"}) + OneLeave + "SWITCHAMP:Amp A,2\n"},
    {"text-for-number", 6, SingleTest + Start({"WAIT:2 s"}), SingleTest + Start({"WAIT:2"})},
    {"flag-unknown", 6, SingleTest + Start({"NOTIFY:a,,yes"}), SingleTest + Start({"NOTIFY:a,,1"})},
    {"wait-outside", 6, SingleTest + Start({"WAIT:-2000"}), SingleTest + Start({"WAIT:2000"})},
    {"transport-unknown", 6, SingleTest + Start({"REMOTE:C,5,13,0,,0,"}),
     SingleTest + Start({"REMOTE:C,0,13,0,,0,"})},
    {"terminator-unknown", 6, SingleTest + Start({"REMOTE:C,0,13,10,,0,"}),
     SingleTest + Start({"REMOTE:C,0,13,2,,0,"})},
    {"terminator-none", 6, SingleTest + Start({"REMOTE:C,0,13,3,,0,"}),
     SingleTest + Start({"REMOTE:C,0,13,2,,0,"})},
    {"address-outside", 6, SingleTest + Start({"REMOTE:C,2,h,99999:0,,0,"}),
     SingleTest + Start({"REMOTE:C,2,h,65535:0,,0,"})},
    {"host-missing", 6, SingleTest + Start({"REMOTE:C,2,,5025:0,,0,"}),
     SingleTest + Start({"REMOTE:C,2,h,5025:0,,0,"})},
    {"amplifier-state-unknown", 6, SingleTest + Start({"SWITCHAMP:Amp A,5"}),
     SingleTest + Start({"SWITCHAMP:Amp A,4"})},
    {"nothing-to-do", 6, SingleTest + Start({"REMOTE:,,,,,0,"}),
     SingleTest + Start({"REMOTE:,,,,prog,0,"})},
};

const RuleCase BesideCases[] = {
    {"no-such-device", 6, SingleTest + Start({"SWITCHAMP:Amp  A,2"}),
     SingleTest + Start({"SWITCHAMP:Amp A,2"}), WithBench},
    {"device-of-another-class", 6, SingleTest + Start({"SWITCHAMP:DAQ,2"}),
     SingleTest + Start({"SWITCHAMP:Amp A,2"}), WithBench},
    {"no-such-path", 6, SingleTest + Start({"SWITCHUNIT:Unit,P3"}),
     SingleTest + Start({"SWITCHUNIT:Unit,P2"}), WithBench},
    {"no-such-table", 6, SingleTest + AtFrequency({"FREQTRACK:Gen,T9,40,0,0"}),
     SingleTest + AtFrequency({"FREQTRACK:Gen,T1,40,0,0"}), WithBench},
    {"answer-for-no-moment",
     2,
     SingleTest,
     SingleTest,
     {.answers = "* | question | * | Yes\nstart test | question | * | Yes\n"},
     Beside{.answers = "start of test | question | * | Yes\nEnterSubrange | question | * | Yes\n"}},
    {"answer-for-no-message",
     1,
     SingleTest + Start({"QUESTION:Door closed?,,0"}),
     SingleTest + Start({"QUESTION:Door closed?,,0"}),
     {.answers = "* | question | Door shut* | Yes\n"},
     Beside{.answers = "* | question | door closed* | Yes\n* | failure | Door shut* | Ignore\n"}},
    {"fault-for-nothing",
     1,
     SingleTest + Start({"REMOTE:C,0,113,0,,0,"}),
     SingleTest + Start({"REMOTE:C,0,113,0,,0,"}),
     {.faults = "GPIB 0:13 fails at every write\n"},
     Beside{.faults = "GPIB 1:13 fails at every write\n"}},
    {"failure-never-read",
     4,
     Swept + AtFrequency({"CHECKEUT:DAQ,101,0,0,0,0,1,0,1,0"}),
     Swept + AtFrequency({"CHECKEUT:DAQ,101,0,0,0,0,1,0,1,0"}),
     {.bench = "[Devices]\nDAQ=Monitoring\n[DAQ]\nFail1=102, 80MHz..81MHz, 1 s, 1\n"},
     Beside{.bench = "[Devices]\nDAQ=Monitoring\n[DAQ]\nFail1=101, 80MHz..81MHz, 1 s, 1\n"}},
    {"answer-for-no-device",
     1,
     SingleTest,
     SingleTest,
     {.bench = WithBench.bench, .answers = "* | failure | *Device: Amp Q* | Ignore\n"},
     Beside{.bench = WithBench.bench, .answers = "* | failure | *Device: Amp A* | Ignore\n"}},
    {"fault-for-no-device",
     1,
     SingleTest,
     SingleTest,
     {.bench = WithBench.bench, .faults = "device Amp Q fails at every switching\n"},
     Beside{.bench = WithBench.bench, .faults = "device Amp A fails at every switching\n"}},
    {"channel-without-device", 5, Monitoring + "[Workbench.Channel1]\nDevice=Amp Q\nNoGoAbove=1\n",
     Monitoring + "[Workbench.Channel1]\nDevice=DAQ\nNoGoAbove=1\n", WithBench},
    {"sound-not-here", 6, SingleTest + Start({"NOTIFY:a,/nowhere/a.wav,0"}),
     SingleTest + Start({"NOTIFY:a," + Examples + "/bench.ini,0"}), Here},
    {"program-not-here", 6, SingleTest + Start({"REMOTE:,,,,no_such_program -x,0,"}),
     SingleTest + Start({"REMOTE:,,,,sh -x,0,"}), Here},
    {"macro-not-here", 6, SingleTest + Start({"API:nosuch.sh"}),
     SingleTest + Start({"API:" + Examples + "/log_frequency.sh"}), Here},
};

std::vector<RuleCase> AllCases() {
    std::vector<RuleCase> all;
    const auto add = [&](std::span<const RuleCase> cases) {
        all.insert(all.end(), cases.begin(), cases.end());
    };
    add(StopCases);
    add(LostCases);
    add(TakenOverCases);
    add(RunCases);
    add(BesideCases);
    return all;
}

TEST(CheckRules, EachRuleFindsTheLineThatBreaksItAndNotTheOneThatDoesNot) {
    for (const RuleCase& row : AllCases()) {
        EXPECT_THAT(Shortly(FindingsIn(row.bad, row.beside)),
                    Contains(std::to_string(row.line) + " " + row.rule))
            << row.bad;
        for (const Finding& finding : FindingsIn(row.good, row.besideGood.value_or(row.beside))) {
            EXPECT_NE(ToUtf8(finding.rule->name), row.rule) << row.good;
        }
    }
}

TEST(CheckRules, ACountUnderAKeyThatIsNearlyRightIsHinted) {
    const std::vector<Finding> findings =
        FindingsIn(SingleTest + "[ActionsOnTest]\nNumOfEnterAction=1\nEnterAction1=WAIT:1\n");
    EXPECT_THAT(Shortly(findings), ::testing::ElementsAre("5 no-colon", "6 no-count"));
    EXPECT_THAT(ToUtf8(findings.front().advice),
                ::testing::EndsWith(" Did you mean NumOfEnterActions?"));
}

TEST(CheckRules, EveryRuleHasACase) {
    std::vector<std::string> names;
    for (const RuleCase& row : AllCases()) {
        names.push_back(row.rule);
    }
    std::vector<std::string> rules;
    for (const Rule& rule : Rules()) {
        rules.push_back(ToUtf8(rule.name));
    }
    std::ranges::sort(names);
    std::ranges::sort(rules);
    EXPECT_THAT(names, ElementsAreArray(rules));
}

TEST(CheckRules, EveryRuleHasItsWordsAndOneWayOfLooking) {
    for (const Rule& rule : Rules()) {
        const int ways = int{rule.inLine != nullptr} + int{rule.inAction != nullptr} +
                         int{rule.inSection != nullptr} + int{rule.inFile != nullptr};
        EXPECT_EQ(ways, 1) << ToUtf8(rule.name);
        EXPECT_FALSE(rule.meaning.empty()) << ToUtf8(rule.name);
        EXPECT_TRUE(rule.advice.ends_with(L'.') || rule.advice.find(L'%') != StringView::npos)
            << ToUtf8(rule.name);
    }
}

}  // namespace
}  // namespace ace::workbench
