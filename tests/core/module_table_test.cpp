#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <ace/core/module_table.h>

namespace ace::test {
namespace {

struct FixedRow {
    p_Subrange ModuleLists::*list;
    String section;
    bool emptyMlc;
};
struct NumberedRow {
    DynArray<p_Subrange> ModuleLists::*lists;
    std::int32_t ModuleLists::*count;
    std::int32_t SavedCounts::*saved;
    String sectionWord;
};
struct ExpectedModule {
    std::string name;
    std::int32_t moduleKind;
    std::int32_t nameRow;
    std::int32_t readKind;
    std::int32_t settFileKind;
    bool isAutoModule;
    std::vector<FixedRow> fixed;
    std::vector<NumberedRow> numbered;
};

using E = ModuleLists;
using S = SavedCounts;

const NumberedRow VksSteps = {&E::VKSSteps, &E::VKSStepCount, &S::VKSSteps, L"ActionsOnStep"};

const ExpectedModule Expected[] = {
    {"Template",
     0,
     0,
     20,
     20,
     false,
     {{&E::MainTest, L"ActionsOnTest", false}},
     {{&E::MainSubranges, &E::MainSubrangeCount, &S::MainSubranges, L"ActionsOnSR"}}},
    {"Monitoring",
     1,
     1,
     25,
     20,
     false,
     {{&E::MoniEut, L"ActionsOnEutMon", true}, {&E::MoniLoop, L"ActionsOnMonTestLoop", true}},
     {{&E::MoniChannels, &E::MoniChannelCount, &S::MoniChannels, L"ActionsOnChannel"}}},
    {"EmsGeneral", 2, 2, 26, 26, false, {{&E::EMSAutoGeneral, L"ActionsOnEMSAutoTest", false}}, {}},
    {"EmsSteps",
     3,
     2,
     26,
     26,
     true,
     {},
     {{&E::EMSAutoSteps, &E::EMSAutoStepCount, &S::EMSAutoSteps, L"ActionsOnStep"}}},
    {"Emi",
     4,
     3,
     24,
     24,
     true,
     {{&E::EMIAutoTest, L"ActionsOnEMIAutoTest", false}},
     {{&E::EMIAutoSteps, &E::EMIAutoStepCount, &S::EMIAutoSteps, L"ActionsOnStep"}}},
    {"Sequence",
     5,
     4,
     29,
     29,
     false,
     {{&E::TSTest, L"ActionsOnTestSequence", false}},
     {{&E::TSTests, &E::TSTestCount, &S::TSTests, L"ActionsOnTest"}}},
    {"AzimuthChart", 6, 5, 37, 37, false, {{&E::AziChart, L"ActionsOnAzimuthChart", false}}, {}},
    {"Wireless",
     7,
     6,
     301,
     301,
     false,
     {{&E::VKSTemplate, L"ActionsOnVKSTemplate", false}},
     {{&E::VKSTests, &E::VKSTestCount, &S::VKSTests, L"ActionsOnTest"}, VksSteps}},
    {"Matrix",
     8,
     7,
     302,
     302,
     false,
     {{&E::VKSDUTGlob, L"ActionsOnVKSDUTGlob", false}},
     {VksSteps}},
};

class ModuleTableRow : public ::testing::TestWithParam<ExpectedModule> {
  protected:
    const ModuleRow& Row() const { return *FindModule(GetParam().moduleKind); }
};

TEST_P(ModuleTableRow, StandsAtItsKindWithTheHostsFileKinds) {
    EXPECT_EQ(Row().moduleKind, GetParam().moduleKind);
    EXPECT_EQ(Row().nameRow, GetParam().nameRow);
    EXPECT_EQ(Row().readKind, GetParam().readKind);
    EXPECT_EQ(Row().settFileKind, GetParam().settFileKind);
    EXPECT_EQ(Row().isAutoModule, GetParam().isAutoModule);
}

TEST_P(ModuleTableRow, HasItsFixedListsInOrder) {
    const std::vector<FixedRow>& expected = GetParam().fixed;
    ASSERT_EQ(Row().AllFixed().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(Row().AllFixed()[i].set, expected[i].list);
        EXPECT_EQ(Row().AllFixed()[i].section, expected[i].section);
        EXPECT_EQ(Row().AllFixed()[i].emptyMlc, expected[i].emptyMlc);
    }
}

TEST_P(ModuleTableRow, HasItsNumberedListsInOrder) {
    const std::vector<NumberedRow>& expected = GetParam().numbered;
    ASSERT_EQ(Row().AllNumbered().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(Row().AllNumbered()[i].sets, expected[i].lists);
        EXPECT_EQ(Row().AllNumbered()[i].count, expected[i].count);
        EXPECT_EQ(Row().AllNumbered()[i].saved, expected[i].saved);
        EXPECT_EQ(Row().AllNumbered()[i].sectionWord, expected[i].sectionWord);
    }
}

INSTANTIATE_TEST_SUITE_P(Modules, ModuleTableRow, ::testing::ValuesIn(Expected),
                         [](const auto& rowInfo) { return rowInfo.param.name; });

TEST(ModuleTableTest, HasNoRowForAKindOutsideTheMembers) {
    EXPECT_EQ(FindModule(-1), nullptr);
    EXPECT_EQ(FindModule(9), nullptr);
    EXPECT_EQ(FindModule(2147483647), nullptr);
}

TEST(ModuleTableTest, WritesEveryModuleAsKind20AndOpensWithMode10) {
    EXPECT_EQ(WriteKind, 20);
    EXPECT_EQ(OpenMode, 10);
}

TEST(ModuleTableTest, KeepsEightFileNames) {
    EXPECT_EQ(FileNameRows, 8);
}

}  // namespace
}  // namespace ace::test
