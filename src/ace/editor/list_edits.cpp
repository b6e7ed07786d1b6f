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

void CopySection(const Statements& stmt, EngineState& engine, const String& from,
                 const String& to) {
    const std::shared_ptr<ISettingsFile> settings = stmt([&] { return GetSettFile(engine); });
    if (!settings) {
        return;
    }
    String text;
    for (const String& line : stmt([&] { return settings->GetSection(from); })) {
        text += line + L"\r\n";
    }
    stmt([&] { settings->SetSection(to, text); });
    stmt([&] { settings->Release(); });
}

void GiveSection(const Statements& stmt, EngineState& engine, HeldAction& held) {
    std::int32_t& counter = engine.Context.DeviceSectionCounter;
    const std::int32_t number = stmt([&] { return CheckedSum(counter, 1); });
    counter = number;
    auto record = stmt([&] { return RecordOf<aceSetDevice>(held.Action); });
    const std::int32_t old = std::exchange(record.ChanNo, number);
    held.Records.SetDevice = record;
    held.Action.Parameter = std::move(record);
    CopySection(stmt, engine, DeviceSection(old), DeviceSection(number));
}

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

void InsertEntry(const Statements& stmt, EngineState& engine, HeldAction& held,
                 const ActionList& list, std::int32_t position, Boolean newSection) {
    const std::int32_t count = list.count;
    stmt([&] { list.actions.RedimPreserve(count); });
    const std::int32_t place = position <= count ? position : count;
    for (std::int32_t i = count - 1; i >= place; --i) {
        stmt([&] { list.actions[i + 1] = list.actions[i]; });
    }
    if (newSection && held.Action.ActionType == atSetDevice) {
        GiveSection(stmt, engine, held);
    }
    p_Action entry = stmt([&] { return EntryOf(held, newSection); });
    list.count = count + 1;
    stmt([&] { list.actions[place] = entry; });
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
    if (from < 0 || to < 0 || from > list.count || to > list.count) {
        return;
    }
    p_Action kept = stmt([&] { return list.actions[from]; });
    for (std::int32_t i = from; i > to; --i) {
        stmt([&] { list.actions[i] = list.actions[i - 1]; });
    }
    for (std::int32_t i = from; i < to; ++i) {
        stmt([&] { list.actions[i] = list.actions[i + 1]; });
    }
    stmt([&] { list.actions[to] = std::move(kept); });
}

void ClearEntries(const ActionList& list) {
    list.actions.Erase();
    list.count = 0;
}

}  // namespace ace
