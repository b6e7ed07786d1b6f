#include "workbench/session/session.h"

#include <algorithm>

#include <ace/core/operation.h>

#include "workbench/session/effect_words.h"
#include "workbench/session/loaded_engines.h"
#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

struct RequestRow {
    acEutCheck bit;
    StringView words;
};
constexpr RequestRow Requests[] = {
    {acEutRepeatSubrangeMeas, L"the check asks to repeat the measurement of the subrange"},
    {acEutParkAccessories, L"request to park the accessories"},
    {acEutStopTest, L"the check asks to stop the test"},
};

bool IsFrequency(const Moment& moment) {
    return moment.call == MomentCall::NewFrequency;
}

LineKind KindOf(const Dialog& dialog) {
    return dialog.kind == PromptKind::Failure ? LineKind::Failure : LineKind::Dialog;
}

/// In monitoring: what a channel does, and the step behind a frequency.
bool StandsBetweenFrequencies(const Moment& moment) {
    using enum MomentCall;
    return moment.call == Trigger || moment.call == EnterNoGo || moment.call == Go ||
           moment.call == AfterStep;
}

}  // namespace

Session::Session(std::shared_ptr<SessionHost> host, TestSetUp setUp, Answers& answers,
                 SessionListener& listener, IOperator* theOperator)
    : x_host(std::move(host)),
      x_setUp(std::move(setUp)),
      x_plan(PlanOf(x_setUp)),
      x_answers(answers),
      x_listener(listener),
      x_operator(theOperator),
      x_context(x_host),
      x_channels(WatchedChannels(x_setUp)),
      x_frequencies(static_cast<std::size_t>(std::ranges::count_if(x_plan, IsFrequency))) {
    x_host->testKind = x_setUp.testKind.value_or(0);
    if (x_setUp.testKind) {
        x_host->testState = 0;
    }
}

Session::~Session() {
    x_host->journal.Observe({});
    x_host->onPrompt = {};
    x_host->onRemark = {};
    x_host->onInterrupt = {};
    x_host->place = {};
}

void Session::Load(const String& fileName) {
    LoadedEngines engines = LoadEngines(x_context, x_setUp, fileName);
    x_engine = std::move(engines.engine);
    x_steps = std::move(engines.steps);
    x_places = std::move(engines.places);
    x_fileName = fileName;
    x_summary.wirelessSteps =
        static_cast<std::size_t>(std::ranges::count(x_plan, MomentCall::VKSStep, &Moment::call));
}

Outcome Session::Run() {
    ListenToHost();
    while (x_at < x_plan.size()) {
        x_next = x_at + 1;
        RunMoment(x_plan[x_at]);
        WatchChannels();
        x_at = x_next;
    }
    Close();
    return x_outcome;
}

/// From here on the host's calls are effects of the test.
void Session::ListenToHost() {
    x_host->counts = {};
    x_host->tellsEffects = x_listener.WantsEffects();
    x_host->journal.Observe([this](const sim::HostCall& call) {
        x_listener.OnCall(call);
        const LineKind kind = EffectKind(call);
        if (!Wants(kind)) {
            return;
        }
        if (const String words = EffectWords(call); !words.empty()) {
            Tell(kind, words);
        }
    });
    x_host->onRemark = [this](LineKind kind, StringView words) { Tell(kind, String(words)); };
    x_host->onInterrupt = [this] { OnInterrupt(); };
    x_host->onPrompt = [this](const Dialog& dialog) { return Decide(dialog); };
    x_host->place = [this] { return CurrentPlace(); };
}

void Session::RunMoment(const Moment& moment) {
    x_current = moment;
    x_place = MomentWords(moment);
    ++x_summary.moments;
    MomentCost cost{.startMs = x_host->Now(), .actions = x_host->counts.actions};
    x_listener.OnMomentStarts(moment);
    RunActions(moment);
    cost.endMs = x_host->Now();
    cost.actions = x_host->counts.actions - cost.actions;
    x_listener.OnMomentEnds(moment, cost);
    const std::size_t end = x_plan.size() - 1;  // the end of the test runs in any case
    if (x_outcome != Outcome::Finished && x_at < end) {
        Tell(LineKind::Ending, L"the test is stopped");
        x_next = end;
        x_host->skipsWaits = false;  // amplifiers need their time, whoever is in a hurry
    }
}

/// An error ends the moment, and is told.
void Session::RunActions(const Moment& moment) {
    x_context.RunningAction = nullptr;
    try {
        if (moment.call == MomentCall::VKSDUTStepGlobBefore) {
            FillRowPlaceholders(*x_engine, x_setUp, moment);
            Tell(LineKind::Effect, RowWords(*x_engine, x_setUp.matrix, moment));
        }
        CallEngine(moment);
    } catch (...) {
        TellError(CurrentRunTimeError());
        if (moment.call == MomentCall::VKSStep) {
            TakeVerdict(moment, Verdict::BrokenOff);
        }
        Worsen(Outcome::Failed);
    }
    x_host->CheckInterrupt();
}

/// With the action that failed, on the screen and in the trace.
void Session::TellError(const RunTimeError& error) {
    ++x_summary.errors;
    String words = L"ERROR " + std::to_wstring(error.Number()) + L": " + error.Description();
    if (const auto source = x_places.Find(x_context.RunningAction)) {
        words += L" at " + SourceText(x_fileName, *source);
    }
    if (x_host->traceFile && x_host->traceFile->IsEnabled()) {
        x_host->traceFile->WriteLine(L"error", L"workbench", L"Session", x_place, words, {});
    }
    Tell(LineKind::Error, words);
}

/// The end of the test runs in any case, and its waits too.
void Session::OnInterrupt() {
    Tell(LineKind::Ending, L"stopped by the user");
    Worsen(Outcome::Stopped);
    if (x_at + 1 < x_plan.size()) {
        x_host->skipsWaits = true;
        x_engine->StopAllActions();
    }
}

void Session::CallEngine(const Moment& moment) {
    _aceActionsEngine& engine = moment.ofSteps ? *x_steps : *x_engine;
    const MomentCallRow& row = MomentCallRowOf(moment.call);
    if (moment.hertz > 0.0) {
        x_host->bench.frequency = moment.hertz;
    }
    ActOnAnswer(row, row.run(engine, moment));
    if (moment.call == MomentCall::VKSStep) {
        const bool isStopped = x_outcome != Outcome::Finished;
        TakeVerdict(moment, x_outcome == Outcome::Unanswered
                                ? Verdict::BrokenOff
                                : VerdictOf(engine, moment, isStopped));
    }
    TakeRequests(engine);
    if (IsFrequency(moment)) {
        StayOnFrequency(moment);
    }
}

void Session::TakeVerdict(const Moment& step, Verdict verdict) {
    ++x_summary.verdicts[static_cast<std::size_t>(verdict)];
    Tell(LineKind::Verdict, VerdictWords(step, verdict));
}

void Session::ActOnAnswer(const MomentCallRow& row, std::int32_t answer) {
    bool stops = row.meaning == AnswerMeaning::TrueStops && answer != 0;
    if (row.meaning == AnswerMeaning::CodeCounts) {
        if (const ChannelCode* code = FindChannelCode(answer)) {
            Tell(LineKind::Request,
                 L"code " + std::to_wstring(answer) + L": " + String(code->words));
            stops = code->stopsTest;
        }
    }
    if (stops) {
        Worsen(Outcome::Stopped);
    }
}

void Session::TakeRequests(_aceActionsEngine& engine) {
    Value comment;
    const std::int32_t bits = engine.GetCheckEutAction(comment);
    if ((bits & acEutStoreComment) != 0) {
        StoreComment(comment);
    }
    for (const RequestRow& row : Requests) {
        if ((bits & row.bit) != 0) {
            Tell(LineKind::Request, String(row.words));
        }
    }
    x_summary.parkings += (bits & acEutParkAccessories) != 0 ? 1 : 0;
    if ((bits & acEutStopTest) != 0) {
        Worsen(Outcome::Stopped);
    } else if ((bits & acEutRepeatSubrangeMeas) != 0 && IsFrequency(x_current)) {
        RepeatFrequencies();
    }
}

void Session::StoreComment(const Value& comment) {
    const String* const text = std::get_if<String>(&comment);
    const String words = text != nullptr ? OneLine(*text) : String();
    const Place here = CurrentPlace();
    const String frequency = here.hertz > 0.0 ? FrequencyText(here.hertz) : here.moment;
    x_summary.comments.push_back(frequency + L": " + words);
    Tell(LineKind::Comment, L"comment stored: " + QuotedLine(words));
}

/// What the devices read behind a frequency is what the channels do next. A measurement that is to
/// be repeated says nothing about them.
void Session::WatchChannels() {
    if (!IsFrequency(x_plan[x_at]) || x_next != x_at + 1) {
        return;
    }
    for (const Moment& change : ChannelChanges(x_channels, x_host->bench)) {
        if (x_outcome == Outcome::Finished) {
            RunMoment(change);
        }
    }
}

/// The first frequency of the stretch, which is that of a subrange, a step or a sweep. In
/// monitoring, channels and steps stand between the frequencies.
std::size_t Session::BeginOfStretch() const {
    std::size_t first = x_at;
    for (std::size_t at = x_at; at-- > 0;) {
        const Moment& earlier = x_plan[at];
        if (IsFrequency(earlier) && earlier.number == x_plan[x_at].number) {
            first = at;
        } else if (IsFrequency(earlier) || !StandsBetweenFrequencies(earlier)) {
            break;
        }
    }
    return first;
}

/// Goes back to the first frequency of the stretch, once, so that a check that never succeeds does
/// not keep the test for ever.
void Session::RepeatFrequencies() {
    const std::size_t first = BeginOfStretch();
    if (x_repeated.insert(first).second) {
        ++x_summary.repetitions;
        const auto begin = x_plan.begin();
        x_frequenciesDone -= static_cast<std::size_t>(
            std::count_if(begin + static_cast<std::ptrdiff_t>(first),
                          begin + static_cast<std::ptrdiff_t>(x_at), IsFrequency));
        x_plan[first].isAgain = true;
        x_next = first;
    } else {
        Tell(LineKind::Request, L"it was repeated before, so the test goes on");
    }
}

void Session::StayOnFrequency(const Moment& moment) {
    if (x_outcome == Outcome::Finished && moment.dwellMs > 0.0) {
        const double before = x_host->counts.passedMs;
        x_host->PassTime(moment.dwellMs);
        x_summary.dwellMs += x_host->counts.passedMs - before;
    }
    if (x_next > x_at) {
        x_listener.OnProgress(++x_frequenciesDone, x_frequencies);
    }
}

/// A line of the answers goes before the operator. Without either, only a question stops the test.
Reply Session::Decide(const Dialog& dialog) {
    const Moment& moment = x_current;
    const String shown = String(WordOf(dialog.kind)) + L" " + QuotedLine(dialog.message);
    std::optional<Reply> reply = x_answers.Take({dialog.kind, dialog.message, MomentWords(moment),
                                                 String(MomentCallRowOf(moment.call).operation)});
    const bool isFromFile = reply.has_value();
    if (!reply) {
        reply = AskOperator(dialog);
    }
    if (!reply && dialog.kind == PromptKind::Question) {
        ++x_summary.unanswered;
        x_listener.OnDialog(dialog, Reply::Stop, false);
        Tell(KindOf(dialog), shown + L": NO ANSWER, so it is No");
        Worsen(Outcome::Unanswered);
        return Reply::Stop;
    }
    const Reply decided = reply.value_or(Reply::GoOn);
    x_listener.OnDialog(dialog, decided, isFromFile);
    Count(dialog.kind, decided);
    Tell(KindOf(dialog), shown + L": " + String(WordOf(dialog.kind, decided)));
    return decided;
}

/// When the operator has gone the test is stopped. Its end runs as if nobody had been there: what
/// it switches off is not to wait for an answer that never comes.
std::optional<Reply> Session::AskOperator(const Dialog& dialog) {
    if (x_operator == nullptr) {
        return std::nullopt;
    }
    while (!x_operatorIsGone) {
        if (const std::optional<Reply> reply = x_operator->Ask(dialog)) {
            return reply;
        }
        if (x_host->InterruptIsNew()) {
            x_host->CheckInterrupt();
            if (!IsAtEnd()) {
                return Reply::Stop;
            }
        } else {
            x_operatorIsGone = true;
            Tell(LineKind::Ending, L"the operator's input has ended, so the test is stopped");
            Worsen(Outcome::Unanswered);
        }
    }
    const bool isUnanswered = dialog.kind == PromptKind::Question || IsAtEnd();
    return isUnanswered ? std::nullopt : std::optional(Reply::Stop);
}

void Session::Count(PromptKind kind, Reply reply) {
    const bool stops = reply == Reply::Stop;
    switch (kind) {
        case PromptKind::Notification:
            ++x_summary.notifications;
            x_summary.notificationsStopped += stops ? 1 : 0;
            break;
        case PromptKind::Question:
            ++(stops ? x_summary.no : x_summary.yes);
            break;
        case PromptKind::Failure:
            ++(stops                       ? x_summary.failuresStopped
               : reply == Reply::IgnoreAll ? x_summary.failuresIgnoredForGood
                                           : x_summary.failuresIgnored);
            break;
    }
}

void Session::Worsen(Outcome outcome) {
    x_outcome = std::max(x_outcome, outcome);
}

Place Session::CurrentPlace() const {
    return {x_host->Now(), x_place, x_at < x_plan.size() ? x_current.hertz : 0.0};
}

void Session::Tell(LineKind kind, const String& words) {
    if (Wants(kind)) {
        x_listener.OnLine(CurrentPlace(), kind, words);
    }
}

void Session::Close() {
    x_place = L"after the test";
    x_steps.reset();
    x_engine.reset();
    x_summary.actions = x_host->counts.actions;
    x_summary.errorReports = x_host->counts.errorReports;
    x_summary.waitedMs = x_host->counts.passedMs - x_summary.dwellMs;
}

}  // namespace ace::workbench
