/// What is just a finding, and what is just none.
#include <filesystem>

#include "check/check_fixture.h"
#include "support/file_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
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

/// The leave list of the end of the test: the count on line 5, the entries from 6 on.
std::string AtEnd(const std::vector<std::string>& entries) {
    std::string text =
        "[ActionsOnTest]\nNumOfLeaveActions=" + std::to_string(entries.size()) + "\n";
    for (std::size_t i = 0; i < entries.size(); ++i) {
        text += "LeaveAction" + std::to_string(i + 1) + "=" + entries[i] + "\n";
    }
    return text;
}

std::string TwoLeave(const std::string& first, const std::string& second) {
    return "NumOfLeaveActions=2\nLeaveAction1=" + first + "\nLeaveAction2=" + second + "\n";
}
std::string Gpib(const std::string& command, const std::string& address = "5") {
    return "REMOTE:" + command + ",0," + address + ",0,,0,";
}

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
    // the last words of a test hold nothing up, but those before a command do
    {SingleTest + AtEnd({"NOTIFY:Done,,0"}), "waits-for-operator", 0},
    {SingleTest + AtEnd({"NOTIFY:Done,,0", "NOTIFY:Good night,,0"}), "waits-for-operator", 0},
    {SingleTest + AtEnd({"NOTIFY:Off now?,,0", "SWITCHAMP:Amp A,0"}), "waits-for-operator", 6},
    {SingleTest + Start({"NOTIFY:Ready?,,0"}), "waits-for-operator", 6},
    {SingleTest + Start({"QUESTION:Ready?,,0"}), "waits-for-operator", 0,
     Beside{.answers = "* | question | Ready* | Yes\n"}},
    {SingleTest + Start({"QUESTION:Ready?,,0"}), "waits-for-operator", 6,
     Beside{.answers = "* | question | Go* | Yes\n"}},
    {SingleTest + AtFrequency({"FREQTRACK:G,T,40,0,1"}), "waits-for-operator", 6},
    {SingleTest + "[ActionsOnSR1]\nNumOfFreqActions=1\nFrequAction1=FREQTRACK:G,T,40,0,1\n",
     "waits-for-operator", 0},
    // of each source the last action of the end decides
    {SingleTest + Start({"SWITCHAMP:A,3"}) + TwoLeave("SWITCHAMP:A,3", "SWITCHAMP:A,2"),
     "radiation-stays", 0},
    {SingleTest + Start({"SWITCHAMP:A,3"}) + TwoLeave("SWITCHAMP:A,2", "SWITCHAMP:A,3"),
     "radiation-stays", 6},
    {SingleTest + Start({"SWITCHAMP:A,3"}) + OneLeave + "SWITCHAMP:A,7\n", "radiation-stays", 6},
    {SingleTest + Start({"SWITCHAMP:A,3"}) + OneLeave + "SWITCHAMP:A,1\n", "radiation-stays", 6},
    {SingleTest + Start({Gpib("outp1:stat on")}), "radiation-stays", 6},
    {SingleTest + Start({Gpib("RF 1")}), "radiation-stays", 6},
    {SingleTest + Start({Gpib("FREQ 1;:OUTPUT ON;*OPC")}), "radiation-stays", 6},
    {SingleTest + Start({Gpib("OUTP ON;OUTP OFF")}), "radiation-stays", 0},
    {SingleTest + Start({Gpib("OUTP ON")}) + OneLeave + Gpib("*rst") + "\n", "radiation-stays", 0},
    {SingleTest + Start({Gpib("OUTP:FILT ON")}), "radiation-stays", 0},
    {SingleTest + Start({Gpib("OUTP:IMP 1")}), "radiation-stays", 0},
    {SingleTest + Start({"REMOTE:OUTP ON,2,SigGen,5025:0,,0,"}) + OneLeave +
         "REMOTE:OUTP OFF,2,siggen,5025:0,,0,\n",
     "radiation-stays", 0},
    // a save writes the comma, and the next load ends the name there
    {SingleTest + Start({"DLL:prog.exe a,b"}), "save-changes", 6},
    {SingleTest + Start({"DLL:prog.exe ab"}), "save-changes", 0},
    {SingleTest + AtFrequency({"FREQTRACK:G,T,40,0,0", "FREQTRACK:,,40,0,0", "FREQTRACK:M,1"}),
     "save-changes", 7},
    {SingleTest + Start({Gpib("C", "13.7")}), "decimals-lost", 6},
    {SingleTest + Start({"SETDEV:DAQ,101.5"}), "decimals-lost", 6},
    {SingleTest + Start({"SETDEV:DAQ,101.0"}), "decimals-lost", 0},
    {SingleTest + AtFrequency({"FREQTRACK:M,-1"}), "wait-outside", 6},
    {SingleTest + Start({"CHECKEUT:DAQ,101,0,0,0,0,20,1,-1,0"}), "wait-outside", 6},
    {SingleTest + Start({"SWITCHAMP:,1"}), "no-such-device", 6},
    {SingleTest + AtFrequency({"FREQTRACK:,1"}), "no-such-device", 0},
    {SingleTest, "fault-for-nothing", 1,
     Beside{.bench = OneAmplifier.bench, .faults = "device Amp A fails at the 1st reading\n"}},
    {SingleTest, "fault-for-nothing", 0,
     Beside{.bench = OneAmplifier.bench, .faults = "device Amp A fails at the 1st switching\n"}},
    {SingleTest, "answer-for-no-device", 0,
     Beside{.bench = OneAmplifier.bench, .answers = "* | failure | *Device: Amp* | Ignore\n"}},
    {SingleTest, "answer-for-no-device", 0,
     Beside{.bench = OneAmplifier.bench,
            .answers = "* | failure | *Device: Amp A Error* | Ignore\n"}},
    {SingleTest + "[Workbench.Placeholders]\n#X#=1\n#X#=2\n", "key-twice", 6},
    {SingleTest + "[Workbench.Placeholders]\n;#X#=1\n#X#=2\n", "key-twice", 0},
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
    // those of another template are its own, if the file has it and so many rows of it
    {OneRow + "[ActionsOnStep_0_2]\n", "section-unread", 10},
    {OneRow + "[ActionsOnVKSTemplate_0]\nCount=2\n[ActionsOnStep_0_2]\n", "section-unread", 0},
    {OneRow + "[ActionsOnVKSTemplate_0]\nCount=1\n[ActionsOnStep_0_2]\n", "section-unread", 12},
    {OneRow + "[ActionsOnVKSDUTGlob]\n", "section-unread", 10},
    {OneRow + "[ActionsOnVKSTemplate_3]\n[ActionsOnVKSDUTGlob]\n", "section-unread", 0},
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
              L"with an error when it comes there, and the file can't be saved");
    const Finding never = emptyIn("[ActionsOnSR1]\nNumOfFreqActions=1\n");
    EXPECT_FALSE(EndsTest(never));
    EXPECT_EQ(never.meaning,
              L"no line fills FrequAction1, so it comes back empty: the file can't be saved");
}

/// What a check says of one entry at the start of a test, with this machine looked at.
std::vector<std::string> HereMeanings(const std::string& entry) {
    std::vector<std::string> meanings;
    for (const Finding& finding : FindingsIn(SingleTest + Start({entry}), {.here = true})) {
        meanings.push_back(ToUtf8(finding.meaning));
    }
    return meanings;
}

using CheckHereTest = FolderTest;

/// A macro is run as a path, never looked for as a program is.
TEST_F(CheckHereTest, AMacroMustBeAFileThatMayBeExecuted) {
    const std::string macro = Path("macro");
    EXPECT_THAT(
        HereMeanings("API:ls"),
        ElementsAre("the macro \"ls\" can't be run on this machine: there is no such file"));
    EXPECT_THAT(HereMeanings("API:" + folder), ElementsAre(EndsWith("it is no plain file")));
    Write("macro", "#!/bin/sh\n");
    EXPECT_THAT(HereMeanings("API:" + macro),
                ElementsAre(EndsWith("it may not be executed: Permission denied")));
    std::filesystem::permissions(macro, std::filesystem::perms::owner_all);
    EXPECT_THAT(HereMeanings("API:" + macro), IsEmpty());
    Write("macro.inputs", "value\n");
    EXPECT_THAT(HereMeanings("API:" + macro), ElementsAre(HasSubstr("macro.inputs: line 1: ")));
}

TEST_F(CheckHereTest, AProgramMustBeExecutable) {
    const std::string program = Path("program");
    Write("program", "#!/bin/sh\n");
    EXPECT_THAT(HereMeanings("REMOTE:,,,," + program + " -x,0,"),
                ElementsAre("no program \"" + program + "\" can be started on this machine"));
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_THAT(HereMeanings("REMOTE:,,,," + program + " -x,0,"), IsEmpty());
    EXPECT_THAT(HereMeanings("REMOTE:,,,,sh,0,"), IsEmpty());
}

/// The advice of the first finding.
std::string AdviceFor(const std::string& text) {
    const std::vector<Finding> findings = FindingsIn(text);
    return findings.empty() ? "" : ToUtf8(findings[0].advice);
}

TEST(CheckRules, AStopIsAdvisedOnByItsLine) {
    EXPECT_EQ(AdviceFor(SingleTest + Start({"SWITCHAMP:Amp, A,3"})),
              "Write a number there. The value has 3 fields, and this form has 2; names have no "
              "commas.");
    EXPECT_EQ(AdviceFor(SingleTest + Start({"SETDEV:DAQ,x"})), "Write a number there.");
    EXPECT_EQ(AdviceFor(SingleTest + Start({"REMOTE:C,x"})), "Write a number there.");
    EXPECT_EQ(AdviceFor(SingleTest + Start({"WAIT;100"})),
              "Write the keyword with its colon, such as WAIT:100, or take the line out.");
    const std::string list = SingleTest + "[ActionsOnTest]\nNumOfEnterActions=1\n";
    EXPECT_EQ(AdviceFor(list + "EnterAction1:WAIT:100\n"), "Write \"=\" behind the key.");
    EXPECT_EQ(AdviceFor(list + "; a remark\nEnterAction1=WAIT:1\n"),
              "Take the line out; the engine's sections have no comments.");
}

/// Lines that stop the load are sought up to a number; what stands behind is not judged.
TEST(CheckRules, OfAFileThatIsNotReadToItsEndOnlyTheStopsAreTold) {
    std::vector<std::string> entries(101, "WAIT");
    const auto findings =
        FindingsIn(SingleTest + Start(entries) + "[ActionsOnSR1]\nNumOfEnterActions=1\n");
    EXPECT_EQ(ToUtf8(findings[0].meaning),
              "the file can't be loaded: more than 100 lines stop the load; correct these first, "
              "because nothing behind them was looked at");
    for (const Finding& finding : findings) {
        EXPECT_EQ(finding.rule->group, FindingGroup::Stops) << ToUtf8(finding.rule->name);
    }
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
