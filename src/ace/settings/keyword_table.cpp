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
    {L"WAIT:", atWait, All, ReadWait, WriteWait},
    {L"API:", atAPI, All, ReadApi, WriteApi},
    {L"COMMENT:", atComment, Enter, ReadComment, WriteComment},
    {L"NOTIFY:", atNotify, All, ReadNotify, WriteNotify},
    {L"QUESTION:", atQuestion, Enter, ReadNotify, WriteNotify},
    {L"MSG:", atNotify, Enter | Leave | Freq, ReadMessage, nullptr},
    {L"SOUND:", atNotify, All, ReadSound, nullptr},
    {L"REMOTE:", atRemote, All, ReadRemote, WriteRemote},
    {L"GPIB:", atRemote, Enter | Leave, ReadGpib, nullptr},
    {L"DLL:", atRemote, Enter | Leave, ReadProgram, nullptr},
    {L"STOP:", atTestStop, Enter, nullptr, WriteNothing},
    {L"STPLEV:", atStopLevSweep, Enter, nullptr, WriteNothing},
    {L"GOTOSGL:", atGotoSingle, Enter, nullptr, WriteNothing},
    {L"PROTREC:", atProtRec, Enter | Leave, nullptr, WriteNothing},
    {L"NBBETSI:", atNbBbEtsi, Enter, nullptr, WriteNothing},
    {L"PARKACC:", atParkAcc, Enter | Leave, nullptr, WriteNothing},
    {L"SETDEV:", atSetDevice, All, ReadSetDevice, WriteSetDevice},
    {L"CHECKEUT:", atCheckEut, Enter | Leave | Freq, ReadCheckEut, WriteCheckEut},
    {L"MONITOREUT:", atMonitorEUT, Enter, ReadCheckEut, WriteCheckEut},
    {L"SWITCHAMP:", atSwitchAmp, Enter | Leave, ReadSwitchAmp, WriteSwitchAmp},
    {L"SWITCHUNIT:", atSwitchUnit, All, ReadSwitchUnit, WriteSwitchUnit},
    {L"SYNCGEN:", atTrackFreq, Freq, ReadSyncGen, nullptr},
    {L"FREQTRACK:", atTrackFreq, Freq, ReadTrackFreq, WriteTrackFreq},
};

}  // namespace

std::span<const KeywordRow> KeywordTable() {
    return Rows;
}

const KeywordRow* FindKeyword(StringView keyword) {
    for (const KeywordRow& row : Rows) {
        if (EqualNoCase(row.keyword, keyword)) {
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
