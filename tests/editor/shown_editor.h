/// The editor as a user sees it: an engine with a tree and a list in memory.
#pragma once

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/engine_fixture.h"
#include "support/golden_file.h"

namespace ace::test {

/// Tests fill the lists of `State()` and open the editor on them.
class ShownEditor : public EngineTest {
  protected:
    /// Shows the lists as they are now; the journal is empty afterwards.
    void Open(aceModul moduleKind) {
        State().Modul = moduleKind;
        engine->LoadEditor(&list, &tree);
        host->journal.Clear();
    }
    Lines Tree() { return LinesOf(tree.Text()); }
    /// Caption of a node that must be there.
    String CaptionOf(const String& key) { return tree.Caption(tree.Find(key)); }
    bool IsThere(const String& key) { return static_cast<bool>(tree.Find(key)); }
    bool IsExpanded(const String& key) { return tree.IsExpanded(tree.Find(key)); }

    /// The dialog fills its lists of devices when the form is loaded, at the first load.
    inline static const Lines DevicesAsked{L"DeviceList.DevicesOfClass(\"Generators\")",
                                           L"DeviceList.DevicesOfClass(\"Monitoring\")",
                                           L"DeviceList.DevicesOfClass(\"SignalPaths\")"};

    sim::SimTree tree{*host};
    sim::SimList list{*host};
};

}  // namespace ace::test
