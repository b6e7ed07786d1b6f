/// What is told beforehand of a test, worked out by hand from the moments of the modules.
#include <gtest/gtest.h>
#include <initializer_list>
#include <set>
#include <vector>

#include <ace/execution/what_runs.h>

namespace ace::test {
namespace {

using L = ModuleLists;
using ListNumbers = std::vector<std::int32_t>;

/// Numbers of lists, from 1.
constexpr std::int32_t Enter = 1;
constexpr std::int32_t Leave = 2;
constexpr std::int32_t Freq = 3;
constexpr std::int32_t Mlc = 4;

/// The lists of a set that a moment of the module runs.
template <class Set>
ListNumbers ListsThatRun(std::int32_t moduleKind, Set set) {
    ListNumbers numbers;
    for (const std::int32_t list : {Enter, Leave, Freq, Mlc}) {
        if (HasMoment(moduleKind, set, list)) {
            numbers.push_back(list);
        }
    }
    return numbers;
}

TEST(WhatRuns, AFrequencyIsForSevenKinds) {
    const std::set<std::int32_t> atFrequency{atWait,       atRemote,    atSetDevice, atCheckEut,
                                             atSwitchUnit, atTrackFreq, atAPI};
    for (std::int32_t kind = -1; kind <= ActionKindCount; ++kind) {
        EXPECT_EQ(FrequencyKinds.Has(kind), atFrequency.contains(kind)) << kind;
    }
}

TEST(WhatRuns, FiveModulesHaveAnEveryFrequencyList) {
    EXPECT_EQ(FrequencySetOf(aceTemplate), &L::MainTest);
    EXPECT_EQ(FrequencySetOf(aceMonitoring), &L::MoniEut);
    EXPECT_EQ(FrequencySetOf(aceEMSAutoTemplateGeneral), &L::EMSAutoGeneral);
    EXPECT_EQ(FrequencySetOf(aceEMIAutoTemplate), &L::EMIAutoTest);
    EXPECT_EQ(FrequencySetOf(aceAziChart), &L::AziChart);
    for (const std::int32_t moduleKind : std::initializer_list<std::int32_t>{
             aceEMSAutoTemplate, aceTSTemplate, aceVKSTemplate, aceVKSDUT, -1, ModulCount}) {
        EXPECT_EQ(FrequencySetOf(moduleKind), nullptr) << moduleKind;
    }
}

TEST(WhatRuns, TheListsOfASetThatAModuleHasOnceRunAtItsMoments) {
    struct Row {
        aceModul moduleKind;
        p_Subrange L::*set;
        ListNumbers lists;
    };
    const Row rows[] = {
        {aceTemplate, &L::MainTest, {Enter, Leave, Freq}},
        {aceMonitoring, &L::MoniEut, {Enter, Leave, Freq, Mlc}},
        {aceMonitoring, &L::MoniLoop, {Enter, Leave}},
        {aceEMIAutoTemplate, &L::EMIAutoTest, {Enter, Leave, Freq}},
        {aceTSTemplate, &L::TSTest, {Enter, Leave}},
        {aceAziChart, &L::AziChart, {Enter, Leave, Freq}},
        {aceVKSTemplate, &L::VKSTemplate, {Enter, Leave}},
        {aceVKSDUT, &L::VKSDUTGlob, {Enter, Leave}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ListsThatRun(row.moduleKind, row.set), row.lists) << row.moduleKind;
    }
}

/// No moment shows it, but it runs.
TEST(WhatRuns, TheEveryFrequencyListOfASusceptibilityTestHasAMoment) {
    EXPECT_EQ(ListsThatRun(aceEMSAutoTemplateGeneral, &L::EMSAutoGeneral),
              (ListNumbers{Enter, Leave, Freq}));
}

TEST(WhatRuns, TheListsOfNumberedSetsRunAtTheirMoments) {
    struct Row {
        aceModul moduleKind;
        DynArray<p_Subrange> L::*sets;
        ListNumbers lists;
    };
    const Row rows[] = {
        {aceTemplate, &L::MainSubranges, {Enter, Leave}},
        {aceMonitoring, &L::MoniChannels, {Enter, Leave, Freq}},
        {aceEMSAutoTemplate, &L::EMSAutoSteps, {Enter}},
        {aceEMIAutoTemplate, &L::EMIAutoSteps, {Enter, Leave}},
        {aceTSTemplate, &L::TSTests, {Enter, Leave}},
        {aceVKSTemplate, &L::VKSTests, {Enter, Leave}},
        {aceVKSTemplate, &L::VKSSteps, {Enter}},
        {aceVKSDUT, &L::VKSSteps, {Enter}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ListsThatRun(row.moduleKind, row.sets), row.lists) << row.moduleKind;
    }
}

TEST(WhatRuns, NoMomentRunsTheListsOfAnotherModule) {
    EXPECT_EQ(ListsThatRun(aceTemplate, &L::MoniEut), ListNumbers());
    EXPECT_EQ(ListsThatRun(aceEMSAutoTemplate, &L::EMSAutoGeneral), ListNumbers());
    EXPECT_EQ(ListsThatRun(aceEMSAutoTemplateGeneral, &L::EMSAutoSteps), ListNumbers());
    EXPECT_EQ(ListsThatRun(aceVKSDUT, &L::VKSTests), ListNumbers());
    p_Subrange L::*const none = nullptr;
    EXPECT_EQ(ListsThatRun(aceTSTemplate, none), ListNumbers());
    for (const std::int32_t moduleKind : {-1, ModulCount}) {
        EXPECT_EQ(ListsThatRun(moduleKind, &L::MainTest), ListNumbers());
        EXPECT_EQ(ListsThatRun(moduleKind, &L::MainSubranges), ListNumbers());
    }
}

TEST(WhatRuns, SusceptibilityEmissionAndAzimuthParkAtTheEnd) {
    const std::set<std::int32_t> parking{aceEMSAutoTemplateGeneral, aceEMIAutoTemplate,
                                         aceAziChart};
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        EXPECT_EQ(ParksAtTheEnd(moduleKind), parking.contains(moduleKind)) << moduleKind;
    }
}

TEST(WhatRuns, InTestsOfTwoKindsNoDeviceFollowsTheFrequency) {
    for (const std::int32_t kind : {-1, 0, 1, 2, 3}) {
        EXPECT_EQ(FollowsNoFrequency(kind), kind == 1 || kind == 2) << kind;
    }
}

TEST(WhatRuns, ATerminatorIsSentByItsCode) {
    EXPECT_EQ(TerminatorOf(0), L"\n");
    EXPECT_EQ(TerminatorOf(1), L"\r");
    EXPECT_EQ(TerminatorOf(2), L"\r\n");
    for (const std::int32_t code : {-1, 3, 4}) {
        EXPECT_EQ(TerminatorOf(code), L"") << code;
    }
}

TEST(WhatRuns, FourCodesAreTerminators) {
    for (const std::int32_t code : {0, 1, 2, 3}) {
        EXPECT_TRUE(IsTerminatorCode(code)) << code;
    }
    for (const std::int32_t code : {-2'147'483'647 - 1, -1, 4, 10, 13, 2'147'483'647}) {
        EXPECT_FALSE(IsTerminatorCode(code)) << code;
    }
}

}  // namespace
}  // namespace ace::test
