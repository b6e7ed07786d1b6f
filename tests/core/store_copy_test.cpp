/// An edit hands all lists of its module to the store, which is then what a copy of everything
/// would make of it; what is equal stays where it is.
#include <cmath>
#include <functional>
#include <limits>

#include <ace/core/module_columns.h>
#include <ace/core/module_table.h>

#include "core/opaque_device.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using L = ModuleLists;

/// The whole copy of a module for the store, field by field.
struct WholeCopy {
    aceModul moduleKind;
    void (*make)(const L& from, L& to);
};
const WholeCopy WholeCopies[] = {
    {aceTemplate,
     [](const L& from, L& to) {
         to.MainSubrangeCount = from.MainSubrangeCount;
         to.MainSubranges = from.MainSubranges;
         to.MainTest = from.MainTest;
     }},
    {aceMonitoring,
     [](const L& from, L& to) {
         to.MoniChannelCount = from.MoniChannelCount;
         to.MoniChannels = from.MoniChannels;
         to.MoniEut = from.MoniEut;
         to.MoniLoop = from.MoniLoop;
     }},
    {aceEMSAutoTemplateGeneral,
     [](const L& from, L& to) { to.EMSAutoGeneral = from.EMSAutoGeneral; }},
    {aceEMSAutoTemplate,
     [](const L& from, L& to) {
         to.EMSAutoStepCount = from.EMSAutoStepCount;
         to.EMSAutoSteps = from.EMSAutoSteps;
     }},
    {aceEMIAutoTemplate,
     [](const L& from, L& to) {
         to.EMIAutoStepCount = from.EMIAutoStepCount;
         to.EMIAutoSteps = from.EMIAutoSteps;
         to.EMIAutoTest = from.EMIAutoTest;
     }},
    {aceTSTemplate,
     [](const L& from, L& to) {
         to.TSTestCount = from.TSTestCount;
         to.TSTests = from.TSTests;
         to.TSTest = from.TSTest;
     }},
    {aceAziChart, [](const L& from, L& to) { to.AziChart = from.AziChart; }},
    {aceVKSTemplate,
     [](const L& from, L& to) {
         to.VKSTestCount = from.VKSTestCount;
         to.VKSTests = from.VKSTests;
         to.VKSTemplate = from.VKSTemplate;
         to.VKSStepCount = from.VKSStepCount;
         to.VKSSteps = from.VKSSteps;
     }},
    {aceVKSDUT,
     [](const L& from, L& to) {
         to = from;  // nothing else is filled here
     }},
};

/// An action of each kind that a run writes to.
p_Subrange Written() {
    p_Subrange set;
    for (const ListFields& list : ActionLists) {
        Fill(set, list,
             {Action(atWait, aceWait{5}), Action(atRemote, aceRemote()), Action(atAPI, aceAPI()),
              Action(atSetDevice, aceSetDevice()), Action(atTrackFreq, aceTrackFreq())});
    }
    return set;
}

/// Three elements, the first one without actions.
DynArray<p_Subrange> ThreeSets() {
    DynArray<p_Subrange> sets;
    sets.Redim(0, 2);
    sets[1] = sets[2] = Written();
    return sets;
}

L FilledLists(aceModul moduleKind) {
    L lists;
    for (const FixedSet& fixed : ModuleTable[moduleKind].AllFixed()) {
        lists.*fixed.set = Written();
    }
    for (const NumberedSets& numbered : ModuleTable[moduleKind].AllNumbered()) {
        lists.*numbered.sets = ThreeSets();
        lists.*numbered.count = 3;
    }
    return lists;
}

/// The sets of a module that have actions.
std::vector<p_Subrange*> FullSets(L& lists, aceModul moduleKind) {
    std::vector<p_Subrange*> sets;
    for (const FixedSet& fixed : ModuleTable[moduleKind].AllFixed()) {
        sets.push_back(&(lists.*fixed.set));
    }
    for (const NumberedSets& numbered : ModuleTable[moduleKind].AllNumbered()) {
        sets.push_back(&(lists.*numbered.sets)[1]);
        sets.push_back(&(lists.*numbered.sets)[2]);
    }
    return sets;
}

/// Hands `editor` to `store` and compares with the whole copy.
void ExpectAsWholeCopy(const WholeCopy& whole, const L& editor, L store) {
    L expected = store;
    whole.make(editor, expected);
    CopyModule(whole.moduleKind, CopyFor::Store, editor, store);
    EXPECT_EQ(store, expected) << whole.moduleKind;
}

// ---- what a run has written --------------------------------------------------------------------

struct RunWrite {
    std::string name;
    std::function<void(DynArray<p_Action>& actions)> write;
};
/// Puts a device into the field of the action that has such a record.
template <class Record, class Interface>
RunWrite Reference(const std::string& name, std::shared_ptr<Interface> Record::*field,
                   const OpaqueDevice& device) {
    constexpr std::int32_t Place = std::is_same_v<Record, aceSetDevice> ? 3 : 4;
    return {name, [=, reference = device.As<Interface>()](DynArray<p_Action>& actions) {
                RecordOf<Record>(actions[Place]).*field = reference;
            }};
}
std::vector<RunWrite> RunWrites(const OpaqueDevice& device) {
    using Set = aceSetDevice;
    using Track = aceTrackFreq;
    return {
        {"IgnoreErr", [](auto& actions) { actions[0].IgnoreErr = true; }},
        {"DrvHdl", [](auto& actions) { RecordOf<aceRemote>(actions[1]).DrvHdl = 3; }},
        {"ProgID", [](auto& actions) { RecordOf<aceRemote>(actions[1]).ProgID = 42; }},
        {"placeholders", [](auto& actions) { RecordOf<aceRemote>(actions[1]).vks.count = 1; }},
        {"Freq of a macro", [](auto& actions) { RecordOf<aceAPI>(actions[2]).Freq = 30e6; }},
        {"LastCheck", [](auto& actions) { RecordOf<Set>(actions[3]).LastCheck = 7.5F; }},
        Reference("Device", &Set::Device, device),
        Reference("MoniDev", &Set::MoniDev, device),
        Reference("BcGen", &Set::BcGen, device),
        Reference("AmplDev", &Set::AmplDev, device),
        Reference("SwitchDev", &Set::SwitchDev, device),
        Reference("SigPath", &Set::SigPath, device),
        {"Freq of a device", [](auto& actions) { RecordOf<Track>(actions[4]).Freq = 30e6; }},
        Reference("MoniDev that follows", &Track::MoniDev, device),
        Reference("GenDev", &Track::GenDev, device),
        Reference("SigPath that follows", &Track::SigPath, device),
        Reference("CalTable", &Track::CalTable, device),
        {"the frequency alone",
         [](auto& actions) { actions[4].Parameter = std::int32_t{30000000}; }},
    };
}

TEST(StoreCopyTest, WhatARunHasWrittenIsOverwrittenAsByAWholeCopy) {
    const OpaqueDevice device;
    for (const WholeCopy& whole : WholeCopies) {
        const L editor = FilledLists(whole.moduleKind);
        L store = editor;
        const std::vector<p_Subrange*> sets = FullSets(store, whole.moduleKind);
        std::size_t turn = 0;
        for (const RunWrite& run : RunWrites(device)) {
            SCOPED_TRACE(run.name);
            for (p_Subrange* set : sets) {
                const p_Subrange before = *set;
                run.write(set->*ActionLists[turn++ % std::size(ActionLists)].actions);
                EXPECT_FALSE(store == editor);
                ExpectAsWholeCopy(whole, editor, store);
                *set = before;
            }
        }
    }
}

TEST(StoreCopyTest, WhatTheEditorStillHoldsOfARunComesBackAsByAWholeCopy) {
    const OpaqueDevice device;
    for (const WholeCopy& whole : WholeCopies) {
        const L store = FilledLists(whole.moduleKind);
        for (const RunWrite& run : RunWrites(device)) {
            SCOPED_TRACE(run.name);
            L editor = store;
            run.write(FullSets(editor, whole.moduleKind).back()->Enter);
            ExpectAsWholeCopy(whole, editor, store);
        }
    }
}

// ---- elements that came and went ---------------------------------------------------------------

/// Each stands in the editor, and each in the store.
std::vector<DynArray<p_Subrange>> OtherBounds() {
    std::vector<DynArray<p_Subrange>> others(5);
    others[1].Redim(0, 0);
    others[2].Redim(0, 9);
    others[3].Redim(1, 3);
    others[4] = ThreeSets();
    return others;
}

TEST(StoreCopyTest, AfterElementsCameOrWentTheBoundsAreThoseOfTheEditor) {
    for (const WholeCopy& whole : WholeCopies) {
        for (const DynArray<p_Subrange>& editors : OtherBounds()) {
            for (const DynArray<p_Subrange>& stored : OtherBounds()) {
                L editor = FilledLists(whole.moduleKind);
                L store = editor;
                for (const NumberedSets& numbered : ModuleTable[whole.moduleKind].AllNumbered()) {
                    editor.*numbered.sets = editors;
                    store.*numbered.sets = stored;
                }
                ExpectAsWholeCopy(whole, editor, store);
            }
        }
    }
}

TEST(StoreCopyTest, ACountThatAloneHasChangedIsCopied) {
    for (const WholeCopy& whole : WholeCopies) {
        const L editor = FilledLists(whole.moduleKind);
        L store = editor;
        for (const NumberedSets& numbered : ModuleTable[whole.moduleKind].AllNumbered()) {
            store.*numbered.count = 2;
        }
        ExpectAsWholeCopy(whole, editor, store);
    }
}

TEST(StoreCopyTest, ACountAloneOfAnyListMakesItsElementAnother) {
    for (const ListFields& list : ActionLists) {
        L editor = FilledLists(aceTemplate);
        const L store = editor;
        editor.MainSubranges[0].*list.count = 1;
        ExpectAsWholeCopy(WholeCopies[aceTemplate], editor, store);
    }
}

TEST(StoreCopyTest, TheFifthListIsHandedOnWithTheOthers) {
    L editor = FilledLists(aceTemplate);
    const L store = editor;
    editor.MainSubranges[0].Util.Redim(0, 0);
    ExpectAsWholeCopy(WholeCopies[aceTemplate], editor, store);
}

// ---- what is equal stays -----------------------------------------------------------------------

TEST(StoreCopyTest, EqualSetsStayWhereTheyAreAndTheEditedOneIsReplaced) {
    L store = FilledLists(aceTemplate);
    L editor = store;
    editor.MainSubranges[2].Leave[1].ActionType = atTestStop;
    const p_Action* const fixed = &store.MainTest.Enter[0];
    const p_Action* const equal = &store.MainSubranges[1].Enter[0];
    CopyModule(aceTemplate, CopyFor::Store, editor, store);
    EXPECT_EQ(&store.MainTest.Enter[0], fixed);
    EXPECT_EQ(&store.MainSubranges[1].Enter[0], equal);
    EXPECT_EQ(store.MainSubranges[2].Leave[1].ActionType, atTestStop);
    EXPECT_EQ(store, editor);
}

TEST(StoreCopyTest, AnElementThatIsReplacedSharesNothingWithTheEditor) {
    L editor = FilledLists(aceTemplate);
    L store = editor;
    editor.MainSubranges[1].EnterCount = 4;
    CopyModule(aceTemplate, CopyFor::Store, editor, store);
    editor.MainSubranges[1].Enter[0].ActionType = atTestStop;
    EXPECT_EQ(store.MainSubranges[1].Enter[0].ActionType, atWait);
}

/// A matrix of three rows with its tables.
L Matrix() {
    L lists = FilledLists(aceVKSDUT);
    lists.VKSDUTIds.Redim(0, 2, 0, 2);
    lists.VKSDUTFreqs.Redim(0, 1);
    lists.VKSDUTFreqNames.Redim(0, 1);
    lists.VKSDUTFreqNames[1] = L"2.4 GHz";
    return lists;
}

TEST(StoreCopyTest, EqualKeysAndTablesOfAMatrixCountNoChange) {
    const L editor = Matrix();
    L store = editor;
    const auto changes = [&] {
        return std::vector{store.VKSDUTIds.Changes(), store.VKSDUTFreqs.Changes(),
                           store.VKSDUTFreqNames.Changes()};
    };
    const std::vector<std::uint32_t> before = changes();
    store.VKSSteps[1].EnterCount = 4;
    CopyModule(aceVKSDUT, CopyFor::Store, editor, store);
    EXPECT_EQ(changes(), before);
    EXPECT_EQ(store, editor);
}

TEST(StoreCopyTest, KeysAndTablesOfAMatrixThatDifferAreCopiedAndCountAChange) {
    const L editor = Matrix();
    L store = editor;
    store.VKSDUTIds(2, 2) = 7;
    store.VKSDUTFreqs[1] = 80e6;
    store.VKSDUTFreqNames[1] = L"80 MHz";
    const std::uint32_t before = store.VKSDUTIds.Changes();
    CopyMatrix(editor, store);
    EXPECT_EQ(store, editor);
    EXPECT_NE(store.VKSDUTIds.Changes(), before);
}

TEST(StoreCopyTest, KeysOfOtherBoundsAreCopied) {
    L editor = Matrix();
    for (const auto& [rows, columns] : {std::pair{1, 2}, {2, 1}, {8, 0}}) {
        L store = editor;
        store.VKSDUTIds.Redim(0, rows, 0, columns);
        CopyMatrix(editor, store);
        EXPECT_EQ(store, editor) << rows << ", " << columns;
    }
    L store = editor;
    editor.VKSDUTIds.Erase();
    CopyMatrix(editor, store);
    EXPECT_FALSE(store.VKSDUTIds.IsAllocated());
    CopyMatrix(Matrix(), store);
    EXPECT_EQ(store, Matrix());
}

// ---- numbers that compare in their own way -----------------------------------------------------

double& FirstTime(L& lists) {
    return RecordOf<aceWait>(lists.MainSubranges[1].Enter[0]).Time;
}

TEST(StoreCopyTest, WhatIsNoNumberIsCopied) {
    L editor = FilledLists(aceTemplate);
    FirstTime(editor) = std::numeric_limits<double>::quiet_NaN();
    editor.MainTest = editor.MainSubranges[1];
    L store = editor;
    RecordOf<aceRemote>(store.MainTest.Enter[1]).DrvHdl = 3;
    FirstTime(store) = 5;
    CopyModule(aceTemplate, CopyFor::Store, editor, store);
    EXPECT_TRUE(std::isnan(FirstTime(store)));
    EXPECT_EQ(RecordOf<aceRemote>(store.MainTest.Enter[1]).DrvHdl, aceRemote::NoHandle);
}

TEST(StoreCopyTest, AKeyThatIsNoNumberIsEqualToItself) {
    L editor = Matrix();
    editor.VKSDUTIds(0, 0) = std::numeric_limits<double>::quiet_NaN();
    L store = editor;
    const std::uint32_t before = store.VKSDUTIds.Changes();
    CopyMatrix(editor, store);
    EXPECT_EQ(store.VKSDUTIds.Changes(), before);
    store.VKSDUTIds(0, 0) = 0;
    CopyMatrix(editor, store);
    EXPECT_TRUE(std::isnan(store.VKSDUTIds(0, 0)));
}

TEST(StoreCopyTest, BothZerosAreOneNumberInARecordAndTwoInAKey) {
    L editor = FilledLists(aceTemplate);
    FirstTime(editor) = 0.0;
    editor.VKSDUTIds.Redim(0, 0, 0, 2);
    L store = editor;
    FirstTime(store) = store.VKSDUTIds(0, 0) = -0.0;
    CopyModule(aceTemplate, CopyFor::Store, editor, store);
    CopyMatrix(editor, store);
    EXPECT_TRUE(std::signbit(FirstTime(store)));
    EXPECT_FALSE(std::signbit(store.VKSDUTIds(0, 0)));
}

// ---- while a list runs -------------------------------------------------------------------------

TEST(StoreCopyTest, EqualListsAreRefusedToo) {
    const L editor = FilledLists(aceMonitoring);
    L store = editor;
    const DynArray<p_Subrange>::Hold hold(store.MoniChannels);
    EXPECT_EQ(ErrorOf([&] { CopyModule(aceMonitoring, CopyFor::Store, editor, store); }), 10);
    EXPECT_EQ(store, editor);
}

}  // namespace
}  // namespace ace::test
