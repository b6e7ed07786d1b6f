// What monitoring channels go by.
#include <algorithm>

#include <ace/core/text.h>

#include "workbench/check/rule_tests.h"
#include "workbench/session/plan.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr struct {
    StringView key;
    std::vector<std::int32_t> ChannelEvents::*numbers;
} Events[] = {{L"Trigger", &ChannelEvents::trigger},
              {L"NoGo", &ChannelEvents::noGo},
              {L"Go", &ChannelEvents::go}};

/// Numbers above `last`, in their order.
std::vector<std::int32_t> Beyond(std::vector<std::int32_t> numbers, std::int32_t last) {
    std::erase_if(numbers, [&](std::int32_t number) { return number <= last; });
    std::ranges::sort(numbers);
    return numbers;
}

}  // namespace

/// A test without any frequency has a note of its own.
void RuleTests::ChannelEventBeyond(const CheckedFile& file, const Found& found) {
    constexpr std::size_t MostRanges = 4;
    const TestSetUp& setUp = file.Input().setUp;
    if (setUp.channels.empty()) {
        return;
    }
    const auto frequencies = static_cast<std::size_t>(
        std::ranges::count(PlanOf(setUp), MomentCall::NewFrequency, &Moment::call));
    for (std::size_t i = 0; i < setUp.channels.size() && frequencies > 0; ++i) {
        const String section = L"Workbench.Channel" + std::to_wstring(i + 1);
        const std::vector<KeyLine> keys = file.KeyLines(section);
        for (const auto& event : Events) {
            const std::vector<std::int32_t> beyond =
                Beyond(setUp.channels[i].*event.numbers, static_cast<std::int32_t>(frequencies));
            const auto line = std::ranges::find_if(
                keys, [&](const KeyLine& key) { return EqualNoCase(key.key, event.key); });
            if (!beyond.empty() && line != keys.end()) {
                found.At({file.Input().path, line->line, section, line->key, line->value},
                         {Counted(frequencies, L"frequency", L"frequencies"),
                          RangesText(beyond, MostRanges), std::to_wstring(frequencies)});
            }
        }
    }
}

}  // namespace ace::workbench
