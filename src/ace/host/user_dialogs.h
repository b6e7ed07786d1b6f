/// The host's boxes, menus and pointer that are no forms of the engine.
#pragma once

#include <optional>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace {

/// What a file open dialog starts with.
struct FileQuestion {
    String filter = {};            ///< pairs "words|pattern;pattern", separated by "|" too
    String defaultExtension = {};  ///< such as "*.wav"
    String file = {};              ///< the whole path that is chosen at first; empty for none
};

/// One line of a popup menu.
struct MenuItem {
    std::int32_t command = 0;  ///< the number by which the engine knows it
    String caption = {};
    Boolean isChecked = false;  ///< marked as the present one
};

/// Message boxes, the file dialog and popup menus. Each is modal; messages run while it stands. A
/// view of a form reads all controls again before one comes up: the act that asks for it may have
/// moved the focus, or changed what shows.
class IUserDialogs {
  public:
    /// Icons and buttons of a box, as numbers of its style. Without `YesNo` it has one button, OK.
    static constexpr std::int32_t YesNo = 4;
    static constexpr std::int32_t Critical = 16;
    static constexpr std::int32_t Question = 32;
    static constexpr std::int32_t Exclamation = 48;
    static constexpr std::int32_t Information = 64;

    virtual ~IUserDialogs() = default;
    /// Answers of a box.
    static constexpr std::int32_t AnswerOk = 1;
    static constexpr std::int32_t AnswerYes = 6;
    static constexpr std::int32_t AnswerNo = 7;
    /// Shows `text` under `title` with the icon and the buttons of `style`, waits for the operator
    /// and tells which button was pressed.
    virtual std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                        const String& title) = 0;
    /// Lets the operator choose a file that is there: its whole path, or none when it is cancelled.
    virtual std::optional<String> OpenFile(const FileQuestion& question) = 0;
    /// Shows a menu at the mouse. Index of the item that is chosen, from 0; none when the operator
    /// goes elsewhere.
    virtual std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>& items) = 0;
    /// Shows the pointer of a busy program, or the usual one again. Lets no messages run.
    virtual void SetBusyPointer(Boolean busy) = 0;
};

/// Shows nothing; a question is answered with yes, no file and no item is chosen.
class DefaultUserDialogs : public IUserDialogs {
  public:
    std::int32_t ShowMessageBox(const String&, std::int32_t style, const String&) override {
        return (style & YesNo) != 0 ? AnswerYes : AnswerOk;
    }
    std::optional<String> OpenFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>&) override {
        return std::nullopt;
    }
    void SetBusyPointer(Boolean) override {}
};

}  // namespace ace
