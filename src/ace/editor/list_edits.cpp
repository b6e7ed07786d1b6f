#include <utility>

#include <ace/editor/list_edits.h>
#include <ace/host/checked_numbers.h>
#include <ace/settings/settings_sections.h>

namespace ace {

namespace {

String DeviceSection(std::int32_t number) {
    String name;
    AppendDeviceSection(name, number);
    return name;
}

/// What a section holds, as a text whose lines end with CR LF.
String SectionText(ISettingsFile& settings, const String& section) {
    String text;
    for (const String& line : settings.GetSection(section)) {
        text += line + L"\r\n";
    }
    return text;
}

void CopySection(const Statements& stmt, EngineState& engine, const String& from,
                 const String& to) {
    const std::shared_ptr<ISettingsFile> settings = stmt([&] { return GetSettFile(engine); });
    if (!settings) {
        return;
    }
    const String text = stmt([&] { return SectionText(*settings, from); });
    stmt([&] { settings->SetSection(to, text); });
    stmt([&] { settings->Release(); });
}

void GiveSection(const Statements& stmt, EngineState& engine, HeldAction& held) {
    std::int32_t& counter = engine.Context.DeviceSectionCounter;
    const std::int32_t number = stmt([&] { return CheckedSum(counter, 1); });
    counter = number;
    aceSetDevice record = stmt([&] { return RecordOf<aceSetDevice>(held.Action); });
    const std::int32_t old = std::exchange(record.ChanNo, number);
    stmt([&] { held.Records.SetDevice = record; });
    held.Action.Parameter = std::move(record);
    const String from = stmt([&] { return DeviceSection(old); });
    const String to = stmt([&] { return DeviceSection(number); });
    CopySection(stmt, engine, from, to);
}

/// The held action as it comes into a list.
p_Action EntryOf(const HeldAction& held, Boolean newSection) {
    p_Action entry = held.Action;
    entry.IgnoreErr = false;
    ForgetVariables(entry);
    if (newSection) {
        ForgetRun(entry);
    }
    return entry;
}

}  // namespace

/// The others make room when nothing can fail any more.
void InsertEntry(const Statements& stmt, EngineState& engine, HeldAction& held,
                 const ActionList& list, std::int32_t position, Boolean newSection) {
    const std::int32_t last = list.count;
    stmt([&] { list.actions.RedimPreserve(last); });
    if (newSection && held.Action.ActionType == atSetDevice) {
        GiveSection(stmt, engine, held);
    }
    p_Action entry = stmt([&] { return EntryOf(held, newSection); });
    const std::int32_t place = position <= last ? position : last;
    stmt([&] { list.actions.MoveElement(last, place); });
    list.count = last + 1;
    list.actions[place] = std::move(entry);
}

void RemoveEntry(const Statements& stmt, const ActionList& list, std::int32_t index) {
    if (list.count <= 1) {
        ClearEntries(list);
        return;
    }
    --list.count;
    for (std::int32_t i = index; i < list.count; ++i) {
        stmt([&] { list.actions[i] = std::move(list.actions[i + 1]); });
    }
    stmt([&] { list.actions.RedimPreserve(list.count - 1); });
}

void MoveEntry(const Statements& stmt, const ActionList& list, std::int32_t from, std::int32_t to) {
    if (from >= 0 && to >= 0 && from <= list.count && to <= list.count) {
        stmt([&] { list.actions.MoveElement(from, to); });
    }
}

void ClearEntries(const ActionList& list) {
    list.actions.Erase();
    list.count = 0;
}

}  // namespace ace
