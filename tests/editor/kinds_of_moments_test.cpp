#include <algorithm>

#include <ace/editor/accepted_kinds.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

/// The icon of each kind, in the order of the kinds.
constexpr StringView Icons[] = {L"WAI", L"NOT", L"REM", L"DEV", L"EUT", L"TRC",
                                L"MSG", L"REC", L"STP", L"SGL", L"STL", L"NBB",
                                L"SWA", L"SWU", L"API", L"PAC", L"QUE", L"MON"};

constexpr StringView None = L"";
constexpr StringView All =
    L"WAI NOT REM DEV EUT TRC MSG REC STP SGL STL NBB SWA SWU API PAC QUE MON";
constexpr StringView Signals = L"MSG STP SGL STL NBB";
constexpr StringView Track = L"TRC";
constexpr StringView TrackAndSignals = L"TRC MSG STP SGL STL NBB";
/// All but tracking, devices and checks.
constexpr StringView ButFreq = L"WAI NOT REM MSG REC STP SGL STL NBB SWA SWU API PAC QUE MON";
/// The same without waits, commands and macros.
constexpr StringView ButFreqDropped = L"NOT MSG REC STP SGL STL NBB SWA SWU PAC QUE MON";
constexpr StringView Asking = L"QUE MON";

/// A node of a module's tree, and what is refused there.
struct Place {
    aceModul module;
    StringView key;
    StringView caption;
    StringView added;    ///< kinds that a double click doesn't add
    StringView dropped;  ///< kinds that aren't dropped from the list
    StringView moved;    ///< lines that aren't moved or copied
};
void PrintTo(const Place& place, std::ostream* out) {
    *out << ::testing::PrintToString(place.key) << " of module " << place.module;
}

constexpr Place Places[] = {
    {aceTemplate, L"EFR", L"Freq", ButFreq, ButFreqDropped, ButFreq},
    {aceTemplate, L"ETE", L"Start", TrackAndSignals, TrackAndSignals, Signals},
    {aceTemplate, L"LTE", L"Stop", TrackAndSignals, TrackAndSignals, Signals},
    {aceTemplate, L"SUR0", L"Subrange 1", Track, Track, None},
    {aceTemplate, L"ESR0", L"Enter", Track, Track, None},
    {aceTemplate, L"LSR12", L"Leave", Track, Track, None},
    {aceTemplate, L"CHI0EFR", L"Turntable", Track, Track, None},
    {aceTemplate, L"CHI0ETE", L"Wait", Track, Track, None},

    {aceMonitoring, L"EFR", L"Freq", ButFreq, None, ButFreq},
    {aceMonitoring, L"ETE", L"Start", TrackAndSignals, None, Signals},
    {aceMonitoring, L"LTE", L"Stop", TrackAndSignals, None, Signals},
    {aceMonitoring, L"ATL", L"Loop", Track, None, None},
    {aceMonitoring, L"BFT", L"Before", Track, None, None},
    {aceMonitoring, L"ATT", L"After", Track, None, None},
    {aceMonitoring, L"CHA0", L"Channel 1", Track, None, None},
    {aceMonitoring, L"TRI0", L"Trigger", Track, Signals, None},
    {aceMonitoring, L"GOE12", L"Go", Track, Signals, None},
    {aceMonitoring, L"NGO0", L"No-go", Track, L"EUT PAC", None},
    {aceMonitoring, L"MLC", L"Cycle", Track, L"EUT MSG STP SGL STL NBB", None},
    {aceMonitoring, L"CHI0NGO0", L"Wait", Track, None, None},
    {aceMonitoring, L"CHI0MLC", L"Wait", Track, None, None},

    {aceEMSAutoTemplateGeneral, L"ETE", L"Start", TrackAndSignals, None, None},
    {aceEMSAutoTemplateGeneral, L"LTE", L"Stop", TrackAndSignals, None, None},
    {aceEMSAutoTemplateGeneral, L"CHI0ETE", L"Wait", Track, None, None},

    {aceEMSAutoTemplate, L"STE0", L"Step 1", Track, None, None},
    {aceEMSAutoTemplate, L"CHI0STE0", L"Wait", Track, None, None},

    {aceEMIAutoTemplate, L"EFR", L"Freq", ButFreq, None, None},
    {aceEMIAutoTemplate, L"ETE", L"Start", TrackAndSignals, L"PAC", None},
    {aceEMIAutoTemplate, L"LTE", L"Stop", TrackAndSignals, None, None},
    {aceEMIAutoTemplate, L"EMI0", L"Sweep", Track, None, None},
    {aceEMIAutoTemplate, L"BEF0", L"Before", Track, None, None},
    {aceEMIAutoTemplate, L"AFT0", L"After", Track, None, None},
    {aceEMIAutoTemplate, L"CHI0ETE", L"Wait", Track, None, None},

    {aceTSTemplate, L"ETE", L"Start", TrackAndSignals, None, None},
    {aceTSTemplate, L"LTE", L"Stop", TrackAndSignals, None, None},
    {aceTSTemplate, L"TST0", L"Test1", Track, None, None},
    {aceTSTemplate, L"BFT0", L"Before", Track, None, None},
    {aceTSTemplate, L"ATT0", L"After", Track, None, None},
    {aceTSTemplate, L"CHI0BFT0", L"Wait", Track, None, None},

    {aceAziChart, L"EFR", L"Freq", ButFreq, None, None},
    {aceAziChart, L"ETE", L"Start", TrackAndSignals, L"PAC", None},
    {aceAziChart, L"LTE", L"Stop", TrackAndSignals, None, None},
    {aceAziChart, L"CHI0EFR", L"Wait", Track, None, None},

    {aceVKSTemplate, L"ETE", L"Start", TrackAndSignals, Asking, Asking},
    {aceVKSTemplate, L"LTE", L"Stop", TrackAndSignals, Asking, Asking},
    {aceVKSTemplate, L"TST0", L"Antenna", Track, Asking, Asking},
    {aceVKSTemplate, L"BFT0", L"Before", Track, Asking, Asking},
    {aceVKSTemplate, L"ATT0", L"After", Track, Asking, Asking},
    {aceVKSTemplate, L"STE0", L"Carrier", Track, None, None},
    {aceVKSTemplate, L"CHI0STE0", L"Wait", Track, Asking, Asking},

    {aceVKSDUT, L"STE0", L"2.4 GHz", Track, None, None},
    {aceVKSDUT, L"STE-1", L"5.2 GHz", Track, None, None},
    {aceVKSDUT, L"TST-1_0_-1", L"20 MHz", Track, All, All},
    {aceVKSDUT, L"BSA", L"Before", Track, None, None},
    {aceVKSDUT, L"ASA", L"After", Track, None, None},
    {aceVKSDUT, L"CHI0STE0", L"Wait", Track, None, None},
};

/// The captions that the tree of a module has for the three moments that are told by theirs.
RuleCaptions CaptionsOf(aceModul module) {
    RuleCaptions captions;
    for (const Place& place : Places) {
        if (place.module == module && place.key == L"EFR") {
            captions.everyFrequency = String(place.caption);
        }
        if (place.module == module && place.key == L"ETE") {
            captions.start = String(place.caption);
        }
        if (place.module == module && place.key == L"LTE") {
            captions.stop = String(place.caption);
        }
    }
    return captions;
}

/// Icons of the kinds to which `accepts` says no, in the order of the table.
template <class Accepts>
std::vector<String> Refused(Accepts&& accepts) {
    std::vector<String> refused;
    for (std::int32_t kind = 0; kind < 18; ++kind) {
        if (!accepts(kind)) {
            refused.emplace_back(Icons[kind]);
        }
    }
    return refused;
}
/// The words of a text, in the order of the kinds.
std::vector<String> Words(StringView text) {
    return Refused([&](std::int32_t kind) { return text.find(Icons[kind]) == StringView::npos; });
}

class KindsOfMoments : public ::testing::TestWithParam<Place> {
  protected:
    RuleCaptions captions = CaptionsOf(GetParam().module);
    RuleTarget target{GetParam().key, GetParam().caption};
};

TEST_P(KindsOfMoments, AddedByADoubleClick) {
    const Place& place = GetParam();
    EXPECT_EQ(
        Refused([&](std::int32_t kind) { return AcceptsAdded(kind, place.caption, captions); }),
        Words(place.added));
}

TEST_P(KindsOfMoments, DroppedFromTheList) {
    const Place& place = GetParam();
    EXPECT_EQ(Refused([&](std::int32_t kind) {
                  return AcceptsDropped(place.module, kind, target, captions);
              }),
              Words(place.dropped));
}

TEST_P(KindsOfMoments, LinesMovedInTheTree) {
    const Place& place = GetParam();
    EXPECT_EQ(Refused([&](std::int32_t kind) {
                  return AcceptsLine(place.module, Icons[kind], target, captions);
              }),
              Words(place.moved));
}

std::string NameOf(const ::testing::TestParamInfo<Place>& info) {
    std::string name = "Module" + std::to_string(info.param.module) + "_";
    for (const wchar_t c : info.param.key) {
        name += c == L'-' ? 'm' : static_cast<char>(c);
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, KindsOfMoments, ::testing::ValuesIn(Places), NameOf);

// ---- captions ----------------------------------------------------------------------------------

const RuleCaptions Captions{L"Freq", L"Start", L"Stop"};

TEST(KindsByCaption, ANodeWithTheCaptionOfAMomentIsTakenForIt) {
    EXPECT_FALSE(AcceptsAdded(atWait, L"Freq", Captions));
    EXPECT_FALSE(AcceptsDropped(aceTemplate, atNotify, {L"SUR0", L"Freq"}, Captions));
    EXPECT_FALSE(AcceptsDropped(aceTemplate, atComment, {L"ESR0", L"Stop"}, Captions));
    EXPECT_FALSE(AcceptsLine(aceMonitoring, L"WAI", {L"CHA0", L"Freq"}, Captions));
    EXPECT_FALSE(AcceptsDropped(aceAziChart, atParkAcc, {L"LTE", L"Start"}, Captions));
}

TEST(KindsByCaption, TheKeyOfAMomentWithAnotherCaptionIsNotIt) {
    EXPECT_TRUE(AcceptsDropped(aceTemplate, atNotify, {L"EFR", L"Other"}, Captions));
    EXPECT_TRUE(AcceptsLine(aceTemplate, L"WAI", {L"EFR", L"Other"}, Captions));
    EXPECT_TRUE(AcceptsDropped(aceEMIAutoTemplate, atParkAcc, {L"ETE", L"Other"}, Captions));
}

TEST(KindsByCaption, ATreeWithoutAMomentHasNoNodeOfItsCaption) {
    const RuleCaptions none;
    for (const StringView caption : {L"", L"Freq"}) {
        EXPECT_TRUE(AcceptsAdded(atWait, caption, none));
        EXPECT_FALSE(AcceptsAdded(atTrackFreq, caption, none));
        EXPECT_TRUE(AcceptsAdded(atComment, caption, none));
        EXPECT_TRUE(AcceptsDropped(aceTemplate, atComment, {L"ETE", caption}, none));
        EXPECT_TRUE(AcceptsLine(aceTemplate, L"MSG", {L"ETE", caption}, none));
    }
}

/// A host without language data: every node is taken for the one of every frequency.
TEST(KindsByCaption, WhereAllCaptionsAreEqualEveryFrequencyComesFirst) {
    const RuleCaptions same{L"", L"", L""};
    EXPECT_TRUE(AcceptsAdded(atTrackFreq, L"", same));
    EXPECT_FALSE(AcceptsAdded(atWait, L"", same));
}

TEST(KindsByCaption, CaptionsAreComparedExactly) {
    EXPECT_TRUE(AcceptsAdded(atWait, L"freq", Captions));
    EXPECT_TRUE(AcceptsAdded(atWait, L"Freq ", Captions));
}

}  // namespace
}  // namespace ace::test
