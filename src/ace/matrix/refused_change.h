/// A change of the matrix that is refused because a row runs leaves everything as it was.
#pragma once

#include <array>

#include <ace/core/operation.h>

namespace ace {

/// A copy of some fields of the lists, to be put back.
template <class Field, std::size_t Count>
class KeptFields {
  public:
    using Fields = std::array<Field ModuleLists::*, Count>;

    KeptFields(const ModuleLists& lists, const Fields& fields) : x_fields(fields) {
        for (std::size_t i = 0; i < Count; ++i) {
            x_kept[i] = lists.*x_fields[i];
        }
    }
    void PutBack(ModuleLists& lists) {
        for (std::size_t i = 0; i < Count; ++i) {
            lists.*x_fields[i] = std::move(x_kept[i]);
        }
    }

  private:
    Fields x_fields;
    std::array<Field, Count> x_kept;
};

/// The tables, keys and flags of the matrix, without its lists.
struct MatrixTables {
    explicit MatrixTables(const ModuleLists& lists)
        : flags(lists, {&ModuleLists::VKSInfByFreq, &ModuleLists::VKSInfByBandwidth,
                        &ModuleLists::VKSInfByPower}),
          counts(lists, {&ModuleLists::VKSDUTFreqCount, &ModuleLists::VKSDUTBandwidthCount,
                         &ModuleLists::VKSDUTPowerCount}),
          names(lists, {&ModuleLists::VKSDUTFreqNames, &ModuleLists::VKSDUTBandwidthNames,
                        &ModuleLists::VKSDUTPowerNames}),
          frequencies(lists, {&ModuleLists::VKSDUTFreqs}),
          keys(lists, {&ModuleLists::VKSDUTIds}) {}
    void PutBack(ModuleLists& lists) {
        flags.PutBack(lists);
        counts.PutBack(lists);
        names.PutBack(lists);
        frequencies.PutBack(lists);
        keys.PutBack(lists);
    }

    KeptFields<Boolean, 3> flags;
    KeptFields<std::int32_t, 3> counts;
    KeptFields<DynArray<String>, 3> names;
    KeptFields<DynArray<double>, 1> frequencies;
    KeptFields<Array2D<double>, 1> keys;
};

/// Runs a change of the matrix. While one of its rows runs none can be added or removed; whether
/// that is needed is found out in the midst, and a change that is refused so is undone.
template <class Change>
void ChangeOrUndo(EngineState& state, const Statements& stmt, Change&& change) {
    if (!state.VKSSteps.IsHeld()) {
        change();
        return;
    }
    MatrixTables before = stmt([&] { return MatrixTables(state); });
    try {
        change();
    } catch (const RunTimeError& error) {
        if (error.Number() == Errors::ArrayInUse) {
            before.PutBack(state);
        }
        throw;
    }
}

}  // namespace ace
