/// The test of an action from the dialog.
#pragma once

#include <ace/editor/editor_parts.h>

namespace ace {

/// Carries out the working record of the held action once, as far as its kind can be tried: a
/// message, a sound, a command, a program, a device that is set or checked. Works on a copy,
/// because the operator may go on with the dialog meanwhile; devices and the process come back into
/// the record, unless that is for another device or program by then. A bus device that is opened
/// stays so for the next test of its address. Devices that fail are told as in a test; other errors
/// come out. Messages run.
void TestHeldAction(EditorParts& parts);

/// The dialog has ended: closes the bus device that its tests have left open. Raises nothing.
void EndTests(EditorParts& parts);

}  // namespace ace
