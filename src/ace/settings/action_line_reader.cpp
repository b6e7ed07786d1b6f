#include <algorithm>
#include <optional>

#include <ace/core/action_kinds.h>
#include <ace/core/text.h>
#include <ace/host/checked_numbers.h>
#include <ace/settings/action_line.h>
#include <ace/settings/line_reporter.h>

namespace ace {

namespace {

/// A record that comes from a line has no replace variables.
void ResetVariables(aceVKSVar& variables) {
    variables.count = 0;
    variables.strSearch.Erase();
    variables.valReplace.Erase();
}

void ResetRemote(aceRemote& record) {
    record.Iface = record.GpibAddress = record.Terminator = 0;
    record.SerComPort = record.TcpPort = 0;
    record.Command.clear();
    record.TcpHost.clear();
    record.Program.clear();
    record.DrvHdl = -1;
    record.ProgID = 0.0;
    record.WaitPrgSync = false;
    ResetVariables(record.vks);
}

void ResetTrackFreq(aceTrackFreq& record) {
    constexpr std::int32_t TableType = 40;
    record.MoniName.clear();
    record.GenName.clear();
    record.SigPathName.clear();
    record.TableName.clear();
    ForgetDevices(record);
    record.TableType = TableType;
    record.TableMeasClass = 0;
    record.AskOnMeasStart = false;
}

/// Once per section. The fields that are not here keep what the last use left in them.
void ResetRecords(WorkingRecords& records) {
    records.Api.Program.clear();
    records.Api.Parameters.Redim(0, 0);
    ResetVariables(records.Api.vks);
    records.Notify.Message.clear();
    records.Notify.WaveFile.clear();
    records.Notify.Beep = records.Notify.GeneratorOff = false;
    ResetVariables(records.Notify.vks);
    ResetRemote(records.Remote);
    ResetSetDevice(records.SetDevice);
    ResetTrackFreq(records.TrackFreq);
}

/// Puts a copy of a working record into an action. Made empty first and then assigned, so that a
/// failed allocation leaves a record and not a hole.
template <auto Record>
void Store(p_Action& action, const WorkingRecords& records) {
    using Kept = std::remove_cvref_t<decltype(records.*Record)>;
    Kept* kept = std::get_if<Kept>(&action.Parameter);
    (kept != nullptr ? *kept : action.Parameter.emplace<Kept>()) = records.*Record;
}
/// Indexed by `RecordType`.
constexpr void (*StoreRecord[])(p_Action&, const WorkingRecords&) = {
    nullptr,
    Store<&WorkingRecords::Wait>,
    Store<&WorkingRecords::Api>,
    Store<&WorkingRecords::Notify>,
    Store<&WorkingRecords::Remote>,
    Store<&WorkingRecords::SetDevice>,
    Store<&WorkingRecords::TrackFreq>,
};

std::optional<std::size_t> FindCountKey(StringView key) {
    for (std::size_t i = 0; i < std::size(ActionListKeys); ++i) {
        if (EqualNoCase(key, ActionListKeys[i].count)) {
            return i;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> FindEntryKey(StringView key) {
    const StringView name = key.substr(0, EntryKeyLength);
    for (std::size_t i = 0; i < std::size(ActionListKeys); ++i) {
        if (IsWord(ActionListKeys[i].entry, name)) {
            return i;
        }
    }
    return std::nullopt;
}

/// The index that the number in an entry key stands for; error 9 when no list can have it, 6 when
/// it is no number of a double any more.
std::int32_t EntryIndex(StringView number) {
    const double entry = ReadNumber(number);
    try {
        return RoundToLong(entry - 1.0);
    } catch (const RunTimeError&) {
        Raise(Errors::SubscriptOutOfRange);
    }
}

/// The lines of one section on their way into the lists.
class SectionReader {
  public:
    SectionReader(ThreadContext& context, const Statements& stmt, p_Subrange& target,
                  LineReporter* reporter)
        : x_records(context.ReaderRecords),
          x_target(target),
          x_reporter(reporter),
          x_entryLine(context, stmt) {}

    void Read(const std::vector<String>& lines);

  private:
    /// What the second pass needs of a line. Without keyword there is nothing left to do.
    struct SplitLine {
        StringView key;
        StringView keyword;
        StringView value;
    };

    /// Each answers whether the line is done with.
    bool Split(StringView line, SplitLine& split);
    bool ReadCount(std::size_t listIndex, StringView text);
    bool ReadEntry(const SplitLine& split);

    void FillEntry(const KeywordRow& row, std::size_t listIndex, const SplitLine& split);
    template <class Step>
    void Reporting(const std::vector<String>& lines, std::size_t lineIndex, Step&& step);

    WorkingRecords& x_records;
    p_Subrange& x_target;
    LineReporter* x_reporter;
    EntryLine x_entryLine;
    LineReport x_report;
};

/// Lists get their sizes before any entry is read, so the order of the lines does not matter.
void SectionReader::Read(const std::vector<String>& lines) {
    std::vector<SplitLine> splits(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Reporting(lines, i, [&] { return Split(lines[i], splits[i]); });
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!splits[i].keyword.empty()) {
            Reporting(lines, i, [&] { return ReadEntry(splits[i]); });
        }
    }
}

/// Takes a step on a line; with an observer, fills a report and tells it, also of a failure.
template <class Step>
void SectionReader::Reporting(const std::vector<String>& lines, std::size_t lineIndex,
                              Step&& step) {
    x_entryLine.Clear();
    if (x_reporter == nullptr) {
        step();
        return;
    }
    x_report = {};
    x_report.line = lines[lineIndex];
    x_report.lineIndex = static_cast<std::int32_t>(lineIndex);
    bool isDone = false;
    try {
        isDone = step();
    } catch (...) {
        x_report.set = x_entryLine.SetFields();
        x_reporter->Stopped(x_report, x_entryLine.Step());
        throw;
    }
    if (isDone) {
        x_report.set = x_entryLine.SetFields();
        x_reporter->Read(x_report);
    }
}

bool SectionReader::Split(StringView line, SplitLine& split) {
    if (line.size() <= 1) {
        x_report.meaning = LineMeaning::Short;
        return true;
    }
    x_report.meaning = LineMeaning::Unreadable;
    const std::size_t equals = line.find(L'=');
    if (equals == StringView::npos) {
        x_entryLine.Next({LineStep::FindEqualSign, 0, {}});
        Raise(Errors::InvalidProcedureCall);
    }
    split.key = x_report.key = line.substr(0, equals);
    const StringView text = line.substr(equals + 1);
    if (const auto listIndex = FindCountKey(split.key)) {
        return ReadCount(*listIndex, text);
    }
    const std::size_t colon = text.find(L':');
    if (colon == StringView::npos) {
        x_entryLine.Next({LineStep::FindColon, 0, {}});
        Raise(Errors::InvalidProcedureCall);
    }
    split.keyword = text.substr(0, colon + 1);
    split.value = text.substr(colon + 1);
    return false;
}

/// The array comes first, so that a list which runs or finds no memory keeps its count.
/// Intentional: a count below 1, for which there is no array, stands beside the old one.
bool SectionReader::ReadCount(std::size_t listIndex, StringView text) {
    x_report.meaning = LineMeaning::Count;
    x_report.list = static_cast<std::int32_t>(listIndex) + 1;
    const std::int32_t count = x_report.count = x_entryLine.RoundedNumber(text);
    x_entryLine.Next({LineStep::MakeList, count, {}});
    if (count > MostEntries) {
        Raise(Errors::OutOfMemory);
    }
    const ListFields& list = ActionLists[listIndex];
    if (count < 1) {
        x_target.*list.count = count;
    }
    (x_target.*list.actions).Redim(0, std::max(count, 0) - 1);
    x_target.*list.count = count;
    return true;
}

bool SectionReader::ReadEntry(const SplitLine& split) {
    x_report.key = split.key;
    x_report.keyword = split.keyword;
    x_report.meaning = LineMeaning::UnknownKey;
    const auto listIndex = FindEntryKey(split.key);
    if (!listIndex) {
        return true;
    }
    x_report.meaning = LineMeaning::UnknownKeyword;
    x_report.list = static_cast<std::int32_t>(*listIndex) + 1;
    const KeywordRow* row = x_report.row = FindKeyword(split.keyword);
    if (row != nullptr && row->IsKnownIn(*listIndex)) {
        x_report.meaning = LineMeaning::Entry;
        FillEntry(*row, *listIndex, split);
    }
    return true;
}

/// Kind first, record last: a line that fails in between leaves the kind with the record before.
void SectionReader::FillEntry(const KeywordRow& row, std::size_t listIndex,
                              const SplitLine& split) {
    const ListFields& list = ActionLists[listIndex];
    const StringView number = split.key.substr(EntryKeyLength);
    x_entryLine.Next({LineStep::FindEntry, x_target.*list.count, number});
    const std::int32_t index = EntryIndex(number);
    (x_target.*list.actions)[index].ActionType = row.kind;
    x_report.entry = index;
    if (row.read == nullptr) {
        return;
    }
    x_entryLine.Start(listIndex, split.value);
    row.read(x_entryLine);
    x_entryLine.Next({});
    const auto store = StoreRecord[static_cast<std::size_t>(FindActionKind(row.kind)->record)];
    store((x_target.*list.actions)[index], x_records);
}

void EmptyAllLists(p_Subrange& target) {
    for (const ListFields& list : ActionLists) {
        EmptyList(target, list);
    }
}

}  // namespace

void ResetSetDevice(aceSetDevice& record) {
    constexpr double CycleTime = 20.0;
    constexpr float WaitTime = 10.0F;
    constexpr std::int32_t AmpState = 2;
    record.DevName.clear();
    record.SigPathName.clear();
    record.Device.reset();
    record.SigPath.reset();
    record.StopTest = record.CommToTable = record.Notify = false;
    record.LoadingPos = record.WaitState = false;
    record.UseTimeCyc = true;
    record.CycleTime = CycleTime;
    record.WaitTime = WaitTime;
    record.AmpState = AmpState;
}

void modActions::ReadSection(ThreadContext& context, ISettingsFile& settings, const String& section,
                             p_Subrange& target, ILineObserver* observer) {
    Logged(context, ModuleLines(L"ReadSection"), NoMessage, [&](const Statements& stmt) {
        ResetRecords(context.ReaderRecords);
        std::optional<LineReporter> reporter;
        if (observer != nullptr) {
            reporter.emplace(*observer, section);
        }
        const std::vector<String> lines = stmt([&] { return settings.GetSection(section); });
        if (lines.empty()) {
            EmptyAllLists(target);
            return;
        }
        SectionReader(context, stmt, target, reporter ? &*reporter : nullptr).Read(lines);
    });
}

}  // namespace ace
