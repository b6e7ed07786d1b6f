#include "sim/sim_dialogs.h"

#include <utility>

#include "sim/form_view.h"

namespace ace::sim {

void SimFormHost::ShowModal(Form& form) {
    x_host.Call(L"FormHost.ShowModal", CallText(Words{FormText(form)}));
    x_host.user.Answer(form);
}

void SimFormHost::Hide(Form& form) {
    x_host.Call(L"FormHost.Hide", CallText(form.Name()));
}

float SimFormHost::TextHeight(const String& text, float width) {
    x_host.Call(L"FormHost.TextHeight", CallText(text, static_cast<double>(width)), true);
    return x_host.user.TextHeight(text, width);
}

std::int32_t SimUserDialogs::ShowMessageBox(const String& text, std::int32_t style,
                                            const String& title) {
    x_host.Call(L"UserDialogs.ShowMessageBox", CallText(text, style, title));
    return x_host.user.AnswerBox(text, style);
}

std::optional<String> SimUserDialogs::OpenFile(const FileQuestion& question) {
    x_host.Call(L"UserDialogs.OpenFile",
                CallText(question.filter, question.defaultExtension, question.file));
    return x_host.user.AnswerFile(question);
}

std::optional<std::size_t> SimUserDialogs::ShowPopupMenu(const std::vector<MenuItem>& items) {
    x_host.Call(L"UserDialogs.ShowPopupMenu", CallText(Words{MenuText(items)}));
    return x_host.user.AnswerMenu(items);
}

void SimUserDialogs::SetBusyPointer(Boolean busy) {
    x_host.Call(L"UserDialogs.SetBusyPointer", CallText(busy));
}

void SimDeviceSettingsStore::SetDevice(const String& deviceName, std::int32_t mode) {
    x_host.Call(L"DeviceSettingsStore.SetDevice", CallText(deviceName, mode));
}

void SimDeviceSettingsStore::StoreIn(const std::shared_ptr<ISettingsFile>& settings,
                                     const String& section) {
    x_host.Call(L"DeviceSettingsStore.StoreIn", CallText(settings != nullptr, section));
    x_settings = settings;
    x_section = section;
}

void SimDeviceSettingsStore::EditSettings(String& text) {
    const std::shared_ptr<ISettingsFile> settings = std::exchange(x_settings, nullptr);
    const String section = std::exchange(x_section, {});
    x_host.Call(L"DeviceSettingsStore.EditSettings", CallText(text));
    if (x_host.user.AnswerSettings(text) && settings) {
        settings->SetSection(section, text);
    }
}

}  // namespace ace::sim
