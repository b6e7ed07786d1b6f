#include <algorithm>
#include <array>

#include <ace/core/action_records.h>
#include <ace/core/text.h>
#include <ace/settings/line_forms.h>

namespace ace {

namespace {

using enum FieldReading;
using enum LineField;

constexpr FormField WaitFields[] = {{Number, Time}};
constexpr FormField NotifyFields[] = {{Text, Message}, {Text, WaveFile}, {Flag, Beep}};
constexpr FormField CommentFields[] = {{Number, GeneratorOff}};
constexpr FormField SetDeviceFields[] = {
    {Text, DevName}, {StrictNumber, ChanNo}, {Text, DeviceSigPathName}};
constexpr FormField CheckEutFields[] = {
    {Text, DevName},           {StrictNumber, ChanNo}, {Flag, StopTest},    {Flag, CommToTable},
    {Flag, LineField::Notify}, {Flag, UseTimeCyc},     {Number, CycleTime}, {Flag, WaitState},
    {Number, WaitTime},        {Number, LoadingPos}};
constexpr FormField SwitchAmpFields[] = {{Text, DevName}, {StrictNumber, AmpState}};
constexpr FormField SwitchUnitFields[] = {{Text, DevName}, {Text, Path}};
constexpr FormField GeneratorFields[] = {{Text, GenName},           {Text, TableName},
                                         {StrictNumber, TableType}, {StrictNumber, TableMeasClass},
                                         {Truth, AskOnMeasStart},   {Text, TrackSigPathName}};
constexpr FormField MonitorFields[] = {{Text, MoniName}, {StrictNumber, DelayTime}};
constexpr FormField GpibFields[] = {{Number, GpibAddress}, {Number, Terminator}, {Text, Command}};

constexpr FormField Transport = {StrictNumber, Iface};
/// A command is written with a comma behind its last field.
constexpr std::array<FormField, 7> RemoteFields(FormField transport, FormField address,
                                                FormField last) {
    return {{{Text, Command},
             transport,
             address,
             last,
             {Text, RemoteProgram},
             {Flag, WaitPrgSync},
             {}}};
}
constexpr auto NoCommandFields = RemoteFields({}, {}, {});
constexpr auto BusFields = RemoteFields(Transport, {Number, GpibAddress}, {Number, Terminator});
constexpr auto SerialFields = RemoteFields(Transport, {Number, SerComPort}, {Number, Terminator});
constexpr auto SocketFields = RemoteFields(Transport, {Text, TcpHost}, {Port, TcpPort});
constexpr auto NoTransportFields = RemoteFields(Transport, {}, {});

std::span<const FormField> RemoteFieldsOf(StringView value) {
    const std::size_t comma = value.find(L',');
    if (comma == 0 || value.empty()) {
        return NoCommandFields;
    }
    const StringView rest = comma == StringView::npos ? StringView() : value.substr(comma + 1);
    switch (ReadStrictInteger(rest.substr(0, rest.find(L',')))) {
        case aceRemote::Gpib:
            return BusFields;
        case aceRemote::Serial:
            return SerialFields;
        case aceRemote::TcpIp:
            return SocketFields;
        default:
            return NoTransportFields;
    }
}

}  // namespace

LineForm LineForms::Wait(StringView) {
    return {WaitFields};
}
LineForm LineForms::Notify(StringView) {
    return {NotifyFields};
}
LineForm LineForms::Comment(StringView) {
    return {CommentFields};
}
LineForm LineForms::Remote(StringView value) {
    return {RemoteFieldsOf(value)};
}
LineForm LineForms::Gpib(StringView) {
    return {GpibFields, true};
}
LineForm LineForms::SetDevice(StringView) {
    return {SetDeviceFields};
}
LineForm LineForms::CheckEut(StringView) {
    return {CheckEutFields};
}
LineForm LineForms::SwitchAmp(StringView) {
    return {SwitchAmpFields};
}
LineForm LineForms::SwitchUnit(StringView) {
    return {SwitchUnitFields};
}
LineForm LineForms::TrackFreq(StringView value) {
    const bool isGenerator = std::ranges::count(value, L',') >= 4;
    return isGenerator ? SyncGen(value) : LineForm{MonitorFields};
}
LineForm LineForms::SyncGen(StringView) {
    return {GeneratorFields};
}
LineForm LineForms::Whole(StringView) {
    return {{}, true};
}

}  // namespace ace
