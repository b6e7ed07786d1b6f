#include <ace/core/text.h>
#include <ace/settings/line_forms.h>
#include <ace/settings/record_lines.h>

namespace ace::modActions {

namespace {

constexpr double NoProcess = -1.0;

void ReadTcpIp(EntryLine& line, aceRemote& record) {
    line.Set(LineField::TcpHost, record.TcpHost, line.Field(2));
    const StringView field = line.Field(3);
    if (!line.IsInEnterList()) {
        // Intentional: only the first list reads a terminator; the others lose theirs.
        line.Set(LineField::TcpPort, record.TcpPort, line.RoundedNumber(field));
        return;
    }
    const PortText text = SplitPort(field);
    line.Set(LineField::TcpPort, record.TcpPort, line.RoundedNumber(text.port));
    line.Set(LineField::Terminator, record.Terminator,
             line.RoundedNumber(text.terminator.value_or(StringView())));
}

void ReadTransport(EntryLine& line, aceRemote& record) {
    line.Set(LineField::Iface, record.Iface, line.StrictInteger(line.Field(1)));
    switch (record.Iface) {
        case aceRemote::Gpib:
            line.Set(LineField::GpibAddress, record.GpibAddress, line.RoundedNumber(line.Field(2)));
            line.Set(LineField::Terminator, record.Terminator, line.RoundedNumber(line.Field(3)));
            record.DrvHdl = aceRemote::NoHandle;
            break;
        case aceRemote::Serial:
            line.Set(LineField::SerComPort, record.SerComPort, line.RoundedNumber(line.Field(2)));
            line.Set(LineField::Terminator, record.Terminator, line.RoundedNumber(line.Field(3)));
            break;
        case aceRemote::TcpIp:
            ReadTcpIp(line, record);
            break;
        default:
            break;
    }
}

void WriteTransport(LineText& text, const aceRemote& record) {
    text.Add(record.Iface).Add(Comma);
    switch (record.Iface) {
        case aceRemote::Gpib:
            text.Add(record.GpibAddress).Add(Comma).Add(record.Terminator).Add(Comma);
            break;
        case aceRemote::Serial:
            text.Add(record.SerComPort).Add(Comma).Add(record.Terminator).Add(Comma);
            break;
        case aceRemote::TcpIp:
            text.Add(record.TcpHost).Add(Comma).Add(record.TcpPort).Add(L":");
            text.Add(record.Terminator).Add(Comma);
            break;
        default:
            // Intentional: puts the program where no reader looks for it.
            text.Add(L",,,,");
            break;
    }
}

}  // namespace

void ReadRemote(EntryLine& line) {
    aceRemote& record = line.Records().Remote;
    line.Set(LineField::Command, record.Command, line.Field(0));
    ReplaceAll(record.Command, CommaInFile, Comma);
    if (!record.Command.empty()) {
        ReadTransport(line, record);
    }
    line.Set(LineField::RemoteProgram, record.Program, line.Field(4));
    if (line.FieldCount() >= 6) {
        line.Set(LineField::WaitPrgSync, record.WaitPrgSync, EntryLine::Flag(line.Field(5)));
    }
    record.ProgID = NoProcess;
}

void WriteRemote(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceRemote>(action);
    if (record.Command.empty()) {
        text.Add(L",,,,");
    } else {
        String command = record.Command;
        ReplaceAll(command, Comma, CommaInFile);
        text.Add(command).Add(Comma);
        WriteTransport(text, record);
    }
    text.Add(record.Program).Add(Comma).AddFlag(record.WaitPrgSync).Add(Comma);
}

/// The old form of a command: address and terminator come first, and all behind the second comma is
/// the command.
void ReadGpib(EntryLine& line) {
    aceRemote& record = line.Records().Remote;
    line.Set(LineField::Iface, record.Iface, aceRemote::Gpib);
    record.DrvHdl = aceRemote::NoHandle;
    if (line.FieldCount() < 3) {
        line.Next({LineStep::FindComma, 0, {}});
        Raise(Errors::InvalidProcedureCall);
    }
    line.Set(LineField::GpibAddress, record.GpibAddress, line.RoundedNumber(line.Field(0)));
    line.Set(LineField::Terminator, record.Terminator, line.RoundedNumber(line.Field(1)));
    const std::size_t behindCommas = line.Field(0).size() + 1 + line.Field(1).size() + 1;
    line.Set(LineField::Command, record.Command, line.Text().substr(behindCommas));
}

/// The old form of a program start.
void ReadProgram(EntryLine& line) {
    aceRemote& record = line.Records().Remote;
    line.Set(LineField::RemoteProgram, record.Program, line.Text());
    record.ProgID = NoProcess;
}

}  // namespace ace::modActions
