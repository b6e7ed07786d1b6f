/// Placeholders in the texts of actions.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Replaces the placeholder of pair `index` in `text` by its value; exact and case-sensitive. A
/// value that is no text goes in in the general format of the locale with every "," made ".". A
/// pair that is not there is error 9, an array as its value error 13, and `text` stands then. The
/// host is asked for the locale: `text` must not move when it calls back and takes the records.
void ReplaceVariable(ThreadContext& context, const aceVKSVar& variables, std::int32_t index,
                     String& text);

/// Replaces pair after pair, each on the result of the one before. Each pair is one statement of
/// `stmt`, which may run it again or pass over it; what the pairs before have replaced stays.
template <class Stmt>
void ReplaceVariables(ThreadContext& context, Stmt&& stmt, const aceVKSVar& variables,
                      String& text) {
    for (std::int32_t i = 0; i < variables.count; ++i) {
        stmt([&] { ReplaceVariable(context, variables, i, text); });
    }
}

/// The same for a routine in which the first failure ends it.
inline void ReplaceVariables(ThreadContext& context, const aceVKSVar& variables, String& text) {
    ReplaceVariables(
        context, [](auto&& statement) { statement(); }, variables, text);
}

}  // namespace ace
