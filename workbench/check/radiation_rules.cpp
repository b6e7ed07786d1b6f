// What a test switches on and nothing switches off.
#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include <ace/core/text.h>

#include "workbench/check/rule_tests.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// States of an amplifier.
constexpr std::int32_t Powered = 1;
constexpr std::int32_t Operating = 3;

/// Where a command goes, as one text.
String AddressOf(const aceRemote& record) {
    switch (record.Iface) {
        case aceRemote::Gpib:
            return L"GPIB " + std::to_wstring(record.GpibAddress);
        case aceRemote::Serial:
            return L"COM" + std::to_wstring(record.SerComPort);
        case aceRemote::TcpIp:
            return record.TcpHost + L":" + std::to_wstring(record.TcpPort);
        default:
            return {};
    }
}

String Upper(StringView text) {
    String upper(text);
    for (wchar_t& c : upper) {
        c = c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    }
    return upper;
}

/// The last words of a command's header say the state of an output: "OUTP", ":OUTPUT1:STATE", "RF".
bool IsOutputHeader(StringView header) {
    const auto lastWord = [&] {
        const std::size_t colon = header.rfind(L':');
        const StringView word = header.substr(colon == StringView::npos ? 0 : colon + 1);
        header = header.substr(0, header.size() - word.size());
        header.remove_suffix(header.empty() ? 0 : 1);
        return word.substr(0, word.find_last_not_of(L"0123456789") + 1);
    };
    const StringView last = lastWord();
    const StringView word = last == L"STAT" || last == L"STATE" ? lastWord() : last;
    return word == L"OUTP" || word == L"OUTPUT" || word == L"RF";
}

/// A command switches an output: "OUTP ON", ":OUTP:STAT 1", "RF OFF". A reset switches it off.
enum class OutputSwitch { None, On, Off };
OutputSwitch OutputOf(StringView command) {
    const String text = Upper(command);
    OutputSwitch last = OutputSwitch::None;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L';', begin), text.size());
        const StringView part = Trimmed(StringView(text).substr(begin, end - begin));
        const std::size_t blank = part.find_last_of(L" \t");
        const StringView header = Trimmed(part.substr(0, std::min(blank, part.size())));
        const StringView value = blank == StringView::npos ? StringView() : part.substr(blank + 1);
        const bool isOutput = IsOutputHeader(header);
        if (isOutput && (value == L"ON" || value == L"1")) {
            last = OutputSwitch::On;
        } else if (part == L"*RST" || (isOutput && (value == L"OFF" || value == L"0"))) {
            last = OutputSwitch::Off;
        }
        begin = end + 1;
    }
    return last;
}

/// What an action switches on or off. An amplifier that is told to be on is neither: it is powered,
/// and whether it radiates depends on what it did before.
struct Radiation {
    String source;  ///< in words
    bool isOn = false;
};
std::optional<Radiation> RadiationOf(const CheckedAction& action) {
    if (const auto* const remote = action.As<aceRemote>();
        remote != nullptr && !remote->Command.empty()) {
        const OutputSwitch output = OutputOf(remote->Command);
        return output == OutputSwitch::None
                   ? std::nullopt
                   : std::optional(Radiation{L"the output of " + AddressOf(*remote),
                                             output == OutputSwitch::On});
    }
    const auto* const amplifier = action.As<aceSetDevice>();
    if (amplifier != nullptr && action.IsOf(L"SWITCHAMP:") && !amplifier->DevName.empty() &&
        RuleTests::IsAmplifierState(amplifier->AmpState) && amplifier->AmpState != Powered) {
        return Radiation{L"the amplifier " + amplifier->DevName, amplifier->AmpState == Operating};
    }
    return std::nullopt;
}

/// What the end of the test leaves off: of each source the last action of its list decides. The
/// names are those of devices and hosts, in capitals.
std::set<String> LeftOff(const CheckedFile& file) {
    std::map<std::int32_t, Radiation> ofEnd;  // by the number of the entry
    ForEachAction(file, [&](const CheckedAction& action) {
        if (!action.section.IsEndOfTest(action.line.list)) {
            return;
        }
        if (const std::optional<Radiation> radiation = RadiationOf(action)) {
            ofEnd.emplace(action.line.entry, *radiation);
        }
    });
    std::set<String> off;
    for (const auto& [entry, radiation] : ofEnd) {
        if (radiation.isOn) {
            off.erase(Upper(radiation.source));
        } else {
            off.insert(Upper(radiation.source));
        }
    }
    return off;
}

}  // namespace

/// At the first action that switches something on.
void RuleTests::RadiationStays(const CheckedFile& file, const Found& found) {
    if (EndOf(file.Input().setUp.moduleKind) == nullptr) {
        return;
    }
    const std::set<String> off = LeftOff(file);
    std::set<String> told;
    ForEachAction(file, [&](const CheckedAction& action) {
        const std::optional<Radiation> radiation = RadiationOf(action);
        if (radiation && radiation->isOn && action.section.Runs(action.line.list) &&
            !off.contains(Upper(radiation->source)) &&
            told.insert(Upper(radiation->source)).second) {
            found.At(action, {radiation->source});
        }
    });
}

}  // namespace ace::workbench
