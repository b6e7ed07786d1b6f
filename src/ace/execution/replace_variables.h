/// Placeholders in the texts of actions.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Replaces the placeholders of `variables` in `text`, pair after pair, each on the result of the
/// one before; exact and case-sensitive. A value that is no text goes in in the general format of
/// the locale with every "," made ".". Fewer pairs than the count says: error 9, and `text` stands.
void ReplaceVariables(ThreadContext& context, const aceVKSVar& variables, String& text);

}  // namespace ace
