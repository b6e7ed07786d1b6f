#include "workbench/session/rehearsal.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include <ace/core/module_table.h>
#include <ace/core/text.h>
#include <ace/editor/action_text.h>
#include <ace/execution/what_runs.h>

#include "workbench/files/text_encoding.h"
#include "workbench/session/device_deeds.h"
#include "workbench/session/like_actions.h"
#include "workbench/session/planned_bench.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// Nobody reads what it says, so that the test never waits for him.
class WillingOperator final : public IOperator {
  public:
    std::optional<Reply> Ask(const Dialog&) override { return Reply::GoOn; }
};

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

constexpr std::int32_t LeaveListNumber = 2;
constexpr std::int32_t FreqListNumber = 3;

/// The actions of one list, whose end turns parking into a request.
bool IsEndThatParks(aceModul moduleKind, const ActionSource& source) {
    return ParksAtTheEnd(moduleKind) && source.list == LeaveListNumber &&
           source.section == ModuleTable[moduleKind].fixed[0].section;
}

/// The device whose readings can begin the list of an action; empty for none.
String WatcherOf(const TestSetUp& setUp, const ActionSource& source) {
    const StringView word = MoniChannelSets.sectionWord;
    if (setUp.channels.empty() || !source.section.starts_with(word)) {
        return {};
    }
    const auto number = WholeInteger(source.section.substr(word.size())).value_or(0);
    const auto index = static_cast<std::size_t>(number - 1);
    if (number < 1 || index >= setUp.channels.size() || !setUp.channels[index].watch) {
        return {};
    }
    const ChannelWatch& watch = *setUp.channels[index].watch;
    const bool isTrigger = source.list == FreqListNumber;
    const bool isNoGo = source.list < FreqListNumber;  // entered and left again
    const bool begins = (isTrigger && watch.triggerAbove) || (isNoGo && watch.noGoAbove);
    return begins ? watch.device : String();
}

/// Counts while the session runs.
class Collector final : public SessionListener {
  public:
    Collector(TransportHost& host, Rehearsal& result) : x_host(host), x_result(result) {}

    /// Takes over the actions of the lists. `context` tells which one runs.
    void Begin(ThreadContext& context, const ActionPlaces& places, const TestSetUp& setUp);
    /// Takes back what waits for no device, because its list was begun or no channel is watched
    /// that early.
    void End();

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
        std::size_t next = 0;        ///< the action that comes next in that moment
        const DynArray<p_Action>* actions = nullptr;
    };

    RehearsedList& ListOf(std::size_t action);
    void CountMoment(FileList& fileList, RehearsedList& list) const;
    std::size_t BeginningAction() const;
    void Count(std::size_t action);
    void FollowStop();
    void OnYield();

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
    bool x_isInAction = false;
    double x_startMs = 0.0;
    std::size_t x_stopping = None;   ///< the action that asked to stop the test in the moment
    bool x_isAnswered = false;       ///< it asked for that by a line of the answers
    std::size_t x_lastFirst = None;  ///< the last action of the list that the moment ran first
    std::size_t x_parking = None;    ///< the list whose end parks the accessories
    std::size_t x_walked = 0;        ///< elements of that list to which the end of the test came
    bool x_hadFrequency = false;
};

void Collector::Begin(ThreadContext& context, const ActionPlaces& places, const TestSetUp& setUp) {
    x_context = &context;
    std::vector<PlacedAction> all = places.All();
    LikeActions likeActions(context);
    for (PlacedAction& placed : all) {
        const std::size_t index = x_result.actions.size();
        const bool isNewList = index == 0 ||
                               x_result.actions.back().source.section != placed.source.section ||
                               x_result.actions.back().source.list != placed.source.list;
        if (isNewList) {
            x_lists.push_back({.begin = index, .actions = placed.list});
            if (IsEndThatParks(setUp.moduleKind, placed.source)) {
                x_parking = x_lists.size() - 1;
            }
        }
        x_lists.back().end = index + 1;
        x_listOf.push_back(x_lists.size() - 1);
        x_actions.emplace(placed.action, index);
        String text = TreeText(context, setUp.moduleKind, *placed.action).value_or(String());
        const std::size_t like = likeActions.FirstLike(*placed.action, text, index);
        String watcher = WatcherOf(setUp, placed.source);
        x_result.actions.push_back(
            {std::move(placed.source), std::move(text), like, 0, std::move(watcher)});
    }
}

void Collector::End() {
    for (std::size_t i = 0; i < x_result.actions.size(); ++i) {
        if (!x_hadFrequency || x_lists[x_listOf[i]].place != None) {
            x_result.actions[i].watcher.clear();
        }
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

/// The engine names an action that does something. Of any other it tells the beginning alone: it is
/// the next one of the list that is held.
std::size_t Collector::BeginningAction() const {
    const auto found = x_actions.find(x_context->RunningAction);
    if (found != x_actions.end()) {
        return found->second;
    }
    const auto held =
        std::ranges::find_if(x_lists, [](const FileList& list) { return list.actions->IsHeld(); });
    if (held == x_lists.end()) {
        return None;
    }
    const std::size_t next = held->lastSerial == x_serial ? held->next : held->begin;
    return next < held->end ? next : None;
}

void Collector::Count(std::size_t action) {
    ++x_result.actions[action].times;
    ++ListOf(action).begun;
    x_lists[x_listOf[action]].next = action + 1;
}

/// A list that goes on was not stopped by the dialog before, but for that of a channel, which runs
/// to its end. What a moment runs behind its first list, it runs whether that was stopped or not.
void Collector::FollowStop() {
    if (MomentCallRowOf(x_moment.call).meaning == AnswerMeaning::CodeCounts) {
        const p_Action* const action = x_context->RunningAction;
        const bool stops = action != nullptr && action->ActionType == atTestStop;
        if (x_stopping == None && stops) {
            x_stopping = x_running;
            x_isAnswered = false;
        }
        return;
    }
    const std::size_t list = x_listOf[x_running];
    if (x_stopping != None && x_listOf[x_stopping] == list) {
        x_stopping = None;
    }
    if (x_lastFirst == None || x_listOf[x_lastFirst] == list) {
        x_lastFirst = x_running;
    }
}

void Collector::ActionStarts() {
    x_isInAction = true;
    x_running = BeginningAction();
    if (x_running == None) {
        return;
    }
    Count(x_running);
    FollowStop();
    const p_Action* const action = x_context->RunningAction;
    const auto* const remote =
        action != nullptr ? std::get_if<aceRemote>(&action->Parameter) : nullptr;
    if (remote != nullptr && !remote->Program.empty() && remote->WaitPrgSync) {
        ++x_result.programsAwaited;
    }
    x_startMs = x_host.Now();
}

/// Messages run once before each element of a list, also before those that are no action of the
/// engine.
void Collector::OnYield() {
    if (x_parking == None || x_isInAction || x_moment.call != MomentCall::StopTest) {
        return;
    }
    FileList& list = x_lists[x_parking];
    const std::size_t action = list.begin + x_walked;
    if (action < list.end &&
        (*list.actions)[list.actions->LowerBound() + static_cast<std::int32_t>(x_walked)]
                .ActionType == atParkAcc) {
        Count(action);
        ++x_result.parkedAtTheEnd;
    }
    ++x_walked;
}

void Collector::ActionEnds() {
    x_isInAction = false;
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
        const bool isError = kind == LineKind::Error;
        const std::size_t stopping = x_stopping != None ? x_stopping : x_lastFirst;
        x_result.ends.push_back({place.moment, words, isError, isError ? x_running : stopping,
                                 !isError && x_stopping != None && x_isAnswered});
    }
}

void Collector::OnMomentStarts(const Moment& moment) {
    x_moment = moment;
    ++x_serial;
    x_isInAction = false;
    x_stopping = None;
    x_lastFirst = None;
    x_hadFrequency = x_hadFrequency || moment.call == MomentCall::NewFrequency;
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
    if (reply == Reply::Stop && x_stopping == None) {
        x_stopping = x_running;
        x_isAnswered = isFromFile;
    }
}

void Collector::OnCall(const sim::HostCall& call) {
    if (call.operation == L"Platform.Yield") {
        OnYield();
        return;
    }
    const DeedRow* const row = FindDeed(call.operation);
    if (row == nullptr) {
        return;
    }
    const String name = sim::PlainText(call.arguments[0]);
    RehearsedDevice& device = ItemOf(x_devices, name, x_result.devices);
    device.name = name;
    x_deeds.resize(x_result.devices.size());
    RehearsedDeed& deed = ItemOf(x_deeds[x_devices[name]], DeedKey(*row, call), device.deeds);
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
                   Answers& answers, const String& file, const RehearsalOptions& options) {
    Rehearsal result;
    Collector collector(*host, result);
    WillingOperator theOperator;
    host->journal.KeepNone();
    Session session(host, setUp, answers, collector, options.hasOperator ? &theOperator : nullptr);
    session.Load(file);
    collector.Begin(session.Context(), session.Places(), setUp);
    result.gone = session.Places().Gone();
    if (options.hasBench) {
        MakeEquipmentWell(host->bench);
    } else {
        AddNamedDevices(*host, setUp, session.Places());
    }
    host->traceFile = std::make_shared<ActionWatch>(collector);
    host->onTraffic = [&](const TrafficLine& line) { collector.OnTraffic(line); };
    result.outcome = session.Run();
    collector.End();
    result.counts = session.Counts();
    host->traceFile = nullptr;
    host->onTraffic = {};
    return result;
}

}  // namespace ace::workbench
