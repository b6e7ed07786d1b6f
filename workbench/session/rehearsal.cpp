#include "workbench/session/rehearsal.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include <ace/editor/action_text.h>

#include "workbench/files/text_encoding.h"
#include "workbench/session/effect_words.h"
#include "workbench/session/planned_bench.h"

namespace ace::workbench {

namespace {

/// Nobody reads what it says, so that the test never waits for him.
class WillingOperator final : public IOperator {
  public:
    std::optional<Reply> Ask(const Dialog&) override { return Reply::GoOn; }
};

/// A call that does something to a device, whose name is its first argument. Calls are told apart
/// by the arguments up to `last`; `words` stand for what changes with each call.
struct DeedRow {
    StringView operation;
    std::size_t last = 0;
    StringView words{};
};
constexpr DeedRow Deeds[] = {
    {L"Device.Activate"},
    {L"Device.LoadSettings", 2},
    {L"MonitorDevice.SetChannel", 1},
    {L"MonitorDevice.ReadChannel", 1},
    {L"MonitorDevice.SetFrequency", 0, L"follows the frequency"},
    {L"BcGenerator.Apply"},
    {L"Amplifier.SetState", 1},
    {L"SwitchUnit.SwitchPath", 1},
    {L"Receiver.SetParameter", 2},
    {L"SignalPath.Prepare"},
    {L"RfGenerator.SetFrequency", 0, L"follows the frequency"},
    {L"RfGenerator.SetLevel", 0, L"level is set"},
    {L"RfGenerator.SetRfOn", 1},
};

/// "operate", as the report of a run says it behind the device's name.
String DeedWords(const DeedRow& row, const sim::HostCall& call, const String& device) {
    if (!row.words.empty()) {
        return String(row.words);
    }
    const String words = EffectWords(call);
    const String head = device + L": ";
    return words.starts_with(head) ? words.substr(head.size()) : words;
}

/// The element of `items` that belongs to `key`; a new one when there is none yet.
template <class Key, class Item>
Item& ItemOf(std::map<Key, std::size_t>& places, const Key& key, std::vector<Item>& items) {
    const auto [place, isNew] = places.try_emplace(key, items.size());
    if (isNew) {
        items.emplace_back();
    }
    return items[place->second];
}

/// What a program is called by: the file of its command line.
String ProgramOf(std::string_view commandLine) {
    const String line = FromUtf8(std::string(commandLine));
    const bool isQuoted = line.starts_with(L'"');
    const std::size_t begin = isQuoted ? 1 : 0;
    return line.substr(begin, line.find(isQuoted ? L'"' : L' ', begin) - begin);
}

/// The first action that is the same as that of `index`. `firsts` are those that it can be, of
/// which none is like another.
std::size_t FirstLike(const std::vector<PlacedAction>& all, std::vector<std::size_t>& firsts,
                      std::size_t index) {
    const auto known = std::ranges::find_if(
        firsts, [&](std::size_t first) { return *all[first].action == *all[index].action; });
    if (known != firsts.end()) {
        return *known;
    }
    firsts.push_back(index);
    return index;
}

/// Counts while the session runs.
class Collector final : public SessionListener {
  public:
    Collector(TransportHost& host, Rehearsal& result) : x_host(host), x_result(result) {}

    /// Takes over the actions of the lists. `context` tells which one runs.
    void Begin(ThreadContext& context, const ActionPlaces& places, aceModul moduleKind);

    void ActionStarts();
    void ActionEnds();
    void OnTraffic(const TrafficLine& line);

    bool WantsEffects() const override { return false; }
    void OnLine(const Place& place, LineKind kind, const String& words) override;
    void OnMomentStarts(const Moment& moment) override;
    void OnDialog(const Dialog& dialog, Reply reply, bool isFromFile) override;
    void OnCall(const sim::HostCall& call) override;

  private:
    static constexpr std::size_t None = static_cast<std::size_t>(-1);
    /// A list of the file.
    struct FileList {
        std::size_t begin = 0;
        std::size_t end = 0;
        std::size_t place = None;    ///< in the result; none until an action of it begins
        std::size_t lastSerial = 0;  ///< of the moment in which it ran last
    };

    RehearsedList& ListOf(std::size_t action);
    void CountMoment(FileList& fileList, RehearsedList& list) const;

    TransportHost& x_host;
    Rehearsal& x_result;
    ThreadContext* x_context = nullptr;
    std::unordered_map<const p_Action*, std::size_t> x_actions;
    std::vector<FileList> x_lists;
    std::vector<std::size_t> x_listOf;  ///< by action
    std::map<std::pair<std::size_t, PromptKind>, std::size_t> x_dialogs;
    std::map<std::pair<String, String>, std::size_t> x_addresses;
    std::map<String, std::size_t> x_devices;
    std::vector<std::map<String, std::size_t>> x_deeds;  ///< by device
    Moment x_moment;
    std::size_t x_serial = 0;      ///< of the moment, from 1
    std::size_t x_running = None;  ///< the action that was begun last
    double x_startMs = 0.0;
};

void Collector::Begin(ThreadContext& context, const ActionPlaces& places, aceModul moduleKind) {
    x_context = &context;
    std::vector<PlacedAction> all = places.All();
    std::unordered_map<String, std::vector<std::size_t>> byText;
    for (PlacedAction& placed : all) {
        const std::size_t index = x_result.actions.size();
        const bool isNewList = index == 0 ||
                               x_result.actions.back().source.section != placed.source.section ||
                               x_result.actions.back().source.list != placed.source.list;
        if (isNewList) {
            x_lists.push_back({.begin = index});
        }
        x_lists.back().end = index + 1;
        x_listOf.push_back(x_lists.size() - 1);
        x_actions.emplace(placed.action, index);
        String text = TreeText(context, moduleKind, *placed.action).value_or(String());
        const std::size_t like = FirstLike(all, byText[text], index);
        x_result.actions.push_back({std::move(placed.source), std::move(text), like});
    }
}

void Collector::CountMoment(FileList& fileList, RehearsedList& list) const {
    if (fileList.lastSerial == x_serial) {
        return;
    }
    fileList.lastSerial = x_serial;
    const bool goesOn = !list.moments.empty() && list.moments.back().call == x_moment.call &&
                        list.moments.back().number == x_moment.number;
    if (!goesOn) {
        list.moments.push_back({x_moment.call, x_moment.number, 0});
    }
    ++list.moments.back().times;
}

RehearsedList& Collector::ListOf(std::size_t action) {
    FileList& fileList = x_lists[x_listOf[action]];
    if (fileList.place == None) {
        fileList.place = x_result.lists.size();
        x_result.lists.push_back({.first = x_moment, .begin = fileList.begin, .end = fileList.end});
    }
    RehearsedList& list = x_result.lists[fileList.place];
    CountMoment(fileList, list);
    return list;
}

void Collector::ActionStarts() {
    const auto found = x_actions.find(x_context->RunningAction);
    x_running = found != x_actions.end() ? found->second : None;
    if (x_running == None) {
        return;
    }
    ++x_result.actions[x_running].times;
    ++ListOf(x_running).begun;
    const auto* const remote = std::get_if<aceRemote>(&found->first->Parameter);
    if (remote != nullptr && !remote->Program.empty() && remote->WaitPrgSync) {
        ++x_result.programsAwaited;
    }
    x_startMs = x_host.Now();
}

void Collector::ActionEnds() {
    if (x_running != None) {
        ListOf(x_running).workMs += x_host.Now() - x_startMs;
    }
}

void Collector::OnTraffic(const TrafficLine& line) {
    const bool isProgram = line.transport == TrafficNames::Program;
    const String where = isProgram ? ProgramOf(line.bytes) : String(line.address);
    RehearsedAddress& address =
        ItemOf(x_addresses, std::pair(String(line.transport), where), x_result.addresses);
    address.transport = line.transport;
    address.address = where;
    address.isStarted = isProgram || line.transport == TrafficNames::Macro;
    ++address.times;
    address.bytes += line.bytes.size();
}

/// That the test is stopped is no news behind the reason.
void Collector::OnLine(const Place& place, LineKind kind, const String& words) {
    const bool isNews = kind == LineKind::Ending && x_result.ends.empty();
    if (kind == LineKind::Error || isNews) {
        x_result.ends.push_back({place.moment, words, kind == LineKind::Error, x_running});
    }
}

void Collector::OnMomentStarts(const Moment& moment) {
    x_moment = moment;
    ++x_serial;
}

void Collector::OnDialog(const Dialog& dialog, Reply reply, bool isFromFile) {
    RehearsedDialog& known = ItemOf(x_dialogs, std::pair(x_running, dialog.kind), x_result.dialogs);
    if (known.times == 0) {
        known.dialog = dialog;
        known.moment = MomentWords(x_moment);
        known.reply = reply;
    }
    known.differs = known.differs || known.dialog.message != dialog.message;
    ++known.times;
    known.fromFile += isFromFile ? 1 : 0;
}

void Collector::OnCall(const sim::HostCall& call) {
    const auto* const row = std::ranges::find(Deeds, call.operation, &DeedRow::operation);
    if (row == std::end(Deeds)) {
        return;
    }
    const String name = sim::PlainText(call.arguments[0]);
    RehearsedDevice& device = ItemOf(x_devices, name, x_result.devices);
    device.name = name;
    x_deeds.resize(x_result.devices.size());
    String key(row->operation);
    for (std::size_t i = 1; i <= row->last; ++i) {
        key += L' ' + sim::PlainText(call.arguments[i]);
    }
    RehearsedDeed& deed = ItemOf(x_deeds[x_devices[name]], key, device.deeds);
    if (deed.times == 0) {
        deed.words = DeedWords(*row, call, name);
    }
    ++deed.times;
}

/// Hears of each action from the engine's trace.
class ActionWatch final : public DefaultTraceLog {
  public:
    explicit ActionWatch(Collector& collector) : x_collector(collector) {}

    bool IsEnabled() override { return true; }
    void WriteLine(StringView marker, StringView, StringView, StringView procedure, StringView,
                   StringView) override {
        if (procedure != L"DoAction") {
            return;
        }
        if (marker == L"start") {
            x_collector.ActionStarts();
        } else {
            x_collector.ActionEnds();
        }
    }

  private:
    Collector& x_collector;
};

}  // namespace

Rehearsal Rehearse(const std::shared_ptr<TransportHost>& host, const TestSetUp& setUp,
                   Answers& answers, const String& file, bool hasBench) {
    Rehearsal result;
    Collector collector(*host, result);
    WillingOperator theOperator;
    host->journal.KeepNone();
    Session session(host, setUp, answers, collector, &theOperator);
    session.Load(file);
    collector.Begin(session.Context(), session.Places(), setUp.moduleKind);
    if (hasBench) {
        MakeEquipmentWell(host->bench);
    } else {
        AddNamedDevices(*host, setUp, session.Places());
    }
    host->traceFile = std::make_shared<ActionWatch>(collector);
    host->onTraffic = [&](const TrafficLine& line) { collector.OnTraffic(line); };
    result.outcome = session.Run();
    result.counts = session.Counts();
    host->traceFile = nullptr;
    host->onTraffic = {};
    return result;
}

}  // namespace ace::workbench
