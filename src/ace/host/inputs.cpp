#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include <ace/host/inputs.h>
#include <ace/host/run_time_error.h>

namespace ace {

namespace {

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

void TextBox::Drop(const std::vector<String>& files) const {
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
    const bool isThere = index >= 0 && static_cast<std::size_t>(index) < tabs.size();
    if (!isThere || !tabs[static_cast<std::size_t>(index)].visible) {
        Raise(Errors::InvalidProcedureCall);
    }
    const std::int32_t before = std::exchange(current, index);
    if (before != index && onSelect) {
        onSelect(before);
    }
}

}  // namespace ace
