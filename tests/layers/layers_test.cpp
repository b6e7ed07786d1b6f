#include "layers/layers.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace ace::layers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Layers, EveryIncludeOfTheSourcesFollowsTheDirection) {
    EXPECT_THAT(FaultsBelow(ACE_SOURCE_DIR), IsEmpty());
}

TEST(Layers, FaultsAreToldWithFileAndLine) {
    EXPECT_THAT(
        FaultsBelow(ACE_SOURCE_DIR "/tests/layers/bad_tree"),
        ElementsAre("sim/peeks.h:3: sim includes workbench/cli, a later folder: "
                    "workbench/cli/main_job.h",
                    "src/ace/core/impatient.h:5: core includes execution, a later folder: "
                    "ace/execution/walks.h",
                    "src/ace/core/impatient.h:6: core includes sim, a later folder: sim/journal.h",
                    "src/ace/core/impatient.h:9: includes \"impatient_detail.h\", which is in no "
                    "known folder",
                    "src/ace/host/foreign.cpp:2: the engine includes <windows.h>, which is not of "
                    "the standard library",
                    "src/ace/stray.h:3: lies in no known folder",
                    "workbench/files/climbs.cpp:4: workbench/files includes workbench/session, a "
                    "later folder: workbench/session/session.h",
                    "workbench/loose.h:3: lies in no known folder",
                    "a circle of rooms: workbench/session/chain.cpp:3 -> "
                    "workbench/session/ring.h:3 -> workbench/session/link.h:3 -> "
                    "workbench/session/chain"));
}

TEST(Layers, ATreeWithoutSourcesIsAFault) {
    EXPECT_THAT(FaultsBelow(ACE_SOURCE_DIR "/tests/layers/no_such_tree"), testing::SizeIs(1));
}

TEST(Layers, EachFolderIncludesItselfAndTheOnesBeforeIt) {
    EXPECT_EQ(Fault("src/ace/core/text.cpp", "ace/core/text.h", true), "");
    EXPECT_EQ(Fault("src/ace/dialogs/form.cpp", "ace/host/forms.h", true), "");
    EXPECT_EQ(Fault("sim/host.h", "ace/dialogs/form.h", true), "");
    EXPECT_EQ(Fault("workbench/cli/main.cpp", "sim/journal.h", false), "");
}

TEST(Layers, TheFoldersOfTheWorkbenchHaveAnOrderToo) {
    const std::array folders{"words", "files", "transports", "devices", "session", "check", "cli"};
    for (std::size_t from = 0; from < folders.size(); ++from) {
        for (std::size_t to = 0; to < folders.size(); ++to) {
            const auto file = std::string("workbench/") + folders[from] + "/a.cpp";
            const auto included = std::string("workbench/") + folders[to] + "/b.h";
            EXPECT_EQ(Fault(file, included, false).empty(), to <= from) << file << " " << included;
        }
    }
    EXPECT_EQ(Fault("workbench/main.cpp", "vector", true), "lies in no known folder");
}

TEST(Layers, FoldersInTheOrderOfTheEngineMayNotLookAhead) {
    EXPECT_NE(Fault("src/ace/host/value.h", "ace/core/text.h", true), "");
    EXPECT_NE(Fault("src/ace/settings/action_line.cpp", "ace/matrix/step_tree.h", true), "");
    EXPECT_NE(Fault("src/ace/editor/panes/wait.h", "ace/dialogs/frm_comment.h", true), "");
    EXPECT_NE(Fault("src/ace/dialogs/frm_comment.h", "workbench/session/session.h", false), "");
}

TEST(Layers, OnlyTheEngineIsConfinedToTheStandardLibrary) {
    EXPECT_EQ(Fault("src/ace/core/text.h", "vector", true), "");
    EXPECT_NE(Fault("src/ace/core/text.h", "CLI/CLI.hpp", true), "");
    EXPECT_EQ(Fault("workbench/cli/main.cpp", "CLI/CLI.hpp", true), "");
}

/// A host that includes `<ace/host.h>` has every interface.
TEST(Layers, TheHeaderOfAHostIncludesAllOfItsFolder) {
    std::ifstream file(ACE_SOURCE_DIR "/src/ace/host.h");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ACE_SOURCE_DIR "/src/ace/host")) {
        if (entry.path().extension() == ".h") {
            const std::string name = entry.path().filename().string();
            EXPECT_NE(text.find("#include <ace/host/" + name + ">\n"), std::string::npos) << name;
            ++count;
        }
    }
    EXPECT_GT(count, 30U);
}

}  // namespace
}  // namespace ace::layers
