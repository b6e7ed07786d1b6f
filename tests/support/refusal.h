/// Refusals of a command as values.
#pragma once

#include <string>

#include "workbench/files/text_encoding.h"
#include "workbench/words/outcome.h"

namespace ace::workbench {

/// The `CommandError` that `act` raises, as "<exit code> <text>"; empty when it raises none.
template <class Act>
std::string RefusalOf(Act&& act) {
    try {
        act();
    } catch (const CommandError& error) {
        return std::to_string(static_cast<int>(error.outcome)) + " " + ToUtf8(error.text);
    }
    return {};
}

}  // namespace ace::workbench
