/// The test of an action from the dialog.
#pragma once

#include <ace/editor/editor_parts.h>

namespace ace {

/// Carries out the working record of the held action once, as far as its kind can be tried: a
/// message, a sound, a command, a program, a device that is set or checked. Works on a copy, and
/// what the test has opened comes back into the record. Devices that fail are told as in a test;
/// other errors come out. Messages run.
void TestHeldAction(EditorParts& parts);

}  // namespace ace
