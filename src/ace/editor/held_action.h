/// The action that the editor's dialog works on, which is also the editor's clipboard.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// An action, and beside it a working record for each kind of parameter, which is what the dialog
/// changes. The action's `Parameter` gets a copy of it when the dialog is confirmed or its action
/// is tried: a dialog that is cancelled without a test leaves what a paste inserts.
struct HeldAction {
    p_Action Action;
    WorkingRecords Records;
};

/// Holds a copy of `entry`: the action, and its record as the working one.
void Hold(HeldAction& held, const p_Action& entry);
/// The action with the working record of its kind as `Parameter`; a kind without a record has none.
p_Action ActionFromRecords(const HeldAction& held);

/// Whether the working record of the held kind differs from `entry`. Intentional: it compares less
/// than the records hold. Case of messages, commands, programs and files, and much of a tracking,
/// don't count, and of a device's settings only whether they were changed in the dialog; an edit of
/// what isn't compared is dropped. Kinds without a record never differ. Another kind, and one
/// outside the members, always do. Wait times are compared by the host, whose errors come out;
/// error 13 when the entry's record is of another kind. No messages run.
bool Differs(ThreadContext& context, const HeldAction& held, const p_Action& entry,
             Boolean deviceSettingsChanged);

/// Takes the use of replace variables out of an action that is inserted.
void ForgetVariables(p_Action& action);
/// Takes out of a copy what a run has left in its source: handles, process, devices, frequency, the
/// time of the last check. The source keeps them: what is open is closed once.
void ForgetRun(p_Action& action);

}  // namespace ace
