#include <ace/core/actions_engine.h>
#include <ace/execution/walks.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr std::int32_t NoCode = 0;
constexpr std::int32_t CommentCode = 1;
constexpr std::int32_t CommentGeneratorOffCode = 2;
constexpr std::int32_t StopLevelSweepCode = 3;
constexpr std::int32_t GotoSingleCode = 4;
constexpr std::int32_t StopTestCode = 5;
constexpr std::int32_t NbBbEtsiCode = 6;

/// The code that a kind signals when it answers true. Kinds without a row signal nothing; comment
/// and narrowband/broadband have rules of their own.
struct SignalRow {
    p_ActionTypes kind;
    std::int32_t code;
};
constexpr SignalRow SignalTable[] = {
    {atNotify, StopTestCode},       {atRemote, StopTestCode},
    {atSetDevice, StopTestCode},    {atCheckEut, StopTestCode},
    {atTestStop, StopTestCode},     {atSwitchUnit, StopTestCode},
    {atGotoSingle, GotoSingleCode}, {atStopLevSweep, StopLevelSweepCode},
};

/// The code of a kind; none for the kinds that signal nothing or by rules of their own.
std::int32_t SignalOf(std::int32_t kind) {
    for (const SignalRow& row : SignalTable) {
        if (row.kind == kind) {
            return row.code;
        }
    }
    return NoCode;
}

std::int32_t Ranked(ThreadContext& context, std::int32_t signal, std::int32_t code) {
    const Value standing[] = {code};
    return LongOf(context.Utilities().Max(signal, standing));
}

std::int32_t CommentSignal(const p_Action& action) {
    return RecordOf<aceNotify>(action).GeneratorOff ? CommentGeneratorOffCode : CommentCode;
}

/// The code after an action that answered true. Narrowband/broadband alone does not rank by value:
/// it raises a code only from below 3, and a 6 that stands is kept by everything later.
std::int32_t CodeAfter(ThreadContext& context, const p_Action& action, std::int32_t code) {
    if (action.ActionType == atComment) {
        return Ranked(context, CommentSignal(action), code);
    }
    if (action.ActionType == atNbBbEtsi) {
        return code < StopLevelSweepCode ? NbBbEtsiCode : code;
    }
    const std::int32_t signal = SignalOf(action.ActionType);
    return signal != NoCode ? Ranked(context, signal, code) : code;
}

/// Runs a whole list of a channel and ranks what its actions signal. There is no range check: a
/// number outside the channels is error 9.
std::int32_t RunChannel(EngineState& state, StringView procedure, const ListFields& list,
                        std::int32_t number, const String& name) {
    ThreadContext& context = state.Context;
    const auto message = [&] {
        return L"Number = " + std::to_wstring(number) + L", Name = " + name;
    };
    return Logged(context, EngineLines(procedure), message, [&](const Statements& stmt) {
        const std::int32_t index = stmt([&] { return CheckedDifference(number, 1); });
        const NumberedActions actions(state, state.MoniChannels, index, list);
        std::int32_t code = NoCode;
        ForEachAction(context, actions, stmt, [&](std::int32_t i) {
            if (stmt([&] { return actions.Run(i, aceMonitoring); })) {
                code = stmt([&] { return CodeAfter(context, actions[i], code); });
            }
            return false;
        });
        return code;
    });
}

/// The kinds that end the search of `GetNoGo` with their code.
constexpr KindSet NoGoKinds(atTestStop, atGotoSingle, atStopLevSweep);

}  // namespace

std::int32_t aceActionsEngine::Trigger(std::int32_t Number, const String& Name) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunChannel(*state, L"Trigger", FreqList, Number, Name);
}

std::int32_t aceActionsEngine::EnterNoGo(std::int32_t Number, const String& Name) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunChannel(*state, L"EnterNoGo", EnterList, Number, Name);
}

std::int32_t aceActionsEngine::Go(std::int32_t Number, const String& Name) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunChannel(*state, L"Go", LeaveList, Number, Name);
}

/// Here the first of the stopping kinds simply wins, whatever comment stood before it.
std::int32_t aceActionsEngine::GetNoGo(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    const NumberedActions actions(*state, state->MoniChannels, CheckedDifference(Number, 1),
                                  EnterList);
    std::int32_t code = NoCode;
    const std::int32_t count = actions.Count();
    for (std::int32_t i = 0; i < count; ++i) {
        const p_Action& action = actions[i];
        if (NoGoKinds.Has(action.ActionType)) {
            return SignalOf(action.ActionType);
        }
        if (action.ActionType == atNbBbEtsi) {
            return NbBbEtsiCode;
        }
        if (action.ActionType == atComment) {
            code = Ranked(state->Context, CommentSignal(action), code);
        }
    }
    return code;
}

}  // namespace ace
