#include <ace/host/controls.h>
#include <ace/host/run_time_error.h>

namespace ace {

namespace {

template <class Items>
bool IsIndexOf(const Items& items, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < items.size();
}

void RequireItem(bool isThere) {
    if (!isThere) {
        Raise(Errors::InvalidProcedureCall);
    }
}

}  // namespace

ControlPlace::ControlPlace(Container& parent) : x_form(parent.OfForm()), x_parent(&parent) {}

bool Control::IsShown() const {
    const Control* control = this;
    while (control != nullptr && control->visible) {
        control = control->Parent();
    }
    return control == nullptr;
}

bool Control::IsUsable() const {
    const Control* control = this;
    while (control != nullptr && control->visible && control->enabled) {
        control = control->Parent();
    }
    return control == nullptr;
}

bool Control::TakesFocus() const {
    return x_kind != ControlKind::Label && x_kind != ControlKind::Frame &&
           x_kind != ControlKind::Picture;
}

void Picture::Press(std::int32_t button) const {
    const bool isDone = onMouseDown && onMouseDown(button);
    if (!isDone && button == MouseButtons::Left) {
        Click();
    }
}

void CheckBox::Tick(Boolean newTicked) {
    ticked = newTicked;
    Run(onClick);
}

void DropDown::Fill(std::vector<String> items) {
    list = std::move(items);
    listIndex = -1;
    otherText.clear();
}

void DropDown::Choose(std::int32_t index) {
    RequireItem(index == -1 || IsIndexOf(list, index));
    listIndex = index;
    Run(onClick);
}

const String& DropDown::Text() const {
    return IsIndexOf(list, listIndex) ? list[static_cast<std::size_t>(listIndex)] : otherText;
}

void OptionGroup::Choose(std::int32_t newIndex) {
    RequireItem(IsIndexOf(options, newIndex));
    index = newIndex;
    Run(onClick);
}

}  // namespace ace
