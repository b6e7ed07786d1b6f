/// What an action says in a settings file and in the tree, for random sessions with the dialog: the
/// words of its line are all that the plain model keeps of a record. It calls nothing of the
/// engine.
#pragma once

#include <cwchar>
#include <vector>

#include <ace/core/action_records.h>

#include "editor/edit_model.h"

namespace ace::test {

/// In the order of the lists of a set.
enum LineList { EnterLines, LeaveLines, FreqLines, MlcLines };

/// By number of the kind: the word of its lines, and which lists know it when they are read.
struct LineKind {
    const wchar_t* word;
    const char* lists;  ///< "E", "L", "F" and "M"
};
inline constexpr LineKind LineKinds[ModelKinds] = {
    {L"WAIT:", "ELFM"},    {L"NOTIFY:", "ELFM"},     {L"REMOTE:", "ELFM"}, {L"SETDEV:", "ELFM"},
    {L"CHECKEUT:", "ELF"}, {L"FREQTRACK:", "F"},     {L"COMMENT:", "E"},   {L"PROTREC:", "EL"},
    {L"STOP:", "E"},       {L"GOTOSGL:", "E"},       {L"STPLEV:", "E"},    {L"NBBETSI:", "E"},
    {L"SWITCHAMP:", "EL"}, {L"SWITCHUNIT:", "ELFM"}, {L"API:", "ELFM"},    {L"PARKACC:", "EL"},
    {L"QUESTION:", "E"},   {L"MONITOREUT:", "E"}};
/// The names of a list in a section: of its count, and of an entry.
struct LineKeys {
    const wchar_t* count;
    const wchar_t* entry;
    char letter;
    ModelList ModelSet::*list;
};
inline constexpr LineKeys ListKeys[] = {
    {L"NumOfEnterActions", L"EnterAction", 'E', &ModelSet::enter},
    {L"NumOfLeaveActions", L"LeaveAction", 'L', &ModelSet::leave},
    {L"NumOfFreqActions", L"FrequAction", 'F', &ModelSet::freq},
    {L"NumOfMlcActions", L"MLLeaAction", 'M', &ModelSet::mlc}};

// ---- words -------------------------------------------------------------------------------------

/// Stands in a line for the number of the device's section.
inline constexpr wchar_t SectionMark = L'@';
/// What stands behind it is in the record, but in no line.
inline constexpr wchar_t HiddenMark = L'\x02';

inline std::vector<String> Split(const String& text, const String& separator) {
    std::vector<String> parts;
    std::size_t from = 0;
    for (std::size_t to = 0; (to = text.find(separator, from)) != String::npos;
         from = to + separator.size()) {
        parts.push_back(text.substr(from, to - from));
    }
    parts.push_back(text.substr(from));
    return parts;
}
inline String Replaced(String text, const String& from, const String& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != String::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}
/// A value without what stands in no line.
inline String InLine(const String& value) {
    return value.substr(0, value.find(HiddenMark));
}
inline String Fixed(double value, int decimals) {
    wchar_t digits[64];
    std::swprintf(digits, std::size(digits), L"%.*f", decimals, value);
    return digits;
}
/// The number at the start of a text, with either separator; 0 without one.
inline double NumberIn(const String& text) {
    return std::wcstod(Replaced(text, L",", L".").c_str(), nullptr);
}
inline String Flag(bool is) {
    return is ? L"1" : L"0";
}
inline String Behind(const String& path, wchar_t last) {
    return path.substr(path.find_last_of(last) + 1);
}
inline String Lower(String text) {
    for (wchar_t& letter : text) {
        letter = letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + 32) : letter;
    }
    return text;
}
/// Commas and line ends of a text that stands among others.
inline String Escaped(const String& text) {
    return Replaced(Replaced(text, L"\r\n", L"\x7f"), L",", L"\x01");
}

// ---- the line of a record ----------------------------------------------------------------------

inline String NotifyLine(const aceNotify& record) {
    return Escaped(record.Message) + L"," + record.WaveFile + L"," + Flag(record.Beep);
}
inline String RemoteLine(const aceRemote& record) {
    const String end = record.Program + L"," + Flag(record.WaitPrgSync) + L",";
    const String command = Replaced(record.Command, L",", L"\x01") + L",";
    const String terminator = std::to_wstring(record.Terminator);
    const String ways[] = {
        std::to_wstring(record.GpibAddress) + L"," + terminator,
        std::to_wstring(record.SerComPort) + L"," + terminator,
        record.TcpHost + L"," + std::to_wstring(record.TcpPort) + L":" + terminator};
    return record.Command.empty()
               ? L",,,," + end
               : command + std::to_wstring(record.Iface) + L"," + ways[record.Iface] + L"," + end;
}
inline String CheckLine(const aceSetDevice& record) {
    return record.DevName + L"," + std::to_wstring(record.ChanNo) + L"," + Flag(record.StopTest) +
           L"," + Flag(record.CommToTable) + L"," + Flag(record.Notify) + L"," +
           Flag(record.UseTimeCyc) + L"," + Fixed(record.CycleTime, 2) + L"," +
           Flag(record.WaitState) + L"," + Fixed(static_cast<double>(record.WaitTime), 2) + L"," +
           Flag(record.LoadingPos);
}
inline String DeviceLine(int kind, const aceSetDevice& record) {
    switch (kind) {
        case SetDeviceKind:
            return record.DevName + L"," + std::to_wstring(record.ChanNo) +
                   (record.SigPathName.empty() ? L"" : L"," + record.SigPathName);
        case atSwitchAmp:
            return record.DevName + L"," + std::to_wstring(record.AmpState);
        case atSwitchUnit:
            return record.DevName + L"," + record.Path;
        default:
            return CheckLine(record);
    }
}
/// A generator's words and, behind a mark, what stands in no line but in the record: the device
/// that is followed too.
inline String TrackLine(const aceTrackFreq& record) {
    if (record.GenName.empty()) {
        return record.MoniName + L"," + std::to_wstring(record.DelayTime);
    }
    return record.GenName + L"," + record.TableName + L"," + std::to_wstring(record.TableType) +
           L"," + std::to_wstring(record.TableMeasClass) + L"," + Flag(record.AskOnMeasStart) +
           (record.SigPathName.empty() ? L"" : L"," + record.SigPathName) + HiddenMark +
           record.MoniName;
}
inline String MacroLine(const aceAPI& record) {
    String line = record.Program;
    for (std::int32_t i = 1; i <= record.Parameters.UpperBound(); ++i) {
        line += L"||" + record.Parameters[i];
    }
    return line;
}
/// Behind the word of the kind.
inline String ValueOf(int kind, const ActionParameter& parameter) {
    switch (RecordTypeOf[kind]) {
        case WaitRecord:
            return Fixed(std::get<aceWait>(parameter).Time, 3);
        case NotifyRecord:
            return kind == CommentKind ? Flag(std::get<aceNotify>(parameter).GeneratorOff)
                                       : NotifyLine(std::get<aceNotify>(parameter));
        case RemoteRecord:
            return RemoteLine(std::get<aceRemote>(parameter));
        case DeviceRecord:
            return DeviceLine(kind, std::get<aceSetDevice>(parameter));
        case TrackRecord:
            return TrackLine(std::get<aceTrackFreq>(parameter));
        case ApiRecord:
            return MacroLine(std::get<aceAPI>(parameter));
        default:
            return {};
    }
}
/// The whole line; empty for an action that shows nowhere.
inline String LineOf(const p_Action& action) {
    const int kind = action.ActionType;
    const bool isEmpty = std::holds_alternative<std::monostate>(action.Parameter);
    return isEmpty && RecordTypeOf[kind] >= 0
               ? String()
               : LineKinds[kind].word + ValueOf(kind, action.Parameter);
}

// ---- what the tree shows of a line -------------------------------------------------------------

inline String Cut(const String& text, std::size_t most, std::size_t length) {
    return text.substr(0, most) + (length > most ? L"..." : L"");
}
inline String NotifyDetail(const std::vector<String>& fields, bool isWireless) {
    const String stored = Replaced(fields[0], L"\x7f", L"\r\n");
    const String shown = Replaced(Replaced(fields[0], L"\x7f", L" "), L"\x01", L",");
    if (!shown.empty()) {
        return Cut(shown, isWireless ? 65 : 40, stored.size());
    }
    return fields[1].empty() ? L"T(9124)" : Behind(fields[1], L'\\');
}
inline String RemoteDetail(const std::vector<String>& fields, bool isWireless) {
    const String command = Replaced(fields[0], L"\x01", L",");
    if (command.empty()) {
        return Behind(fields[4], L'\\');
    }
    const String shown = L"," + Cut(command, isWireless ? 50 : 20, command.size());
    if (fields[1] == L"0") {
        const int address = std::stoi(fields[2]);
        return L"Gpib" + std::to_wstring(address / 100) + L":" + std::to_wstring(address % 100) +
               shown;
    }
    const String port = isWireless ? L":" + fields[3].substr(0, fields[3].find(L':')) : String();
    return (fields[1] == L"1" ? L"COM" + fields[2] : L"\\\\" + fields[2] + port) + shown;
}
/// Behind the title; `value` is what stands behind the word of the line.
inline String DetailOfLine(int kind, const String& value, bool isWireless) {
    const std::vector<String> fields = Split(value, L",");
    constexpr const wchar_t* states[] = {L"Off", L"On", L"Standby", L"Operate", L"Reset"};
    switch (kind) {
        case atWait:
            return L": " + Fixed(NumberIn(value) / 1000.0, 3) + L" s";
        case atNotify:
        case atQuestion:
            return L": " + NotifyDetail(fields, isWireless);
        case atRemote:
            return L": " + RemoteDetail(fields, isWireless);
        case atComment:
            return value == L"1" ? L", T(9080)" : L"";
        case atSwitchAmp:
            return L": " + fields[0] + L" --> " + states[std::stoi(fields[1])];
        case atSwitchUnit:
            return L": " + fields[0] + L" --> " + fields[1];
        case atAPI:
            return L": " + Split(value, L"||")[0];
        default:
            return RecordTypeOf[kind] >= 0 ? L": " + fields[0] : L"";
    }
}

}  // namespace ace::test
