#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/editor/action_text.h>
#include <ace/host/monitor_device.h>

namespace ace {

namespace {

constexpr std::int32_t GeneratorOffText = 9080;
constexpr std::int32_t SoundText = 9123;
constexpr std::int32_t BeepText = 9124;

/// One line that is being written, and what its kind of line has between title and detail.
struct Line {
    ThreadContext& context;
    aceModul moduleKind;
    const p_Action& action;
    StringView separator;
    String& text;

    bool IsWireless() const { return moduleKind == aceVKSTemplate || moduleKind == aceVKSDUT; }
};

constexpr StringView TreeSeparator = L": ";
constexpr StringView PrintSeparator = L": \t";

/// What stands behind the last "\" of a file name. A "/" is part of the name.
StringView FilePart(StringView path) {
    return path.substr(path.rfind(L'\\') + 1);
}

/// A message on one line.
String OneLine(String message) {
    ReplaceAll(message, L"\r\n", L" ");
    return message;
}

// ---- details that tree and print share -----------------------------------------------------

void AddSeconds(const Line& line) {
    constexpr double MillisecondsPerSecond = 1000.0;
    const double seconds = RecordOf<aceWait>(line.action).Time / MillisecondsPerSecond;
    const wchar_t separator = line.context.Platform().DecimalSeparator();
    line.text += line.separator;
    line.text += WithPoint(FormatFixed(seconds, 3, separator)) + L" s";
}

void AddDevice(const Line& line) {
    line.text += line.separator;
    line.text += RecordOf<aceSetDevice>(line.action).DevName;
}

void AddAmplifierState(const Line& line) {
    constexpr StringView States[] = {L"Off", L"On", L"Standby", L"Operate", L"Reset"};
    const std::int32_t state = RecordOf<aceSetDevice>(line.action).AmpState;
    AddDevice(line);
    line.text += L" --> ";
    if (state >= 0 && state < std::ssize(States)) {
        line.text += States[state];
    }
}

void AddSwitchPath(const Line& line) {
    AddDevice(line);
    line.text += L" --> " + RecordOf<aceSetDevice>(line.action).Path;
}

void AddMacro(const Line& line) {
    line.text += line.separator;
    line.text += RecordOf<aceAPI>(line.action).Program;
}

void AddGenerator(const Line& line) {
    if (RecordOf<aceNotify>(line.action).GeneratorOff) {
        line.text += L", " + line.context.Language().Text(GeneratorOffText);
    }
}

// ---- messages ------------------------------------------------------------------------------

/// Intentional: what is stored decides whether something was left out, with its line ends as they
/// are, and what is cut is the message on one line.
void AddTreeMessage(const Line& line) {
    const auto& record = RecordOf<aceNotify>(line.action);
    const std::size_t most = line.IsWireless() ? 65 : 40;
    line.text += line.separator;
    if (!record.Message.empty()) {
        line.text += OneLine(record.Message).substr(0, most);
        line.text += record.Message.size() > most ? L"..." : L"";
    } else if (!record.WaveFile.empty()) {
        line.text += FilePart(record.WaveFile);
    } else {
        line.text += line.context.Language().Text(BeepText);
    }
}

String Shortened(String message) {
    constexpr std::size_t Most = 70;
    constexpr StringView Rest = L"...";
    if (message.size() > Most) {
        message.resize(Most - Rest.size());
        message += Rest;
    }
    return message;
}

void AddPrintedMessage(const Line& line) {
    const auto& record = RecordOf<aceNotify>(line.action);
    line.text += line.separator;
    if (!record.Message.empty()) {
        String message = OneLine(record.Message);
        line.text += L'"' + (line.IsWireless() ? message : Shortened(message)) + L'"';
    } else if (!record.WaveFile.empty()) {
        line.text += line.context.Language().Text(SoundText) + L" '";
        line.text += FilePart(record.WaveFile);
        line.text += L'\'';
    } else {
        line.text += line.context.Language().Text(BeepText);
    }
}

// ---- commands ------------------------------------------------------------------------------

constexpr std::size_t ShortCommand = 20;

void AddGpibAddress(String& text, std::int32_t address) {
    constexpr std::int32_t AddressesOfBoard = 100;
    text += L"Gpib" + IntegerText(address / AddressesOfBoard);
    text += L':' + IntegerText(address % AddressesOfBoard);
}

/// The program alone, where there is no command.
bool AddProgram(const Line& line, const aceRemote& record) {
    line.text += line.separator;
    line.text += record.Command.empty() ? FilePart(record.Program) : StringView();
    return record.Command.empty();
}

/// The instrument on a bus or a port; false for another interface.
bool AddInstrument(String& text, const aceRemote& record) {
    if (record.Iface == aceRemote::Gpib) {
        AddGpibAddress(text, record.GpibAddress);
        return true;
    }
    if (record.Iface == aceRemote::Serial) {
        text += L"COM" + IntegerText(record.SerComPort);
        return true;
    }
    return false;
}

/// Intentional: the tree takes every other interface for a connection, the print those above.
void AddTreeCommand(const Line& line) {
    const auto& record = RecordOf<aceRemote>(line.action);
    if (AddProgram(line, record)) {
        return;
    }
    if (!AddInstrument(line.text, record)) {
        line.text += L"\\\\" + record.TcpHost;
        line.text += line.IsWireless() ? L':' + IntegerText(record.TcpPort) : String();
    }
    constexpr std::size_t WirelessCommand = 50;
    const std::size_t most = line.IsWireless() ? WirelessCommand : ShortCommand;
    line.text += L',' + record.Command.substr(0, most);
    line.text += record.Command.size() > most ? L"..." : L"";
}

/// Intentional: nothing says that a command was cut.
void AddPrintedCommand(const Line& line) {
    const auto& record = RecordOf<aceRemote>(line.action);
    if (AddProgram(line, record)) {
        return;
    }
    if (!AddInstrument(line.text, record) && record.Iface > aceRemote::Serial) {
        line.text += L"\\\\" + record.TcpHost;
    }
    line.text += L", \"" + record.Command.substr(0, ShortCommand) + L'"';
}

// ---- tracking ------------------------------------------------------------------------------

void AddTreeTracking(const Line& line) {
    const auto& record = RecordOf<aceTrackFreq>(line.action);
    line.text += line.separator;
    line.text += record.GenName.empty() ? record.MoniName : record.GenName;
}

void AddPrintedTracking(const Line& line) {
    const auto& record = RecordOf<aceTrackFreq>(line.action);
    line.text += line.separator;
    line.text += record.GenName.empty() ? Required(Required(record.MoniDev)->CommonDevice())->Name()
                                        : record.GenName;
}

// ---- lines ---------------------------------------------------------------------------------

/// Writes what stands behind the title.
using Detail = void (*)(const Line& line);
struct Details {
    Detail tree = nullptr;
    Detail print = tree;
};

/// Indexed by kind.
constexpr Details DetailsOfKind[ActionKindCount] = {
    {AddSeconds},
    {AddTreeMessage, AddPrintedMessage},
    {AddTreeCommand, AddPrintedCommand},
    {AddDevice},
    {AddDevice},
    {AddTreeTracking, AddPrintedTracking},
    {AddGenerator},
    {},
    {},
    {},
    {},
    {},
    {AddAmplifierState},
    {AddSwitchPath},
    {AddMacro},
    {},
    {AddTreeMessage, AddPrintedMessage},
    {AddDevice},
};

/// The row of an action that has a line; none for others.
const ActionKind* ShownKind(const p_Action& action) {
    const ActionKind* const kind = FindActionKind(action.ActionType);
    const bool isEmpty = std::holds_alternative<std::monostate>(action.Parameter);
    return kind != nullptr && (kind->record == RecordType::None || !isEmpty) ? kind : nullptr;
}

void AddDetail(Detail add, const Line& line) {
    if (add != nullptr) {
        add(line);
    }
}

void AppendPrinted(ThreadContext& context, aceModul moduleKind, const p_Action& action,
                   String& lines) {
    const ActionKind* const kind = ShownKind(action);
    if (kind == nullptr) {
        return;
    }
    String text = L"   " + TextOf(context, kind->printTitle);
    AddDetail(DetailsOfKind[kind->kind].print, {context, moduleKind, action, PrintSeparator, text});
    lines += text + L'\r';
}

}  // namespace

String TextOf(ThreadContext& context, const KindWords& words) {
    return words.number != 0 ? context.Language().Text(words.number) : String(words.fixed);
}

std::optional<String> TreeText(ThreadContext& context, aceModul moduleKind,
                               const p_Action& action) {
    const ActionKind* const kind = ShownKind(action);
    if (kind == nullptr) {
        return std::nullopt;
    }
    String text = TextOf(context, kind->title);
    AddDetail(DetailsOfKind[kind->kind].tree, {context, moduleKind, action, TreeSeparator, text});
    return text;
}

String DisplayMessage(p_PerformTimes PerfTime, std::int32_t Number) {
    return L"PerfTime = " + IntegerText(PerfTime) + L", Subrange = " + IntegerText(Number);
}

String DisplayLine(ThreadContext& context, aceModul moduleKind, p_PerformTimes PerfTime,
                   const DynArray<p_Action>& Actions, Boolean /*Expanded*/, std::int32_t Number) {
    const auto message = [&] { return DisplayMessage(PerfTime, Number); };
    return Logged(context, EditorLines(L"DisplayLine"), message, [&](const Statements& stmt) {
        String lines;
        for (const p_Action& action : Actions) {
            stmt([&] { AppendPrinted(context, moduleKind, action, lines); });
        }
        return lines;
    });
}

}  // namespace ace
