/// The inputs of an API macro, listed in a text file beside it.
#pragma once

#include <string>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// One input of a macro.
struct MacroInput {
    bool isTable = false;  ///< the argument names a table file; otherwise it is a plain value
    String name;           ///< for people; never empty

    friend bool operator==(const MacroInput&, const MacroInput&) = default;
};

/// The list's file: the macro's own file name with ".inputs" behind it.
std::string InputsFileOf(const std::string& macro);

/// The inputs in `text`, one a line: the word value or table in any case, blanks, a name that ends
/// with the line. Empty lines and lines that begin with "#" don't count. Anything else, and more
/// inputs than 16 bits count, is error `TransportErrors::BadConfiguration`, which names the line.
std::vector<MacroInput> ParseMacroInputs(StringView text);

/// The inputs of the macro at `macro` (UTF-8); none when it has no list. A list that can't be read
/// is an error of `FileErrors` or as above, with the file's name.
std::vector<MacroInput> ReadMacroInputs(const std::string& macro);

}  // namespace ace::workbench
