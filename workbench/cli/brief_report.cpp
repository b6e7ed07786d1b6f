#include "workbench/cli/brief_report.h"

#include <algorithm>

#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

bool IsFrequency(const Moment& moment) {
    return moment.call == MomentCall::NewFrequency;
}

bool IsRow(const Moment& moment) {
    using enum MomentCall;
    return moment.call == VKSDUTStepGlobBefore || moment.call == VKSDUTStep ||
           moment.call == VKSDUTStepGlobAfter;
}

/// A row is three moments, and counts once.
bool Counts(const Moment& moment) {
    return IsFrequency(moment) || moment.call == MomentCall::VKSDUTStep;
}

/// "254 frequencies", "171 of 254 frequencies"
String CountOf(std::size_t done, std::size_t all, StringView one, StringView many) {
    return (done < all ? std::to_wstring(done) + L" of " : String()) + Counted(all, one, many);
}

/// "2 actions, 0:00:01.500"
String WorkText(std::size_t actions, double workMs) {
    const String text =
        actions == 0 ? String(L"no actions") : Counted(actions, L"action", L"actions");
    const String time = DurationText(workMs);
    return time == DurationText(0.0) ? text : text + L", " + time;
}

}  // namespace

void BriefReport::OnLine(const Place& place, LineKind kind, const String& words) {
    if (!x_isInMoment) {
        CloseStretch();
    }
    if (x_stretch && !x_isBeside) {
        const auto known = std::ranges::find(x_stretch->lines, words, &Repeated::words);
        if (known != x_stretch->lines.end()) {
            known->place = place;
            ++known->times;
            return;
        }
        x_stretch->lines.push_back({place, kind, words, 1});
    }
    x_report.OnLine(place, kind, words);
}

void BriefReport::OnProgress(std::size_t done, std::size_t total) {
    x_report.OnProgress(done, total);
}

/// In monitoring, the step behind a frequency belongs to it.
bool BriefReport::IsPartOfStretch(const Moment& moment) const {
    if (!x_stretch) {
        return false;
    }
    if (IsFrequency(moment)) {
        return IsFrequency(x_stretch->first) && moment.number == x_stretch->first.number &&
               !moment.isAgain;
    }
    if (IsRow(moment)) {
        return IsRow(x_stretch->first);
    }
    return moment.call == MomentCall::AfterStep && x_setUp.moduleKind == aceMonitoring;
}

/// A channel that changes at a frequency has a line of its own and does not cut the stretch in two.
bool BriefReport::StandsBesideStretch(const Moment& moment) const {
    using enum MomentCall;
    return x_stretch && (moment.call == Trigger || moment.call == EnterNoGo || moment.call == Go);
}

void BriefReport::OnMomentStarts(const Moment& moment) {
    x_isInMoment = true;
    x_isBeside = StandsBesideStretch(moment);
    if (x_isBeside || IsPartOfStretch(moment)) {
        return;
    }
    CloseStretch();
    if (IsFrequency(moment) || IsRow(moment)) {
        x_stretch = Stretch{.first = moment, .last = moment};
    }
}

void BriefReport::OnMomentEnds(const Moment& moment, const MomentCost& cost) {
    x_isInMoment = false;
    const double workMs = cost.endMs - cost.startMs;
    if (!x_stretch || x_isBeside) {
        x_report.PrintMoment(cost.endMs, MomentWords(moment), WorkText(cost.actions, workMs));
        return;
    }
    if (Counts(moment)) {
        x_stretch->last = moment;
        ++x_stretch->count;
    }
    x_stretch->actions += cost.actions;
    x_stretch->workMs += workMs;
    x_stretch->endMs = cost.endMs;
}

/// The ends of a sweep that was run to its end are those of the set-up.
String BriefReport::WordsOf(const Stretch& stretch) const {
    if (IsRow(stretch.first)) {
        return CountOf(stretch.count, CombinationsOf(x_setUp.matrix), L"row", L"rows");
    }
    const Sweep sweep = *x_setUp.sweeps[static_cast<std::size_t>(stretch.first.number - 1)];
    const std::size_t all = Frequencies(sweep).size();
    const double lastHz = stretch.count < all ? stretch.last.hertz : sweep.stopHz;
    return String(stretch.first.isAgain ? L"again " : L"") + FrequencyText(sweep.startHz) +
           (lastHz == sweep.startHz ? String() : L" to " + FrequencyText(lastHz)) + L", " +
           CountOf(stretch.count, all, L"frequency", L"frequencies");
}

void BriefReport::CloseStretch() {
    if (!x_stretch) {
        return;
    }
    for (const Repeated& line : x_stretch->lines) {
        if (line.times > 1) {
            x_report.OnLine(line.place, line.kind,
                            line.words + L" (the last of " + std::to_wstring(line.times) + L")");
        }
    }
    x_report.PrintMoment(
        x_stretch->endMs, IsRow(x_stretch->first) ? L"matrix" : L"frequencies",
        WordsOf(*x_stretch) + L": " + WorkText(x_stretch->actions, x_stretch->workMs));
    x_stretch.reset();
}

}  // namespace ace::workbench
