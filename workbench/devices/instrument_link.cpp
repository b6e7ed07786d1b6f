#include "workbench/devices/instrument_link.h"

#include <ace/core/text.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using Bus = InstrumentAddress::Bus;

/// Opening of a bus device: no secondary address, time-out code 11 (one second), EOI with the last
/// byte, no end-of-string character.
constexpr std::int16_t NoSecondary = 0;
constexpr std::int16_t OneSecond = 11;
constexpr std::int16_t SendEoi = 1;
constexpr std::int16_t NoEndOfString = 0;

constexpr std::int32_t MostPort = 65535;
constexpr std::int32_t MostPrimary = 30;
constexpr std::int32_t MostBoard = 99;
constexpr std::int32_t MostComPort = 256;

/// What stands behind `word` at the beginning of `text`; nothing when another word stands there.
std::optional<StringView> Behind(StringView text, StringView word) {
    if (!EqualNoCase(text.substr(0, word.size()), word)) {
        return std::nullopt;
    }
    return Trimmed(text.substr(word.size()));
}

/// A whole number from `least` to `most`.
std::optional<std::int32_t> NumberWithin(StringView text, std::int32_t least, std::int32_t most) {
    const std::optional<std::int32_t> number = WholeInteger(text);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

/// "a:b", divided at the last colon.
std::optional<std::pair<StringView, StringView>> Pair(StringView text) {
    const std::size_t colon = text.rfind(L':');
    if (colon == StringView::npos || colon == 0) {
        return std::nullopt;
    }
    return std::pair(text.substr(0, colon), text.substr(colon + 1));
}

std::optional<InstrumentAddress> ReadGpib(StringView text) {
    InstrumentAddress address;
    const auto parts = Pair(text);
    const auto board = parts ? NumberWithin(parts->first, 0, MostBoard) : std::nullopt;
    const auto primary = parts ? NumberWithin(parts->second, 0, MostPrimary) : std::nullopt;
    if (!board || !primary) {
        return std::nullopt;
    }
    address.board = static_cast<std::int16_t>(*board);
    address.primary = static_cast<std::int16_t>(*primary);
    return address;
}

std::optional<InstrumentAddress> ReadTcp(StringView text) {
    InstrumentAddress address;
    const auto parts = Pair(text);
    const auto port = parts ? NumberWithin(parts->second, 1, MostPort) : std::nullopt;
    if (!port) {
        return std::nullopt;
    }
    address.bus = Bus::Tcp;
    address.host = Trimmed(parts->first);
    address.port = *port;
    return address;
}

std::optional<InstrumentAddress> ReadSerial(StringView text) {
    InstrumentAddress address;
    const auto number = NumberWithin(text, 1, MostComPort);
    if (!number) {
        return std::nullopt;
    }
    address.bus = Bus::Serial;
    address.comPort = static_cast<std::int16_t>(*number);
    return address;
}

}  // namespace

std::optional<InstrumentAddress> ReadAddress(StringView text) {
    const StringView trimmed = Trimmed(text);
    if (const auto gpib = Behind(trimmed, L"GPIB ")) {
        return ReadGpib(*gpib);
    }
    if (const auto tcp = Behind(trimmed, L"TCP ")) {
        return ReadTcp(*tcp);
    }
    if (const auto serial = Behind(trimmed, L"COM")) {
        return ReadSerial(*serial);
    }
    return std::nullopt;
}

String AddressText(const InstrumentAddress& address) {
    switch (address.bus) {
        case Bus::Gpib:
            return L"GPIB " + std::to_wstring(address.board) + L":" +
                   std::to_wstring(address.primary);
        case Bus::Serial:
            return L"COM" + std::to_wstring(address.comPort);
        case Bus::Tcp:
            return L"TCP " + address.host + L":" + std::to_wstring(address.port);
    }
    return {};
}

void InstrumentLink::Send(const String& command) {
    const String text = command + x_terminator;
    switch (x_address.bus) {
        case Bus::Gpib:
            return SendGpib(text);
        case Bus::Serial:
            return SendSerial(text);
        case Bus::Tcp:
            return SendTcp(text);
    }
}

void InstrumentLink::RefuseToOpen() const {
    throw RunTimeError(Errors::DeviceFailed, AddressText(x_address) + L" does not open");
}

void InstrumentLink::SendGpib(const String& text) {
    if (!x_gpib) {
        x_gpib = x_host->MakeGpibDriver();
    }
    if (x_gpibHandle == -1) {
        x_gpibHandle = x_gpib->OpenDevice(x_address.board, x_address.primary, NoSecondary,
                                          OneSecond, SendEoi, NoEndOfString);
        if (x_gpibHandle == -1) {
            RefuseToOpen();
        }
    }
    x_gpib->WriteString(x_gpibHandle, text);
}

void InstrumentLink::SendSerial(const String& text) {
    if (!x_serial) {
        x_serial = x_host->MakeSerialPort();
        x_serial->CommPort(x_address.comPort);
    }
    x_serial->PortOpen(true);
    if (!x_serial->PortOpen()) {
        RefuseToOpen();
    }
    try {
        x_serial->Output(text);
    } catch (...) {
        x_serial->PortOpen(false);
        throw;
    }
    x_serial->PortOpen(false);
}

void InstrumentLink::SendTcp(const String& text) {
    if (!x_sockets) {
        x_sockets = x_host->MakeDeviceList();
    }
    std::int32_t handle = -1;
    x_sockets->OpenSocket(x_address.host, x_address.port, 0, L"TCP", handle);
    if (!x_sockets->SocketIsOpen(handle)) {
        RefuseToOpen();
    }
    try {
        x_sockets->SendSocket(handle, text);
    } catch (...) {
        x_sockets->CloseSocket(handle);
        throw;
    }
    x_sockets->CloseSocket(handle);
}

}  // namespace ace::workbench
