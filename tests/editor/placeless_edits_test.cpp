#include <ace/editor/moment_tree.h>

#include "editor/edited_moments.h"

namespace ace::test {
namespace {

using ::testing::IsEmpty;

/// An operation on the selected node, by the name of its trace lines.
struct Operated {
    const char* name;
    void (*act)(EditorParts& parts);
};
const Operated OnTheSelected[] = {
    {"AddAction", [](EditorParts& parts) { AddAction(parts, true); }},
    {"ModifyAction", [](EditorParts& parts) { ModifyAction(parts); }},
    {"DeleteAction", [](EditorParts& parts) { DeleteAction(parts); }},
    {"GetAction", [](EditorParts& parts) { GetAction(parts); }},
    {"GetSelectedList",
     [](EditorParts& parts) {
         std::int32_t count = 5;
         std::int32_t index = 6;
         GetSelectedList(parts, count, index);
         EXPECT_EQ(count, 5) << "as it came";
         EXPECT_EQ(index, 6) << "as it came";
     }},
};

class PlacelessEdits : public EveryModule, public ::testing::WithParamInterface<Operated> {
  protected:
    /// An action that would make a section of its own.
    void HoldADevice() { HoldNew(OnDevice(atSetDevice, L"Generator")); }
    void ExpectNothingDone(const ModuleLists& before) {
        EXPECT_EQ(Store(), before);
        EXPECT_FALSE(engine->Change());
        EXPECT_EQ(Parts().held.Action, OnDevice(atSetDevice, L"Generator"));
        EXPECT_EQ(context.DeviceSectionCounter, 100);
        EXPECT_THAT(TakeEffects(), IsEmpty());
    }
    void ExpectNothingAt(const String& key) {
        const ModuleLists before = Store();
        HoldADevice();
        Select(key);
        GetParam().act(Parts());
        ExpectNothingDone(before);
    }
};

TEST_P(PlacelessEdits, OnAGroupOfTheMatrixNothingHappens) {
    State().VKSInfByBandwidth = true;
    State().VKSDUTFreqCount = State().VKSDUTBandwidthCount = 1;
    State().VKSDUTBandwidthNames.Redim(0, 0);
    OpenModule(aceVKSDUT);
    ExpectNothingAt(L"TST0_-1_-1");
}

TEST_P(PlacelessEdits, OnALeafWithoutARowNothingHappens) {
    OpenModule(aceVKSDUT);
    ExpectNothingAt(L"STE-1");
}

TEST_P(PlacelessEdits, OnAMomentThatTheModuleHasNotNothingHappens) {
    OpenModule(aceAziChart);
    tree.AddChild(tree.AddRoot(L"STE0", L"", L""), L"CHI0STE0", L"", L"");
    ExpectNothingAt(L"STE0");
    ExpectNothingAt(L"CHI0STE0");
}

TEST_P(PlacelessEdits, OnASetBeyondTheCountNothingHappens) {
    OpenModule(aceTemplate);
    tree.AddRoot(L"ESR2", L"", L"");
    ExpectNothingAt(L"ESR2");
}

TEST_P(PlacelessEdits, WithNoNodeSelectedItIsError91) {
    OpenModule(aceTemplate);
    HoldADevice();
    const ModuleLists before = Store();
    ASSERT_TRUE(tree.GoTo(std::nullopt));
    host->journal.Clear();
    EXPECT_EQ(ErrorOf([&] { GetParam().act(Parts()); }), 91);
    EXPECT_EQ(TakeEffects().size(), GetParam().name == std::string("DeleteAction") ? 1U : 2U)
        << "a report of each operation";
    ExpectNothingDone(before);
}

TEST_P(PlacelessEdits, WithoutATreeItIsError91) {
    OpenModule(aceTemplate);
    HoldADevice();
    const ModuleLists before = Store();
    Parts().m_View = nullptr;
    EXPECT_EQ(ErrorOf([&] { GetParam().act(Parts()); }), 91);
    host->journal.Clear();
    ExpectNothingDone(before);
}
INSTANTIATE_TEST_SUITE_P(Operations, PlacelessEdits, ::testing::ValuesIn(OnTheSelected),
                         [](const auto& row) { return std::string(row.param.name); });

using PlacelessMoves = PlacelessEdits;

TEST_F(PlacelessMoves, AMoveInAMomentThatTheModuleHasNotDoesNothing) {
    OpenModule(aceTemplate);
    HoldADevice();
    const ModuleLists before = Store();
    MoveAction(Parts(), ptStep, 0, 0, 1);
    MoveAction(Parts(), ptEnterSubRange, 2, 0, 1);
    MoveAction(Parts(), ptEnterSubRange, -1, 0, 1);
    ExpectNothingDone(before);
}

TEST_F(PlacelessMoves, AMomentThatTheModuleHasNotIsShownNowhere) {
    OpenModule(aceTemplate);
    tree.AddRoot(L"STE0", L"", L"");
    host->journal.Clear();
    DisplayTree(Parts(), ptStep, Store().MainTest.Freq, true, 0);
    EXPECT_EQ(host->journal.LinesOf(L"Tree"), Lines{});
    EXPECT_EQ(LinesBelow(L"STE0"), Lines{});
}

TEST_F(PlacelessMoves, WithoutAnEngineAnAdditionIsError91BeforeAnythingIsInserted) {
    OpenModule(aceTemplate);
    Select(L"ETE");
    Parts().engine.reset();
    HoldNew(WaitFor(1000));
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 91);
    EXPECT_EQ(Parts().lists.MainTest, Store().MainTest);
}

TEST_F(PlacelessMoves, WithoutAnEngineADeletionIsShownAndThenError91) {
    OpenModule(aceTemplate);
    Select(L"CHI0EFR");
    Parts().engine.reset();
    EXPECT_EQ(ErrorOf([&] { DeleteAction(Parts()); }), 91);
    EXPECT_EQ(Parts().lists.MainTest.FreqCount, 2);
    EXPECT_EQ(LinesBelow(L"EFR").size(), 2U);
}

}  // namespace
}  // namespace ace::test
