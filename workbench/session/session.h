/// A session: loads a settings file into an engine and drives a test through its moments.
#pragma once

#include <array>
#include <memory>
#include <set>

#include <ace/core/thread_context.h>

#include "workbench/session/action_places.h"
#include "workbench/session/answers.h"
#include "workbench/session/channel_watch.h"
#include "workbench/session/plan.h"
#include "workbench/session/session_host.h"
#include "workbench/session/wireless_run.h"

namespace ace::workbench {

/// What one call of the engine took.
struct MomentCost {
    double startMs = 0.0;  ///< when it began, since the session began
    double endMs = 0.0;    ///< when it and the dwell behind it were over
    std::size_t actions = 0;
};

/// Is told what happens, while it happens.
class SessionListener {
  public:
    virtual ~SessionListener() = default;
    /// False when nobody looks at effects: no line of that kind comes. Asked once, before the test.
    virtual bool WantsEffects() const { return true; }
    /// One effect, answer, request or error, as one line of plain words.
    virtual void OnLine(const Place& place, LineKind kind, const String& words) = 0;
    /// A moment begins; what is told until `OnMomentEnds` belongs to it.
    virtual void OnMomentStarts(const Moment&) {}
    virtual void OnMomentEnds(const Moment&, const MomentCost&) {}
    /// What stood on the operator's screen, and the answer; `isFromFile`: by a line of the answers.
    virtual void OnDialog(const Dialog&, Reply, bool /*isFromFile*/) {}
    /// A call of the host as it is, effect or not, before its line.
    virtual void OnCall(const sim::HostCall&) {}
    /// So many of the frequencies of the test are done.
    virtual void OnProgress(std::size_t, std::size_t) {}
};

/// What was counted in a test.
struct Summary {
    std::size_t moments = 0;  ///< calls of the engine
    std::size_t actions = 0;  ///< actions that the engine began
    double waitedMs = 0.0;    ///< by wait actions
    double dwellMs = 0.0;     ///< on the frequencies, by the host
    std::size_t notifications = 0;
    std::size_t notificationsStopped = 0;
    std::size_t yes = 0;
    std::size_t no = 0;
    std::size_t unanswered = 0;
    std::size_t wirelessSteps = 0;                     ///< of the whole test, those not reached too
    std::array<std::size_t, VerdictCount> verdicts{};  ///< of those that were reached
    std::size_t failuresIgnored = 0;
    std::size_t failuresIgnoredForGood = 0;
    std::size_t failuresStopped = 0;
    std::vector<String> comments{};  ///< that checks asked to store, each with its place
    std::size_t repetitions = 0;     ///< of stretches of frequencies, as checks asked for
    std::size_t parkings = 0;        ///< of the accessories
    std::size_t errors = 0;          ///< run-time errors that reached the host
    std::size_t errorReports = 0;    ///< reports on the way there; one error can give several
};

/// Runs one test. It drives the engine through its public class alone. A true answer, a request of
/// a check and a question without an answer end the test as a host ends it: no further moment but
/// the last, `StopTest`. A run-time error of a moment does the same.
class Session {
  public:
    /// `host` gets the session's hooks; `answers`, `listener` and `theOperator` must outlive the
    /// session. The operator is asked what no line of the answers fits; none for nobody.
    Session(std::shared_ptr<SessionHost> host, TestSetUp setUp, Answers& answers,
            SessionListener& listener, IOperator* theOperator = nullptr);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Loads the lists. A failure is `CommandError` `BadFile`, one line with file, line, section
    /// and reason.
    void Load(const String& fileName);
    /// Runs the test, then lets the engine go. To be called once, after `Load`.
    Outcome Run();

    const Summary& Counts() const { return x_summary; }
    /// What the engine shares with its host: for those who stand in for actions or look at them.
    ThreadContext& Context() { return x_context; }
    /// Where the actions come from that are loaded; of use until the test has run.
    const ActionPlaces& Places() const { return x_places; }

  private:
    void RunMoment(const Moment& moment);
    void RunActions(const Moment& moment);
    void CallEngine(const Moment& moment);
    void TellError(const RunTimeError& error);
    void TakeVerdict(const Moment& step, Verdict verdict);
    void ActOnAnswer(const MomentCallRow& row, std::int32_t answer);
    void TakeRequests(_aceActionsEngine& engine);
    void StoreComment(const Value& comment);
    void RepeatFrequencies();
    std::size_t BeginOfStretch() const;
    void WatchChannels();
    void StayOnFrequency(const Moment& moment);
    Reply Decide(const Dialog& dialog);
    std::optional<Reply> AskOperator(const Dialog& dialog);
    void Count(PromptKind kind, Reply reply);
    bool IsAtEnd() const { return x_at + 1 >= x_plan.size(); }
    void Worsen(Outcome outcome);
    Place CurrentPlace() const;
    bool Wants(LineKind kind) const { return x_host->tellsEffects || kind != LineKind::Effect; }
    void Tell(LineKind kind, const String& words);
    void OnInterrupt();
    void ListenToHost();
    void Close();

    std::shared_ptr<SessionHost> x_host;
    TestSetUp x_setUp;
    std::vector<Moment> x_plan;
    Answers& x_answers;
    SessionListener& x_listener;
    IOperator* x_operator;
    bool x_operatorIsGone = false;
    ThreadContext x_context;
    std::unique_ptr<_aceActionsEngine> x_engine;
    std::unique_ptr<_aceActionsEngine> x_steps;  ///< the steps of a susceptibility test
    String x_fileName;
    ActionPlaces x_places;
    std::vector<WatchedChannel> x_channels;
    Moment x_current;  ///< the moment that runs: of the plan, or of a channel that changed there

    std::size_t x_frequencies;  ///< of the whole plan
    std::size_t x_at = 0;       ///< the moment that runs
    std::size_t x_next = 0;     ///< the moment after it
    std::size_t x_frequenciesDone = 0;
    std::set<std::size_t> x_repeated;  ///< where stretches begin that were run twice
    String x_place;                    ///< the moment in words, or what stands beside the moments
    Outcome x_outcome = Outcome::Finished;
    Summary x_summary;
};

}  // namespace ace::workbench
