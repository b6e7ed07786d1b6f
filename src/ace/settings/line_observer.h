/// Who is told, line by line, how a section is understood: for a host that has to name the place of
/// an error, and for checks of a file.
#pragma once

#include <array>

#include <ace/settings/keyword_table.h>
#include <ace/settings/line_step.h>

namespace ace {

/// What the reader took a line for.
enum class LineMeaning : std::uint8_t {
    Short,           ///< at most one character: skipped
    Count,           ///< the count line of a list
    Entry,           ///< an action
    UnknownKey,      ///< skipped: the key is neither a count nor an entry
    UnknownKeyword,  ///< skipped: an entry whose keyword its list does not know
    Unreadable,      ///< no "=", or no ":" behind it; the section ends here with an error
};

/// Where a field has its value from: index of a line of the section, or one of the two below.
using FieldOrigin = std::int32_t;
inline constexpr FieldOrigin FromReset = -1;           ///< the value that every section starts with
inline constexpr FieldOrigin FromEarlierSection = -2;  ///< left by whichever section came before
using FieldOrigins = std::array<FieldOrigin, LineFieldCount>;

/// One line as the reader understood it. It lives during the call.
struct LineReport {
    StringView section;
    std::int32_t lineIndex = 0;  ///< from 0, in the order in which the host handed the lines over
    StringView line;
    LineMeaning meaning = LineMeaning::Short;
    StringView key;      ///< empty for a short line and for one without "="
    StringView keyword;  ///< with its ":"; empty for a count line
    /// Number of the list from 1; 0 when the line belongs to none.
    std::int32_t list = 0;
    std::int32_t count = 0;   ///< of a count line
    std::int32_t entry = -1;  ///< index of an entry from 0; -1 when none was determined
    /// The keyword's row, also when this list skips it; none for a word that no list knows.
    const KeywordRow* row = nullptr;
    LineFields set;        ///< what the line named
    LineFields inherited;  ///< what the entry has all the same: the rest of its record
    /// For the fields in `inherited`.
    FieldOrigin OriginOf(LineField field) const {
        return (*origins)[static_cast<std::size_t>(field)];
    }
    const FieldOrigins* origins = nullptr;

    std::int32_t error = 0;  ///< number of the error that ends the section here; 0 for none
    String reason;           ///< the error in words: what is wrong with the line
    /// What the reader was at when the error came; `Plain` where the number says it all.
    LineStep::Kind failedStep = LineStep::Plain;
};

/// A set of lists that a load fills, in the object that loads.
struct SetPlace {
    const p_Subrange* fixed = nullptr;           ///< one that the module has once, or none
    const DynArray<p_Subrange>* sets = nullptr;  ///< the numbered sets, where `fixed` is none
    std::int32_t index = 0;                      ///< of the numbered one, from 0

    bool operator==(const SetPlace&) const = default;
};

/// Told of every line once. First come, in file order, the lines that need no list: the short ones,
/// the count lines, the unreadable one; then, in file order, all others. A report with an error is
/// the last of its section. The observer belongs to the host; what it raises ends the reading like
/// an error of the line.
class ILineObserver {
  public:
    virtual ~ILineObserver() = default;
    /// A load is about to fill a set; `SectionStarts` follows with the section that it comes from.
    virtual void SetStarts(const SetPlace&) {}
    /// A section is about to be asked of the host, under this name.
    virtual void SectionStarts(StringView) {}
    virtual void LineIsRead(const LineReport& report) = 0;
};

}  // namespace ace
