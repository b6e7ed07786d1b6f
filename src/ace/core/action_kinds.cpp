#include <ace/core/action_kinds.h>

namespace ace {

namespace {

using Record = RecordType;
using Pane = DialogPane;

/// Indexed by kind. Only a question is called differently in the tree and in the print.
constexpr ActionKind Kinds[ActionKindCount] = {
    {atWait, Record::Wait, Pane::Wait, L"WAI", {9033}, {9063}, {9063}},
    {atNotify, Record::Notify, Pane::Notify, L"NOT", {9034}, {9064}, {9064}},
    {atRemote, Record::Remote, Pane::Remote, L"REM", {9032}, {9062}, {9062}},
    {atSetDevice, Record::SetDevice, Pane::SetDevice, L"DEV", {9031}, {9061}, {9061}},
    {atCheckEut, Record::SetDevice, Pane::SetDevice, L"EUT", {9035}, {9065}, {9065}},
    {atTrackFreq, Record::TrackFreq, Pane::TrackFreq, L"TRC", {9037}, {9066}, {9066}},
    {atComment, Record::Notify, Pane::Notify, L"MSG", {9039}, {9069}, {9069}},
    {atProtRec, Record::None, Pane::None, L"REC", {9038}, {9068}, {9068}},
    {atTestStop, Record::None, Pane::None, L"STP", {9040}, {9070}, {9070}},
    {atGotoSingle, Record::None, Pane::None, L"SGL", {9042}, {9042}, {9042}},
    {atStopLevSweep, Record::None, Pane::None, L"STL", {9041}, {9071}, {9071}},
    {atNbBbEtsi, Record::None, Pane::None, L"NBB", {9072}, {9072}, {9072}},
    {atSwitchAmp, Record::SetDevice, Pane::SetDevice, L"SWA", {9073}, {9073}, {9073}},
    {atSwitchUnit, Record::SetDevice, Pane::SetDevice, L"SWU", {9074}, {9074}, {9074}},
    {atAPI, Record::Api, Pane::Api, L"API", {9078}, {9078}, {9078}},
    {atParkAcc, Record::None, Pane::None, L"PAC", {9077}, {9077}, {9077}},
    {atQuestion, Record::Notify, Pane::Notify, L"QUE", {0, L"Question"}, {0, L"Question"}, {9064}},
    {atMonitorEUT,
     Record::SetDevice,
     Pane::SetDevice,
     L"MON",
     {0, L"Monitor"},
     {0, L"Monitor EUT"},
     {0, L"Monitor EUT"}},
};

constexpr bool StandAtTheirIndex() {
    for (std::int32_t i = 0; i < ActionKindCount; ++i) {
        if (Kinds[i].kind != i) {
            return false;
        }
    }
    return true;
}
static_assert(StandAtTheirIndex());

}  // namespace

std::span<const ActionKind, ActionKindCount> ActionKinds() {
    return Kinds;
}

const ActionKind* FindActionKind(std::int32_t kind) {
    return kind >= 0 && kind < ActionKindCount ? &Kinds[kind] : nullptr;
}

}  // namespace ace
