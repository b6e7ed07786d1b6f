/// The kinds of action as data: what each is by itself. What a table elsewhere decides about kinds
/// (keywords, routines, signals, failures, rules of the editor) stays there.
#pragma once

#include <span>

#include <ace/core/action_enums.h>
#include <ace/host/basic_types.h>

namespace ace {

/// The parameter record of a kind.
enum class RecordType : std::uint8_t { None, Wait, Api, Notify, Remote, SetDevice, TrackFreq };

/// The part of the action dialog in which a kind is edited; kinds without one have nothing to edit.
enum class DialogPane : std::int8_t {
    None = -1,
    Wait = 0,
    Notify = 1,
    Remote = 2,
    SetDevice = 3,
    TrackFreq = 4,
    Api = 5,
};

/// Words of a kind: the text of a number, or fixed ones where the number is 0.
struct KindWords {
    std::int32_t number = 0;
    StringView fixed = {};
    bool operator==(const KindWords&) const = default;
};

/// One kind of action.
struct ActionKind {
    p_ActionTypes kind;
    RecordType record;
    DialogPane pane;
    StringView icon;       ///< key of its picture, three letters
    KindWords palette;     ///< what the list of kinds on offer calls it
    KindWords title;       ///< what a line of the editor's tree calls it
    KindWords printTitle;  ///< what a line of the print calls it
};

/// A bit for each kind of a set; a kind outside the members is in none.
class KindSet {
  public:
    constexpr KindSet() = default;
    template <class... Kinds>
    constexpr explicit KindSet(Kinds... kinds) : x_bits(((1U << kinds) | ...)) {}
    /// The bit is looked at first: in a list where most kinds are in no set, that decides.
    constexpr bool Has(std::int32_t kind) const {
        return (x_bits >> (kind & 31) & 1U) != 0 && static_cast<std::uint32_t>(kind) < 32;
    }

  private:
    std::uint32_t x_bits = 0;
};

/// Number of kinds.
inline constexpr std::int32_t ActionKindCount = 18;

/// All kinds; the index is the kind.
std::span<const ActionKind, ActionKindCount> ActionKinds();
/// The row of a kind; none for a value outside the members.
const ActionKind* FindActionKind(std::int32_t kind);

}  // namespace ace
