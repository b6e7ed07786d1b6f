/// The editor's menus.
#pragma once

#include <functional>

#include <ace/host/user_dialogs.h>

namespace ace {

/// A menu that somebody fills and shows, and whose choice goes to one handler.
struct PopUpMenu {
    std::vector<MenuItem> items;
    std::function<void(const MenuItem& chosen)> onClick;

    /// Shows the items at the mouse, and runs `onClick` with the chosen one, if any. Messages run.
    void PopUp(IUserDialogs& dialogs) const {
        const std::vector<MenuItem> shown = items;
        const std::optional<std::size_t> chosen = dialogs.ShowPopupMenu(shown);
        if (chosen && *chosen < shown.size() && onClick) {
            onClick(shown[*chosen]);
        }
    }
};

}  // namespace ace
