#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>
#include <ace/host/rounding.h>

namespace ace {

namespace {

constexpr std::int32_t EmptyStepText = 9058;
constexpr std::int32_t NotifyText = 9034;
constexpr std::int32_t NoText = 0;

/// Text number of the kinds that a description names.
struct DescribedKind {
    p_ActionTypes kind;
    std::int32_t text;
};
constexpr DescribedKind DescribedKinds[] = {
    {atWait, 9033},       {atNotify, NotifyText}, {atRemote, 9032},  {atSetDevice, 9031},
    {atSwitchUnit, 9074}, {atAPI, 9078},          {atParkAcc, 9077},
};

std::int32_t TextOf(std::int32_t kind) {
    for (const DescribedKind& row : DescribedKinds) {
        if (row.kind == kind) {
            return row.text;
        }
    }
    return NoText;
}

/// A single notification is shown by its message; the two blanks are what the final cut takes away.
String Part(ThreadContext& context, const p_Action& action, bool isSingle) {
    if (action.ActionType == atNotify && isSingle) {
        return RecordOf<aceNotify>(action).Message + L"  ";
    }
    const std::int32_t number = TextOf(action.ActionType);
    return number == NoText ? String() : context.Language().Text(number) + L"; ";
}

}  // namespace

/// The last two characters always go: the separator of the last entry, or, where nothing was named,
/// the colon and the blank behind the number.
String aceActionsEngine::StepDescription(std::int32_t Number) {
    const std::shared_ptr<EngineState> state = x_state;
    ThreadContext& context = state->Context;
    const String number = std::to_wstring(Number);
    return Logged(
        context, EngineLines(L"StepDescription"), NoMessage, [&](const Statements& stmt) -> String {
            const std::int32_t index = stmt([&] { return CheckedDifference(Number, 1); });
            const p_Subrange& step =
                stmt([&]() -> const p_Subrange& { return state->EMSAutoSteps[index]; });
            if (step.EnterCount < 1) {
                return stmt([&] { return context.Language().Text(EmptyStepText); }) + number +
                       L": ---";
            }
            String text = number + L": ";
            for (std::int32_t i = 0; i < step.EnterCount; ++i) {
                text += stmt([&] { return Part(context, step.Enter[i], step.EnterCount < 2); });
            }
            text.resize(text.size() - 2);
            return text;
        });
}

}  // namespace ace
