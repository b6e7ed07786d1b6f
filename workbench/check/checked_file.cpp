#include "workbench/check/checked_file.h"

#include <algorithm>
#include <set>

#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/execution/what_runs.h>
#include <ace/settings/action_line.h>
#include <ace/settings/wireless_names.h>

#include "sim/sim_settings.h"
#include "workbench/check/section_names.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// A document that is only read.
class ReadOnlyFile final : public DiskSettingsFile {
  public:
    using DiskSettingsFile::DiskSettingsFile;
    void Release() override {}
};

}  // namespace

/// Hands the engine the document that is checked, whatever the disk holds meanwhile.
class CheckedFile::Host final : public SessionHost {
  public:
    std::shared_ptr<const SettingsDocument> document;

    std::shared_ptr<ISettingsFile> OpenFile(std::int32_t, const String&) override {
        return std::make_shared<ReadOnlyFile>(std::make_shared<FileState>(), document);
    }
};

/// Copies what the load tells of its lines.
class CheckedFile::Reader final : public ILineObserver {
  public:
    Reader(aceModul moduleKind, const CheckedFile& file, const ModuleLists& lists)
        : x_moduleKind(moduleKind), x_file(file), x_lists(lists) {}

    void SetStarts(const SetPlace& place) override {
        CheckedSection section;
        section.moduleKind = x_moduleKind;
        section.place = place;
        const ModuleRow& row = *FindModule(x_moduleKind);
        for (const FixedSet& fixed : row.AllFixed()) {
            section.fixed = &(x_lists.*fixed.set) == place.fixed ? fixed.set : section.fixed;
        }
        for (const NumberedSets& numbered : row.AllNumbered()) {
            section.sets = &(x_lists.*numbered.sets) == place.sets ? numbered.sets : section.sets;
        }
        sections.push_back(std::move(section));
    }
    void SectionStarts(StringView name) override {
        sections.back().name = name;
        sections.back().header = x_file.HeaderLine(sections.back().name);
    }
    void LineIsRead(const LineReport& report) override {
        if (report.error != 0) {
            stop = {report.lineIndex, String(report.line), report.meaning, report.failedStep,
                    report.list,      report.count,        report.reason,  report.error};
            return;
        }
        sections.back().lines.push_back({report.lineIndex, String(report.line), report.meaning,
                                         String(report.key), String(report.keyword), report.list,
                                         report.count, report.entry, report.row, report.inherited,
                                         *report.origins});
    }

    std::vector<CheckedSection> sections;
    StoppedLine stop;  ///< its index is -1 as long as no line has stopped the load

  private:
    aceModul x_moduleKind;
    const CheckedFile& x_file;
    const ModuleLists& x_lists;
};

namespace {

String InSmallLetters(StringView name) {
    String small(name);
    std::ranges::transform(small, small.begin(), LowerCase);
    return small;
}

/// Which line fills which entry, in one pass from the end: the last one wins.
void FindFilled(CheckedSection& section) {
    std::ranges::stable_sort(section.lines, {}, &CheckedLine::index);
    std::vector<bool> filled[std::size(ActionLists)];
    for (std::size_t i = 0; i < std::size(ActionLists); ++i) {
        const std::int32_t count = section.Lists().*ActionLists[i].count;
        filled[i].resize(static_cast<std::size_t>(std::max(count, 0)));
    }
    for (auto line = section.lines.rbegin(); line != section.lines.rend(); ++line) {
        if (line->meaning == LineMeaning::Entry) {
            auto entry = filled[line->list - 1].begin() + line->entry;
            line->fills = !*entry;
            *entry = true;
        }
    }
    for (std::int32_t list = 1; list <= 4; ++list) {
        const std::vector<bool>& entries = filled[list - 1];
        for (auto entry = std::ranges::find(entries, false); entry != entries.end();
             entry = std::find(entry + 1, entries.end(), false)) {
            section.emptyEntries.emplace_back(list,
                                              static_cast<std::int32_t>(entry - entries.begin()));
        }
    }
}

String MoreStopsText() {
    return L"more than " + std::to_wstring(CheckedFile::MostStops) +
           L" lines stop the load; correct these first, because nothing behind them was looked at";
}

/// An entry of a list whose count stands nowhere.
bool LacksCount(const CheckedSection& section, const StoppedLine& stop) {
    return stop.step == LineStep::FindEntry && stop.list > 0 &&
           section.Lists().*ActionLists[stop.list - 1].count < 1;
}

}  // namespace

std::size_t CheckedLine::FieldCount() const {
    return 1 + static_cast<std::size_t>(std::ranges::count(Value(), L','));
}

std::optional<StringView> CheckedLine::Field(std::size_t number) const {
    StringView rest = Value();
    for (; number > 0; --number) {
        const std::size_t comma = rest.find(L',');
        if (comma == StringView::npos) {
            return std::nullopt;
        }
        rest.remove_prefix(comma + 1);
    }
    return rest.substr(0, rest.find(L','));
}

std::optional<StringView> CheckedLine::TextOf(LineField field) const {
    std::size_t number = 0;
    for (const FormField& candidate : Form().fields) {
        if (candidate.reading != FieldReading::Unread && candidate.field == field) {
            return Field(number);
        }
        ++number;
    }
    return std::nullopt;
}

bool CheckedSection::Runs(std::int32_t list) const {
    return fixed != nullptr ? HasMoment(moduleKind, fixed, list)
                            : HasMoment(moduleKind, sets, list);
}

const MomentRow* EndOf(aceModul moduleKind) {
    return FindMoment(moduleKind, moduleKind == aceVKSDUT ? ptAfter : ptStopTest);
}

bool CheckedSection::IsEndOfTest(std::int32_t list) const {
    const MomentRow* const row = fixed != nullptr ? EndOf(moduleKind) : nullptr;
    return row != nullptr && row->fixed == fixed && row->list == ActionLists[list - 1];
}

const CheckedLine* CheckedSection::LineAt(std::int32_t index) const {
    const auto found = std::ranges::lower_bound(lines, index, {}, &CheckedLine::index);
    return found == lines.end() || found->index != index ? nullptr : &*found;
}

CheckedFile::CheckedFile(const CheckInput& input)
    : x_input(input),
      x_left(std::make_shared<SettingsDocument>(*input.document)),
      x_host(std::make_shared<Host>()) {
    FindHeaders();
    x_host->journal.KeepNone();
    x_host->document = x_left;
    x_context = std::make_unique<ThreadContext>(x_host);
    bool isComplete = Load(input.setUp.moduleKind);
    if (isComplete && input.setUp.moduleKind == aceEMSAutoTemplateGeneral &&
        input.setUp.subRanges > 0) {
        isComplete = Load(aceEMSAutoTemplate);
    }
    std::set<String, sim::NameLess> engineNames;
    for (CheckedSection& section : x_sections) {
        section.isAgain = MarkRead(section.name);
        MarkRead(WirelessNames::KeysOf(section.name));
        engineNames.insert(Numberless(section.name));
    }
    x_engineNames.assign(engineNames.begin(), engineNames.end());
    if (input.setUp.moduleKind == aceVKSDUT) {
        MarkRead(WirelessNames::MatrixSection(input.setUp.subRanges));
    } else if (input.setUp.moduleKind == aceEMSAutoTemplate) {
        // the general lists of the test stand in the file of its steps
        MarkRead(ModuleTable[aceEMSAutoTemplateGeneral].fixed[0].section);
    }
    for (const Stop& stop : x_stops) {
        const auto section = std::ranges::find(x_sections, stop.section, &CheckedSection::name);
        if (section != x_sections.end()) {
            section->stops.push_back(stop.line);
        }
    }
}

CheckedFile::~CheckedFile() = default;

void CheckedFile::FindHeaders() {
    std::vector<String> names = x_input.document->SectionNames();
    const std::vector<std::size_t> lines = x_input.document->HeaderLines();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isFirst = x_firstHeaders.emplace(InSmallLetters(names[i]), i).second;
        String numberless = Numberless(names[i]);
        x_headers.push_back({std::move(names[i]), lines[i], std::move(numberless), isFirst});
    }
}

std::size_t CheckedFile::HeaderLine(StringView name) const {
    const auto found = x_firstHeaders.find(InSmallLetters(name));
    return found == x_firstHeaders.end() ? 0 : x_headers[found->second].line;
}

std::vector<KeyLine> CheckedFile::KeyLines(StringView section) const {
    // the names of placeholders begin with "#"
    const StringView remarks = EqualNoCase(section, L"Workbench.Placeholders") ? L";" : L";#";
    std::vector<KeyLine> keys;
    std::size_t line = HeaderLine(section);
    for (const String& text : x_input.document->GetSection(section)) {
        ++line;
        const std::size_t equals = text.find(L'=');
        if (!IsEmptyOrComment(Trimmed(text), remarks) && equals != String::npos) {
            keys.push_back({String(Trimmed(StringView(text).substr(0, equals))),
                            text.substr(equals + 1), line});
        }
    }
    return keys;
}

const ModuleLists& CheckedFile::Lists() const {
    return x_engines.front()->State();
}

/// True when it was marked before.
bool CheckedFile::MarkRead(StringView name) {
    const auto found = x_firstHeaders.find(InSmallLetters(name));
    return found != x_firstHeaders.end() && std::exchange(x_headers[found->second].isRead, true);
}

/// Loads again and again, each time without the line that has stopped it before.
bool CheckedFile::Load(aceModul moduleKind) {
    for (;;) {
        auto engine = std::make_unique<aceActionsEngine>(*x_context);
        Reader reader(moduleKind, *this, engine->State());
        x_context->LineObserver = &reader;
        String failure;
        try {
            engine->LoadActions(x_input.path, x_input.setUp.subRanges, moduleKind);
        } catch (...) {
            const RunTimeError error = CurrentRunTimeError();
            failure = error.Description() + L" (error " + std::to_wstring(error.Number()) + L")";
        }
        x_context->LineObserver = nullptr;
        if (reader.stop.index >= 0 && x_stops.size() < MostStops) {
            LeaveOut(reader);
            if (reader.sections.back().sets != nullptr) {
                LeaveOutOfNumbered(moduleKind);
            }
            continue;
        }
        x_hasMoreStops = reader.stop.index >= 0;
        x_failure = x_hasMoreStops ? MoreStopsText() : failure;
        std::ranges::for_each(reader.sections, FindFilled);
        if (x_hasMoreStops) {
            reader.sections.back().emptyEntries.clear();  // lines of it were not read
        }
        std::ranges::move(reader.sections, std::back_inserter(x_sections));
        x_engines.push_back(std::move(engine));
        return failure.empty();
    }
}

/// Reads each numbered section by itself, so that the load of a large file is not begun anew for
/// each of its stops. Wireless tests have other names, and few sections.
void CheckedFile::LeaveOutOfNumbered(aceModul moduleKind) {
    if (moduleKind == aceVKSTemplate || moduleKind == aceVKSDUT) {
        return;
    }
    for (const NumberedSets& numbered : FindModule(moduleKind)->AllNumbered()) {
        for (std::int32_t number = 1; number <= x_input.setUp.subRanges; ++number) {
            const String name = String(numbered.sectionWord) + std::to_wstring(number);
            while (HeaderLine(name) != 0 && x_stops.size() < MostStops &&
                   LeaveOutOf(name, moduleKind)) {
            }
        }
    }
}

/// Takes the first line that stops a section out of it; false when there is none.
bool CheckedFile::LeaveOutOf(const String& name, aceModul moduleKind) {
    const ModuleLists none;
    p_Subrange lists;
    Reader reader(moduleKind, *this, none);
    reader.SetStarts({.fixed = &lists});
    try {
        const std::shared_ptr<ISettingsFile> settings = x_host->OpenFile(0, x_input.path);
        modActions::ReadSection(*x_context, *settings, name, lists, &reader);
    } catch (...) {
        static_cast<void>(CurrentRunTimeError());  // the line that has raised it is told
    }
    if (reader.stop.index < 0) {
        return false;
    }
    LeaveOut(reader);
    return true;
}

/// The line becomes an empty one, so that the others keep their places. With a count line that
/// can't be read, or that is not there, go the entries that it counts: each of them would stop the
/// load for the same reason.
void CheckedFile::LeaveOut(const Reader& reader) {
    const String& name = reader.sections.back().name;
    x_stops.push_back({name, reader.stop});
    std::vector<String> lines = x_left->GetSection(name);
    lines[static_cast<std::size_t>(reader.stop.index)].clear();
    if (reader.stop.meaning == LineMeaning::Count ||
        LacksCount(reader.sections.back(), reader.stop)) {
        const StringView entry = ActionListKeys[reader.stop.list - 1].entry;
        for (String& line : lines) {
            if (IsWord(entry, StringView(line).substr(0, entry.size()))) {
                line.clear();
            }
        }
    }
    String text;
    for (const String& line : lines) {
        text += (&line == lines.data() ? L"" : L"\r\n") + line;
    }
    x_left->SetSection(name, text);
}

}  // namespace ace::workbench
