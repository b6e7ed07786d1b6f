/// What the readers and writers of single lines work on.
#pragma once

#include <ace/core/operation.h>
#include <ace/settings/line_fields.h>
#include <ace/settings/line_step.h>

namespace ace {

/// The value of an entry line, the working records that it fills, and a mark for each field that it
/// names. Numbers that are out of range are error 6.
class EntryLine {
  public:
    EntryLine(ThreadContext& context, const Statements& stmt) : x_context(context), x_stmt(stmt) {}
    /// Forgets the line before.
    void Clear() {
        x_set = {};
        x_step = {};
    }
    /// Takes the value of an entry; `listIndex` from 0.
    void Start(std::size_t listIndex, StringView value);

    WorkingRecords& Records() { return x_context.ReaderRecords; }
    bool IsInEnterList() const { return x_listIndex == 0; }
    StringView Text() const { return x_value; }
    /// Number of parts between commas; at least 1.
    std::size_t FieldCount() const { return x_fieldCount; }
    /// The part of that index from 0; error 9 when the value ends before it. No form has more than
    /// ten.
    StringView Field(std::size_t index);

    double Number(StringView text);
    std::int32_t RoundedNumber(StringView text);
    std::int32_t StrictInteger(StringView text);  ///< anything but a number: error 13
    bool BooleanText(StringView text);            ///< anything else: error 13
    static bool Flag(StringView text) { return text == L"1"; }

    /// Stores a value and marks the field as named by the line.
    template <class Target, class Source>
    void Set(LineField field, Target& target, const Source& value) {
        target = value;
        Mark(field);
    }
    void Mark(LineField field) { x_set.Add(field); }
    LineFields SetFields() const { return x_set; }

    /// Asks the host whether a file can be used.
    bool FileIsUsable(const String& path);
    /// Lifts the thread's counter of device sections to at least `number`.
    void CountDeviceSection(std::int32_t number);

    /// Notes what comes next.
    void Next(LineStep step) { x_step = step; }
    const LineStep& Step() const { return x_step; }

  private:
    static constexpr std::size_t LongestForm = 10;

    ThreadContext& x_context;
    const Statements& x_stmt;
    std::size_t x_listIndex = 0;
    StringView x_value;
    std::size_t x_fieldCount = 0;
    std::array<StringView, LongestForm> x_fields;
    LineFields x_set;
    LineStep x_step;
};

/// A line that is being put together.
class LineText {
  public:
    LineText(ThreadContext& context, const Statements& stmt) : x_context(context), x_stmt(stmt) {}

    LineText& Add(StringView text) {
        x_text += text;
        return *this;
    }
    LineText& Add(std::int32_t number);
    /// "1" or "0".
    LineText& AddFlag(Boolean flag) { return Add(flag ? L"1" : L"0"); }
    /// Exactly `decimals` digits behind the point, as the user's locale rounds and groups them, and
    /// always with a point.
    LineText& AddFixed(double number, int decimals);
    LineText& AddFixed(float number, int decimals);
    /// The finished line; the next one starts empty.
    String Take() { return std::exchange(x_text, {}); }

  private:
    wchar_t Separator();

    ThreadContext& x_context;
    const Statements& x_stmt;
    String x_text;
};

}  // namespace ace
