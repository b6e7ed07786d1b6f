#include "workbench/session/set_up.h"

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::FieldsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Optional;

constexpr const char* Template =
    "[Workbench]\r\nModule=0\r\nSubRanges=2\r\nTitle=RI side A\r\n"
    "[Workbench.Subrange1]\r\nStartHz=80000000\r\nStopHz=1000000000\r\nStepPercent=1.0\r\n"
    "DwellMs=2000\r\nFieldVm=10\r\n"
    "[Workbench.Subrange2]\r\nStartHz=1000000000\r\nStopHz=2700000000\r\nStepPercent=2\r\n";

TEST(SetUpKeys, ModuleSubrangesTitleAndSweepsComeFromTheFile) {
    const TestSetUp setUp = SetUpOf(Template);
    EXPECT_EQ(setUp.moduleKind, aceTemplate);
    EXPECT_EQ(setUp.subRanges, 2);
    EXPECT_EQ(setUp.title, L"RI side A");
    EXPECT_THAT(setUp.sweeps, ElementsAre(Optional(Sweep{80e6, 1e9, 1.0, 2000.0}),
                                          Optional(Sweep{1e9, 2.7e9, 2.0, 0.0})));
    EXPECT_THAT(setUp.notes, IsEmpty());
}

TEST(SetUpKeys, OptionsWinOverTheFile) {
    const TestSetUp setUp = SetUpOf(Template, {.moduleKind = aceEMIAutoTemplate, .subRanges = 1});
    EXPECT_EQ(setUp.moduleKind, aceEMIAutoTemplate);
    EXPECT_EQ(setUp.subRanges, 1);
    EXPECT_THAT(setUp.sweeps, ElementsAre(Optional(Sweep{80e6, 1e9, 1.0, 2000.0})));
}

TEST(SetUpKeys, TheLastSweepOptionServesAllSubrangesThatFollowAndTheFilesDwellStays) {
    const TestSetUp setUp = SetUpOf(
        Template,
        {.moduleKind = std::nullopt, .subRanges = 3, .sweeps = {{1e6, 2e6, 1.0}, {3e6, 4e6, 5.0}}});
    EXPECT_THAT(setUp.sweeps, ElementsAre(Optional(Sweep{1e6, 2e6, 1.0, 2000.0}),
                                          Optional(Sweep{3e6, 4e6, 5.0, 0.0}),
                                          Optional(Sweep{3e6, 4e6, 5.0, 0.0})));
}

TEST(SetUpKeys, AModuleMayBeNamed) {
    EXPECT_EQ(SetUpOf("[Workbench]\nModule=acetstemplate\nSubRanges=4\n").moduleKind,
              aceTSTemplate);
}

TEST(SetUpKeys, ASubrangeWithoutSweepIsNotedAndHasNoFrequency) {
    const TestSetUp setUp = SetUpOf("[Workbench]\nModule=0\nSubRanges=2\n");
    EXPECT_THAT(setUp.sweeps, ElementsAre(std::nullopt, std::nullopt));
    EXPECT_THAT(setUp.notes,
                ElementsAre(L"subrange 1 to 2: no sweep in [Workbench.Subrange<n>] and no --sweep, "
                            L"so no frequency is run there"));
}

TEST(SetUpKeys, OfManyEntriesANoteTellsTheRanges) {
    const auto start = [](const std::string& text) {
        const String note = SetUpOf(text).notes.at(0);
        return note.substr(0, note.find(L':'));
    };
    EXPECT_EQ(start("[Workbench]\nModule=0\nSubRanges=10000\n"), L"subrange 1 to 10000");
    EXPECT_EQ(start("[Workbench]\nModule=4\nSubRanges=7\n[Workbench.Subrange4]\nStartHz=1\n"
                    "StopHz=1\nStepPercent=1\n"),
              L"step 1 to 3, 5 to 7");
    std::string everySecond = "[Workbench]\nModule=7\nSubRanges=10000\n";
    for (int test = 2; test <= 10000; test += 2) {
        const std::string number = std::to_string(test);
        everySecond += "[ActionsOnTest" + number + "_VKS]\nVKS_UKey=U" + number + "\n";
    }
    EXPECT_EQ(start(everySecond), L"test 1, 3, 5, 7, 9, 11, 13, 15, 17 ... 9999");
}

TEST(SetUpKeys, ModulesWithoutASweepPerEntryRunAllSweepsOneAfterTheOther) {
    const std::string sweeps =
        "[Workbench.Subrange1]\nStartHz=1\nStopHz=2\nStepPercent=50\n"
        "[Workbench.Subrange2]\nStartHz=3\nStopHz=4\nStepPercent=50\n";
    EXPECT_EQ(SetUpOf("[Workbench]\nModule=6\n" + sweeps).sweeps.size(), 2U);
    const TestSetUp monitoring = SetUpOf("[Workbench]\nModule=1\nSubRanges=1\n" + sweeps);
    EXPECT_EQ(monitoring.sweeps.size(), 2U);
    EXPECT_EQ(monitoring.channels.size(), 1U);
}

TEST(SetUpKeys, ChannelsChangeAtTheFrequenciesThatTheFileNames) {
    const TestSetUp setUp = SetUpOf(
        "[Workbench]\nModule=1\nSubRanges=2\n"
        "[Workbench.Channel1]\nName=Speed\nTrigger=2, 5\nNoGo=3\n[Workbench.Channel2]\nGo=7\n");
    ASSERT_EQ(setUp.channels.size(), 2U);
    EXPECT_EQ(setUp.channels[0].name, L"Speed");
    EXPECT_THAT(setUp.channels[0].trigger, ElementsAre(2, 5));
    EXPECT_THAT(setUp.channels[0].noGo, ElementsAre(3));
    EXPECT_EQ(setUp.channels[1].name, L"Channel 2");
    EXPECT_THAT(setUp.channels[1].go, ElementsAre(7));
}

TEST(SetUpKeys, WirelessTestsComeFromTheirSectionsAndGapsCloseUp) {
    const TestSetUp setUp = SetUpOf(
        "[Workbench]\nModule=7\nSubRanges=4\n"
        "[ActionsOnTest1_VKS]\nVKS_UKey=U1\nSUBSTEPS=2\n"
        "[ActionsOnStepU1_1_VKS]\nVKS_Key=A\nVKS_Name=Power\n[ActionsOnStepU1_2_VKS]\nVKS_Key=B\n"
        "[ActionsOnTest3_VKS]\nVKS_UKey=U3\nSUBSTEPS=0\n");
    ASSERT_EQ(setUp.tests.size(), 2U);
    EXPECT_EQ(setUp.tests[0].key, L"U1");
    EXPECT_THAT(setUp.tests[0].steps, ElementsAre(FieldsAre(L"A", L"Power"), FieldsAre(L"B", L"")));
    EXPECT_EQ(setUp.tests[1].key, L"U3");
    EXPECT_THAT(setUp.tests[1].steps, IsEmpty());
    EXPECT_THAT(setUp.notes, ElementsAre(L"test 2, 4: no VKS_UKey in [ActionsOnTest<n>_VKS], so "
                                         L"there is no such test"));
}

TEST(SetUpKeys, AWirelessTestHasAsManyStepsAsTheEngineReads) {
    const auto test = [](const char* steps) {
        return std::string(
                   "[Workbench]\nModule=7\nSubRanges=1\n[ActionsOnTest1_VKS]\nVKS_UKey=U\n") +
               "SUBSTEPS=" + steps + "\n[ActionsOnStepU_10001_VKS]\nVKS_Key=A\n";
    };
    EXPECT_EQ(SetUpOf(test("10001")).tests.at(0).steps.size(), 1U);
    EXPECT_EQ(SetUpOf(test("100000")).tests.at(0).steps.size(), 1U);
    EXPECT_EQ(
        RefusalOf([&] { SetUpOf(test("100001")); }),
        "4 set-up.ini:6: [ActionsOnTest1_VKS] SUBSTEPS: this must be a whole number from 0 to "
        "100000");
}

TEST(SetUpKeys, AKindOfTestAndAChannelOfADeviceAreAnyNumberFrom0) {
    const auto channel = [](const char* number) {
        return std::string("[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Channel1]\nDevice=D\n") +
               "NoGoAbove=1\nDeviceChannel=" + number + "\n";
    };
    EXPECT_EQ(SetUpOf(channel("10001")).channels.at(0).watch->channel, 10'001);
    EXPECT_EQ(SetUpOf("[Workbench]\nModule=6\nTestKind=10001\n").testKind, 10'001);
    EXPECT_THAT(RefusalOf([&] { SetUpOf(channel("-1")); }),
                HasSubstr("DeviceChannel: this must be a whole number from 0 to 2147483647"));
    EXPECT_THAT(RefusalOf([] { SetUpOf("[Workbench]\nModule=6\nTestKind=-1\n"); }),
                HasSubstr("TestKind: this must be a whole number from 0 to 2147483647"));
}

const std::string Tables =
    "[Workbench.DUT]\nFreq0=0\nFreq1=2402000000\nFreqName1=low\nFreq2=2480000000\n"
    "BandwidthName0=1 MHz\nPowerName0=0 dBm\nPowerName1=+10 dBm\n";
const std::string MatrixHead = "[Workbench]\nModule=8\nSubRanges=2\n[ActionsOnVKSTemplate_2]\n";

TEST(SetUpKeys, TheMatrixHasItsThreeTablesWithTheirNames) {
    const TestSetUp setUp = SetUpOf(MatrixHead + Tables);
    EXPECT_EQ(setUp.subRanges, 2);
    EXPECT_THAT(setUp.matrix.frequencies,
                ElementsAre(FieldsAre(0.0, L"test mode"), FieldsAre(2402e6, L"low"),
                            FieldsAre(2480e6, L"2.48 GHz")));
    EXPECT_THAT(setUp.matrix.bandwidths, ElementsAre(L"1 MHz"));
    EXPECT_THAT(setUp.matrix.powers, ElementsAre(L"0 dBm", L"+10 dBm"));
    EXPECT_EQ(CombinationsOf(setUp.matrix), 6U);
    EXPECT_THAT(setUp.notes, IsEmpty());
}

TEST(SetUpKeys, WhatInfluencesTheMatrixStandsInItsListsUnlessAKeySaysOtherwise) {
    const Matrix silent = SetUpOf(MatrixHead + Tables).matrix;
    EXPECT_EQ(silent.byFrequency, std::nullopt);
    EXPECT_EQ(silent.byBandwidth, std::nullopt);
    EXPECT_EQ(silent.byPower, std::nullopt);
    const Matrix told = SetUpOf(MatrixHead + Tables +
                                "InfluencedByFreq=1\nInfluencedByBandwidth=0\n"
                                "InfluencedByPower=1\n")
                            .matrix;
    EXPECT_EQ(told.byFrequency, true);
    EXPECT_EQ(told.byBandwidth, false);
    EXPECT_EQ(told.byPower, true);
}

TEST(SetUpKeys, ATemplateOptionWinsAndATemplateThatTheFileLacksIsNoted) {
    const SetUpOptions one{.moduleKind = {}, .subRanges = 3, .sweeps = {}, .matrixTemplate = 1};
    const TestSetUp setUp = SetUpOf(MatrixHead + Tables, one);
    EXPECT_EQ(setUp.subRanges, 1);
    EXPECT_THAT(setUp.notes, ElementsAre(L"the file has no template 1 ([ActionsOnVKSTemplate_1]), "
                                         L"so its rows have no actions"));
    EXPECT_EQ(RefusalOf([&] { SetUpOf("[Workbench]\nModule=7\n", one); }),
              "5 --template: a test of module aceVKSTemplate has no template number");
}

TEST(SetUpKeys, PlaceholdersAreTheLinesOfTheirSection) {
    const TestSetUp setUp = SetUpOf(
        "[Workbench]\nModule=6\n[Workbench.Placeholders]\n; of this bench\n#BW#=1 MHz\n"
        " #X# = a=b \n=nothing\nno pair\n#EMPTY#=\n");
    EXPECT_THAT(setUp.placeholders,
                ElementsAre(FieldsAre(L"#BW#", L"1 MHz"), FieldsAre(L"#X#", L"a=b"),
                            FieldsAre(L"#EMPTY#", L"")));
}

TEST(SetUpKeys, WhatNeitherFileNorOptionSaysIsWrongUse) {
    EXPECT_EQ(
        RefusalOf([] { SetUpOf("[ActionsOnTest]\n"); }),
        "5 set-up.ini: [Workbench]: the file does not say which module it is for (Module=): say it "
        "with --module");
    EXPECT_EQ(RefusalOf([] { SetUpOf("[Workbench]\nModul=0\n"); }),
              "4 set-up.ini:2: [Workbench] Modul: did you mean Module?");
    EXPECT_EQ(RefusalOf([] { SetUpOf("[Workbench]\nModule=0\n"); }),
              "5 set-up.ini:1: [Workbench]: the file does not say how many subranges the test has "
              "(SubRanges=): say it with --subranges");
    EXPECT_EQ(RefusalOf([] { SetUpOf("[Workbench]\nModule=6\n"); }), "");
    EXPECT_EQ(RefusalOf([] {
                  SetUpOf("[Workbench]\nModule=5\nSubRanges=1\n",
                          {.moduleKind = {}, .subRanges = {}, .sweeps = {{1.0, 2.0, 1.0}}});
              }),
              "5 --sweep: a test of module aceTSTemplate has no frequencies");
}

struct WrongKey {
    std::string text;
    const char* refusal;
};
std::vector<WrongKey> WrongKeys() {
    const std::string head = "[Workbench]\nModule=0\nSubRanges=1\n[Workbench.Subrange1]\n";
    return {
        {"\n[Workbench]\n; which\nModule=12\n",
         "4 set-up.ini:4: [Workbench] Module: \"12\" is no module: 0 to 8, or a name such as "
         "aceTemplate"},
        {"[Workbench]\nModule=0\nSubRanges=three\n",
         "4 set-up.ini:3: [Workbench] SubRanges: \"three\" is no number"},
        {"[Workbench]\nModule=0\nSubRanges=-1\n",
         "4 set-up.ini:3: [Workbench] SubRanges: this must be a whole number from 0 to 10000"},
        {head + "StartHz=1\nStopHz=2\n",
         "4 set-up.ini:4: [Workbench.Subrange1] StepPercent: the sweep needs this key"},
        {head + "StartHz=1\nStopHz=2 MHz\nStepPercent=1\n",
         "4 set-up.ini:6: [Workbench.Subrange1] StopHz: \"2 MHz\" is no number"},
        {head + "StartHz=2\nStopHz=1\nStepPercent=1\n",
         "4 set-up.ini:4: [Workbench.Subrange1]: the stop must not be below the start"},
        {"[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Channel1]\nGo=1,,2\n",
         "4 set-up.ini:5: [Workbench.Channel1] Go: these must be numbers of frequencies from 1, "
         "separated by ,"},
        {"[Workbench]\nModule=8\nSubRanges=0\n",
         "4 set-up.ini: [Workbench.DUT]: the matrix needs Freq0, BandwidthName0 and PowerName0 at "
         "least"},
        {"[Workbench.DUT]\nFreq0=-1\n[Workbench]\nModule=8\nSubRanges=0\n",
         "4 set-up.ini:2: [Workbench.DUT] Freq0: a frequency is 0 (the test mode) or more"},
        {"[Workbench]\nModule=8\nSubRanges=0\n" + Tables + "InfluencedByPower=2\n",
         "4 set-up.ini:12: [Workbench.DUT] InfluencedByPower: this must be a whole number from 0 "
         "to 1"},
        {"[Workbench]\nModule=8\n" + Tables,
         "5 set-up.ini:1: [Workbench]: the file does not say which template the test has "
         "(SubRanges=): say it with --template"},
    };
}

TEST(SetUpKeys, AKeyThatMakesNoSenseIsRefusedWithItsPlace) {
    for (const WrongKey& row : WrongKeys()) {
        EXPECT_EQ(RefusalOf([&] { SetUpOf(row.text); }), row.refusal);
    }
}

TEST(SetUpKeys, SweepsThatWouldFillTheMemoryAreRefused) {
    const SetUpOptions options{.moduleKind = {}, .subRanges = 2, .sweeps = {{1.0, 1e6, 0.02}}};
    // ln 1e6 / ln 1.0002 = 13.8155 / 0.00019998 = 69,084: one is allowed, two are too many
    EXPECT_EQ(RefusalOf([&] { SetUpOf("[Workbench]\nModule=0\n", options); }),
              "5 --sweep: the sweeps of the test have more than 100000 frequencies");
}

TEST(SetUpKeys, SweepsOfTheFileThatWouldFillTheMemoryAreRefusedWithTheirPlace) {
    const std::string sweep = "StartHz=1\nStopHz=1000000\nStepPercent=0.02\n";
    for (const std::string module : {"0", "6"}) {
        EXPECT_EQ(RefusalOf([&] {
                      SetUpOf("[Workbench]\nModule=" + module + "\nSubRanges=2\n" +
                              "[Workbench.Subrange1]\n" + sweep + "[Workbench.Subrange2]\n" +
                              sweep);
                  }),
                  "4 set-up.ini:8: [Workbench.Subrange2]: the sweeps up to this one have more than "
                  "100000 frequencies");
    }
}

TEST(SetUpKeys, AMatrixThatWouldTakeForEverIsRefused) {
    std::string text = "[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=0\n";
    for (int i = 0; i < 100; ++i) {
        text += "BandwidthName" + std::to_string(i) + "=b\nPowerName" + std::to_string(i) + "=p\n";
    }
    EXPECT_EQ(CombinationsOf(SetUpOf(text).matrix), 10'000U);
    EXPECT_EQ(RefusalOf([&] { SetUpOf(text + "Freq1=1\n"); }),
              "4 set-up.ini:4: [Workbench.DUT]: the matrix has more than 10000 combinations");
}

}  // namespace
}  // namespace ace::workbench
