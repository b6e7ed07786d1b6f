#include <algorithm>

#include <ace/core/field_text.h>
#include <ace/core/text.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/pane.h>

namespace ace {

void Tell(ThreadContext& context, const Refusal& refusal) {
    if (refusal.field != nullptr) {
        refusal.field->OfForm().SetFocus(*refusal.field);
    }
    context.UserDialogs().ShowMessageBox(refusal.text, refusal.icon,
                                         context.Language().Text(InputTexts::Title));
}

Pane::Pane(Form& form, EditorParts& parts, DialogPane index, const String& caption,
           std::int32_t rows)
    : x_form(form),
      x_parts(parts),
      fraAction(form, L"fraAction(" + IntegerText(static_cast<std::int32_t>(index)) + L")",
                pane_grid::FrameOf(rows, caption)) {
    fraAction.visible = false;
}

ControlFields VariableButtonAt(std::int32_t row) {
    ControlFields fields = pane_grid::ButtonAt(row, 1, L"Add variable");
    fields.toolTip = L"Click to select an variable";
    return fields;
}

void ShowValue(ThreadContext& context, ValueBox& box, double value) {
    box.text = FieldText(box, value, context.Platform().DecimalSeparator());
}

double ValueShown(ThreadContext& context, const ValueBox& box, double shown) {
    const String text = FieldText(box, shown, context.Platform().DecimalSeparator());
    return box.text == text ? shown : box.Value();
}

void ShowItem(DropDown& box, std::int32_t index, String other) {
    const bool isThere = index >= 0 && static_cast<std::size_t>(index) < box.list.size();
    box.otherText = isThere ? String() : std::move(other);
    box.Choose(isThere ? index : -1);
}

void ShowItemOf(DropDown& box, const String& text) {
    const auto found = std::ranges::find(box.list, text);
    const bool isThere = found != box.list.end();
    ShowItem(box, isThere ? static_cast<std::int32_t>(found - box.list.begin()) : -1, text);
}

std::int32_t IndexShown(const DropDown& box, std::int32_t shown) {
    return box.listIndex >= 0 ? box.listIndex : shown;
}

String BareFileName(const String& path) {
    return path.substr(path.rfind(L'\\') + 1);
}

}  // namespace ace
