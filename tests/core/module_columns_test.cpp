#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <ace/core/module_columns.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using L = ModuleLists;
using Names = std::vector<std::string>;

/// A field of the lists by its name, and whether two of them hold the same in it.
struct Field {
    std::string name;
    bool (*same)(const L&, const L&);
};
template <auto Member>
bool Same(const L& a, const L& b) {
    return a.*Member == b.*Member;
}
#define ACE_FIELD(name) \
    { #name, Same < &L::name> }
const Field Fields[] = {ACE_FIELD(MainTest),
                        ACE_FIELD(MainSubranges),
                        ACE_FIELD(MoniEut),
                        ACE_FIELD(MoniLoop),
                        ACE_FIELD(MoniChannels),
                        ACE_FIELD(EMSAutoGeneral),
                        ACE_FIELD(EMSAutoSteps),
                        ACE_FIELD(EMIAutoTest),
                        ACE_FIELD(EMIAutoSteps),
                        ACE_FIELD(TSTest),
                        ACE_FIELD(TSTests),
                        ACE_FIELD(AziChart),
                        ACE_FIELD(VKSDUTGlob),
                        ACE_FIELD(VKSTemplate),
                        ACE_FIELD(VKSTests),
                        ACE_FIELD(VKSSteps),
                        ACE_FIELD(VKSStepKeys),
                        ACE_FIELD(VKSStepUKeys),
                        ACE_FIELD(VKSStepNames),
                        ACE_FIELD(VKSTestUKeys),
                        ACE_FIELD(VKSHostUKeys),
                        ACE_FIELD(VKSHostNames),
                        ACE_FIELD(MainSubrangeCount),
                        ACE_FIELD(MoniChannelCount),
                        ACE_FIELD(EMSAutoStepCount),
                        ACE_FIELD(EMIAutoStepCount),
                        ACE_FIELD(TSTestCount),
                        ACE_FIELD(VKSTestCount),
                        ACE_FIELD(VKSStepCount),
                        ACE_FIELD(VKSDUTTemplate),
                        ACE_FIELD(VKSInfByFreq),
                        ACE_FIELD(VKSInfByBandwidth),
                        ACE_FIELD(VKSInfByPower),
                        ACE_FIELD(VKSDUTIds),
                        ACE_FIELD(VKSDUTFreqs),
                        ACE_FIELD(VKSDUTFreqNames),
                        ACE_FIELD(VKSDUTFreqCount),
                        ACE_FIELD(VKSDUTBandwidthNames),
                        ACE_FIELD(VKSDUTBandwidthCount),
                        ACE_FIELD(VKSDUTPowerNames),
                        ACE_FIELD(VKSDUTPowerCount)};
#undef ACE_FIELD

template <class T>
DynArray<T> One(const T& element) {
    DynArray<T> array;
    array.Redim(0, 0);
    array[0] = element;
    return array;
}

/// Lists in which no field is as in fresh ones.
L Filled() {
    L lists;
    p_Subrange set;
    Fill(set, EnterList, {Action(atTestStop)});
    for (p_Subrange L::*fixed :
         {&L::MainTest, &L::MoniEut, &L::MoniLoop, &L::EMSAutoGeneral, &L::EMIAutoTest, &L::TSTest,
          &L::AziChart, &L::VKSDUTGlob, &L::VKSTemplate}) {
        lists.*fixed = set;
    }
    for (DynArray<p_Subrange> L::*sets :
         {&L::MainSubranges, &L::MoniChannels, &L::EMSAutoSteps, &L::EMIAutoSteps, &L::TSTests,
          &L::VKSTests, &L::VKSSteps}) {
        lists.*sets = One(set);
    }
    for (DynArray<String> L::*texts :
         {&L::VKSStepKeys, &L::VKSStepUKeys, &L::VKSStepNames, &L::VKSTestUKeys, &L::VKSHostUKeys,
          &L::VKSHostNames, &L::VKSDUTFreqNames, &L::VKSDUTBandwidthNames, &L::VKSDUTPowerNames}) {
        lists.*texts = One(String(L"text"));
    }
    for (std::int32_t L::*count :
         {&L::MainSubrangeCount, &L::MoniChannelCount, &L::EMSAutoStepCount, &L::EMIAutoStepCount,
          &L::TSTestCount, &L::VKSTestCount, &L::VKSStepCount, &L::VKSDUTTemplate,
          &L::VKSDUTFreqCount, &L::VKSDUTBandwidthCount, &L::VKSDUTPowerCount}) {
        lists.*count = 1;
    }
    lists.VKSInfByFreq = lists.VKSInfByBandwidth = lists.VKSInfByPower = true;
    lists.VKSDUTIds.Redim(0, 0, 0, 2);
    lists.VKSDUTFreqs = One(80e6);
    return lists;
}

/// The fields that a copy brings from `Filled` to fresh lists, in the order of `Fields`.
Names Copied(aceModul moduleKind, CopyFor purpose) {
    const L from = Filled();
    const L fresh;
    L to;
    CopyModule(moduleKind, purpose, from, to);
    Names names;
    for (const Field& field : Fields) {
        EXPECT_FALSE(field.same(from, fresh)) << field.name;
        if (field.same(from, to)) {
            names.push_back(field.name);
        } else {
            EXPECT_TRUE(field.same(to, fresh)) << field.name;
        }
    }
    return names;
}

struct PlainRow {
    aceModul moduleKind;
    Names copied;
};
const PlainRow PlainRows[] = {
    {aceTemplate, {"MainTest", "MainSubranges", "MainSubrangeCount"}},
    {aceMonitoring, {"MoniEut", "MoniLoop", "MoniChannels", "MoniChannelCount"}},
    {aceEMSAutoTemplateGeneral, {"EMSAutoGeneral"}},
    {aceEMSAutoTemplate, {"EMSAutoSteps", "EMSAutoStepCount"}},
    {aceEMIAutoTemplate, {"EMIAutoTest", "EMIAutoSteps", "EMIAutoStepCount"}},
    {aceTSTemplate, {"TSTest", "TSTests", "TSTestCount"}},
    {aceAziChart, {"AziChart"}},
};

TEST(CopyModuleTest, TheListsAndCountsOfAPlainModuleAreTheSameForEveryPurpose) {
    for (const PlainRow& row : PlainRows) {
        for (const CopyFor purpose : {CopyFor::Editor, CopyFor::Store, CopyFor::Print}) {
            EXPECT_EQ(Copied(row.moduleKind, purpose), row.copied) << row.moduleKind;
        }
    }
}

TEST(CopyModuleTest, TheEditorOfAWirelessTemplateTakesKeysOfTestsAndNamesOfSteps) {
    EXPECT_EQ(
        Copied(aceVKSTemplate, CopyFor::Editor),
        Names({"VKSTemplate", "VKSTests", "VKSSteps", "VKSStepUKeys", "VKSStepNames",
               "VKSTestUKeys", "VKSHostUKeys", "VKSHostNames", "VKSTestCount", "VKSStepCount"}));
}

TEST(CopyModuleTest, KeysAndNamesOfAWirelessTemplateStayInTheStore) {
    EXPECT_EQ(Copied(aceVKSTemplate, CopyFor::Store),
              Names({"VKSTemplate", "VKSTests", "VKSSteps", "VKSTestCount", "VKSStepCount"}));
}

TEST(CopyModuleTest, ThePrintOfAWirelessTemplateTakesTheTextsOfStepsWithoutTheSteps) {
    EXPECT_EQ(Copied(aceVKSTemplate, CopyFor::Print),
              Names({"VKSTemplate", "VKSTests", "VKSStepKeys", "VKSStepUKeys", "VKSStepNames",
                     "VKSTestCount"}));
}

const Names MatrixFields = {"VKSDUTGlob",           "VKSSteps",         "VKSStepCount",
                            "VKSDUTTemplate",       "VKSInfByFreq",     "VKSInfByBandwidth",
                            "VKSInfByPower",        "VKSDUTIds",        "VKSDUTFreqs",
                            "VKSDUTFreqNames",      "VKSDUTFreqCount",  "VKSDUTBandwidthNames",
                            "VKSDUTBandwidthCount", "VKSDUTPowerNames", "VKSDUTPowerCount"};

TEST(CopyModuleTest, TheMatrixGoesToTheEditorAndBackAsAWhole) {
    EXPECT_EQ(Copied(aceVKSDUT, CopyFor::Editor), MatrixFields);
    EXPECT_EQ(Copied(aceVKSDUT, CopyFor::Store), MatrixFields);
}

TEST(CopyModuleTest, TheMatrixIsNotPrinted) {
    EXPECT_EQ(Copied(aceVKSDUT, CopyFor::Print), Names());
}

TEST(CopyModuleTest, TheMatrixAloneLeavesItsGlobalListsOut) {
    const L from = Filled();
    L to;
    CopyMatrix(from, to);
    EXPECT_EQ(to.VKSDUTIds, from.VKSDUTIds);
    EXPECT_EQ(to.VKSDUTGlob, p_Subrange());
}

TEST(CopyModuleTest, AKindOutsideTheMembersCopiesNothing) {
    const L from = Filled();
    for (const std::int32_t moduleKind : {-1, 9, 2147483647}) {
        L to;
        CopyModule(moduleKind, CopyFor::Store, from, to);
        EXPECT_EQ(to, L());
    }
}

/// The lists of a kind, its count and a set beside them, before a copy is refused and after.
void ExpectNothingCopied(const L& from, L& to) {
    const L before = to;
    EXPECT_EQ(ErrorOf([&] { CopyModule(aceTemplate, CopyFor::Store, from, to); }), 10);
    EXPECT_EQ(to, before);
}

TEST(CopyModuleTest, NothingIsCopiedWhileTheArrayIsHeld) {
    L to = Filled();
    to.MainSubrangeCount = 7;
    to.MainTest = {};
    const DynArray<p_Subrange>::Hold hold(to.MainSubranges);
    ExpectNothingCopied(Filled(), to);
}

TEST(CopyModuleTest, NothingIsCopiedWhileAListOfTheSetIsHeld) {
    L to = Filled();
    to.MainSubrangeCount = 7;
    to.MainTest.EnterCount = 8;
    const DynArray<p_Action>::Hold hold(to.MainTest.Leave);
    ExpectNothingCopied(Filled(), to);
}

TEST(CopyModuleTest, NothingOfTheMatrixAloneIsCopiedWhileItsRowsAreHeld) {
    const L from = Filled();
    L to;
    to.VKSStepCount = 7;
    const L before = to;
    const DynArray<p_Subrange>::Hold hold(to.VKSSteps);
    EXPECT_EQ(ErrorOf([&] { CopyMatrix(from, to); }), 10);
    EXPECT_EQ(to, before);
}

TEST(CopyModuleTest, ACopyOfListsIsDeep) {
    L from = Filled();
    L to;
    CopyModule(aceTemplate, CopyFor::Editor, from, to);
    from.MainSubranges[0].Enter[0].ActionType = atWait;
    EXPECT_EQ(to.MainSubranges[0].Enter[0].ActionType, atTestStop);
}

}  // namespace
}  // namespace ace::test
