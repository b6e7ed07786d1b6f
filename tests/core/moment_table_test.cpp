#include <gtest/gtest.h>

#include <ace/core/moment_table.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using L = ModuleLists;

/// The list of every moment, a column a module: "set list" for a set that the module has once,
/// "sets# list" for numbered ones, nothing for a moment that the module has not.
constexpr StringView Expected[13][ModulCount] = {
    // ptStartTest
    {L"MainTest Enter", L"MoniEut Enter", L"EMSAutoGeneral Enter", L"", L"EMIAutoTest Enter",
     L"TSTest Enter", L"AziChart Enter", L"VKSTemplate Enter", L""},
    // ptStopTest
    {L"MainTest Leave", L"MoniEut Leave", L"EMSAutoGeneral Leave", L"", L"EMIAutoTest Leave",
     L"TSTest Leave", L"AziChart Leave", L"VKSTemplate Leave", L""},
    // ptEnterSubRange, ptLeaveSubrange
    {L"MainSubranges# Enter", L"", L"", L"", L"", L"", L"", L"", L""},
    {L"MainSubranges# Leave", L"", L"", L"", L"", L"", L"", L"", L""},
    // ptEveryFreq
    {L"MainTest Freq", L"MoniEut Freq", L"", L"", L"EMIAutoTest Freq", L"", L"AziChart Freq", L"",
     L""},
    // ptTrigger, ptNoGo, ptGo
    {L"", L"MoniChannels# Freq", L"", L"", L"", L"", L"", L"", L""},
    {L"", L"MoniChannels# Enter", L"", L"", L"", L"", L"", L"", L""},
    {L"", L"MoniChannels# Leave", L"", L"", L"", L"", L"", L"", L""},
    // ptStep
    {L"", L"", L"", L"EMSAutoSteps# Enter", L"", L"", L"", L"VKSSteps# Enter", L"VKSSteps# Enter"},
    // ptBefore
    {L"", L"", L"", L"", L"EMIAutoSteps# Enter", L"", L"", L"", L"VKSDUTGlob Enter"},
    // ptAfter
    {L"", L"MoniEut Mlc", L"", L"", L"EMIAutoSteps# Leave", L"", L"", L"", L"VKSDUTGlob Leave"},
    // ptBeforeTest
    {L"", L"MoniLoop Enter", L"", L"", L"", L"TSTests# Enter", L"", L"VKSTests# Enter", L""},
    // ptAfterTest
    {L"", L"MoniLoop Leave", L"", L"", L"", L"TSTests# Leave", L"", L"VKSTests# Leave", L""},
};

struct FixedName {
    p_Subrange L::*set;
    StringView name;
};
constexpr FixedName FixedNames[] = {
    {&L::MainTest, L"MainTest"},       {&L::MoniEut, L"MoniEut"},
    {&L::MoniLoop, L"MoniLoop"},       {&L::EMSAutoGeneral, L"EMSAutoGeneral"},
    {&L::EMIAutoTest, L"EMIAutoTest"}, {&L::TSTest, L"TSTest"},
    {&L::AziChart, L"AziChart"},       {&L::VKSTemplate, L"VKSTemplate"},
    {&L::VKSDUTGlob, L"VKSDUTGlob"}};

struct NumberedName {
    DynArray<p_Subrange> L::*sets;
    StringView name;
};
constexpr NumberedName NumberedNames[] = {{&L::MainSubranges, L"MainSubranges#"},
                                          {&L::MoniChannels, L"MoniChannels#"},
                                          {&L::EMSAutoSteps, L"EMSAutoSteps#"},
                                          {&L::EMIAutoSteps, L"EMIAutoSteps#"},
                                          {&L::TSTests, L"TSTests#"},
                                          {&L::VKSTests, L"VKSTests#"},
                                          {&L::VKSSteps, L"VKSSteps#"}};

String Described(const MomentRow* row) {
    if (row == nullptr) {
        return {};
    }
    String text;
    for (const FixedName& name : FixedNames) {
        text += row->fixed == name.set ? name.name : StringView();
    }
    for (const NumberedName& name : NumberedNames) {
        text +=
            row->numbered != nullptr && row->numbered->sets == name.sets ? name.name : StringView();
    }
    constexpr StringView Lists[] = {L" Enter", L" Leave", L" Freq", L" Mlc"};
    for (std::size_t i = 0; i < std::size(Lists); ++i) {
        text += row->list == ActionLists[i] ? Lists[i] : StringView();
    }
    return text;
}

TEST(MomentTableTest, EachModuleHasTheListsOfItsMomentsAndNoOthers) {
    for (std::int32_t time = 0; time < 13; ++time) {
        for (std::int32_t moduleKind = 0; moduleKind < ModulCount; ++moduleKind) {
            EXPECT_EQ(Described(FindMoment(moduleKind, time)), Expected[time][moduleKind])
                << "moment " << time << ", module " << moduleKind;
        }
    }
}

TEST(MomentTableTest, HasThirtySevenRowsEachOnce) {
    EXPECT_EQ(MomentTable().size(), 37U);
    for (const MomentRow& row : MomentTable()) {
        EXPECT_EQ(FindMoment(row.moduleKind, row.time), &row);
    }
}

TEST(MomentTableTest, AMomentOrModuleOutsideTheMembersHasNoRow) {
    EXPECT_EQ(FindMoment(-1, ptStartTest), nullptr);
    EXPECT_EQ(FindMoment(9, ptStartTest), nullptr);
    EXPECT_EQ(FindMoment(aceTemplate, -1), nullptr);
    EXPECT_EQ(FindMoment(aceTemplate, 13), nullptr);
}

/// The key of a perform time; `ptBefore` and `ptAfter` are told apart by the module.
StringView KeyOf(const MomentRow& row) {
    constexpr StringView Keys[] = {L"ETE", L"LTE", L"ESR", L"LSR", L"EFR", L"TRI", L"NGO",
                                   L"GOE", L"STE", L"BEF", L"AFT", L"BFT", L"ATT"};
    if (row.moduleKind == aceVKSDUT && row.time != ptStep) {
        return row.time == ptBefore ? L"BSA" : L"ASA";
    }
    return row.moduleKind == aceMonitoring && row.time == ptAfter ? L"MLC" : Keys[row.time];
}

TEST(MomentTableTest, TheKeyIsThatOfThePerformTimeButForTheMatrixAndTheMonitoringStep) {
    for (const MomentRow& row : MomentTable()) {
        EXPECT_EQ(row.key, KeyOf(row)) << row.moduleKind << ", " << row.time;
    }
}

TEST(MomentTableTest, AListIsThatOfTheNumberedSetInTheListsThatAreHandedIn) {
    L lists;
    lists.MoniChannels.Redim(0, 1);
    lists.MoniChannels[1].FreqCount = 3;
    const ActionList list = ListOf(lists, *FindMoment(aceMonitoring, ptTrigger), 1);
    EXPECT_EQ(&list.count, &lists.MoniChannels[1].FreqCount);
    EXPECT_EQ(&list.actions, &lists.MoniChannels[1].Freq);
}

TEST(MomentTableTest, TheNumberMeansNothingWhereTheModuleHasTheSetOnce) {
    L lists;
    const MomentRow& row = *FindMoment(aceMonitoring, ptAfter);
    EXPECT_EQ(&ListOf(lists, row, 41).actions, &lists.MoniEut.Mlc);
}

TEST(MomentTableTest, AListCanBeReadInListsThatMustNotChange) {
    L lists;
    lists.MoniChannels.Redim(0, 1);
    const L& constant = lists;
    const MomentRow& moment = *FindMoment(aceMonitoring, ptGo);
    EXPECT_EQ(&ListOf(constant, moment, 1).actions, &lists.MoniChannels[1].Leave);
    EXPECT_EQ(&ListOf(constant, moment, 1).count, &lists.MoniChannels[1].LeaveCount);
    EXPECT_EQ(ErrorOf([&] { ListOf(constant, moment, 2); }), 9);
}

TEST(MomentTableTest, TheFirstThreeLettersOfAKeyTellThePerformTimeInAnyModule) {
    constexpr std::pair<StringView, p_PerformTimes> Expectations[] = {
        {L"ETE", ptStartTest},       {L"LTE", ptStopTest},  {L"ESR0", ptEnterSubRange},
        {L"LSR12", ptLeaveSubrange}, {L"EFR", ptEveryFreq}, {L"TRI3", ptTrigger},
        {L"NGO0", ptNoGo},           {L"GOE7", ptGo},       {L"STE-1", ptStep},
        {L"BEF2", ptBefore},         {L"BSA", ptBefore},    {L"AFT2", ptAfter},
        {L"ASA", ptAfter},           {L"MLC", ptAfter},     {L"BFT", ptBeforeTest},
        {L"ATT1", ptAfterTest}};
    for (const auto& [key, time] : Expectations) {
        EXPECT_EQ(TimeOfKey(key), time) << testing::PrintToString(String(key));
    }
    for (const StringView key : {L"", L"ET", L"ete", L"SUR0", L"CHA0", L"EMI0", L"ATL", L"TST0",
                                 L"TST-1_0_-1", L"CHI0ETE"}) {
        EXPECT_EQ(TimeOfKey(key), std::nullopt) << testing::PrintToString(String(key));
    }
}

TEST(MomentTableTest, AKeyHasOnePerformTimeInAllModules) {
    for (const MomentRow& row : MomentTable()) {
        EXPECT_EQ(TimeOfKey(row.key), row.time) << row.moduleKind;
    }
}

TEST(MomentTableTest, ASetThatIsNotThereIsError9) {
    L lists;
    const MomentRow& row = *FindMoment(aceVKSDUT, ptStep);
    EXPECT_EQ(ErrorOf([&] { ListOf(lists, row, 0); }), 9);
    lists.VKSSteps.Redim(0, 2);
    EXPECT_EQ(ErrorOf([&] { ListOf(lists, row, 3); }), 9);
    EXPECT_EQ(ErrorOf([&] { ListOf(lists, row, -1); }), 9);
}

}  // namespace
}  // namespace ace::test
