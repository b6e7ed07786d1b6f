#include "support/fake_forms.h"
#include "support/sweep_steps.h"

namespace ace::test {
namespace {

Steps Quiet(const std::vector<String>& calls) {
    Steps steps;
    for (const String& call : calls) {
        steps.push_back(Swallowed(call));
    }
    return steps;
}
const String Asked = L"TraceLog.IsEnabled";
const String Yield = L"Platform.Yield";
const String InRange = L"Utilities.InRange";
const std::vector<String> StartTraced = {Asked, L"Platform.ThreadId", L"TraceLog.WriteLine"};
const std::vector<String> EndTraced = StartTraced;
const std::vector<String> Waiting = {L"Platform.DecimalSeparator", L"StatusDisplay.ShowStatus",
                                     L"Language.Text", L"SystemServices.ShowTimedMessage",
                                     L"StatusDisplay.ShowStatus"};

// ---- the runs of actions -----------------------------------------------------------------------

p_Action Notification(p_ActionTypes kind, const String& message) {
    aceNotify record;
    record.Message = message;
    return Action(kind, record);
}
/// What the run of `Notification(atNotify, ...)` asks of the host, and that of a wait.
Steps NotifySteps(std::int32_t reports, const String& left = {}) {
    return Raised(reports,
                  {Asked, L"DeviceList.GetDeviceListHost", L"DeviceList.PostEvent", Yield,
                   L"CommentForm.DisplayMessage", L"DeviceList.GetDeviceListHost",
                   L"DeviceList.PostEvent", Yield, Asked},
                  left);
}
Steps WaitSteps(std::int32_t reports) {
    return Raised(reports, {Asked}) + Quiet(Waiting) + Raised(reports, {Asked});
}

// ---- rows --------------------------------------------------------------------------------------

void Prepare(SweepRig& rig, aceModul moduleKind) {
    rig.MakeEngine().State().Modul = moduleKind;
    const auto form = std::make_shared<FakeCommentForm>(*rig.host);
    form->answers.assign(100, false);
    rig.context.CommentForm = form;
}
/// A numbered set with `actions` in one of its lists.
std::function<void(SweepRig&)> WithSet(aceModul moduleKind, DynArray<p_Subrange> ModuleLists::*sets,
                                       const ListFields& list,
                                       const std::vector<p_Action>& actions) {
    return [=](SweepRig& rig) {
        Prepare(rig, moduleKind);
        (rig.engine->State().*sets).Redim(0, 0);
        Fill((rig.engine->State().*sets)[0], list, actions);
    };
}
std::function<void(SweepRig&)> WithFixed(aceModul moduleKind, p_Subrange ModuleLists::*set,
                                         const ListFields& list,
                                         const std::vector<p_Action>& actions) {
    return [=](SweepRig& rig) {
        Prepare(rig, moduleKind);
        Fill(rig.engine->State().*set, list, actions);
    };
}
std::function<void(SweepRig&)> Tracing(std::function<void(SweepRig&)> prepare) {
    return [prepare = std::move(prepare)](SweepRig& rig) {
        prepare(rig);
        rig.host->tracing = true;
    };
}
/// What a moment may change: the mark of the test, the requests, the last frequency.
String StateText(const SweepRig& rig) {
    return (rig.context.TestRunning ? L"running, " : L"idle, ") +
           std::to_wstring(rig.context.EutCheckRequest) + L", " +
           std::to_wstring(static_cast<int>(rig.engine->State().LastFrequency));
}

const std::vector<p_Action> OneQuestion = {Notification(atQuestion, L"")};
/// A walk over one question without a message, in an operation of `outer` reports.
Steps QuestionWalk(std::int32_t outer) {
    return Raised(outer, {Yield}) + Raised(outer + 1, {Asked, Yield, Yield, Asked});
}

template <Boolean (aceActionsEngine::*Moment)(std::int32_t)>
void ByNumber(SweepRig& rig) {
    (rig.engine.get()->*Moment)(1);
}
template <Boolean (aceActionsEngine::*Moment)()>
void Plain(SweepRig& rig) {
    (rig.engine.get()->*Moment)();
}
template <std::int32_t (aceActionsEngine::*Moment)(std::int32_t, const String&)>
void OfChannel(SweepRig& rig) {
    (rig.engine.get()->*Moment)(1, L"Radio");
}
Steps NumberedSteps() {
    return Raised(0, {InRange}) + QuestionWalk(0);
}
Steps ChannelSteps() {
    return Raised(1, {Asked, Yield}) + Raised(2, {Asked, Asked}) +
           Raised(1, {L"Utilities.Max", Asked});
}
p_Action CommentAction() {
    return Action(atComment, aceNotify{});
}

/// Raised as they come; a failed start or stop leaves the mark of the test as it was.
std::vector<SweepRow> BareRows() {
    return {
        {"StartTest",
         WithFixed(aceTemplate, &ModuleLists::MainTest, EnterList,
                   {Notification(atNotify, L"Hello")}),
         Plain<&aceActionsEngine::StartTest>, StateText,
         Raised(0, {Yield}, L"idle, 0, -1") + NotifySteps(1, L"idle, 0, -1")},
        {"TrackingPass",
         WithFixed(aceTemplate, &ModuleLists::MainTest, FreqList,
                   {Action(atTrackFreq, aceTrackFreq{})}),
         Plain<&aceActionsEngine::StartTest>, StateText,
         Raised(0, {Yield}, L"idle, 0, -1") + Raised(1, {Asked, Asked}, L"idle, 0, -1")},
        {"StartWirelessTest",
         WithFixed(aceVKSTemplate, &ModuleLists::VKSTemplate, EnterList, OneQuestion),
         Plain<&aceActionsEngine::StartTest>, StateText, QuestionWalk(0)},
        {"StopTest",
         [](SweepRig& rig) {
             Prepare(rig, aceEMIAutoTemplate);
             rig.context.TestRunning = true;
             rig.context.EutCheckRequest = acEutStopTest;
             Fill(rig.engine->State().EMIAutoTest, LeaveList,
                  {Action(atParkAcc), Notification(atNotify, L"Bye")});
         },
         Plain<&aceActionsEngine::StopTest>, StateText,
         Raised(0, {Yield}, L"running, 0, 0") + Raised(0, {Yield}, L"running, 4, 0") +
             NotifySteps(1, L"running, 4, 0")},
        {"GetNoGo",
         WithSet(aceMonitoring, &ModuleLists::MoniChannels, EnterList, {CommentAction()}),
         [](SweepRig& rig) { rig.engine->GetNoGo(1); }, StateText, Raised(0, {L"Utilities.Max"})},
    };
}

/// Raised as they come, with one question in their list.
std::vector<SweepRow> QuestionRows() {
    return {
        {"EnterSubrange", WithSet(aceTemplate, &ModuleLists::MainSubranges, EnterList, OneQuestion),
         ByNumber<&aceActionsEngine::EnterSubrange>, StateText, NumberedSteps()},
        {"LeaveSubrange", WithSet(aceTemplate, &ModuleLists::MainSubranges, LeaveList, OneQuestion),
         ByNumber<&aceActionsEngine::LeaveSubrange>, StateText, NumberedSteps()},
        {"BeforeStep",
         WithSet(aceEMIAutoTemplate, &ModuleLists::EMIAutoSteps, EnterList, OneQuestion),
         ByNumber<&aceActionsEngine::BeforeStep>, StateText, NumberedSteps()},
        {"AfterEmissionStep",
         WithSet(aceEMIAutoTemplate, &ModuleLists::EMIAutoSteps, LeaveList, OneQuestion),
         ByNumber<&aceActionsEngine::AfterStep>, StateText, NumberedSteps()},
        {"AfterMonitoringStep",
         WithFixed(aceMonitoring, &ModuleLists::MoniEut, MlcList, OneQuestion),
         ByNumber<&aceActionsEngine::AfterStep>, StateText, QuestionWalk(0)},
        {"BeforeTest", WithSet(aceTSTemplate, &ModuleLists::TSTests, EnterList, OneQuestion),
         ByNumber<&aceActionsEngine::BeforeTest>, StateText, NumberedSteps()},
        {"AfterTest", WithSet(aceTSTemplate, &ModuleLists::TSTests, LeaveList, OneQuestion),
         ByNumber<&aceActionsEngine::AfterTest>, StateText, NumberedSteps()},
        {"BeforeTestLoop", WithFixed(aceMonitoring, &ModuleLists::MoniLoop, EnterList, OneQuestion),
         Plain<&aceActionsEngine::BeforeTestLoop>, StateText, QuestionWalk(0)},
        {"AfterTestLoop", WithFixed(aceMonitoring, &ModuleLists::MoniLoop, LeaveList, OneQuestion),
         Plain<&aceActionsEngine::AfterTestLoop>, StateText, QuestionWalk(0)},
    };
}

void Frequency(SweepRig& rig) {
    rig.engine->NewFrequency(30.5, true);
}
void LeaveRequest(SweepRig& rig) {
    Prepare(rig, aceEMIAutoTemplate);
    rig.context.EutCheckRequest = acEutStoreComment;
}
void TakeRequest(SweepRig& rig) {
    Value comment;
    rig.engine->GetCheckEutAction(comment);
}

/// Reported by the operation, and by the action too when it happens there; then raised.
std::vector<SweepRow> ReportedRows() {
    const auto steps = WithSet(aceEMSAutoTemplate, &ModuleLists::EMSAutoSteps, EnterList,
                               {Notification(atNotify, L"Hello")});
    const auto waits = WithFixed(aceTemplate, &ModuleLists::MainTest, FreqList,
                                 {Action(atWait, aceWait{1.0}), Action(atTestStop)});
    const auto channel = [](const ListFields& list) {
        return WithSet(aceMonitoring, &ModuleLists::MoniChannels, list, {CommentAction()});
    };
    return {
        {"EnterStep", steps, ByNumber<&aceActionsEngine::EnterStep>, StateText,
         Raised(1, {Asked, InRange, Yield}) + NotifySteps(2) + Raised(1, {Asked})},
        {"EnterStepTraced",
         Tracing(WithSet(aceEMSAutoTemplate, &ModuleLists::EMSAutoSteps, EnterList,
                         {Action(atParkAcc)})),
         ByNumber<&aceActionsEngine::EnterStep>, StateText,
         Raised(1, StartTraced) + Raised(1, {InRange, Yield}) + Raised(2, StartTraced) +
             Raised(2, EndTraced) + Raised(1, EndTraced)},
        {"NewFrequency", waits, Frequency, StateText,
         Raised(1, {Asked, L"Utilities.IsEqual"}, L"idle, 0, 0") +
             Raised(1, {Yield}, L"idle, 0, 30") + WaitSteps(2) + Raised(1, {Yield, Asked})},
        {"NewFrequencyTraced",
         Tracing(WithFixed(aceTemplate, &ModuleLists::MainTest, FreqList, {})), Frequency,
         StateText,
         Raised(1, {Asked, L"Platform.DecimalSeparator", L"Platform.ThreadId",
                    L"TraceLog.WriteLine", L"Utilities.IsEqual"}) +
             Raised(1, EndTraced, L"idle, 0, 30")},
        {"Trigger", channel(FreqList), OfChannel<&aceActionsEngine::Trigger>, StateText,
         ChannelSteps()},
        {"EnterNoGo", channel(EnterList), OfChannel<&aceActionsEngine::EnterNoGo>, StateText,
         ChannelSteps()},
        {"Go", channel(LeaveList), OfChannel<&aceActionsEngine::Go>, StateText, ChannelSteps()},
    };
}
std::vector<SweepRow> OtherReportedRows() {
    return {
        {"StepDescription",
         WithSet(aceEMSAutoTemplate, &ModuleLists::EMSAutoSteps, EnterList,
                 {Action(atWait), Action(atTestStop), Action(atParkAcc)}),
         [](SweepRig& rig) { rig.engine->StepDescription(1); }, StateText,
         Raised(1, {Asked, L"Language.Text", L"Language.Text", Asked})},
        {"StepDescriptionOfAnEmptyStep",
         WithSet(aceEMSAutoTemplate, &ModuleLists::EMSAutoSteps, EnterList, {}),
         [](SweepRig& rig) { rig.engine->StepDescription(1); }, StateText,
         Raised(1, {Asked, L"Language.Text", Asked})},
        {"NewFrqCheckForAccLoading", [](SweepRig& rig) { Prepare(rig, aceEMIAutoTemplate); },
         Plain<&aceActionsEngine::NewFrqCheckForAccLoading>, StateText, Raised(1, {Asked, Asked})},
        {"GetCheckEutAction", LeaveRequest, TakeRequest, StateText,
         Raised(1, {Asked}, L"idle, 1, 0") + Raised(1, {Asked}, L"idle, 0, 0")},
    };
}

/// Operations that ask the host nothing, and the one that swallows what it is told.
std::vector<SweepRow> QuietRows() {
    const auto sequence = [](SweepRig& rig) { Prepare(rig, aceTSTemplate); };
    return {
        {"StopAllActions", sequence, [](SweepRig& rig) { rig.engine->StopAllActions(); }, StateText,
         Quiet({L"StatusDisplay.ShowStatus"})},
        {"StepNumber", sequence, [](SweepRig& rig) { rig.engine->StepNumber(); }, StateText, {}},
        {"TestNumber", sequence, [](SweepRig& rig) { rig.engine->TestNumber(); }, StateText, {}},
        {"EUT_UseSetDevice", sequence, Plain<&aceActionsEngine::EUT_UseSetDevice>, StateText, {}},
    };
}

class PhasesSweepTest : public ::testing::TestWithParam<SweepRow> {};

TEST_P(PhasesSweepTest, EveryHostCallThatFailsEndsTheOperationByItsPattern) {
    Sweep(GetParam());
}

const auto NameOf = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(Bare, PhasesSweepTest, ::testing::ValuesIn(BareRows()), NameOf);
INSTANTIATE_TEST_SUITE_P(Questions, PhasesSweepTest, ::testing::ValuesIn(QuestionRows()), NameOf);
INSTANTIATE_TEST_SUITE_P(Reported, PhasesSweepTest, ::testing::ValuesIn(ReportedRows()), NameOf);
INSTANTIATE_TEST_SUITE_P(OthersReported, PhasesSweepTest, ::testing::ValuesIn(OtherReportedRows()),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Quiet, PhasesSweepTest, ::testing::ValuesIn(QuietRows()), NameOf);

}  // namespace
}  // namespace ace::test
