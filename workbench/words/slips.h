/// Words that somebody has written nearly right.
#pragma once

#include <span>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// `text` is not `word`, but one slip of the pen away from it: one or two letters wrong, missing,
/// too many or exchanged (one in words of less than six letters), or up to three letters cut off
/// its end. The case of the letters A to Z does not count.
bool IsSlipOf(StringView text, StringView word);
/// The first of `words` that `text` is, whatever the case, or else the first of which it is a slip;
/// empty for none.
StringView NearestWord(StringView text, std::span<const StringView> words);

}  // namespace ace::workbench
