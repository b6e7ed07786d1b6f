#include "workbench/transports/transport_settings.h"

#include <algorithm>
#include <limits>
#include <vector>

#include <ace/core/text.h>
#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/text_lines.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

constexpr std::int32_t LongestMs = 3'600'000;
constexpr StringView PortPrefix = L"COM";

[[noreturn]] void RaiseUnusable(const String& place, const String& why) {
    throw RunTimeError(TransportErrors::BadConfiguration, L"configuration, " + place + L": " + why);
}

Milliseconds ReadTime(ISettingsFile& file, const String& section, const String& key,
                      Milliseconds byDefault) {
    const std::int32_t time =
        file.GetLong(section, key, static_cast<std::int32_t>(byDefault.count()));
    if (time < 1 || time > LongestMs) {
        RaiseUnusable(L"[" + section + L"] " + key,
                      std::to_wstring(time) + L" is not a time from 1 to 3600000 milliseconds");
    }
    return Milliseconds{time};
}

std::string ReadPath(ISettingsFile& file, const String& section, const String& key,
                     const std::string& byDefault) {
    return ToUtf8(WithoutBlanks(file.GetString(section, key, FromUtf8(byDefault))));
}

/// The number behind "COM"; 0 for anything else.
std::int16_t PortNumber(StringView key) {
    if (!EqualNoCase(key.substr(0, PortPrefix.size()), PortPrefix)) {
        return 0;
    }
    constexpr std::int32_t Most = std::numeric_limits<std::int16_t>::max();
    std::int32_t number = 0;
    for (const wchar_t c : key.substr(PortPrefix.size())) {
        if (c < L'0' || c > L'9' || number > Most / 10) {
            return 0;
        }
        number = number * 10 + (c - L'0');
    }
    return number <= Most ? static_cast<std::int16_t>(number) : std::int16_t{0};
}

void ReadPort(StringView line, SerialDevices& devices) {
    const std::size_t equals = std::min(line.find(L'='), line.size());
    const std::int16_t number = PortNumber(WithoutBlanks(line.substr(0, equals)));
    const StringView device = WithoutBlanks(line.substr(std::min(equals + 1, line.size())));
    if (number == 0 || device.empty()) {
        RaiseUnusable(L"[SerialPorts]",
                      L"\"" + String(line) + L"\" is not of the form COM3=/dev/ttyUSB0");
    }
    devices.try_emplace(number, ToUtf8(device));
}

SerialDevices ReadPorts(ISettingsFile& file) {
    SerialDevices devices;
    for (const String& whole : file.GetSection(L"SerialPorts")) {
        const StringView line = WithoutBlanks(whole);
        if (!line.empty() && line.front() != L';' && line.front() != L'#') {
            ReadPort(line, devices);
        }
    }
    return devices;
}

/// The keys of a section whose keys are all known. [SerialPorts] is read line by line.
struct KnownKeys {
    StringView section;
    std::vector<StringView> keys;
};
const std::vector<KnownKeys>& AllKnownKeys() {
    static const std::vector<KnownKeys> rows = {
        {L"Tcp", {L"ConnectTimeoutMs", L"WriteTimeoutMs"}},
        {L"Serial", {L"WriteTimeoutMs"}},
        {L"Gpib", {L"Library"}},
        {L"MacroSync", {L"File"}},
        {L"Sound", {L"Player"}},
        {L"OtaMeasurements", {L"ActionSyncTimeout"}},
    };
    return rows;
}

/// A key that nobody reads is a slip of the pen: what it was to set would silently stay as it is.
void RequireKnownKeys(ISettingsFile& file, const KnownKeys& known) {
    for (const String& whole : file.GetSection(String(known.section))) {
        const StringView line = WithoutBlanks(whole);
        if (line.empty() || line.front() == L';' || line.front() == L'#') {
            continue;
        }
        const StringView key =
            WithoutBlanks(line.substr(0, std::min(line.find(L'='), line.size())));
        const bool isKnown =
            std::ranges::any_of(known.keys, [&](StringView one) { return EqualNoCase(one, key); });
        if (!isKnown) {
            RaiseUnusable(L"[" + String(known.section) + L"]",
                          L"\"" + String(key) + L"\" is no key of this section");
        }
    }
}

}  // namespace

TransportSettings ReadTransportSettings(ISettingsFile& file) {
    for (const KnownKeys& known : AllKnownKeys()) {
        RequireKnownKeys(file, known);
    }
    TransportSettings settings;
    settings.tcp.connect = ReadTime(file, L"Tcp", L"ConnectTimeoutMs", settings.tcp.connect);
    settings.tcp.write = ReadTime(file, L"Tcp", L"WriteTimeoutMs", settings.tcp.write);
    settings.serialStall = ReadTime(file, L"Serial", L"WriteTimeoutMs", settings.serialStall);
    settings.serialDevices = ReadPorts(file);
    settings.gpibLibrary = ReadPath(file, L"Gpib", L"Library", settings.gpibLibrary);
    settings.macroSync = ReadPath(file, L"MacroSync", L"File", settings.macroSync);
    settings.soundPlayer = WithoutBlanks(file.GetString(L"Sound", L"Player", {}));
    return settings;
}

}  // namespace ace::workbench
