/// A form as text: what an operator reads off it, and how it stands in full.
#pragma once

#include <ace/host/forms.h>
#include <ace/host/user_dialogs.h>

namespace ace::sim {

/// The words that a control shows: its caption, or what its box holds, or what is chosen.
String WordsOf(const Control& control);

/// What the operator reads off a form: its name, its title, and each control that shows, in tab
/// order, with its words and, behind "tip", its tool tip.
String FormText(const Form& form);

/// The form as it stands, for golden files: a line for the form and one for each control, hidden
/// ones too, those of a frame indented below it. A line has name, kind, words, what else the kind
/// holds, its place and size in twips unless all is left to the view, and "hidden" or "disabled".
String FormView(const Form& form);

/// Whether a view tells where things stand.
enum class Places { Told, Left };
/// The same; with `Places::Left` places and sizes, that of the form too, are left out, so that only
/// the order and what shows is told.
String FormView(const Form& form, Places places);

/// The items of a menu: `1 "Change", 2 "Delete" checked`.
String MenuText(const std::vector<MenuItem>& items);

}  // namespace ace::sim
