/// An editor on random lists and the model beside it: random edits are made on both.
#pragma once

#include <random>

#include "editor/edit_model_actions.h"
#include "editor/edit_session.h"
#include "editor/editor_fixture.h"
#include "support/sample.h"

namespace ace::test {

// ---- where a module keeps its lists ------------------------------------------------------------

struct ModelNumbered {
    DynArray<p_Subrange> ModuleLists::*sets = nullptr;
    std::int32_t ModuleLists::*count = nullptr;
};
struct ModelMembers {
    p_Subrange ModuleLists::*first = nullptr;
    p_Subrange ModuleLists::*second = nullptr;
    ModelNumbered numbered{};
    ModelNumbered steps{};
};
using Lists = ModuleLists;
inline constexpr ModelMembers MembersOf[] = {
    {&Lists::MainTest, nullptr, {&Lists::MainSubranges, &Lists::MainSubrangeCount}},
    {&Lists::MoniEut, &Lists::MoniLoop, {&Lists::MoniChannels, &Lists::MoniChannelCount}},
    {&Lists::EMSAutoGeneral},
    {nullptr, nullptr, {&Lists::EMSAutoSteps, &Lists::EMSAutoStepCount}},
    {&Lists::EMIAutoTest, nullptr, {&Lists::EMIAutoSteps, &Lists::EMIAutoStepCount}},
    {&Lists::TSTest, nullptr, {&Lists::TSTests, &Lists::TSTestCount}},
    {&Lists::AziChart},
    {&Lists::VKSTemplate,
     nullptr,
     {&Lists::VKSTests, &Lists::VKSTestCount},
     {&Lists::VKSSteps, &Lists::VKSStepCount}},
    {&Lists::VKSDUTGlob, nullptr, {}, {&Lists::VKSSteps, &Lists::VKSStepCount}},
};

// ---- both side by side -------------------------------------------------------------------------

/// The module that is edited, and the seed of the random edits.
using EditRow = std::tuple<int, unsigned>;

class EditModelTest : public EditorTest, public ::testing::WithParamInterface<EditRow> {
  protected:
    int Draw(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    bool Chance(int percent) { return Draw(1, 100) <= percent; }

    ModelAction DrawAction() {
        const int kind = Draw(0, ModelKinds - 1);
        ModelAction action{kind, std::nullopt};
        const bool mayBeEmpty = kind <= atRemote;
        if (RecordTypeOf[kind] >= 0 && !(mayBeEmpty && Chance(20))) {
            action.record = ModelRecord{++content, Draw(101, 103), Chance(30)};
        }
        return action;
    }
    void FillAtRandom(ModelList& actions) {
        for (int i = Draw(0, 3); i > 0; --i) {
            actions.push_back(DrawAction());
        }
    }
    void FillAtRandom(ModelSet& set) {
        for (ModelList ModelSet::*actions :
             {&ModelSet::enter, &ModelSet::leave, &ModelSet::freq, &ModelSet::mlc}) {
            FillAtRandom(set.*actions);
        }
    }
    void HoldBoth(const ModelAction& action) {
        model.Hold(action);
        HoldNew(ActionOf(action));
    }

    // ---- comparing -------------------------------------------------------------------------

    /// The store and the editor's copy of one set.
    template <class Get>
    void CompareSet(const ModelSet& wanted, Get&& setIn) {
        const p_Subrange expected = SetOf(wanted);
        EXPECT_TRUE(setIn(State()) == expected) << "the store";
        EXPECT_TRUE(setIn(Parts().lists) == expected) << "the editor";
    }
    void CompareSets(const ModelNumbered& member, const ModelSets& expected) {
        if (member.sets == nullptr) {
            return;
        }
        for (const Lists* lists : std::array<const Lists*, 2>{&State(), &Parts().lists}) {
            const DynArray<p_Subrange>& sets = lists->*member.sets;
            EXPECT_EQ(lists->*member.count, expected.count);
            ASSERT_EQ(sets.IsAllocated() ? sets.UpperBound() + 1 : 0,
                      static_cast<int>(expected.sets.size()));
        }
        for (std::size_t i = 0; i < expected.sets.size(); ++i) {
            SCOPED_TRACE(i);
            CompareSet(expected.sets[i], [&](const Lists& lists) -> const p_Subrange& {
                return (lists.*member.sets)[static_cast<std::int32_t>(i)];
            });
        }
    }
    void CompareFixed(p_Subrange Lists::*member, const ModelSet& expected) {
        if (member != nullptr) {
            CompareSet(expected,
                       [&](const Lists& lists) -> const p_Subrange& { return lists.*member; });
        }
    }
    void CompareLists() {
        CompareFixed(members.first, model.first);
        CompareFixed(members.second, model.second);
        CompareSets(members.numbered, model.numbered);
        CompareSets(members.steps, model.steps);
    }
    /// Key and caption of each line below a moment.
    std::vector<std::pair<String, String>> ExpectedLines(const ModelList& actions,
                                                         const String& key) {
        std::vector<std::pair<String, String>> lines;
        for (std::size_t i = 0; i < actions.size(); ++i) {
            if (actions[i].IsVisible()) {
                lines.emplace_back(L"CHI" + std::to_wstring(i) + key,
                                   String(ModelTitles[actions[i].kind]) +
                                       DetailOf(actions[i], model.module >= aceVKSTemplate));
            }
        }
        return lines;
    }
    std::vector<std::pair<String, String>> ShownLines(const String& key) {
        std::vector<std::pair<String, String>> lines;
        for (TreeNode line = tree.FirstChild(tree.Find(key)); line; line = tree.NextSibling(line)) {
            lines.emplace_back(tree.Key(line), tree.Caption(line));
        }
        return lines;
    }
    /// A matrix shows either its rows or the lists for all of them.
    bool IsShown(const ModelMoment& moment) {
        return model.module != aceVKSDUT ||
               moment.HasNumber() == (State().VKSDUTTemplate != GlobalLists);
    }
    void CompareTree() {
        std::size_t expected = 0;
        for (const ModelMoment& moment : MomentsOfModule[model.module]) {
            for (int number = 0; IsShown(moment) && number < model.CountOf(moment); ++number) {
                const String key = EditModel::KeyOf(moment, number);
                ASSERT_TRUE(IsThere(key)) << testing::PrintToString(key);
                const auto lines = ExpectedLines(model.ListOf(moment, number), key);
                EXPECT_EQ(ShownLines(key), lines) << testing::PrintToString(key);
                expected += lines.size();
            }
        }
        EXPECT_EQ(KeysThat(EditModel::IsLine).size(), expected);
    }
    void Compare() {
        CompareLists();
        CompareTree();
        EXPECT_EQ(engine->Change(), model.change);
        EXPECT_EQ(Parts().held.Action, ActionOf(model.held));
        host->journal.Clear();
    }

    template <class Wanted>
    std::vector<String> KeysThat(Wanted&& wanted) {
        std::vector<String> keys;
        for (const TreeNode node : tree.Nodes()) {
            if (String key = tree.Key(node); wanted(key)) {
                keys.push_back(std::move(key));
            }
        }
        return keys;
    }

    static constexpr std::int32_t GlobalLists = 3;
    std::mt19937 random{std::get<1>(GetParam())};
    EditModel model{.module = std::get<0>(GetParam())};
    const ModelMembers& members = MembersOf[model.module];
    int content = 0;
};

}  // namespace ace::test
