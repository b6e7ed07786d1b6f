/// What every command takes: a settings file, and what of it is meant.
#pragma once

#include <optional>
#include <string>

#include "workbench/files/settings_document.h"
#include "workbench/session/set_up.h"

namespace ace::workbench {

/// The arguments as the user wrote them, in UTF-8.
struct SetUpArguments {
    std::string file{};
    std::optional<std::string> module{};
    std::optional<std::string> subRanges{};
    std::optional<std::string> matrixTemplate{};  ///< template number of a matrix
};

/// `CommandError` `WrongUse` for one that makes no sense.
SetUpOptions ReadOptions(const SetUpArguments& arguments);

/// The document of a settings file. One that is missing or can't be read is `CommandError`
/// `BadFile`, as it is below.
SettingsDocument ExistingDocument(const std::string& file);
/// The text of a file in any of the encodings of settings files.
String ExistingText(const std::string& file);

}  // namespace ace::workbench
