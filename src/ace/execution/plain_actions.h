/// The actions that need no machinery of their own.
#pragma once

#include <ace/core/operation.h>

namespace ace::modActions {

/// Kinds of the events that the host's device side is told.
inline constexpr std::int32_t RadiationEvent = 3;
inline constexpr std::int32_t AmplifierEvent = 4;

/// Tells the host's device side what the engine is doing, as "ActionEngine". Errors of the host
/// come out; no message runs.
void PostEvent(ThreadContext& context, std::int32_t kind, const String& text);

/// Shows the status and spends the record's time (milliseconds) in a timed message of the host;
/// messages run meanwhile. Any error ends it without a report, and the status line then stands.
void Wait(ThreadContext& context, const aceWait& record);

/// Plays the wave file, beeps if the record says so, and beeps once more if the file failed. Any
/// error ends it silently.
void PlaySound(ThreadContext& context, const aceNotify& record);

/// Tells the operator. True when he asks to stop the test. The host's device side sees a pause in
/// radiation around it, also when nothing is shown. Messages may run.
Boolean Notify(ThreadContext& context, const Statements& stmt, aceNotify& record,
               std::int32_t moduleKind);

/// Asks the operator. True is "No". Messages may run.
Boolean Question(ThreadContext& context, const Statements& stmt, aceNotify& record);

/// Protects the receivers unless the host's test is in the state that forbids it for a template.
/// Errors of asking for the test come out through `stmt`, those of the receivers never. Messages
/// may run inside their operations.
void ProtectIfAllowed(ThreadContext& context, const Statements& stmt, std::int32_t moduleKind);

}  // namespace ace::modActions
