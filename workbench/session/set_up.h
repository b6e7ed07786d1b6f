/// Reads what is tested: from the sections "Workbench..." of a settings file, and from options.
#pragma once

#include "workbench/files/settings_document.h"
#include "workbench/session/test_set_up.h"
#include "workbench/words/outcome.h"

namespace ace::workbench {

/// So many combinations of frequency, bandwidth and power.
std::size_t CombinationsOf(const Matrix& matrix);

/// The part of `ReadSetUp` that the lists of a test need: all but its frequencies, its kind and
/// what its channels go by.
TestSetUp ReadListsSetUp(const SettingsDocument& document, const String& path,
                         const SetUpOptions& options);

/// Works out the test. `path` is for messages. Raises `CommandError`: `BadFile` for a key or a
/// sweep of the file that makes no sense, with its place, `WrongUse` for an option that makes none,
/// and where neither the file nor an option says what is needed.
TestSetUp ReadSetUp(const SettingsDocument& document, const String& path,
                    const SetUpOptions& options);

}  // namespace ace::workbench
