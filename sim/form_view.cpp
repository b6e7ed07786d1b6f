#include "sim/form_view.h"

#include <iterator>

#include <ace/core/text.h>

#include "sim/call_text.h"

namespace ace::sim {

namespace {

String NumberText(double value) {
    return FormatGeneral(value, L'.');
}

String CheckFacts(const CheckBox& box) {
    return box.ticked ? L" ticked" : L" unticked";
}

/// All items, the chosen one behind a star.
String DropDownFacts(const DropDown& box) {
    String text = box.list.empty() ? L" of nothing" : L" of";
    for (std::size_t i = 0; i < box.list.size(); ++i) {
        const bool isChosen = static_cast<std::int32_t>(i) == box.listIndex;
        text += (isChosen ? L" *" : L" ") + Quoted(box.list[i]);
    }
    return text;
}

/// The same of options.
String OptionFacts(const OptionGroup& group) {
    String text;
    for (std::size_t i = 0; i < group.options.size(); ++i) {
        const bool isChosen = static_cast<std::int32_t>(i) == group.index;
        text += (isChosen ? L" *" : L" ") + Quoted(group.options[i].caption);
    }
    return text;
}

String TabFacts(const TabStrip& strip) {
    String text;
    for (std::size_t i = 0; i < strip.tabs.size(); ++i) {
        const bool isCurrent = static_cast<std::int32_t>(i) == strip.current;
        text += (isCurrent ? L" *" : L" ") + Quoted(strip.tabs[i].caption);
        text += strip.tabs[i].visible ? L"" : L" (hidden)";
    }
    return text;
}

String TextFacts(const TextBox& box) {
    const String lines = box.multiLine ? L" of several lines" : L"";
    return box.selectionLength == 0 ? lines
                                    : lines + L" selected " + std::to_wstring(box.selectionStart) +
                                          L"+" + std::to_wstring(box.selectionLength);
}

String ValueFacts(const ValueBox& box) {
    return L" " + box.unit + L" (" + NumberText(box.minimum) + L" to " + NumberText(box.maximum) +
           L")";
}

String FileFacts(const FileBox& box) {
    return !box.ofTables ? String()
                         : L" table " + std::to_wstring(box.tableType) + L"/" +
                               std::to_wstring(box.tableMeasClass);
}

String OptionWords(const OptionGroup& group) {
    return group.index < 0 ? String()
                           : group.options[static_cast<std::size_t>(group.index)].caption;
}

String TabWords(const TabStrip& strip) {
    const auto current = static_cast<std::size_t>(strip.current);
    return current < strip.tabs.size() ? strip.tabs[current].caption : String();
}

/// A function on one kind of control as a function on any.
template <class Kind, String (*OfKind)(const Kind&)>
String Of(const Control& control) {
    return OfKind(static_cast<const Kind&>(control));
}
String CaptionOf(const Control& control) {
    return control.caption;
}
String Nothing(const Control&) {
    return {};
}
String ChosenItem(const DropDown& box) {
    return box.Text();
}
String TextIn(const TextBox& box) {
    return box.text;
}
String ValueIn(const ValueBox& box) {
    return box.text;
}
String FileIn(const FileBox& box) {
    return box.fileName;
}

/// How a kind is told.
struct KindRow {
    ControlKind kind;
    StringView name;
    String (*words)(const Control&);
    String (*facts)(const Control&);  ///< with a blank before them
    bool showsWords = true;           ///< the facts have them already, or there are none
};
constexpr KindRow Kinds[] = {
    {ControlKind::Label, L"label", CaptionOf, Nothing},
    {ControlKind::Frame, L"frame", CaptionOf, Nothing},
    {ControlKind::Button, L"button", CaptionOf, Nothing},
    {ControlKind::Picture, L"picture", CaptionOf, Nothing, false},
    {ControlKind::CheckBox, L"check box", CaptionOf, Of<CheckBox, CheckFacts>},
    {ControlKind::DropDown, L"drop-down", Of<DropDown, ChosenItem>, Of<DropDown, DropDownFacts>},
    {ControlKind::OptionGroup, L"options", Of<OptionGroup, OptionWords>,
     Of<OptionGroup, OptionFacts>, false},
    {ControlKind::TextBox, L"text box", Of<TextBox, TextIn>, Of<TextBox, TextFacts>},
    {ControlKind::ValueBox, L"value box", Of<ValueBox, ValueIn>, Of<ValueBox, ValueFacts>},
    {ControlKind::FileBox, L"file box", Of<FileBox, FileIn>, Of<FileBox, FileFacts>},
    {ControlKind::TabStrip, L"tabs", Of<TabStrip, TabWords>, Of<TabStrip, TabFacts>, false},
};

const KindRow& KindOf(const Control& control) {
    return Kinds[static_cast<std::size_t>(control.Kind())];
}
static_assert([] {
    for (std::size_t i = 0; i < std::size(Kinds); ++i) {
        if (Kinds[i].kind != static_cast<ControlKind>(i)) {
            return false;
        }
    }
    return std::size(Kinds) == static_cast<std::size_t>(ControlKind::TabStrip) + 1;
}());

String TipOf(const Control& control) {
    return control.toolTip.empty() ? String() : L" tip " + Quoted(control.toolTip);
}

/// As one part of a line: of the facts only the tick is read off.
String ControlText(const Control& control) {
    String text = control.Name();
    if (control.Kind() != ControlKind::Picture) {
        text += L" " + Quoted(WordsOf(control));
    }
    if (control.Kind() == ControlKind::CheckBox) {
        text += KindOf(control).facts(control);
    }
    text += TipOf(control);
    return control.enabled ? text : text + L" disabled";
}

bool HasPlace(const ControlFields& control) {
    return control.left != 0.0F || control.top != 0.0F || control.width != 0.0F ||
           control.height != 0.0F;
}

/// As "3000 x 2000".
String SizeText(float width, float height) {
    return NumberText(static_cast<double>(width)) + L" x " +
           NumberText(static_cast<double>(height));
}

String PlaceText(const Control& control) {
    return !HasPlace(control) ? String()
                              : L" at " + NumberText(static_cast<double>(control.left)) + L", " +
                                    NumberText(static_cast<double>(control.top)) + L", " +
                                    SizeText(control.width, control.height);
}

String ControlLine(const Control& control, Places places, std::size_t depth) {
    const KindRow& kind = KindOf(control);
    String line = String(2 * depth, L' ') + control.Name() + L" " + String(kind.name);
    if (kind.showsWords) {
        line += L" " + Quoted(WordsOf(control));
    }
    line += kind.facts(control) + TipOf(control);
    line += places == Places::Told ? PlaceText(control) : String();
    line += control.visible ? L"" : L" hidden";
    line += control.enabled ? L"" : L" disabled";
    return line + L"\n";
}

void AppendControls(String& text, const Form& form, Places places, const Container* parent,
                    std::size_t depth) {
    for (const Control* control : form.Controls()) {
        if (control->Parent() != parent) {
            continue;
        }
        text += ControlLine(*control, places, depth);
        if (const auto* const container = dynamic_cast<const Container*>(control)) {
            AppendControls(text, form, places, container, depth + 1);
        }
    }
}

}  // namespace

String WordsOf(const Control& control) {
    return KindOf(control).words(control);
}

String FormText(const Form& form) {
    String text = Quoted(form.Name()) + L", " + Quoted(form.title);
    for (const Control* control : form.Controls()) {
        if (control->IsShown()) {
            text += L", " + ControlText(*control);
        }
    }
    return text;
}

String FormView(const Form& form) {
    return FormView(form, Places::Told);
}

String FormView(const Form& form, Places places) {
    String text = form.Name() + L" " + Quoted(form.title);
    text += places == Places::Told ? L", " + SizeText(form.width, form.height) : String();
    if (form.Focus() != nullptr) {
        text += L", focus on " + form.Focus()->Name();
    }
    text += L"\n";
    AppendControls(text, form, places, nullptr, 1);
    return text;
}

String MenuText(const std::vector<MenuItem>& items) {
    String text;
    for (const MenuItem& item : items) {
        text += (text.empty() ? L"" : L", ") + std::to_wstring(item.command) + L" " +
                Quoted(item.caption) + (item.isChecked ? L" checked" : L"");
    }
    return text;
}

}  // namespace ace::sim
