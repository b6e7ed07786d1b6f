#include <ace/core/module_columns.h>

#include "editor/edited_moments.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String Form = L"frmEditor (Code)";

String Removed(const String& key) {
    return L"Tree.Remove(\"" + key + L"\")";
}
String Collapsed(const String& key) {
    return L"Tree.SetExpanded(\"" + key + L"\", false)";
}
void Erase(p_Subrange& set, const ListFields& list) {
    set.*list.count = 0;
    (set.*list.actions).Erase();
}

class DeleteActions : public EveryModule {
  protected:
    /// Both the editor's lists and the store's have these; all others are as they were.
    void ExpectLists(const ModuleLists& expected) {
        EXPECT_EQ(Store(), expected);
        const EngineState& state = State();
        ModuleLists edited = expected;
        CopyModule(state.Modul, CopyFor::Editor, Parts().lists, edited);
        EXPECT_EQ(edited, expected);
    }
    void Delete(const String& key) {
        Select(key);
        DeleteAction(Parts());
    }
};

// ---- lines -------------------------------------------------------------------------------------

TEST_F(DeleteActions, ADeletedLineLeavesTheOthersInTheirOrder) {
    OpenModule(aceTemplate);
    const DynArray<p_Action> before = Store().MainTest.Freq;
    Delete(L"CHI1EFR");
    EXPECT_EQ(Store().MainTest.FreqCount, 2);
    EXPECT_EQ(Store().MainTest.Freq.UpperBound(), 1);
    EXPECT_EQ(Store().MainTest.Freq[0], before[0]);
    EXPECT_EQ(Store().MainTest.Freq[1], before[2]);
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeleteActions, ADeletedLineIsTakenFromItsMomentWhichStaysExpanded) {
    Fill(State().MainTest, EnterList, {WaitFor(1000), WaitFor(2000)});
    OpenModule(aceTemplate);
    Select(L"CHI0ETE");
    host->tracing = true;
    DeleteAction(Parts());
    EXPECT_EQ(
        TakeEffects(),
        Journal(Start(Form, L"DeleteAction", L""), Start(Form, L"GetPosition", L""),
                End(L"GetPosition"), Start(Form, L"DisplayTree", L"PerfTime = 0, Subrange = 0"),
                Removed(L"CHI0ETE"), Removed(L"CHI1ETE"),
                L"Tree.AddChild(\"ETE\", \"CHI0ETE\", \"T(9063): 2.000 s\", \"WAI\")",
                L"Tree.SetExpanded(\"ETE\", true)", End(L"DisplayTree"), End(L"DeleteAction")));
}

TEST_F(DeleteActions, TheLastLineOfAListGoesWithTheArray) {
    OpenModule(aceTemplate);
    Delete(L"CHI0ESR1");
    EXPECT_FALSE(Store().MainSubranges[1].Enter.IsAllocated());
    EXPECT_EQ(Store().MainSubranges[1].EnterCount, 0);
    EXPECT_THAT(LinesBelow(L"ESR1"), IsEmpty());
    EXPECT_TRUE(tree.IsExpanded(tree.Find(L"ESR1")));
}

TEST_F(DeleteActions, ALineIsShownGoneBeforeTheStoreHearsOfIt) {
    OpenModule(aceTemplate);
    Select(L"CHI0EFR");
    host->faults.FailOperation(L"Tree.SetExpanded", 1, 57);
    EXPECT_EQ(ErrorOf([&] { DeleteAction(Parts()); }), 57);
    EXPECT_EQ(Parts().lists.MainTest.FreqCount, 2);
    EXPECT_EQ(Store().MainTest.FreqCount, 3);
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeleteActions, BehindAnEntryWithoutALineADeletionHitsTheOneBefore) {
    Fill(State().MainTest, EnterList, {WaitFor(1000), Broken(), WaitFor(3000)});
    OpenModule(aceTemplate);
    Delete(L"CHI2ETE");
    EXPECT_EQ(Store().MainTest.EnterCount, 2);
    EXPECT_EQ(Store().MainTest.Enter[0], WaitFor(1000));
    EXPECT_EQ(Store().MainTest.Enter[1], WaitFor(3000));
}

TEST_F(DeleteActions, TheMomentOfADeletedLineIsSelectedAsTreesDo) {
    OpenModule(aceTemplate);
    Delete(L"CHI0EFR");
    EXPECT_EQ(tree.Key(tree.Selected()), L"EFR");
}

// ---- moments -----------------------------------------------------------------------------------

class ClearedMoments : public DeleteActions, public ::testing::WithParamInterface<EditedMoment> {
  protected:
    /// The global lists of the matrix can be emptied line by line only.
    static bool IsClearable(const EditedMoment& moment) { return moment.matrix == RowsAsRoots; }
};

TEST_P(ClearedMoments, AClearedMomentIsEmptyCollapsedAndAllOthersStay) {
    const EditedMoment& moment = GetParam();
    OpenModule(moment.moduleKind, moment.matrix);
    ModuleLists expected = Store();
    if (IsClearable(moment)) {
        Erase(moment.SetOf(expected), moment.list);
    }
    const String key(moment.key);
    tree.SetExpanded(tree.Find(key), true);
    Delete(key);
    ExpectLists(expected);
    EXPECT_EQ(LinesBelow(key).empty(), IsClearable(moment));
    EXPECT_EQ(tree.IsExpanded(tree.Find(key)), !IsClearable(moment));
    EXPECT_EQ(engine->Change(), IsClearable(moment));
}

TEST_P(ClearedMoments, AnEmptyMomentThatIsClearedIsAChange) {
    const EditedMoment& moment = GetParam();
    Erase(moment.SetOf(State()), moment.list);
    OpenModule(moment.moduleKind, moment.matrix);
    const ModuleLists before = Store();
    Delete(String(moment.key));
    ExpectLists(before);
    EXPECT_EQ(engine->Change(), IsClearable(moment));
}
INSTANTIATE_TEST_SUITE_P(Moments, ClearedMoments, ::testing::ValuesIn(EditedMoments),
                         [](const auto& row) { return row.param.name; });

// ---- groups ------------------------------------------------------------------------------------

TEST_F(DeleteActions, ASubrangeIsClearedWithBothItsMoments) {
    OpenModule(aceTemplate);
    ModuleLists expected = Store();
    Erase(expected.MainSubranges[1], EnterList);
    Erase(expected.MainSubranges[1], LeaveList);
    Delete(L"SUR1");
    EXPECT_EQ(TakeEffects(), Journal(Removed(L"CHI0ESR1"), Collapsed(L"ESR1"), Removed(L"CHI0LSR1"),
                                     Removed(L"CHI1LSR1"), Collapsed(L"LSR1")));
    ExpectLists(expected);
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeleteActions, AChannelIsClearedWithItsThreeMoments) {
    OpenModule(aceMonitoring);
    ModuleLists expected = Store();
    Erase(expected.MoniChannels[0], FreqList);
    Erase(expected.MoniChannels[0], EnterList);
    Erase(expected.MoniChannels[0], LeaveList);
    Delete(L"CHA0");
    EXPECT_EQ(TakeEffects(),
              Journal(Removed(L"CHI0TRI0"), Removed(L"CHI1TRI0"), Removed(L"CHI2TRI0"),
                      Collapsed(L"TRI0"), Removed(L"CHI0NGO0"), Collapsed(L"NGO0"),
                      Removed(L"CHI0GOE0"), Removed(L"CHI1GOE0"), Collapsed(L"GOE0")));
    ExpectLists(expected);
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeleteActions, AGroupTellsTheStoreOnceWhenAllItsMomentsAreShown) {
    OpenModule(aceMonitoring);
    Select(L"CHA0");
    host->faults.FailOperation(L"Tree.SetExpanded", 3, 57);
    EXPECT_EQ(ErrorOf([&] { DeleteAction(Parts()); }), 57);
    EXPECT_EQ(Parts().lists.MoniChannels[0].LeaveCount, 0);
    EXPECT_EQ(Store().MoniChannels[0].FreqCount, 3);
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeleteActions, AWirelessGroupIsRedrawnWithTheMomentThatIsCleared) {
    OpenModule(aceVKSTemplate);
    Delete(L"ATT1");
    EXPECT_EQ(TakeEffects(), Journal(Removed(L"CHI0ATT1"), Removed(L"CHI1ATT1"), Collapsed(L"ATT1"),
                                     Collapsed(L"TST1"), L"Tree.SetExpanded(\"TST1\", true)"));
}

struct KeptGroup {
    const char* name;
    aceModul moduleKind;
    StringView key;
    std::int32_t matrix = RowsAsRoots;
};
const KeptGroup KeptGroups[] = {
    {"Loop", aceMonitoring, L"ATL"},
    {"Subtest", aceEMIAutoTemplate, L"EMI1"},
    {"TestOfASequence", aceTSTemplate, L"TST1"},
    {"WirelessTest", aceVKSTemplate, L"TST1"},
    {"RowWithoutLists", aceVKSDUT, L"STE-1"},
    {"BeforeTheMatrix", aceVKSDUT, L"BSA", GlobalLists},
    {"AfterTheMatrix", aceVKSDUT, L"ASA", GlobalLists},
};

class KeptGroupsTest : public DeleteActions, public ::testing::WithParamInterface<KeptGroup> {};

TEST_P(KeptGroupsTest, AGroupThatIsNotClearedStaysAsItIsAndIsNoChange) {
    OpenModule(GetParam().moduleKind, GetParam().matrix);
    const ModuleLists before = Store();
    Select(String(GetParam().key));
    host->tracing = true;
    DeleteAction(Parts());
    EXPECT_EQ(TakeEffects(), Journal(Start(Form, L"DeleteAction", L""), End(L"DeleteAction")));
    ExpectLists(before);
    EXPECT_FALSE(engine->Change());
}
INSTANTIATE_TEST_SUITE_P(Groups, KeptGroupsTest, ::testing::ValuesIn(KeptGroups),
                         [](const auto& row) { return row.param.name; });

TEST_F(DeleteActions, ANodeOfTheHostsOwnIsNotCleared) {
    OpenModule(aceTemplate);
    const ModuleLists before = Store();
    tree.AddRoot(L"XYZ1", L"", L"");
    Delete(L"XYZ1");
    ExpectLists(before);
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeleteActions, TheGlobalListsOfTheMatrixLoseALineAsAllOthers) {
    OpenModule(aceVKSDUT, GlobalLists);
    ModuleLists expected = Store();
    expected.VKSDUTGlob.Leave[0] = expected.VKSDUTGlob.Leave[1];
    expected.VKSDUTGlob.Leave.RedimPreserve(0);
    expected.VKSDUTGlob.LeaveCount = 1;
    Delete(L"CHI0ASA");
    ExpectLists(expected);
    EXPECT_TRUE(engine->Change());
    EXPECT_THAT(LinesBelow(L"ASA"), ElementsAre(::testing::_));
}

}  // namespace
}  // namespace ace::test
