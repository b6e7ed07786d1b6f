#include <gmock/gmock.h>
#include <set>

#include <ace/host/english_language.h>

namespace ace::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

String T(std::int32_t number) {
    return EnglishLanguage().Text(number);
}

// Written down from what asks for a text, not from the table.
constexpr std::int32_t Asked[] = {
    // buttons and titles of the operator's boxes, details of a failure
    6, 9312, 9313, 9314, 9315, 9316, 9317, 9320, 9321, 9322, 9323, 9324, 9325, 9326, 9327, 9328,
    9329, 9330, 9331, 9332, 9351,
    // a device that stays silent
    3021, 3350,
    // waiting, status line, EUT checks, tracking, macros
    9044, 9410, 9411, 9412, 9413, 9414, 9420, 9421, 9430, 9431, 9432, 9183, 24500, 24597,
    // kinds that are offered and descriptions of a step
    9031, 9032, 9033, 9034, 9035, 9037, 9038, 9039, 9040, 9041, 9042, 9072, 9073, 9074, 9077, 9078,
    // moments
    9051, 9052, 9053, 9054, 9055, 9056, 9057, 9058, 9075, 9076, 9087, 9090, 9091, 9092, 9093, 9094,
    9095, 9096, 9097, 9098, 9099, 9101, 9103, 9104, 21000,
    // subtests
    9080, 9081, 9082, 9083, 9084, 9085, 9086, 9088, 9089,
    // action lines and the print
    9061, 9062, 9063, 9064, 9065, 9066, 9068, 9069, 9070, 9071, 9123, 9124, 18153,
    // the editor's menu and dialog
    9011, 9012, 9013, 9014, 9015, 9016, 9017, 9021, 9022, 9113, 9121, 9125, 9141, 9142, 9147, 9148,
    9149, 9151, 9154, 9155, 9162, 12041,
    // input that is refused
    9200, 9201, 9202, 9203, 9204, 9205, 9206, 9207, 9208, 9209, 21093, 21094};

TEST(EnglishLanguage, EveryNumberThatIsAskedForHasAText) {
    for (const std::int32_t number : Asked) {
        EXPECT_FALSE(T(number).empty()) << number;
    }
}

TEST(EnglishLanguage, TheTableHoldsNoTextThatNobodyAsksFor) {
    const std::set<std::int32_t> asked(std::begin(Asked), std::end(Asked));
    EXPECT_EQ(asked.size(), std::size(Asked));
    for (const NumberedText& row : EnglishTextTable()) {
        EXPECT_TRUE(asked.contains(row.number)) << row.number;
    }
}

TEST(EnglishLanguage, ANumberWithoutATextReadsAsEmpty) {
    for (const std::int32_t number : {-1, 0, 5, 7, 9036, 9043, 9100, 24598, 2147483647}) {
        EXPECT_EQ(T(number), L"") << number;
    }
}

TEST(EnglishLanguage, TextsHaveThePlaceholdersThatAreReplacedInThem) {
    EXPECT_THAT(T(9201), HasSubstr(L"yyy"));
    EXPECT_THAT(T(9201), HasSubstr(L"xxx"));
    EXPECT_LT(T(9201).find(L"yyy"), T(9201).find(L"xxx")) << "the lower limit is named first";
    EXPECT_THAT(T(9420), HasSubstr(L"%1"));
    EXPECT_THAT(T(24597), HasSubstr(L"#Name"));
}

TEST(EnglishLanguage, NoOtherTextHasAPlaceholder) {
    for (const NumberedText& row : EnglishTextTable()) {
        const String text(row.text);
        if (row.number != 9201 && row.number != 9420 && row.number != 24597) {
            EXPECT_THAT(text, Not(HasSubstr(L"%"))) << row.number;
            EXPECT_THAT(text, Not(HasSubstr(L"#Name"))) << row.number;
            EXPECT_THAT(text, Not(HasSubstr(L"xxx"))) << row.number;
        }
    }
}

TEST(EnglishLanguage, StatusLinesReadWell) {
    EXPECT_EQ(T(9410) + L" 1.500 s", L"Wait 1.500 s");
    EXPECT_EQ(T(9411) + L"12:5", L"GPIB 12:5");
    EXPECT_EQ(T(9412) + L"3", L"RS232 COM3");
    EXPECT_EQ(T(9413) + L"192.168.17.21", L"TCP/IP 192.168.17.21");
    EXPECT_EQ(T(9414), L"Starting a program");
}

TEST(EnglishLanguage, DetailsOfAFailureReadWell) {
    EXPECT_EQ(T(9322) + L":\tAmp 1\r\n" + T(9320) + L"\t4010", L"Device:\tAmp 1\r\nError:\t4010");
    EXPECT_EQ(T(9329) + L":\trun.exe\r\n" + T(9330) + L"\tC:\\EMC",
              L"Program:\trun.exe\r\nFolder:\tC:\\EMC");
    EXPECT_EQ(T(9324) + L":\t1205", L"GPIB address:\t1205");
}

TEST(EnglishLanguage, NumberedCaptionsReadWell) {
    EXPECT_EQ(T(9053) + L" 1", L"Subrange 1");
    EXPECT_EQ(T(21000) + L" 2", L"Channel 2");
    EXPECT_EQ(T(9101) + L"3", L"Test 3");
    EXPECT_EQ(T(9058) + L" 4", L"Step no. 4");
    EXPECT_EQ(T(9058) + L"4: ---", L"Step no.4: ---");
}

/// The editor tells moments of one tree apart by their captions.
TEST(EnglishLanguage, CaptionsOfAModulesMomentsDiffer) {
    const std::vector<std::vector<std::int32_t>> modules = {
        {9051, 9052, 9054, 9055, 9056},
        {9051, 9052, 9104, 9098, 9099, 9075, 9057, 9076, 9087, 9056},
        {9051, 9052, 9080, 9081, 9082, 9083, 9084, 9085, 9086, 9087, 9088, 9089, 9090, 9091, 9056},
        {9092, 9094, 9095, 9093},
        {9096, 9103, 9097}};
    for (const auto& moments : modules) {
        std::set<String> captions;
        for (const std::int32_t number : moments) {
            EXPECT_TRUE(captions.insert(T(number)).second) << number;
        }
    }
}

/// The action dialog tells by these words whether something was chosen.
TEST(EnglishLanguage, WordsForNothingChosenDiffer) {
    EXPECT_EQ((std::set<String>{T(9113), T(9147), T(9148), T(12041)}.size()), 4U);
}

}  // namespace
}  // namespace ace::test
