#include <algorithm>
#include <span>

#include <ace/core/action_kinds.h>
#include <ace/editor/accepted_kinds.h>

namespace ace {

namespace {

bool IsEveryFrequency(StringView caption, const RuleCaptions& captions) {
    return captions.everyFrequency == caption;
}

bool IsEnd(StringView caption, const RuleCaptions& captions) {
    return captions.start == caption || captions.stop == caption;
}

// ---- adding a kind by a double click -------------------------------------------------------

constexpr KindSet AddedAtFrequency(atTrackFreq, atSetDevice, atCheckEut);
constexpr KindSet NotAddedAtEnds(atComment, atStopLevSweep, atTestStop, atGotoSingle, atNbBbEtsi);

// ---- dropping a kind -----------------------------------------------------------------------

/// How a row knows its target.
enum class Knows : std::uint8_t { EveryFrequency, Start, Ends, Key, Any };

/// What becomes of the kinds of a row; of all others the contrary.
enum class Verdict : bool { Refused, Accepted };

/// The first row of a module that fits the target decides; without one every kind is accepted.
struct DropRow {
    aceModul moduleKind;
    Knows knows;
    StringView key;  ///< first letters, for `Knows::Key`
    Verdict verdict;
    KindSet kinds;
};

constexpr KindSet NoKind;
constexpr KindSet Parking(atParkAcc);

constexpr DropRow DropRows[] = {
    {aceTemplate,
     Knows::EveryFrequency,
     {},
     Verdict::Accepted,
     KindSet(atWait, atRemote, atSetDevice, atCheckEut, atTrackFreq, atAPI)},
    {aceTemplate,
     Knows::Ends,
     {},
     Verdict::Refused,
     KindSet(atTrackFreq, atGotoSingle, atNbBbEtsi, atTestStop, atStopLevSweep, atComment)},
    {aceTemplate, Knows::Any, {}, Verdict::Refused, KindSet(atTrackFreq)},
    {aceMonitoring, Knows::Key, L"GOE", Verdict::Refused,
     KindSet(atStopLevSweep, atGotoSingle, atTestStop, atNbBbEtsi, atComment)},
    {aceMonitoring, Knows::Key, L"TRI", Verdict::Refused,
     KindSet(atStopLevSweep, atGotoSingle, atTestStop, atNbBbEtsi, atComment)},
    {aceMonitoring, Knows::Key, L"NGO", Verdict::Refused, KindSet(atParkAcc, atCheckEut)},
    {aceMonitoring, Knows::Key, L"MLC", Verdict::Refused,
     KindSet(atTestStop, atStopLevSweep, atGotoSingle, atNbBbEtsi, atComment, atCheckEut)},
    {aceEMIAutoTemplate, Knows::Start, {}, Verdict::Refused, Parking},
    {aceAziChart, Knows::Start, {}, Verdict::Refused, Parking},
    {aceVKSTemplate, Knows::Key, L"STE", Verdict::Refused, NoKind},
    {aceVKSTemplate, Knows::Any, {}, Verdict::Refused, KindSet(atQuestion, atMonitorEUT)},
    {aceVKSDUT, Knows::Key, L"TST", Verdict::Accepted, NoKind},
};

bool Fits(const DropRow& row, const RuleTarget& target, const RuleCaptions& captions) {
    switch (row.knows) {
        case Knows::EveryFrequency:
            return IsEveryFrequency(target.caption, captions);
        case Knows::Start:
            return captions.start == target.caption;
        case Knows::Ends:
            return IsEnd(target.caption, captions);
        case Knows::Key:
            return target.key.starts_with(row.key);
        case Knows::Any:
            break;
    }
    return true;
}

// ---- dragging a line -----------------------------------------------------------------------

using Icons = std::span<const StringView>;

bool IsAmong(StringView icon, Icons icons) {
    return std::ranges::find(icons, icon) != icons.end();
}

constexpr StringView LinesAtFrequency[] = {L"TRC", L"DEV", L"EUT"};
constexpr StringView NoLinesAtEnds[] = {L"MSG", L"STP", L"STL", L"SGL", L"NBB"};
constexpr StringView LinesOfSteps[] = {L"QUE", L"MON"};

/// Intentional: a tracking line is accepted where its kind on offer isn't.
bool AcceptsLineByCaption(StringView icon, StringView caption, const RuleCaptions& captions) {
    if (IsEveryFrequency(caption, captions)) {
        return IsAmong(icon, LinesAtFrequency);
    }
    return !IsEnd(caption, captions) || !IsAmong(icon, NoLinesAtEnds);
}

}  // namespace

bool AcceptsAdded(std::int32_t kind, StringView caption, const RuleCaptions& captions) {
    if (IsEveryFrequency(caption, captions)) {
        return AddedAtFrequency.Has(kind);
    }
    if (kind == atTrackFreq) {
        return false;
    }
    return !IsEnd(caption, captions) || !NotAddedAtEnds.Has(kind);
}

bool AcceptsDropped(aceModul moduleKind, std::int32_t kind, const RuleTarget& target,
                    const RuleCaptions& captions) {
    for (const DropRow& row : DropRows) {
        if (row.moduleKind == moduleKind && Fits(row, target, captions)) {
            return row.kinds.Has(kind) == (row.verdict == Verdict::Accepted);
        }
    }
    return true;
}

bool AcceptsLine(aceModul moduleKind, StringView icon, const RuleTarget& target,
                 const RuleCaptions& captions) {
    switch (moduleKind) {
        case aceTemplate:
        case aceMonitoring:
        case aceEMSAutoTemplate:
            return AcceptsLineByCaption(icon, target.caption, captions);
        case aceVKSTemplate:
            return target.key.starts_with(L"STE") || !IsAmong(icon, LinesOfSteps);
        case aceVKSDUT:
            return !target.key.starts_with(L"TST");  // a group has no list
        default:
            return true;
    }
}

}  // namespace ace
