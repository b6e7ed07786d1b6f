/// The test of an action from the dialog.
#pragma once

#include <ace/editor/editor_parts.h>

namespace ace {

/// Carries out the working record of the held action once, as far as its kind can be tried: a
/// message, a sound, a command, a program, a device that is set or checked. Works on a copy,
/// because the operator may go on with the dialog meanwhile; what the test has opened comes back
/// into the record, unless that is for another device or address by then. Devices that fail are
/// told as in a test; other errors come out. Messages run.
void TestHeldAction(EditorParts& parts);

}  // namespace ace
