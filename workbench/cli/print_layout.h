/// How a print looks as plain text.
#pragma once

#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The lines of an engine's print, from its block of text: each title with its actions behind an
/// empty line, details in a column of their own. `width` is that of the terminal in characters:
/// what is longer is broken at its blanks and goes on in its own column. 0 breaks nothing.
std::vector<String> PrintLines(StringView block, std::size_t width);

/// A text that is broken where it is too long, in the column behind `lead`.
struct Paragraph {
    String lead;
    String text;
};

/// Paragraphs in a frame of "+", "-" and "|", as wide as they need, and where they can be broken at
/// most `width` characters.
std::vector<String> Boxed(const std::vector<Paragraph>& paragraphs, std::size_t width);

}  // namespace ace::workbench
