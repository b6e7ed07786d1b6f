/// The edits of a session on the plain model. Each answers the number of its error.
#pragma once

#include "editor/edit_model.h"

namespace ace::test {

struct EditModel {
    int module = 0;
    ModelSet first{};
    ModelSet second{};
    ModelSets numbered{};
    ModelSets steps{};  ///< of wireless tests, or the rows of the matrix
    bool change = false;
    int sectionCounter = 100;
    std::map<int, std::wstring> sections{};  ///< of devices, in the settings file

    ModelAction held{};
    std::array<ModelRecord, RecordTypes> records{};

    static constexpr int OutOfBounds = 9;
    static constexpr int Mismatch = 13;

    ModelList& ListOf(const ModelMoment& moment, int number) {
        switch (moment.owner) {
            case ModelMoment::First:
                return first.*moment.list;
            case ModelMoment::Second:
                return second.*moment.list;
            case ModelMoment::Numbered:
                return numbered.At(number).*moment.list;
            default:
                return steps.At(number).*moment.list;
        }
    }
    ModelList& ListOf(const ModelPlace& place) { return ListOf(*place.moment, place.number); }
    int CountOf(const ModelMoment& moment) const {
        return moment.owner == ModelMoment::Numbered ? numbered.count
               : moment.owner == ModelMoment::Steps  ? steps.count
                                                     : 1;
    }
    const ModelMoment* FindMoment(const std::wstring& letters) const {
        for (const ModelMoment& moment : MomentsOfModule[module]) {
            if (letters == moment.letters) {
                return &moment;
            }
        }
        return nullptr;
    }
    static std::wstring KeyOf(const ModelMoment& moment, int number) {
        return moment.letters + (moment.HasNumber() ? std::to_wstring(number) : std::wstring());
    }
    static int VisibleIn(const ModelList& list) {
        int count = 0;
        for (const ModelAction& action : list) {
            count += action.IsVisible() ? 1 : 0;
        }
        return count;
    }

    // ---- places ----------------------------------------------------------------------------

    static int NumberIn(const std::wstring& key) {
        return key.size() > 3 ? std::stoi(key.substr(3)) : 0;
    }

    /// None for a node that stands for no list of the module.
    std::optional<ModelPlace> MomentPlace(const std::wstring& key) {
        const ModelMoment* const moment = FindMoment(key.substr(0, 3));
        if (moment == nullptr) {
            return std::nullopt;
        }
        const int number = moment->HasNumber() ? NumberIn(key) : 0;
        if (number < 0 || number >= CountOf(*moment)) {
            return std::nullopt;
        }
        return ModelPlace{moment, number, VisibleIn(ListOf(*moment, number))};
    }
    std::optional<ModelPlace> GroupPlace(const std::wstring& key) {
        for (const ModelGroup& group : ModelGroups) {
            if (key.substr(0, 3) == group.letters) {
                std::optional<ModelPlace> place = MomentPlace(group.moment + key.substr(3));
                if (place && !group.isBehindLast) {
                    place->position = 0;
                }
                return place;
            }
        }
        return std::nullopt;
    }
    /// "CHI", the index of the action, and the key of its moment.
    std::optional<ModelPlace> LinePlace(const std::wstring& key) {
        const std::size_t letters = key.find_first_not_of(L"0123456789", 3);
        const int index = std::stoi(key.substr(3, letters - 3));
        std::optional<ModelPlace> place = MomentPlace(key.substr(letters));
        const ModelList& list = ListOf(*place);
        place->position = VisibleIn({list.begin(), list.begin() + index + 1});
        return place;
    }
    static bool IsLine(const std::wstring& key) { return key.substr(0, 3) == L"CHI"; }
    std::optional<ModelPlace> PlaceOf(const std::wstring& key) {
        if (IsLine(key)) {
            return LinePlace(key);
        }
        const std::optional<ModelPlace> place = MomentPlace(key);
        return place ? place : GroupPlace(key);
    }

    // ---- edits -----------------------------------------------------------------------------

    void Hold(const ModelAction& action) {
        if (action.record) {
            records.at(static_cast<std::size_t>(RecordTypeOf[action.kind])) = *action.record;
        }
        held = action;
    }
    ModelAction FromRecords() const {
        const int type = RecordTypeOf[held.kind];
        ModelAction action{held.kind, std::nullopt};
        if (type >= 0) {
            action.record = records.at(static_cast<std::size_t>(type));
        }
        return action;
    }
    int Add(const std::wstring& key, bool newSection) {
        const std::optional<ModelPlace> place = PlaceOf(key);
        if (!place) {
            return 0;
        }
        if (newSection && held.kind == SetDeviceKind) {
            ++sectionCounter;
            sections[sectionCounter] = sections[held.record->section];
            held.record->section = sectionCounter;
            records.at(DeviceRecord) = *held.record;
        }
        ModelList& list = ListOf(*place);
        list.insert(list.begin() + place->position, held);
        change = true;
        return 0;
    }
    /// None where the list has no such entry.
    ModelAction* EntryAt(const ModelPlace& place) {
        ModelList& list = ListOf(place);
        const bool isThere = place.position >= 1 && place.position <= static_cast<int>(list.size());
        return isThere ? &list.at(static_cast<std::size_t>(place.position) - 1) : nullptr;
    }
    int Get(const std::wstring& key) {
        const std::optional<ModelPlace> place = PlaceOf(key);
        if (!place) {
            return 0;
        }
        const ModelAction* const entry = EntryAt(*place);
        if (entry == nullptr) {
            return OutOfBounds;
        }
        Hold(*entry);
        return 0;
    }
    bool Differs(const ModelAction& entry, bool settingsChanged) const {
        const int type = RecordTypeOf[held.kind];
        if (type < 0) {
            return false;
        }
        const ModelRecord& record = records.at(static_cast<std::size_t>(type));
        if (held.kind == CommentKind) {  // its generator alone
            return record.content % 2 != entry.record->content % 2;
        }
        const bool hasSettings = held.kind == SetDeviceKind || held.kind == 4 || held.kind == 17;
        return record.content != entry.record->content || (hasSettings && settingsChanged);
    }
    int Modify(const std::wstring& key, bool settingsChanged) {
        const std::optional<ModelPlace> place = PlaceOf(key);
        if (!place) {
            return 0;
        }
        ModelAction* const entry = EntryAt(*place);
        if (entry == nullptr) {
            return OutOfBounds;
        }
        if (entry->kind == held.kind && !entry->IsVisible()) {
            return Mismatch;
        }
        if (entry->kind != held.kind || Differs(*entry, settingsChanged)) {
            *entry = FromRecords();
            change = true;
        }
        return 0;
    }
    int Delete(const std::wstring& key) {
        if (IsLine(key)) {
            const ModelPlace place = *LinePlace(key);
            ModelList& list = ListOf(place);
            list.erase(list.begin() + place.position - 1);
            change = true;
            return 0;
        }
        const std::wstring letters = key.substr(0, 3);
        std::vector<std::wstring> cleared{letters};
        if (letters == L"SUR") {
            cleared = {L"ESR", L"LSR"};
        } else if (letters == L"CHA") {
            cleared = {L"TRI", L"NGO", L"GOE"};
        } else if (letters == L"BSA" || letters == L"ASA") {
            return 0;
        }
        for (const std::wstring& moment : cleared) {
            if (const std::optional<ModelPlace> place = MomentPlace(moment + key.substr(3))) {
                ListOf(*place).clear();
                change = true;
            }
        }
        return 0;
    }
    /// Places from 0, neither of them the number of entries.
    void Move(const ModelMoment& moment, int number, int from, int to) {
        ModelList& list = ListOf(moment, number);
        const int count = static_cast<int>(list.size());
        if (from >= 0 && to >= 0 && from < count && to < count) {
            const ModelAction moved = list.at(static_cast<std::size_t>(from));
            list.erase(list.begin() + from);
            list.insert(list.begin() + to, moved);
        }
        change = true;
    }
};

}  // namespace ace::test
