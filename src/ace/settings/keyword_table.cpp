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

using enum LineRecord;
using namespace modActions;  // NOLINT(google-build-using-namespace): the table names all of it

constexpr KeywordRow Rows[] = {
    {L"WAIT:", atWait, Wait, All, ReadWait, WriteWait},
    {L"API:", atAPI, Api, All, ReadApi, WriteApi},
    {L"COMMENT:", atComment, Notify, Enter, ReadComment, WriteComment},
    {L"NOTIFY:", atNotify, Notify, All, ReadNotify, WriteNotify},
    {L"QUESTION:", atQuestion, Notify, Enter, ReadNotify, WriteNotify},
    {L"MSG:", atNotify, Notify, Enter | Leave | Freq, ReadMessage, nullptr},
    {L"SOUND:", atNotify, Notify, All, ReadSound, nullptr},
    {L"REMOTE:", atRemote, Remote, All, ReadRemote, WriteRemote},
    {L"GPIB:", atRemote, Remote, Enter | Leave, ReadGpib, nullptr},
    {L"DLL:", atRemote, Remote, Enter | Leave, ReadProgram, nullptr},
    {L"STOP:", atTestStop, None, Enter, nullptr, WriteNothing},
    {L"STPLEV:", atStopLevSweep, None, Enter, nullptr, WriteNothing},
    {L"GOTOSGL:", atGotoSingle, None, Enter, nullptr, WriteNothing},
    {L"PROTREC:", atProtRec, None, Enter | Leave, nullptr, WriteNothing},
    {L"NBBETSI:", atNbBbEtsi, None, Enter, nullptr, WriteNothing},
    {L"PARKACC:", atParkAcc, None, Enter | Leave, nullptr, WriteNothing},
    {L"SETDEV:", atSetDevice, SetDevice, All, ReadSetDevice, WriteSetDevice},
    {L"CHECKEUT:", atCheckEut, SetDevice, Enter | Leave | Freq, ReadCheckEut, WriteCheckEut},
    {L"MONITOREUT:", atMonitorEUT, SetDevice, Enter, ReadCheckEut, WriteCheckEut},
    {L"SWITCHAMP:", atSwitchAmp, SetDevice, Enter | Leave, ReadSwitchAmp, WriteSwitchAmp},
    {L"SWITCHUNIT:", atSwitchUnit, SetDevice, All, ReadSwitchUnit, WriteSwitchUnit},
    {L"SYNCGEN:", atTrackFreq, TrackFreq, Freq, ReadSyncGen, nullptr},
    {L"FREQTRACK:", atTrackFreq, TrackFreq, Freq, ReadTrackFreq, WriteTrackFreq},
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
