/// A settings file in memory that keeps every byte it was not asked to change.
#pragma once

#include <optional>
#include <vector>

#include "workbench/files/name_index.h"
#include "workbench/files/text_encoding.h"

namespace ace::workbench {

/// Sections of lines, some of them "key=value". Encoding, comments, order, line ends and lines of
/// any other form stay as they are. Section names stand between the brackets as they are, keys
/// without the blanks around them; both compare without regard to the case of the letters A to Z.
/// Where a name stands twice, the first section and the first key are read and written; the others
/// stay unseen. Text before the first section belongs to none. Empty lines at the end of a section
/// only set it apart from the next one. What can't be written is error 5 and changes nothing.
class SettingsDocument {
  public:
    /// An empty file: UTF-8, CR LF.
    SettingsDocument() = default;
    /// Takes the bytes of a file. 16-bit text that is big endian or has no byte order mark, and
    /// 32-bit text, is error `FileErrors::CannotRead`: nothing of it would be recognised.
    explicit SettingsDocument(std::string bytes);

    Encoding FileEncoding() const { return x_encoding; }

    bool HasSection(StringView section) const;
    /// The names of all sections in the order of the file, each as often as it stands there.
    std::vector<String> SectionNames() const;
    /// Number of the section's header line in the file, from 1, as it would be saved now; the lines
    /// of `GetSection` follow it. Nothing for a missing section.
    std::optional<std::size_t> HeaderLine(StringView section) const;
    /// The same of all sections, in the order of `SectionNames`.
    std::vector<std::size_t> HeaderLines() const;

    /// What stands behind the "=", blanks included; nothing when there is no such section or key.
    std::optional<String> GetKey(StringView section, StringView key) const;
    /// Replaces the value alone, or adds the key behind the section's last line, the section at the
    /// end of the file. A line end within, an empty key, or one with "=", can't be written.
    void SetKey(StringView section, StringView key, StringView value);

    /// The lines without their ends, comments included; none for an empty or missing section.
    std::vector<String> GetSection(StringView section) const;
    /// Replaces the lines by `lines`, which CR LF separates; the header, the section's place and
    /// its own kind of line end stay. The empty text leaves the header alone. A new section goes to
    /// the end. Lines that are there already are left untouched. A line that would read as a
    /// section header can't be written. An LF alone is kept and reads as a line end afterwards.
    void SetSection(StringView section, StringView lines);
    /// Takes away every section of this name.
    void DeleteSection(StringView section);

    /// The bytes from which the document was made.
    std::string SourceBytes() const;
    /// The bytes of the whole file. Error 5 when a codepage file would be taken for UTF-8.
    std::string Bytes() const;
    /// The same; nothing when no byte differs from the file as it was read.
    std::optional<std::string> ChangedBytes() const;

  private:
    static constexpr std::size_t None = NameIndex::None;

    /// A header line and all up to the next one: a stretch of the source, or an own text.
    struct Section {
        std::size_t begin = 0;
        std::size_t size = 0;
        std::size_t headerSize = 0;   ///< header line with its end, and empty lines before it
        std::size_t sameName = None;  ///< another section of this name further on
        bool isOwn = false;
        bool isDeleted = false;
        std::string own;
    };

    void FindSections();
    void AddToIndex(std::size_t index);
    auto HasName(std::string_view name) const;
    std::string_view Whole(const Section& section) const;
    std::string_view Header(const Section& section) const;
    std::string_view Body(const Section& section) const;
    std::string_view Preamble() const;
    std::string_view LineEndOf(const Section& section) const;

    std::size_t Find(StringView section) const;
    void Append(StringView name, std::string_view body);
    std::string EmptyLinesBeforeNewSection() const;
    void Rewrite(Section& section, std::string_view body);

    std::string Encoded(StringView text, StringView section) const;
    std::string Render() const;
    std::string Assembled(const std::string& text) const;
    std::string FileBytes(const std::string& text) const;

    Encoding x_encoding = Encoding::Utf8;
    std::string x_source;                 ///< the file as read, without byte order mark
    std::string x_tail;                   ///< half a 16-bit unit at the end of the file
    std::string_view x_lineEnd = "\r\n";  ///< of new sections: the first one of the file
    std::size_t x_preambleSize = 0;
    std::size_t x_emptyLinesBetween = 0;  ///< before a new section: as many as before the last one
    std::vector<Section> x_sections;
    NameIndex x_index;  ///< to the first section of a name
    bool x_touched = false;
};

}  // namespace ace::workbench
