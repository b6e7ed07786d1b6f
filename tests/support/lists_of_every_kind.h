/// An engine whose lists were read from a file, of a host that answers by itself.
#pragma once

#include "support/every_kind.h"
#include "support/fake_editor.h"

namespace ace::test {

/// The calls of a moment in which the host may let messages run, as its interfaces name them: those
/// of devices are all operations of all kinds.
inline bool MessagesRunIn(StringView operation) {
    constexpr StringView Names[] = {
        L"Platform.Yield",       L"SystemServices.ShowTimedMessage", L"Utilities.Wait",
        L"FormHost.ShowModal",   L"UserDialogs.ShowMessageBox",      L"ApiMacro.WaitFinished",
        L"DeviceList.GetDevice", L"DeviceList.DevicesOfClass"};
    constexpr StringView Devices[] = {L"Device",      L"MonitorDevice", L"BcGenerator",
                                      L"RfGenerator", L"Amplifier",     L"SwitchUnit",
                                      L"Receiver",    L"SignalPath"};
    const StringView interface = operation.substr(0, operation.find(L'.'));
    return std::ranges::find(Names, operation) != std::end(Names) ||
           std::ranges::find(Devices, interface) != std::end(Devices);
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

/// What the lists of a module kind are filled with, and the file that the engine writes of them, so
/// that a load is told nothing by hand.
struct Filling {
    explicit Filling(aceModul kind, const p_Subrange& content = FullSet())
        : moduleKind(kind), set(content) {
        const auto host = std::make_shared<sim::SimHost>();
        ThreadContext context{host};
        aceActionsEngine engine{context};
        FillModule(engine.State(), moduleKind, set);
        engine.SaveActions(L"made.ini");
        file = host->files[L"made.ini"];
    }

    aceModul moduleKind;
    p_Subrange set;
    sim::SimSections file;
};

/// The engine of one module kind with its lists loaded from a file; the numbered ones are two. The
/// bench has the devices, and an editor is open.
class FilledLists {
  public:
    explicit FilledLists(const Filling& filling) {
        host->journal.Bound(10);
        AddDevices();
        host->files[L"lists.ini"] = filling.file;
        host->files[L"damaged.ini"] = {};
        for (const auto& [section, lines] : filling.file) {
            host->files[L"damaged.ini"][section] = {L"NumOfEnterActions=2", L"EnterAction1=WAIT:1",
                                                    L"remark"};
        }
        host->files[L"empty.ini"] = {};
        engine->LoadActions(L"lists.ini", NumberFor(filling.moduleKind), filling.moduleKind);
        FillEditor(filling.set);
        context.Editor = editor;
    }

    std::shared_ptr<KindsHost> host = std::make_shared<KindsHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    std::shared_ptr<FakeEditor> editor = std::make_shared<FakeEditor>(*host);

  private:
    /// The matrix counts its rows itself; its number is that of a template, 3 with global lists.
    static std::int32_t NumberFor(aceModul moduleKind) { return moduleKind == aceVKSDUT ? 3 : 2; }

    void AddDevices() {
        sim::SimBench& bench = host->bench;
        bench.Add<sim::SimMonitor>(*host, L"EUT")->readings[7] = std::deque<double>(100, 0.0);
        bench.Add<sim::SimBcGenerator>(*host, L"Injector");
        bench.Add<sim::SimAmplifier>(*host, L"Amplifier");
        bench.Add<sim::SimSwitchUnit>(*host, L"Unit");
        bench.Add<sim::SimReceiver>(*host, L"Receiver");
        bench.Add<sim::SimRfGenerator>(*host, L"Generator");
        bench.Add<sim::SimCalTable>(*host, L"Levels");
    }
    void FillEditor(const p_Subrange& set) {
        editor->first = editor->other = set;
        for (DynArray<p_Subrange>* sets : {&editor->numbered, &editor->second}) {
            sets->Redim(0, 0);
            (*sets)[0] = set;
        }
        editor->count = editor->secondCount = 1;
    }
};

}  // namespace ace::test
