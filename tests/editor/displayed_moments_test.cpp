#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// Which moments a load displays, as its trace lines tell them: perform time and number.
class DisplayedMoments : public ShownEditor {
  protected:
    /// "2/1" for the second subrange that is entered.
    Lines Displayed(aceModul moduleKind) {
        State().Modul = moduleKind;
        host->tracing = true;
        host->journal.Clear();
        engine->LoadEditor(&list, &tree);
        Lines moments;
        for (const sim::JournalEntry& entry : host->journal.Entries()) {
            if (entry.operation == L"TraceLog.WriteLine" && entry.values[0] == L"start" &&
                entry.values[3] == L"DisplayTree") {
                moments.push_back(Brief(entry.values[4]));
            }
        }
        return moments;
    }
    void MakeTexts(std::initializer_list<DynArray<String>*> arrays) {
        for (DynArray<String>* const array : arrays) {
            array->Redim(0, 1);
            (*array)[0] = L"a";
            (*array)[1] = L"b";
        }
    }

  private:
    static String Brief(const String& message) {
        const StringView time = L"PerfTime = ";
        const StringView number = L", Subrange = ";
        EXPECT_TRUE(message.starts_with(time));
        const std::size_t comma = message.find(number);
        return message.substr(time.size(), comma - time.size()) + L"/" +
               message.substr(comma + number.size());
    }
};

TEST_F(DisplayedMoments, SingleTest) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
    EXPECT_EQ(Displayed(aceTemplate),
              (Lines{L"0/0", L"4/0", L"2/0", L"3/0", L"2/1", L"3/1", L"1/0"}));
}

TEST_F(DisplayedMoments, Monitoring) {
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 2);
    EXPECT_EQ(Displayed(aceMonitoring), (Lines{L"0/0", L"4/0", L"11/0", L"12/0", L"5/0", L"6/0",
                                               L"7/0", L"5/1", L"6/1", L"7/1", L"10/0", L"1/0"}));
}

TEST_F(DisplayedMoments, SusceptibilityTests) {
    MakeSets(&ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount, 2);
    EXPECT_EQ(Displayed(aceEMSAutoTemplateGeneral), (Lines{L"0/0", L"1/0"}));
    EXPECT_EQ(Displayed(aceEMSAutoTemplate), (Lines{L"8/0", L"8/1"}));
}

TEST_F(DisplayedMoments, EmissionTest) {
    MakeSets(&ModuleLists::EMIAutoSteps, &ModuleLists::EMIAutoStepCount, 2);
    EXPECT_EQ(Displayed(aceEMIAutoTemplate),
              (Lines{L"0/0", L"4/0", L"9/0", L"10/0", L"9/1", L"10/1", L"1/0"}));
}

TEST_F(DisplayedMoments, SequenceAndAzimuthChart) {
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 2);
    EXPECT_EQ(Displayed(aceTSTemplate),
              (Lines{L"0/0", L"11/0", L"12/0", L"11/1", L"12/1", L"1/0"}));
    EXPECT_EQ(Displayed(aceAziChart), (Lines{L"0/0", L"4/0", L"1/0"}));
}

TEST_F(DisplayedMoments, WirelessTests) {
    MakeSets(&ModuleLists::VKSTests, &ModuleLists::VKSTestCount, 2);
    MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 2);
    MakeTexts({&State().VKSTestUKeys, &State().VKSHostUKeys, &State().VKSHostNames,
               &State().VKSStepUKeys, &State().VKSStepNames});
    std::swap(State().VKSHostUKeys[0], State().VKSHostUKeys[1]);
    EXPECT_EQ(Displayed(aceVKSTemplate),
              (Lines{L"0/0", L"11/1", L"8/1", L"12/1", L"11/0", L"8/0", L"12/0", L"1/0"}));
}

TEST_F(DisplayedMoments, MatrixInEveryModeRowByRow) {
    MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 2);
    State().VKSDUTIds.Redim(0, 1, 0, 2);
    for (const std::int32_t mode : {0, 1, 2, 4}) {
        State().VKSDUTTemplate = mode;
        EXPECT_EQ(Displayed(aceVKSDUT), (Lines{L"8/0", L"8/1"})) << mode;
    }
    State().VKSDUTTemplate = 3;
    EXPECT_EQ(Displayed(aceVKSDUT), (Lines{L"9/0", L"10/0", L"8/0", L"8/1"}));
}

}  // namespace
}  // namespace ace::test
