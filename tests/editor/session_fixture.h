/// Whole sessions of an operator: a settings file is loaded and shown, its lines are edited, the
/// engine saves it, and what was saved is loaded again.
#pragma once

#include "editor/dialog_acts.h"
#include "editor/editor_fixture.h"

namespace ace::test {

class EditorSession : public EditorTest {
  protected:
    EditorSession() {
        auto& bench = host->bench;
        bench.Add<sim::SimMonitor>(*host, L"Meter");
        bench.Add<sim::SimBcGenerator>(*host, L"Injector");
        bench.Add<sim::SimAmplifier>(*host, L"Amp");
        bench.Add<sim::SimSwitchUnit>(*host, L"Unit")->paths = {L"P1", L"P2"};
        bench.Add<sim::SimSignalPath>(*host, L"Coax");
        bench.Add<sim::SimRfGenerator>(*host, L"Source");
        host->macros[L"log.mac"].parameters = {0, 3};
    }

    // ---- the file ----------------------------------------------------------------------------

    /// Loads the module from a file of these lines, with so many numbered lists, and shows it.
    void Begin(aceModul moduleKind, std::int32_t numbered, StringView text) {
        x_moduleKind = moduleKind;
        x_numbered = numbered;
        host->files[L"setup.ini"] = sim::ParseSections(text);
        Load();
    }
    /// Saves the file, loads it into another engine and shows it: the tree has the same lines.
    void SaveAndLoadAgain() {
        engine->SaveActions(L"setup.ini");
        EXPECT_FALSE(engine->Change());
        const Lines before = LinesOfTree();
        engine->Release();
        engine = std::make_unique<aceActionsEngine>(context);
        Load();
        EXPECT_EQ(LinesOfTree(), before);
    }
    const sim::SimSections& File() { return host->files[L"setup.ini"]; }
    /// The sections in which the engine keeps its lists and the settings of devices.
    static sim::SimSections Sections(const String& text) { return sim::ParseSections(text); }

    /// What the host tells the engine behind each load.
    std::function<void()> afterLoad;

    // ---- the tree ----------------------------------------------------------------------------

    /// The tree without what is expanded, selected or a target.
    Lines LinesOfTree() {
        Lines lines = Tree();
        for (String& line : lines) {
            for (const StringView word : {L" target", L" selected", L" expanded"}) {
                if (line.ends_with(word)) {
                    line.erase(line.size() - word.size());
                }
            }
        }
        return lines;
    }
    /// Opens what the node stands in, so that the mouse finds it.
    void Show(const String& key) {
        for (TreeNode at = tree.Parent(tree.Find(key)); at; at = tree.Parent(at)) {
            tree.SetExpanded(at, true);
        }
    }
    /// A right click on a node, and a choice from its menu; none leaves the menu.
    void Command(const String& key, const std::optional<String>& caption) {
        Show(key);
        ChooseFromMenu(key, caption);
    }
    bool Drag(const String& from, const String& to, std::int32_t shift = 0) {
        Show(from);
        Show(to);
        return tree.DragTo(from, to, shift);
    }

    // ---- the dialog --------------------------------------------------------------------------

    /// These acts and, in the end, the one that closes the dialog.
    void ExpectDialog(Acts acts, sim::FormAct end = sim::Press(L"cmdOK")) {
        acts.push_back(std::move(end));
        host->user.Expect({L"frmEditor", std::move(acts), {}});
    }
    /// Adds by a double click on the palette while `key` is selected.
    void Add(const String& key, const String& kind, Acts acts) {
        Select(key);
        ExpectDialog(std::move(acts));
        EXPECT_TRUE(list.DoubleClick(kind));
    }
    /// The same for a kind without a dialog.
    void AddPlain(const String& key, const String& kind) {
        Select(key);
        EXPECT_TRUE(list.DoubleClick(kind));
    }
    /// Drags from the palette to a node; false when it isn't taken there.
    bool DropPlain(const String& key, const String& kind) {
        Show(key);
        const std::optional<DragData> data = list.Drag(kind);
        const bool isDropped = data && tree.Drop(*data, key);
        EXPECT_TRUE(list.EndDrag());
        return isDropped;
    }
    void Drop(const String& key, const String& kind, Acts acts) {
        ExpectDialog(std::move(acts));
        EXPECT_TRUE(DropPlain(key, kind));
    }
    /// Edits a line by a double click.
    void Change(const String& key, Acts acts) {
        Show(key);
        ExpectDialog(std::move(acts));
        EXPECT_TRUE(tree.DoubleClick(key));
    }

    /// A press, for which the operator answers the box or the menu that comes.
    sim::FormAct PressFor(String control, std::function<void(sim::SimOperator&)> expect) {
        return [this, control = std::move(control), expect = std::move(expect)](Form& form) {
            expect(host->user);
            return sim::Press(control)(form);
        };
    }
    sim::FormAct Pick(String control, String item) {
        return PressFor(std::move(control), [item = std::move(item)](sim::SimOperator& user) {
            user.ExpectMenu(item);
        });
    }
    /// The device is chosen, and its settings are confirmed with that text.
    sim::FormAct PickDevice(String device, String settings) {
        return PressFor(L"imgDevice", [=](sim::SimOperator& user) {
            user.ExpectMenu(device);
            user.ExpectSettings(settings);
        });
    }
    sim::FormAct PickFile(String control, String file) {
        return PressFor(std::move(control), [file = std::move(file)](sim::SimOperator& user) {
            user.ExpectFile(file);
        });
    }

  private:
    void Load() {
        engine->LoadActions(L"setup.ini", x_numbered, x_moduleKind);
        if (afterLoad) {
            afterLoad();
        }
        engine->LoadEditor(&list, &tree);
    }

    aceModul x_moduleKind = aceTemplate;
    std::int32_t x_numbered = 0;
};

}  // namespace ace::test
