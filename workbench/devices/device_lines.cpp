#include "workbench/devices/device_lines.h"

#include <ace/core/text.h>

#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using sim::SimClass;

/// "3 s", "3" or "200 ms" in milliseconds.
std::optional<double> ReadMilliseconds(StringView text) {
    constexpr struct {
        StringView unit;
        double milliseconds;
    } Units[] = {{L"ms", 1.0}, {L"s", 1000.0}, {L"", 1000.0}};
    for (const auto& row : Units) {
        if (!text.ends_with(row.unit)) {
            continue;
        }
        const auto number = WholeNumber(text.substr(0, text.size() - row.unit.size()));
        const bool isTime = number && *number >= 0.0;
        return isTime ? std::optional(*number * row.milliseconds) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

std::vector<StringView> Parts(StringView text) {
    std::vector<StringView> parts;
    if (Trimmed(text).empty()) {
        return parts;
    }
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L',', begin), text.size());
        parts.push_back(Trimmed(text.substr(begin, end - begin)));
        begin = end + 1;
    }
    return parts;
}

std::optional<sim::SimCurve> ReadCurve(StringView text) {
    sim::SimCurve curve;
    for (const StringView part : Parts(text)) {
        const std::size_t colon = part.find(L':');
        if (colon == StringView::npos) {
            return std::nullopt;
        }
        const std::optional<double> hertz = ReadFrequency(part.substr(0, colon));
        const std::optional<double> value = WholeNumber(part.substr(colon + 1));
        if (!hertz || !value || !curve.emplace(*hertz, *value).second) {
            return std::nullopt;
        }
    }
    return curve.empty() ? std::nullopt : std::optional(curve);
}

std::optional<sim::SimEutFailure> ReadEutFailure(StringView text) {
    const std::vector<StringView> parts = Parts(text);
    constexpr std::size_t Needed = 4;
    if (parts.size() != Needed) {
        return std::nullopt;
    }
    const std::size_t dots = parts[1].find(L"..");
    const bool isSpan = dots != StringView::npos;
    const auto channel = WholeInteger(parts[0]);
    const auto from = ReadFrequency(parts[1].substr(0, isSpan ? dots : parts[1].size()));
    const auto to = isSpan ? ReadFrequency(parts[1].substr(dots + 2)) : from;
    const auto milliseconds = ReadMilliseconds(parts[2]);
    const auto reading = WholeNumber(parts[3]);
    if (!channel || !from || !to || *to < *from || !milliseconds || !reading) {
        return std::nullopt;
    }
    sim::SimEutFailure failure;
    failure.channel = *channel;
    failure.fromHz = *from;
    failure.toHz = *to;
    failure.milliseconds = *milliseconds;
    failure.reading = *reading;
    return failure;
}

std::optional<SimClass> FindClass(StringView key) {
    for (const SimClass one : sim::AllClasses()) {
        if (EqualNoCase(sim::ClassKeyOf(one), key)) {
            return one;
        }
    }
    return std::nullopt;
}

String AllClassKeys() {
    String all;
    for (const SimClass one : sim::AllClasses()) {
        all += (all.empty() ? L"" : L", ") + sim::ClassKeyOf(one);
    }
    return all;
}

}  // namespace ace::workbench
