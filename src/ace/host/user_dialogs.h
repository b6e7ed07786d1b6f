/// The host's boxes that are no forms of the engine.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// Message boxes. Each is modal; messages run while it stands.
class IUserDialogs {
  public:
    /// Icons of a box, as numbers of its style.
    static constexpr std::int32_t Critical = 16;
    static constexpr std::int32_t Exclamation = 48;
    static constexpr std::int32_t Information = 64;

    virtual ~IUserDialogs() = default;
    /// Shows `text` under `title` with the icon of `style` and waits for the operator.
    virtual void ShowMessageBox(const String& text, std::int32_t style, const String& title) = 0;
};

/// Shows nothing.
class DefaultUserDialogs : public IUserDialogs {
  public:
    void ShowMessageBox(const String&, std::int32_t, const String&) override {}
};

}  // namespace ace
