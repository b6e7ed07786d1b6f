/// The work of an editor into which the host breaks in one of its calls, and the judgement of what
/// is left.
#pragma once

#include "editor/broken_into_editor.h"
#include "support/every_operation.h"
#include "support/list_agreement.h"
#include "support/sample.h"

namespace ace::test {

// ---- what the editor is at ---------------------------------------------------------------------

struct EditorWork {
    const char* name;
    aceModul moduleKind;
    StringView selected;
    void (*run)(OpenEditor& open);
    std::vector<sim::FormAct> acts =
        {};  ///< of the operator in each dialog, before it is confirmed
};

// ---- one run -----------------------------------------------------------------------------------

/// A work of the editor on fresh lists; in its `place`-th call of the host, from 1, `act` runs
/// once.
class InterruptedWork {
  public:
    explicit InterruptedWork(const EditorWork& work) : x_work(work), x_open(work.moduleKind) {
        if (!work.selected.empty()) {
            x_open.Select(String(work.selected));
        }
    }
    /// The place of no call.
    static constexpr std::size_t Never = 0;

    const OpenEditor& Open() const { return x_open; }
    /// Calls of the host so far.
    std::size_t Calls() const { return x_calls; }
    /// What the host did in the midst ended with error 10.
    bool WasRefused() const { return x_wasRefused; }
    template <class Act>
    void Run(std::size_t place, const char* name, Act&& act) {
        SCOPED_TRACE(std::string(name) + " in " + x_work.name + ", call " + std::to_string(place));
        x_open.host->beforeCall = [&](StringView operation, const auto&) {
            if (++x_calls > MostCalls) {
                throw RunTimeError(TooManyCalls, L"this work does not end");
            }
            if (x_calls == place) {
                x_open.operation = operation;
                Interrupt(act);
            }
            if (operation == L"FormHost.ShowModal") {
                ActInDialog();
            }
        };
        EXPECT_NE(ErrorOf([&] { x_work.run(x_open); }), TooManyCalls);
        x_open.host->beforeCall = nullptr;
        EXPECT_TRUE(x_calls >= place || place == Never);
        Judge();
    }

  private:
    static constexpr std::size_t MostCalls = 100000;
    static constexpr std::int32_t TooManyCalls = 9999;

    /// The form is on the screen when the host is told of it.
    void ActInDialog() {
        const auto form = std::dynamic_pointer_cast<frmEditor>(x_open.context.Editor);
        for (const sim::FormAct& act : x_work.acts) {
            if (form && form->IsShown()) {
                act(*form);
            }
        }
    }
    /// What is refused leaves the editor's lists as they were.
    template <class Act>
    void Interrupt(Act& act) {
        std::optional<ModuleLists> before;
        if (x_open.Parts() != nullptr) {
            before = x_open.Parts()->lists;
        }
        x_wasRefused = ErrorOf([&] { act(x_open); }) == Errors::ArrayInUse;
        if (x_wasRefused && before && x_open.Parts() != nullptr) {
            EXPECT_TRUE(x_open.Parts()->lists == *before);
        }
    }
    void Judge() {
        if (x_open.Parts() != nullptr) {
            EXPECT_THAT(ListAgreement::Breaches(x_open.Parts()->lists), ::testing::IsEmpty());
        }
        if (x_open.engine) {
            EXPECT_THAT(ListAgreement::Breaches(x_open.engine->State()), ::testing::IsEmpty());
        }
        aceActionsEngine fresh(x_open.context);
        FillModule(fresh.State(), aceTemplate, ThreeActions());
        sim::SimTree tree(*x_open.host);
        sim::SimList list(*x_open.host);
        EXPECT_EQ(ErrorOf([&] { fresh.LoadEditor(&list, &tree); }), 0);
        tree.Select(tree.Find(L"CHI2ESR1"));
        EXPECT_EQ(ErrorOf([&] { DeleteAction(*x_open.Parts()); }), 0);
        EXPECT_EQ(fresh.State().MainSubranges[1].EnterCount, 2);
        fresh.Release();
    }

    const EditorWork& x_work;
    OpenEditor x_open;
    std::size_t x_calls = 0;
    bool x_wasRefused = false;
};

inline std::size_t CallsOf(const EditorWork& work) {
    InterruptedWork undisturbed(work);
    undisturbed.Run(InterruptedWork::Never, "nothing", [](OpenEditor&) {});
    return undisturbed.Calls();
}

/// Every operation of the engine in any call of the host that one of the works makes, as far as the
/// sample takes it.
template <class Works>
void CallEveryOperationIn(const Works& works, Sample sample) {
    for (const EditorWork& work : works) {
        const std::size_t calls = CallsOf(work);
        for (std::size_t i = 0; i < calls * std::size(EveryOperation); ++i) {
            if (sample.Takes()) {
                const OperationRow& row = EveryOperation[i % std::size(EveryOperation)];
                InterruptedWork(work).Run(i / std::size(EveryOperation) + 1, row.name,
                                          [&](OpenEditor& open) { row.call(*open.engine); });
            }
        }
    }
}

}  // namespace ace::test
