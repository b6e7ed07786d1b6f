/// Lists are loaded, changed, saved and loaded again, over and over.
#include "matrix/file_model.h"
#include "matrix/matrix_model_fixture.h"
#include "matrix/store_model_fixture.h"

namespace ace::test {
namespace {

const String File = L"setup.ini";

/// Numbers of the sections "<word><number>" in a file.
std::set<int> NumbersOf(const sim::SimSections& sections, const String& word) {
    std::set<int> numbers;
    for (const auto& [name, lines] : sections) {
        if (name.starts_with(word) && name.find(L'_') == String::npos) {
            const String number = name.substr(word.size());
            if (!number.empty() && number.find_first_not_of(L"0123456789") == String::npos) {
                numbers.insert(std::stoi(number));
            }
        }
    }
    return numbers;
}
template <class Section>
std::set<int> NumbersOf(const std::map<int, Section>& sections) {
    std::set<int> numbers;
    for (const auto& [number, section] : sections) {
        numbers.insert(number);
    }
    return numbers;
}

// ---- modules without keys ------------------------------------------------------------------

class PlainChainTest : public StoreModelTest {
  protected:
    void Save() {
        engine->SaveActions(File);
        file.Save(model);
    }
    /// Now and then the host tells another number than was saved.
    void Load() {
        const int number = std::max(0, model.count + Draw(-1, 1));
        engine->LoadActions(File, number, moduleKind);
        file.Load(model, number);
    }
    PlainFileModel file;
};

INSTANTIATE_TEST_SUITE_P(Modules, PlainChainTest,
                         StoreRows(1, 25, aceTemplate, aceMonitoring, aceEMSAutoTemplate,
                                   aceEMIAutoTemplate, aceTSTemplate),
                         NameOfStoreRow);

TEST_P(PlainChainTest, ListsThatAreLoadedChangedAndSavedFollowTheModel) {
    for (int round = 0; round < 25 && !HasFailure(); ++round) {
        Run(Draw(1, 12));
        Save();
        EXPECT_EQ(NumbersOf(host->files[File], String(Numbered().sectionWord)),
                  NumbersOf(file.sections));
        if (Draw(0, 2) != 0) {
            Load();
            Compare();
        }
        EXPECT_FALSE(State().ChangeFlags[static_cast<std::size_t>(moduleKind)]);
    }
}

// ---- the wireless template -----------------------------------------------------------------

class WirelessChainTest : public StoreModelTest {
  protected:
    /// An index below 1 leaves a test without a place for its key; the next test makes one.
    void Save() {
        if (model.keys.Upper() < model.count) {
            const int behind = model.count + 1;
            engine->AddSubrange(behind, L"d");
            model.Add(behind, L"d");
        }
        DropManySteps();
        engine->SaveActions(File);
        file.Save(model);
    }
    /// Two tests of one key share their steps in the file, and each load reads them twice.
    void DropManySteps() {
        while (model.stepCount > 60) {
            const String key = model.stepOwners.At(0);
            engine->DeleteSubrange(0, key);
            model.Delete(0, key);
        }
    }
    void Load() {
        const int number = std::max(0, model.count + Draw(-1, 1));
        engine->LoadActions(File, number, moduleKind);
        file.Load(model, number);
    }
    WirelessFileModel file;
};

INSTANTIATE_TEST_SUITE_P(Seeds, WirelessChainTest, StoreRows(1, 25, aceVKSTemplate),
                         NameOfStoreRow);

TEST_P(WirelessChainTest, TestsAndStepsThatAreLoadedChangedAndSavedFollowTheModel) {
    for (int round = 0; round < 150 && !HasFailure(); ++round) {
        Run(Draw(1, 12));
        Save();
        if (Draw(0, 2) != 0) {
            Load();
            Compare();
        }
    }
}

// ---- wireless steps in the file ---------------------------------------------------------------

class WirelessFileTest : public EngineTest {
  protected:
    WirelessFileTest() { State().Modul = aceVKSTemplate; }
};

TEST_F(WirelessFileTest, StepsOfATestThatMovedDownGoWithItsOldNumber) {
    for (const String key : {L"a", L"b", L"c"}) {
        engine->AddSubrange(State().VKSTestCount + 1, key);
        engine->AddVKSStep(L"step of " + key, key, L"name");
    }
    engine->SaveActions(File);
    engine->DeleteSubrange(0, L"a");
    engine->SaveActions(File);

    engine->LoadActions(File, 2, aceVKSTemplate);

    EXPECT_EQ(TextsOf(State().VKSTestUKeys), (Lines{L"b", L"c", L""}));
    EXPECT_EQ(TextsOf(State().VKSStepKeys), Lines{L"step of b"});
    EXPECT_EQ(State().VKSStepCount, 1);
}

TEST_F(WirelessFileTest, DeletedLastTestTakesItsStepsOutOfTheFile) {
    for (const String key : {L"a", L"b"}) {
        engine->AddSubrange(State().VKSTestCount + 1, key);
        engine->AddVKSStep(L"step of " + key, key, L"name");
    }
    engine->SaveActions(File);
    engine->DeleteSubrange(0, L"b");
    engine->SaveActions(File);

    std::vector<String> sections;
    for (const auto& [name, lines] : host->files[File]) {
        sections.push_back(name);
    }
    EXPECT_EQ(sections, (Lines{L"ActionsOnStepa_1", L"ActionsOnStepa_1_VKS", L"ActionsOnTest1",
                               L"ActionsOnTest1_VKS", L"ActionsOnVKSTemplate"}));
}

// ---- the matrix ----------------------------------------------------------------------------

/// The number of the template, and the seed of the random operations.
using MatrixChainRow = std::tuple<int, unsigned>;

class MatrixChainTest : public MatrixModelTest,
                        public ::testing::WithParamInterface<MatrixChainRow> {
  protected:
    MatrixChainTest() {
        engine->LoadActions(File, templateNumber, aceVKSDUT);
        model.templateNumber = templateNumber;
    }
    /// The tables belong to the object and not to the file.
    void SaveAndLoad() {
        engine->SaveActions(File);
        engine->LoadActions(File, templateNumber, aceVKSDUT);
        if (model.rows < 1) {
            model.lists = {};  // and the keys stay as the last row that went has left them
            return;
        }
        model.keys.Resize(model.rows);
        model.lists.Resize(model.rows);
        for (int row = 0; row < model.rows; ++row) {
            model.lists.At(row).util = 0;
        }
        model.keys.At(model.rows) = {};
        model.lists.At(model.rows) = {};
    }

    const int templateNumber = std::get<0>(GetParam());
    std::mt19937 random{std::get<1>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(TemplateNumbers, MatrixChainTest,
                         ::testing::Combine(::testing::Range(0, 4), SeedsTo(1, 25)));

TEST_P(MatrixChainTest, RowsThatAreSavedAndLoadedFollowTheModel) {
    const auto draw = [&](int from, int to) {
        return std::uniform_int_distribution(from, to)(random);
    };
    for (int round = 0; round < 40 && !HasFailure(); ++round) {
        SetInfluence(static_cast<unsigned>(draw(0, 7)));
        AddFrequency(draw(0, 3) * 1000.5);
        AddName(draw(1, 2), -1);
        EditAll();
        if (draw(0, 2) == 0) {
            DeleteName(draw(1, 2), draw(0, 3));
        }
        if (draw(0, 2) == 0) {
            DeleteFrequency(draw(0, 3) * 1000.5);
        }
        SaveAndLoad();
        Compare();
    }
}

TEST_P(MatrixChainTest, FlagsComeBackFromTheFileAndSuperfluousRowsGo) {
    AddFrequency(2400);
    AddFrequency(5000);
    SetInfluence(1);
    engine->SaveActions(File);
    engine->DeleteVKSDUTFreq(5000);
    engine->SaveActions(File);
    State().VKSInfByFreq = false;
    engine->LoadActions(File, templateNumber, aceVKSDUT);

    EXPECT_TRUE(engine->VKSInfByFreq());
    EXPECT_FALSE(engine->VKSInfByPower());
    EXPECT_EQ(Rows(), Lines{L"2400_-1_-1 ."});
    const String section = L"ActionsOnStep_" + std::to_wstring(templateNumber) + L"_";
    EXPECT_EQ(host->files[File].count(section + L"1"), 1U);
    EXPECT_EQ(host->files[File].count(section + L"2"), 0U);
    EXPECT_EQ(host->files[File].count(section + L"2_VKS"), 0U);
}

// ---- modules without a numbered list -----------------------------------------------------------

/// The fixed lists of every module that has some survive the operations that follow the host.
class FixedChainTest : public EngineTest, public ::testing::WithParamInterface<aceModul> {};

INSTANTIATE_TEST_SUITE_P(Modules, FixedChainTest,
                         ::testing::Values(aceTemplate, aceMonitoring, aceEMSAutoTemplateGeneral,
                                           aceEMIAutoTemplate, aceTSTemplate, aceAziChart,
                                           aceVKSTemplate, aceVKSDUT),
                         [](const auto& row) { return "Modul" + std::to_string(row.param); });

TEST_P(FixedChainTest, FixedListsAreSavedAndLoadedAsTheyWere) {
    constexpr std::int32_t TemplateWithGlobalLists = 3;
    engine->LoadActions(File, TemplateWithGlobalLists, GetParam());
    for (const FixedSet& fixed : ModuleTable[GetParam()].AllFixed()) {
        State().*fixed.set = Letter(L'F');
    }
    engine->AddSubrange(1, L"key");
    engine->DeleteSubrange(2, L"key");
    engine->SaveActions(File);
    aceActionsEngine other(context);

    other.LoadActions(File, TemplateWithGlobalLists, GetParam());

    for (const FixedSet& fixed : ModuleTable[GetParam()].AllFixed()) {
        EXPECT_EQ(TextOf(other.State().*fixed.set), L"FFFF");
    }
}

}  // namespace
}  // namespace ace::test
