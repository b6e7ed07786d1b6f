/// The keys from which a test is set up, read one by one.
#pragma once

#include <optional>
#include <vector>

#include "workbench/files/settings_document.h"

namespace ace::workbench {

/// The section that says which test the file is for.
inline constexpr StringView MainSection = L"Workbench";
/// Of entries in more ranges than this a note leaves out the middle.
inline constexpr std::size_t MostNotedRanges = 10;

/// A section, key or name that goes by a number: "Freq0".
String Numbered(StringView word, std::int32_t number);

/// Reads keys of one file, which must stay as long as it, and names their places when they make no
/// sense: `CommandError` `BadFile`. What is missing is nothing.
class SetUpReader {
  public:
    /// `path` is for messages.
    SetUpReader(const SettingsDocument& document, const String& path)
        : x_document(document), x_path(path) {}

    bool Has(StringView section) const { return x_document.HasSection(section); }
    /// Without blanks around it.
    std::optional<String> Text(StringView section, StringView key) const;
    /// Any other text is refused.
    std::optional<double> Number(StringView section, StringView key) const;
    /// A whole number from `least` to `most`; any other is refused.
    std::optional<std::int32_t> Integer(StringView section, StringView key, std::int32_t least,
                                        std::int32_t most) const;
    /// Numbers from 1, separated by commas; anything else is refused. None for a missing key.
    std::vector<std::int32_t> Integers(StringView section, StringView key) const;
    /// A number of a sweep that must be there.
    double Needed(StringView section, StringView key) const;

    /// Says of a key, or of a section without one, why it is refused.
    [[noreturn]] void Refuse(StringView section, StringView key, StringView why) const;
    /// For a key of the main section that is not there: `BadFile` when it is there under a name
    /// that is a slip of the pen, otherwise `WrongUse` with `why`.
    [[noreturn]] void RefuseMissing(StringView key, const String& why) const;

  private:
    const SettingsDocument& x_document;
    const String& x_path;
};

}  // namespace ace::workbench
