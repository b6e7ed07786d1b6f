/// The host's boxes that are no forms of the engine.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// Message boxes. Each is modal; messages run while it stands.
class IUserDialogs {
  public:
    /// Icons and buttons of a box, as numbers of its style. Without `YesNo` it has one button, OK.
    static constexpr std::int32_t YesNo = 4;
    static constexpr std::int32_t Critical = 16;
    static constexpr std::int32_t Exclamation = 48;
    static constexpr std::int32_t Information = 64;

    virtual ~IUserDialogs() = default;
    /// Answers of a box.
    static constexpr std::int32_t AnswerOk = 1;
    static constexpr std::int32_t AnswerYes = 6;
    static constexpr std::int32_t AnswerNo = 7;
    /// Shows `text` under `title` with the icon and the buttons of `style`, waits for the operator
    /// and tells which button he pressed.
    virtual std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                        const String& title) = 0;
};

/// Shows nothing; a question is answered with yes.
class DefaultUserDialogs : public IUserDialogs {
  public:
    std::int32_t ShowMessageBox(const String&, std::int32_t style, const String&) override {
        return (style & YesNo) != 0 ? AnswerYes : AnswerOk;
    }
};

}  // namespace ace
