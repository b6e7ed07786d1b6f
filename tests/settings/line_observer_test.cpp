#include <ace/settings/line_observer.h>

#include "settings/section_fixture.h"

namespace ace {
namespace {

using testing::ElementsAre;

String Names(LineFields fields) {
    String names;
    for (const LineFieldRow& row : LineFieldTable) {
        if (fields.Contains(row.field)) {
            names += (names.empty() ? L"" : L" ") + String(row.name);
        }
    }
    return names;
}

/// Keeps every report as one line of text.
class Keeper : public ILineObserver {
  public:
    void SectionStarts(StringView section) override {
        told.push_back(L"section " + String(section));
    }
    void LineIsRead(const LineReport& report) override {
        static constexpr StringView Meanings[] = {
            L"short", L"count", L"entry", L"unknown key", L"unknown keyword", L"unreadable"};
        String text = std::to_wstring(report.lineIndex) + L" ";
        text += Meanings[static_cast<std::size_t>(report.meaning)];
        text += L" list " + std::to_wstring(report.list);
        text += L" entry " + std::to_wstring(report.entry);
        text += L" key " + String(report.key) + L" keyword " + String(report.keyword);
        told.push_back(text);
        sets.push_back(Names(report.set));
        inherited.push_back(Names(report.inherited));
        last = report;
        lastOrigins = *report.origins;
        last.origins = &lastOrigins;
        lastSection = report.section;
        lastLine = report.line;
    }

    std::vector<String> told;
    std::vector<String> sets;
    std::vector<String> inherited;
    LineReport last;  ///< its views are gone, these copies stay
    FieldOrigins lastOrigins{};
    String lastSection;
    String lastLine;
};

struct LineObserverTest : test::SectionTest {
    LineObserverTest() { observer = &keeper; }
    /// What is wrong with a line that stands behind the count lines of two entries.
    String ReasonOf(const String& line) {
        target = {};
        keeper.last = {};
        EXPECT_NE(ErrorOfReading({L"NumOfEnterActions=2", L"NumOfFreqActions=2", line}), 0);
        EXPECT_EQ(keeper.lastLine, line);
        EXPECT_EQ(keeper.last.lineIndex, 2);
        return keeper.last.reason;
    }
    Keeper keeper;
};

TEST_F(LineObserverTest, IsToldOfEveryLineOnceFirstThoseThatNeedNoList) {
    Read({L"EnterAction2=stop:", L"", L"NumOfEnterActions=2", L"Remark=a:b",
          L"LeaveAction1=QUESTION:x", L"EnterAction1=RS232:x", L"EnterAction1=WAIT:5"});
    EXPECT_THAT(keeper.told,
                ElementsAre(L"section S", L"1 short list 0 entry -1 key  keyword ",
                            L"2 count list 1 entry -1 key NumOfEnterActions keyword ",
                            L"0 entry list 1 entry 1 key EnterAction2 keyword stop:",
                            L"3 unknown key list 0 entry -1 key Remark keyword a:",
                            L"4 unknown keyword list 2 entry -1 key LeaveAction1 keyword QUESTION:",
                            L"5 unknown keyword list 1 entry -1 key EnterAction1 keyword RS232:",
                            L"6 entry list 1 entry 0 key EnterAction1 keyword WAIT:"));
    EXPECT_EQ(keeper.lastSection, L"S");
    EXPECT_EQ(keeper.last.error, 0);
    EXPECT_EQ(keeper.last.reason, L"");
}

TEST_F(LineObserverTest, IsToldOfAnEmptySection) {
    Read({});
    EXPECT_THAT(keeper.told, ElementsAre(L"section S"));
}

TEST_F(LineObserverTest, ACountLineCarriesItsCount) {
    Read({L"NumOfMlcActions=7"});
    EXPECT_EQ(keeper.last.list, 4);
    EXPECT_EQ(keeper.last.count, 7);
}

TEST_F(LineObserverTest, ASkippedKeywordThatOtherListsKnowCarriesItsRow) {
    ReadList(Leave, {L"QUESTION:x,,0"});
    EXPECT_EQ(keeper.last.row, FindKeyword(L"QUESTION:"));
    ReadList(Leave, {L"RS232:x"});
    EXPECT_EQ(keeper.last.row, nullptr);
}

TEST_F(LineObserverTest, TellsWhichFieldsALineSetAndWhichItLeft) {
    ReadList(Enter, {L"NOTIFY:a,b,1", L"MSG:c", L"STOP:", L"WAIT:1"});
    EXPECT_THAT(keeper.sets, ElementsAre(L"", L"Message WaveFile Beep", L"Message", L"", L"Time"));
    EXPECT_THAT(keeper.inherited,
                ElementsAre(L"", L"GeneratorOff", L"WaveFile Beep GeneratorOff", L"", L""));
}

TEST_F(LineObserverTest, TellsFromWhichLineAFieldIsInherited) {
    ReadList(Enter, {L"SETDEV:A,101,X", L"SWITCHUNIT:U,P", L"SETDEV:B,102"});
    EXPECT_EQ(Names(keeper.last.set), L"DevName ChanNo");
    EXPECT_EQ(keeper.last.OriginOf(LineField::DeviceSigPathName), 1);
    EXPECT_EQ(keeper.last.OriginOf(LineField::Path), 2);
    EXPECT_EQ(keeper.last.OriginOf(LineField::StopTest), FromReset);
}

TEST_F(LineObserverTest, FieldsWithoutResetValueComeFromTheEarlierSection) {
    ReadList(Enter, {L"SETDEV:A,101", L"SWITCHUNIT:U,P"});
    ReadList(Enter, {L"SWITCHAMP:A,2"});
    EXPECT_EQ(RecordAt<aceSetDevice>(0).ChanNo, 101);
    EXPECT_EQ(RecordAt<aceSetDevice>(0).Path, L"P");
    EXPECT_EQ(keeper.last.OriginOf(LineField::ChanNo), FromEarlierSection);
    EXPECT_EQ(keeper.last.OriginOf(LineField::Path), FromEarlierSection);
    EXPECT_EQ(keeper.last.OriginOf(LineField::DeviceSigPathName), FromReset);
}

/// One line of each form with all the fields that it sets.
TEST_F(LineObserverTest, EveryFormMarksTheFieldsThatItSets) {
    const struct {
        std::size_t list;
        StringView value;
        StringView set;
    } forms[] = {
        {Enter, L"API:m||1", L"Program Parameters"},
        {Enter, L"COMMENT:1", L"Message WaveFile Beep GeneratorOff"},
        {Enter, L"SOUND:", L"WaveFile Beep"},
        {Enter, L"REMOTE:C,0,20,1,,0,",
         L"Command Iface GpibAddress Terminator Program WaitPrgSync"},
        {Enter, L"REMOTE:C,1,4,1,", L"Command Iface SerComPort Terminator Program"},
        {Enter, L"REMOTE:C,2,h,1:1,,0,",
         L"Command Iface TcpHost TcpPort Terminator Program WaitPrgSync"},
        {Leave, L"REMOTE:C,2,h,1:1,,0,", L"Command Iface TcpHost TcpPort Program WaitPrgSync"},
        {Enter, L"REMOTE:,,,,p,1,", L"Command Program WaitPrgSync"},
        {Enter, L"GPIB:20,1,C", L"Command Iface GpibAddress Terminator"},
        {Enter, L"DLL:p", L"Program"},
        {Enter, L"SETDEV:A,101,X", L"DevName ChanNo SigPathName"},
        {Enter, L"CHECKEUT:A,101,0,0,0,0,1,0,1",
         L"DevName ChanNo StopTest CommToTable Notify UseTimeCyc CycleTime WaitState WaitTime"},
        {Enter, L"SWITCHAMP:A,2", L"DevName AmpState"},
        {Enter, L"SWITCHUNIT:U,P", L"DevName Path"},
        {Freq, L"FREQTRACK:M,100", L"MoniName DelayTime"},
        {Freq, L"SYNCGEN:G,T,40,0,1",
         L"GenName SigPathName TableName TableType TableMeasClass AskOnMeasStart"},
    };
    for (const auto& form : forms) {
        ReadList(form.list, {String(form.value)});
        EXPECT_EQ(keeper.sets.back(), form.set) << testing::PrintToString(String(form.value));
    }
}

TEST_F(LineObserverTest, TellsWhyTheReadingStoppedInWords) {
    EXPECT_EQ(ReasonOf(L"; remark"), L"there is no \"=\"");
    EXPECT_EQ(ReasonOf(L"Remark=none"), L"there is no \":\" behind the \"=\"");
    EXPECT_EQ(ReasonOf(L"NumOfLeaveActions=none"), L"a list of 0 entries can't be made");
    EXPECT_EQ(ReasonOf(L"NumOfLeaveActions=100001"), L"100001 entries are more than 100000");
    EXPECT_EQ(ReasonOf(L"NumOfLeaveActions=9999999999"), L"\"9999999999\" is too large");
    EXPECT_EQ(ReasonOf(L"EnterAction3=STOP:"),
              L"entry number \"3\" is outside the list, which has 2");
    EXPECT_EQ(ReasonOf(L"LeaveAction1=WAIT:1"),
              L"entry number \"1\" is outside the list, which has 0");
    EXPECT_EQ(ReasonOf(L"EnterAction1=SETDEV:M,X"), L"\"X\" is not a number");
    EXPECT_EQ(ReasonOf(L"EnterAction1=SETDEV:M"), L"the value ends before field 2");
    EXPECT_EQ(ReasonOf(L"EnterAction1=SETDEV:M,9999999999"), L"\"9999999999\" is too large");
    EXPECT_EQ(ReasonOf(L"EnterAction1=GPIB:20,1"), L"the value has fewer than two commas");
    EXPECT_EQ(ReasonOf(L"FrequAction1=FREQTRACK:G,T,40,0,yes"),
              L"\"yes\" is neither a number nor true or false");
    EXPECT_EQ(ReasonOf(L"FrequAction1=SYNCGEN:M,100"), L"this form needs at least three fields");
}

TEST_F(LineObserverTest, AHostThatFailsIsTheReasonInItsOwnWords) {
    host->faults.FailOperation(L"Utilities.Max", 1, 70);
    EXPECT_EQ(ReasonOf(L"EnterAction1=SETDEV:M,250"), L"scripted failure");
    EXPECT_EQ(keeper.last.error, 70);
}

TEST_F(LineObserverTest, AHeldListIsTheReason) {
    test::Fill(target, EnterList, {});
    target.Enter.Redim(0, 0);
    const DynArray<p_Action>::Hold hold(target.Enter);
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=1"}), 10);
    EXPECT_EQ(keeper.last.reason, L"array is in use");
}

TEST_F(LineObserverTest, TheLineThatStopsTheReadingCarriesWhatWasUnderstood) {
    ReadList(Enter, {L"SETDEV:A,101,X"});
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=1", L"EnterAction1=SETDEV:M,X", L"x"}), 13);
    EXPECT_EQ(keeper.last.meaning, LineMeaning::Entry);
    EXPECT_EQ(keeper.last.row, FindKeyword(L"SETDEV:"));
    EXPECT_EQ(keeper.last.list, 1);
    EXPECT_EQ(keeper.last.entry, 0);
    EXPECT_EQ(keeper.last.error, 13);
    EXPECT_EQ(Names(keeper.last.set), L"DevName");
}

/// Stops the reading itself.
class Refuser : public ILineObserver {
  public:
    void LineIsRead(const LineReport&) override {
        ++calls;
        throw RunTimeError(77, L"refused");
    }
    int calls = 0;
};

TEST_F(LineObserverTest, AnErrorOfTheObserverEndsTheReading) {
    Refuser refuser;
    observer = &refuser;
    EXPECT_EQ(ErrorOfReading({L"NumOfEnterActions=1", L"EnterAction1=STOP:"}), 77);
    EXPECT_EQ(refuser.calls, 1);
}

}  // namespace
}  // namespace ace
