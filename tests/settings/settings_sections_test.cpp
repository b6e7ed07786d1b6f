#include <algorithm>

#include <ace/settings/settings_sections.h>

#include "settings/sections_fixture.h"

namespace ace {
namespace {

using test::ErrorOf;
using testing::ElementsAre;
using testing::ElementsAreArray;

struct SettingsSections : test::SectionsTest {
    std::int32_t CountOf(aceModul moduleKind) {
        return state.*FindModule(moduleKind)->AllNumbered().front().count;
    }
};

/// A plain module: how it is opened, and what it reads and writes with two numbered lists.
struct PlainModule {
    aceModul moduleKind;
    StringView kind;
    StringView settFileKind;
    std::vector<StringView> sections;
    std::vector<StringView> keys;  ///< read behind the sections
    StringView numberedWord;
};
const PlainModule PlainModules[] = {
    {aceTemplate,
     L"20",
     L"20",
     {L"ActionsOnTest", L"ActionsOnSR1", L"ActionsOnSR2"},
     {L"GetLong(\"General\", \"TemplateType\", 0)",
      L"GetLong(\"General\", \"MeasurementType\", 0)"},
     L"ActionsOnSR"},
    {aceMonitoring,
     L"25",
     L"20",
     {L"ActionsOnEutMon", L"ActionsOnMonTestLoop", L"ActionsOnChannel1", L"ActionsOnChannel2"},
     {},
     L"ActionsOnChannel"},
    {aceEMSAutoTemplateGeneral, L"26", L"26", {L"ActionsOnEMSAutoTest"}, {}, L""},
    {aceEMSAutoTemplate,
     L"26",
     L"26",
     {L"ActionsOnStep1", L"ActionsOnStep2"},
     {},
     L"ActionsOnStep"},
    {aceEMIAutoTemplate,
     L"24",
     L"24",
     {L"ActionsOnEMIAutoTest", L"ActionsOnStep1", L"ActionsOnStep2"},
     {L"GetBoolean(\"General\", \"SystemCheck\", false)"},
     L"ActionsOnStep"},
    {aceTSTemplate,
     L"29",
     L"29",
     {L"ActionsOnTestSequence", L"ActionsOnTest1", L"ActionsOnTest2"},
     {},
     L"ActionsOnTest"},
    {aceAziChart, L"37", L"37", {L"ActionsOnAzimuthChart"}, {}, L""},
};
String Opening(StringView kind) {
    return L"OpenSettingsFile(" + String(kind) + L", 10, \"f\", 0, 0)";
}

TEST_F(SettingsSections, LoadingReadsTheSectionsOfTheModuleInOrderAndReleasesTheFileLast) {
    for (const PlainModule& module : PlainModules) {
        Load(module.moduleKind, 2);
        Lines expected{Opening(module.kind)};
        for (const StringView section : module.sections) {
            expected.push_back(L"GetSection(\"" + String(section) + L"\")");
        }
        expected.insert(expected.end(), module.keys.begin(), module.keys.end());
        expected.push_back(L"Release()");
        EXPECT_THAT(TakeFileCalls(), ElementsAreArray(expected)) << module.moduleKind;
    }
}

TEST_F(SettingsSections, SavingWritesTheSectionsInTheOrderOfLoadingAndReleasesTheFileLast) {
    for (const PlainModule& module : PlainModules) {
        Load(module.moduleKind, 2);
        TakeEffects();
        Save(module.moduleKind);
        Lines expected{Opening(L"20")};
        for (const StringView section : module.sections) {
            expected.push_back(L"Write " + String(section));
        }
        expected.push_back(L"Release()");
        EXPECT_THAT(TakeSaveCalls(), ElementsAreArray(expected)) << module.moduleKind;
    }
}

TEST_F(SettingsSections, WithoutNumberedListsTheFixedOnesAndTheKeysAreStillRead) {
    for (const PlainModule& module : PlainModules) {
        Load(module.moduleKind, 0);
        Lines expected{Opening(module.kind)};
        for (const StringView section : module.sections) {
            if (module.numberedWord.empty() || !section.starts_with(module.numberedWord) ||
                section.size() != module.numberedWord.size() + 1) {
                expected.push_back(L"GetSection(\"" + String(section) + L"\")");
            }
        }
        expected.insert(expected.end(), module.keys.begin(), module.keys.end());
        expected.push_back(L"Release()");
        EXPECT_THAT(TakeFileCalls(), ElementsAreArray(expected)) << module.moduleKind;
    }
}

TEST_F(SettingsSections, SuperfluousNumberedSectionsAndOneMoreAreDeletedOnSaving) {
    for (const PlainModule& module : PlainModules) {
        if (module.numberedWord.empty()) {
            continue;
        }
        Load(module.moduleKind, 4);
        const NumberedSets& numbered = FindModule(module.moduleKind)->AllNumbered()[0];
        state.*numbered.count = 2;
        TakeEffects();
        Save(module.moduleKind);
        Lines expected{Opening(L"20")};
        for (const StringView section : module.sections) {
            expected.push_back(L"Write " + String(section));
        }
        for (const StringView number : {L"3", L"4", L"5"}) {
            expected.push_back(L"Delete " + String(module.numberedWord) + String(number));
        }
        expected.push_back(L"Release()");
        EXPECT_THAT(TakeSaveCalls(), ElementsAreArray(expected)) << module.moduleKind;
        EXPECT_EQ(state.SavedCount.*numbered.saved, 2);
    }
}

TEST_F(SettingsSections, SavingMoreListsThanWereSavedDeletesNothing) {
    Load(aceTemplate, 1);
    state.MainSubranges.RedimPreserve(2);
    state.MainSubrangeCount = 3;
    TakeEffects();
    Save(aceTemplate);
    EXPECT_THAT(TakeSaveCalls(),
                ElementsAre(Opening(L"20"), L"Write ActionsOnTest", L"Write ActionsOnSR1",
                            L"Write ActionsOnSR2", L"Write ActionsOnSR3", L"Release()"));
    EXPECT_EQ(state.SavedCount.MainSubranges, 3);
}

TEST_F(SettingsSections, SavingAnObjectThatNeverLoadedDeletesSectionsZeroAndOne) {
    Save(aceTemplate);
    EXPECT_THAT(TakeSaveCalls(),
                ElementsAre(Opening(L"20"), L"Write ActionsOnTest", L"Delete ActionsOnSR0",
                            L"Delete ActionsOnSR1", L"Release()"));
    EXPECT_EQ(state.SavedCount.MainSubranges, -1);
    Save(aceTSTemplate);
    EXPECT_THAT(TakeSaveCalls(),
                ElementsAre(Opening(L"20"), L"Write ActionsOnTestSequence", L"Release()"));
}

TEST_F(SettingsSections, ThreeSubrangesOfWhichOnlyTheSecondStandsInTheFile) {
    host->files[L"f"][L"ActionsOnSR2"] = WaitLines(7);
    host->files[L"f"][L"ActionsOnSR4"] = WaitLines(9);
    Load(aceTemplate, 3);
    EXPECT_EQ(state.MainSubrangeCount, 3);
    EXPECT_EQ(state.MainSubranges.UpperBound(), 2);
    EXPECT_EQ(state.MainSubranges[0], p_Subrange());
    EXPECT_EQ(state.MainSubranges[1], WaitSet(7));
    EXPECT_EQ(state.MainSubranges[2], p_Subrange());
}

TEST_F(SettingsSections, ASubrangeWithoutActionStillGetsItsSectionInEverySave) {
    Load(aceTemplate, 1);
    Save(aceTemplate);
    EXPECT_TRUE(host->files[L"f"].contains(L"ActionsOnSR1"));
    host->files[L"f"].clear();
    Save(aceTemplate);
    EXPECT_TRUE(host->files[L"f"].contains(L"ActionsOnSR1"));
    EXPECT_TRUE(host->files[L"f"][L"ActionsOnSR1"].empty());
}

TEST_F(SettingsSections, CountAndSavedCountBecomeTheHostsNumberAlsoBelowOne) {
    Load(aceTemplate, 2);
    Load(aceTemplate, -3);
    EXPECT_EQ(state.MainSubrangeCount, -3);
    EXPECT_EQ(state.SavedCount.MainSubranges, -3);
    EXPECT_FALSE(state.MainSubranges.IsAllocated());
}

TEST_F(SettingsSections, ALoadEmptiesThreeListsOfAFixedSetAndAllFourOfMonitoring) {
    for (const ModuleRow& module : ModuleTable) {
        for (const FixedSet& fixed : module.AllFixed()) {
            const String section(fixed.section);
            host->files[L"f"] = {{section, {L"Remark=no count line: nothing"}},
                                 {L"ActionsOnVKSTemplate_3", {L"Count=0"}}};
            for (const ListFields& list : ActionLists) {
                test::Fill(state.*fixed.set, list, {test::Action(atTestStop)});
            }
            Load(module.moduleKind, module.moduleKind == aceVKSDUT ? 3 : 0);
            p_Subrange expected;
            if (module.moduleKind != aceMonitoring) {
                test::Fill(expected, MlcList, {test::Action(atTestStop)});
            }
            EXPECT_EQ(state.*fixed.set, expected) << module.moduleKind;
        }
    }
}

TEST_F(SettingsSections, TheFilesNameIsKeptInTheRowOfItsModule) {
    for (const ModuleRow& module : ModuleTable) {
        std::int32_t subRanges = 0;
        ReadActionLists(state, std::to_wstring(module.moduleKind), subRanges, module.moduleKind);
    }
    EXPECT_THAT(context.ModuleFileNames,
                ElementsAre(L"0", L"1", L"3", L"4", L"5", L"6", L"7", L"8"));
}

TEST_F(SettingsSections, GetSettFileOpensTheFileOfTheModuleByItsOwnKind) {
    const StringView kinds[] = {L"20", L"20", L"26", L"26", L"24", L"29", L"37", L"301", L"302"};
    context.ModuleFileNames.fill(L"f");
    for (std::int32_t moduleKind = 0; moduleKind < ModulCount; ++moduleKind) {
        state.Modul = static_cast<aceModul>(moduleKind);
        EXPECT_NE(GetSettFile(state), nullptr);
        EXPECT_NE(OpenModuleSettings(context, state.Modul), nullptr);
        const String opening = Opening(kinds[moduleKind]);
        EXPECT_THAT(TakeFileCalls(), ElementsAre(opening, opening));
    }
}

TEST_F(SettingsSections, GetSettFileGivesNoObjectOutsideTheModules) {
    for (const std::int32_t moduleKind : {-1, 9}) {
        state.Modul = static_cast<aceModul>(moduleKind);
        EXPECT_EQ(GetSettFile(state), nullptr);
    }
    state.Modul = aceTemplate;
    host->missingFiles = {L""};
    EXPECT_EQ(GetSettFile(state), nullptr);
    TakeEffects();
    host->faults.FailOperation(L"SystemServices", 1, 70);
    EXPECT_EQ(ErrorOf([&] { GetSettFile(state); }), 70);
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), testing::SizeIs(1));
}

TEST_F(SettingsSections, WithoutSettingsObjectLoadingAndSavingEndInSilence) {
    host->missingFiles = {L"f"};
    state.MainTest = WaitSet(1);
    state.ChangeFlags[aceTemplate] = true;
    Load(aceTemplate, 2);
    Save(aceTemplate);
    EXPECT_THAT(TakeFileCalls(), ElementsAre(Opening(L"20"), Opening(L"20")));
    EXPECT_EQ(state.MainTest, WaitSet(1));
    EXPECT_EQ(state.MainSubrangeCount, -1);
    EXPECT_TRUE(state.ChangeFlags[aceTemplate]);
    EXPECT_EQ(context.ModuleFileNames[0], L"f");
}

TEST_F(SettingsSections, AKindOutsideTheModulesIsNotOpenedForLoadingAndOnlyReleasedOnSaving) {
    Load(static_cast<aceModul>(9), 2);
    EXPECT_THAT(TakeFileCalls(), ElementsAre());
    Save(static_cast<aceModul>(9));
    EXPECT_THAT(TakeFileCalls(), ElementsAre(Opening(L"20"), L"Release()"));
}

TEST_F(SettingsSections, SavingClearsTheChangeFlagOfItsModuleBeforeTheRelease) {
    state.ChangeFlags.fill(true);
    host->faults.FailOperation(L"SettingsFile.Release", 1, 70);
    EXPECT_EQ(ErrorOf([&] { Save(aceAziChart); }), 70);
    for (std::size_t i = 0; i < state.ChangeFlags.size(); ++i) {
        EXPECT_EQ(state.ChangeFlags[i], i != std::size_t{aceAziChart});
    }
}

TEST_F(SettingsSections, EverySaveClearsTheFlagOfItsModuleAlone) {
    for (const ModuleRow& module : ModuleTable) {
        state.ChangeFlags.fill(true);
        Save(module.moduleKind);
        for (std::size_t i = 0; i < state.ChangeFlags.size(); ++i) {
            EXPECT_EQ(state.ChangeFlags[i], i != static_cast<std::size_t>(module.moduleKind));
        }
    }
}

TEST_F(SettingsSections, LoadingLeavesTheChangeFlagsAlone) {
    state.ChangeFlags.fill(true);
    Load(aceTemplate, 1);
    EXPECT_TRUE(state.ChangeFlags[aceTemplate]);
}

TEST_F(SettingsSections, MoreThanAHundredThousandListsAreOutOfMemoryAndReplaceNothing) {
    for (const PlainModule& module : PlainModules) {
        if (module.numberedWord.empty()) {
            Load(module.moduleKind, 2147483647);
            continue;
        }
        Load(module.moduleKind, 2);
        TakeEffects();
        EXPECT_EQ(ErrorOf([&] { Load(module.moduleKind, 100001); }), 7) << module.moduleKind;
        EXPECT_EQ(CountOf(module.moduleKind), 2) << module.moduleKind;
        EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"), testing::IsEmpty())
            << module.moduleKind;
    }
    host->faults.FailOperation(L"SettingsFile.GetSection", 2, 70);
    EXPECT_EQ(ErrorOf([&] { Load(aceTemplate, 100000); }), 70) << "at the first of them";
    EXPECT_EQ(state.MainSubrangeCount, 100000);
}

TEST_F(SettingsSections, TheNumberOfAMatrixTemplateMayBeAny) {
    Load(aceVKSDUT, 100001);
    EXPECT_EQ(state.VKSDUTTemplate, 100001);
    EXPECT_EQ(ErrorOf([&] { Load(aceVKSTemplate, 100001); }), 7);
}

TEST_F(SettingsSections, ABadLineEndsTheLoadOfTheWholeModuleThere) {
    host->files[L"f"] = {{L"ActionsOnTest", WaitLines(1)},
                         {L"ActionsOnSR1", {L"; remark"}},
                         {L"ActionsOnSR2", WaitLines(2)}};
    EXPECT_EQ(ErrorOf([&] { Load(aceTemplate, 2); }), 5);
    EXPECT_EQ(state.MainTest, WaitSet(1));
    EXPECT_EQ(state.MainSubrangeCount, 2);
    EXPECT_EQ(state.MainSubranges[1], p_Subrange());
    EXPECT_THAT(TakeFileCalls(),
                ElementsAre(Opening(L"20"), L"GetSection(\"ActionsOnTest\")",
                            L"GetSection(\"ActionsOnSR1\")",
                            L"TraceLog.ReportError(5, \"invalid procedure call\", 1)",
                            L"TraceLog.ReportError(5, \"invalid procedure call\", 1)"));
}

/// The call of line `k` (from 0) in the undisturbed run, when it alone fails and is run again.
std::vector<String> WithOneFailure(std::vector<String> lines, std::size_t k) {
    const std::vector<String> failed{lines[k] + L" -> error 70",
                                     L"TraceLog.ReportError(70, \"scripted failure\", 1)"};
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(k), failed.begin(), failed.end());
    return lines;
}
/// Which call of its operation line `k` (from 0) is.
std::size_t OccurrenceOf(const std::vector<String>& lines, std::size_t k, StringView operation) {
    return static_cast<std::size_t>(
        std::count_if(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(k) + 1,
                      [&](const String& line) { return line.starts_with(operation); }));
}

TEST_F(SettingsSections, AHostCallThatFailsOnceIsRunAgainWhenTheLogSaysSo) {
    const sim::SimSections wireless = sim::ParseSections(
        L"[ActionsOnTest1_VKS]\nVKS_UKey=A\nSUBSTEPS=1\n[ActionsOnStepA_1_VKS]\nVKS_Key=a\n"
        L"[ActionsOnVKSTemplate_3]\nCount=1\n");
    for (const ModuleRow& module : ModuleTable) {
        const auto loadAndSave = [&] {
            host->files[L"f"] = wireless;
            Load(module.moduleKind, module.moduleKind == aceVKSDUT ? 3 : 1);
            Save(module.moduleKind);
            return TakeEffects();
        };
        host->faults.Clear();
        const Lines undisturbed = loadAndSave();
        for (std::size_t k = 0; k < undisturbed.size(); ++k) {
            const String operation = undisturbed[k].substr(0, undisturbed[k].find(L'('));
            host->reportAnswers = {ITraceLog::RetryStatement};
            host->faults.Clear();
            host->faults.FailOperation(operation, OccurrenceOf(undisturbed, k, operation), 70);
            EXPECT_THAT(loadAndSave(), ElementsAreArray(WithOneFailure(undisturbed, k)))
                << module.moduleKind << " call " << k;
        }
    }
}

TEST_F(SettingsSections, AHostCallThatFailsIsRaisedAndNothingFollowsIt) {
    for (const ModuleRow& module : ModuleTable) {
        host->faults.Clear();
        Load(module.moduleKind, 1);
        Save(module.moduleKind);
        const Lines undisturbed = TakeEffects();
        for (std::size_t k = 1; k <= undisturbed.size(); ++k) {
            if (undisturbed[k - 1].starts_with(L"SettingsFile.GetLong(\"General\"")) {
                continue;  // the two keys that never fail a load
            }
            host->faults.Clear();
            host->faults.FailOperation(L"S", k, 70);  // system services and settings files
            EXPECT_EQ(ErrorOf([&] {
                          Load(module.moduleKind, 1);
                          Save(module.moduleKind);
                      }),
                      70);
            const Lines effects = TakeEffects();
            ASSERT_GT(effects.size(), k);
            EXPECT_TRUE(effects[k - 1].ends_with(L" -> error 70"));
            for (std::size_t i = k; i < effects.size(); ++i) {
                EXPECT_TRUE(effects[i].starts_with(L"TraceLog.ReportError(70"))
                    << module.moduleKind;
            }
        }
    }
}

}  // namespace
}  // namespace ace
