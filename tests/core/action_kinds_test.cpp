#include <gtest/gtest.h>

#include <ace/core/action_kinds.h>

namespace ace::test {
namespace {

struct ExpectedKind {
    std::int32_t kind;
    StringView icon;
    StringView palette;  ///< number or fixed words
    StringView title;
    StringView printTitle;
    RecordType record;
    std::int32_t pane;
};
constexpr ExpectedKind Expected[] = {
    {0, L"WAI", L"9033", L"9063", L"9063", RecordType::Wait, 0},
    {1, L"NOT", L"9034", L"9064", L"9064", RecordType::Notify, 1},
    {2, L"REM", L"9032", L"9062", L"9062", RecordType::Remote, 2},
    {3, L"DEV", L"9031", L"9061", L"9061", RecordType::SetDevice, 3},
    {4, L"EUT", L"9035", L"9065", L"9065", RecordType::SetDevice, 3},
    {5, L"TRC", L"9037", L"9066", L"9066", RecordType::TrackFreq, 4},
    {6, L"MSG", L"9039", L"9069", L"9069", RecordType::Notify, 1},
    {7, L"REC", L"9038", L"9068", L"9068", RecordType::None, -1},
    {8, L"STP", L"9040", L"9070", L"9070", RecordType::None, -1},
    {9, L"SGL", L"9042", L"9042", L"9042", RecordType::None, -1},
    {10, L"STL", L"9041", L"9071", L"9071", RecordType::None, -1},
    {11, L"NBB", L"9072", L"9072", L"9072", RecordType::None, -1},
    {12, L"SWA", L"9073", L"9073", L"9073", RecordType::SetDevice, 3},
    {13, L"SWU", L"9074", L"9074", L"9074", RecordType::SetDevice, 3},
    {14, L"API", L"9078", L"9078", L"9078", RecordType::Api, 5},
    {15, L"PAC", L"9077", L"9077", L"9077", RecordType::None, -1},
    {16, L"QUE", L"Question", L"Question", L"9064", RecordType::Notify, 1},
    {17, L"MON", L"Monitor", L"Monitor EUT", L"Monitor EUT", RecordType::SetDevice, 3},
};

String TextOf(const KindWords& words) {
    return words.number != 0 ? std::to_wstring(words.number) : String(words.fixed);
}

TEST(ActionKindsTest, EachKindHasItsRecordPaneIconAndWords) {
    ASSERT_EQ(ActionKinds().size(), std::size(Expected));
    for (const ExpectedKind& expected : Expected) {
        const ActionKind& row = *FindActionKind(expected.kind);
        EXPECT_EQ(row.kind, expected.kind);
        EXPECT_EQ(row.icon, expected.icon);
        EXPECT_EQ(TextOf(row.palette), expected.palette);
        EXPECT_EQ(TextOf(row.title), expected.title);
        EXPECT_EQ(TextOf(row.printTitle), expected.printTitle);
        EXPECT_EQ(row.record, expected.record);
        EXPECT_EQ(static_cast<std::int32_t>(row.pane), expected.pane);
    }
}

}  // namespace
}  // namespace ace::test
