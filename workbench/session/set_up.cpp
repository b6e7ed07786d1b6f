#include "workbench/session/set_up.h"

#include <algorithm>
#include <limits>

#include <ace/core/text.h>
#include <ace/settings/action_line.h>
#include <ace/settings/wireless_names.h>

#include "workbench/files/place_text.h"
#include "workbench/words/frequency.h"
#include "workbench/words/slips.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr StringView MainSection = L"Workbench";
/// A kind of test and a channel of a device are any number of the host's.
constexpr std::int32_t AnyNumber = std::numeric_limits<std::int32_t>::max();
/// The tables of a matrix are announced one entry at a time, and each time its rows are gone over.
constexpr std::size_t MostCombinations = 10'000;

String Numbered(StringView word, std::int32_t number) {
    return String(word) + std::to_wstring(number);
}

/// Reads keys of one file and names their places when they make no sense.
class Reader {
  public:
    Reader(const SettingsDocument& document, const String& path)
        : x_document(document), x_path(path) {}

    bool Has(StringView section) const { return x_document.HasSection(section); }
    std::optional<String> Text(StringView section, StringView key) const {
        const std::optional<String> value = x_document.GetKey(section, key);
        return value ? std::optional(String(Trimmed(*value))) : std::nullopt;
    }
    std::optional<double> Number(StringView section, StringView key) const {
        const std::optional<String> text = Text(section, key);
        const std::optional<double> number = text ? WholeNumber(*text) : std::nullopt;
        if (text && !number) {
            Refuse(section, key, L"\"" + *text + L"\" is no number");
        }
        return number;
    }
    std::optional<std::int32_t> Integer(StringView section, StringView key, std::int32_t least,
                                        std::int32_t most) const {
        const std::optional<double> number = Number(section, key);
        if (!number) {
            return std::nullopt;
        }
        if (*number < least || *number > most || *number != static_cast<std::int32_t>(*number)) {
            Refuse(section, key,
                   L"this must be a whole number from " + std::to_wstring(least) + L" to " +
                       std::to_wstring(most));
        }
        return static_cast<std::int32_t>(*number);
    }
    std::vector<std::int32_t> Integers(StringView section, StringView key) const;
    double Needed(StringView section, StringView key) const {
        const std::optional<double> number = Number(section, key);
        if (!number) {
            Refuse(section, key, L"the sweep needs this key");
        }
        return *number;
    }
    [[noreturn]] void Refuse(StringView section, StringView key, StringView why) const {
        RefuseFile(PlaceText(x_document, x_path, section, key) + L": " + String(why));
    }

    /// For a key of the main section that is not there, or under another name.
    [[noreturn]] void RefuseMissing(StringView key, const String& why) const {
        for (const String& line : x_document.GetSection(MainSection)) {
            const StringView name = Trimmed(StringView(line).substr(0, line.find(L'=')));
            if (IsSlipOf(name, key)) {
                Refuse(MainSection, name, L"did you mean " + String(key) + L"?");
            }
        }
        RefuseUse(PlaceText(x_document, x_path, MainSection, {}) + L": " + why);
    }

  private:
    const SettingsDocument& x_document;
    const String& x_path;
};

std::vector<std::int32_t> Reader::Integers(StringView section, StringView key) const {
    std::vector<std::int32_t> numbers;
    const String text = Text(section, key).value_or(String());
    for (StringView rest = text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(L','), rest.size());
        const std::optional<std::int32_t> number = WholeInteger(rest.substr(0, end));
        if (!number || *number < 1) {
            Refuse(section, key, L"these must be numbers of frequencies from 1, separated by ,");
        }
        numbers.push_back(*number);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return numbers;
}

std::optional<Sweep> FileSweep(const Reader& reader, std::int32_t number) {
    const String section = Numbered(L"Workbench.Subrange", number);
    if (!reader.Has(section)) {
        return std::nullopt;
    }
    const Sweep sweep{reader.Needed(section, L"StartHz"), reader.Needed(section, L"StopHz"),
                      reader.Needed(section, L"StepPercent"),
                      reader.Number(section, L"DwellMs").value_or(0.0)};
    if (const String why = WhyNoSweep(sweep); !why.empty()) {
        reader.Refuse(section, {}, why);
    }
    return sweep;
}

/// The sweep of entry `number`: an option wins and keeps the file's dwell.
std::optional<Sweep> SweepOf(const Reader& reader, const SetUpOptions& options,
                             std::int32_t number) {
    if (options.sweeps.empty()) {
        return FileSweep(reader, number);
    }
    const auto index = std::min(static_cast<std::size_t>(number), options.sweeps.size()) - 1;
    Sweep sweep = options.sweeps[index];
    sweep.dwellMs =
        reader.Number(Numbered(L"Workbench.Subrange", number), L"DwellMs").value_or(0.0);
    return sweep;
}

/// Sweeps for modules whose numbered entries have none: all that are given, one after the other.
void ReadTestSweeps(const Reader& reader, const SetUpOptions& options, TestSetUp& setUp) {
    const auto given = static_cast<std::int32_t>(options.sweeps.size());
    for (std::int32_t number = 1; given == 0 || number <= given; ++number) {
        const std::optional<Sweep> sweep = SweepOf(reader, options, number);
        if (!sweep) {
            return;
        }
        setUp.sweeps.push_back(sweep);
    }
}

void ReadEntrySweeps(const Reader& reader, const SetUpOptions& options, TestSetUp& setUp) {
    String missing;
    for (std::int32_t number = 1; number <= setUp.subRanges; ++number) {
        setUp.sweeps.push_back(SweepOf(reader, options, number));
        if (!setUp.sweeps.back()) {
            missing += (missing.empty() ? L"" : L", ") + std::to_wstring(number);
        }
    }
    if (!missing.empty()) {
        setUp.notes.push_back(String(ModuleWordsOf(setUp.moduleKind).one) + L" " + missing +
                              L": no sweep in [Workbench.Subrange<n>] and no --sweep, so no "
                              L"frequency is run there");
    }
}

void ReadSweeps(const Reader& reader, const SetUpOptions& options, TestSetUp& setUp) {
    static constexpr aceModul WithFrequencies[] = {
        aceTemplate, aceMonitoring, aceEMSAutoTemplateGeneral, aceEMIAutoTemplate, aceAziChart};
    if (std::ranges::find(WithFrequencies, setUp.moduleKind) == std::end(WithFrequencies)) {
        if (!options.sweeps.empty()) {
            RefuseUse(L"--sweep: a test of module " + String(ModuleWordsOf(setUp.moduleKind).name) +
                      L" has no frequencies");
        }
        return;
    }
    if (ModuleWordsOf(setUp.moduleKind).sweepPerEntry && setUp.subRanges > 0) {
        ReadEntrySweeps(reader, options, setUp);
        return;
    }
    ReadTestSweeps(reader, options, setUp);
    if (setUp.sweeps.empty()) {
        setUp.notes.emplace_back(
            L"no sweep in [Workbench.Subrange1] and no --sweep, so no frequency is run");
    }
}

/// The plan of a test is made before it, so it must fit into memory.
void RequireBounded(const Reader& reader, const SetUpOptions& options, const TestSetUp& setUp) {
    const String limit = L" have more than " + std::to_wstring(MostFrequencies) + L" frequencies";
    std::size_t count = 0;
    std::int32_t number = 0;
    for (const std::optional<Sweep>& sweep : setUp.sweeps) {
        ++number;
        count += sweep ? Frequencies(*sweep).size() : 0;
        if (count > MostFrequencies && !options.sweeps.empty()) {
            RefuseUse(L"--sweep: the sweeps of the test" + limit);
        }
        if (count > MostFrequencies) {
            reader.Refuse(Numbered(L"Workbench.Subrange", number), {},
                          L"the sweeps up to this one" + limit);
        }
    }
}

std::optional<ChannelWatch> ReadWatch(const Reader& reader, const String& section) {
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

void ReadChannels(const Reader& reader, TestSetUp& setUp) {
    for (std::int32_t number = 1; number <= setUp.subRanges; ++number) {
        const String section = Numbered(L"Workbench.Channel", number);
        setUp.channels.push_back(
            {reader.Text(section, L"Name").value_or(Numbered(L"Channel ", number)),
             reader.Integers(section, L"Trigger"), reader.Integers(section, L"NoGo"),
             reader.Integers(section, L"Go"), ReadWatch(reader, section)});
    }
}

void ReadWirelessTests(const Reader& reader, TestSetUp& setUp) {
    using namespace WirelessNames;
    String missing;
    for (std::int32_t test = 1; test <= setUp.subRanges; ++test) {
        const String section = KeysOf(TestSection(test));
        const std::optional<String> key = reader.Text(section, TestKey);
        if (!key || key->empty()) {
            missing += (missing.empty() ? L"" : L", ") + std::to_wstring(test);
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
        setUp.notes.push_back(L"test " + missing +
                              L": no VKS_UKey in [ActionsOnTest<n>_VKS], so there is no such test");
    }
}

/// The names word0, word1 ... up to the first that is missing.
std::vector<String> ReadNames(const Reader& reader, StringView section, StringView word) {
    std::vector<String> names;
    while (const auto name =
               reader.Text(section, Numbered(word, static_cast<std::int32_t>(names.size())))) {
        names.push_back(*name);
    }
    return names;
}

std::vector<MatrixFrequency> ReadMatrixFrequencies(const Reader& reader, StringView section) {
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

std::optional<bool> ReadFlag(const Reader& reader, StringView section, StringView key) {
    const std::optional<std::int32_t> number = reader.Integer(section, key, 0, 1);
    return number ? std::optional(*number == 1) : std::nullopt;
}

void ReadMatrix(const Reader& reader, TestSetUp& setUp) {
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

aceModul ReadModul(const Reader& reader, const SetUpOptions& options) {
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

std::int32_t ReadSubRanges(const Reader& reader, const SetUpOptions& options, aceModul moduleKind) {
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
    const Reader reader(document, path);
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
    const Reader reader(document, path);
    TestSetUp setUp = ReadListsSetUp(document, path, options);
    setUp.testKind = reader.Integer(MainSection, L"TestKind", 0, AnyNumber);
    ReadSweeps(reader, options, setUp);
    RequireBounded(reader, options, setUp);
    if (setUp.moduleKind == aceMonitoring) {
        ReadChannels(reader, setUp);
    }
    return setUp;
}

}  // namespace ace::workbench
