#include <ace/core/borrowed_text.h>
#include <ace/core/text.h>
#include <ace/execution/device_failure.h>
#include <ace/execution/remote_commands.h>
#include <ace/execution/replace_variables.h>
#include <ace/execution/status_line.h>
#include <ace/execution/what_runs.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

/// Arguments of opening a bus device: time-out code 11 is one second, EOI asserted.
constexpr std::int16_t NoSecondary = 0;
constexpr std::int16_t OneSecond = 11;
constexpr std::int16_t SendEoi = 1;
constexpr std::int16_t NoEndOfString = 0;

/// By terminator code; any other code adds nothing.
constexpr StringView Terminators[] = {L"\n", L"\r", L"\r\n", L""};

}  // namespace

bool IsTerminatorCode(std::int32_t code) {
    return code >= 0 && code < static_cast<std::int32_t>(std::size(Terminators));
}

StringView TerminatorOf(std::int32_t code) {
    return IsTerminatorCode(code) ? Terminators[code] : StringView();
}

namespace {

void ShowLabelled(ThreadContext& context, std::size_t label, StringView detail) {
    BorrowedText text(context);
    text->append(context.ActionStatusTexts[label]).append(detail);
    ShowStatus(context, *text);
}

/// The handle stays in the record: opened at the first use, kept between uses, also after a
/// failure.
void SendGpib(ThreadContext& context, aceRemote& record, const String& text) {
    constexpr std::int32_t BoardUnit = 100;
    const std::int32_t rest = (record.GpibAddress % BoardUnit + BoardUnit) % BoardUnit;
    const std::int16_t board =
        NarrowToShort((CheckedDifference(record.GpibAddress, rest)) / BoardUnit);
    const auto address = static_cast<std::int16_t>(rest);
    if (record.DrvHdl == -1) {
        record.DrvHdl = context.GpibDriver().OpenDevice(board, address, NoSecondary, OneSecond,
                                                        SendEoi, NoEndOfString);
        if (record.DrvHdl == -1) {
            RaiseDeviceFailed(context);
        }
    }
    BorrowedText status(context);
    status->append(context.ActionStatusTexts[GpibLabel]);
    AppendInteger(*status, board);
    status->push_back(L':');
    AppendInteger(*status, address);
    ShowStatus(context, *status);
    context.GpibDriver().WriteString(NarrowToShort(record.DrvHdl), text);
}

/// The port is held for the one write only, so that other programs can use it between actions. A
/// write that fails leaves it open.
void SendSerial(ThreadContext& context, const aceRemote& record, const String& text) {
    const std::shared_ptr<IComPortForm> form = context.ComPortForm;
    if (!form) {
        return;
    }
    ISerialPort& port = form->ComPort();
    if (port.CommPort() != record.SerComPort) {
        ResumeNext quiet;
        quiet([&] { port.PortOpen(false); });
        context.Platform().Yield();
        port.CommPort(NarrowToShort(record.SerComPort));
    }
    if (!port.PortOpen()) {
        port.PortOpen(true);
        context.Platform().Yield();
        if (!port.PortOpen()) {
            RaiseDeviceFailed(context);
        }
    }
    ShowLabelled(context, SerialLabel, IntegerText(record.SerComPort));
    port.Output(text);
    port.PortOpen(false);
}

/// One connection for the thread, and it follows the endpoint of the latest action. The handle that
/// the host finds for the endpoint is compared only, never taken over.
void SendTcp(ThreadContext& context, const aceRemote& record, const String& text) {
    IDeviceList& list = context.DeviceList();
    std::int32_t held = context.SocketHandle;
    const std::int16_t found = list.FindSocket(record.TcpHost, record.TcpPort, {}, held);
    if (context.SocketHandle != found && context.SocketHandle > 0) {
        list.CloseSocket(context.SocketHandle);
        context.SocketHandle = -1;
    }
    if (!list.SocketIsOpen(context.SocketHandle) || context.SocketHandle < 1) {
        list.OpenSocket(record.TcpHost, record.TcpPort, 0, L"TCP", context.SocketHandle);
    }
    if (!list.SocketIsOpen(context.SocketHandle)) {
        RaiseDeviceFailed(context);
    }
    ShowLabelled(context, TcpLabel, record.TcpHost);
    list.SendSocket(context.SocketHandle, text);
}

/// The transports by interface number; any other number sends nothing.
void Send(ThreadContext& context, aceRemote& record) {
    BorrowedText text(context);
    text->assign(record.Command);
    ReplaceVariables(context, record.vks, *text);
    text->append(TerminatorOf(record.Terminator));
    switch (record.Iface) {
        case aceRemote::Gpib:
            SendGpib(context, record, *text);
            break;
        case aceRemote::Serial:
            SendSerial(context, record, *text);
            break;
        case aceRemote::TcpIp:
            SendTcp(context, record, *text);
            break;
        default:
            break;
    }
}

}  // namespace

Boolean modActions::SendRemoteCommand(ThreadContext& context, aceRemote& record,
                                      Boolean& ignoreAll) {
    Boolean result;
    try {
        Send(context, record);
        ClearStatus(context);
        return false;
    } catch (...) {
        const RunTimeError error = CurrentRunTimeError();
        if (!ignoreAll) {
            result = ShowDeviceError(context, atRemote, ignoreAll, record, error.Number(),
                                     error.Description());
        }
    }
    ClearStatus(context);
    return result;
}

}  // namespace ace
