#include "editor/edited_moments.h"

namespace ace::test {
namespace {

using ::testing::IsEmpty;

/// What the operator does with the controls while nothing can come of it yet.
class UnbuiltActs : public EveryModule {
  protected:
    UnbuiltActs() { OpenModule(aceTemplate); }
    /// "4099" and the text of the error that comes out at the control.
    static String RefusalOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const RunTimeError& error) {
            return std::to_wstring(error.Number()) + L" " + error.Description();
        }
        return L"none";
    }
    const DragData line{L"CHI0ETE"};
};

TEST_F(UnbuiltActs, AnActThatWouldChangeAListSaysThatItIsNotBuiltYet) {
    const ModuleLists before = Store();
    EXPECT_EQ(RefusalOf([&] { tree.DoubleClick(L"ETE"); }),
              L"4099 editing an action is not built yet");
    EXPECT_EQ(RefusalOf([&] { list.DoubleClick(L"ACT:0"); }),
              L"4099 adding an action is not built yet");
    EXPECT_EQ(RefusalOf([&] { tree.DropAnyway(line, L"ETE"); }),
              L"4099 dropping an action is not built yet");
    EXPECT_EQ(Store(), before);
    EXPECT_FALSE(engine->Change());
}

TEST_F(UnbuiltActs, NothingComesOfADrop) {
    EXPECT_EQ(tree.DragOver(line, L"ETE"), DropEffects::None);
    EXPECT_FALSE(tree.Drop(line, L"ETE"));
}

TEST_F(UnbuiltActs, NoDragStartsAndNoneCarriesAnything) {
    EXPECT_FALSE(tree.BeginDrag(L"ETE"));
    EXPECT_EQ(list.Drag(L"ACT:0"), DragData());
    EXPECT_TRUE(list.EndDrag());
    tree.StartDrag();
    EXPECT_EQ(tree.Dragged(), DragData()) << "that another part of the host has started";
    EXPECT_TRUE(tree.EndDrag());
}

TEST_F(UnbuiltActs, AClickChangesNothing) {
    host->journal.Clear();
    EXPECT_TRUE(tree.Press(L"ETE") && tree.Release(L"ETE"));
    EXPECT_THAT(host->journal.Lines(), IsEmpty());
}

}  // namespace
}  // namespace ace::test
