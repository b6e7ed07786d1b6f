#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include <ace/host/forms.h>
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

std::int32_t LengthOf(StringView text) {
    return static_cast<std::int32_t>(text.size());
}

/// Sign, digits and one separator at the start of `text`, behind blanks, with a point as separator.
std::string LeadingNumber(StringView text) {
    text.remove_prefix(std::min(text.find_first_not_of(L" \t"), text.size()));
    std::string number;
    bool hasPoint = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i] == L',' ? L'.' : text[i];
        const bool isSign = i == 0 && (c == L'-' || c == L'+');
        if (!isSign && (c != L'.' || hasPoint) && (c < L'0' || c > L'9')) {
            break;
        }
        hasPoint = hasPoint || c == L'.';
        if (c != L'+') {
            number.push_back(static_cast<char>(c));
        }
    }
    return number;
}

}  // namespace

ControlPlace::ControlPlace(Container& parent) : x_form(parent.OfForm()), x_parent(&parent) {}

Control::Control(ControlPlace place, ControlKind kind, String name, ControlFields design)
    : ControlFields(std::move(design)), x_name(std::move(name)), x_kind(kind), x_place(place) {
    place.OfForm().x_controls.push_back(this);
}

bool Control::IsShown() const {
    return visible && (Parent() == nullptr || Parent()->IsShown());
}

bool Control::IsUsable() const {
    return visible && enabled && (Parent() == nullptr || Parent()->IsUsable());
}

bool Control::TakesFocus() const {
    return x_kind != ControlKind::Label && x_kind != ControlKind::Frame &&
           x_kind != ControlKind::Picture;
}

void Picture::Press(std::int32_t button) {
    const bool isDone = onMouseDown && onMouseDown(button);
    if (!isDone && button == MouseButtons::Left) {
        Click();
    }
}

void CheckBox::Tick(Boolean newTicked) {
    ticked = newTicked;
    Run(onClick);
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

void TextBox::Type(String newText) {
    text = std::move(newText);
    selectionStart = LengthOf(text);
    selectionLength = 0;
    Run(onChange);
}

void TextBox::Insert(StringView insertion) {
    const std::int32_t start = std::clamp(selectionStart, 0, LengthOf(text));
    const std::int32_t length = std::clamp(selectionLength, 0, LengthOf(text) - start);
    text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), insertion);
    selectionStart = start + LengthOf(insertion);
    selectionLength = 0;
    Run(onChange);
}

void TextBox::SelectAll() {
    selectionStart = 0;
    selectionLength = LengthOf(text);
}

void TextBox::Drop(const std::vector<String>& files) {
    if (onDrop) {
        onDrop(files);
    }
}

double ValueBox::Value() const {
    const std::string number = LeadingNumber(text);
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value,
                                        std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        const std::size_t first = number.find_first_not_of("-0");
        const bool isHuge = number.at(first) != '.';
        value = isHuge ? std::numeric_limits<double>::infinity() : 0.0;
        return number.front() == '-' ? -value : value;
    }
    return value;
}

void ValueBox::Type(String newText) {
    text = std::move(newText);
    x_isTyping = true;
    Run(onChange);
}

void ValueBox::EndInput() {
    if (std::exchange(x_isTyping, false)) {
        Run(onEndInput);
    }
}

void FileBox::ChooseFile(String name) {
    fileName = std::move(name);
    Run(onChange);
}

void FileBox::ChooseTable(ITableType type, ITableMeasClass measClass, String name) {
    tableType = type;
    tableMeasClass = measClass;
    ChooseFile(std::move(name));
}

void TabStrip::Select(std::int32_t index) {
    RequireItem(IsIndexOf(tabs, index) && tabs[static_cast<std::size_t>(index)].visible);
    const std::int32_t before = std::exchange(current, index);
    if (before != index && onSelect) {
        onSelect(before);
    }
}

}  // namespace ace
