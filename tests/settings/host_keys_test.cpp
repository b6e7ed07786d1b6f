#include "settings/sections_fixture.h"

namespace ace {
namespace {

using test::ErrorOf;
using testing::ElementsAre;

/// The keys of the host that a load asks for beside the lists.
using HostKeys = test::SectionsTest;

TEST_F(HostKeys, SystemCheckIsThatOfTheEmissionFileReadLast) {
    host->files[L"f"][L"General"] = {L"SystemCheck=1"};
    Load(aceTemplate, 0);
    EXPECT_FALSE(context.SystemCheck);
    Load(aceEMIAutoTemplate, 0);
    EXPECT_TRUE(context.SystemCheck);
    Load(aceMonitoring, 0);
    EXPECT_TRUE(context.SystemCheck);
    host->files[L"f"].clear();
    Load(aceEMIAutoTemplate, 0);
    EXPECT_FALSE(context.SystemCheck);
}

TEST_F(HostKeys, TwoKeysOfTheHostSayWhetherATemplateMeasuresEmission) {
    const struct {
        StringView type;
        StringView measurement;
        bool isEmission;
    } table[] = {{L"0", L"0", false}, {L"4", L"0", true},  {L"0", L"3", true},
                 {L"4", L"3", true},  {L"3", L"4", false}, {L"5", L"2", false}};
    for (const auto& row : table) {
        host->files[L"f"][L"General"] = {L"TemplateType=" + String(row.type),
                                         L"MeasurementType=" + String(row.measurement)};
        Load(aceTemplate, 0);
        EXPECT_EQ(state.EmiTemplate, row.isEmission);
    }
    state.EmiTemplate = true;
    Load(aceMonitoring, 0);
    EXPECT_TRUE(state.EmiTemplate);
    host->files[L"f"].clear();
    Load(aceTemplate, 0);
    EXPECT_FALSE(state.EmiTemplate);
}

TEST_F(HostKeys, AnUnreadableKeyOfTheHostIsReportedAndCountsAs0) {
    host->files[L"f"][L"General"] = {L"TemplateType=4", L"MeasurementType=3"};
    for (const std::size_t key : {1U, 2U}) {
        host->faults.Clear();
        host->faults.FailOperation(L"SettingsFile.GetLong", key, 13);
        host->journal.Clear();
        Load(aceTemplate, 1);
        EXPECT_TRUE(state.EmiTemplate) << "by the other key";
        EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"),
                    ElementsAre(L"TraceLog.ReportError(13, \"scripted failure\", 1)"));
        EXPECT_EQ(TakeFileCalls().back(), L"Release()");
    }
    host->faults.FailOperation(L"SettingsFile.GetLong", 1, 13, sim::FaultScript::Until::ForEver);
    Load(aceTemplate, 1);
    EXPECT_FALSE(state.EmiTemplate);
}

TEST_F(HostKeys, AnUnreadableKeyOfTheHostIsAskedAgainWhenTheAnswerIs5) {
    host->files[L"f"][L"General"] = {L"TemplateType=4"};
    host->faults.FailOperation(L"SettingsFile.GetLong", 1, 13);
    host->reportAnswers = {5};
    Load(aceTemplate, 0);
    EXPECT_TRUE(state.EmiTemplate);
}

/// The emission test's own key is none of them.
TEST_F(HostKeys, AnUnreadableSystemCheckEndsTheLoad) {
    host->faults.FailOperation(L"SettingsFile.GetBoolean", 1, 13);
    EXPECT_EQ(ErrorOf([&] { Load(aceEMIAutoTemplate, 1); }), 13);
}

}  // namespace
}  // namespace ace
