#include <ace/core/actions_engine.h>
#include <ace/settings/line_observer.h>

#include "settings/sections_fixture.h"

namespace ace {
namespace {

using test::ErrorOf;
using testing::ElementsAre;

struct LoadActions : test::HostTest {
    aceActionsEngine engine{context};
    std::vector<String> Reports() { return host->journal.LinesOf(L"TraceLog.ReportError"); }
};

TEST_F(LoadActions, KeepsFileAndModuleAlsoWhenThereIsNoFile) {
    host->missingFiles = {L"gone"};
    engine.LoadActions(L"gone", 2, aceMonitoring);
    EXPECT_EQ(engine.State().FileName, L"gone");
    EXPECT_EQ(engine.State().Modul, aceMonitoring);
    EXPECT_EQ(engine.State().MoniChannelCount, -1);
}

TEST_F(LoadActions, TellsTheModulesOfAutomaticTestsWithSteps) {
    for (std::int32_t moduleKind = 0; moduleKind <= ModulCount; ++moduleKind) {
        engine.LoadActions(L"f", 0, static_cast<aceModul>(moduleKind));
        EXPECT_EQ(engine.State().IsAutoModule,
                  moduleKind == aceEMSAutoTemplate || moduleKind == aceEMIAutoTemplate);
        EXPECT_EQ(engine.State().Modul, moduleKind);
    }
}

/// Keeps which set each section fills.
struct KeptSets : ILineObserver {
    struct Row {
        SetPlace place;
        String section;
        bool operator==(const Row&) const = default;
    };
    void SetStarts(const SetPlace& place) override { rows.push_back({place, {}}); }
    void SectionStarts(StringView section) override { rows.back().section = section; }
    void LineIsRead(const LineReport&) override {}
    std::vector<Row> rows;
};

TEST_F(LoadActions, TheObserverIsToldWhichSetEachSectionFills) {
    host->files[L"f"][L"ActionsOnTest1_VKS"] = {L"VKS_UKey=K", L"SUBSTEPS=1"};
    host->files[L"f"][L"ActionsOnStepK_1_VKS"] = {L"VKS_Key=S"};
    KeptSets kept;
    context.LineObserver = &kept;
    engine.LoadActions(L"f", 2, aceMonitoring);
    engine.LoadActions(L"f", 1, aceVKSTemplate);
    context.LineObserver = nullptr;
    const EngineState& state = engine.State();
    EXPECT_THAT(kept.rows,
                ElementsAre(KeptSets::Row{{&state.MoniEut}, L"ActionsOnEutMon"},
                            KeptSets::Row{{&state.MoniLoop}, L"ActionsOnMonTestLoop"},
                            KeptSets::Row{{nullptr, &state.MoniChannels, 0}, L"ActionsOnChannel1"},
                            KeptSets::Row{{nullptr, &state.MoniChannels, 1}, L"ActionsOnChannel2"},
                            KeptSets::Row{{&state.VKSTemplate}, L"ActionsOnVKSTemplate"},
                            KeptSets::Row{{nullptr, &state.VKSTests, 0}, L"ActionsOnTest1"},
                            KeptSets::Row{{nullptr, &state.VKSSteps, 0}, L"ActionsOnStepK_1"}));
}

TEST_F(LoadActions, ABadLineIsReportedThreeTimesAndRaised) {
    host->files[L"f"][L"ActionsOnTest"] = {L"; remark"};
    EXPECT_EQ(ErrorOf([&] { engine.LoadActions(L"f", 0, aceTemplate); }), 5);
    const String report = L"TraceLog.ReportError(5, \"invalid procedure call\", 1)";
    EXPECT_THAT(Reports(), ElementsAre(report, report, report));
}

TEST_F(LoadActions, AFileThatCanNotBeOpenedIsReportedTwice) {
    host->faults.FailOperation(L"SystemServices.OpenSettingsFile", 1, 70);
    EXPECT_EQ(ErrorOf([&] { engine.LoadActions(L"f", 0, aceTemplate); }), 70);
    EXPECT_THAT(Reports(), testing::SizeIs(2));
}

TEST_F(LoadActions, WritesNoTraceLinesOfItsOwn) {
    host->tracing = true;
    engine.LoadActions(L"f", 0, aceAziChart);
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.WriteLine"), testing::SizeIs(2));
    host->journal.Clear();
    engine.SaveActions(L"f");
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.WriteLine"), testing::SizeIs(2));
}

TEST_F(LoadActions, SaveActionsWritesTheModuleLoadedLastUnderTheNameThatItIsGiven) {
    engine.LoadActions(L"f", 1, aceTSTemplate);
    host->journal.Clear();
    engine.SaveActions(L"copy");
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"SystemServices.OpenSettingsFile(20, 10, \"copy\", 0, 0)",
                            L"SettingsFile.SetSection(\"ActionsOnTestSequence\", \"\")",
                            L"SettingsFile.SetSection(\"ActionsOnTest1\", \"\")",
                            L"SettingsFile.Release()"));
    EXPECT_EQ(engine.State().FileName, L"f");
}

TEST_F(LoadActions, SaveActionsHasNoHandlerOfItsOwn) {
    engine.LoadActions(L"f", 0, aceAziChart);
    host->faults.FailOperation(L"SettingsFile.Release", 1, 70);
    EXPECT_EQ(ErrorOf([&] { engine.SaveActions(L"f"); }), 70);
    EXPECT_THAT(Reports(), testing::SizeIs(1));
}

TEST_F(LoadActions, WriteActionListsWritesAnyModuleOfTheObject) {
    engine.LoadActions(L"f", 0, aceAziChart);
    host->journal.Clear();
    engine.WriteActionLists(L"f", aceEMSAutoTemplateGeneral);
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"),
                ElementsAre(L"SettingsFile.SetSection(\"ActionsOnEMSAutoTest\", \"\")",
                            L"SettingsFile.Release()"));
}

TEST_F(LoadActions, DoesNotCloseTheDevicesOfTheListsThatItReplaces) {
    aceRemote remote;
    remote.DrvHdl = 5;
    test::Fill(engine.State().MainTest, EnterList, {test::Action(atRemote, remote)});
    engine.LoadActions(L"f", 0, aceTemplate);
    EXPECT_THAT(host->journal.LinesOf(L"GpibDriver"), testing::IsEmpty());
}

TEST_F(LoadActions, AListThatRunsCanNotBeReplaced) {
    engine.LoadActions(L"f", 1, aceTemplate);
    test::Fill(engine.State().MainTest, EnterList, {test::Action(atTestStop)});
    const DynArray<p_Action>::Hold hold(engine.State().MainTest.Enter);
    EXPECT_EQ(ErrorOf([&] { engine.LoadActions(L"f", 1, aceTemplate); }), 10);
}

TEST_F(LoadActions, AHugeCountThatAFailedLoadLeftDoesNotHoldUpTheEndOfTheObject) {
    {
        aceActionsEngine other(context);
        other.State().Modul = aceTemplate;
        other.State().MainSubrangeCount = 2147483647;
        other.State().MainSubranges.Redim(0, 0);
        other.State().MainSubranges[0].EnterCount = 2147483647;
        aceRemote remote;
        remote.DrvHdl = 5;
        test::Fill(other.State().MainTest, EnterList, {test::Action(atRemote, remote)});
        other.State().MainTest.EnterCount = 2147483647;
    }
    EXPECT_THAT(host->journal.LinesOf(L"GpibDriver"), ElementsAre(L"GpibDriver.CloseDevice(5, 0)"));
}

/// What a host needs to name the place of an error.
class PlaceOfError : public ILineObserver {
  public:
    void LineIsRead(const LineReport& report) override {
        if (report.error != 0) {
            place = L"[" + String(report.section) + L"] line " +
                    std::to_wstring(report.lineIndex + 1) + L": " + report.reason;
        }
    }
    String place;
};

TEST_F(LoadActions, TheObserverOfTheThreadLearnsThePlaceOfAnError) {
    PlaceOfError observer;
    context.LineObserver = &observer;
    host->files[L"f"] = {{L"ActionsOnTest", {L"NumOfEnterActions=1", L"EnterAction1=WAIT:1"}},
                         {L"ActionsOnSR2", {L"NumOfFreqActions=1", L"FrequAction1=SETDEV:M,x"}}};
    EXPECT_EQ(ErrorOf([&] { engine.LoadActions(L"f", 3, aceTemplate); }), 13);
    EXPECT_EQ(observer.place, L"[ActionsOnSR2] line 2: \"x\" is not a number");
}

}  // namespace
}  // namespace ace
