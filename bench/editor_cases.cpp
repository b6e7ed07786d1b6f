#include <memory>

#include <ace/core/actions_engine.h>
#include <ace/core/text.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"
#include "bench/quiet_tree.h"

namespace ace::bench {

namespace {

p_Action Command() {
    aceRemote record;
    record.Command = L"SOURCE:FREQUENCY:CW?";
    p_Action action;
    action.ActionType = atRemote;
    action.Parameter = record;
    return action;
}

void FillWithCommands(p_Subrange& set, std::int32_t count) {
    set.Enter.Redim(0, count - 1);
    set.EnterCount = count;
    for (p_Action& action : set.Enter) {
        action = Command();
    }
}

/// An engine, and the controls that show its lists.
struct Shown {
    void Open() { engine.LoadEditor(&list, &tree); }
    EditorParts& Parts() { return static_cast<frmEditor&>(*context.Editor).Parts(); }

    QuietTree tree;
    QuietList list;
    ThreadContext context{QuietHost()};
    aceActionsEngine engine{context};
};

// ---- opening -----------------------------------------------------------------------------------

/// Steps of an automatic test with one action each.
void FillSteps(EngineState& state, std::int32_t size) {
    state.Modul = aceEMSAutoTemplate;
    state.EMSAutoStepCount = size;
    state.EMSAutoSteps.Redim(0, size - 1);
    for (p_Subrange& step : state.EMSAutoSteps) {
        FillWithCommands(step, 1);
    }
}

/// Wireless tests of ten steps each; every step has one action.
void FillWireless(aceActionsEngine& engine, std::int32_t steps) {
    constexpr std::int32_t StepsOfTest = 10;
    EngineState& state = engine.State();
    const std::int32_t tests = steps / StepsOfTest;
    state.Modul = aceVKSTemplate;
    state.VKSTestCount = tests;
    state.VKSTests.Redim(0, tests);
    for (DynArray<String> ModuleLists::*texts :
         {&ModuleLists::VKSTestUKeys, &ModuleLists::VKSHostUKeys, &ModuleLists::VKSHostNames}) {
        (state.*texts).Redim(0, tests);
    }
    for (std::int32_t test = 0; test < tests; ++test) {
        const String key = L"{a test of the host: " + IntegerText(test) + L"}";
        state.VKSTestUKeys[test] = key;
        state.VKSHostUKeys[tests - 1 - test] = key;
        for (std::int32_t step = 0; step < StepsOfTest; ++step) {
            engine.AddVKSStep(L"{a step: " + IntegerText(step) + L"}", key, L"a step");
        }
    }
    for (std::int32_t step = 0; step < steps; ++step) {
        FillWithCommands(state.VKSSteps[step], 1);
    }
}

/// A matrix of ten bandwidths and ten powers; every row has one action.
void FillMatrix(aceActionsEngine& engine, std::int32_t rows) {
    constexpr std::int32_t Edge = 10;
    engine.State().Modul = aceVKSDUT;
    for (std::int32_t i = 1; i <= rows / (Edge * Edge); ++i) {
        engine.AddVKSDUTFreq(L"a frequency", 1e6 * i);
    }
    for (std::int32_t i = 0; i < Edge; ++i) {
        engine.AddVKSDUTBandwidthID(L"a bandwidth");
        engine.AddVKSDUTPowerID(L"a power");
    }
    engine.SetVKSDUTInfluence(1, 1, 1);
    for (std::int32_t row = 0; row < rows; ++row) {
        FillWithCommands(engine.State().VKSSteps[row], 1);
    }
}

using Fill = void (*)(aceActionsEngine& engine, std::int32_t size);

Work OpenOn(Fill fill, std::int32_t size) {
    const auto shown = std::make_shared<Shown>();
    fill(shown->engine, size);
    return [shown] { shown->Open(); };
}

// ---- editing -----------------------------------------------------------------------------------

/// A start list of so many commands, which is shown anew after each edit.
Work AddAndDelete(std::int32_t size) {
    const auto shown = std::make_shared<Shown>();
    EngineState& state = shown->engine.State();
    state.Modul = aceTemplate;
    FillWithCommands(state.MainTest, size);
    shown->Open();
    Hold(shown->Parts().held, Command());
    return [shown, size] {
        shown->tree.Select(shown->tree.Find(L"ETE"));
        AddAction(shown->Parts(), true);
        shown->tree.Select(shown->tree.Find(L"CHI" + IntegerText(size) + L"ETE"));
        DeleteAction(shown->Parts());
    };
}

// ---- the cases -----------------------------------------------------------------------------

constexpr std::int32_t Few = 1000;
constexpr std::int32_t Many = 10000;
/// Whether to trace is asked at either end of an operation.
constexpr std::size_t Traced = 2;
/// Ten thousand are to cost at most twelve times what a thousand cost.
constexpr Limits Linear{.instructions = 1.2};

Case Growing(std::string name, std::string unit, const std::function<Work(std::int32_t)>& work,
             const CallCounts& calls) {
    Case made{std::move(name) + ", 10000 beside 1000",
              std::move(unit),
              Many,
              [work] { return work(Few); },
              [work] { return work(Many); },
              Linear,
              Few};
    for (const Call call : {Call::TraceQuestion, Call::Node}) {
        made.calls.push_back({call, calls[static_cast<std::size_t>(call)]});
    }
    return made;
}

CallCounts Calls(std::size_t operations, std::size_t nodes) {
    CallCounts counts{};
    counts[static_cast<std::size_t>(Call::TraceQuestion)] = Traced * operations;
    counts[static_cast<std::size_t>(Call::Node)] = nodes;
    return counts;
}

}  // namespace

/// Each operation that is traced: those of the engine and of the form, and each list that is shown.
std::vector<Case> EditorCases() {
    constexpr std::size_t Loads = 2;
    constexpr std::size_t Nodes = 2 * std::size_t{Many};  // a moment and its line
    constexpr std::size_t Tests = Many / 10;
    constexpr std::size_t Frequencies = 100;
    constexpr std::size_t Groups = Frequencies + 10 * Frequencies;
    const auto steps = [](aceActionsEngine& engine, std::int32_t size) {
        FillSteps(engine.State(), size);
    };
    return {
        Growing(
            "open the editor on steps", "step",
            [=](std::int32_t size) { return OpenOn(steps, size); }, Calls(Loads + Many, Nodes)),
        Growing(
            "open the editor on wireless tests of ten steps", "step",
            [](std::int32_t size) { return OpenOn(FillWireless, size); },
            Calls(Loads + 2 + 2 * Tests + Many, 2 + 3 * Tests + Nodes)),
        Growing(
            "open the editor on the rows of a matrix", "row",
            [](std::int32_t size) { return OpenOn(FillMatrix, size); },
            Calls(Loads + Many, Groups + Nodes)),
        // AddAction, DeleteAction: each finds its place and shows the list
        Growing("add and delete an action in a list", "action", AddAndDelete, Calls(6, Nodes + 1)),
    };
}

}  // namespace ace::bench
