// Answers and failures on purpose that never come to pass.
#include <algorithm>
#include <set>

#include <ace/core/text.h>

#include "sim/sim_devices.h"
#include "workbench/check/rule_tests.h"
#include "workbench/check/section_names.h"
#include "workbench/session/plan.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// What the actions of a test do that answers and failures can be about.
struct Acts {
    std::vector<String> messages;  ///< to the operator, each as one line
    /// Other texts can stand on the screen too: with placeholders, of failed checks, of generators.
    bool hasOtherMessages = false;
    std::vector<String> addresses;
    std::vector<String> programs;
    std::vector<String> macros;
    std::vector<std::pair<String, std::int32_t>> readings;  ///< monitoring device and channel
};

bool HasPlaceholder(StringView text) {
    return text.find(L'#') != StringView::npos;
}

std::optional<InstrumentAddress> AddressOf(const aceRemote& record) {
    constexpr std::int32_t BoardUnit = 100;
    switch (record.Iface) {
        case aceRemote::Gpib:
            return ReadAddress(L"GPIB " + std::to_wstring(record.GpibAddress / BoardUnit) + L":" +
                               std::to_wstring(record.GpibAddress % BoardUnit));
        case aceRemote::Serial:
            return ReadAddress(L"COM" + std::to_wstring(record.SerComPort));
        case aceRemote::TcpIp:
            return ReadAddress(L"TCP " + record.TcpHost + L":" + std::to_wstring(record.TcpPort));
        default:
            return std::nullopt;
    }
}

void AddAction(Acts& acts, const CheckedAction& action) {
    if (const auto* const notify = action.As<aceNotify>()) {
        acts.messages.push_back(OneLine(notify->Message));
        acts.hasOtherMessages = acts.hasOtherMessages || HasPlaceholder(notify->Message);
    } else if (const auto* const remote = action.As<aceRemote>()) {
        acts.programs.push_back(remote->Program);
        if (const auto address = AddressOf(*remote); address && !remote->Command.empty()) {
            acts.addresses.push_back(AddressText(*address));
        }
    } else if (const auto* const macro = action.As<aceAPI>()) {
        acts.macros.push_back(macro->Program);
    } else if (const auto* const track = action.As<aceTrackFreq>()) {
        acts.hasOtherMessages = acts.hasOtherMessages || track->AskOnMeasStart;
    } else if (const auto* const device = action.As<aceSetDevice>()) {
        const std::int32_t kind = action.action.ActionType;
        if (kind == atCheckEut || kind == atMonitorEUT) {
            acts.hasOtherMessages = acts.hasOtherMessages || device->Notify;
            acts.readings.emplace_back(device->DevName, device->ChanNo);
        }
    }
}

/// With what the devices of the bench and the channels of the monitoring do.
Acts ActsOf(const CheckedFile& file) {
    Acts acts;
    ForEachAction(file, [&](const CheckedAction& action) { AddAction(acts, action); });
    for (const ChannelEvents& channel : file.Input().setUp.channels) {
        if (channel.watch) {
            acts.readings.emplace_back(channel.watch->device, channel.watch->channel);
        }
    }
    const std::optional<SettingsDocument>& bench = file.Input().benchDocument;
    for (const String& section : bench ? bench->SectionNames() : std::vector<String>()) {
        const std::optional<String> bound = bench->GetKey(section, L"Bind");
        if (const auto address = ReadAddress(bound.value_or(String()))) {
            acts.addresses.push_back(AddressText(*address));
        }
    }
    return acts;
}

/// One of the texts fits the pattern, or could do so once its placeholders are replaced.
bool CanFit(const std::vector<String>& texts, const String& pattern) {
    return std::ranges::any_of(texts, [&](const String& text) {
        return HasPlaceholder(text) || FitsPattern(text, pattern);
    });
}

/// A device of the bench can fail at that.
bool CanFail(const sim::SimBench& bench, const FaultRule& rule) {
    const auto device = bench.Device(rule.name);
    switch (device ? rule.act : FaultAct::Call) {
        case FaultAct::Reading:
            return std::dynamic_pointer_cast<sim::SimMonitor>(device) != nullptr;
        case FaultAct::Switching:
            return std::dynamic_pointer_cast<sim::SimAmplifier>(device) != nullptr ||
                   std::dynamic_pointer_cast<sim::SimSwitchUnit>(device) != nullptr;
        default:
            return true;
    }
}

bool CanCome(const FaultRule& rule, const Acts& acts, const sim::SimBench* bench,
             bool isBenchKnown) {
    switch (rule.subject) {
        case FaultSubject::Program:
            return CanFit(acts.programs, rule.name);
        case FaultSubject::Macro:
            return CanFit(acts.macros, rule.name);
        case FaultSubject::Device:
            return bench == nullptr || CanFail(*bench, rule);
        default:
            return !isBenchKnown || std::ranges::any_of(acts.addresses, [&](const String& address) {
                return EqualNoCase(address, rule.name);
            });
    }
}

/// The device of a pattern for a failure's message, up to what stands for anything; empty for none.
String DeviceIn(const String& pattern, ThreadContext& context) {
    constexpr std::int32_t DeviceLabel = 9322;
    const String label = context.Language().Text(DeviceLabel) + L":";
    const std::size_t begin = pattern.find(label);
    if (begin == String::npos) {
        return {};
    }
    const StringView rest = StringView(pattern).substr(begin + label.size());
    return String(Trimmed(rest.substr(0, rest.find_first_of(L"*?"))));
}

/// Why a failure of the equipment never shows; empty when it can.
String WhyNeverRead(const std::vector<Moment>& plan, const Acts& acts, const String& device,
                    const sim::SimEutFailure& failure) {
    const bool isRead = std::ranges::any_of(acts.readings, [&](const auto& reading) {
        return EqualNoCase(reading.first, device) && reading.second == failure.channel;
    });
    if (!isRead) {
        return L"no action reads channel " + std::to_wstring(failure.channel) + L" of " +
               QuotedLine(device);
    }
    const bool isReached = std::ranges::any_of(plan, [&](const Moment& moment) {
        return moment.hertz >= failure.fromHz && moment.hertz <= failure.toHz;
    });
    return isReached ? String() : String(L"the test has no frequency in this range");
}

}  // namespace

/// A pattern that no moment of the test fits.
void RuleTests::AnswerForNoMoment(const CheckedFile& file, const Found& found) {
    const Answers* const answers = file.Input().answers;
    if (answers == nullptr) {
        return;
    }
    const std::vector<Moment> plan = PlanOf(file.Input().setUp);
    for (const AnswerLine* line : answers->Unused()) {
        const bool fits = std::ranges::any_of(plan, [&](const Moment& moment) {
            return FitsPattern(MomentWords(moment), line->moment) ||
                   FitsPattern(MomentCallRowOf(moment.call).operation, line->moment);
        });
        if (!fits) {
            found.At({file.Input().answersPath, line->line, {}, {}, line->source},
                     {QuotedLine(line->moment)});
        }
    }
}

/// A failure of a device shows its name behind its label: "*Device: Amp A*".
void RuleTests::AnswerForNoDevice(const CheckedFile& file, const Found& found) {
    const CheckInput& input = file.Input();
    if (input.answers == nullptr || input.bench == nullptr) {
        return;
    }
    for (const AnswerLine* line : input.answers->Unused()) {
        const String name = DeviceIn(line->message, file.Context());
        const bool isKnown = std::ranges::any_of(input.bench->devices, [&](const auto& device) {
            return BeginsWith(device->name, name) || BeginsWith(name, device->name);
        });
        if (!EqualNoCase(line->kind, L"question") && !name.empty() && !isKnown) {
            found.At({input.answersPath, line->line, {}, {}, line->source}, {QuotedLine(name)});
        }
    }
}

void RuleTests::FaultForNoDevice(const CheckedFile& file, const Found& found) {
    const sim::SimBench* const bench = file.Input().bench;
    const FaultRules* const faults = file.Input().faults;
    for (const FaultRule& rule : faults != nullptr ? faults->All() : std::vector<FaultRule>()) {
        if (bench != nullptr && rule.subject == FaultSubject::Device && !bench->Device(rule.name)) {
            found.At({file.Input().faultsPath, rule.line, {}, {}, rule.text},
                     {QuotedLine(rule.name)});
        }
    }
}

/// Only where all messages of that kind are known.
void RuleTests::AnswerForNoMessage(const CheckedFile& file, const Found& found) {
    const Answers* const answers = file.Input().answers;
    if (answers == nullptr) {
        return;
    }
    const Acts acts = ActsOf(file);
    for (const AnswerLine* line : answers->Unused()) {
        const bool isOfActions =
            EqualNoCase(line->kind, L"notification") || EqualNoCase(line->kind, L"question");
        if (isOfActions && !acts.hasOtherMessages && !CanFit(acts.messages, line->message)) {
            found.At({file.Input().answersPath, line->line, {}, {}, line->source},
                     {QuotedLine(line->message)});
        }
    }
}

/// A device of the bench can send to any address that its file names, so the file must be known.
void RuleTests::FaultForNothing(const CheckedFile& file, const Found& found) {
    const FaultRules* const faults = file.Input().faults;
    if (faults == nullptr) {
        return;
    }
    const bool isBenchKnown =
        file.Input().bench == nullptr || file.Input().benchDocument.has_value();
    const Acts acts = ActsOf(file);
    for (const FaultRule& rule : faults->All()) {
        if (!CanCome(rule, acts, file.Input().bench, isBenchKnown)) {
            found.At({file.Input().faultsPath, rule.line, {}, {}, rule.text},
                     {QuotedLine(rule.name)});
        }
    }
}

void RuleTests::FailureNeverRead(const CheckedFile& file, const Found& found) {
    const CheckInput& input = file.Input();
    if (input.bench == nullptr || !input.benchDocument) {
        return;
    }
    const std::vector<Moment> plan = PlanOf(input.setUp);
    const Acts acts = ActsOf(file);
    for (const auto& device : input.bench->devices) {
        const auto* const monitor = dynamic_cast<const sim::SimMonitor*>(device.get());
        if (monitor == nullptr || monitor->failures.empty()) {
            continue;
        }
        auto failure = monitor->failures.begin();
        std::size_t line = input.benchDocument->HeaderLine(device->name).value_or(0);
        for (const String& text : input.benchDocument->GetSection(device->name)) {
            ++line;
            const std::size_t equals = std::min(text.find(L'='), text.size());
            const StringView key = Trimmed(StringView(text).substr(0, equals));
            if (equals == text.size() || !EqualNoCase(key.substr(0, 4), L"Fail") ||
                failure == monitor->failures.end()) {
                continue;
            }
            if (const String why = WhyNeverRead(plan, acts, device->name, *failure); !why.empty()) {
                found.At(
                    {input.benchPath, line, device->name, String(key), text.substr(equals + 1)},
                    {why});
            }
            ++failure;
        }
    }
}

}  // namespace ace::workbench
