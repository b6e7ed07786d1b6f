#include <ace/core/operation.h>
#include <ace/execution/replace_variables.h>
#include <ace/execution/start_program.h>
#include <ace/execution/status_line.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr std::int32_t SyncGroup = 1;
constexpr std::int32_t SyncKey = 14;
constexpr float StartPollMilliseconds = 50.0F;
constexpr float SyncPollMilliseconds = 300.0F;
constexpr std::int32_t DefaultSyncSeconds = 180;

/// A start has failed when an error stands that is not the one of the activation before it.
bool HasFailed(const ResumeNext& next) {
    return next.Number() != 0 && next.Number() != Errors::InvalidProcedureCall;
}

/// Starts the program and waits until it has a process identifier: its own answer, or where the
/// start failed unnoticed the one before, because an action that runs meanwhile may take the
/// record. A host whose start answers 0 without an error is waited for without end.
Boolean StartAndWait(ThreadContext& context, ResumeNext& next, aceRemote& record,
                     const String& commandLine, Boolean& ignoreAll) {
    next([&] { ShowStatus(context, context.ActionStatusTexts[ProgramLabel]); });
    double identifier = record.ProgID;
    next([&] { record.ProgID = identifier = context.Platform().StartProgram(commandLine); });
    for (;;) {
        next([&] { context.Platform().Yield(); });
        if (HasFailed(next)) {
            Boolean result;
            if (!ignoreAll) {
                next([&] {
                    result = ShowDeviceError(context, atRemote, ignoreAll, record, next.Number(),
                                             next.Description());
                });
            }
            return result;
        }
        if (identifier != 0.0) {
            return false;
        }
        next([&] { context.Utilities().Wait(StartPollMilliseconds); });
    }
}

/// Number of polls that the configured time-out allows; the first one is made in any case.
std::int32_t SyncRounds(ThreadContext& context) {
    const std::int32_t seconds =
        Required(context.SystemServices().GetGlobalSettings())
            ->GetLong(L"OtaMeasurements", L"ActionSyncTimeout", DefaultSyncSeconds);
    return RoundToLong(seconds * 1000.0 / static_cast<double>(SyncPollMilliseconds));
}

/// The time-out passes in silence: the test goes on as if the program had answered.
void WaitForSync(ThreadContext& context, ResumeNext& next) {
    const auto show = [&](const String& text) {
        next([&] { context.SystemServices().SetProgressText(text); });
    };
    show(L"Waiting for Macro synchronization completed");
    std::int32_t rounds = 0;
    next([&] { rounds = SyncRounds(context); });
    std::int32_t round = 0;
    do {
        String answer;
        next([&] { answer = context.SystemServices().ReadMacroSync(SyncKey); });
        if (answer == L"COMPLETED") {
            break;
        }
        next([&] { context.Utilities().Wait(SyncPollMilliseconds); });
        ++round;
    } while (round < rounds);
    show({});
}

}  // namespace

Boolean modActions::StartRemoteProgram(ThreadContext& context, aceRemote& record,
                                       Boolean& ignoreAll) {
    ResumeNext next;
    String commandLine = record.Program;
    ReplaceVariables(context, next, record.vks, commandLine);
    if (record.WaitPrgSync) {
        next([&] { context.SystemServices().WriteMacroSync(SyncGroup, SyncKey, L"STARTED"); });
    }
    Boolean result;
    const bool isRunning = next([&] { context.Platform().ActivateProgram(record.ProgID); });
    if (!isRunning) {
        result = StartAndWait(context, next, record, commandLine, ignoreAll);
    }
    if (record.WaitPrgSync) {
        WaitForSync(context, next);
    }
    next([&] { ClearStatus(context); });
    return result;
}

}  // namespace ace
