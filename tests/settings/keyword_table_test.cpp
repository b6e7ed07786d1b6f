#include <ace/settings/keyword_table.h>

#include "settings/section_fixture.h"

namespace ace {
namespace {

struct KeywordTableTest : test::SectionTest {};

/// A keyword as installations know it: its kind, which of the lists read it, whether it is written,
/// and a value that it reads.
struct Known {
    StringView keyword;
    p_ActionTypes kind;
    bool lists[4];
    bool isWritten;
    StringView value;
};
constexpr bool o = false;
constexpr bool X = true;
constexpr Known KnownKeywords[] = {
    {L"WAIT:", atWait, {X, X, X, X}, X, L"1.000"},
    {L"API:", atAPI, {X, X, X, X}, X, L"macro"},
    {L"COMMENT:", atComment, {X, o, o, o}, X, L"1"},
    {L"NOTIFY:", atNotify, {X, X, X, X}, X, L"text,file,1"},
    {L"QUESTION:", atQuestion, {X, o, o, o}, X, L"text,file,1"},
    {L"MSG:", atNotify, {X, X, X, o}, o, L"text"},
    {L"SOUND:", atNotify, {X, X, X, X}, o, L""},
    {L"REMOTE:", atRemote, {X, X, X, X}, X, L",,,,c:\\run.exe,1,"},
    {L"GPIB:", atRemote, {X, X, o, o}, o, L"20,1,*RST"},
    {L"DLL:", atRemote, {X, X, o, o}, o, L"c:\\run.exe"},
    {L"STOP:", atTestStop, {X, o, o, o}, X, L""},
    {L"STPLEV:", atStopLevSweep, {X, o, o, o}, X, L""},
    {L"GOTOSGL:", atGotoSingle, {X, o, o, o}, X, L""},
    {L"PROTREC:", atProtRec, {X, X, o, o}, X, L""},
    {L"NBBETSI:", atNbBbEtsi, {X, o, o, o}, X, L""},
    {L"PARKACC:", atParkAcc, {X, X, o, o}, X, L""},
    {L"SETDEV:", atSetDevice, {X, X, X, X}, X, L"device,101"},
    {L"CHECKEUT:", atCheckEut, {X, X, X, o}, X, L"device,101,0,0,0,0,20.00,0,10.00,0"},
    {L"MONITOREUT:", atMonitorEUT, {X, o, o, o}, X, L"device,101,0,0,0,0,20.00,0,10.00,0"},
    {L"SWITCHAMP:", atSwitchAmp, {X, X, o, o}, X, L"amplifier,2"},
    {L"SWITCHUNIT:", atSwitchUnit, {X, X, X, X}, X, L"unit,path"},
    {L"SYNCGEN:", atTrackFreq, {o, o, X, o}, o, L"generator,table,40,0,1"},
    {L"FREQTRACK:", atTrackFreq, {o, o, X, o}, X, L"monitor,100"},
};

/// What an entry is for which no line was recognised.
const p_Action Unread;

TEST_F(KeywordTableTest, EachListReadsItsKeywordsAndSkipsAllOthers) {
    for (const Known& known : KnownKeywords) {
        for (std::size_t list = Enter; list <= Mlc; ++list) {
            ReadList(list, {String(known.keyword) + String(known.value)});
            SCOPED_TRACE(testing::PrintToString(String(known.keyword)));
            SCOPED_TRACE(list);
            EXPECT_EQ(Entry(0, list) != Unread, known.lists[list]);
            EXPECT_EQ(Entry(0, list).ActionType, known.lists[list] ? known.kind : atWait);
        }
    }
}

TEST_F(KeywordTableTest, EveryKindIsWrittenInEveryListUnderItsOneKeyword) {
    for (const Known& known : KnownKeywords) {
        const std::size_t home = known.lists[Enter] ? Enter : Freq;
        ReadList(home, {String(known.keyword) + String(known.value)});
        const p_Action action = Entry(0, home);
        for (std::size_t list = Enter; list <= Mlc; ++list) {
            const bool sameWord = WrittenAs(action, list).starts_with(known.keyword);
            EXPECT_EQ(sameWord, known.isWritten) << testing::PrintToString(String(known.keyword));
        }
    }
}

TEST_F(KeywordTableTest, TheTableHoldsTheseKeywordsInThisOrder) {
    ASSERT_EQ(KeywordTable().size(), std::size(KnownKeywords));
    for (std::size_t i = 0; i < std::size(KnownKeywords); ++i) {
        const KeywordRow& row = KeywordTable()[i];
        EXPECT_EQ(row.keyword, KnownKeywords[i].keyword);
        EXPECT_EQ(row.kind, KnownKeywords[i].kind);
        EXPECT_EQ(FindKeyword(row.keyword), &row);
    }
    EXPECT_EQ(FindKeyword(L"WAIT"), nullptr);
    EXPECT_EQ(FindKeyword(L"RS232:"), nullptr);
    EXPECT_EQ(FindKeyword(L"TCPIP:"), nullptr);
    EXPECT_EQ(FindKeyword(L""), nullptr);
    EXPECT_EQ(FindKeyword(L"MONITOREUTS:"), nullptr);  // longer than all
    EXPECT_EQ(FindWriter(static_cast<p_ActionTypes>(18)), nullptr);
    EXPECT_EQ(FindWriter(static_cast<p_ActionTypes>(-1)), nullptr);
}

TEST(LineFieldTableTest, RowsStandAtTheirFieldAndEveryRecordHasItsOwn) {
    std::size_t total = 0;
    for (const LineFieldRow& row : LineFieldTable) {
        EXPECT_EQ(&LineFieldRowOf(row.field), &row);
        EXPECT_NE(row.record, RecordType::None);
        EXPECT_TRUE(FieldsOf(row.record).Contains(row.field));
        total += row.isReset ? 0 : 1;
    }
    EXPECT_EQ(total, 4U);  // time, device section, path, delay
    EXPECT_TRUE(FieldsOf(RecordType::None).IsEmpty());
    EXPECT_FALSE(FieldsOf(RecordType::Notify).Contains(LineField::Notify));
}

}  // namespace
}  // namespace ace
