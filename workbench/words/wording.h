/// Small texts that many lines are made of.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// Without blanks and tabs at either end.
StringView Trimmed(StringView text);
/// "1 frequency", "254 frequencies".
String Counted(std::size_t count, StringView one, StringView many);
/// Rising numbers as ranges: "1 to 3, 7"; one that stands there twice counts once. Of more than
/// `most` ranges, at least 2, the middle is left out: "1, 3, 5 ... 10000". Empty without numbers.
String RangesText(std::span<const std::int32_t> numbers, std::size_t most);
/// "1.5 s", to the millisecond.
String SecondsText(double milliseconds);
/// "1:02:03.500": hours, minutes, seconds.
String TimeText(double milliseconds);
/// "1:02:03", and its milliseconds only where it has some: "0:00:01.500".
String DurationText(double milliseconds);
/// The line is empty, or a comment: it begins with one of `marks`, which differ from file to file.
/// It has no blanks around it.
bool IsEmptyOrComment(StringView line, StringView marks);
/// U+0000 to U+001F and U+007F to U+009F. A terminal may take one for a command.
bool IsControl(wchar_t c);
/// A text as one line: line ends become " / ", other control characters blanks, so that no file can
/// send commands to a terminal.
String OneLine(StringView text);
/// The same in double quotes.
String QuotedLine(StringView text);
/// `text`, and blanks behind it up to `width` characters; a longer text stays whole.
String Padded(StringView text, std::size_t width);
/// `text` in lines of at most `width` characters, broken at a blank, which goes, or where there is
/// none in the midst of a word. At least one line; 0 breaks nothing.
std::vector<String> Wrapped(StringView text, std::size_t width);
/// `pattern` with each "%1" to "%9" replaced by the value of that number; empty for a missing one.
template <class Values>
String Filled(StringView pattern, const Values& values) {
    String text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlace = pattern[i] == L'%' && i + 1 < pattern.size() &&
                             pattern[i + 1] >= L'1' && pattern[i + 1] <= L'9';
        if (!isPlace) {
            text += pattern[i];
            continue;
        }
        const auto index = static_cast<std::size_t>(pattern[++i] - L'1');
        if (index < values.size()) {
            text += values[index];
        }
    }
    return text;
}
/// `text` fits `pattern`, in which "*" stands for any characters and "?" for one. The case of the
/// letters A to Z does not count.
bool FitsPattern(StringView text, StringView pattern);
/// The number that `text` is, with a point and perhaps an exponent, blanks around it allowed;
/// nothing when it is anything else.
std::optional<double> WholeNumber(StringView text);
/// The same for a 32-bit integer.
std::optional<std::int32_t> WholeInteger(StringView text);

}  // namespace ace::workbench
