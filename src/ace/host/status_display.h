/// The host's status line.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// One line that says what the engine is doing. No operation lets messages run.
class IStatusDisplay {
  public:
    virtual ~IStatusDisplay() = default;
    /// Shows `text`; the empty text with two false flags clears the line. Both flags are true for a
    /// wait and false for everything else; their meaning is the host's.
    virtual void ShowStatus(const String& text, bool first, bool second) = 0;
};

/// Shows nothing.
class DefaultStatusDisplay : public IStatusDisplay {
  public:
    void ShowStatus(const String&, bool, bool) override {}
};

}  // namespace ace
