/// An editor on a random settings file, the plain model of its lists beside it, and an operator
/// who does anything to the dialog.
#pragma once

#include "editor/dialog_operator.h"
#include "editor/dialog_rules.h"
#include "editor/edit_model_fixture.h"

namespace ace::test {

/// The sections of a module: those of its fixed sets, and the word before the number of the others.
struct ModelSections {
    const wchar_t* first = nullptr;
    const wchar_t* second = nullptr;
    const wchar_t* numbered = nullptr;
};
inline constexpr ModelSections SectionsOfModule[9] = {
    {L"ActionsOnTest", nullptr, L"ActionsOnSR"},
    {L"ActionsOnEutMon", L"ActionsOnMonTestLoop", L"ActionsOnChannel"},
    {L"ActionsOnEMSAutoTest"},
    {nullptr, nullptr, L"ActionsOnStep"},
    {L"ActionsOnEMIAutoTest", nullptr, L"ActionsOnStep"},
    {L"ActionsOnTestSequence", nullptr, L"ActionsOnTest"},
    {L"ActionsOnAzimuthChart"},
    {L"ActionsOnVKSTemplate", nullptr, L"ActionsOnTest"},
    {}};

class DialogRandomFixture : public FreeEditor, public ::testing::WithParamInterface<EditRow> {
  protected:
    DialogRandomFixture() {
        host->journal.KeepNone();
        MakeBench();
        for (const ModelMacro& macro : ModelMacros) {
            host->macros[macro.program].loads = macro.loads;
            host->macros[macro.program].parameters = macro.kinds;
        }
        MakeFile();
        Load();
    }

    int Draw(int from, int to) { return user.Draw(from, to); }
    bool Chance(int percent) { return user.Chance(percent); }

    // ---- bench -------------------------------------------------------------------------------

    void MakeBench() {
        auto& bench = host->bench;
        bench.Add<sim::SimMonitor>(*host, L"Meter");
        bench.Add<sim::SimMonitor>(*host, L"Scope")->capabilities = IMonitorDevice::UseToSet;
        bench.Add<sim::SimBcGenerator>(*host, L"Injector");
        bench.Add<sim::SimAmplifier>(*host, L"Amp");
        bench.Add<sim::SimSwitchUnit>(*host, L"Unit")->paths = {L"P1", L"P2"};
        bench.Add<sim::SimSignalPath>(*host, L"Coax");
        bench.Add<sim::SimRfGenerator>(*host, L"Source");
    }
    /// A device goes, or one that has gone comes back.
    void ChangeBench() {
        auto& devices = host->bench.devices;
        if (!gone.empty() && Chance(60)) {
            devices.push_back(gone.back());
            gone.pop_back();
        } else if (!devices.empty()) {
            const auto one = devices.begin() + Draw(0, static_cast<int>(devices.size()) - 1);
            gone.push_back(*one);
            devices.erase(one);
        }
    }

    // ---- the file ----------------------------------------------------------------------------

    ModelAction DrawLine(char letter) {
        static const std::vector<std::pair<int, String>> lines = {
            {0, L"1500.000"},
            {1, L"Stop,,1"},
            {1, L",c:\\a.wav,0"},
            {2, L"*RST,0,120,0,,0,"},
            {2,
             L"A\x01"
             L"B,1,3,2,run.exe,1,"},
            {2, L"X,2,gen,50:2,,0,"},
            {2, L",,,,c:\\p.exe,1,"},
            {3, L"Meter,@"},
            {3, L"Injector,@,Coax"},
            {4, L"Meter,@,1,1,0,0,20.00,1,4.50,0"},
            {5, L"Meter,250"},
            {5, L"Source,levels,40,1,1,Coax\x02"},
            {6, L"1"},
            {7, L""},
            {8, L""},
            {9, L""},
            {10, L""},
            {11, L""},
            {12, L"Amp,3"},
            {13, L"Unit,P2"},
            {14, L"two.mac||1.5||levels"},
            {14, L"none.mac"},
            {15, L""},
            {16, L"Ready?,,0"},
            {17, L"Meter,@,1,1,0,0,20.00,0,10.00,0"}};
        while (true) {
            const auto& [kind, value] = user.DrawFrom(lines);
            if (std::string_view(LineKinds[kind].lists).find(letter) != std::string_view::npos) {
                return model.Make(kind, value, Draw(101, 103));
            }
        }
    }
    void FillAtRandom(ModelSet& set) {
        for (const LineKeys& keys : ListKeys) {
            for (int i = Draw(0, 2); i > 0; --i) {
                (set.*keys.list).push_back(DrawLine(keys.letter));
            }
        }
    }
    void MakeFile() {
        host->files[L"setup.ini"] = sim::ParseSections(
            L"[Actions101-Device]\nTitle=first\n[Actions102-Device]\nTitle=second\n"
            L"[Actions103-Device]\nTitle=third\n[General]\nTemplateType=" +
            std::to_wstring(isEmission ? 4 : 0));
        model.sections = {{101, L"Title=first"}, {102, L"Title=second"}, {103, L"Title=third"}};
        mode = model.module == aceVKSDUT ? Draw(0, 3) : 0;
        if (sections.numbered != nullptr) {
            // These two have next to nothing without.
            const bool needsOne =
                model.module == aceVKSTemplate || model.module == aceEMSAutoTemplate;
            model.numbered.count = Draw(needsOne ? 1 : 0, 3);
            model.numbered.Resize(model.numbered.count - 1);
        }
        for (int test = 0; model.module == aceVKSTemplate && test < model.numbered.count; ++test) {
            for (int step = Draw(0, 2); step > 0; --step) {
                stepTests.push_back(test);
            }
        }
        model.steps.count = static_cast<int>(stepTests.size());
        model.steps.Resize(model.steps.count - 1);
        FillSets();
        WriteFile();
    }
    void FillSets() {
        if (model.module != aceVKSDUT || mode == GlobalLists) {
            FillAtRandom(model.first);
        }
        FillAtRandom(model.second);
        for (ModelSets* const sets : {&model.numbered, &model.steps}) {
            for (ModelSet& set : sets->sets) {
                FillAtRandom(set);
            }
        }
    }
    /// Calls `visit` with each section of the module and the set that it holds.
    template <class Visit>
    void ForEachSection(Visit&& visit) {
        if (sections.first != nullptr) {
            visit(sections.first, model.first);
        }
        if (sections.second != nullptr) {
            visit(sections.second, model.second);
        }
        for (int i = 0; sections.numbered != nullptr && i < model.numbered.count; ++i) {
            visit(sections.numbered + std::to_wstring(i + 1), model.numbered.At(i));
        }
        for (int i = 0; i < model.steps.count; ++i) {
            visit(StepSection(i), model.steps.At(i));
        }
        if (model.module == aceVKSDUT && mode == GlobalLists) {
            visit(L"ActionsOnVKSDUTGlob", model.first);
        }
    }
    String StepSection(int step) {
        if (model.module == aceVKSDUT) {
            return L"ActionsOnStep_" + std::to_wstring(mode) + L"_" + std::to_wstring(step + 1);
        }
        const int test = stepTests.at(static_cast<std::size_t>(step));
        const auto of = std::count(stepTests.begin(), stepTests.begin() + step, test);
        return L"ActionsOnStepU" + std::to_wstring(test) + L"_" + std::to_wstring(of + 1);
    }
    void WriteFile() {
        sim::SimSections& file = host->files[L"setup.ini"];
        ForEachSection([&](const String& name, const ModelSet& set) {
            file[name] = model.Section(set);
            if (name.starts_with(L"ActionsOnStepU")) {
                file[name + L"_VKS"] = {L"VKS_Name=step", L"VKS_Key=K" + name};
            }
        });
        for (int test = 0; model.module == aceVKSTemplate && test < model.numbered.count; ++test) {
            const auto steps = std::count(stepTests.begin(), stepTests.end(), test);
            file[L"ActionsOnTest" + std::to_wstring(test + 1) + L"_VKS"] = {
                L"VKS_UKey=U" + std::to_wstring(test), L"SUBSTEPS=" + std::to_wstring(steps)};
        }
    }
    void Load() {
        const bool isMatrix = model.module == aceVKSDUT;
        engine->LoadActions(L"setup.ini", isMatrix ? mode : model.numbered.count,
                            static_cast<aceModul>(model.module));
        ForEachSection([&](const String&, ModelSet& set) { set = model.ReadAgain(set); });
        if (model.module == aceVKSTemplate) {
            AnnounceTests();
        } else if (isMatrix && !isMade) {
            MakeRows();
        }
        engine->LoadEditor(&list, &tree);
    }
    void AnnounceTests() {
        DynArray<String> keys;
        keys.Redim(0, model.numbered.count - 1);
        for (int test = 0; test < model.numbered.count; ++test) {
            keys[test] = L"U" + std::to_wstring(test);
        }
        engine->SetVKSTests(keys, keys);
    }
    /// The host announces its tables; the rows that the engine makes of them are empty.
    void MakeRows() {
        isMade = true;
        engine->SetVKSDUTInfluence(Draw(0, 1), Draw(0, 1), Draw(0, 1));
        engine->AddVKSDUTFreq(L"mid", 2.4e9);
        engine->AddVKSDUTFreq(L"test mode", Draw(0, 1) * 1e6);
        engine->AddVKSDUTBandwidthID(L"narrow", -1);
        engine->AddVKSDUTPowerID(L"low", -1);
        engine->AddVKSDUTPowerID(L"high", -1);
        model.steps.count = State().VKSStepCount;
        model.steps.Resize(model.steps.count - 1);
    }

    static constexpr int GlobalLists = 3;
    std::mt19937 random{std::get<1>(GetParam())};
    DialogEdits model{{.module = std::get<0>(GetParam())}};
    DialogOperator user{*host, random, model};
    const ModelSections& sections = SectionsOfModule[model.module];
    const ModelMembers& members = MembersOf[model.module];
    const bool isEmission = model.module == aceTemplate && std::get<1>(GetParam()) % 2 != 0;
    int mode = 0;  ///< of a matrix
    bool isMade = false;
    std::vector<int> stepTests;  ///< to which test each step belongs
    std::vector<std::shared_ptr<sim::SimDevice>> gone;
};

}  // namespace ace::test
