/// A save holds the lists that it writes, whatever a host does that calls back from its file.
#include "settings/sections_fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class HeldWhileSaving : public SectionsTest {
  protected:
    HeldWhileSaving() {
        state.MainSubrangeCount = 1;
        state.MainSubranges.Redim(0, 1);
    }
    /// What comes out when the four lists of `set` are erased while `section` is written.
    std::vector<std::int32_t> ErrorsOfErasing(p_Subrange& set, const String& section) {
        const String name = L'"' + section + L'"';
        std::vector<std::int32_t> errors;
        host->beforeCall = [&](StringView operation, sim::CallArguments arguments) {
            if (operation == L"SettingsFile.SetSection" &&
                sim::ArgumentText(arguments).starts_with(name)) {
                for (const ListFields& list : ActionLists) {
                    errors.push_back(ErrorOf([&] { (set.*list.actions).Erase(); }));
                }
            }
        };
        Save(aceTemplate);
        host->beforeCall = nullptr;
        return errors;
    }
};

TEST_F(HeldWhileSaving, NoneOfTheFourListsOfAFixedSetCanBeErased) {
    EXPECT_THAT(ErrorsOfErasing(state.MainTest, L"ActionsOnTest"), ElementsAre(10, 10, 10, 10));
    EXPECT_THAT(ErrorsOfErasing(state.MainTest, L"ActionsOnSR1"), ElementsAre(0, 0, 0, 0));
}

TEST_F(HeldWhileSaving, NorOfAnElement) {
    EXPECT_THAT(ErrorsOfErasing(state.MainSubranges[0], L"ActionsOnSR1"),
                ElementsAre(10, 10, 10, 10));
    EXPECT_THAT(ErrorsOfErasing(state.MainSubranges[0], L"ActionsOnTest"), ElementsAre(0, 0, 0, 0));
}

}  // namespace
}  // namespace ace::test
