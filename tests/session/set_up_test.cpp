#include "workbench/session/set_up.h"

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

constexpr const char* Template =
    "[Workbench]\r\nModule=0\r\nSubRanges=2\r\nTitle=RI side A\r\n"
    "[Workbench.Subrange1]\r\nStartHz=80000000\r\nStopHz=1000000000\r\nStepPercent=1.0\r\n"
    "DwellMs=2000\r\nFieldVm=10\r\n"
    "[Workbench.Subrange2]\r\nStartHz=1000000000\r\nStopHz=2700000000\r\nStepPercent=2\r\n";

TEST(SetUpKeys, ModuleSubrangesTitleAndSweepsComeFromTheFile) {
    const TestSetUp setUp = SetUpOf(Template);
    EXPECT_EQ(setUp.modul, aceTemplate);
    EXPECT_EQ(setUp.subRanges, 2);
    EXPECT_EQ(setUp.title, L"RI side A");
    EXPECT_THAT(setUp.sweeps, ElementsAre(Optional(Sweep{80e6, 1e9, 1.0, 2000.0}),
                                          Optional(Sweep{1e9, 2.7e9, 2.0, 0.0})));
    EXPECT_THAT(setUp.notes, IsEmpty());
}

TEST(SetUpKeys, OptionsWinOverTheFile) {
    const TestSetUp setUp = SetUpOf(Template, {.modul = aceEMIAutoTemplate, .subRanges = 1});
    EXPECT_EQ(setUp.modul, aceEMIAutoTemplate);
    EXPECT_EQ(setUp.subRanges, 1);
    EXPECT_THAT(setUp.sweeps, ElementsAre(Optional(Sweep{80e6, 1e9, 1.0, 2000.0})));
}

TEST(SetUpKeys, TheLastSweepOptionServesAllSubrangesThatFollowAndTheFilesDwellStays) {
    const TestSetUp setUp = SetUpOf(
        Template,
        {.modul = std::nullopt, .subRanges = 3, .sweeps = {{1e6, 2e6, 1.0}, {3e6, 4e6, 5.0}}});
    EXPECT_THAT(setUp.sweeps, ElementsAre(Optional(Sweep{1e6, 2e6, 1.0, 2000.0}),
                                          Optional(Sweep{3e6, 4e6, 5.0, 0.0}),
                                          Optional(Sweep{3e6, 4e6, 5.0, 0.0})));
}

TEST(SetUpKeys, AModuleMayBeNamed) {
    EXPECT_EQ(SetUpOf("[Workbench]\nModule=acetstemplate\nSubRanges=4\n").modul, aceTSTemplate);
}

TEST(SetUpKeys, ASubrangeWithoutSweepIsNotedAndHasNoFrequency) {
    const TestSetUp setUp = SetUpOf("[Workbench]\nModule=0\nSubRanges=2\n");
    EXPECT_THAT(setUp.sweeps, ElementsAre(std::nullopt, std::nullopt));
    EXPECT_THAT(setUp.notes,
                ElementsAre(L"subrange 1, 2: no sweep in [Workbench.Subrange<n>] and no --sweep, "
                            L"so no frequency is run there"));
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
        "[Workbench]\nModule=7\nSubRanges=3\n"
        "[ActionsOnTest1_VKS]\nVKS_UKey=U1\nSUBSTEPS=2\n"
        "[ActionsOnStepU1_1_VKS]\nVKS_Key=A\n[ActionsOnStepU1_2_VKS]\nVKS_Key=B\n"
        "[ActionsOnTest3_VKS]\nVKS_UKey=U3\nSUBSTEPS=0\n");
    ASSERT_EQ(setUp.tests.size(), 2U);
    EXPECT_EQ(setUp.tests[0].key, L"U1");
    EXPECT_THAT(setUp.tests[0].steps, ElementsAre(L"A", L"B"));
    EXPECT_EQ(setUp.tests[1].key, L"U3");
    EXPECT_THAT(setUp.tests[1].steps, IsEmpty());
}

TEST(SetUpKeys, TheMatrixHasItsThreeTables) {
    const TestSetUp setUp = SetUpOf(
        "[Workbench]\nModule=8\nSubRanges=2\n[Workbench.DUT]\nFreq0=0\nFreq1=2402000000\n"
        "BandwidthName0=1 MHz\nPowerName0=0 dBm\nPowerName1=+10 dBm\n");
    EXPECT_EQ(setUp.subRanges, 2);
    EXPECT_THAT(setUp.matrix.hertz, ElementsAre(0.0, 2402e6));
    EXPECT_EQ(setUp.matrix.bandwidths, 1);
    EXPECT_EQ(setUp.matrix.powers, 2);
}

TEST(SetUpKeys, WhatNeitherFileNorOptionSaysIsWrongUse) {
    EXPECT_EQ(RefusalOf([] { SetUpOf("[ActionsOnTest]\n"); }),
              "5 the file does not say which module it is for ([Workbench] Module=): say it with "
              "--module");
    EXPECT_EQ(RefusalOf([] { SetUpOf("[Workbench]\nModule=0\n"); }),
              "5 the file does not say how many subranges the test has ([Workbench] SubRanges=): "
              "say it with --subranges");
    EXPECT_EQ(RefusalOf([] { SetUpOf("[Workbench]\nModule=6\n"); }), "");
    EXPECT_EQ(RefusalOf([] {
                  SetUpOf("[Workbench]\nModule=5\nSubRanges=1\n",
                          {.modul = {}, .subRanges = {}, .sweeps = {{1.0, 2.0, 1.0}}});
              }),
              "5 --sweep: a test of module aceTSTemplate has no frequencies");
}

TEST(SetUpKeys, AKeyThatMakesNoSenseIsRefusedWithItsPlace) {
    const std::string head = "[Workbench]\nModule=0\nSubRanges=1\n[Workbench.Subrange1]\n";
    const struct {
        std::string text;
        const char* refusal;
    } rows[] = {
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
    };
    for (const auto& row : rows) {
        EXPECT_EQ(RefusalOf([&] { SetUpOf(row.text); }), row.refusal);
    }
}

TEST(SetUpKeys, SweepsThatWouldFillTheMemoryAreRefused) {
    const SetUpOptions options{.modul = {}, .subRanges = 2, .sweeps = {{1.0, 1e6, 0.02}}};
    // ln 1e6 / ln 1.0002 = 13.8155 / 0.00019998 = 69,084: one is allowed, two are too many
    EXPECT_EQ(RefusalOf([&] { SetUpOf("[Workbench]\nModule=0\n", options); }),
              "5 the sweeps of the test have more than 100000 frequencies");
}

}  // namespace
}  // namespace ace::workbench
