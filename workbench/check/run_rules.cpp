// What a test does with an action when it runs.
#include <algorithm>
#include <set>

#include <ace/core/moment_table.h>
#include <ace/core/text.h>
#include <ace/execution/what_runs.h>
#include <ace/settings/action_line.h>

#include "workbench/check/rule_tests.h"
#include "workbench/session/wireless_run.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::int32_t FreqListNumber = 3;
constexpr std::int32_t Operate = 3;

bool IsAtFrequency(const CheckedAction& action) {
    return action.line.list == FreqListNumber && action.section.fixed != nullptr &&
           FrequencySetOf(action.section.moduleKind) == action.section.fixed;
}

/// The list ends the test: what it switches off stays off.
bool IsEndOfTest(const CheckedSection& section, std::int32_t list) {
    const MomentRow* const row = FindMoment(section.moduleKind, ptStopTest);
    return row != nullptr && row->fixed == section.fixed && row->fixed != nullptr &&
           row->list == ActionLists[list - 1];
}

/// Nothing but messages to the operator stands behind it in its list.
bool IsLastButForMessages(const CheckedAction& action) {
    const ListFields& list = ActionLists[action.line.list - 1];
    const p_Subrange& set = action.section.Lists();
    for (std::int32_t i = action.line.entry + 1; i < set.*list.count; ++i) {
        if ((set.*list.actions)[i].ActionType != atNotify) {
            return false;
        }
    }
    return true;
}

/// The texts of an action in which placeholders are replaced.
std::vector<String> TextsOf(const CheckedAction& action) {
    std::vector<String> texts;
    if (const auto* const notify = action.As<aceNotify>()) {
        texts.push_back(notify->Message);
    } else if (const auto* const remote = action.As<aceRemote>()) {
        texts = {remote->Command, remote->Program};
    } else if (const auto* const macro = action.As<aceAPI>()) {
        for (std::int32_t i = 1; i <= macro->Parameters.UpperBound(); ++i) {
            texts.push_back(macro->Parameters[i]);
        }
    }
    return texts;
}

/// "#FREQ#" and the like: letters, digits and "_" between two "#". Small letters are a slip.
std::vector<String> PlaceholdersIn(const String& text) {
    constexpr StringView Letters =
        L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    std::vector<String> names;
    std::size_t begin = text.find(L'#');
    while (begin != String::npos) {
        const std::size_t end = text.find(L'#', begin + 1);
        if (end == String::npos) {
            break;
        }
        const StringView name = StringView(text).substr(begin + 1, end - begin - 1);
        const bool isName = !name.empty() && name.find_first_not_of(Letters) == StringView::npos;
        if (isName) {
            names.push_back(text.substr(begin, end + 1 - begin));
        }
        begin = isName ? text.find(L'#', end + 1) : end;
    }
    return names;
}

bool IsReplaced(const CheckedAction& action, const String& name) {
    const TestSetUp& setUp = action.file.Input().setUp;
    const bool isWireless = setUp.moduleKind == aceVKSTemplate || setUp.moduleKind == aceVKSDUT;
    const bool isGiven =
        isWireless &&
        std::ranges::find(setUp.placeholders, name, &Placeholder::name) != setUp.placeholders.end();
    const std::span<const StringView> ofRows = RowPlaceholders();
    const bool isOfRow = setUp.moduleKind == aceVKSDUT &&
                         std::ranges::find(ofRows, StringView(name)) != ofRows.end();
    return isGiven || isOfRow || (action.As<aceAPI>() != nullptr && name == L"#FREQ#");
}

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

/// A command switches an output: "OUTP ON", ":OUTP:STAT 1", "RF OFF". A reset switches it off.
enum class OutputSwitch { None, On, Off };
OutputSwitch OutputOf(StringView command) {
    const String text = Upper(command);
    OutputSwitch last = OutputSwitch::None;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L';', begin), text.size());
        const StringView part = Trimmed(StringView(text).substr(begin, end - begin));
        const std::size_t blank = part.find_last_of(L" \t");
        const StringView header = part.substr(0, std::min(blank, part.size()));
        const StringView value = blank == StringView::npos ? StringView() : part.substr(blank + 1);
        const bool isOutput = header.find(L"OUTP") != StringView::npos || Trimmed(header) == L"RF";
        if (isOutput && (value == L"ON" || value == L"1")) {
            last = OutputSwitch::On;
        } else if (part == L"*RST" || (isOutput && (value == L"OFF" || value == L"0"))) {
            last = OutputSwitch::Off;
        }
        begin = end + 1;
    }
    return last;
}

/// What an action switches on or off, as one text; empty for nothing.
struct Radiation {
    String source;
    bool isOn = false;
};
Radiation RadiationOf(const CheckedAction& action) {
    if (const auto* const remote = action.As<aceRemote>();
        remote != nullptr && !remote->Command.empty()) {
        const OutputSwitch output = OutputOf(remote->Command);
        return output == OutputSwitch::None
                   ? Radiation{}
                   : Radiation{L"the output of " + AddressOf(*remote), output == OutputSwitch::On};
    }
    if (const auto* const amplifier = action.As<aceSetDevice>();
        amplifier != nullptr && action.IsOf(L"SWITCHAMP:") && !amplifier->DevName.empty()) {
        return {L"the amplifier " + amplifier->DevName, amplifier->AmpState == Operate};
    }
    return {};
}

}  // namespace

void RuleTests::SkippedAtFrequency(const CheckedAction& action, const Found& found) {
    if (IsAtFrequency(action) && !FrequencyKinds.Has(action.action.ActionType)) {
        found.At(action, {action.line.keyword});
    }
}

void RuleTests::ListNeverRuns(const CheckedFile& file, const CheckedSection& section,
                              const Found& found) {
    for (const CheckedLine& line : section.lines) {
        if (line.meaning == LineMeaning::Count && line.count > 0 && !section.Runs(line.list)) {
            found.At(file, section, line,
                     {Counted(static_cast<std::size_t>(line.count), L"action", L"actions")});
        }
    }
}

void RuleTests::TrackingOutside(const CheckedAction& action, const Found& found) {
    if (action.action.ActionType == atTrackFreq && IsAtFrequency(action) &&
        action.section.moduleKind != aceTemplate) {
        found.At(action);
    }
}

/// Results of a monitoring channel; in a walk that only goes on or ends, each of them ends it.
void RuleTests::SignalStopsTest(const CheckedAction& action, const Found& found) {
    constexpr KindSet Results(atComment, atGotoSingle, atStopLevSweep, atNbBbEtsi);
    const bool isChannel = action.section.sets == &ModuleLists::MoniChannels;
    if (Results.Has(action.action.ActionType) && !isChannel &&
        action.section.Runs(action.line.list)) {
        found.At(action, {action.line.keyword});
    }
}

void RuleTests::ParksNothing(const CheckedAction& action, const Found& found) {
    const bool parks =
        ParksAtTheEnd(action.section.moduleKind) && IsEndOfTest(action.section, action.line.list);
    if (action.action.ActionType == atParkAcc && !parks) {
        found.At(action);
    }
}

/// At the end of the test the last words to the operator hold nothing up.
void RuleTests::WaitsForOperator(const CheckedAction& action, const Found& found) {
    const auto* const notify = action.As<aceNotify>();
    const std::int32_t kind = action.action.ActionType;
    if (const auto* const track = action.As<aceTrackFreq>();
        track != nullptr && !track->GenName.empty() && track->AskOnMeasStart) {
        found.At(action, {L"whether " + QuotedLine(track->GenName) + L" is to be on"});
    }
    if (notify == nullptr || (kind != atNotify && kind != atQuestion) ||
        !action.section.Runs(action.line.list) || IsAtFrequency(action)) {
        return;
    }
    const bool isLast = kind == atNotify && IsEndOfTest(action.section, action.line.list) &&
                        IsLastButForMessages(action);
    if (!notify->Message.empty() && !isLast) {
        found.At(action, {QuotedLine(notify->Message)});
    }
}

void RuleTests::PlaceholderStays(const CheckedAction& action, const Found& found) {
    std::set<String> told;
    for (const String& text : TextsOf(action)) {
        for (const String& name : PlaceholdersIn(text)) {
            if (!IsReplaced(action, name) && told.insert(name).second) {
                found.At(action, {name});
            }
        }
    }
}

/// At the first action that switches something on.
void RuleTests::RadiationStays(const CheckedFile& file, const Found& found) {
    std::set<String> off;
    ForEachAction(file, [&](const CheckedAction& action) {
        const Radiation radiation = RadiationOf(action);
        if (IsEndOfTest(action.section, action.line.list) && !radiation.isOn) {
            off.insert(radiation.source);
        }
    });
    const MomentRow* const end = FindMoment(file.Input().setUp.moduleKind, ptStopTest);
    std::set<String> told;
    ForEachAction(file, [&](const CheckedAction& action) {
        const Radiation radiation = RadiationOf(action);
        if (end != nullptr && radiation.isOn && !off.contains(radiation.source) &&
            action.section.Runs(action.line.list) && told.insert(radiation.source).second) {
            found.At(action, {radiation.source});
        }
    });
}

}  // namespace ace::workbench
