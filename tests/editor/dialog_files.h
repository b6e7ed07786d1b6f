/// The lists of the plain model as sections of a settings file, and what becomes of them when such
/// a file is read. It calls nothing of the engine.
#pragma once

#include "editor/dialog_lines.h"
#include "editor/edit_session.h"

namespace ace::test {

/// The model of the edits, with the words of the lines. The content of a record is the number of
/// its words.
struct DialogEdits : EditModel {
    std::vector<String> words{};  ///< values of lines, each once, with marks for sections

    ModelAction Make(int kind, const String& value, int section = 0) {
        ModelAction made{kind, std::nullopt};
        if (RecordTypeOf[kind] >= 0) {
            const auto known = std::ranges::find(words, value);
            made.record = ModelRecord{static_cast<int>(known - words.begin()), section};
            if (known == words.end()) {
                words.push_back(value);
            }
        }
        return made;
    }
    /// With the section's number.
    String Value(const ModelAction& action) const {
        return action.record
                   ? Replaced(words.at(static_cast<std::size_t>(action.record->content)),
                              String(1, SectionMark), std::to_wstring(action.record->section))
                   : String();
    }
    /// What the file says; empty for an action that shows nowhere.
    String Line(const ModelAction& action) const {
        return action.IsVisible() ? LineKinds[action.kind].word + InLine(Value(action)) : String();
    }
    String Caption(const ModelAction& action) const;

    /// The lines of a section.
    std::vector<String> Section(const ModelSet& set) const {
        std::vector<String> lines;
        for (const LineKeys& keys : ListKeys) {
            const ModelList& actions = set.*keys.list;
            if (!actions.empty()) {
                lines.push_back(keys.count + (L"=" + std::to_wstring(actions.size())));
            }
            for (std::size_t i = 0; i < actions.size(); ++i) {
                lines.push_back(keys.entry + std::to_wstring(i + 1) + L"=" + Line(actions[i]));
            }
        }
        return lines;
    }
    ModelSet ReadAgain(const ModelSet& saved);

    /// The comparison that decides whether a confirmed dialog is a change.
    bool DiffersInWords(const ModelAction& entry, bool settingsChanged) const;
    int ModifyLine(const std::wstring& key, bool settingsChanged);
};

inline constexpr const wchar_t* LineTitles[ModelKinds] = {
    L"T(9063)", L"T(9064)", L"T(9062)", L"T(9061)", L"T(9065)",  L"T(9066)",
    L"T(9069)", L"T(9068)", L"T(9070)", L"T(9042)", L"T(9071)",  L"T(9072)",
    L"T(9073)", L"T(9074)", L"T(9078)", L"T(9077)", L"Question", L"Monitor EUT"};

inline String DialogEdits::Caption(const ModelAction& action) const {
    return LineTitles[action.kind] +
           DetailOfLine(action.kind, Value(action), module >= aceVKSTemplate);
}

// ---- reading -----------------------------------------------------------------------------------

/// What the lines of a section pass on to those behind them.
class SectionReader {
  public:
    explicit SectionReader(DialogEdits& edits) : x_edits(edits) {}

    ModelAction Read(const ModelAction& saved, char list) {
        const std::string_view lists = LineKinds[saved.kind].lists;
        if (lists.find(list) == std::string_view::npos || !saved.IsVisible()) {
            return {atWait, std::nullopt};
        }
        switch (saved.kind) {
            case atSetDevice:
                return ReadDevice(saved);
            case atRemote:
                return ReadRemote(saved, list);
            case atTrackFreq:
                return ReadTrack(saved);
            default:
                return saved;
        }
    }

  private:
    const String& Words(const ModelAction& action) const {
        return x_edits.words.at(static_cast<std::size_t>(action.record->content));
    }
    /// A device without a signal path gets that of the device before it.
    ModelAction ReadDevice(const ModelAction& saved) {
        std::vector<String> fields = Split(Words(saved), L",");
        if (fields.size() > 2) {
            x_signalPath = fields[2];
        }
        const String path = x_signalPath.empty() ? String() : L"," + x_signalPath;
        return x_edits.Make(saved.kind, fields[0] + L"," + fields[1] + path, saved.record->section);
    }
    /// Outside the list of the enter moment a socket gets the terminator of the command before it.
    ModelAction ReadRemote(const ModelAction& saved, char list) {
        std::vector<String> fields = Split(Words(saved), L",");
        if (fields[0].empty()) {
            return saved;
        }
        if (fields[1] != L"2") {
            x_terminator = fields[3];
            return saved;
        }
        const std::vector<String> port = Split(fields[3], L":");
        x_terminator = list == 'E' ? port[1] : x_terminator;
        fields[3] = port[0] + L":" + x_terminator;
        String value;
        for (const String& field : fields) {
            value += (&field == &fields.front() ? L"" : L",") + field;
        }
        return x_edits.Make(saved.kind, value);
    }
    /// A generator stays in the lines behind it, and so does a device that is followed.
    ModelAction ReadTrack(const ModelAction& saved) {
        const String body = InLine(Words(saved));
        if (Split(body, L",").size() >= 5) {
            x_generator = body;
        } else {
            x_followed = Split(body, L",")[0];
        }
        return x_generator.empty()
                   ? saved
                   : x_edits.Make(saved.kind, x_generator + HiddenMark + x_followed);
    }

    DialogEdits& x_edits;
    String x_signalPath;
    String x_terminator = L"0";
    String x_generator;
    String x_followed;
};

inline ModelSet DialogEdits::ReadAgain(const ModelSet& saved) {
    SectionReader reader(*this);
    ModelSet read;
    for (const LineKeys& keys : ListKeys) {
        for (const ModelAction& action : saved.*keys.list) {
            const ModelAction made = reader.Read(action, keys.letter);
            const bool hasSection =
                made.kind == atSetDevice || made.kind == atCheckEut || made.kind == atMonitorEUT;
            sectionCounter = std::max(sectionCounter, hasSection ? made.record->section : 0);
            (read.*keys.list).push_back(made);
        }
    }
    return read;
}

// ---- comparing ---------------------------------------------------------------------------------

/// What is compared of them: no delay, and no type of a table.
inline std::vector<String> TrackWords(const String& value) {
    const std::vector<String> fields = Split(Replaced(value, String(1, HiddenMark), L",,"), L",");
    if (fields.size() == 2) {
        return {fields[0]};
    }
    std::vector<String> compared(fields.begin() + 4, fields.end());
    compared.insert(compared.end(), {fields[0], fields[1]});
    return compared;
}

inline bool DialogEdits::DiffersInWords(const ModelAction& entry, bool settingsChanged) const {
    const String mine = Value(FromRecords());
    const String its = Value(entry);
    const std::vector<String> fields = Split(mine, L",");
    const std::vector<String> others = Split(its, L",");
    switch (held.kind) {
        case atNotify:
        case atQuestion:
        case atRemote:
        case atAPI:
            return Lower(mine) != Lower(its);
        case atSetDevice:
            return fields[0] != others[0] || settingsChanged;
        case atCheckEut:
        case atMonitorEUT:
            return mine != its || settingsChanged;
        case atTrackFreq:
            return TrackWords(mine) != TrackWords(its);
        default:
            return mine != its;
    }
}

inline int DialogEdits::ModifyLine(const std::wstring& key, bool settingsChanged) {
    const std::optional<ModelPlace> place = PlaceOf(key);
    ModelAction* const entry = place ? EntryAt(*place) : nullptr;
    if (entry == nullptr) {
        return place ? OutOfBounds : 0;
    }
    if (RecordTypeOf[held.kind] < 0 && entry->kind == held.kind) {
        return 0;
    }
    if (entry->kind != held.kind || DiffersInWords(*entry, settingsChanged)) {
        *entry = FromRecords();
        change = true;
    }
    return 0;
}

}  // namespace ace::test
