#include "workbench/session/wireless_run.h"

#include <algorithm>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using Engine = _aceActionsEngine;

/// What the host has set, else what the lists say themselves.
std::int32_t FlagOf(const std::optional<bool>& wanted, Boolean loaded) {
    return wanted.value_or(static_cast<bool>(loaded)) ? 1 : 0;
}

void AnnounceMatrix(Engine& engine, const Matrix& matrix) {
    for (const MatrixFrequency& frequency : matrix.frequencies) {
        engine.AddVKSDUTFreq(frequency.name, frequency.hertz);
    }
    for (const String& bandwidth : matrix.bandwidths) {
        engine.AddVKSDUTBandwidthID(bandwidth);
    }
    for (const String& power : matrix.powers) {
        engine.AddVKSDUTPowerID(power);
    }
    engine.SetVKSDUTInfluence(FlagOf(matrix.byFrequency, engine.VKSInfByFreq()),
                              FlagOf(matrix.byBandwidth, engine.VKSInfByBandwidth()),
                              FlagOf(matrix.byPower, engine.VKSInfByPower()));
}

struct Pair {
    String name;
    Value value;
};

/// One member of each element.
template <class Element, class Source>
DynArray<Element> ArrayOf(const std::vector<Source>& elements, Element Source::*member) {
    DynArray<Element> array;
    array.Redim(0, static_cast<std::int32_t>(elements.size()) - 1);
    std::int32_t i = 0;
    for (const Source& element : elements) {
        array[i++] = element.*member;
    }
    return array;
}

void SetPairs(Engine& engine, const std::vector<Pair>& pairs) {
    if (pairs.empty()) {
        return;
    }
    const DynArray<String> names = ArrayOf(pairs, &Pair::name);
    const DynArray<Value> values = ArrayOf(pairs, &Pair::value);
    engine.SetVKSReplaceVar(names, values);
}

/// The file has no names for tests.
void AnnounceTests(Engine& engine, const std::vector<WirelessTest>& tests) {
    if (!tests.empty()) {
        const DynArray<String> keys = ArrayOf(tests, &WirelessTest::key);
        engine.SetVKSTests(keys, keys);
    }
}

std::vector<Pair> PairsOf(const TestSetUp& setUp) {
    std::vector<Pair> pairs;
    for (const Placeholder& placeholder : setUp.placeholders) {
        pairs.push_back({placeholder.name, placeholder.value});
    }
    return pairs;
}

String NameOf(const std::vector<String>& names, std::int32_t id, StringView all) {
    return id < 0 ? String(all) : names[static_cast<std::size_t>(id)];
}

String FrequencyName(const Matrix& matrix, double hertz) {
    const auto found = std::ranges::find(matrix.frequencies, hertz, &MatrixFrequency::hertz);
    return found == matrix.frequencies.end() ? String(L"all frequencies") : found->name;
}

/// -1 stands for all of a dimension.
String KeyWords(const Matrix& matrix, double hertz, std::int32_t bandwidth, std::int32_t power) {
    return FrequencyName(matrix, hertz) + L", " +
           NameOf(matrix.bandwidths, bandwidth, L"all bandwidths") + L", " +
           NameOf(matrix.powers, power, L"all powers");
}

/// Indexed by `Verdict`.
constexpr StringView Verdicts[VerdictCount] = {L"passed", L"failed",
                                               L"n.a., because the step was broken off",
                                               L"n.a., because the step has no actions"};

constexpr StringView RowNames[] = {L"#MEASFREQ#", L"#FREQ#", L"#BW#", L"#POWER#", L"#HOPPING#"};

}  // namespace

std::span<const StringView> RowPlaceholders() {
    return RowNames;
}

void AnnounceWireless(Engine& engine, const TestSetUp& setUp) {
    if (setUp.moduleKind == aceVKSDUT) {
        AnnounceMatrix(engine, setUp.matrix);
    } else if (setUp.moduleKind == aceVKSTemplate) {
        AnnounceTests(engine, setUp.tests);
        SetPairs(engine, PairsOf(setUp));
    }
}

void FillRowPlaceholders(Engine& engine, const TestSetUp& setUp, const Moment& row) {
    const Matrix& matrix = setUp.matrix;
    std::vector<Pair> pairs = PairsOf(setUp);
    const Value values[] = {row.hertz, row.hertz, NameOf(matrix.bandwidths, row.bandwidth, {}),
                            NameOf(matrix.powers, row.power, {}), std::int32_t{0}};
    static_assert(std::size(values) == std::size(RowNames));
    for (std::size_t i = 0; i < std::size(values); ++i) {
        pairs.push_back({String(RowNames[i]), values[i]});
    }
    SetPairs(engine, pairs);
}

String CombinationWords(const Matrix& matrix, const Moment& row) {
    return KeyWords(matrix, row.hertz, row.bandwidth, row.power);
}

String RowWords(Engine& engine, const Matrix& matrix, const Moment& row) {
    double hertz = row.hertz;  // the engine writes the key that it looked for into these
    std::int32_t bandwidth = row.bandwidth;
    std::int32_t power = row.power;
    const std::int32_t count = engine.VKSDUTStepActionCount(hertz, bandwidth, power);
    const String wanted = CombinationWords(matrix, row);
    const String found = KeyWords(matrix, hertz, bandwidth, power);
    return wanted + (found == wanted ? String() : L", as " + found) + L": " +
           (count == 0 ? String(L"no actions")
                       : Counted(static_cast<std::size_t>(count), L"action", L"actions"));
}

Verdict VerdictOf(Engine& engine, const Moment& step, bool isStopped) {
    if (!engine.VKSStepHaveActions(step.name, step.stepKey)) {
        return Verdict::NoActions;
    }
    if (!engine.VKSGetResult()) {
        return Verdict::Failed;
    }
    return isStopped ? Verdict::BrokenOff : Verdict::Passed;
}

String VerdictWords(const Moment& step, Verdict verdict) {
    return L"verdict of " + QuotedLine(step.stepName.empty() ? step.stepKey : step.stepName) +
           L": " + String(Verdicts[static_cast<std::size_t>(verdict)]);
}

}  // namespace ace::workbench
