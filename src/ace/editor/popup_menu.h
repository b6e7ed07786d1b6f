/// The editor's menus.
#pragma once

#include <ace/host/user_dialogs.h>

namespace ace {

/// A menu that somebody fills and shows.
struct PopUpMenu {
    std::vector<MenuItem> items;

    /// Shows the items at the mouse: the chosen one, or none. Messages run.
    std::optional<MenuItem> PopUp(IUserDialogs& dialogs) const {
        const std::vector<MenuItem> shown = items;
        const std::optional<std::size_t> chosen = dialogs.ShowPopupMenu(shown);
        return chosen && *chosen < shown.size() ? std::optional(shown[*chosen]) : std::nullopt;
    }
};

}  // namespace ace
