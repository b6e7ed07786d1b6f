/// Random operations on the lists of one module, compared with the model as a whole.
#pragma once

#include <random>

#include "matrix/model_readers.h"
#include "support/fake_editor.h"
#include "support/sample.h"

namespace ace::test {

/// The module that is served, and the seed of the random operations.
using StoreRow = std::tuple<aceModul, unsigned>;

/// So many seeds of each module.
template <class... Modules>
auto StoreRows(unsigned sample, unsigned whole, Modules... modules) {
    return ::testing::Combine(::testing::Values(modules...), SeedsTo(sample, whole));
}
inline std::string NameOfStoreRow(const ::testing::TestParamInfo<StoreRow>& row) {
    return "Modul" + std::to_string(std::get<0>(row.param)) + "Seed" +
           std::to_string(std::get<1>(row.param));
}

/// An engine of one module and the model side by side: random operations are made on both.
class StoreModelTest : public EngineTest, public ::testing::WithParamInterface<StoreRow> {
  protected:
    StoreModelTest() {
        State().Modul = moduleKind;
        context.Editor = std::make_shared<FakeEditor>(*host);
        model.loading = L"Editor.LoadEditor(" + std::to_wstring(moduleKind) + L")";
        model.wireless = moduleKind == aceVKSTemplate;
        // What a new object counts until a file is loaded.
        model.count = moduleKind == aceTSTemplate || moduleKind == aceVKSTemplate ? 0 : -1;
    }
    const NumberedSets& Numbered() const { return ModuleTable[moduleKind].numbered[0]; }

    int Draw(int from, int to) { return std::uniform_int_distribution(from, to)(random); }
    String DrawKey() {
        return std::array<String, 6>{L"a", L"b", L"c", L"d", L"", L"aa"}.at(
            static_cast<std::size_t>(Draw(0, 5)));
    }

    /// As a load leaves the lists: without a spare element, but for a wireless template.
    void Load(int entries) {
        DynArray<p_Subrange>& lists = State().*Numbered().sets;
        lists.Erase();
        model.list = {};
        model.count = State().*Numbered().count = entries;
        const int upper = model.wireless ? entries : entries - 1;
        if (upper >= 0) {
            lists.Redim(0, upper);
            model.list.Resize(upper);
        }
        for (ModelArray<String>* texts : {&model.keys, &model.hostKeys, &model.hostNames}) {
            *texts = {};
            texts->Resize(entries);
        }
        for (DynArray<String> ModuleLists::*texts :
             {&ModuleLists::VKSTestUKeys, &ModuleLists::VKSHostUKeys, &ModuleLists::VKSHostNames}) {
            (State().*texts).Redim(0, entries);
        }
        for (int i = 0; i < entries; ++i) {
            model.keys.At(i) = State().VKSTestUKeys[i] = DrawKey();
            Edit(lists[i], model.list.At(i));
        }
    }
    /// Gives an entry five new lists, some of them empty.
    void Edit(p_Subrange& set, ModelEntry& entry) {
        entry = {Draw(0, 1) * ++content, Draw(0, 1) * ++content, Draw(0, 2) * ++content,
                 Draw(0, 1) * ++content, Draw(0, 1) * ++content};
        Write(set, entry);
    }
    void EditSomeEntry() {
        if (model.count > 0) {
            const int index = Draw(0, model.count - 1);
            Edit((State().*Numbered().sets)[index], model.list.At(index));
        }
        if (model.stepCount > 0) {
            const int index = Draw(0, model.stepCount - 1);
            Edit(State().VKSSteps[index], model.steps.At(index));
        }
    }

    /// One operation on both; the index is now and then outside the list.
    void Step() {
        const int beyond = std::max(model.count, 0) + 3;
        const int index = Draw(-1, beyond);
        const int other = Draw(-1, beyond);
        const String key = DrawKey();
        const String name = std::to_wstring(++content);
        int expected = 0;
        std::function<void()> act = [] {};
        switch (Draw(0, 9)) {
            case 0:
            case 1:
                act = [&] { engine->AddSubrange(index, key); };
                expected = model.Add(index, key);
                break;
            case 2:
            case 3:
                act = [&] { engine->DeleteSubrange(index, key); };
                expected = model.Delete(index, key);
                break;
            case 4:
            case 5:
                act = [&] { engine->MoveSubrange(index, other); };
                expected = model.Move(index, other);
                break;
            case 6:
                act = [&] { engine->SwapSubrange(index, other); };
                expected = model.Swap(index, other);
                break;
            case 7:
                act = [&] { engine->AddVKSStep(name, key, name); };
                expected = model.AddStep(name, key, name);
                break;
            default:
                EditSomeEntry();
                break;
        }
        EXPECT_EQ(ErrorOf(act), expected);
    }

    void Compare() {
        EXPECT_EQ(Read(State().*Numbered().sets), model.list);
        EXPECT_EQ(State().*Numbered().count, model.count);
        EXPECT_EQ(State().InternalSubrangeOp, model.suppressed);
        EXPECT_EQ(host->journal.LinesOf(L"Editor."), model.editor);
        EXPECT_EQ(Read(State().VKSSteps), model.steps);
        EXPECT_EQ(State().VKSStepCount, model.stepCount);
        EXPECT_EQ(Read(State().VKSStepUKeys), model.stepOwners);
        EXPECT_EQ(Read(State().VKSStepNames), model.stepNames);
        EXPECT_EQ(Read(State().VKSStepKeys), model.stepKeys);
        if (model.wireless) {
            EXPECT_EQ(Read(State().VKSTestUKeys), model.keys);
            EXPECT_EQ(Read(State().VKSHostUKeys), model.hostKeys);
            EXPECT_EQ(Read(State().VKSHostNames), model.hostNames);
        }
        host->journal.Clear();
        model.editor.clear();
    }
    void Run(int steps) {
        for (int step = 0; step < steps && !HasFailure(); ++step) {
            Step();
            Compare();
        }
    }

    const aceModul moduleKind = std::get<0>(GetParam());
    std::mt19937 random{std::get<1>(GetParam())};
    StoreModel model;
    int content = 0;
};

}  // namespace ace::test
