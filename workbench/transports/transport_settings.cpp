#include "workbench/transports/transport_settings.h"

#include <algorithm>
#include <limits>
#include <vector>

#include <ace/core/text.h>

#include "workbench/files/place_text.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/outcome.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::int32_t LongestMs = 3'600'000;
constexpr StringView PortPrefix = L"COM";

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

/// The sections, each with its keys. The lines of [SerialPorts] are all its own.
struct KnownSection {
    StringView name;
    std::vector<StringView> keys;
};
constexpr StringView PortsSection = L"SerialPorts";
const std::vector<KnownSection>& KnownSections() {
    static const std::vector<KnownSection> rows = {
        {L"Tcp", {L"ConnectTimeoutMs", L"WriteTimeoutMs"}},
        {L"Serial", {L"WriteTimeoutMs"}},
        {PortsSection, {}},
        {L"Gpib", {L"Library"}},
        {L"MacroSync", {L"File"}},
        {L"Sound", {L"Player"}},
        {L"OtaMeasurements", {L"ActionSyncTimeout"}},
    };
    return rows;
}

/// Reads keys and lines of one file and names their places when they make no sense.
class Reader {
  public:
    Reader(const SettingsDocument& document, const String& path)
        : x_document(document), x_path(path) {}

    /// What nobody reads is a slip of the pen: what it was to set would silently stay as it is.
    void RequireKnown() const;
    Milliseconds Time(StringView section, StringView key, Milliseconds byDefault) const;
    String Text(StringView section, StringView key, const String& byDefault = {}) const {
        return String(Trimmed(x_document.GetKey(section, key).value_or(byDefault)));
    }
    std::string Path(StringView section, StringView key, const std::string& byDefault) const {
        return ToUtf8(Text(section, key, FromUtf8(byDefault)));
    }
    SerialDevices Ports() const;

  private:
    /// Calls `read` with each line that is no comment, and its index.
    template <class Read>
    void EachLine(StringView section, Read&& read) const {
        std::size_t index = 0;
        for (const String& whole : x_document.GetSection(section)) {
            const StringView line = Trimmed(whole);
            if (!IsEmptyOrComment(line, L";#")) {
                read(line, index);
            }
            ++index;
        }
    }
    [[noreturn]] void Refuse(StringView section, std::size_t index, const String& why) const {
        RefuseFile(LinePlaceText(x_document, x_path, section, index) + L": " + why);
    }
    void RequireKnownKeys(const KnownSection& section) const;

    const SettingsDocument& x_document;
    const String& x_path;
};

void Reader::RequireKnown() const {
    String names;
    for (const KnownSection& section : KnownSections()) {
        names += (names.empty() ? L"" : L", ") + String(section.name);
        if (section.name != PortsSection) {
            RequireKnownKeys(section);
        }
    }
    for (const String& name : x_document.SectionNames()) {
        if (std::ranges::none_of(KnownSections(), [&](const KnownSection& section) {
                return EqualNoCase(section.name, name);
            })) {
            RefuseFile(PlaceText(x_document, x_path, name, {}) +
                       L" is no section of the configuration, which has " + names);
        }
    }
    RequireSectionsOnce(x_document, x_path);
}

void Reader::RequireKnownKeys(const KnownSection& section) const {
    std::vector<StringView> known;
    EachLine(section.name, [&](StringView line, std::size_t index) {
        const StringView key = Trimmed(line.substr(0, line.find(L'=')));
        const auto found = std::ranges::find_if(
            section.keys, [&](StringView one) { return EqualNoCase(one, key); });
        if (found == section.keys.end()) {
            Refuse(section.name, index, L"\"" + String(key) + L"\" is no key of this section");
        }
        if (std::ranges::find(known, *found) != known.end()) {
            Refuse(section.name, index, L"\"" + String(key) + L"\" stands here twice");
        }
        known.push_back(*found);
    });
}

Milliseconds Reader::Time(StringView section, StringView key, Milliseconds byDefault) const {
    const std::optional<String> text = x_document.GetKey(section, key);
    if (!text) {
        return byDefault;
    }
    const std::optional<std::int32_t> time = WholeInteger(*text);
    if (!time || *time < 1 || *time > LongestMs) {
        RefuseFile(PlaceText(x_document, x_path, section, key) + L": \"" + String(Trimmed(*text)) +
                   L"\" is not a time from 1 to 3600000 milliseconds");
    }
    return Milliseconds{*time};
}

SerialDevices Reader::Ports() const {
    SerialDevices devices;
    EachLine(PortsSection, [&](StringView line, std::size_t index) {
        const std::size_t equals = std::min(line.find(L'='), line.size());
        const std::int16_t number = PortNumber(Trimmed(line.substr(0, equals)));
        const StringView device = Trimmed(line.substr(std::min(equals + 1, line.size())));
        if (number == 0 || device.empty()) {
            Refuse(PortsSection, index,
                   L"\"" + String(line) + L"\" is not of the form COM3=/dev/ttyUSB0");
        }
        if (!devices.try_emplace(number, ToUtf8(device)).second) {
            Refuse(PortsSection, index, L"COM" + std::to_wstring(number) + L" stands here twice");
        }
    });
    return devices;
}

}  // namespace

TransportSettings ReadTransportSettings(const SettingsDocument& document, const String& path) {
    const Reader reader(document, path);
    reader.RequireKnown();
    TransportSettings settings;
    settings.tcp.connect = reader.Time(L"Tcp", L"ConnectTimeoutMs", settings.tcp.connect);
    settings.tcp.write = reader.Time(L"Tcp", L"WriteTimeoutMs", settings.tcp.write);
    settings.serialStall = reader.Time(L"Serial", L"WriteTimeoutMs", settings.serialStall);
    settings.serialDevices = reader.Ports();
    settings.gpibLibrary = reader.Path(L"Gpib", L"Library", settings.gpibLibrary);
    settings.macroSync = reader.Path(L"MacroSync", L"File", settings.macroSync);
    settings.soundPlayer = reader.Text(L"Sound", L"Player");
    return settings;
}

}  // namespace ace::workbench
