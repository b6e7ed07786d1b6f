#include "sim/sim_list.h"

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

/// An editor that writes down what it hears.
class Listener : public IListEvents {
  public:
    explicit Listener(IListControl& list) : x_list(&list) { list.SetEvents(this); }
    void DoubleClicked() override {
        heard.push_back(L"double click on " + x_list->Selected().value_or(L"nothing"));
    }
    void DragStarted(DragData& data) override { data.text = x_list->Selected(); }
    void DragEnded() override { heard.push_back(L"end of drag"); }
    void ControlGone() noexcept override { heard.push_back(L"gone"); }

    std::vector<String> heard;

  private:
    IListControl* x_list;
};

class SimListTest : public HostTest {
  protected:
    SimListTest() {
        list->Add(L"ACT:3", L"Set device", L"DEV");
        list->Add(L"ACT:2", L"Command", L"REM");
    }
    std::unique_ptr<sim::SimList> list = std::make_unique<sim::SimList>(*host);
};

TEST_F(SimListTest, PrintsItsItemsInTheirOrderWithTheSelectedOne) {
    EXPECT_TRUE(list->Click(L"ACT:2"));
    EXPECT_EQ(list->Text(), L"ACT:3 \"Set device\" DEV\nACT:2 \"Command\" REM selected\n");
}

TEST_F(SimListTest, AClickBesideTheItemsSelectsNone) {
    list->Click(L"ACT:2");
    EXPECT_TRUE(list->Click({}));
    EXPECT_EQ(list->Selected(), std::nullopt);
    EXPECT_FALSE(list->Click(L"ACT:9"));
}

TEST_F(SimListTest, AKeyThatIsThereAlreadyIsError457AndAddsNothing) {
    EXPECT_EQ(ErrorOf([&] { list->Add(L"ACT:3", L"again", L"DEV"); }), 457);
    EXPECT_EQ(list->Text(), L"ACT:3 \"Set device\" DEV\nACT:2 \"Command\" REM\n");
}

TEST_F(SimListTest, ClearTakesItemsAndSelection) {
    list->Click(L"ACT:2");
    list->Clear();
    EXPECT_EQ(list->Text(), L"");
    EXPECT_EQ(list->Selected(), std::nullopt);
    list->Add(L"ACT:2", L"Command", L"REM");
}

TEST_F(SimListTest, TheOperatorsActsReachWhoListens) {
    EXPECT_FALSE(list->DoubleClick(L"ACT:2"));
    EXPECT_EQ(list->Drag(L"ACT:2"), std::nullopt);
    EXPECT_FALSE(list->EndDrag());
    list->Clear();
    list->Add(L"ACT:3", L"Set device", L"DEV");
    Listener editor(*list);
    EXPECT_TRUE(list->DoubleClick({}));
    EXPECT_TRUE(list->DoubleClick(L"ACT:3"));
    EXPECT_FALSE(list->DoubleClick(L"ACT:9"));
    const std::optional<DragData> dragged = list->Drag(L"ACT:3");
    ASSERT_TRUE(dragged);
    EXPECT_EQ(dragged->text, L"ACT:3");
    EXPECT_TRUE(list->EndDrag());
    EXPECT_THAT(editor.heard,
                ElementsAre(L"double click on nothing", L"double click on ACT:3", L"end of drag"));
    list->SetEvents(nullptr);
}

TEST_F(SimListTest, AListThatGoesTellsWhoListens) {
    Listener editor(*list);
    list.reset();
    EXPECT_THAT(editor.heard, ElementsAre(L"gone"));
}

TEST_F(SimListTest, EveryCallIsALineAndMayFail) {
    TakeEffects();
    list->SetUp({.images = {L"DEV"}});
    host->faults.FailOperation(L"List.Add", 1, 1234);
    EXPECT_EQ(ErrorOf([&] { list->Add(L"ACT:0", L"Wait", L"WAI"); }), 1234);
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"List.SetUp(1, 2, 1, false)",
                            L"List.Add(\"ACT:0\", \"Wait\", \"WAI\") -> error 1234"));
}

}  // namespace
}  // namespace ace::test
