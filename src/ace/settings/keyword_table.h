/// The keywords of action lines as data.
#pragma once

#include <span>

#include <ace/core/action_records.h>
#include <ace/settings/line_forms.h>

namespace ace {

class EntryLine;
class LineText;

/// One keyword. Reader, writer and form stand beside each other, but they are no mirror images: old
/// keywords are read and never written, and the writer writes every kind in every list.
struct KeywordRow {
    StringView keyword;  ///< in capitals, with its ":"
    p_ActionTypes kind;
    std::uint8_t lists;                                     ///< bit i: list i + 1 knows it
    void (*read)(EntryLine& line);                          ///< none: the value is ignored
    void (*write)(LineText& text, const p_Action& action);  ///< none: never written
    LineForm (*form)(StringView value);                     ///< what a value is made of

    constexpr bool IsKnownIn(std::size_t listIndex) const { return (lists >> listIndex & 1) != 0; }
};

/// All keywords.
std::span<const KeywordRow> KeywordTable();
/// The row of a keyword (with its ":") in any case of its letters; none when there is no such.
const KeywordRow* FindKeyword(StringView keyword);
/// The row by which a kind is written; none for a value outside the kinds.
const KeywordRow* FindWriter(p_ActionTypes kind);

}  // namespace ace
