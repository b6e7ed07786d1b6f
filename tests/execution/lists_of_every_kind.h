/// An engine whose lists hold an action of every kind, in a file of a host that answers by itself.
#pragma once

#include "core/fake_editor.h"
#include "support/every_kind.h"

namespace ace::test {

/// The calls of the host in which it may let messages run.
inline bool MessagesRunIn(StringView operation) {
    constexpr StringView Names[] = {L"Platform.Yield",
                                    L"SystemServices.ShowTimedMessage",
                                    L"Utilities.Wait",
                                    L"FormHost.ShowModal",
                                    L"UserDialogs.ShowMessageBox",
                                    L"ApiMacro.WaitFinished",
                                    L"DeviceList.GetDevice",
                                    L"Device.Activate"};
    return std::ranges::find(Names, operation) != std::end(Names);
}

/// Forms are closed by their frame, boxes are answered with yes, and each is a call.
class KindsHost : public sim::SimHost {
  public:
    std::shared_ptr<IFormHost> MakeFormHost() override { return std::make_shared<Closing>(*this); }
    std::shared_ptr<IUserDialogs> MakeUserDialogs() override {
        return std::make_shared<Agreeing>(*this);
    }

  private:
    struct Closing : DefaultFormHost {
        explicit Closing(SimHost& owner) : host(owner) {}
        void ShowModal(Form& form) override {
            host.Call(L"FormHost.ShowModal", {});
            DefaultFormHost::ShowModal(form);
        }
        SimHost& host;
    };
    struct Agreeing : DefaultUserDialogs {
        explicit Agreeing(SimHost& owner) : host(owner) {}
        std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                    const String& title) override {
            host.Call(L"UserDialogs.ShowMessageBox", {});
            return DefaultUserDialogs::ShowMessageBox(text, style, title);
        }
        SimHost& host;
    };
};

/// The engine of one module kind, its lists loaded from a file. Every set has all four lists; the
/// numbered ones are two. An editor is open.
class ListsOfEveryKind {
  public:
    explicit ListsOfEveryKind(aceModul moduleKind) {
        host->journal.Bound(10);
        host->bench.Add<sim::SimMonitor>(*host, L"EUT")->readings[7] = std::deque<double>(100, 0.0);
        host->bench.Add<sim::SimAmplifier>(*host, L"Amplifier");
        host->bench.Add<sim::SimSwitchUnit>(*host, L"Unit");
        host->bench.Add<sim::SimRfGenerator>(*host, L"Generator");
        host->files[L"lists.ini"] = FileOf(moduleKind);
        host->files[L"damaged.ini"] = {};
        for (const auto& [section, lines] : host->files[L"lists.ini"]) {
            host->files[L"damaged.ini"][section] = {L"NumOfEnterActions=2", L"EnterAction1=WAIT:1",
                                                    L"remark"};
        }
        host->files[L"empty.ini"] = {};
        engine->LoadActions(L"lists.ini", NumberFor(moduleKind), moduleKind);
        FillEditor();
        context.Editor = editor;
    }

    std::shared_ptr<KindsHost> host = std::make_shared<KindsHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    std::shared_ptr<FakeEditor> editor = std::make_shared<FakeEditor>(*host);

  private:
    /// The matrix counts its rows itself; its number is that of a template, 3 with global lists.
    static std::int32_t NumberFor(aceModul moduleKind) { return moduleKind == aceVKSDUT ? 3 : 2; }

    /// The file that the engine writes of such lists, so that a load is told nothing by hand.
    sim::SimSections FileOf(aceModul moduleKind) {
        EngineState& state = engine->State();
        FillModule(state, moduleKind);
        engine->SaveActions(L"made.ini");
        engine = nullptr;
        engine = std::make_unique<aceActionsEngine>(context);
        return host->files[L"made.ini"];
    }
    void FillEditor() {
        editor->first = editor->other = FullSet();
        for (DynArray<p_Subrange>* sets : {&editor->numbered, &editor->second}) {
            sets->Redim(0, 0);
            (*sets)[0] = FullSet();
        }
        editor->count = editor->secondCount = 1;
    }
};

}  // namespace ace::test
