#include <random>

#include <ace/core/module_table.h>

#include "check/check_fixture.h"
#include "support/sample.h"
#include "workbench/check/as_loaded.h"

namespace ace::workbench {
namespace {

/// Files of every module with bytes changed, taken out and put in at random.
class RandomFiles : public ::testing::TestWithParam<unsigned> {
  protected:
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(x_random);
    }

    static void Replace(std::string& text, const std::string& from, const std::string& to) {
        for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
            text.replace(at, from.size(), to);
        }
    }
    /// A file in which sections of the module stand.
    static std::string BaseOf(aceModul moduleKind) {
        if (moduleKind == aceVKSTemplate || moduleKind == aceVKSDUT) {
            return Example(moduleKind == aceVKSDUT ? "wireless_dut.ini" : "wireless_tests.ini");
        }
        std::string text = Example("lint_traps.ini");
        const ModuleRow& row = *FindModule(moduleKind);
        if (!row.AllFixed().empty()) {
            Replace(text, "ActionsOnTest", ToUtf8(row.AllFixed().front().section));
        }
        for (const NumberedSets& numbered : row.AllNumbered()) {
            Replace(text, "ActionsOnSR", ToUtf8(numbered.sectionWord));
        }
        return text;
    }

    void Change(std::string& text) {
        static constexpr char Bytes[] = "[]=:,;#|\r\n\x01\x7F\xFF\xC3 0123456789-AEa";
        const std::size_t at = Below(text.size());
        switch (Below(4)) {
            case 0:
                text[at] = Bytes[Below(sizeof(Bytes))];
                break;
            case 1:
                text.insert(at, 1 + Below(3), Bytes[Below(sizeof(Bytes))]);
                break;
            case 2:
                text.erase(at, 1 + Below(20));
                break;
            default:
                text.insert(at, text.substr(Below(text.size()), Below(200)));
                break;
        }
    }

    std::mt19937 x_random{GetParam()};
};

/// What is refused before the check is no matter of it.
std::optional<TestSetUp> SetUpIfAny(const SettingsDocument& document, aceModul moduleKind) {
    try {
        return ReadSetUp(document, L"random.ini", {.moduleKind = moduleKind, .subRanges = 2});
    } catch (const CommandError&) {
        return std::nullopt;
    }
}

/// The findings of a file, and its columns; nothing may come out but them.
std::size_t CheckAll(const std::string& bytes, aceModul moduleKind) {
    std::optional<SettingsDocument> document;
    try {
        document.emplace(bytes);
    } catch (const RunTimeError&) {
        return 0;  // it can't be read as text
    }
    CheckInput input;
    input.document = &*document;
    input.path = L"random.ini";
    const std::optional<TestSetUp> setUp = SetUpIfAny(*document, moduleKind);
    if (!setUp) {
        return 0;
    }
    input.setUp = *setUp;
    const CheckedFile file(input);
    EXPECT_FALSE(AsLoaded(file, 100).empty());
    return FindingsOf(file).size();
}

TEST_P(RandomFiles, NoBytesEndACheckOfAnyModule) {
    std::size_t found = 0;
    for (const ModuleWords& module : AllModules()) {
        std::string text = BaseOf(module.moduleKind);
        for (int step = 0; step < 6; ++step) {
            Change(text);
            SCOPED_TRACE(text);
            EXPECT_NO_THROW(found += CheckAll(text, module.moduleKind));
        }
    }
    EXPECT_GT(found, 0U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomFiles, test::SeedsTo(12, 2000));

}  // namespace
}  // namespace ace::workbench
