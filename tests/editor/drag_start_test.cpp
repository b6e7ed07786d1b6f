#include "editor/mouse_acts.h"
#include "editor/shown_actions.h"

namespace ace::test {
namespace {

class DragStart : public MouseTest {
  protected:
    /// Presses a node and moves the mouse from there: does a drag start? It is over afterwards.
    bool Starts(const std::optional<String>& key, float x, float y,
                std::int32_t buttons = MouseButtons::Left) {
        EXPECT_TRUE(tree.Press(key));
        EXPECT_TRUE(tree.MoveBy(x, y, buttons));
        return tree.EndDrag();
    }
};

// ---- pressing ----------------------------------------------------------------------------------

TEST_F(DragStart, APressedNodeIsSelectedWhicheverButtonItIs) {
    OpenWhole(aceTemplate);
    EXPECT_TRUE(tree.Press(L"CHI0ESR1"));
    EXPECT_EQ(SelectedKey(), L"CHI0ESR1");
    EXPECT_TRUE(tree.Press(L"SUR0", MouseButtons::Right));
    EXPECT_EQ(SelectedKey(), L"SUR0");
    EXPECT_TRUE(tree.Press(L"LTE", MouseButtons::Middle));
    EXPECT_EQ(SelectedKey(), L"LTE");
}

TEST_F(DragStart, APressBesideTheNodesKeepsWhatIsSelected) {
    OpenWhole(aceTemplate);
    EXPECT_TRUE(tree.Press(std::nullopt));
    EXPECT_EQ(SelectedKey(), L"");
    Select(L"CHI0ETE");
    EXPECT_TRUE(tree.Press(std::nullopt));
    EXPECT_EQ(SelectedKey(), L"CHI0ETE");
}

// ---- how far the mouse has to go ---------------------------------------------------------------

struct Move {
    float x;
    float y;
};

TEST_F(DragStart, AMoveOfAtMost100TwipsAcrossAnd20DownStartsNoDrag) {
    OpenWhole(aceTemplate);
    for (const Move move : {Move{0, 0},
                            {100, 0},
                            {-100, 0},
                            {0, 20},
                            {0, -20},
                            {100, 20},
                            {-100, -20},
                            {99.75F, 19}}) {
        EXPECT_FALSE(Starts(L"CHI0ETE", move.x, move.y)) << move.x << " " << move.y;
    }
}

TEST_F(DragStart, AMoveFurtherThanThatInEitherDirectionStartsOne) {
    OpenWhole(aceTemplate);
    for (const Move move : {Move{101, 0},
                            {-101, 0},
                            {100.25F, 0},
                            {-100.25F, 0},
                            {0, 21},
                            {0, -21},
                            {101, 20},
                            {100, 21},
                            {-101, -21},
                            {3000, 3000}}) {
        EXPECT_TRUE(Starts(L"CHI0ETE", move.x, move.y)) << move.x << " " << move.y;
    }
}

TEST_F(DragStart, TheWayIsMeasuredFromTheLastPressBesideTheNodesToo) {
    OpenWhole(aceTemplate);
    EXPECT_TRUE(tree.Press(L"CHI0ETE"));
    EXPECT_FALSE(Starts(std::nullopt, 0, 0)) << "far away from the line";
    EXPECT_TRUE(Starts(std::nullopt, 101, 0)) << "of the line, which is selected";
}

TEST_F(DragStart, WithoutTheLeftButtonNoDragStarts) {
    OpenWhole(aceTemplate);
    for (const std::int32_t buttons : {0, MouseButtons::Right, MouseButtons::Middle,
                                       MouseButtons::Right | MouseButtons::Middle}) {
        EXPECT_FALSE(Starts(L"CHI0ETE", 500, 500, buttons)) << buttons;
    }
    EXPECT_TRUE(Starts(L"CHI0ETE", 500, 500, MouseButtons::Left | MouseButtons::Right));
}

// ---- what can be dragged -----------------------------------------------------------------------

TEST_F(DragStart, LinesCanBeDraggedAndMomentsCannot) {
    for (std::int32_t kind = aceTemplate; kind <= aceVKSDUT; ++kind) {
        OpenWhole(static_cast<aceModul>(kind));
        for (const String& key : AllKeys()) {
            EXPECT_EQ(Starts(key, 500, 0), key.starts_with(L"CHI"))
                << kind << " " << testing::PrintToString(key);
        }
    }
}

TEST_F(DragStart, WithNothingSelectedThereIsNothingToDrag) {
    OpenWhole(aceTemplate);
    EXPECT_FALSE(Starts(std::nullopt, 500, 500));
}

TEST_F(DragStart, AGroupOfTheMatrixHasAnotherIconAndCanBeDragged) {
    OpenWhole(aceVKSDUT, RowsInGroups);
    ASSERT_TRUE(tree.BeginDrag(L"TST1_-1_-1"));
    EXPECT_EQ(tree.Dragged(), LineDragged(L"SGL"));
    EXPECT_TRUE(tree.EndDrag());
    EXPECT_FALSE(Starts(L"STE1", 500, 0));
}

// ---- what a drag carries -----------------------------------------------------------------------

TEST_F(DragStart, ALineCarriesItsIconWhateverItsKind) {
    const std::vector<p_Action> actions = {WaitFor(1),
                                           CloseTheDoor,
                                           Gpib(1, L"*RST"),
                                           Device(atSetDevice, L"EUT"),
                                           Camera,
                                           Tracked(L"EUT"),
                                           Comment(true),
                                           Action(atProtRec),
                                           Action(atTestStop),
                                           Action(atGotoSingle),
                                           Action(atStopLevSweep),
                                           Action(atNbBbEtsi),
                                           Amplifier(L"Amplifier", 1),
                                           PathA,
                                           Api(L"log.mac"),
                                           Action(atParkAcc),
                                           Ask(L"Lamp green?"),
                                           Device(atMonitorEUT, L"EUT")};
    Fill(State().MoniChannels[1], EnterList, actions);
    OpenWhole(aceMonitoring);
    for (std::size_t i = 0; i < actions.size(); ++i) {
        ASSERT_TRUE(tree.BeginDrag(L"CHI" + std::to_wstring(i) + L"NGO1"));
        EXPECT_EQ(tree.Dragged(), LineDragged(String(KindIcons[i])));
        EXPECT_TRUE(tree.EndDrag());
    }
}

TEST_F(DragStart, ADragOfALineMayCopyMoveAndLink) {
    OpenWhole(aceTemplate);
    ASSERT_TRUE(tree.BeginDrag(L"CHI0ETE"));
    EXPECT_EQ(tree.AllowedEffects(), 7);
    EXPECT_TRUE(tree.EndDrag());
}

TEST_F(DragStart, ADragThatAnotherPartOfTheHostStartsCarriesTheSelectedLine) {
    OpenWhole(aceTemplate);
    Select(L"CHI0ETE");
    tree.StartDrag();
    EXPECT_EQ(tree.Dragged(), LineDragged(L"WAI"));
    EXPECT_TRUE(tree.EndDrag());
}

TEST_F(DragStart, OneThatAnotherPartStartsWithNothingSelectedCarriesNothing) {
    OpenWhole(aceTemplate);
    tree.StartDrag();
    EXPECT_EQ(tree.Dragged(), DragData());
    EXPECT_TRUE(tree.EndDrag());
}

TEST_F(DragStart, AKindOfTheListCarriesItsKey) {
    OpenWhole(aceMonitoring);
    for (const std::int32_t kind : {3, 2, 0, 1, 14, 4, 6, 13, 11, 9, 10, 8}) {
        const String key = L"ACT:" + std::to_wstring(kind);
        EXPECT_EQ(list.Drag(key), DragData{key});
        EXPECT_TRUE(list.EndDrag());
    }
    EXPECT_EQ(SelectedKey(), L"") << "the tree has heard of nothing";
}

// ---- the end -----------------------------------------------------------------------------------

TEST_F(DragStart, TheEndOfADragTakesTheHighlightAway) {
    OpenWhole(aceTemplate);
    ASSERT_TRUE(tree.BeginDrag(L"CHI0ETE"));
    tree.DragOver(*tree.Dragged(), L"LTE");
    EXPECT_EQ(Highlighted(), L"LTE");
    EXPECT_TRUE(tree.EndDrag());
    EXPECT_EQ(Highlighted(), L"");
}

TEST_F(DragStart, TheEndOfADragFromTheListDoesSoToo) {
    OpenWhole(aceTemplate);
    tree.DragOver(*list.Drag(L"ACT:0"), L"LTE");
    EXPECT_EQ(Highlighted(), L"LTE");
    EXPECT_TRUE(list.EndDrag());
    EXPECT_EQ(Highlighted(), L"");
    EXPECT_EQ(SelectedKey(), L"");
}

TEST_F(DragStart, ADragFromTheListEndsWithoutATreeToo) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    EXPECT_TRUE(list.Drag(L"ACT:0").has_value());
    brief.reset();
    EXPECT_EQ(ErrorOf([&] { list.EndDrag(); }), 0);
}

TEST_F(DragStart, DraggingChangesNothingUntilSomethingIsDropped) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    ASSERT_TRUE(tree.BeginDrag(L"CHI1LTE"));
    tree.DragOver(*tree.Dragged(), L"ETE");
    tree.EndDrag();
    ExpectLists(before, false);
    EXPECT_EQ(SelectedKey(), L"CHI1LTE");
    EXPECT_EQ(Happened(), Lines{}) << "no drop, no event";
}

}  // namespace
}  // namespace ace::test
