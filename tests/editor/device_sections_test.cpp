#include "editor/editor_fixture.h"
#include "support/every_kind.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String FileName = L"setup.ini";
const Lines Settings = {L"Gain=3", L"Mode=on"};

/// A template whose start list has one action that sets a device, with a section in the file.
class DeviceSections : public EditorTest {
  protected:
    DeviceSections() {
        context.ModuleFileNames.fill(FileName);
        host->files[FileName][L"Actions7-Device"] = Settings;
        Fill(State().MainTest, EnterList, {Generator(7)});
        Open(aceTemplate);
    }
    static p_Action Generator(std::int32_t section) {
        p_Action action = OnDevice(atSetDevice, L"Generator");
        auto& record = std::get<aceSetDevice>(action.Parameter);
        record.ChanNo = section;
        record.LastCheck = aceSetDevice::NeverChecked;
        return action;
    }
    void CopyLine(const String& key) {
        Select(key);
        GetAction(Parts());
        host->journal.Clear();
    }
    /// The numbers of the sections of a list's entries.
    static std::vector<int> Sections(const p_Subrange& set) {
        std::vector<int> numbers;
        for (const p_Action& action : set.Enter) {
            numbers.push_back(std::get<aceSetDevice>(action.Parameter).ChanNo);
        }
        return numbers;
    }
    std::int32_t HeldSection() {
        return std::get<aceSetDevice>(Parts().held.Action.Parameter).ChanNo;
    }
    /// What an insertion that failed at the settings file leaves.
    void ExpectOnlyTheArrayGrown() {
        EXPECT_EQ(Parts().lists.MainTest.EnterCount, 1);
        EXPECT_EQ(Parts().lists.MainTest.Enter.UpperBound(), 1);
        EXPECT_EQ(Parts().lists.MainTest.Enter[0], Generator(7));
        EXPECT_EQ(Parts().lists.MainTest.Enter[1], p_Action());
        EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(L"T(9061): Generator"));
        EXPECT_THAT(Sections(State().MainTest), ElementsAre(7));
        EXPECT_FALSE(engine->Change());
        EXPECT_EQ(context.DeviceSectionCounter, 101);
        EXPECT_FALSE(host->files[FileName].contains(L"Actions101-Device"));
    }
};

TEST_F(DeviceSections, ACopiedLineThatIsPastedTwiceHasTwoNewSectionsWithTheContentsOfTheFirst) {
    CopyLine(L"CHI0ETE");
    AddAction(Parts(), true);
    AddAction(Parts(), true);
    EXPECT_THAT(Sections(State().MainTest), ElementsAre(7, 101, 102));
    EXPECT_EQ(host->files[FileName][L"Actions101-Device"], Settings);
    EXPECT_EQ(host->files[FileName][L"Actions102-Device"], Settings);
    EXPECT_EQ(host->files[FileName][L"Actions7-Device"], Settings);
    EXPECT_EQ(context.DeviceSectionCounter, 102);
    EXPECT_EQ(HeldSection(), 102);
    EXPECT_EQ(Parts().held.Records.SetDevice.ChanNo, 102);
}

TEST_F(DeviceSections, TheFileIsWrittenAtOnceAndReleasedBeforeTheLinesAreShown) {
    CopyLine(L"CHI0ETE");
    AddAction(Parts(), true);
    EXPECT_EQ(TakeEffects(),
              Journal(L"SystemServices.OpenSettingsFile(20, 10, \"setup.ini\", 0, 0)",
                      L"SettingsFile.GetSection(\"Actions7-Device\")",
                      L"SettingsFile.SetSection(\"Actions101-Device\", "
                      L"\"Gain=3\\r\\nMode=on\\r\\n\")",
                      L"SettingsFile.Release()", L"Tree.Remove(\"CHI0ETE\")",
                      L"Tree.AddChild(\"ETE\", \"CHI0ETE\", \"T(9061): Generator\", \"DEV\")",
                      L"Tree.AddChild(\"ETE\", \"CHI1ETE\", \"T(9061): Generator\", \"DEV\")",
                      L"Tree.SetExpanded(\"ETE\", true)"));
}

TEST_F(DeviceSections, AFileThatFailsLeavesAGrownArrayAMovedCounterAndNothingShown) {
    for (const StringView call : {L"SystemServices.OpenSettingsFile", L"SettingsFile.GetSection",
                                  L"SettingsFile.SetSection", L"SettingsFile.Release"}) {
        context.DeviceSectionCounter = 100;
        Open(aceTemplate);
        CopyLine(L"CHI0ETE");
        host->faults.FailOperation(call, 1, 57);
        EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 57);
        host->faults.Clear();
        ExpectOnlyTheArrayGrown();
        EXPECT_THAT(host->journal.LinesOf(L"Tree.Remove"), IsEmpty());
    }
}

TEST_F(DeviceSections, AfterAFailureTheHeldActionHasTheNumberOfASectionThatWasNeverWritten) {
    CopyLine(L"CHI0ETE");
    host->faults.FailOperation(L"SettingsFile.SetSection", 1, 57);
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 57);
    EXPECT_EQ(HeldSection(), 101);
    AddAction(Parts(), true);
    EXPECT_THAT(Sections(State().MainTest), ElementsAre(7, 102));
    EXPECT_EQ(State().MainTest.EnterCount, 2);
    EXPECT_THAT(host->files[FileName][L"Actions102-Device"], IsEmpty());
}

TEST_F(DeviceSections, AFailureThatIsTriedAgainCopiesTheSection) {
    CopyLine(L"CHI0ETE");
    host->faults.FailOperation(L"SettingsFile.SetSection", 1, 57);
    host->reportAnswers = {ITraceLog::RetryStatement};
    AddAction(Parts(), true);
    EXPECT_THAT(Sections(State().MainTest), ElementsAre(7, 101));
    EXPECT_EQ(host->files[FileName][L"Actions101-Device"], Settings);
}

TEST_F(DeviceSections, AHostWithoutTheFileLeavesTheSectionAndTheNumberCounts) {
    host->missingFiles.insert(FileName);
    CopyLine(L"CHI0ETE");
    AddAction(Parts(), true);
    EXPECT_THAT(Sections(State().MainTest), ElementsAre(7, 101));
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"), IsEmpty());
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeviceSections, ASectionThatIsEmptyIsCopiedEmpty) {
    host->files[FileName].clear();
    CopyLine(L"CHI0ETE");
    AddAction(Parts(), true);
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile.SetSection"),
                ElementsAre(L"SettingsFile.SetSection(\"Actions101-Device\", \"\")"));
}

TEST_F(DeviceSections, WithoutANewSectionTheCopySharesTheOldOne) {
    CopyLine(L"CHI0ETE");
    AddAction(Parts(), false);
    EXPECT_THAT(Sections(State().MainTest), ElementsAre(7, 7));
    EXPECT_EQ(context.DeviceSectionCounter, 100);
    EXPECT_THAT(host->journal.LinesOf(L"SystemServices"), IsEmpty());
}

TEST_F(DeviceSections, NoOtherKindGetsASection) {
    for (const p_ActionTypes kind : {atCheckEut, atMonitorEUT, atSwitchAmp, atSwitchUnit}) {
        Fill(State().MainTest, EnterList, {OnDevice(kind, L"EUT")});
        Open(aceTemplate);
        CopyLine(L"CHI0ETE");
        AddAction(Parts(), true);
        EXPECT_THAT(Sections(State().MainTest), ElementsAre(7, 7)) << kind;
        EXPECT_THAT(host->journal.LinesOf(L"SystemServices"), IsEmpty());
    }
    EXPECT_EQ(context.DeviceSectionCounter, 100);
}

TEST_F(DeviceSections, TheFileIsThatOfTheEnginesModule) {
    context.ModuleFileNames[1] = L"monitoring.ini";
    Fill(State().MoniEut, MlcList, {Generator(7)});
    Open(aceMonitoring);
    CopyLine(L"CHI0MLC");
    AddAction(Parts(), true);
    EXPECT_EQ(host->journal.LinesOf(L"SystemServices"),
              Journal(L"SystemServices.OpenSettingsFile(20, 10, \"monitoring.ini\", 0, 0)"));
}

TEST_F(DeviceSections, AKindThatIsHeldWithAnothersRecordIsError13WithTheCounterMoved) {
    CopyLine(L"CHI0ETE");
    Parts().held.Action.Parameter = aceWait{1000.0};
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 13);
    EXPECT_THAT(host->journal.LinesOf(L"SystemServices"), IsEmpty());
    ExpectOnlyTheArrayGrown();
}

TEST_F(DeviceSections, ANumberBeyondTheIntegersIsError6AndTheCounterStays) {
    context.DeviceSectionCounter = 2147483647;
    CopyLine(L"CHI0ETE");
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 6);
    EXPECT_EQ(context.DeviceSectionCounter, 2147483647);
    EXPECT_EQ(Parts().lists.MainTest.EnterCount, 1);
}

TEST_F(DeviceSections, AnInsertionAfterAFailureUsesTheRoomOfTheFailedOne) {
    CopyLine(L"CHI0ETE");
    host->faults.FailOperation(L"SystemServices.OpenSettingsFile", 1, 57);
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 57);
    HoldNew(WaitFor(2000));
    AddAction(Parts(), true);
    EXPECT_EQ(State().MainTest.EnterCount, 2);
    EXPECT_EQ(State().MainTest.Enter.UpperBound(), 1);
    EXPECT_EQ(State().MainTest.Enter[1], WaitFor(2000));
}

}  // namespace
}  // namespace ace::test
