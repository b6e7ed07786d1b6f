/// Whatever the host does in any call while an operator works in the dialog of an action, with its
/// fields, pickers and test button: memory stays sound, the outcome is an error or an answer, and
/// the editor opens again. A sample runs by default; ACE_PROVE=1 in the environment runs all, and
/// ACE_SEED another sample.
#include "editor/interrupted_editor.h"

namespace ace::test {
namespace {

using namespace sim;

template <std::int32_t Kind>
void Choose(OpenEditor& open) {
    auto& bench = open.host->bench;
    bench.Add<SimMonitor>(*open.host, L"Meter");
    bench.Add<SimSwitchUnit>(*open.host, L"Switch")->paths = {L"P1", L"P2"};
    open.host->macros[L"log.mac"].parameters = {0, 3};
    if (open.list) {
        open.list->DoubleClick(L"ACT:" + std::to_wstring(Kind));
    }
}
void EditDevice(OpenEditor& open) {
    if (const std::shared_ptr<SimTree> tree = open.tree) {
        tree->DoubleClick(L"CHI1ESR0");
    }
}

const EditorWork Works[] = {
    {"a wait", aceTemplate, L"ESR1", Choose<0>, {Type(L"txtWait", L"9999"), EndInput(L"txtWait")}},
    {"a message",
     aceMonitoring,
     L"NGO0",
     Choose<1>,
     {Type(L"txtMessage", L"Stop"), Press(L"cmdSelSound"), Press(L"cmdTestAction(0)")}},
    {"a command",
     aceTSTemplate,
     L"BFT0",
     Choose<2>,
     {Type(L"txtGpibCommand", L"*RST"), sim::Choose(L"cboIface", 1), Press(L"cmdSelDll"),
      Press(L"cmdTestAction(1)")}},
    {"a device", aceTemplate, L"ESR1", Choose<3>, {Press(L"imgDevice")}},
    {"a check",
     aceMonitoring,
     L"NGO1",
     Choose<4>,
     {Press(L"imgDevice"), Press(L"cmdTestAction(2)")}},
    {"a switch",
     aceEMSAutoTemplate,
     L"STE0",
     Choose<13>,
     {Press(L"imgSwitchUnit"), sim::Choose(L"cboSUPaths", 1)}},
    {"a macro",
     aceAziChart,
     L"ETE",
     Choose<14>,
     {ChooseFile(L"filAPIProgram", L"log.mac"), Type(L"txtAPIParameterValue", L"1"),
      sim::Choose(L"tabAPIParameter", 1), ChooseTable(L"filAPIParameterTable", 40, 0, L"t")}},
    {"a question with a variable",
     aceVKSTemplate,
     L"STE0",
     Choose<16>,
     {Type(L"txtMessage", L"Set?"), Press(L"cb_show_VKSVars(0)")}},
    {"a device that is there", aceTemplate, {}, EditDevice, {Press(L"imgDevice")}},
};

struct HostAct {
    const char* name;
    void (*call)(OpenEditor& open);
};
const HostAct HostActs[] = {
    {"Release", [](auto& open) { open.engine->Release(); }},
    {"Release and the end of the engine",
     [](auto& open) {
         open.engine->Release();
         open.engine.reset();
     }},
    {"LoadEditor with other controls",
     [](auto& open) { open.engine->LoadEditor(open.otherList.get(), open.otherTree.get()); }},
    {"another dialog", Choose<0>},
    {"the frame of the dialog",
     [](auto& open) {
         if (const auto form = std::dynamic_pointer_cast<frmEditor>(open.context.Editor)) {
             form->CloseByFrame();
         }
     }},
    {"Change true", [](auto& open) { open.engine->Change(true); }},
};

TEST(OperatorReentry, UndisturbedEachNewActionReachesTheStore) {
    for (const EditorWork& work : Works) {
        InterruptedWork undisturbed(work);
        undisturbed.Run(InterruptedWork::Never, "nothing", [](OpenEditor&) {});
        EXPECT_EQ(undisturbed.Open().engine->Change(), work.run != EditDevice) << work.name;
    }
}

TEST(OperatorReentry, WhateverTheHostDoesInAnyCallOfTheDialogMemoryStaysSound) {
    Sample sample(20);
    for (const EditorWork& work : Works) {
        const std::size_t calls = CallsOf(work);
        for (std::size_t i = 0; i < calls * std::size(HostActs); ++i) {
            if (sample.Takes()) {
                const HostAct& act = HostActs[i % std::size(HostActs)];
                InterruptedWork(work).Run(i / std::size(HostActs) + 1, act.name, act.call);
            }
        }
    }
}

TEST(OperatorReentry, EveryOperationOfTheEngineInAnyOfItsCallsDoesSoToo) {
    CallEveryOperationIn(Works, Sample(500));
}

}  // namespace
}  // namespace ace::test
