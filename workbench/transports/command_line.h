/// A command line as a person types it.
#pragma once

#include <string>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The program and its arguments, in UTF-8. Blanks and tabulators separate; what stands between two
/// double or two single quotes keeps its blanks, also in the midst of a word; "" is an empty
/// argument. Outside single quotes a backslash before a blank, a quote or a backslash takes that
/// character as it stands; before any other it is an ordinary character. There are no variables, no
/// wildcards, no pipes and no redirections. A line without a word, a quote without its end and a
/// zero character are error `TransportErrors::CannotStart`.
std::vector<std::string> SplitCommandLine(StringView line);

}  // namespace ace::workbench
