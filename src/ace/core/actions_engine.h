/// The public class. Each operation is defined once, in the folder that owns it:
///   core/actions_engine.cpp          construction, destruction, Change, InitReceiver,
///                                    LoadEditor, Release
///   core/action_store.cpp            EditorSelectSubrange, AddSubrange and the other operations
///                                    that follow the host
///   settings/settings_sections.cpp   LoadActions, SaveActions, WriteActionLists
///   execution/test_phases.cpp        the moments of a test
///   execution/step_description.cpp   StepDescription
///   execution/monitoring_phases.cpp  Trigger, EnterNoGo, Go, GetNoGo
///   execution/new_frequency.cpp      NewFrequency and the requests that it leaves
///   execution/plain_actions.cpp      StopAllActions
///   matrix/step_tree.cpp             AddVKSStep, SetVKSTests
///   matrix/dut_matrix.cpp            the tables and flags of the matrix
///   matrix/matrix_execution.cpp      the moments of wireless tests and of the matrix, the replace
///                                    variables
///   dialogs/settings_print.cpp       PrintStrings
#pragma once

#include <cassert>
#include <thread>

#include <ace/core/actions_engine_interface.h>
#include <ace/core/thread_context.h>

namespace ace {

/// The way of an engine's operations to its state. An engine serves the thread that made it: debug
/// builds assert that.
class OwnState {
  public:
    explicit OwnState(std::shared_ptr<EngineState> state) : x_state(std::move(state)) {}

    operator const std::shared_ptr<EngineState>&() const { return RequireOwnThread(), x_state; }
    EngineState& operator*() const { return RequireOwnThread(), *x_state; }
    EngineState* operator->() const { return RequireOwnThread(), x_state.get(); }
    /// For the end of the engine, which may come when its thread has ended.
    EngineState& OnAnyThread() const { return *x_state; }

  private:
    void RequireOwnThread() const {
        assert(std::this_thread::get_id() == x_thread &&
               "an engine serves the thread that made it");
    }

    std::shared_ptr<EngineState> x_state;
    std::thread::id x_thread = std::this_thread::get_id();
};

/// Implements `_aceActionsEngine` on an `EngineState`. The state is shared with any walk in
/// progress, so that the host may drop the object from inside a yield.
class aceActionsEngine final : public _aceActionsEngine {
  public:
    /// Initialises the thread's shared state with the first object; resets the parts of it that
    /// every new object resets, for all objects. Errors of the host are raised; those of the shared
    /// state are reported before. The object still counts among the thread's objects then.
    explicit aceActionsEngine(ThreadContext& context = ThreadContext::Current());
    /// Closes what the object's actions hold open. Never raises. May run on another thread once
    /// that of the object has ended: its services live as long as the object.
    ~aceActionsEngine() override;
    aceActionsEngine(const aceActionsEngine&) = delete;
    aceActionsEngine& operator=(const aceActionsEngine&) = delete;

    /// Registers the sink of the events; none unregisters. The host keeps it alive as long as it is
    /// registered, or until the object has gone.
    void SetEventSink(__aceActionsEngine* sink) { x_state->EventSink = sink; }
    /// The fields, for the component's own parts and for tests.
    EngineState& State() { return *x_state; }

    Boolean Change() override;
    void Change(Boolean value) override;
    Boolean InitReceiver() override;
    Boolean VKSInfByFreq() override;
    Boolean VKSInfByBandwidth() override;
    Boolean VKSInfByPower() override;
    void Release() override;
    void LoadActions(const String& FileName, std::int32_t SubRanges, aceModul Modul) override;
    void SaveActions(const String& FileName) override;
    void LoadEditor(IListControl* ActionsList, ITreeControl* ActionsTree) override;
    void EditorSelectSubrange(std::int32_t Number) override;
    void AddSubrange(std::int32_t Index, const String& VKSUkey = {}) override;
    void SetVKSReplaceVar(const DynArray<String>& strSearch, const DynArray<Value>& valReplace,
                          Boolean blnDelete = {}) override;
    void AddVKSStep(const String& Key, const String& ForUKey, const String& Name) override;
    void DeleteVKSDUTFreq(double Freq) override;
    void AddVKSDUTBandwidthID(const String& BandwidthString,
                              std::int32_t BandwidthID = -1) override;
    void SetVKSDUTInfluence(std::int32_t InfluencedByFreq, std::int32_t InfluencedByBandwidth,
                            std::int32_t InfluencedbyPower) override;
    void AddVKSDUTPowerID(const String& PowerString, std::int32_t PowerID = -1) override;
    void AddVKSDUTFreq(const String& FreqString, double Freq) override;
    void DeleteVKSDUTBandwidthID(std::int32_t BandwidthID) override;
    void DeleteVKSDUTAll() override;
    void DeleteVKSDUTPowerID(std::int32_t PowerID) override;
    void DeleteSubrange(std::int32_t Index, const String& VKSUkey = {}) override;
    void MoveSubrange(std::int32_t Source, std::int32_t Destination) override;
    void SwapSubrange(std::int32_t Source, std::int32_t Destination) override;
    Boolean StartTest() override;
    void StopAllActions() override;
    Boolean StopTest() override;
    Boolean EnterSubrange(std::int32_t Number) override;
    Boolean LeaveSubrange(std::int32_t Number) override;
    Boolean BeforeStep(std::int32_t Number) override;
    Boolean AfterStep(std::int32_t Number) override;
    std::int32_t StepNumber() override;
    String StepDescription(std::int32_t Number) override;
    Boolean BeforeTest(std::int32_t Number) override;
    Boolean BeforeVKSTest(const String& UKey) override;
    Boolean VKSStep(const String& UKey, const String& StepKey) override;
    Boolean VKSGetResult() override;
    Boolean VKSStepsHaveActions() override;
    Boolean VKSStepHaveActions(const String& UKey, const String& StepKey) override;
    Boolean VKSDUTStepGlobBefore() override;
    Boolean VKSDUTStepGlobAfter() override;
    std::int16_t VKSDUTStepGlobAfterCount() override;
    std::int16_t VKSDUTStepGlobBeforeCount() override;
    Boolean VKSDUTStep(double& Freq, std::int32_t& BandwidthID, std::int32_t& PowerID) override;
    std::int32_t VKSDUTStepActionCount(double& Freq, std::int32_t& BandwidthID,
                                       std::int32_t& PowerID) override;
    Boolean AfterTest(std::int32_t Number) override;
    Boolean AfterVKSTest(const String& UKey) override;
    std::int32_t TestNumber() override;
    Boolean BeforeTestLoop() override;
    Boolean AfterTestLoop() override;
    Boolean EnterStep(std::int32_t Number) override;
    std::int32_t Trigger(std::int32_t Number, const String& Name) override;
    std::int32_t EnterNoGo(std::int32_t Number, const String& Name) override;
    std::int32_t Go(std::int32_t Number, const String& Name) override;
    std::int32_t GetNoGo(std::int32_t Number) override;
    Boolean EUT_UseSetDevice() override;
    Boolean NewFrequency(double FreqVal, Boolean IsNotEmiScSwMeas) override;
    Boolean NewFrqCheckForAccLoading() override;
    void SetVKSTests(const DynArray<String>& UKey, const DynArray<String>& Names) override;
    std::int32_t GetCheckEutAction(Value& strComment) override;
    void PrintStrings(aceModul Modul, _aceActionsEngine& Engine, Array2D<String>& strTmps,
                      std::int32_t lngIdx) override;
    void WriteActionLists(const String& FileName, aceModul Modul) override;

  private:
    OwnState x_state;
};

}  // namespace ace
