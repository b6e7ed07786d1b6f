/// The lines of a settings file, as bytes in which ASCII is one byte a character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ace::workbench {

/// One line and what ends it: LF, CR LF, or nothing at the end of the file. A CR alone ends no
/// line.
struct Line {
    std::string_view text;
    std::string_view end;
};
/// Cuts the first line off `rest`, which must not be empty.
Line TakeLine(std::string_view& rest);

/// Where the lines begin that open a section: the first character that is no blank is "[", and a
/// "]" follows in the same line.
std::vector<std::size_t> FindHeaders(std::string_view bytes);
/// What stands between the first "[" of a header line and the next "]".
std::string_view HeaderName(std::string_view header);

/// The key of a line: what stands before the first "=", without blanks around it. A line without
/// "=" has none and the answer is false.
bool SplitKey(std::string_view line, std::string_view& key, std::string_view& value);

/// Number of empty lines at the end. They set a section apart from the next one and are no lines of
/// the section.
std::size_t EmptyLinesAtEnd(std::string_view bytes);
std::string_view WithoutEmptyLinesAtEnd(std::string_view bytes);

/// The same texts in the same order, whatever ends the lines.
bool SameLines(std::string_view a, std::string_view b);

/// Ends the line at the end of `bytes`. CR LF stands in for `lineEnd` behind a CR, which would
/// otherwise become a part of the line end.
void EndLine(std::string& bytes, std::string_view lineEnd);
/// Lines that are separated by CR LF, each with `lineEnd` behind it.
std::string WithLineEnds(std::string_view lines, std::string_view lineEnd);

std::string_view TrimBlanks(std::string_view text);
bool EqualNoCase(std::string_view a, std::string_view b);

}  // namespace ace::workbench
