// Rows of a matrix, wireless tests and steps that the run passes over.
#include <array>
#include <map>
#include <set>

#include <ace/core/text.h>
#include <ace/matrix/matrix_rows.h>
#include <ace/settings/wireless_names.h>

#include "workbench/check/rule_tests.h"
#include "workbench/session/loaded_engines.h"
#include "workbench/session/plan.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

// ---- rows of a matrix ----------------------------------------------------------------------

/// A dimension of the matrix, and where it stands: in the keys of a row, and what says that the
/// actions depend on it, in the file of the matrix and in the set-up of the test, which wins.
struct Dimension {
    StringView id;
    StringView word;
    StringView flagOfFile;
    StringView flagOfTest;
    std::optional<bool> Matrix::*wanted;
    Boolean ModuleLists::*flag;
};
constexpr Dimension Dimensions[] = {
    {L"ID0", L"frequency", L"Freq", L"InfluencedByFreq", &Matrix::byFrequency,
     &ModuleLists::VKSInfByFreq},
    {L"ID1", L"bandwidth", L"Bandwidth", L"InfluencedByBandwidth", &Matrix::byBandwidth,
     &ModuleLists::VKSInfByBandwidth},
    {L"ID2", L"power", L"Power", L"InfluencedByPower", &Matrix::byPower,
     &ModuleLists::VKSInfByPower},
};

/// A matrix as the run announces it, and what its moments ask for there.
struct AskedMatrix {
    explicit AskedMatrix(const CheckedFile& file);

    LoadedEngines engines;
    EngineState& state;
    std::set<std::int32_t> rows;              ///< that run, by their indexes
    std::array<std::set<double>, 3> asked{};  ///< by dimension
};

AskedMatrix::AskedMatrix(const CheckedFile& file)
    : engines(LoadEngines(file.Context(), file.Input().setUp, file.Input().path)),
      state(static_cast<aceActionsEngine&>(*engines.engine).State()) {
    for (const Moment& moment : PlanOf(file.Input().setUp)) {
        if (moment.call != MomentCall::VKSDUTStep) {
            continue;
        }
        double frequency = moment.hertz;
        std::int32_t bandwidth = moment.bandwidth;
        std::int32_t power = moment.power;
        if (const std::int32_t row = TakeRow(state, frequency, bandwidth, power); row >= 0) {
            rows.insert(row);
        }
        const RowKey key{frequency, static_cast<double>(bandwidth), static_cast<double>(power)};
        for (std::size_t i = 0; i < key.size(); ++i) {
            asked[i].insert(key[i]);
        }
    }
}

/// "[Workbench.DUT] InfluencedByPower": what decides whether the actions depend on a dimension.
String FlagText(const CheckedFile& file, const Dimension& dimension) {
    const TestSetUp& setUp = file.Input().setUp;
    return (setUp.matrix.*dimension.wanted).has_value()
               ? L"[Workbench.DUT] " + String(dimension.flagOfTest)
               : L"[" + WirelessNames::MatrixSection(setUp.subRanges) + L"] " +
                     String(dimension.flagOfFile);
}

/// What is wrong with the id of a row in one dimension; empty when the test asks for it.
String WrongId(const CheckedFile& file, const AskedMatrix& matrix, const CheckedSection& row,
               std::size_t column) {
    const double value = KeyOf(file.Lists(), row.place.index)[column];
    if (matrix.asked[column].contains(value)) {
        return {};
    }
    const Dimension& dimension = Dimensions[column];
    const String word(dimension.word);
    const std::optional<String> text =
        file.Input().document->GetKey(WirelessNames::KeysOf(row.name), dimension.id);
    const String id =
        String(dimension.id) + L" is " + (text ? String(Trimmed(*text)) : String(L"missing"));
    if (!(matrix.state.*dimension.flag)) {
        return id + L", but " + FlagText(file, dimension) + L" says that the " + word +
               L" makes no difference";
    }
    return value == All ? id + L", which stands for all, but " + FlagText(file, dimension) +
                              L" says that each " + word + L" has its own row"
                        : id + L", and the test has no such " + word;
}

/// Why nothing runs a row. `first` is the section that has its key first.
String ReasonOf(const CheckedFile& file, const AskedMatrix& matrix, const CheckedSection& row,
                const CheckedSection& first) {
    const String keys = WirelessNames::KeysOf(row.name);
    if (file.HeaderLine(keys) == 0) {
        return L"[" + keys + L"], where its ids should stand, is not there";
    }
    String reason;
    for (std::size_t column = 0; column < std::size(Dimensions); ++column) {
        const String wrong = WrongId(file, matrix, row, column);
        reason += (reason.empty() || wrong.empty() ? L"" : L"; ") + wrong;
    }
    if (!reason.empty()) {
        return reason;
    }
    return &first != &row ? L"[" + first.name + L"] has the same ids and comes first"
                          : L"[Workbench.DUT] and [" +
                                WirelessNames::MatrixSection(file.Input().setUp.subRanges) +
                                L"] differ in what influences the actions, which gives the row up";
}

std::size_t ActionsOf(const CheckedSection& section) {
    std::size_t actions = 0;
    for (const CheckedLine& line : section.lines) {
        actions += line.fills ? 1U : 0U;
    }
    return actions;
}

// ---- tests and steps -------------------------------------------------------------------------

/// What a section of a wireless test or step goes by, and the key that says so.
struct WirelessKey {
    StringView key;
    std::pair<String, String> value;
};
std::optional<WirelessKey> KeyOfSection(const CheckedFile& file, const CheckedSection& section) {
    const ModuleLists& lists = file.Lists();
    const std::int32_t index = section.place.index;
    if (section.sets == &ModuleLists::VKSTests) {
        return WirelessKey{WirelessNames::TestKey, {lists.VKSTestUKeys[index], {}}};
    }
    if (section.sets == &ModuleLists::VKSSteps) {
        return WirelessKey{WirelessNames::StepKey,
                           {lists.VKSStepUKeys[index], lists.VKSStepKeys[index]}};
    }
    return std::nullopt;
}

void TellTwice(const CheckedFile& file, const CheckedSection& section, StringView key,
               const CheckedSection& first, const Found& found) {
    const String name = WirelessNames::KeysOf(section.name);
    for (const KeyLine& line : file.KeyLines(name)) {
        if (EqualNoCase(line.key, key)) {
            found.At({file.Input().path, line.line, name, line.key, line.value}, {first.name});
            return;
        }
    }
}

bool IsLoadedAs(const CheckedFile& file, aceModul moduleKind) {
    return file.Input().setUp.moduleKind == moduleKind && file.Failure().empty();
}

}  // namespace

/// A row without actions may be there for nothing.
void RuleTests::RowRuledOut(const CheckedFile& file, const Found& found) {
    if (!IsLoadedAs(file, aceVKSDUT)) {
        return;
    }
    const AskedMatrix matrix(file);
    std::map<RowKey, const CheckedSection*> firsts;
    for (const CheckedSection& row : file.Sections()) {
        if (row.sets != &ModuleLists::VKSSteps) {
            continue;
        }
        const auto index = static_cast<std::size_t>(row.place.index);
        const auto first = firsts.emplace(KeyOf(file.Lists(), row.place.index), &row).first;
        const std::size_t actions = ActionsOf(row);
        if (actions > 0 && !matrix.rows.contains(matrix.engines.rowsNow[index])) {
            found.At(
                {file.Input().path, row.header, row.name},
                {Counted(actions, L"action", L"actions"),
                 ReasonOf(file, matrix, row, *first->second), WirelessNames::KeysOf(row.name)});
        }
    }
}

/// The steps of a test that has its key twice are read twice, too, from the same sections.
void RuleTests::WirelessKeyTwice(const CheckedFile& file, const Found& found) {
    if (!IsLoadedAs(file, aceVKSTemplate)) {
        return;
    }
    std::map<std::tuple<StringView, String, String>, const CheckedSection*> firsts;
    for (const CheckedSection& section : file.Sections()) {
        const std::optional<WirelessKey> own = KeyOfSection(file, section);
        if (!own) {
            continue;
        }
        const auto [first, isFirst] =
            firsts.emplace(std::tuple(own->key, own->value.first, own->value.second), &section);
        if (!isFirst && first->second->name != section.name) {
            TellTwice(file, section, own->key, *first->second, found);
        }
    }
}

}  // namespace ace::workbench
