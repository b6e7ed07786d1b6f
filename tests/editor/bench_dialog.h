/// The dialog of an action beside a bench of devices: what the operator does and reads there, the
/// calls that it leaves, and what comes into the list.
#pragma once

#include "editor/dialog_acts.h"
#include "editor/editor_fixture.h"
#include "support/device_moments.h"

namespace ace::test {

using sim::Choose;
using sim::ChooseFile;
using sim::ChooseTable;
using sim::Do;
using sim::FormAct;
using sim::Press;
using sim::PressMouse;
using sim::Tick;
using sim::Type;

// ---- lines of the journal ----------------------------------------------------------------------

inline const String DialogShown = L"Dialog shown";
inline const String DialogHidden = L"Dialog hidden";
/// What a confirmed dialog does before it reads its fields.
inline const String EntryTaken = Yielded;

inline String BoxShown(const String& text, std::int32_t style, const String& title) {
    return Called(L"UserDialogs.ShowMessageBox", text, style, title);
}
/// The box of an entry that is refused.
inline String EntryRefused(const String& text, std::int32_t style = IUserDialogs::Exclamation) {
    return BoxShown(text, style, L"T(9200)");
}
/// A menu, its items as 1 "Camera" checked.
inline String MenuShown(const String& items) {
    return L"UserDialogs.ShowPopupMenu(" + items + L")";
}
inline String ClassAsked(StringView classKey) {
    return Called(L"DeviceList.DevicesOfClass", String(classKey));
}
/// A monitoring device of a class is looked up, and asked what it can be used for.
inline Lines UsesAsked(const String& name) {
    return {Found(name), Called(L"MonitorDevice.Capabilities", name)};
}
inline String SectionOf(std::int32_t number) {
    return L"Actions" + std::to_wstring(number) + L"-Device";
}
/// The settings of a section are read, and their short text.
inline Lines SettingsRead(const String& name, std::int32_t number) {
    const String section = SectionOf(number);
    const String taken = Called(L"SettingsFile.GetSection", section);
    return {Called(L"Device.ReadSettings", name, 2, true, section), taken,
            Called(L"Device.SettingsText", name, true, section), taken};
}

// ---- fixture -----------------------------------------------------------------------------------

class BenchDialog : public EditorTest {
  protected:
    static constexpr std::int32_t EveryUse = 2 + 4 + 8;  // to set, to check, to track

    BenchDialog() { context.ModuleFileNames.fill(L"setup.ini"); }

    template <class Kind>
    std::shared_ptr<Kind> Add(const String& name) {
        return host->bench.Add<Kind>(*host, name);
    }
    std::shared_ptr<sim::SimMonitor> AddMonitor(const String& name, std::int32_t uses = EveryUse) {
        const auto monitor = Add<sim::SimMonitor>(name);
        monitor->capabilities = uses;
        return monitor;
    }
    std::vector<String>& Section(std::int32_t number) {
        return host->files[L"setup.ini"][SectionOf(number)];
    }

    /// Shows a template with these actions in its start list.
    void OpenTemplate(const std::vector<p_Action>& actions = {}, bool measuresEmission = false) {
        Fill(State().MainTest, EnterList, actions);
        State().EmiTemplate = measuresEmission;
        Open(aceTemplate);
    }
    /// A double click on an offered kind while the node is selected, and the acts that follow.
    void AddKind(p_ActionTypes kind, Acts acts, const String& node = L"ETE") {
        Select(node);
        host->user.Expect({L"frmEditor", std::move(acts), {}});
        EXPECT_TRUE(list.DoubleClick(L"ACT:" + std::to_wstring(kind)));
    }
    /// A double click on a line, and the acts that follow.
    void EditLine(Acts acts, const String& line = L"CHI0ETE") {
        Select(line);
        host->user.Expect({L"frmEditor", std::move(acts), {}});
        EXPECT_TRUE(tree.DoubleClick(line));
    }
    /// The operator's next answers, in the order in which they are asked for.
    void AnswerMenu(const String& caption) { host->user.ExpectMenu(caption); }
    void AnswerSettings(const String& text) { host->user.ExpectSettings(text); }
    void CancelSettings() { host->user.ExpectSettings(std::nullopt); }
    void AnswerBox(const String& text) { host->user.ExpectBox(text); }

    /// The calls in their order without those of tree and list; the form by its name alone.
    Lines TakeCalls() {
        Lines calls;
        for (const String& line : TakeEffects()) {
            if (line.starts_with(L"FormHost.ShowModal(\"frmEditor\"")) {
                calls.push_back(DialogShown);
            } else if (line == L"FormHost.Hide(\"frmEditor\")") {
                calls.push_back(DialogHidden);
            } else if (!line.starts_with(L"Tree.") && !line.starts_with(L"List.")) {
                calls.push_back(line);
            }
        }
        return calls;
    }
    /// An act that leaves a mark between the calls of two others.
    FormAct ForgetCalls() {
        return Do([this](Form&) { host->journal.Clear(); });
    }

    template <class Record>
    const Record& Stored(std::int32_t index = 0) {
        return std::get<Record>(State().MainTest.Enter[index].Parameter);
    }
    const aceSetDevice& StoredDevice(std::int32_t index = 0) { return Stored<aceSetDevice>(index); }
};

}  // namespace ace::test
