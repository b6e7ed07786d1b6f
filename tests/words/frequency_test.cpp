#include "workbench/words/frequency.h"

#include <gtest/gtest.h>

namespace ace::workbench {
namespace {

TEST(Frequency, IsToldInItsLargestUnitToTheHertz) {
    const struct {
        double hertz;
        const wchar_t* text;
    } rows[] = {
        {80e6, L"80 MHz"},
        {80.8e6, L"80.8 MHz"},
        {1e9, L"1 GHz"},
        {2.45e9, L"2.45 GHz"},
        {150e3, L"150 kHz"},
        {50.0, L"50 Hz"},
        {0.4, L"0 Hz"},
        {999'999'999.0, L"999.999999 MHz"},
        {81'608'000.4, L"81.608 MHz"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FrequencyText(row.hertz), row.text);
    }
}

TEST(Frequency, IsReadWithItsUnitInAnyCaseAndWithoutOne) {
    const struct {
        StringView text;
        double hertz;
    } rows[] = {{L"80MHz", 80e6}, {L" 81.608 mhz ", 81.608e6}, {L"2.4 GHZ", 2.4e9}, {L"9kHz", 9e3},
                {L"50 Hz", 50.0}, {L"80000000", 80e6}};
    for (const auto& row : rows) {
        EXPECT_EQ(ReadFrequency(row.text), row.hertz)
            << std::string(row.text.begin(), row.text.end());
    }
}

TEST(Frequency, AnythingElseIsNone) {
    for (const StringView text : {L"", L" ", L"MHz", L"80 M", L"80MHz.", L"x", L"1 2 Hz"}) {
        EXPECT_EQ(ReadFrequency(text), std::nullopt);
    }
}

}  // namespace
}  // namespace ace::workbench
