/// An editor on a host whose operator has no script and answers whatever comes up.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <ace/core/actions_engine.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/fixture.h"

namespace ace::test {

/// How the operator answers; each of them is set before anything comes up.
struct FreeAnswers {
    std::function<void(Form&)> form;  ///< acts on it; one that it leaves shown is closed
    /// The number of the button.
    std::function<std::int32_t(std::int32_t style)> box;
    std::function<std::optional<String>()> file;
    std::function<std::optional<std::size_t>(const std::vector<MenuItem>& items)> menu;
    /// The text of the outcome; none when the dialog is cancelled.
    std::function<std::optional<String>()> settings;
};

class FreeHost : public sim::SimHost {
  public:
    FreeAnswers free;

    std::shared_ptr<IFormHost> MakeFormHost() override { return std::make_shared<Forms>(*this); }
    std::shared_ptr<IUserDialogs> MakeUserDialogs() override {
        return std::make_shared<Boxes>(*this);
    }
    std::shared_ptr<IDeviceSettingsStore> MakeDeviceSettingsStore() override {
        return std::make_shared<Store>(*this);
    }

  private:
    struct Forms : DefaultFormHost {
        explicit Forms(FreeHost& owner) : host(owner) {}
        void ShowModal(Form& form) override {
            host.Call(L"FormHost.ShowModal", {});
            host.free.form(form);
            if (form.IsShown()) {
                form.CloseByFrame();
                form.Hide();
            }
        }
        FreeHost& host;
    };
    struct Boxes : DefaultUserDialogs {
        explicit Boxes(FreeHost& owner) : host(owner) {}
        std::int32_t ShowMessageBox(const String&, std::int32_t style, const String&) override {
            host.Call(L"UserDialogs.ShowMessageBox", {});
            return host.free.box(style);
        }
        std::optional<String> OpenFile(const FileQuestion&) override {
            host.Call(L"UserDialogs.OpenFile", {});
            return host.free.file();
        }
        std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>& items) override {
            host.Call(L"UserDialogs.ShowPopupMenu", {});
            return host.free.menu(items);
        }
        FreeHost& host;
    };
    /// What is confirmed becomes the one line of the section.
    struct Store : DefaultDeviceSettingsStore {
        explicit Store(FreeHost& owner) : host(owner) {}
        void StoreIn(const std::shared_ptr<ISettingsFile>& file, const String& name) override {
            settings = file;
            section = name;
        }
        void EditSettings(String& text) override {
            host.Call(L"DeviceSettingsStore.EditSettings", {});
            const std::shared_ptr<ISettingsFile> file = std::exchange(settings, nullptr);
            const std::optional<String> outcome = host.free.settings();
            if (outcome && file) {
                file->SetSection(section, *outcome);
            }
            text = outcome.value_or(text);
        }
        FreeHost& host;
        std::shared_ptr<ISettingsFile> settings;
        String section;
    };
};

class FreeEditor : public ::testing::Test {
  protected:
    EngineState& State() { return engine->State(); }
    /// What the rooms of the open editor share.
    EditorParts& Parts() { return std::dynamic_pointer_cast<frmEditor>(context.Editor)->Parts(); }
    /// Caption of a node that must be there.
    String CaptionOf(const String& key) { return tree.Caption(tree.Find(key)); }
    bool IsThere(const String& key) { return static_cast<bool>(tree.Find(key)); }

    std::shared_ptr<FreeHost> host = std::make_shared<FreeHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    sim::SimTree tree{*host};
    sim::SimList list{*host};
};

}  // namespace ace::test
