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

/// A tree that is pressed anywhere, not in the middle of a row alone.
class FreeTree : public sim::SimTree {
  public:
    using SimTree::SimTree;
    void SetEvents(ITreeEvents* events) override {
        SimTree::SetEvents(events);
        x_listener = events;
    }
    struct Point {
        float x;
        float y;
    };
    /// Does a drag start between these points, while a line is selected? It is over afterwards.
    bool Starts(Point from, Point to) {
        EXPECT_TRUE(GoTo(L"CHI0ETE"));
        x_listener->MouseDown(MouseButtons::Left, 0, from.x, from.y);
        x_listener->MouseMoved(MouseButtons::Left, 0, to.x, to.y);
        return EndDrag();
    }

  private:
    ITreeEvents* x_listener = nullptr;
};

/// A list that starts a drag beside its items too, as toolkits do that start one by themselves.
class FreeList : public sim::SimList {
  public:
    using SimList::SimList;
    void SetEvents(IListEvents* events) override {
        SimList::SetEvents(events);
        x_listener = events;
    }
    /// What a drag carries that has carried `data` so far.
    DragData DragBeside(DragData data) {
        EXPECT_TRUE(Click(std::nullopt));
        x_listener->DragStarted(data);
        return data;
    }

  private:
    IListEvents* x_listener = nullptr;
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

/// The points are below all nodes, where a press leaves the line selected.
TEST_F(DragStart, TheWayAcrossIsMeasuredFromTheFractionOfATwipThatWasPressed) {
    FreeTree anywhere(*host);
    engine->LoadEditor(&list, &anywhere);
    anywhere.SetExpanded(anywhere.Find(L"ETE"), true);
    EXPECT_FALSE(anywhere.Starts({400.25F, 9000}, {500.25F, 9000})) << "100, and 100.25 from 400";
    EXPECT_TRUE(anywhere.Starts({400.75F, 9000}, {500.875F, 9000}))
        << "100.125, and 99.875 from 401";
    EXPECT_FALSE(anywhere.Starts({400.75F, 9000}, {300.75F, 9000})) << "100, and 100.25 from 401";
    EXPECT_TRUE(anywhere.Starts({400.25F, 9000}, {300.125F, 9000}))
        << "100.125, and 99.875 from 400";
}

TEST_F(DragStart, TheWayDownIsMeasuredFromTheNearestWholeTwipAndFromTheEvenOneOfTwo) {
    FreeTree anywhere(*host);
    engine->LoadEditor(&list, &anywhere);
    anywhere.SetExpanded(anywhere.Find(L"ETE"), true);
    EXPECT_TRUE(anywhere.Starts({400, 9000.25F}, {400, 9020.125F})) << "20.125 from 9000";
    EXPECT_FALSE(anywhere.Starts({400, 9000.75F}, {400, 9020.875F})) << "19.875 from 9001";
    EXPECT_TRUE(anywhere.Starts({400, 9000.75F}, {400, 8980.875F})) << "20.125 up from 9001";
    EXPECT_TRUE(anywhere.Starts({400, 9000.5F}, {400, 9020.25F})) << "20.25 from 9000";
    EXPECT_FALSE(anywhere.Starts({400, 9001.5F}, {400, 9021.75F})) << "19.75 from 9002";
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

TEST_F(DragStart, ADragBesideTheKindsOfTheListCarriesNothing) {
    FreeList beside(*host);
    engine->LoadEditor(&beside, &tree);
    EXPECT_TRUE(beside.Click(L"ACT:0"));
    EXPECT_EQ(beside.DragBeside({L"ACT:1"}), DragData());
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
