/// The random session's view of the editor: what must be the same in it and in the model, and what
/// the operator finds in the tree.
#pragma once

#include "editor/dialog_random_fixture.h"

namespace ace::test {

class DialogRandomView : public DialogRandomFixture, private __aceActionsEngine {
  protected:
    DialogRandomView() { engine->SetEventSink(this); }
    ~DialogRandomView() override { engine->SetEventSink(nullptr); }

    // ---- comparing ---------------------------------------------------------------------------

    const p_Subrange& SetIn(const ModuleLists& lists, const ModelMoment& moment, int number) {
        switch (moment.owner) {
            case ModelMoment::First:
                return lists.*members.first;
            case ModelMoment::Second:
                return lists.*members.second;
            case ModelMoment::Numbered:
                return (lists.*members.numbered.sets)[number];
            default:
                return (lists.*members.steps.sets)[number];
        }
    }
    static const ListFields& FieldsOf(const ModelMoment& moment) {
        const auto keys = std::ranges::find(ListKeys, moment.list, &LineKeys::list);
        return ActionLists[static_cast<std::size_t>(keys - std::begin(ListKeys))];
    }
    void CompareList(const ModelMoment& moment, int number) {
        const p_Subrange& store = SetIn(State(), moment, number);
        EXPECT_TRUE(SetIn(Parts().lists, moment, number) == store) << "the editor's copy";
        Lines shown;
        for (const p_Action& action : store.*FieldsOf(moment).actions) {
            shown.push_back(LineOf(action));
        }
        Lines expected;
        for (const ModelAction& action : model.ListOf(moment, number)) {
            expected.push_back(
                action.IsVisible() ? LineKinds[action.kind].word + model.Value(action) : String());
        }
        EXPECT_EQ(shown, expected) << testing::PrintToString(EditModel::KeyOf(moment, number));
        EXPECT_EQ(store.*FieldsOf(moment).count, std::ssize(expected));
    }
    void CompareNode(const ModelMoment& moment, int number) {
        const String key = EditModel::KeyOf(moment, number);
        Lines shown;
        for (TreeNode line = tree.FirstChild(tree.Find(key)); line; line = tree.NextSibling(line)) {
            shown.push_back(tree.Key(line) + L" " + tree.Caption(line) + L" " + tree.Image(line));
        }
        Lines expected;
        const ModelList& actions = model.ListOf(moment, number);
        for (std::size_t i = 0; i < actions.size(); ++i) {
            if (actions[i].IsVisible()) {
                expected.push_back(L"CHI" + std::to_wstring(i) + key + L" " +
                                   model.Caption(actions[i]) + L" " + ModelIcons[actions[i].kind]);
            }
        }
        EXPECT_EQ(shown, expected);
    }
    void Compare() {
        for (const ModelMoment& moment : MomentsOfModule[model.module]) {
            for (int number = 0; number < model.CountOf(moment); ++number) {
                CompareList(moment, number);
                if (IsThere(EditModel::KeyOf(moment, number))) {
                    CompareNode(moment, number);
                }
            }
        }
        EXPECT_EQ(engine->Change(), model.change);
        EXPECT_EQ(Parts().held.Action.ActionType, model.held.kind);
        EXPECT_EQ(LineOf(Parts().held.Action),
                  model.held.record ? LineKinds[model.held.kind].word + model.Value(model.held)
                                    : PlainLine(model.held));
        EXPECT_EQ(context.DeviceSectionCounter, model.sectionCounter);
        EXPECT_FALSE(user.expected) << "a dialog that never came";
        EXPECT_EQ(x_completed, expectedCompleted) << "ends of a drag";
    }
    static String PlainLine(const ModelAction& action) {
        return action.IsVisible() ? LineKinds[action.kind].word : String();
    }

    // ---- nodes -------------------------------------------------------------------------------

    std::optional<String> SelectedKey() {
        const TreeNode node = tree.Selected();
        return node ? std::optional(tree.Key(node)) : std::nullopt;
    }
    String ParentOf(const String& key) {
        const TreeNode parent = tree.Parent(tree.Find(key));
        return parent ? tree.Key(parent) : String();
    }
    /// The operator opens what hides it, most of the time.
    String DrawNode(bool isLine) {
        Lines keys;
        for (const TreeNode node : tree.Nodes()) {
            if (EditModel::IsLine(tree.Key(node)) == isLine) {
                keys.push_back(tree.Key(node));
            }
        }
        if (keys.empty()) {
            return isLine ? DrawNode(false) : String();
        }
        const String key = user.DrawFrom(keys);
        for (TreeNode at = tree.Parent(tree.Find(key)); at && !Chance(5); at = tree.Parent(at)) {
            tree.SetExpanded(at, true);
        }
        return key;
    }
    bool Shows(const String& key) {
        for (TreeNode at = tree.Parent(tree.Find(key)); at; at = tree.Parent(at)) {
            if (!tree.IsExpanded(at)) {
                return false;
            }
        }
        return IsThere(key);
    }
    std::optional<String> CaptionAt(const String& key) {
        return IsThere(key) ? std::optional(CaptionOf(key)) : std::nullopt;
    }
    ModelTarget TargetAt(const String& key) {
        return {key, CaptionOf(key), CaptionAt(L"EFR"), CaptionAt(L"ETE"), CaptionAt(L"LTE")};
    }
    std::optional<String> DefaultKey() {
        const String key = model.module == aceMonitoring        ? L"NGO0"
                           : model.module == aceEMSAutoTemplate ? L"STE0"
                                                                : L"ETE";
        return IsThere(key) ? std::optional(key) : std::nullopt;
    }

    // ---- what would come of a drop ----------------------------------------------------------

    static bool IsHandled(const String& text) { return text.starts_with(L"ACT:"); }
    static bool IsLineDrag(const String& text) { return text.starts_with(L"ACT:1000"); }
    /// Of the palette; -1 for none, of which nothing comes.
    static int KindIn(const String& text) {
        const String digits = text.substr(std::min<std::size_t>(4, text.size()));
        const bool isNumber =
            !digits.empty() && digits.find_first_not_of(L"0123456789") == String::npos;
        const int kind = isNumber ? std::stoi(digits) : -1;
        return kind < ModelKinds ? kind : -1;
    }
    int EffectBySelection(const String& target, int shift) {
        const std::optional<String> selected = SelectedKey();
        const String parent = selected ? ParentOf(*selected) : String();
        if (parent.empty()) {
            return -1;
        }
        if (EditModel::IsLine(*selected) && EditModel::IsLine(target)) {
            return parent == ParentOf(target) && *selected != target ? 2 : 0;
        }
        return parent.substr(0, 3) == target.substr(0, 3) ? (shift == 2 ? 1 : 2) : -1;
    }
    int EffectOf(const String& text, const String& target, int shift) {
        const std::optional<String> selected = SelectedKey();
        const bool isPossible =
            IsLineDrag(text) ? selected && EditModel::IsLine(*selected) : KindIn(text) >= 0;
        if (!IsHandled(text) || !isPossible || !model.PlaceOf(target)) {
            return 0;
        }
        if (const int effect = EffectBySelection(target, shift); effect >= 0) {
            return effect;
        }
        if (IsLineDrag(text)) {
            const String icon = text.substr(text.size() - 3);
            return ModelRefusesLine(model.module, icon, TargetAt(target)) ? 0 : shift == 2 ? 1 : 2;
        }
        return IsAmong(KindIn(text), ModelRefusedKinds(model.module, TargetAt(target))) ? 0 : 1;
    }

  private:
    // ---- what the host hears -----------------------------------------------------------------

    void DragComplete() override { ++x_completed; }

  protected:
    int expectedCompleted = 0;

  private:
    int x_completed = 0;
};

}  // namespace ace::test
