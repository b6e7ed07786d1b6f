#include "support/fake_editor.h"
#include "support/store_fixture.h"

namespace ace::test {
namespace {

const String EngineModule = L"aceActionsEngine (Code)";

/// Modules that have no numbered list which follows the host.
class ListlessModuleTest : public EngineTest, public ::testing::WithParamInterface<std::int32_t> {
  protected:
    ListlessModuleTest() {
        State().Modul = static_cast<aceModul>(GetParam());
        State().VKSSteps = Letters(L"AB");
        State().VKSStepCount = 2;
        editor = std::make_shared<FakeEditor>(*host);
        context.Editor = editor;
        host->tracing = true;
    }
    std::shared_ptr<FakeEditor> editor;
};

INSTANTIATE_TEST_SUITE_P(Modules, ListlessModuleTest,
                         ::testing::Values(aceEMSAutoTemplateGeneral, aceAziChart, aceVKSDUT,
                                           ModulCount, -1),
                         [](const auto& row) { return "Modul" + std::to_string(row.param + 1); });

TEST_P(ListlessModuleTest, AllFourChangeNothingAndTellTheEditorNothing) {
    engine->AddSubrange(1);
    engine->DeleteSubrange(0);
    engine->MoveSubrange(7, 0);
    engine->SwapSubrange(-1, 9);

    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(State().VKSStepCount, 2);
    for (const String& line : TakeEffects()) {
        EXPECT_EQ(line.find(L"TraceLog.WriteLine"), 0U);
    }
}

TEST_P(ListlessModuleTest, AllFourWriteTheirLinesWithoutThoseOfTheEntries) {
    engine->MoveSubrange(2, 1);
    engine->SwapSubrange(1, 2);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"MoveSubrange", L"Source = 2, Destination = 1"),
                      Start(EngineModule, L"DeleteSubrange", L"Index = 2"), End(L"DeleteSubrange"),
                      Start(EngineModule, L"AddSubrange", L"Index = 1"), End(L"AddSubrange"),
                      End(L"MoveSubrange"),
                      Start(EngineModule, L"SwapSubrange", L"Source = 1, Destination = 2"),
                      End(L"SwapSubrange")));
    EXPECT_FALSE(State().InternalSubrangeOp);
}

}  // namespace
}  // namespace ace::test
