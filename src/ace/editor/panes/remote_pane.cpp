#include <limits>

#include <ace/core/text.h>
#include <ace/editor/file_choice.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/remote_pane.h>

namespace ace {

namespace {

constexpr std::int32_t Rows = 8;

// ---- addresses of the bus: "board:address" -------------------------------------------------

constexpr std::int32_t Boards = 4;
constexpr std::int32_t AddressesOfBoard = 30;  ///< from 1
constexpr std::int32_t BoardFactor = 100;      ///< of a board in `GpibAddress`

String AddressText(std::int32_t board, std::int32_t address) {
    return IntegerText(board) + L":" + IntegerText(address);
}

/// Index of the item of an address; -1 for one that no bus has.
std::int32_t AddressItem(std::int32_t board, std::int32_t address) {
    const bool isThere =
        board >= 0 && board < Boards && address >= 1 && address <= AddressesOfBoard;
    return isThere ? board * AddressesOfBoard + address - 1 : -1;
}

/// `present` for a text that is no address.
std::int32_t AddressOf(StringView text, std::int32_t present) {
    const std::size_t colon = text.find(L':');
    return colon == StringView::npos ? present
                                     : ReadRoundedNumber(text.substr(0, colon)) * BoardFactor +
                                           ReadRoundedNumber(text.substr(colon + 1));
}

// ---- ports and terminators -----------------------------------------------------------------

constexpr std::int32_t FirstPort = 1;
constexpr std::int32_t LineFeedItem = 0;
constexpr std::int32_t CarriageReturnItem = 1;

}  // namespace

RemotePane::RemotePane(Form& form, EditorParts& parts)
    : Pane(form, parts, DialogPane::Remote, L"Remote", Rows) {
    const auto allowTest = [this](const TextBox& box) {
        cmdTestAction.enabled = !box.text.empty();
    };
    cboIface.onClick = [this] { InterfaceChosen(); };
    cboTerminator.onClick = [this] { Records().Remote.Terminator = cboTerminator.listIndex; };
    cboComPort.onClick = [this] { Records().Remote.SerComPort = cboComPort.listIndex + FirstPort; };
    cboGpibAddress.onClick = [this] { AddressChosen(); };
    txtGpibCommand.onChange = [this, allowTest] { allowTest(txtGpibCommand); };
    txtDll.onChange = [this, allowTest] { allowTest(txtDll); };
    txtDll.onLeave = [this] { KeepProgram(txtDll.text); };
    txtHost.onLeave = [this] { Records().Remote.TcpHost = txtHost.text; };
    txtTcpPort.onLeave = [this] { TakeTcpPort(); };
    txtDll.onDrop = [this](const std::vector<String>& files) {
        if (const String* const file = FirstOf(files, ProgramFiles)) {
            TakeProgram(*file);
        }
    };
    cmdSelDll.onClick = [this] { SelectProgram(); };
    chkWaitForProgramCompleted.onClick = [this] {
        Records().Remote.WaitPrgSync = chkWaitForProgramCompleted.ticked;
    };
}

void RemotePane::FillLists() {
    constexpr std::int32_t ComPorts = 8;
    std::vector<String> addresses;
    for (std::int32_t board = 0; board < Boards; ++board) {
        for (std::int32_t address = 1; address <= AddressesOfBoard; ++address) {
            addresses.push_back(AddressText(board, address));
        }
    }
    cboGpibAddress.Fill(std::move(addresses));
    cboGpibAddress.listIndex = 0;
    std::vector<String> ports;
    for (std::int32_t port = FirstPort; port <= ComPorts; ++port) {
        ports.push_back(L"COM" + IntegerText(port));
    }
    cboComPort.Fill(std::move(ports));
    cboIface.Fill({L"GPIB", L"RS232", L"TCP/IP"});
    cboTerminator.Fill({L"NL (0A hex)", L"CR (0D hex)", L"CR+NL", L"<NONE>"});
    cboTerminator.listIndex = LineFeedItem;
}

// ---- what the operator does --------------------------------------------------------------------

void RemotePane::ShowInterface(std::int32_t iface) {
    const bool isGpib = iface == aceRemote::Gpib;
    const bool isSerial = iface == aceRemote::Serial;
    const bool isTcpIp = iface == aceRemote::TcpIp;
    lblGpibAddress.visible = cboGpibAddress.visible = isGpib;
    cboComPort.visible = isSerial;
    lblHost.visible = txtHost.visible = txtTcpPort.visible = isTcpIp;
    lblPort.visible = isSerial || isTcpIp;
}

/// Intentional: the choices begin anew also when the interface was chosen before, and their
/// handlers write into the working record.
void RemotePane::InterfaceChosen() {
    if (cboIface.listIndex < 0) {
        cboIface.listIndex = aceRemote::Gpib;
    }
    ShowInterface(cboIface.listIndex);
    if (cboIface.listIndex == aceRemote::Gpib) {
        cboGpibAddress.Choose(0);
        cboTerminator.Choose(LineFeedItem);
    } else {
        cboComPort.Choose(0);
        cboTerminator.Choose(CarriageReturnItem);
    }
}

/// A handle belongs to the address before.
void RemotePane::AddressChosen() {
    aceRemote& record = Records().Remote;
    record.GpibAddress = AddressOf(cboGpibAddress.Text(), record.GpibAddress);
}

/// Intentional: a port above 32767 is not taken here, only with OK.
void RemotePane::TakeTcpPort() {
    ResumeNext next;
    next([&] {
        const std::int32_t port = ReadStrictInteger(txtTcpPort.text);
        if (port >= std::numeric_limits<std::int16_t>::min() &&
            port <= std::numeric_limits<std::int16_t>::max()) {
            Records().Remote.TcpPort = port;
        }
    });
}

/// A process belongs to the program that was started.
void RemotePane::KeepProgram(const String& program) {
    aceRemote& record = Records().Remote;
    if (std::exchange(record.Program, program) != program) {
        record.ProgID = 0.0;
    }
}

void RemotePane::TakeProgram(const String& file) {
    KeepProgram(file);
    txtDll.Type(file);
}

void RemotePane::SelectProgram() {
    const String& program = Records().Remote.Program;
    const String present = program == Text(InputTexts::None) ? String() : program;
    if (const std::optional<String> file = ChooseFile(Context(), ProgramFiles, present)) {
        TakeProgram(*file);
    }
}

// ---- record and fields -------------------------------------------------------------------------

/// The interface comes first, because it takes the other choices back.
void RemotePane::ShowAddress(const aceRemote& record) {
    ShowItem(cboIface, record.Iface);
    ShowItem(cboTerminator, record.Terminator);
    const std::int32_t board = record.GpibAddress / BoardFactor;
    const std::int32_t address = record.GpibAddress % BoardFactor;
    ShowItem(cboGpibAddress, AddressItem(board, address), AddressText(board, address));
    ShowItem(cboComPort, record.SerComPort >= FirstPort ? record.SerComPort - FirstPort : -1);
    txtTcpPort.text = IntegerText(record.TcpPort);
    txtHost.text = record.TcpHost;
}

void RemotePane::Show(const Statements& stmt, Boolean isNew) {
    constexpr std::int32_t FirstAddress = 1;
    aceRemote record = stmt([&] {
        aceRemote forNew;
        forNew.GpibAddress = FirstAddress;
        return RecordToShow<aceRemote>(isNew, forNew);
    });
    record.DrvHdl = aceRemote::NoHandle;
    txtGpibCommand.text = record.Command;
    txtDll.text = record.Program;
    chkWaitForProgramCompleted.ticked = record.WaitPrgSync;
    stmt([&] { ShowAddress(record); });
    cmdTestAction.enabled = !record.Command.empty() || !record.Program.empty();
    Records().Remote = std::move(record);
}

std::optional<Refusal> RemotePane::ReadAddress(const Statements& stmt, aceRemote& record) {
    record.Iface = cboIface.listIndex;
    record.Terminator = IndexShown(cboTerminator, record.Terminator);
    switch (record.Iface) {
        case aceRemote::Gpib:
            record.GpibAddress = AddressOf(cboGpibAddress.Text(), record.GpibAddress);
            break;
        case aceRemote::Serial:
            if (cboComPort.listIndex >= 0) {
                record.SerComPort = cboComPort.listIndex + FirstPort;
            }
            break;
        case aceRemote::TcpIp:
            record.TcpPort = stmt([&] { return ReadRoundedNumber(txtTcpPort.text); });
            txtTcpPort.text = IntegerText(record.TcpPort);
            record.TcpHost = txtHost.text;
            if (record.TcpHost.empty()) {
                return stmt([&] { return Refuse(InputTexts::NoRemoteHost, &txtHost); });
            }
            break;
        default:
            break;
    }
    return std::nullopt;
}

std::optional<Refusal> RemotePane::Read(const Statements& stmt) {
    aceRemote& record = Records().Remote;
    record.Command = txtGpibCommand.text;
    if (record.Command.empty() && txtDll.text.empty()) {
        return stmt([&] { return Refuse(InputTexts::NothingToDo, &txtGpibCommand); });
    }
    return record.Command.empty() ? std::nullopt : ReadAddress(stmt, record);
}

}  // namespace ace
