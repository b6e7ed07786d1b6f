#include <ace/core/actions_engine.h>
#include <ace/execution/walks.h>
#include <ace/execution/what_runs.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

/// Which lists of a set; bits.
enum Lists : unsigned { NoList = 0, InEnter = 1, InLeave = 2, InFreq = 4, InMlc = 8 };
constexpr unsigned EnterLeave = InEnter | InLeave;
constexpr unsigned EnterLeaveFreq = EnterLeave | InFreq;

enum class WalkKind { None, Plain, Wireless };

/// What the start and the stop of a test do, by module kind.
struct TestRow {
    p_Subrange ModuleLists::*fixed = nullptr;
    WalkKind walk = WalkKind::None;
    unsigned fixedLatches = NoList;  ///< lists whose latches the start clears
    DynArray<p_Subrange> ModuleLists::*numbered = nullptr;
    std::int32_t ModuleLists::*count = nullptr;
    unsigned numberedLatches = NoList;
    bool stopParks = false;  ///< the stop turns parking into a request to the host
};

/// Indexed by `aceModul`. Intentional: the wireless tests go by the count of the sequence's tests,
/// which is 0 in a wireless object, so that their latches stay.
constexpr TestRow TestTable[ModulCount] = {
    {&ModuleLists::MainTest, WalkKind::Plain, EnterLeaveFreq, &ModuleLists::MainSubranges,
     &ModuleLists::MainSubrangeCount, EnterLeave},
    {&ModuleLists::MoniEut, WalkKind::Plain, EnterLeaveFreq | InMlc, &ModuleLists::MoniChannels,
     &ModuleLists::MoniChannelCount, EnterLeaveFreq},
    {&ModuleLists::EMSAutoGeneral, WalkKind::Plain, EnterLeaveFreq, nullptr, nullptr, NoList, true},
    {},
    {&ModuleLists::EMIAutoTest, WalkKind::Plain, EnterLeaveFreq, &ModuleLists::EMIAutoSteps,
     &ModuleLists::EMIAutoStepCount, EnterLeave, true},
    {&ModuleLists::TSTest, WalkKind::Plain, EnterLeaveFreq, &ModuleLists::TSTests,
     &ModuleLists::TSTestCount, EnterLeave},
    {&ModuleLists::AziChart, WalkKind::Plain, EnterLeaveFreq, nullptr, nullptr, NoList, true},
    {&ModuleLists::VKSTemplate, WalkKind::Wireless, EnterLeaveFreq, &ModuleLists::VKSTests,
     &ModuleLists::TSTestCount, EnterLeave},
    {},
};

constexpr TestRow NoTest{};

const TestRow& TestRowOf(std::int32_t moduleKind) {
    return FindModule(moduleKind) != nullptr ? TestTable[moduleKind] : NoTest;
}

void ClearLatches(p_Subrange& set, unsigned lists) {
    for (unsigned i = 0; i < std::size(ActionLists); ++i) {
        if ((lists >> i & 1U) == 0) {
            continue;
        }
        for (std::int32_t k = 0; k < set.*ActionLists[i].count; ++k) {
            (set.*ActionLists[i].actions)[k].IgnoreErr = false;
        }
    }
}

void ClearLatches(EngineState& state, const TestRow& row) {
    if (row.fixed != nullptr) {
        ClearLatches(state.*row.fixed, row.fixedLatches);
    }
    if (row.numbered != nullptr) {
        for (std::int32_t i = 0; i < state.*row.count; ++i) {
            ClearLatches((state.*row.numbered)[i], row.numberedLatches);
        }
    }
}

/// Tracking starts once before the first frequency, with the frequency that its record holds.
Boolean TrackingPass(EngineState& state) {
    const FixedPlace place{&ModuleLists::MainTest, FreqList};
    return Walk(state, place, state.Modul, BareStatements{},
                [](const p_Action& action) { return action.ActionType == atTrackFreq; });
}

/// The plain walk in which parking is not run but left as the only request to the host.
Boolean ParkingWalk(EngineState& state, const FixedPlace& place) {
    return Walk(state, place, state.Modul, BareStatements{}, [&](const p_Action& action) {
        if (action.ActionType != atParkAcc) {
            return true;
        }
        state.Context.EutCheckRequest = acEutParkAccessories;
        return false;
    });
}

/// One moment that runs a list of a numbered set, chosen by its number.
struct NumberedMoment {
    DynArray<p_Subrange> ModuleLists::*sets;
    ListFields list;
    aceModul moduleKind;  ///< told to the actions, and asked for when `asksModul`
    bool asksModul = false;
};
constexpr NumberedMoment EnterSubrangeMoment{&ModuleLists::MainSubranges, EnterList, aceTemplate};
constexpr NumberedMoment LeaveSubrangeMoment{&ModuleLists::MainSubranges, LeaveList, aceTemplate};
constexpr NumberedMoment BeforeStepMoment{&ModuleLists::EMIAutoSteps, EnterList,
                                          aceEMIAutoTemplate};
constexpr NumberedMoment AfterStepMoment{&ModuleLists::EMIAutoSteps, LeaveList, aceEMIAutoTemplate,
                                         true};
constexpr NumberedMoment EnterStepMoment{&ModuleLists::EMSAutoSteps, EnterList, aceEMSAutoTemplate};
constexpr NumberedMoment BeforeTestMoment{&ModuleLists::TSTests, EnterList, aceTSTemplate, true};
constexpr NumberedMoment AfterTestMoment{&ModuleLists::TSTests, LeaveList, aceTSTemplate, true};

/// Whether anything runs goes by the array's bounds, not by the count: the spare element behind the
/// last one may run. An array that was never made is error 9.
template <class Stmt = BareStatements>
Boolean RunNumbered(EngineState& state, const NumberedMoment& moment, std::int32_t number,
                    const Stmt& stmt = {}) {
    if (moment.asksModul && state.Modul != moment.moduleKind) {
        return false;
    }
    const std::int32_t index = stmt([&] { return CheckedDifference(number, 1); });
    const bool inRange = stmt([&] { return IsInRange(state, state.*moment.sets, index); });
    return inRange ? PlainWalk(state, NumberedPlace{moment.sets, index, moment.list},
                               moment.moduleKind, stmt)
                   : Boolean(false);
}

/// Upper bound plus 1, so one too high while a spare element stands; 0 for any error.
std::int32_t NumberOfElements(const DynArray<p_Subrange>& sets) {
    std::int32_t number = 0;
    ResumeNext quiet;
    quiet([&] { number = CheckedSum(sets.UpperBound(), 1); });
    return number;
}

}  // namespace

bool ParksAtTheEnd(std::int32_t moduleKind) {
    return TestRowOf(moduleKind).stopParks;
}

Boolean aceActionsEngine::StartTest() {
    const std::shared_ptr<EngineState> state = x_state;
    const TestRow& row = TestRowOf(state->Modul);
    state->LastFrequency = -1.0;
    ClearLatches(*state, row);
    Boolean result;
    if (row.walk == WalkKind::Plain) {
        result = PlainWalk(*state, FixedPlace{row.fixed, EnterList}, state->Modul);
    } else if (row.walk == WalkKind::Wireless) {
        result = WirelessWalk(*state, {row.fixed, EnterList}, state->Modul);
    }
    if (&row == &TestTable[aceTemplate] && TrackingPass(*state)) {
        result = true;
    }
    state->Context.TestRunning = true;
    return result;
}

Boolean aceActionsEngine::StopTest() {
    const std::shared_ptr<EngineState> state = x_state;
    const TestRow& row = TestRowOf(state->Modul);
    if (state->Modul == aceEMIAutoTemplate) {
        state->Context.EutCheckRequest = acEutNoAction;
    }
    Boolean result;
    if (row.stopParks) {
        result = ParkingWalk(*state, {row.fixed, LeaveList});
    } else if (row.walk == WalkKind::Plain) {
        result = PlainWalk(*state, FixedPlace{row.fixed, LeaveList}, state->Modul);
    } else if (row.walk == WalkKind::Wireless) {
        result = WirelessWalk(*state, {row.fixed, LeaveList}, state->Modul);
    }
    state->Context.TestRunning = false;
    return result;
}

Boolean aceActionsEngine::EnterSubrange(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunNumbered(*state, EnterSubrangeMoment, Number);
}

Boolean aceActionsEngine::LeaveSubrange(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunNumbered(*state, LeaveSubrangeMoment, Number);
}

Boolean aceActionsEngine::BeforeStep(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunNumbered(*state, BeforeStepMoment, Number);
}

Boolean aceActionsEngine::AfterStep(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    if (state->Modul == aceMonitoring) {
        return PlainWalk(*state, FixedPlace{&ModuleLists::MoniEut, MlcList}, aceMonitoring);
    }
    return RunNumbered(*state, AfterStepMoment, Number);
}

Boolean aceActionsEngine::BeforeTest(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunNumbered(*state, BeforeTestMoment, Number);
}

Boolean aceActionsEngine::AfterTest(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunNumbered(*state, AfterTestMoment, Number);
}

Boolean aceActionsEngine::BeforeTestLoop() {
    const std::shared_ptr<EngineState> state = x_state;
    return PlainWalk(*state, FixedPlace{&ModuleLists::MoniLoop, EnterList}, aceMonitoring);
}

Boolean aceActionsEngine::AfterTestLoop() {
    const std::shared_ptr<EngineState> state = x_state;
    return PlainWalk(*state, FixedPlace{&ModuleLists::MoniLoop, LeaveList}, aceMonitoring);
}

Boolean aceActionsEngine::EnterStep(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    return Logged(
        state->Context, EngineLines(L"EnterStep"),
        [&] { return L"Number = " + std::to_wstring(Number); },
        [&](const Statements& stmt) { return RunNumbered(*state, EnterStepMoment, Number, stmt); });
}

std::int32_t aceActionsEngine::StepNumber() {
    return NumberOfElements(x_state->EMSAutoSteps);
}

std::int32_t aceActionsEngine::TestNumber() {
    switch (x_state->Modul) {
        case aceTSTemplate:
            return NumberOfElements(x_state->TSTests);
        case aceVKSTemplate:
            return NumberOfElements(x_state->VKSTests);
        default:
            return 0;
    }
}

Boolean aceActionsEngine::EUT_UseSetDevice() {
    const p_Subrange& eut = x_state->MoniEut;
    for (std::int32_t i = 0; i < eut.EnterCount; ++i) {
        if (eut.Enter[i].ActionType == atSetDevice) {
            return true;
        }
    }
    return false;
}

}  // namespace ace
