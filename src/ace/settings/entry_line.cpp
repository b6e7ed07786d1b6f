#include <charconv>

#include <ace/core/text.h>
#include <ace/settings/entry_line.h>

namespace ace {

void EntryLine::Start(std::size_t listIndex, StringView value) {
    x_listIndex = listIndex;
    x_value = value;
    x_fieldCount = 0;
    for (std::size_t begin = 0;;) {
        const std::size_t comma = value.find(L',', begin);
        if (x_fieldCount < LongestForm) {
            x_fields[x_fieldCount] = value.substr(begin, comma - begin);
        }
        ++x_fieldCount;
        if (comma == StringView::npos) {
            return;
        }
        begin = comma + 1;
    }
}

StringView EntryLine::Field(std::size_t index) {
    if (index >= x_fieldCount || index >= LongestForm) {
        x_step = {LineStep::FindField, static_cast<std::int32_t>(index), {}};
        Raise(Errors::SubscriptOutOfRange);
    }
    return x_fields[index];
}

double EntryLine::Number(StringView text) {
    x_step = {LineStep::NeedNumber, 0, text};
    return ReadNumber(text);
}

std::int32_t EntryLine::RoundedNumber(StringView text) {
    x_step = {LineStep::NeedNumber, 0, text};
    return ReadRoundedNumber(text);
}

std::int32_t EntryLine::StrictInteger(StringView text) {
    x_step = {LineStep::NeedNumber, 0, text};
    return ReadStrictInteger(text);
}

bool EntryLine::BooleanText(StringView text) {
    x_step = {LineStep::NeedTruth, 0, text};
    return ReadBooleanText(text);
}

bool EntryLine::FileIsUsable(const String& path) {
    x_step = {};
    return x_stmt([&] { return x_context.SystemServices().FileIsUsable(path, true, false); });
}

void EntryLine::CountDeviceSection(std::int32_t number) {
    x_step = {};
    const Value numbers[] = {number};
    x_stmt([&] {
        x_context.DeviceSectionCounter =
            LongOf(x_context.Utilities().Max(x_context.DeviceSectionCounter, numbers));
    });
}

LineText& LineText::Add(std::int32_t number) {
    char digits[12];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number);
    x_text.append(digits, end);
    return *this;
}

LineText& LineText::AddFixed(double number, int decimals) {
    return Add(WithPoint(FormatFixed(number, decimals, Separator())));
}

LineText& LineText::AddFixed(float number, int decimals) {
    return Add(WithPoint(FormatFixed(number, decimals, Separator())));
}

wchar_t LineText::Separator() {
    return x_stmt([&] { return x_context.Platform().DecimalSeparator(); });
}

}  // namespace ace
