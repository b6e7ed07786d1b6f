/// What is said of rows, tests and steps that the run passes over.
#include "check/check_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Keys and actions of a row of template 0.
struct RowText {
    std::string keys;
    std::string actions = "NumOfEnterActions=1\nEnterAction1=WAIT:1\n";
};

/// A matrix of two frequencies (1 and 2 Hz), two bandwidths (0 and 1) and one power (0).
std::string MatrixOf(const std::vector<RowText>& rows, const std::string& flags,
                     const std::string& flagsOfTest = {}) {
    std::string text =
        "[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=1\nFreq1=2\n"
        "BandwidthName0=a\nBandwidthName1=b\nPowerName0=p\n" +
        flagsOfTest + "[ActionsOnVKSTemplate_0]\nCount=" + std::to_string(rows.size()) + "\n" +
        flags;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string name = "[ActionsOnStep_0_" + std::to_string(i + 1);
        text.append(name).append("]\n").append(rows[i].actions);
        text.append(name).append("_VKS]\n").append(rows[i].keys);
    }
    return text;
}
const std::string AllFlags = "Freq=1\nBandwidth=1\nPower=1\n";

/// "ActionsOnStep_0_1: ID1 is 7, and the test has no such bandwidth"
std::vector<std::string> ReasonsIn(const std::string& text) {
    const std::string begin = "no combination of the matrix runs this row, which has 1 action: ";
    std::vector<std::string> reasons;
    for (const Finding& finding : FindingsIn(text)) {
        if (finding.rule->name == L"row-ruled-out") {
            const std::string meaning = ToUtf8(finding.meaning);
            EXPECT_EQ(meaning.substr(0, begin.size()), begin);
            reasons.push_back(ToUtf8(finding.place.section) + ": " + meaning.substr(begin.size()));
        }
    }
    return reasons;
}

TEST(CheckedMatrix, RowsThatTheCombinationsAskForAreWell) {
    EXPECT_THAT(
        ReasonsIn(MatrixOf({{"ID0=1\nID1=0\nID2=0\n"}, {"ID0=2.0\nID1=1\nID2=0\n"}}, AllFlags)),
        IsEmpty());
    EXPECT_THAT(ReasonsIn(MatrixOf({{"ID0=-1\nID1=-1\nID2=-1\n"}}, "")), IsEmpty());
    EXPECT_THAT(ReasonsIn(MatrixOf({{""}}, "")), IsEmpty());
}

TEST(CheckedMatrix, AnIdOfADimensionThatMakesNoDifferenceIsToldWithTheFlagThatDecides) {
    EXPECT_THAT(ReasonsIn(MatrixOf({{"ID0=1\nID1= 1\nID2=0\n"}}, "Freq=1\nPower=1\n")),
                ElementsAre("ActionsOnStep_0_1: ID1 is 1, but [ActionsOnVKSTemplate_0] Bandwidth "
                            "says that the bandwidth makes no difference"));
    EXPECT_THAT(
        ReasonsIn(MatrixOf({{"ID0=1\nID1=1\nID2=0\n"}}, AllFlags, "InfluencedByBandwidth=0\n")),
        ElementsAre("ActionsOnStep_0_1: ID1 is 1, but [Workbench.DUT] InfluencedByBandwidth "
                    "says that the bandwidth makes no difference"));
}

TEST(CheckedMatrix, ARowForAllOfADimensionThatMakesADifferenceIsToldWithTheFlagThatDecides) {
    EXPECT_THAT(ReasonsIn(MatrixOf({{"ID0=1\nID1=0\nID2=-1\n"}}, AllFlags)),
                ElementsAre("ActionsOnStep_0_1: ID2 is -1, which stands for all, but "
                            "[ActionsOnVKSTemplate_0] Power says that each power has its own row"));
    EXPECT_THAT(ReasonsIn(MatrixOf({{"ID1=0\nID2=0\n"}}, AllFlags, "InfluencedByFreq=1\n")),
                ElementsAre("ActionsOnStep_0_1: ID0 is missing, which stands for all, but "
                            "[Workbench.DUT] InfluencedByFreq says that each frequency has its "
                            "own row"));
}

TEST(CheckedMatrix, AnIdOfNothingInTheTablesIsTold) {
    EXPECT_THAT(ReasonsIn(MatrixOf({{"ID0=3\nID1=2\nID2=0\n"}}, AllFlags)),
                ElementsAre("ActionsOnStep_0_1: ID0 is 3, and the test has no such frequency; "
                            "ID1 is 2, and the test has no such bandwidth"));
}

TEST(CheckedMatrix, ARowWithoutTheSectionOfItsIdsIsToldAsThat) {
    std::string text = MatrixOf({{"ID0=1\nID1=0\nID2=0\n"}}, AllFlags);
    text.replace(text.find("_VKS]"), 4, "_VSK");
    EXPECT_THAT(ReasonsIn(text), ElementsAre("ActionsOnStep_0_1: [ActionsOnStep_0_1_VKS], where "
                                             "its ids should stand, is not there"));
}

TEST(CheckedMatrix, OfTwoRowsWithTheSameIdsTheSecondIsTold) {
    const RowText row{"ID0=1\nID1=0\nID2=0\n"};
    EXPECT_THAT(ReasonsIn(MatrixOf({row, row}, AllFlags)),
                ElementsAre("ActionsOnStep_0_2: [ActionsOnStep_0_1] has the same ids and comes "
                            "first"));
}

/// The flag of the file gives up the row for all bandwidths before that of the test is known.
TEST(CheckedMatrix, ARowThatIsGivenUpOnTheWayIsTold) {
    EXPECT_THAT(
        ReasonsIn(MatrixOf({{"ID0=1\nID1=-1\nID2=0\n"}}, AllFlags, "InfluencedByBandwidth=0\n")),
        ElementsAre("ActionsOnStep_0_1: [Workbench.DUT] and [ActionsOnVKSTemplate_0] differ in "
                    "what influences the actions, which gives the row up"));
}

TEST(CheckedMatrix, ARowWithoutActionsIsNotTold) {
    EXPECT_THAT(ReasonsIn(MatrixOf({{"ID0=9\nID1=9\nID2=9\n", ""}}, AllFlags)), IsEmpty());
}

/// Where no row is made for the test mode, the row for everything serves it.
TEST(CheckedMatrix, TheRowForEverythingServesTheTestMode) {
    const auto matrix = [](const std::string& keys) {
        return "[Workbench]\nModule=8\nSubRanges=1\n[Workbench.DUT]\nFreq0=0\nBandwidthName0=a\n"
               "PowerName0=p\n[ActionsOnVKSTemplate_1]\nCount=1\n[ActionsOnStep_1_1_VKS]\n" +
               keys + "[ActionsOnStep_1_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n";
    };
    EXPECT_THAT(ReasonsIn(matrix("ID0=-1\nID1=-1\nID2=-1\n")), IsEmpty());
    EXPECT_EQ(ReasonsIn(matrix("ID0=-1\nID1=-1\nID2=0\n")).size(), 1U);
}

// ---- tests and steps -------------------------------------------------------------------------

/// A wireless test with its steps, by their keys.
struct TestText {
    std::string key;
    std::vector<std::string> steps;
};

/// Lines and meanings of what is found of keys.
std::vector<std::string> KeysTwiceIn(const std::vector<TestText>& tests) {
    std::string text = "[Workbench]\nModule=7\nSubRanges=" + std::to_string(tests.size()) + "\n";
    for (std::size_t i = 0; i < tests.size(); ++i) {
        text += "[ActionsOnTest" + std::to_string(i + 1) + "_VKS]\nVKS_UKey=" + tests[i].key +
                "\nSUBSTEPS=" + std::to_string(tests[i].steps.size()) + "\n";
        for (std::size_t k = 0; k < tests[i].steps.size(); ++k) {
            text += "[ActionsOnStep" + tests[i].key + "_" + std::to_string(k + 1) +
                    "_VKS]\nVKS_Key=" + tests[i].steps[k] + "\n";
        }
    }
    std::vector<std::string> found;
    for (const Finding& finding : FindingsIn(text)) {
        if (finding.rule->name == L"wireless-key-twice") {
            found.push_back(std::to_string(finding.place.line) + " " + ToUtf8(finding.meaning));
        }
    }
    return found;
}

const std::string Twice =
    " has this key, too, and comes first: it runs in the place of this one, and the editor can't "
    "show the lists";

TEST(CheckedWirelessTests, ASecondTestWithTheSameKeyIsToldAtItsKey) {
    EXPECT_THAT(KeysTwiceIn({{"A", {}}, {"B", {}}, {"A", {}}}),
                ElementsAre("11 [ActionsOnTest1]" + Twice));
}

TEST(CheckedWirelessTests, ASecondStepOfATestWithTheSameKeyIsToldAtItsKey) {
    EXPECT_THAT(KeysTwiceIn({{"A", {"x", "y", "x"}}, {"B", {"x"}}}),
                ElementsAre("12 [ActionsOnStepA_1]" + Twice));
}

TEST(CheckedWirelessTests, TheStepsOfATestThatIsThereTwiceAreNotToldBesideIt) {
    EXPECT_THAT(KeysTwiceIn({{"A", {"x"}}, {"A", {"x"}}}),
                ElementsAre("10 [ActionsOnTest1]" + Twice));
}

TEST(CheckedWirelessTests, LinesThatAreReadTwiceAreToldOnce) {
    const std::string test = "_VKS]\nVKS_UKey=A\nSUBSTEPS=1\n";
    EXPECT_THAT(Shortly(FindingsIn("[Workbench]\nModule=7\nSubRanges=2\n[ActionsOnTest1" + test +
                                   "[ActionsOnTest2" + test +
                                   "[ActionsOnStepA_1_VKS]\nVKS_Key=S\n[ActionsOnStepA_1]\n"
                                   "NumOfEnterActions=1\nEnterAction1=WAIT:abc\n")),
                ElementsAre("8 wireless-key-twice", "14 text-for-number"));
}

TEST(CheckedWirelessTests, KeysThatDifferInTheCaseOfALetterAreTwo) {
    EXPECT_THAT(KeysTwiceIn({{"A", {"x", "X"}}, {"a", {}}}), IsEmpty());
}

}  // namespace
}  // namespace ace::workbench
