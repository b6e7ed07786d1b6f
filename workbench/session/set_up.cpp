#include "workbench/session/set_up.h"

#include <limits>

#include <ace/settings/action_line.h>
#include <ace/settings/wireless_names.h>

#include "workbench/session/set_up_reader.h"
#include "workbench/session/set_up_sweeps.h"
#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// A kind of test and a channel of a device are any number of the host's.
constexpr std::int32_t AnyNumber = std::numeric_limits<std::int32_t>::max();
/// The tables of a matrix are announced one entry at a time, and each time its rows are gone over.
constexpr std::size_t MostCombinations = 10'000;

std::optional<ChannelWatch> ReadWatch(const SetUpReader& reader, const String& section) {
    const std::optional<String> device = reader.Text(section, L"Device");
    ChannelWatch watch;
    watch.triggerAbove = reader.Number(section, L"TriggerAbove");
    watch.noGoAbove = reader.Number(section, L"NoGoAbove");
    if (!device || device->empty()) {
        if (watch.triggerAbove || watch.noGoAbove) {
            reader.Refuse(section, watch.triggerAbove ? L"TriggerAbove" : L"NoGoAbove",
                          L"a limit needs Device=, the monitoring device that is read");
        }
        return std::nullopt;
    }
    if (!watch.triggerAbove && !watch.noGoAbove) {
        reader.Refuse(section, L"Device", L"a device needs a limit, TriggerAbove= or NoGoAbove=");
    }
    watch.device = *device;
    watch.channel = reader.Integer(section, L"DeviceChannel", 0, AnyNumber).value_or(1);
    return watch;
}

void ReadChannels(const SetUpReader& reader, TestSetUp& setUp) {
    for (std::int32_t number = 1; number <= setUp.subRanges; ++number) {
        const String section = Numbered(L"Workbench.Channel", number);
        setUp.channels.push_back(
            {reader.Text(section, L"Name").value_or(Numbered(L"Channel ", number)),
             reader.Integers(section, L"Trigger"), reader.Integers(section, L"NoGo"),
             reader.Integers(section, L"Go"), ReadWatch(reader, section)});
    }
}

void ReadWirelessTests(const SetUpReader& reader, TestSetUp& setUp) {
    using namespace WirelessNames;
    std::vector<std::int32_t> missing;
    for (std::int32_t test = 1; test <= setUp.subRanges; ++test) {
        const String section = KeysOf(TestSection(test));
        const std::optional<String> key = reader.Text(section, TestKey);
        if (!key || key->empty()) {
            missing.push_back(test);
            continue;
        }
        WirelessTest wireless{*key, {}};
        const std::int32_t steps = reader.Integer(section, StepCount, 0, MostEntries).value_or(0);
        for (std::int32_t step = 1; step <= steps; ++step) {
            const String stepSection = KeysOf(StepSection(*key, step));
            const std::optional<String> stepKey = reader.Text(stepSection, StepKey);
            if (stepKey && !stepKey->empty()) {
                wireless.steps.push_back(
                    {*stepKey, reader.Text(stepSection, StepName).value_or(String())});
            }
        }
        setUp.tests.push_back(std::move(wireless));
    }
    if (!missing.empty()) {
        setUp.notes.push_back(L"test " + RangesText(missing, MostNotedRanges) +
                              L": no VKS_UKey in [ActionsOnTest<n>_VKS], so there is no such test");
    }
}

/// The names word0, word1 ... up to the first that is missing.
std::vector<String> ReadNames(const SetUpReader& reader, StringView section, StringView word) {
    std::vector<String> names;
    while (const auto name =
               reader.Text(section, Numbered(word, static_cast<std::int32_t>(names.size())))) {
        names.push_back(*name);
    }
    return names;
}

std::vector<MatrixFrequency> ReadMatrixFrequencies(const SetUpReader& reader, StringView section) {
    std::vector<MatrixFrequency> frequencies;
    for (std::int32_t id = 0;; ++id) {
        const std::optional<double> hertz = reader.Number(section, Numbered(L"Freq", id));
        if (!hertz) {
            return frequencies;
        }
        if (*hertz < 0.0) {
            reader.Refuse(section, Numbered(L"Freq", id),
                          L"a frequency is 0 (the test mode) or more");
        }
        frequencies.push_back(
            {*hertz, reader.Text(section, Numbered(L"FreqName", id))
                         .value_or(*hertz == 0.0 ? String(L"test mode") : FrequencyText(*hertz))});
    }
}

std::optional<bool> ReadFlag(const SetUpReader& reader, StringView section, StringView key) {
    const std::optional<std::int32_t> number = reader.Integer(section, key, 0, 1);
    return number ? std::optional(*number == 1) : std::nullopt;
}

void ReadMatrix(const SetUpReader& reader, TestSetUp& setUp) {
    static constexpr StringView Section = L"Workbench.DUT";
    Matrix& matrix = setUp.matrix;
    matrix.frequencies = ReadMatrixFrequencies(reader, Section);
    matrix.bandwidths = ReadNames(reader, Section, L"BandwidthName");
    matrix.powers = ReadNames(reader, Section, L"PowerName");
    if (matrix.frequencies.empty() || matrix.bandwidths.empty() || matrix.powers.empty()) {
        reader.Refuse(Section, {},
                      L"the matrix needs Freq0, BandwidthName0 and PowerName0 at least");
    }
    if (CombinationsOf(matrix) > MostCombinations) {
        reader.Refuse(
            Section, {},
            L"the matrix has more than " + std::to_wstring(MostCombinations) + L" combinations");
    }
    matrix.byFrequency = ReadFlag(reader, Section, L"InfluencedByFreq");
    matrix.byBandwidth = ReadFlag(reader, Section, L"InfluencedByBandwidth");
    matrix.byPower = ReadFlag(reader, Section, L"InfluencedByPower");
    const String templateSection = WirelessNames::MatrixSection(setUp.subRanges);
    if (!reader.Has(templateSection)) {
        setUp.notes.push_back(L"the file has no template " + std::to_wstring(setUp.subRanges) +
                              L" ([" + templateSection + L"]), so its rows have no actions");
    }
}

aceModul ReadModul(const SetUpReader& reader, const SetUpOptions& options) {
    if (options.moduleKind) {
        return *options.moduleKind;
    }
    const std::optional<String> text = reader.Text(MainSection, L"Module");
    if (!text) {
        reader.RefuseMissing(
            L"Module",
            L"the file does not say which module it is for (Module=): say it with --module");
    }
    const ModuleWords* module = FindModuleWords(*text);
    if (module == nullptr) {
        reader.Refuse(MainSection, L"Module",
                      L"\"" + *text + L"\" is no module: 0 to 8, or a name such as aceTemplate");
    }
    return module->moduleKind;
}

std::int32_t ReadSubRanges(const SetUpReader& reader, const SetUpOptions& options,
                           aceModul moduleKind) {
    if (options.matrixTemplate && moduleKind != aceVKSDUT) {
        RefuseUse(L"--template: a test of module " + String(ModuleWordsOf(moduleKind).name) +
                  L" has no template number");
    }
    if (options.matrixTemplate || options.subRanges) {
        return options.matrixTemplate ? *options.matrixTemplate : *options.subRanges;
    }
    const std::optional<std::int32_t> number =
        reader.Integer(MainSection, L"SubRanges", 0, MostSubranges);
    if (!number && ModuleWordsOf(moduleKind).needsSubranges) {
        const StringView many = ModuleWordsOf(moduleKind).many;
        reader.RefuseMissing(
            L"SubRanges",
            L"the file does not say " +
                (many.empty() ? String(L"which template") : L"how many " + String(many)) +
                L" the test has (SubRanges=): say it with " +
                (moduleKind == aceVKSDUT ? L"--template" : L"--subranges"));
    }
    return number.value_or(0);
}

/// The lines "name=value" of their section; the names are the user's.
void ReadPlaceholders(const SettingsDocument& document, TestSetUp& setUp) {
    for (const String& line : document.GetSection(L"Workbench.Placeholders")) {
        const StringView text = Trimmed(line);
        const std::size_t equals = text.find(L'=');
        // A "#" begins no comment here: the names are like #FREQ#.
        if (!IsEmptyOrComment(text, L";") && equals != StringView::npos && equals != 0) {
            setUp.placeholders.push_back({String(Trimmed(text.substr(0, equals))),
                                          String(Trimmed(text.substr(equals + 1)))});
        }
    }
}

}  // namespace

std::size_t CombinationsOf(const Matrix& matrix) {
    return matrix.frequencies.size() * matrix.bandwidths.size() * matrix.powers.size();
}

TestSetUp ReadListsSetUp(const SettingsDocument& document, const String& path,
                         const SetUpOptions& options) {
    const SetUpReader reader(document, path);
    TestSetUp setUp;
    setUp.moduleKind = ReadModul(reader, options);
    setUp.subRanges = ReadSubRanges(reader, options, setUp.moduleKind);
    setUp.title = reader.Text(MainSection, L"Title").value_or(String());
    if (setUp.moduleKind == aceVKSTemplate) {
        ReadWirelessTests(reader, setUp);
    } else if (setUp.moduleKind == aceVKSDUT) {
        ReadMatrix(reader, setUp);
    }
    ReadPlaceholders(document, setUp);
    return setUp;
}

TestSetUp ReadSetUp(const SettingsDocument& document, const String& path,
                    const SetUpOptions& options) {
    const SetUpReader reader(document, path);
    TestSetUp setUp = ReadListsSetUp(document, path, options);
    setUp.testKind = reader.Integer(MainSection, L"TestKind", 0, AnyNumber);
    ReadSweeps(reader, options, setUp);
    if (setUp.moduleKind == aceMonitoring) {
        ReadChannels(reader, setUp);
    }
    return setUp;
}

}  // namespace ace::workbench
