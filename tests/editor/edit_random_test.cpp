/// Sessions of random edits in the editor of each module, beside a plain model: after every edit
/// the editor's lists, the engine's store, the lines of the tree, the clipboard and the flag of
/// changes are those of the model. Between the edits the host changes its subranges and opens the
/// editor anew.
#include "editor/edit_model_fixture.h"

namespace ace::test {
namespace {

class EditRandomTest : public EditModelTest {
  protected:
    EditRandomTest() {
        host->files[L"lists.ini"] = sim::ParseSections(
            L"[Actions101-Device]\nTitle=first\n"
            L"[Actions102-Device]\nTitle=second\n"
            L"[Actions103-Device]\nTitle=third\n");
        model.sections = {{101, L"Title=first"}, {102, L"Title=second"}, {103, L"Title=third"}};
        host->journal.KeepNone();
        for (String& name : context.ModuleFileNames) {
            name = L"lists.ini";
        }
        model.sectionCounter = context.DeviceSectionCounter = 103;
        State().Modul = static_cast<aceModul>(model.module);
        MakeLists();
        WriteLists();
        Open(State().Modul);
        for (const int kind : {atWait, atNotify, atRemote, atAPI, atTrackFreq, atSetDevice}) {
            HoldBoth({kind, ModelRecord{++content, 101, false}});
        }
    }

    // ---- the lists at the start ------------------------------------------------------------

    void MakeLists() {
        if (model.module == aceVKSTemplate) {
            for (int i = Draw(1, 3); i > 0; --i) {
                AddWirelessTest();
            }
        } else if (model.module == aceVKSDUT) {
            MakeRows();
        } else if (members.numbered.sets != nullptr) {
            model.numbered.count = Draw(0, 4);
            model.numbered.Resize(model.numbered.count - 1);
        }
        FillAtRandom(model.first);
        FillAtRandom(model.second);
        for (ModelSets* sets : {&model.numbered, &model.steps}) {
            for (ModelSet& set : sets->sets) {
                FillAtRandom(set);
            }
        }
    }
    /// As many rows as the engine makes of the tables, with lists of the test's own.
    void MakeRows() {
        State().VKSDUTTemplate = mode = Draw(0, 3);
        engine->SetVKSDUTInfluence(Draw(0, 1), Draw(0, 1), Draw(0, 1));
        engine->AddVKSDUTFreq(L"mid", 2.4e9);
        engine->AddVKSDUTFreq(L"test mode", Draw(0, 1) * 1e6);
        engine->AddVKSDUTBandwidthID(L"narrow", -1);
        engine->AddVKSDUTBandwidthID(L"wide", -1);
        engine->AddVKSDUTPowerID(L"low", -1);
        engine->AddVKSDUTPowerID(L"high", -1);
        model.steps.count = State().VKSStepCount;
        model.steps.Resize(State().VKSSteps.UpperBound());
    }
    void Write(const ModelNumbered& member, const ModelSets& sets) {
        if (member.sets != nullptr && !sets.sets.empty()) {
            State().*member.count = sets.count;
            DynArray<p_Subrange>& written = State().*member.sets;
            written.Redim(0, static_cast<std::int32_t>(sets.sets.size()) - 1);
            for (std::size_t i = 0; i < sets.sets.size(); ++i) {
                written[static_cast<std::int32_t>(i)] = SetOf(sets.sets[i]);
            }
        } else if (member.sets != nullptr) {
            State().*member.count = sets.count;
        }
    }
    void WriteLists() {
        if (members.first != nullptr) {
            State().*members.first = SetOf(model.first);
        }
        if (members.second != nullptr) {
            State().*members.second = SetOf(model.second);
        }
        Write(members.numbered, model.numbered);
        Write(members.steps, model.steps);
    }

    // ---- edits -----------------------------------------------------------------------------

    /// A line where there is one, or a moment or group.
    String DrawNode(bool isLine) {
        const auto isNoLine = [](const String& key) { return !EditModel::IsLine(key); };
        std::vector<String> keys = KeysThat(EditModel::IsLine);
        if (!isLine || keys.empty()) {
            keys = KeysThat(isNoLine);
        }
        if (keys.empty()) {
            return {};
        }
        const String key =
            keys.at(static_cast<std::size_t>(Draw(0, static_cast<int>(keys.size()) - 1)));
        Select(key);
        return key;
    }
    void Add() {
        const String key = DrawNode(Chance(60));
        if (key.empty()) {
            return;
        }
        if (Chance(70)) {
            HoldBoth(DrawAction());
        }
        const bool newSection = Chance(50);
        const int expected = model.Add(key, newSection);
        EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), newSection); }), expected);
    }
    void Copy() {
        if (const String key = DrawNode(Chance(80)); !key.empty()) {
            const int expected = model.Get(key);
            EXPECT_EQ(ErrorOf([&] { GetAction(Parts()); }), expected);
        }
    }
    void Delete() {
        if (const String key = DrawNode(Chance(60)); !key.empty()) {
            const int expected = model.Delete(key);
            EXPECT_EQ(ErrorOf([&] { DeleteAction(Parts()); }), expected);
        }
    }
    /// What the dialog does between reading a line and its confirmation.
    void ChangeHeld() {
        ModelAction changed = model.held;
        switch (Draw(0, 3)) {
            case 0:
                return;
            case 1:
                changed = DrawAction();
                break;
            case 2:
                if (changed.record) {
                    changed.record->isCapital = !changed.record->isCapital;
                }
                break;
            default:
                if (changed.record) {
                    changed.record->content = ++content;
                }
                break;
        }
        HoldBoth(changed);
    }
    void Modify() {
        const String key = DrawNode(Chance(90));
        if (key.empty()) {
            return;
        }
        const int read = model.Get(key);
        EXPECT_EQ(ErrorOf([&] { GetAction(Parts()); }), read);
        ChangeHeld();
        const bool settingsChanged = Chance(20);
        Parts().DeviceSettingsChanged = settingsChanged;
        const int expected = model.Modify(key, settingsChanged);
        EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), expected);
    }
    void Move() {
        const std::vector<ModelMoment>& moments = MomentsOfModule[model.module];
        const ModelMoment& moment =
            moments.at(static_cast<std::size_t>(Draw(0, static_cast<int>(moments.size()) - 1)));
        if (model.CountOf(moment) == 0) {
            return;
        }
        const int number = Draw(0, model.CountOf(moment) - 1);
        const int count = static_cast<int>(model.ListOf(moment, number).size());
        const int from = Draw(-1, count + 1);
        const int to = Draw(-1, count + 1);
        if (from == count || to == count) {  // nobody moves there: error 9 in the midst
            return;
        }
        model.Move(moment, number, from, to);
        MoveAction(Parts(), static_cast<p_PerformTimes>(moment.time), number, from, to);
    }

    // ---- the host's operations -------------------------------------------------------------

    void OpenAnew() {
        if (model.module == aceVKSDUT && Chance(50)) {
            State().VKSDUTTemplate = State().VKSDUTTemplate == mode ? GlobalLists : mode;
        }
        engine->LoadEditor(&list, &tree);
    }
    void ChangeSubranges() {
        if (model.module == aceVKSTemplate) {
            Chance(50) ? AddWirelessTest() : DeleteWirelessTest();
            engine->LoadEditor(&list, &tree);
        } else if (members.numbered.sets == nullptr) {
            engine->DeleteSubrange(1);
        } else if (model.numbered.count == 0 || (model.numbered.count < 5 && Chance(40))) {
            const int index = Draw(1, model.numbered.count + 3);
            model.numbered.Add(index);
            engine->AddSubrange(index);
        } else {
            RearrangeSubranges();
        }
    }
    void RearrangeSubranges() {
        const int index = Draw(1, model.numbered.count);
        const int other = Draw(1, model.numbered.count);
        switch (Draw(0, 2)) {
            case 0:
                model.numbered.Delete(index);
                engine->DeleteSubrange(index);
                break;
            case 1:
                model.numbered.Move(index, other);
                engine->MoveSubrange(index, other);
                break;
            default:
                model.numbered.Swap(index, other);
                engine->SwapSubrange(index, other);
                break;
        }
    }
    void AddWirelessTest() {
        const String key = L"T" + std::to_wstring(++content);
        engine->AddSubrange(++model.numbered.count, key);
        --model.numbered.count;
        model.numbered.Add(model.numbered.count + 1);
        testKeys.push_back(key);
        for (int i = Draw(0, 2); i > 0; --i) {
            engine->AddVKSStep(L"S" + std::to_wstring(++content), key, L"step");
            model.steps.Add(model.steps.count + 1);
            stepOwners.push_back(key);
        }
        AnnounceTests();
    }
    void DeleteWirelessTest() {
        if (testKeys.empty()) {
            return;
        }
        const int index = Draw(1, static_cast<int>(testKeys.size()));
        const String key = testKeys.at(static_cast<std::size_t>(index) - 1);
        engine->DeleteSubrange(0, key);
        testKeys.erase(testKeys.begin() + index - 1);
        model.numbered.Delete(index);
        for (auto step = std::ranges::find(stepOwners, key); step != stepOwners.end();
             step = std::ranges::find(stepOwners, key)) {
            model.steps.Delete(static_cast<int>(step - stepOwners.begin()) + 1);
            stepOwners.erase(step);
        }
        AnnounceTests();
    }
    void AnnounceTests() {
        if (testKeys.empty()) {
            return;
        }
        DynArray<String> keys;
        keys.Redim(0, static_cast<std::int32_t>(testKeys.size()) - 1);
        for (std::size_t i = 0; i < testKeys.size(); ++i) {
            keys[static_cast<std::int32_t>(i)] = testKeys[i];
        }
        engine->SetVKSTests(keys, keys);
    }

    void Step() {
        const int drawn = Draw(1, 100);
        if (drawn <= 35) {
            Add();
        } else if (drawn <= 45) {
            Copy();
        } else if (drawn <= 65) {
            Delete();
        } else if (drawn <= 80) {
            Modify();
        } else if (drawn <= 88) {
            Move();
        } else if (drawn <= 92) {
            OpenAnew();
        } else if (drawn <= 97) {
            ChangeSubranges();
        } else {
            engine->Change(model.change = false);
        }
    }

    std::int32_t mode = 0;  ///< of a matrix, beside that of its global lists
    std::vector<String> testKeys;
    std::vector<String> stepOwners;
};

INSTANTIATE_TEST_SUITE_P(Modules, EditRandomTest,
                         ::testing::Combine(::testing::Range(0, 9), SeedsTo(1, 60)),
                         [](const auto& row) {
                             return "Modul" + std::to_string(std::get<0>(row.param)) + "Seed" +
                                    std::to_string(std::get<1>(row.param));
                         });

TEST_P(EditRandomTest, EditsFollowTheModelAndReachTheStore) {
    Compare();
    for (int step = 0; step < 300 && !HasFailure(); ++step) {
        Step();
        Compare();
    }
    for (const auto& [number, text] : model.sections) {
        const String section = L"Actions" + std::to_wstring(number) + L"-Device";
        EXPECT_EQ(host->files[L"lists.ini"][section], std::vector{text}) << number;
    }
}

}  // namespace
}  // namespace ace::test
