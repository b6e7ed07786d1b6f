/// What an operator can do to a form that is shown.
#pragma once

#include <functional>

#include <ace/host/forms.h>

namespace ace::sim {

/// One act; false when it can't be done: there is no such control, it is of another kind, or a
/// person can't reach it, as a button that is hidden, disabled or in a frame that is.
using FormAct = std::function<bool(Form&)>;

/// Each is an act on the control of that name. One that takes the focus gets it first, and the
/// leave handler of another control may put it out of reach.
/// A click on a button or a picture.
FormAct Press(String control);
/// A press of that button of the mouse on a picture.
FormAct PressMouse(String control, std::int32_t button);
/// A choice in a drop-down list, an option group or a strip of tabs, from 0.
FormAct Choose(String control, std::int32_t index);
/// Types over all that a text or value box holds.
FormAct Type(String control, String text);
/// Types in place of what is selected in a text box, or at its caret.
FormAct Insert(String control, String text);
/// Ends the input in a value box by a key.
FormAct EndInput(String control);
/// Ticks a box that isn't, or the other way round.
FormAct Tick(String control, bool ticked);
/// Chooses a file in a file box for files.
FormAct ChooseFile(String control, String file);
/// Chooses a table, with its type and measurement class, in a file box for tables.
FormAct ChooseTable(String control, ITableType type, ITableMeasClass measClass, String table);
/// Selects characters of a text box; a `length` of 0 puts the caret there. Beyond the text it can't
/// be done.
FormAct SelectText(String control, std::int32_t start, std::int32_t length = 0);
/// Goes to a control and does nothing there.
FormAct Focus(String control);
/// Drops files on a text box; the focus stays where it is.
FormAct DropFiles(String control, std::vector<String> files);
/// A key, whatever has the focus.
FormAct PressKey(std::int32_t key);
/// Closing the window by its frame.
FormAct CloseFrame();
/// Anything else that happens while the form is shown, such as calls of the host.
FormAct Do(std::function<void(Form&)> act);

}  // namespace ace::sim
