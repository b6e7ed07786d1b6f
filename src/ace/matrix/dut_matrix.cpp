#include <ace/core/action_store.h>
#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>
#include <ace/host/checked_numbers.h>
#include <ace/matrix/dut_matrix.h>
#include <ace/matrix/matrix_rows.h>
#include <ace/matrix/refused_change.h>
#include <ace/matrix/row_removal.h>

namespace ace {

namespace {

constexpr std::int32_t TestModeTemplate = 0;  ///< the template number that knows the test mode

/// One of the three dimensions of the matrix.
struct Dimension {
    std::size_t column;
    Boolean ModuleLists::*influences;
    std::int32_t ModuleLists::*count;
};
constexpr Dimension Frequencies{0, &ModuleLists::VKSInfByFreq, &ModuleLists::VKSDUTFreqCount};
constexpr Dimension Bandwidths{1, &ModuleLists::VKSInfByBandwidth,
                               &ModuleLists::VKSDUTBandwidthCount};
constexpr Dimension Powers{2, &ModuleLists::VKSInfByPower, &ModuleLists::VKSDUTPowerCount};

/// A dimension whose entries are known by their place in a table of names.
struct NamedDimension {
    Dimension dimension;
    DynArray<String> ModuleLists::*names;
};
constexpr NamedDimension BandwidthTable{Bandwidths, &ModuleLists::VKSDUTBandwidthNames};
constexpr NamedDimension PowerTable{Powers, &ModuleLists::VKSDUTPowerNames};

/// What the rows say of an entry of a dimension's table.
double ValueOf(const EngineState& state, const Dimension& dimension, std::int32_t entry) {
    return dimension.column == Frequencies.column ? state.VKSDUTFreqs[entry] : entry;
}

/// Index of the first frequency in the table that equals `frequency`; -1 for none.
std::int32_t FindFrequency(const EngineState& state, double frequency) {
    for (std::int32_t i = 0; i < state.VKSDUTFreqCount; ++i) {
        if (state.VKSDUTFreqs[i] == frequency) {
            return i;
        }
    }
    return -1;
}

// ---- rebuilding ----------------------------------------------------------------------------

/// Rows of values that are not in the table stay: a file may hold some that the host never tells.
void DeleteStaleRows(EngineState& state, const Statements& stmt, const Dimension& dimension) {
    if (state.*dimension.influences) {
        DeleteRowsOfEach(state, stmt, dimension.column, 1, [](std::int32_t) { return All; });
        return;
    }
    const bool keepsTestMode =
        dimension.column == Frequencies.column && state.VKSDUTTemplate == TestModeTemplate;
    const auto staleValue = [&](std::int32_t entry) -> std::optional<double> {
        const double value = stmt([&] { return ValueOf(state, dimension, entry); });
        return value == TestMode && keepsTestMode ? std::nullopt : std::optional(value);
    };
    DeleteRowsOfEach(state, stmt, dimension.column, state.*dimension.count, staleValue);
}

/// The entries of a dimension that rows are made for: those of its table, or -1 alone.
struct EntryRange {
    std::int32_t first;
    std::int32_t end;
};
EntryRange EntriesOf(const EngineState& state, const Dimension& dimension) {
    return state.*dimension.influences ? EntryRange{0, state.*dimension.count} : EntryRange{-1, 0};
}

/// The rows of one frequency; those of the test mode stand directly behind those for all
/// frequencies.
void CreateRows(EngineState& state, const Statements& stmt, RowKeys& keys, double frequency,
                bool withTestMode) {
    const EntryRange bandwidths = EntriesOf(state, Bandwidths);
    const EntryRange powers = EntriesOf(state, Powers);
    for (std::int32_t bandwidth = bandwidths.first; bandwidth < bandwidths.end; ++bandwidth) {
        for (std::int32_t power = powers.first; power < powers.end; ++power) {
            const double b = bandwidth;
            const double p = power;
            stmt([&] { AddVKSDUTStep(state, keys, {frequency, b, p}); });
            if (withTestMode) {
                stmt([&] { AddVKSDUTStep(state, keys, {TestMode, b, p}); });
            }
        }
    }
}

void CreateMissingRows(EngineState& state, const Statements& stmt) {
    const bool hasTestMode = stmt([&] { return FindFrequency(state, TestMode) >= 0; });
    RowKeys keys = stmt([&] { return RowKeys(state); });
    if (!state.VKSInfByFreq) {
        const bool withTestMode = hasTestMode && state.VKSDUTTemplate == TestModeTemplate;
        CreateRows(state, stmt, keys, All, withTestMode);
        return;
    }
    for (std::int32_t entry = 0; entry < state.VKSDUTFreqCount; ++entry) {
        const double value = stmt([&] { return ValueOf(state, Frequencies, entry); });
        CreateRows(state, stmt, keys, value, false);
    }
}

// ---- the tables ----------------------------------------------------------------------------

/// An id that is missing, or above the last, is not kept: the name goes to the next place.
void AddName(EngineState& state, const Statements& stmt, const NamedDimension& table,
             const String& name, std::int32_t id) {
    constexpr std::int32_t Missing = -1;
    std::int32_t& count = state.*table.dimension.count;
    DynArray<String>& names = state.*table.names;
    if (id == Missing || id >= count) {
        const std::int32_t last = count;
        stmt([&] { names.RedimPreserve(last); });
        stmt([&] { names[last] = name; });
        stmt([&] { count = CheckedSum(count, 1); });
    } else if (id >= 0) {
        stmt([&] { names[id] = name; });
    }
    stmt([&] { VKSCreateDUTSteps(state); });
}

/// The ids of the rows follow the table, because they are its indexes. Intentional: no range
/// is asked, so an id behind the table costs the last name.
void RemoveName(EngineState& state, const Statements& stmt, const NamedDimension& table,
                std::int32_t id) {
    const Dimension& dimension = table.dimension;
    DeleteRows(state, stmt, dimension.column, id);
    std::int32_t& count = state.*dimension.count;
    if (count < 1) {
        return;
    }
    DynArray<String>& names = state.*table.names;
    CloseGap(stmt, names, id, count - 1);
    const auto column = static_cast<std::int32_t>(dimension.column);
    for (std::int32_t row = 0; row < state.VKSStepCount; ++row) {
        stmt([&] {
            double& value = state.VKSDUTIds(row, column);
            if (value > id) {
                value -= 1.0;
            }
        });
    }
    --count;
    stmt([&] { names.RedimPreserve(count); });
}

void AddFrequency(EngineState& state, const Statements& stmt, const String& name,
                  double frequency) {
    const std::int32_t found = stmt([&] { return FindFrequency(state, frequency); });
    if (found >= 0) {
        stmt([&] { state.VKSDUTFreqNames[found] = name; });
        return;
    }
    const std::int32_t last = state.VKSDUTFreqCount;
    stmt([&] { state.VKSDUTFreqNames.RedimPreserve(last); });
    stmt([&] { state.VKSDUTFreqs.RedimPreserve(last); });
    stmt([&] { state.VKSDUTFreqNames[last] = name; });
    stmt([&] { state.VKSDUTFreqs[last] = frequency; });
    stmt([&] { state.VKSDUTFreqCount = CheckedSum(last, 1); });
}

void RemoveFrequency(EngineState& state, const Statements& stmt, double frequency) {
    DeleteRows(state, stmt, Frequencies.column, frequency);
    const std::int32_t found = stmt([&] { return FindFrequency(state, frequency); });
    if (found < 0) {
        return;
    }
    std::int32_t& count = state.VKSDUTFreqCount;
    CloseGap(stmt, state.VKSDUTFreqs, found, count - 1);
    CloseGap(stmt, state.VKSDUTFreqNames, found, count - 1);
    --count;
    stmt([&] { state.VKSDUTFreqs.RedimPreserve(count); });
    stmt([&] { state.VKSDUTFreqNames.RedimPreserve(count); });
}

// ---- trace lines ---------------------------------------------------------------------------

/// Intentional: two operations name themselves after another one, and one of them stands in the
/// place of the component. Readers of traces know them so.
constexpr TraceLines AddFrequencyLines = EngineLines(L"AddVKSDUTPowerID");
constexpr TraceLines InfluenceLines{L"AddVKSDUTPowerID", EngineModule, L"SetVKSDUTInfluence",
                                    L"SetVKSDUTInfluence"};

String IdMessage(StringView word, std::int32_t id) {
    return String(word) + L" = " + std::to_wstring(id);
}

// ---- operations that delete --------------------------------------------------------------------

void DeleteFrequency(EngineState& state, double frequency) {
    const auto message = [&] { return FreqMessage(state.Context, frequency); };
    Logged(state.Context, EngineLines(L"DeleteVKSDUTFreq"), message,
           [&](const Statements& stmt) { RemoveFrequency(state, stmt, frequency); });
}

void DeleteBandwidth(EngineState& state, std::int32_t id) {
    Logged(
        state.Context, EngineLines(L"DeleteVKSDUTBandwidthID"),
        [&] { return IdMessage(L"BandwidthID", id); },
        [&](const Statements& stmt) { RemoveName(state, stmt, BandwidthTable, id); });
}

/// Intentional: its start line has no message, unlike that of its twin.
void DeletePower(EngineState& state, std::int32_t id) {
    Logged(state.Context, EngineLines(L"DeleteVKSDUTPowerID"), NoMessage,
           [&](const Statements& stmt) { RemoveName(state, stmt, PowerTable, id); });
}

}  // namespace

void VKSCreateDUTSteps(EngineState& state) {
    Logged(state.Context, EngineLines(L"VKSCreateDUTSteps"), NoMessage,
           [&](const Statements& stmt) {
               for (const Dimension& dimension : {Frequencies, Bandwidths, Powers}) {
                   DeleteStaleRows(state, stmt, dimension);
               }
               CreateMissingRows(state, stmt);
           });
}

Boolean aceActionsEngine::VKSInfByFreq() {
    return x_state->VKSInfByFreq;
}

Boolean aceActionsEngine::VKSInfByBandwidth() {
    return x_state->VKSInfByBandwidth;
}

Boolean aceActionsEngine::VKSInfByPower() {
    return x_state->VKSInfByPower;
}

void aceActionsEngine::SetVKSDUTInfluence(std::int32_t InfluencedByFreq,
                                          std::int32_t InfluencedByBandwidth,
                                          std::int32_t InfluencedbyPower) {
    const std::shared_ptr<EngineState> state = x_state;
    Logged(state->Context, InfluenceLines, NoMessage, [&](const Statements& stmt) {
        ChangeOrUndo(*state, stmt, [&] {
            state->VKSInfByFreq = InfluencedByFreq != 0;
            state->VKSInfByBandwidth = InfluencedByBandwidth != 0;
            state->VKSInfByPower = InfluencedbyPower != 0;
            stmt([&] { VKSCreateDUTSteps(*state); });
        });
    });
}

void aceActionsEngine::AddVKSDUTFreq(const String& FreqString, double Freq) {
    const std::shared_ptr<EngineState> state = x_state;
    const auto message = [&] { return FreqMessage(state->Context, Freq); };
    Logged(state->Context, AddFrequencyLines, message, [&](const Statements& stmt) {
        ChangeOrUndo(*state, stmt, [&] {
            AddFrequency(*state, stmt, FreqString, Freq);
            stmt([&] { VKSCreateDUTSteps(*state); });
        });
    });
}

void aceActionsEngine::AddVKSDUTBandwidthID(const String& BandwidthString,
                                            std::int32_t BandwidthID) {
    const std::shared_ptr<EngineState> state = x_state;
    const auto message = [&] { return IdMessage(L"BandwidthID", BandwidthID); };
    Logged(state->Context, EngineLines(L"AddVKSDUTBandwidthID"), message,
           [&](const Statements& stmt) {
               ChangeOrUndo(*state, stmt, [&] {
                   AddName(*state, stmt, BandwidthTable, BandwidthString, BandwidthID);
               });
           });
}

void aceActionsEngine::AddVKSDUTPowerID(const String& PowerString, std::int32_t PowerID) {
    const std::shared_ptr<EngineState> state = x_state;
    const auto message = [&] { return IdMessage(L"PowerID", PowerID); };
    Logged(state->Context, EngineLines(L"AddVKSDUTPowerID"), message, [&](const Statements& stmt) {
        ChangeOrUndo(*state, stmt,
                     [&] { AddName(*state, stmt, PowerTable, PowerString, PowerID); });
    });
}

void aceActionsEngine::DeleteVKSDUTFreq(double Freq) {
    const std::shared_ptr<EngineState> state = x_state;
    DeleteFrequency(*state, Freq);
}

void aceActionsEngine::DeleteVKSDUTBandwidthID(std::int32_t BandwidthID) {
    const std::shared_ptr<EngineState> state = x_state;
    DeleteBandwidth(*state, BandwidthID);
}

void aceActionsEngine::DeleteVKSDUTPowerID(std::int32_t PowerID) {
    const std::shared_ptr<EngineState> state = x_state;
    DeletePower(*state, PowerID);
}

/// Each dimension as often as it has entries at the start.
void aceActionsEngine::DeleteVKSDUTAll() {
    const std::shared_ptr<EngineState> state = x_state;
    Logged(state->Context, EngineLines(L"DeleteVKSDUTAll"), NoMessage, [&](const Statements& stmt) {
        ChangeOrUndo(*state, stmt, [&] {
            for (std::int32_t i = state->VKSDUTPowerCount; i > 0; --i) {
                stmt([&] { DeletePower(*state, 0); });
            }
            for (std::int32_t i = state->VKSDUTBandwidthCount; i > 0; --i) {
                stmt([&] { DeleteBandwidth(*state, 0); });
            }
            for (std::int32_t i = state->VKSDUTFreqCount; i > 0; --i) {
                stmt([&] { DeleteFrequency(*state, state->VKSDUTFreqs[0]); });
            }
        });
    });
}

}  // namespace ace
