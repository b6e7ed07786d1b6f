/// Whatever the host does in any call while the editor works: memory stays sound, the outcome is an
/// error or an answer, and the editor opens again. Trees, lists, language data and trace logs let
/// no messages run, but a host may have its own view of that. A sample runs by default; ACE_PROVE=1
/// in the environment runs all, and ACE_SEED another sample.
#include "editor/interrupted_editor.h"

namespace ace::test {
namespace {

void OpenOther(OpenEditor& open) {
    open.engine->LoadEditor(open.otherList.get(), open.otherTree.get());
}
void OpenAgain(OpenEditor& open) {
    open.context.Editor->LoadEditor(open.engine->State().Modul,
                                    open.engine->State().shared_from_this());
}
void Add(OpenEditor& open) {
    AddAction(*open.Parts(), true);
}
void Delete(OpenEditor& open) {
    DeleteAction(*open.Parts());
}
void Modify(OpenEditor& open) {
    Hold(open.Parts()->held, WaitFor(7));
    ModifyAction(*open.Parts());
}
void TakeOther(OpenEditor& open) {
    const ModuleLists lists = open.Parts()->lists;
    open.context.Editor->TakeLists(lists);
}

// The mouse; its tree lives until the act has ended.
void DropLineOn(OpenEditor& open, const String& key, std::int32_t shift) {
    if (const std::shared_ptr<sim::SimTree> tree = open.tree) {
        tree->DropAnyway({L"ACT:1000,DEV"}, key, shift);
    }
}
void MoveLine(OpenEditor& open) {
    DropLineOn(open, L"LSR1", 0);
}
void CopyLine(OpenEditor& open) {
    DropLineOn(open, L"LSR1", ShiftKeys::Control);
}
void DropOnLine(OpenEditor& open) {
    DropLineOn(open, L"CHI2ESR0", 0);
}
void DropKind(OpenEditor& open) {
    if (const std::shared_ptr<sim::SimTree> tree = open.tree) {
        tree->DropAnyway({L"ACT:0"}, L"LSR1");
    }
}
void ChooseKind(OpenEditor& open) {
    if (open.list) {
        open.list->DoubleClick(L"ACT:0");
    }
}
void EditLine(OpenEditor& open) {
    if (const std::shared_ptr<sim::SimTree> tree = open.tree) {
        tree->DoubleClick(L"CHI2ESR0");
    }
}
void ClearByMenu(OpenEditor& open) {
    if (const std::shared_ptr<sim::SimTree> tree = open.tree) {
        tree->Press(L"ESR1", MouseButtons::Right);
        tree->Release(L"ESR1", MouseButtons::Right);
    }
}

const EditorWork Works[] = {
    {"LoadEditor of a template", aceTemplate, {}, OpenOther},
    {"LoadEditor of monitoring", aceMonitoring, {}, OpenOther},
    {"LoadEditor of wireless tests", aceVKSTemplate, {}, OpenOther},
    {"LoadEditor of a matrix", aceVKSDUT, {}, OpenOther},
    {"building the tree again", aceTemplate, {}, OpenAgain},
    {"building the wireless tree again", aceVKSTemplate, {}, OpenAgain},
    {"building the matrix again", aceVKSDUT, {}, OpenAgain},
    {"AddAction", aceTemplate, L"ESR1", Add},
    {"AddAction on a line", aceVKSTemplate, L"CHI1STE0", Add},
    {"AddAction on a group", aceMonitoring, L"CHA1", Add},
    {"ModifyAction", aceTemplate, L"CHI0LSR0", Modify},
    {"DeleteAction", aceMonitoring, L"CHI1TRI1", Delete},
    {"DeleteAction of a group", aceMonitoring, L"CHA0", Delete},
    {"DeleteAction of a row", aceVKSDUT, L"STE1", Delete},
    {"MoveAction",
     aceTemplate,
     {},
     [](OpenEditor& open) { MoveAction(*open.Parts(), ptEnterSubRange, 0, 0, 2); }},
    {"GetAction", aceTemplate, L"CHI2ESR0", [](OpenEditor& open) { GetAction(*open.Parts()); }},
    {"SetSubrange",
     aceTemplate,
     {},
     [](OpenEditor& open) { open.engine->EditorSelectSubrange(2); }},
    {"TakeLists", aceEMIAutoTemplate, {}, TakeOther},
    {"AddSubrange", aceTemplate, {}, [](OpenEditor& open) { open.engine->AddSubrange(2); }},
    {"MoveSubrange", aceTSTemplate, {}, [](OpenEditor& open) { open.engine->MoveSubrange(1, 2); }},
    {"Release", aceTemplate, {}, [](OpenEditor& open) { open.engine->Release(); }},
    {"a line that is moved", aceTemplate, L"CHI1ESR0", MoveLine},
    {"a line that is copied", aceTemplate, L"CHI1ESR0", CopyLine},
    {"a line on one of its list", aceTemplate, L"CHI1ESR0", DropOnLine},
    {"a kind that is dropped", aceTemplate, {}, DropKind},
    {"a kind that is chosen", aceTemplate, L"ESR1", ChooseKind},
    {"a line that is edited", aceTemplate, {}, EditLine},
    {"a command of the menu", aceTemplate, {}, ClearByMenu},
};

// ---- what the host does meanwhile --------------------------------------------------------------

struct HostAct {
    const char* name;
    void (*call)(OpenEditor& open);
};

template <void (*Edit)(EditorParts& parts)>
void OnParts(OpenEditor& open) {
    if (EditorParts* const parts = open.Parts()) {
        Edit(*parts);
    }
}

const HostAct Acts[] = {
    {"LoadEditor", [](auto& open) { open.engine->LoadEditor(open.list.get(), open.tree.get()); }},
    {"LoadEditor with other controls", OpenOther},
    {"LoadEditor of another engine",
     [](auto& open) {
         aceActionsEngine(open.context).LoadEditor(open.list.get(), open.tree.get());
     }},
    {"Release", [](auto& open) { open.engine->Release(); }},
    {"Release and LoadEditor",
     [](auto& open) {
         open.engine->Release();
         OpenOther(open);
     }},
    {"the end of the engine", [](auto& open) { open.engine.reset(); }},
    {"Release and the end of the engine",
     [](auto& open) {
         open.engine->Release();
         open.engine.reset();
     }},
    {"the end of the tree", [](auto& open) { open.EndTree(); }},
    {"the end of the list", [](auto& open) { open.EndList(); }},
    {"the end of both controls and Release",
     [](auto& open) {
         open.EndTree();
         open.EndList();
         open.engine->Release();
     }},
    {"AddSubrange", [](auto& open) { open.engine->AddSubrange(1, L"T9"); }},
    {"DeleteSubrange", [](auto& open) { open.engine->DeleteSubrange(1, FirstTest); }},
    {"Change true", [](auto& open) { open.engine->Change(true); }},
    {"EditorSelectSubrange", [](auto& open) { open.engine->EditorSelectSubrange(1); }},
    {"AddAction", OnParts<[](EditorParts& parts) { AddAction(parts, true); }>},
    {"ModifyAction", OnParts<ModifyAction>},
    {"DeleteAction", OnParts<DeleteAction>},
    {"GetAction", OnParts<GetAction>},
    {"MoveAction",
     OnParts<[](EditorParts& parts) { MoveAction(parts, ptEnterSubRange, 1, 0, 1); }>},
    {"TakeLists", TakeOther},
    {"a drop of a line", MoveLine},
    {"a drop of a kind", DropKind},
    {"a double click on a kind", ChooseKind},
    {"a double click on a line", EditLine},
    {"a command of the menu", ClearByMenu},
};

TEST(EditorReentry, UndisturbedTheMouseReachesTheStore) {
    for (const auto work : {MoveLine, CopyLine, DropOnLine, DropKind, ChooseKind, ClearByMenu}) {
        OpenEditor open(aceTemplate);
        open.Select(L"CHI1ESR0");
        work(open);
        EXPECT_TRUE(open.engine->Change());
    }
}

TEST(EditorReentry, WhateverTheHostDoesWithTheEditorInAnyOfItsCallsMemoryStaysSound) {
    Sample sample(60);
    std::size_t refused = 0;
    for (const EditorWork& work : Works) {
        const std::size_t calls = CallsOf(work);
        EXPECT_GE(calls, 1U) << work.name;
        for (std::size_t i = 0; i < calls * std::size(Acts); ++i) {
            if (sample.Takes()) {
                const HostAct& act = Acts[i % std::size(Acts)];
                InterruptedWork run(work);
                run.Run(i / std::size(Acts) + 1, act.name, act.call);
                refused += run.WasRefused() ? 1U : 0U;
            }
        }
    }
    EXPECT_GT(refused, 0U) << "a sample without a refused call proves little";
}

TEST(EditorReentry, EveryOperationOfTheEngineInAnyOfItsCallsDoesSoToo) {
    CallEveryOperationIn(Works, Sample(1000));
}

}  // namespace
}  // namespace ace::test
