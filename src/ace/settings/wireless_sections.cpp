#include <algorithm>

#include <ace/host/checked_numbers.h>
#include <ace/settings/action_line.h>
#include <ace/settings/wireless_names.h>
#include <ace/settings/wireless_sections.h>

namespace ace {

namespace {

using namespace WirelessNames;

constexpr StringView CountKey = L"Count";
/// What the influence flags of the matrix are called in its file.
struct InfluenceKey {
    StringView key;
    Boolean ModuleLists::*flag;
};
constexpr InfluenceKey InfluenceKeys[] = {
    {L"Freq", &ModuleLists::VKSInfByFreq},
    {L"Bandwidth", &ModuleLists::VKSInfByBandwidth},
    {L"Power", &ModuleLists::VKSInfByPower},
};

constexpr const ModuleRow& TemplateRow = ModuleTable[aceVKSTemplate];
constexpr const ModuleRow& MatrixRow = ModuleTable[aceVKSDUT];

String RowSection(const EngineState& state, std::int32_t row) {
    return StepSection(L"_" + std::to_wstring(state.VKSDUTTemplate), row);
}

/// A number of sections that the file asks for.
std::int32_t ReadCount(const SettingsStatements& file, const String& section, StringView key) {
    const std::int32_t count = file.GetLong(section, key, 0);
    file.Do([&] {
        if (count > MostEntries) {
            Raise(Errors::OutOfMemory);
        }
    });
    return count;
}

void ReadStep(const SettingsStatements& file, const String& testKey, std::int32_t step) {
    EngineState& state = file.State();
    const String section = StepSection(testKey, step);
    const String key = file.GetString(KeysOf(section), StepKey);
    if (key.empty()) {
        return;
    }
    const String name = file.GetString(KeysOf(section), StepName);
    const std::int32_t index = state.VKSStepCount;
    file.Do([&] { state.VKSStepUKeys.RedimPreserve(index); });
    file.Do([&] { state.VKSStepNames.RedimPreserve(index); });
    file.Do([&] { state.VKSStepKeys.RedimPreserve(index); });
    file.Do([&] { state.VKSSteps.RedimPreserve(index); });
    state.VKSStepUKeys[index] = testKey;
    state.VKSStepNames[index] = name;
    state.VKSStepKeys[index] = key;
    file.ReadElement(state.VKSSteps, index, section);
    state.VKSStepCount = index + 1;
}

/// A host that calls back from a load finds the tests held: one is counted where it stands.
void ReadTest(const SettingsStatements& file, std::int32_t test) {
    EngineState& state = file.State();
    const DynArray<p_Subrange>::Hold hold(state.VKSTests);
    const String section = TestSection(test);
    const std::int32_t index = state.VKSTestCount;
    const String key = file.GetString(KeysOf(section), TestKey);
    state.VKSTestUKeys[index] = key;
    if (key.empty()) {
        return;
    }
    const std::int32_t steps = ReadCount(file, KeysOf(section), StepCount);
    file.ReadElement(state.VKSTests, index, section);
    for (std::int32_t step = 1; step <= steps; ++step) {
        ReadStep(file, key, step);
    }
    ++state.VKSTestCount;
}

/// The arrays of the tests get a spare element; those of the steps grow as steps are found. Nothing
/// is counted until all of them are there.
void MakeTestArrays(const SettingsStatements& file, std::int32_t subRanges) {
    EngineState& state = file.State();
    file.Do([&] { state.VKSSteps.Erase(); });
    state.VKSTestCount = 0;
    state.VKSStepCount = 0;
    file.Do([&] { state.VKSTests.Redim(0, subRanges); });
    file.Do([&] { state.VKSTestUKeys.Redim(0, subRanges); });
    file.Do([&] { state.VKSHostUKeys.Redim(0, subRanges); });
    file.Do([&] { state.VKSHostNames.Redim(0, subRanges); });
    file.Do([&] { state.VKSStepUKeys.Redim(0, 0); });
    file.Do([&] { state.VKSStepNames.Redim(0, 0); });
    file.Do([&] { state.VKSStepKeys.Redim(0, 0); });
}

/// Writes the steps of a test under numbers from 1 and answers how many it has.
std::int32_t WriteSteps(const SettingsStatements& file, const String& testKey) {
    const EngineState& state = file.State();
    const DynArray<p_Subrange>::Hold hold(state.VKSSteps);
    std::int32_t number = 0;
    for (std::int32_t i = 0; i < state.VKSStepCount; ++i) {
        if (file.Do([&] { return state.VKSStepUKeys[i] != testKey; })) {
            continue;
        }
        ++number;
        const String section = StepSection(testKey, number);
        file.Do([&] { file.WriteLists(section, state.VKSSteps[i]); });
        file.Do([&] { file.SetString(KeysOf(section), StepName, state.VKSStepNames[i]); });
        file.Do([&] { file.SetString(KeysOf(section), StepKey, state.VKSStepKeys[i]); });
    }
    return number;
}

void WriteTest(const SettingsStatements& file, std::int32_t test) {
    const EngineState& state = file.State();
    const String key = file.Do([&] { return state.VKSTestUKeys[test - 1]; });
    const std::int32_t steps = WriteSteps(file, key);
    const String section = TestSection(test);
    const DynArray<p_Subrange>::Hold hold(state.VKSTests);
    file.Do([&] { file.WriteLists(section, state.VKSTests[test - 1]); });
    file.SetString(KeysOf(section), TestKey, key);
    file.SetLong(KeysOf(section), StepCount, steps);
}

void DeleteWithKeys(const SettingsStatements& file, const String& section) {
    file.DeleteSection(section);
    file.DeleteSection(KeysOf(section));
}

/// The steps of a section that no load may have seen: none that can be read lies behind the most
/// that there may be, and what it asks for beyond must not make the file unsaveable.
void DeleteTest(const SettingsStatements& file, std::int32_t test) {
    const String section = TestSection(test);
    const String key = file.GetString(KeysOf(section), TestKey);
    const std::int32_t steps = std::min(file.GetLong(KeysOf(section), StepCount, 0), MostEntries);
    for (std::int32_t step = 1; step <= steps; ++step) {
        DeleteWithKeys(file, StepSection(key, step));
    }
    DeleteWithKeys(file, section);
}

void ReadRow(const SettingsStatements& file, std::int32_t row) {
    EngineState& state = file.State();
    const String section = RowSection(state, row);
    const auto readId = [&](std::int32_t column, double id) {
        file.Do([&] { state.VKSDUTIds(row - 1, column) = id; });
    };
    readId(0, file.GetDouble(KeysOf(section), L"ID0", -1.0));
    readId(1, file.GetLong(KeysOf(section), L"ID1", -1));
    readId(2, file.GetLong(KeysOf(section), L"ID2", -1));
    file.ReadElement(state.VKSSteps, row - 1, section);
}

void WriteRow(const SettingsStatements& file, std::int32_t row) {
    const EngineState& state = file.State();
    const String section = RowSection(state, row);
    const auto idOf = [&](std::int32_t column) { return state.VKSDUTIds(row - 1, column); };
    file.Do([&] { file.SetDouble(KeysOf(section), L"ID0", idOf(0)); });
    file.Do([&] { file.SetLong(KeysOf(section), L"ID1", RoundToLong(idOf(1))); });
    file.Do([&] { file.SetLong(KeysOf(section), L"ID2", RoundToLong(idOf(2))); });
    const DynArray<p_Subrange>::Hold hold(state.VKSSteps);
    file.Do([&] { file.WriteLists(section, state.VKSSteps[row - 1]); });
}

void CountRows(EngineState& state, std::int32_t count) {
    state.VKSStepCount = count;
    state.SavedCount.VKSSteps = count;
}

void ReadRows(const SettingsStatements& file, std::int32_t count) {
    EngineState& state = file.State();
    if (count < 1) {
        file.Do([&] { state.VKSSteps.Erase(); });
        CountRows(state, count);
        return;
    }
    Array2D<double> ids;
    file.Do([&] { ids.Redim(0, count, 0, 2); });
    file.Do([&] { state.VKSSteps.Redim(0, count); });
    state.VKSDUTIds = std::move(ids);
    CountRows(state, count);
    for (std::int32_t row = 1; row <= count; ++row) {
        ReadRow(file, row);
    }
}

}  // namespace

void ReadWirelessTemplate(const SettingsStatements& file, std::int32_t subRanges) {
    EngineState& state = file.State();
    state.VKSReplaceVars.count = 0;
    file.ReadFixed(TemplateRow.fixed[0]);
    if (subRanges < 1) {
        state.VKSTestCount = 0;
        state.VKSStepCount = 0;
        state.SavedCount.VKSTests = subRanges;
        file.Do([&] { state.VKSTests.Erase(); });
        file.Do([&] { state.VKSSteps.Erase(); });
        return;
    }
    MakeTestArrays(file, subRanges);
    for (std::int32_t test = 1; test <= subRanges; ++test) {
        ReadTest(file, test);
    }
    state.SavedCount.VKSSteps = state.VKSStepCount;
    state.SavedCount.VKSTests = subRanges;
}

/// Intentional: deletes one section more than there can be.
void WriteWirelessTemplate(const SettingsStatements& file) {
    EngineState& state = file.State();
    file.WriteLists(String(TemplateRow.fixed[0].section), state.VKSTemplate);
    for (std::int32_t test = 1; test <= state.VKSTestCount; ++test) {
        WriteTest(file, test);
    }
    if (state.VKSTestCount < state.SavedCount.VKSTests) {
        for (std::int32_t test = state.VKSTestCount + 1; test <= state.SavedCount.VKSTests + 1;
             ++test) {
            DeleteTest(file, test);
        }
    }
    state.SavedCount.VKSTests = state.VKSTestCount;
    state.ChangeFlags[aceVKSTemplate] = false;
}

void ReadMatrix(const SettingsStatements& file, std::int32_t& subRanges) {
    EngineState& state = file.State();
    state.VKSReplaceVars.count = 0;
    state.VKSDUTTemplate = subRanges;
    subRanges = ReadCount(file, MatrixSection(state.VKSDUTTemplate), CountKey);
    for (const InfluenceKey& influence : InfluenceKeys) {
        state.*influence.flag = file.GetBoolean(MatrixSection(state.VKSDUTTemplate), influence.key);
    }
    ReadRows(file, subRanges);
    if (state.VKSDUTTemplate == GlobalTemplate) {
        file.ReadFixed(MatrixRow.fixed[0]);
    }
}

/// Intentional: deletes one section more than there can be.
void WriteMatrix(const SettingsStatements& file) {
    EngineState& state = file.State();
    file.SetLong(MatrixSection(state.VKSDUTTemplate), CountKey, state.VKSStepCount);
    for (const InfluenceKey& influence : InfluenceKeys) {
        file.SetBoolean(MatrixSection(state.VKSDUTTemplate), influence.key, state.*influence.flag);
    }
    for (std::int32_t row = 1; row <= state.VKSStepCount; ++row) {
        WriteRow(file, row);
    }
    for (std::int32_t row = state.VKSStepCount + 1; row <= state.SavedCount.VKSSteps + 1; ++row) {
        DeleteWithKeys(file, RowSection(state, row));
    }
    state.SavedCount.VKSSteps = state.VKSStepCount;
    state.ChangeFlags[aceVKSDUT] = false;
    if (state.VKSDUTTemplate == GlobalTemplate) {
        file.WriteLists(String(MatrixRow.fixed[0].section), state.VKSDUTGlob);
    }
}

}  // namespace ace
