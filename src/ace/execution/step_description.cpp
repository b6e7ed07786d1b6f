#include <ace/core/action_kinds.h>
#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr std::int32_t EmptyStepText = 9058;

/// The kinds that a description names, by the word under which they are on offer.
constexpr KindSet DescribedKinds(atWait, atNotify, atRemote, atSetDevice, atSwitchUnit, atAPI,
                                 atParkAcc);

/// A single notification is shown by its message; the two blanks are what the final cut takes away.
String Part(ThreadContext& context, const p_Action& action, bool isSingle) {
    if (action.ActionType == atNotify && isSingle) {
        return RecordOf<aceNotify>(action).Message + L"  ";
    }
    if (!DescribedKinds.Has(action.ActionType)) {
        return {};
    }
    return context.Language().Text(FindActionKind(action.ActionType)->palette.number) + L"; ";
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
