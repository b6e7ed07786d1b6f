#include <optional>

#include <ace/settings/action_line.h>
#include <ace/settings/line_observer.h>
#include <ace/settings/settings_statements.h>

namespace ace {

void SettingsStatements::ReadSet(const SetPlace& place, const String& section,
                                 p_Subrange& set) const {
    ILineObserver* const observer = x_state.Context.LineObserver;
    if (observer != nullptr) {
        observer->SetStarts(place);
    }
    modActions::ReadSection(x_state.Context, x_settings, section, set, observer);
}

void SettingsStatements::ReadFixed(const FixedSet& fixed) const {
    p_Subrange& set = x_state.*fixed.set;
    for (const ListFields& list : ActionLists) {
        if (list != MlcList || fixed.emptyMlc) {
            Do([&] { EmptyList(set, list); });
        }
    }
    Do([&] { ReadSet({&set}, String(fixed.section), set); });
}

void SettingsStatements::ReadElement(DynArray<p_Subrange>& sets, std::int32_t index,
                                     const String& section) const {
    const DynArray<p_Subrange>::Hold hold(sets);
    Do([&] { ReadSet({nullptr, &sets, index}, section, sets[index]); });
}

void SettingsStatements::WriteLists(const String& section, const p_Subrange& set) const {
    std::optional<DynArray<p_Action>::Hold> holds[std::size(ActionLists)];
    for (std::size_t i = 0; i < std::size(ActionLists); ++i) {
        holds[i].emplace(set.*ActionLists[i].actions);
    }
    Do([&] { modActions::WriteActionList(x_state.Context, x_settings, section, set); });
}

void SettingsStatements::DeleteSection(const String& section) const {
    Do([&] { x_settings.SetSection(section, {}); });
}

String SettingsStatements::GetString(const String& section, StringView key) const {
    return Do([&] { return x_settings.GetString(section, String(key), {}); });
}

std::int32_t SettingsStatements::GetLong(const String& section, StringView key,
                                         std::int32_t byDefault) const {
    return Do([&] { return x_settings.GetLong(section, String(key), byDefault); });
}

double SettingsStatements::GetDouble(const String& section, StringView key,
                                     double byDefault) const {
    return Do([&] { return x_settings.GetDouble(section, String(key), byDefault); });
}

Boolean SettingsStatements::GetBoolean(const String& section, StringView key) const {
    return Do([&] { return x_settings.GetBoolean(section, String(key), {}); });
}

void SettingsStatements::SetString(const String& section, StringView key,
                                   const String& value) const {
    Do([&] { x_settings.SetString(section, String(key), value); });
}

void SettingsStatements::SetLong(const String& section, StringView key, std::int32_t value) const {
    Do([&] { x_settings.SetLong(section, String(key), value); });
}

void SettingsStatements::SetDouble(const String& section, StringView key, double value) const {
    Do([&] { x_settings.SetDouble(section, String(key), value); });
}

void SettingsStatements::SetBoolean(const String& section, StringView key, Boolean value) const {
    Do([&] { x_settings.SetBoolean(section, String(key), value); });
}

}  // namespace ace
