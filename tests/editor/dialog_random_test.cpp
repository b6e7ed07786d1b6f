/// Sessions of random acts with the dialog, the palette, the tree, its menus and drags, in every
/// module, beside a plain model: after every act the editor's lists, the engine's store, the lines
/// of the tree, what is held and the flag of changes are those of the model, and what is saved is
/// read off the file. Devices come and go meanwhile. An act that nobody could do is passed over.
#include "editor/dialog_random_view.h"
#include "support/sample.h"

namespace ace::test {
namespace {

class DialogRandomTest : public DialogRandomView {
  protected:
    DialogRandomTest() {
        user.meanwhile = [this] {
            if (Chance(3)) {
                ChangeBench();
            }
        };
    }

    // ---- the dialog --------------------------------------------------------------------------

    void ExpectNew(int kind) {
        const bool hasSection = kind == atCheckEut || kind == atMonitorEUT;
        user.section = hasSection ? ++model.sectionCounter : 0;
        Expect({.kind = kind, .isNew = true, .isEmission = isEmission});
    }
    void Expect(const DialogModel& dialog) {
        user.confirmed.reset();
        user.tried.reset();
        if (RecordTypeOf[dialog.kind] >= 0) {
            user.expected = dialog;
        }
    }
    void AddNew(int kind, const String& key) {
        if (user.confirmed || RecordTypeOf[kind] < 0) {
            model.Hold(model.Make(kind, user.confirmed.value_or(String()), user.section));
            model.Add(key, true);
        }
    }
    /// A line whose place is that of an entry which shows nowhere can't be edited.
    bool CanBeEdited() const { return model.held.IsVisible(); }
    void BeginEdit(const String& key) {
        user.confirmed.reset();
        user.tried.reset();
        EXPECT_EQ(model.Get(key), 0);
        const std::optional<ModelRecord>& record = model.held.record;
        user.section = record ? record->section : 0;
        const String opened =
            record ? model.words.at(static_cast<std::size_t>(record->content)) : String();
        if (CanBeEdited()) {
            Expect({.kind = model.held.kind,
                    .isNew = false,
                    .isEmission = isEmission,
                    .opened = opened});
        }
    }
    void EndEdit(const String& key, int error) {
        EXPECT_EQ(error, CanBeEdited() ? 0 : EditModel::Mismatch);
        if (const auto& value = user.confirmed ? user.confirmed : user.tried) {
            model.Hold(model.Make(model.held.kind, *value, user.section));
        }
        if (user.confirmed) {
            model.ModifyLine(key, user.settingsChanged);
        }
    }

    // ---- acts --------------------------------------------------------------------------------

    void DoubleClickPalette() {
        const int kind = user.DrawFrom(ModelPalette(model.module, isEmission));
        const std::optional<String> selected = SelectedKey();
        const std::optional<String> key = selected ? selected : DefaultKey();
        const bool isAdded = key && model.PlaceOf(*key) && ModelAdds(kind, TargetAt(*key));
        if (isAdded) {
            ExpectNew(kind);
        }
        EXPECT_TRUE(list.DoubleClick(L"ACT:" + std::to_wstring(kind)));
        if (isAdded) {
            AddNew(kind, *key);
        }
        if (!selected && key && model.PlaceOf(*key)) {
            EXPECT_EQ(SelectedKey(), key);
        }
    }
    void DoubleClickTree() {
        const String key = DrawNode(Chance(80));
        if (key.empty() || !Shows(key)) {
            ++user.passed;
        } else if (EditModel::IsLine(key)) {
            BeginEdit(key);
            EndEdit(key, ErrorOf([&] { tree.DoubleClick(key); }));
        } else {
            EXPECT_TRUE(tree.DoubleClick(key));
        }
    }
    void Click() {
        const String key = DrawNode(Chance(50));
        if (!key.empty() && tree.Press(key) && tree.Release(key)) {
            EXPECT_EQ(SelectedKey(), key);
        }
    }

    // ---- the menu ----------------------------------------------------------------------------

    std::vector<int> CommandsOf(const String& key) {
        const bool canPaste = model.held.kind != atWait || model.held.record;
        std::vector<int> commands{2};
        if (!EditModel::IsLine(key)) {
            if (canPaste) {
                commands.push_back(6);
            }
            return commands;
        }
        const ModelPlace place = *model.PlaceOf(key);
        const int shown = model.ListOf(place).at(std::stoul(key.substr(3))).kind;
        if (!IsAmong(shown, {7, 8, 9, 10, 11})) {
            commands.insert(commands.begin(), 1);
        }
        commands.push_back(5);
        if (canPaste) {
            commands.push_back(6);
        }
        if (place.position > 1) {
            commands.push_back(3);
        }
        if (place.position < std::ssize(model.ListOf(place))) {
            commands.push_back(4);
        }
        return commands;
    }
    void MoveBy(const String& key, int places) {
        const ModelPlace place = *model.PlaceOf(key);
        model.Move(*place.moment, place.number, place.position - 1, place.position - 1 + places);
    }
    void Choose(const String& key, int command) {
        switch (command) {
            case 2:
                model.Delete(key);
                break;
            case 3:
            case 4:
                MoveBy(key, command == 3 ? -1 : 1);
                break;
            case 5:
                model.Get(key);
                break;
            case 6:
                model.Add(key, true);
                break;
            default:
                break;
        }
    }
    void UseMenu() {
        const String key = DrawNode(Chance(70));
        if (key.empty() || !tree.Press(key, MouseButtons::Right)) {
            ++user.passed;
            return;
        }
        std::vector<int> offered;
        int command = 0;
        user.onMenu = [&](const std::vector<MenuItem>& items) {
            if (!offered.empty()) {
                return;  // a menu of the dialog
            }
            for (const MenuItem& item : items) {
                offered.push_back(item.command);
            }
            command = user.chosen ? user.chosen->command : 0;
            if (command == 1) {
                BeginEdit(key);
            }
        };
        const std::vector<int> expected = CommandsOf(key);
        const int error = ErrorOf([&] { tree.Release(key, MouseButtons::Right); });
        user.onMenu = nullptr;
        EXPECT_EQ(offered, expected);
        if (command == 1) {
            EndEdit(key, error);
        } else {
            EXPECT_EQ(error, 0);
            Choose(key, command);
        }
    }

    // ---- drags -------------------------------------------------------------------------------

    void DropLine(const String& line, const String& target, int shift) {
        if (!EditModel::IsLine(line) || line == target || !model.PlaceOf(target)) {
            return;
        }
        if (ParentOf(line) == ParentOf(target)) {
            const ModelPlace from = *model.PlaceOf(line);
            const ModelPlace to = *model.PlaceOf(target);
            model.Move(*to.moment, to.number, from.position - 1, to.position - 1);
            return;
        }
        model.Get(line);
        if (shift == 0) {
            model.Delete(line);
        }
        model.Add(target, shift == 2);
    }
    /// Drops what is dragged over `target`; `key` is the node below the mouse.
    void Drop(const DragData& data, const std::optional<String>& key,
              const std::optional<String>& target, int shift) {
        const String text = data.text.value_or(String());
        const int kind = IsHandled(text) && !IsLineDrag(text) ? KindIn(text) : -1;
        const bool isNew = kind >= 0 && target && model.PlaceOf(*target);
        if (isNew) {
            ExpectNew(kind);
        } else if (IsLineDrag(text) && target && SelectedKey()) {
            DropLine(*SelectedKey(), *target, shift);
        }
        expectedCompleted += IsHandled(text) ? 1 : 0;
        EXPECT_TRUE(tree.DropAnyway(data, key, shift));
        if (isNew) {
            AddNew(kind, *target);
        }
    }
    void DragOver(const DragData& data) {
        const std::optional<String> key =
            Chance(10) ? std::nullopt : std::optional(DrawNode(Chance(50)));
        if (key && (key->empty() || !Shows(*key))) {
            ++user.passed;
            return;
        }
        const TreeNode before = tree.DropHighlight();
        const String text = data.text.value_or(String());
        const std::optional<String> target = key               ? key
                                             : before          ? std::optional(tree.Key(before))
                                             : IsHandled(text) ? DefaultKey()
                                                               : std::nullopt;
        const int shift = user.DrawFrom(std::vector{0, 0, 1, 2, 3});
        const int effect = target ? EffectOf(text, *target, shift) : 0;
        EXPECT_EQ(tree.DragOver(data, key, shift), effect)
            << testing::PrintToString(text) << testing::PrintToString(target.value_or(L"nothing"));
        if (IsHandled(text) && target) {
            EXPECT_EQ(tree.Key(tree.DropHighlight()), target);
        }
        if (effect != 0 || Chance(20)) {
            Drop(data, key, target, shift);
        }
    }
    void DragKind() {
        const int kind = user.DrawFrom(ModelPalette(model.module, isEmission));
        const std::optional<DragData> data = list.Drag(L"ACT:" + std::to_wstring(kind));
        ASSERT_EQ(data, DragData{L"ACT:" + std::to_wstring(kind)});
        DragOver(*data);
        EXPECT_TRUE(list.EndDrag());
        EXPECT_FALSE(tree.DropHighlight());
    }
    void DragNode() {
        const String key = DrawNode(Chance(90));
        if (key.empty() || !Shows(key)) {
            ++user.passed;
            return;
        }
        const String icon = tree.Image(tree.Find(key));
        EXPECT_EQ(tree.BeginDrag(key), icon != L"ACT");
        if (const std::optional<DragData> data = tree.Dragged()) {
            EXPECT_EQ(data->text, L"ACT:1000," + icon);
            DragOver(*data);
            EXPECT_TRUE(tree.EndDrag());
            EXPECT_FALSE(tree.DropHighlight());
        }
    }
    /// From another window.
    void DragForeign() {
        DragOver(user.DrawFrom(std::vector<DragData>{
            {}, {L"hello"}, {L"ACT:77"}, {L"ACT:x"}, {L"ACT:1000,DEV"}, {L"ACT:0"}}));
    }

    // ---- the host ----------------------------------------------------------------------------

    /// A list with an entry that shows nowhere can't be saved.
    bool CanBeSaved() {
        bool canBe = true;
        ForEachSection([&](const String&, const ModelSet& set) {
            for (const LineKeys& keys : ListKeys) {
                canBe = canBe && std::ranges::all_of(set.*keys.list, &ModelAction::IsVisible);
            }
        });
        return canBe;
    }
    void SaveAndLoad() {
        if (!CanBeSaved()) {
            ++user.passed;
            return;
        }
        engine->SaveActions(L"setup.ini");
        ForEachSection([&](const String& name, const ModelSet& set) {
            EXPECT_EQ(host->files[L"setup.ini"][name], model.Section(set));
        });
        model.change = false;
        Load();
    }
    void OpenAnew() {
        if (Chance(50)) {
            engine->Release();
            model.held = {};
            model.records = {};
        }
        engine->LoadEditor(&list, &tree);
    }

    void Step() {
        using Act = void (DialogRandomTest::*)();
        const std::pair<int, Act> Acts[] = {{22, &DialogRandomTest::DoubleClickPalette},
                                            {40, &DialogRandomTest::DoubleClickTree},
                                            {48, &DialogRandomTest::Click},
                                            {66, &DialogRandomTest::UseMenu},
                                            {78, &DialogRandomTest::DragKind},
                                            {92, &DialogRandomTest::DragNode},
                                            {94, &DialogRandomTest::DragForeign},
                                            {96, &DialogRandomTest::SaveAndLoad},
                                            {98, &DialogRandomTest::OpenAnew},
                                            {100, &DialogRandomTest::ChangeBench}};
        const int drawn = Draw(1, 100);
        const auto act =
            std::ranges::find_if(Acts, [&](const auto& row) { return drawn <= row.first; });
        SCOPED_TRACE("act " + std::to_string(act - std::begin(Acts)));
        (this->*act->second)();
        Compare();
    }
};

INSTANTIATE_TEST_SUITE_P(Modules, DialogRandomTest,
                         ::testing::Combine(::testing::Range(0, 9), SeedsTo(2, 60)),
                         [](const auto& row) {
                             return "Modul" + std::to_string(std::get<0>(row.param)) + "Seed" +
                                    std::to_string(std::get<1>(row.param));
                         });

TEST_P(DialogRandomTest, ActsOfAnOperatorFollowTheModelAndReachStoreAndFile) {
    Compare();
    for (int step = 0; step < 200 && !HasFailure(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        Step();
    }
    for (const auto& [number, text] : model.sections) {
        const String section = L"Actions" + std::to_wstring(number) + L"-Device";
        EXPECT_EQ(host->files[L"setup.ini"][section], std::vector{text}) << number;
    }
    EXPECT_GT(user.done, 100U);
    EXPECT_LT(user.passed, user.done) << "most acts can't be done";
}

}  // namespace
}  // namespace ace::test
