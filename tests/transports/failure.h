/// Errors of transports, as the tests look at them.
#pragma once

#include <string>

#include "support/file_fixture.h"

namespace ace::workbench {

/// A text that is known to be ASCII.
inline std::string Narrow(const String& text) {
    return {text.begin(), text.end()};
}

/// Description of the error in `act`, whose number is checked.
template <class Act>
std::string Failure(std::int32_t number, Act&& act) {
    const RunTimeError error = ErrorIn(act);
    EXPECT_EQ(error.Number(), number);
    return Narrow(error.Description());
}

}  // namespace ace::workbench
