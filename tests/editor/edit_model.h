/// A plain model of the editor for random sessions: lists are vectors of small records, and every
/// step of an edit is one line. It calls nothing of the engine.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ace::test {

/// The kinds of records, and which of them each kind of action has; -1 for none.
enum ModelRecordType {
    WaitRecord,
    NotifyRecord,
    RemoteRecord,
    DeviceRecord,
    TrackRecord,
    ApiRecord
};
inline constexpr int RecordTypes = 6;
inline constexpr int ModelKinds = 18;
inline constexpr int RecordTypeOf[ModelKinds] = {
    WaitRecord,   NotifyRecord, RemoteRecord, DeviceRecord, DeviceRecord, TrackRecord,
    NotifyRecord, -1,           -1,           -1,           -1,           -1,
    DeviceRecord, DeviceRecord, ApiRecord,    -1,           NotifyRecord, DeviceRecord};
inline constexpr int SetDeviceKind = 3;
inline constexpr int CommentKind = 6;

/// What stands in a record: all its fields follow from these.
struct ModelRecord {
    int content = 0;
    int section = 0;         ///< of a device
    bool isCapital = false;  ///< how its letters are written
    bool operator==(const ModelRecord&) const = default;
};

struct ModelAction {
    int kind = 0;
    std::optional<ModelRecord> record;  ///< a kind that has one and has none here shows nowhere
    bool operator==(const ModelAction&) const = default;

    bool IsVisible() const { return record || RecordTypeOf[static_cast<std::size_t>(kind)] < 0; }
};
using ModelList = std::vector<ModelAction>;

struct ModelSet {
    ModelList enter;
    ModelList leave;
    ModelList freq;
    ModelList mlc;
};

/// Sets by number; behind the first `count` may stand spare ones.
struct ModelSets {
    std::vector<ModelSet> sets;
    int count = 0;

    void Resize(int upper) { sets.resize(static_cast<std::size_t>(upper) + 1); }
    ModelSet& At(int index) { return sets.at(static_cast<std::size_t>(index)); }

    /// `index` from 1; answers the place from 0.
    int Add(int index) {
        ++count;
        Resize(count);
        int place = index - 1;
        if (place >= count) {
            place = count;
        }
        for (int i = count - 1; i >= place; --i) {
            At(i + 1) = At(i);
        }
        At(place).enter.clear();
        At(place).leave.clear();
        At(place).mlc.clear();
        return place;
    }
    void Delete(int index) {
        --count;
        for (int i = index - 1; i < count; ++i) {
            At(i) = At(i + 1);
        }
        Resize(count);
    }
    void Move(int source, int destination) {
        const ModelSet moved = At(source - 1);
        Delete(source);
        Add(destination);
        At(destination - 1) = moved;
    }
    void Swap(int source, int destination) { std::swap(At(source - 1), At(destination - 1)); }
};

/// A moment of a module: letters of its key, number of its time, and which list it is.
struct ModelMoment {
    const wchar_t* letters;
    int time;
    enum { First, Second, Numbered, Steps } owner;  ///< the fixed sets, or those by number
    ModelList ModelSet::*list;

    bool HasNumber() const { return owner == Numbered || owner == Steps; }
};
using M = ModelMoment;
using S = ModelSet;

/// By number of the module.
inline const std::vector<ModelMoment> MomentsOfModule[9] = {
    {{L"ETE", 0, M::First, &S::enter},
     {L"EFR", 4, M::First, &S::freq},
     {L"ESR", 2, M::Numbered, &S::enter},
     {L"LSR", 3, M::Numbered, &S::leave},
     {L"LTE", 1, M::First, &S::leave}},
    {{L"ETE", 0, M::First, &S::enter},
     {L"EFR", 4, M::First, &S::freq},
     {L"BFT", 11, M::Second, &S::enter},
     {L"ATT", 12, M::Second, &S::leave},
     {L"TRI", 5, M::Numbered, &S::freq},
     {L"NGO", 6, M::Numbered, &S::enter},
     {L"GOE", 7, M::Numbered, &S::leave},
     {L"MLC", 10, M::First, &S::mlc},
     {L"LTE", 1, M::First, &S::leave}},
    {{L"ETE", 0, M::First, &S::enter}, {L"LTE", 1, M::First, &S::leave}},
    {{L"STE", 8, M::Numbered, &S::enter}},
    {{L"ETE", 0, M::First, &S::enter},
     {L"EFR", 4, M::First, &S::freq},
     {L"BEF", 9, M::Numbered, &S::enter},
     {L"AFT", 10, M::Numbered, &S::leave},
     {L"LTE", 1, M::First, &S::leave}},
    {{L"ETE", 0, M::First, &S::enter},
     {L"BFT", 11, M::Numbered, &S::enter},
     {L"ATT", 12, M::Numbered, &S::leave},
     {L"LTE", 1, M::First, &S::leave}},
    {{L"ETE", 0, M::First, &S::enter},
     {L"EFR", 4, M::First, &S::freq},
     {L"LTE", 1, M::First, &S::leave}},
    {{L"ETE", 0, M::First, &S::enter},
     {L"BFT", 11, M::Numbered, &S::enter},
     {L"STE", 8, M::Steps, &S::enter},
     {L"ATT", 12, M::Numbered, &S::leave},
     {L"LTE", 1, M::First, &S::leave}},
    {{L"BSA", 9, M::First, &S::enter},
     {L"ASA", 10, M::First, &S::leave},
     {L"STE", 8, M::Steps, &S::enter}},
};

/// A place in the tree that stands for a list.
struct ModelPlace {
    const ModelMoment* moment;
    int number;
    int position;  ///< among the lines that show, from 1; 0 before all
};

/// A group and the moment that it stands for; one whose position is not that of its last line
/// inserts at the front.
struct ModelGroup {
    const wchar_t* letters;
    const wchar_t* moment;
    bool isBehindLast;
};
inline constexpr ModelGroup ModelGroups[] = {{L"SUR", L"ESR", true},
                                             {L"EMI", L"BEF", true},
                                             {L"TST", L"BFT", true},
                                             {L"ATL", L"BFT", true},
                                             {L"CHA", L"NGO", false}};

}  // namespace ace::test
