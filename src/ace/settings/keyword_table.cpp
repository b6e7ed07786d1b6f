#include <array>

#include <ace/core/text.h>
#include <ace/settings/keyword_table.h>
#include <ace/settings/record_lines.h>

namespace ace {

namespace {

constexpr std::uint8_t Enter = 1;
constexpr std::uint8_t Leave = 2;
constexpr std::uint8_t Freq = 4;
constexpr std::uint8_t Mlc = 8;
constexpr std::uint8_t All = Enter | Leave | Freq | Mlc;

using namespace modActions;  // NOLINT(google-build-using-namespace): the table names all of it

constexpr KeywordRow Rows[] = {
    {L"WAIT:", atWait, All, ReadWait, WriteWait, LineForms::Wait},
    {L"API:", atAPI, All, ReadApi, WriteApi, LineForms::Whole},
    {L"COMMENT:", atComment, Enter, ReadComment, WriteComment, LineForms::Comment},
    {L"NOTIFY:", atNotify, All, ReadNotify, WriteNotify, LineForms::Notify},
    {L"QUESTION:", atQuestion, Enter, ReadNotify, WriteNotify, LineForms::Notify},
    {L"MSG:", atNotify, Enter | Leave | Freq, ReadMessage, nullptr, LineForms::Whole},
    {L"SOUND:", atNotify, All, ReadSound, nullptr, LineForms::Whole},
    {L"REMOTE:", atRemote, All, ReadRemote, WriteRemote, LineForms::Remote},
    {L"GPIB:", atRemote, Enter | Leave, ReadGpib, nullptr, LineForms::Gpib},
    {L"DLL:", atRemote, Enter | Leave, ReadProgram, nullptr, LineForms::Whole},
    {L"STOP:", atTestStop, Enter, nullptr, WriteNothing, LineForms::Whole},
    {L"STPLEV:", atStopLevSweep, Enter, nullptr, WriteNothing, LineForms::Whole},
    {L"GOTOSGL:", atGotoSingle, Enter, nullptr, WriteNothing, LineForms::Whole},
    {L"PROTREC:", atProtRec, Enter | Leave, nullptr, WriteNothing, LineForms::Whole},
    {L"NBBETSI:", atNbBbEtsi, Enter, nullptr, WriteNothing, LineForms::Whole},
    {L"PARKACC:", atParkAcc, Enter | Leave, nullptr, WriteNothing, LineForms::Whole},
    {L"SETDEV:", atSetDevice, All, ReadSetDevice, WriteSetDevice, LineForms::SetDevice},
    {L"CHECKEUT:", atCheckEut, Enter | Leave | Freq, ReadCheckEut, WriteCheckEut,
     LineForms::CheckEut},
    {L"MONITOREUT:", atMonitorEUT, Enter, ReadCheckEut, WriteCheckEut, LineForms::CheckEut},
    {L"SWITCHAMP:", atSwitchAmp, Enter | Leave, ReadSwitchAmp, WriteSwitchAmp,
     LineForms::SwitchAmp},
    {L"SWITCHUNIT:", atSwitchUnit, All, ReadSwitchUnit, WriteSwitchUnit, LineForms::SwitchUnit},
    {L"SYNCGEN:", atTrackFreq, Freq, ReadSyncGen, nullptr, LineForms::SyncGen},
    {L"FREQTRACK:", atTrackFreq, Freq, ReadTrackFreq, WriteTrackFreq, LineForms::TrackFreq},
};

constexpr std::size_t LongestKeyword = 11;

/// The rows by the length of their keyword, so that a keyword is compared with few others.
struct RowsByLength {
    std::array<std::uint8_t, std::size(Rows)> rows{};
    std::array<std::uint8_t, LongestKeyword + 1> end{};  ///< behind the rows of that length
};
constexpr RowsByLength SortedByLength() {
    RowsByLength sorted;
    std::uint8_t next = 0;
    for (std::size_t length = 0; length <= LongestKeyword; ++length) {
        for (std::size_t row = 0; row < std::size(Rows); ++row) {
            if (Rows[row].keyword.size() == length) {
                sorted.rows[next++] = static_cast<std::uint8_t>(row);
            }
        }
        sorted.end[length] = next;
    }
    return sorted;
}
constexpr RowsByLength ByLength = SortedByLength();
static_assert(ByLength.end[LongestKeyword] == std::size(Rows), "a longer keyword");

}  // namespace

std::span<const KeywordRow> KeywordTable() {
    return Rows;
}

const KeywordRow* FindKeyword(StringView keyword) {
    if (keyword.size() > LongestKeyword) {
        return nullptr;
    }
    const std::size_t end = ByLength.end[keyword.size()];
    for (std::size_t i = keyword.empty() ? 0 : ByLength.end[keyword.size() - 1]; i < end; ++i) {
        const KeywordRow& row = Rows[ByLength.rows[i]];
        if (IsWord(row.keyword, keyword)) {
            return &row;
        }
    }
    return nullptr;
}

const KeywordRow* FindWriter(p_ActionTypes kind) {
    for (const KeywordRow& row : Rows) {
        if (row.kind == kind && row.write != nullptr) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace ace
