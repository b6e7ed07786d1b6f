#include "workbench/devices/device_file.h"

#include <algorithm>

#include <ace/core/text.h>

#include "sim/sim_host.h"
#include "workbench/devices/bound_devices.h"
#include "workbench/devices/device_lines.h"
#include "workbench/files/place_text.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using sim::SimClass;

constexpr StringView DevicesSection = L"Devices";
constexpr StringView TablesSection = L"Tables";

struct KeyLine {
    String key;
    String value;
};

/// Where a key stands, and how to say that it makes no sense.
struct Entry {
    const SettingsDocument* document;
    const String* path;
    String section;
    std::size_t number;  ///< of the line in the file, from 1
    KeyLine line;

    [[noreturn]] void Refuse(const String& why) const {
        RefuseFile(*path + L":" + std::to_wstring(number) + L": [" + section + L"] " + line.key +
                   L": " + why);
    }
};

/// The lines "key=value" of a section; empty lines and comments are passed over.
std::vector<Entry> EntriesOf(const SettingsDocument& document, const String& path,
                             StringView section) {
    std::vector<Entry> entries;
    std::size_t number = document.HeaderLine(section).value_or(0);
    for (const String& text : document.GetSection(section)) {
        ++number;
        const StringView line = Trimmed(text);
        if (IsEmptyOrComment(line, L";#")) {
            continue;
        }
        const std::size_t equals = line.find(L'=');
        const bool isPair = equals != StringView::npos && equals > 0;
        Entry entry{&document,
                    &path,
                    String(section),
                    number,
                    {String(Trimmed(line.substr(0, std::min(equals, line.size())))),
                     isPair ? String(Trimmed(line.substr(equals + 1))) : String()}};
        if (!isPair) {
            entry.Refuse(L"this is no line of the form name=value");
        }
        const bool isTwice = std::ranges::any_of(entries, [&](const Entry& earlier) {
            return EqualNoCase(earlier.line.key, entry.line.key);
        });
        if (isTwice) {
            entry.Refuse(L"it stands here twice");
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

// ---- details of a device -----------------------------------------------------------------------

struct StateRow {
    StringView word;
    std::int32_t state;
    std::int32_t stateOnceActivated;
};
constexpr StateRow States[] = {{L"on", IDevice::Active, IDevice::Active},
                               {L"off", IDevice::NotActive, IDevice::Active},
                               {L"dead", IDevice::NotActive, IDevice::NotActive}};

void ReadState(const Entry& entry, sim::SimDevice& device) {
    for (const StateRow& row : States) {
        if (EqualNoCase(row.word, entry.line.value)) {
            device.state = row.state;
            device.stateOnceActivated = row.stateOnceActivated;
            return;
        }
    }
    entry.Refuse(L"the state is on, off or dead");
}

void ReadFailure(const Entry& entry, sim::SimDevice& device) {
    const auto failure = ReadEutFailure(entry.line.value);
    if (!failure) {
        entry.Refuse(
            L"a failure is written like 102, 433MHz..435MHz, 3 s, 1 "
            L"(channel, frequencies, how long, reading)");
    }
    dynamic_cast<sim::SimMonitor&>(device).failures.push_back(*failure);
}

/// "set, check": what a monitoring device can be used for; any other use fails.
void ReadUses(const Entry& entry, sim::SimDevice& device) {
    static constexpr struct {
        StringView word;
        std::int32_t bit;
    } Uses[] = {{L"set", IMonitorDevice::UseToSet},
                {L"check", IMonitorDevice::UseToCheck},
                {L"track", IMonitorDevice::UseToTrack}};
    std::int32_t bits = 0;
    for (const StringView part : Parts(entry.line.value)) {
        const auto* const use = std::ranges::find_if(
            Uses, [&](const auto& row) { return EqualNoCase(row.word, part); });
        if (use == std::end(Uses)) {
            entry.Refuse(L"a monitoring device can be used to set, to check and to track");
        }
        bits |= use->bit;
    }
    dynamic_cast<sim::SimMonitor&>(device).capabilities = bits;
}

void ReadPaths(const Entry& entry, sim::SimDevice& device) {
    for (const StringView path : Parts(entry.line.value)) {
        dynamic_cast<sim::SimSwitchUnit&>(device).paths.emplace_back(path);
    }
}

sim::SimCurve CurveOf(const Entry& entry) {
    const auto curve = ReadCurve(entry.line.value);
    if (!curve) {
        entry.Refuse(L"values over frequency are written like 80MHz:-1.5, 1GHz:-2");
    }
    return *curve;
}

void ReadCorrection(const Entry& entry, sim::SimDevice& device) {
    dynamic_cast<sim::SimSignalPath&>(device).correction = CurveOf(entry);
}

/// A key of a device's section. `isNumbered` stands for a key with a number behind it.
struct DetailRow {
    StringView key;
    std::optional<SimClass> ofClass;  ///< none for all
    bool isNumbered;
    void (*read)(const Entry& entry, sim::SimDevice& device);
};
constexpr DetailRow Details[] = {
    {L"State", std::nullopt, false, ReadState},
    {L"Fail", SimClass::Monitoring, true, ReadFailure},
    {L"Uses", SimClass::Monitoring, false, ReadUses},
    {L"Paths", SimClass::SwitchUnits, false, ReadPaths},
    {L"Correction", SimClass::SignalPaths, false, ReadCorrection},
};

bool FitsKey(const DetailRow& row, StringView key) {
    if (!row.isNumbered) {
        return EqualNoCase(row.key, key);
    }
    return EqualNoCase(key.substr(0, row.key.size()), row.key) &&
           WholeInteger(key.substr(std::min(row.key.size(), key.size()))).has_value();
}

void ReadDetail(const Entry& entry, SimClass deviceClass, sim::SimDevice& device) {
    for (const DetailRow& row : Details) {
        if (FitsKey(row, entry.line.key) && (!row.ofClass || *row.ofClass == deviceClass)) {
            return row.read(entry, device);
        }
    }
    entry.Refuse(L"no device of the class " + sim::ClassKeyOf(deviceClass) + L" has this key");
}

// ---- the instrument behind it ------------------------------------------------------------------

constexpr StringView BindKey = L"Bind";
constexpr StringView TerminatorKey = L"Terminator";

struct TerminatorRow {
    StringView word;
    StringView text;
};
constexpr TerminatorRow Terminators[] = {
    {L"LF", L"\n"}, {L"CR", L"\r"}, {L"CRLF", L"\r\n"}, {L"none", L""}};

String TerminatorOf(const Entry& entry) {
    for (const TerminatorRow& row : Terminators) {
        if (EqualNoCase(row.word, entry.line.value)) {
            return String(row.text);
        }
    }
    entry.Refuse(L"the terminator is LF, CR, CRLF or none");
}

/// What the section of a device says of its instrument; the entries that do are taken out.
struct Binding {
    std::optional<InstrumentAddress> address;
    String terminator = L"\n";
    std::map<String, String> commands;
};

Binding TakeBinding(std::vector<Entry>& entries, SimClass deviceClass) {
    Binding binding;
    const auto keys = CommandKeys(deviceClass);
    std::optional<Entry> first;
    std::erase_if(entries, [&](const Entry& entry) {
        const String& key = entry.line.key;
        const auto command =
            std::ranges::find_if(keys, [&](StringView known) { return EqualNoCase(known, key); });
        if (EqualNoCase(key, BindKey) && !keys.empty()) {
            binding.address = ReadAddress(entry.line.value);
            if (!binding.address) {
                entry.Refuse(
                    L"an instrument is written like GPIB 0:13, COM3 or TCP 192.168.17.21:5025");
            }
            return true;
        }
        if (EqualNoCase(key, TerminatorKey) && !keys.empty()) {
            binding.terminator = TerminatorOf(entry);
        } else if (command != keys.end()) {
            binding.commands[String(*command)] = entry.line.value;
        } else {
            return false;
        }
        if (!first) {
            first.emplace(entry);
        }
        return true;
    });
    if (first && !binding.address) {
        first->Refuse(L"without Bind= there is no instrument to send it to");
    }
    return binding;
}

void ReadDevice(const Entry& entry, sim::SimHost& host) {
    const String& name = entry.line.key;
    const auto deviceClass = FindClass(entry.line.value);
    if (!deviceClass) {
        entry.Refuse(L"\"" + entry.line.value + L"\" is no class: " + AllClassKeys());
    }
    std::vector<Entry> details = EntriesOf(*entry.document, *entry.path, name);
    Binding binding = TakeBinding(details, *deviceClass);
    const std::shared_ptr<sim::SimDevice> device =
        binding.address
            ? AddBound(host, *deviceClass, name,
                       Instrument(InstrumentLink(host, *binding.address, binding.terminator),
                                  std::move(binding.commands)))
            : AddSimulated(host, *deviceClass, name);
    for (const Entry& detail : details) {
        ReadDetail(detail, *deviceClass, *device);
    }
}

/// A section that belongs to nothing is a name that is written differently in two places.
void RequireKnownSections(const SettingsDocument& document, const String& path,
                          const std::vector<Entry>& devices) {
    for (const String& name : document.SectionNames()) {
        const bool isDevice = std::ranges::any_of(
            devices, [&](const Entry& entry) { return EqualNoCase(entry.line.key, name); });
        if (!isDevice && !EqualNoCase(name, DevicesSection) && !EqualNoCase(name, TablesSection)) {
            RefuseFile(PlaceText(document, path, name, {}) +
                       L": no line of [Devices] has a device of this name");
        }
    }
    RequireSectionsOnce(document, path);
}

}  // namespace

void ReadDevices(const SettingsDocument& document, const String& path, sim::SimHost& host) {
    const std::vector<Entry> devices = EntriesOf(document, path, DevicesSection);
    if (devices.empty()) {
        RefuseFile(path + L": there is no device in it: [Devices] needs lines of the form " +
                   L"name=class");
    }
    RequireKnownSections(document, path, devices);
    for (const Entry& entry : devices) {
        ReadDevice(entry, host);
    }
    for (const Entry& entry : EntriesOf(document, path, TablesSection)) {
        host.bench.Add<sim::SimCalTable>(host, entry.line.key)->levels = CurveOf(entry);
    }
}

}  // namespace ace::workbench
