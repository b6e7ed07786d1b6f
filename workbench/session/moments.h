/// The moments of a test as calls of the engine's public class.
#pragma once

#include <ace/core/actions_engine_interface.h>

namespace ace::workbench {

/// The operations that are moments.
enum class MomentCall {
    StartTest,
    StopTest,
    EnterSubrange,
    LeaveSubrange,
    NewFrequency,
    BeforeTestLoop,
    AfterTestLoop,
    EnterStep,
    BeforeStep,
    AfterStep,
    BeforeTest,
    AfterTest,
    Trigger,
    EnterNoGo,
    Go,
    BeforeVKSTest,
    VKSStep,
    AfterVKSTest,
    VKSDUTStepGlobBefore,
    VKSDUTStep,
    VKSDUTStepGlobAfter,
};

/// One moment of a planned test.
struct Moment {
    MomentCall call = MomentCall::StartTest;
    std::int32_t number = 0;      ///< of the subrange, sweep, step, test or channel, from 1
    double hertz = 0.0;           ///< of `NewFrequency` and of a matrix row
    bool isAgain = false;         ///< of `NewFrequency`: measures although nothing has changed
    double dwellMs = 0.0;         ///< time on this frequency after its actions, milliseconds
    String name{};                ///< name of a channel, unique key of a wireless test
    String stepKey{};             ///< of a wireless step
    String stepName{};            ///< of a wireless step
    std::int32_t bandwidth = -1;  ///< id of a matrix row
    std::int32_t power = -1;      ///< id of a matrix row
    bool ofSteps = false;         ///< for the engine object with the steps of a susceptibility test
    bool operator==(const Moment&) const = default;
};

/// What a moment's answer means.
enum class AnswerMeaning {
    TrueStops,   ///< not 0: stop the test
    CodeCounts,  ///< a code of a monitoring channel
};

/// One operation that is a moment.
struct MomentCallRow {
    MomentCall call;
    StringView operation;  ///< its name
    StringView words;      ///< what the user reads; %1 is the number, %2 name or key, %3 a step
    AnswerMeaning meaning;
    std::int32_t (*run)(_aceActionsEngine& engine, const Moment& moment);
};

const MomentCallRow& MomentCallRowOf(MomentCall call);
/// "enter subrange 2"
String MomentWords(const Moment& moment);

/// A code of a monitoring channel: what it means, and whether it stops the test.
struct ChannelCode {
    std::int32_t code;
    StringView words;
    bool stopsTest;
};
/// Nothing for 0 and for numbers that are no code.
const ChannelCode* FindChannelCode(std::int32_t code);

}  // namespace ace::workbench
