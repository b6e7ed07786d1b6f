/// What the host of a wireless test does beside calling its moments.
#pragma once

#include <span>

#include <ace/core/actions_engine_interface.h>

#include "workbench/session/moments.h"
#include "workbench/session/set_up.h"

namespace ace::workbench {

/// Tells a freshly loaded engine what the host knows: to a matrix its tables and what influences
/// it, to wireless tests their order and names, which are their keys, and their placeholders. Other
/// modules are told nothing. Rows of the file that the tables and flags rule out are gone
/// afterwards.
void AnnounceWireless(_aceActionsEngine& engine, const TestSetUp& setUp);

/// The placeholders that each matrix row has.
std::span<const StringView> RowPlaceholders();

/// Gives the engine the placeholders of a matrix row: those of the set-up, which win, then
/// "#MEASFREQ#" and "#FREQ#" (hertz), "#BW#" and "#POWER#" (the names) and "#HOPPING#" (0).
void FillRowPlaceholders(_aceActionsEngine& engine, const TestSetUp& setUp, const Moment& row);

/// "2402 MHz (low), 1 MHz, 0 dBm": the combination of a row.
String CombinationWords(const Matrix& matrix, const Moment& row);

/// "2402 MHz (low), 1 MHz, 0 dBm: 3 actions": the combination, and how many actions the engine has
/// for it. Where it looks for another row, because not everything influences the actions, that row
/// stands between: "..., 0 dBm, as all frequencies, all bandwidths, 0 dBm: 2 actions".
String RowWords(_aceActionsEngine& engine, const Matrix& matrix, const Moment& row);

/// How a step of a wireless test ended.
enum class Verdict {
    Passed,
    Failed,
    BrokenOff,  ///< an action, an error or a missing answer ended it before it failed
    NoActions,
};

inline constexpr std::size_t VerdictCount = 4;

/// The verdict of the step that has just run; `isStopped`: the test ends with it.
Verdict VerdictOf(_aceActionsEngine& engine, const Moment& step, bool isStopped);
/// "verdict of \"Output power\": passed"; a step without a name goes by its key.
String VerdictWords(const Moment& step, Verdict verdict);

}  // namespace ace::workbench
