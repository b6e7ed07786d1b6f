/// Which kinds and lines a node takes in a drag, by the icon of the kind.
#include "editor/drag_effects.h"

namespace ace::test {
namespace {

constexpr StringView None = L"";
constexpr StringView All =
    L"WAI NOT REM DEV EUT TRC MSG REC STP SGL STL NBB SWA SWU API PAC QUE MON";
/// What sends the test elsewhere.
constexpr StringView Signals = L"MSG STP SGL STL NBB";
/// All but waits, commands, devices, checks, followers and macros.
constexpr StringView ButKindsOfAFrequency = L"NOT MSG REC STP SGL STL NBB SWA SWU PAC QUE MON";
/// All but devices, checks and followers.
constexpr StringView ButLinesOfAFrequency =
    L"WAI NOT REM MSG REC STP SGL STL NBB SWA SWU API PAC QUE MON";

/// Nodes of a module that refuse the same.
struct Refusal {
    StringView nodes;
    StringView refused;
};
struct RefusalRow {
    const char* name;
    aceModul moduleKind;
    std::int32_t matrix;
    StringView selected;  ///< empty for none
    std::vector<Refusal> refusals;
};

class DraggedKinds : public DragEffects, public ::testing::WithParamInterface<RefusalRow> {
  protected:
    void OpenRow() {
        OpenWhole(GetParam().moduleKind, GetParam().matrix);
        if (!GetParam().selected.empty()) {
            Select(String(GetParam().selected));
        }
    }
    /// Each icon that is refused has no effect on a node, and each other one has `effects`.
    template <class Dragged>
    void ExpectRefused(const Refusal& row, StringView effects, Dragged&& dragged) {
        for (const String& key : Keys(row.nodes)) {
            for (std::int32_t kind = 0; kind < KindCount; ++kind) {
                const bool isRefused = Holds(row.refused, KindIcons[kind]);
                EXPECT_EQ(EffectsOver(dragged(kind), key), isRefused ? Nothing : effects)
                    << testing::PrintToString(key) << " " << kind;
            }
        }
    }
};

std::string NameOf(const ::testing::TestParamInfo<RefusalRow>& info) {
    return info.param.name;
}

// ---- kinds of the list, while nothing is selected ----------------------------------------------

const RefusalRow KindRows[] = {
    {"Template",
     aceTemplate,
     RowsAsRoots,
     {},
     {{L"EFR", ButKindsOfAFrequency},
      {L"ETE LTE", L"TRC MSG STP SGL STL NBB"},
      {L"SUR0 ESR0 LSR0 SUR1 ESR1 LSR1", L"TRC"},
      {L"/ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE", L"TRC"}}},
    {"Monitoring",
     aceMonitoring,
     RowsAsRoots,
     {},
     {{L"TRI0 GOE0 TRI1 GOE1", Signals},
      {L"NGO0 NGO1", L"EUT PAC"},
      {L"MLC", L"EUT MSG STP SGL STL NBB"},
      {L"ETE EFR ATL BFT ATT CHA0 CHA1 LTE", None},
      {L"/ETE /EFR /BFT /ATT /TRI0 /NGO0 /GOE0 /TRI1 /NGO1 /GOE1 /MLC /LTE", None}}},
    {"General", aceEMSAutoTemplateGeneral, RowsAsRoots, {}, {{L"ETE LTE /ETE /LTE", None}}},
    {"Susceptibility", aceEMSAutoTemplate, RowsAsRoots, {}, {{L"STE0 STE1 /STE0 /STE1", None}}},
    {"Emission",
     aceEMIAutoTemplate,
     RowsAsRoots,
     {},
     {{L"ETE", L"PAC"},
      {L"EFR EMI0 BEF0 AFT0 EMI1 BEF1 AFT1 LTE", None},
      {L"/ETE /EFR /BEF0 /AFT0 /BEF1 /AFT1 /LTE", None}}},
    {"Sequence",
     aceTSTemplate,
     RowsAsRoots,
     {},
     {{L"ETE TST0 BFT0 ATT0 TST1 BFT1 ATT1 LTE", None},
      {L"/ETE /BFT0 /ATT0 /BFT1 /ATT1 /LTE", None}}},
    {"Azimuth",
     aceAziChart,
     RowsAsRoots,
     {},
     {{L"ETE", L"PAC"}, {L"EFR LTE /ETE /EFR /LTE", None}}},
    {"Wireless",
     aceVKSTemplate,
     RowsAsRoots,
     {},
     {{L"STE0 STE1", None},
      {L"ETE TST0 BFT0 ATT0 TST1 BFT1 ATT1 LTE", L"QUE MON"},
      {L"/ETE /BFT0 /STE0 /ATT0 /BFT1 /STE1 /ATT1 /LTE", L"QUE MON"}}},
    {"MatrixAsRoots", aceVKSDUT, RowsAsRoots, {}, {{L"STE1 /STE1", None}, {L"STE-1", All}}},
    {"MatrixInGroups",
     aceVKSDUT,
     RowsInGroups,
     {},
     {{L"STE0 STE1 /STE0 /STE1", None}, {L"STE-1 TST0_-1_-1 TST1_-1_-1 TST2_-1_-1", All}}},
    {"MatrixOfGlobalLists", aceVKSDUT, GlobalLists, {}, {{L"BSA ASA /BSA /ASA", None}}},
};

TEST_P(DraggedKinds, ANodeTakesAKindOfTheListAsACopyOrRefusesIt) {
    OpenRow();
    Lines told;
    for (const Refusal& row : GetParam().refusals) {
        ExpectRefused(row, Copies, KindDragged);
        Append(told, Keys(row.nodes));
    }
    ExpectAllKeys(told);
}
INSTANTIATE_TEST_SUITE_P(Modules, DraggedKinds, ::testing::ValuesIn(KindRows), NameOf);

// ---- lines of the tree, over all moments and groups --------------------------------------------

/// The rule of the moments with the letters of the line's own is that they take everything.
const RefusalRow LineRows[] = {
    {"Template",
     aceTemplate,
     RowsAsRoots,
     L"CHI0LSR0",
     {{L"EFR", ButLinesOfAFrequency},
      {L"ETE LTE", Signals},
      {L"SUR0 ESR0 LSR0 SUR1 ESR1 LSR1", None}}},
    {"Monitoring",
     aceMonitoring,
     RowsAsRoots,
     L"CHI0ATT",
     {{L"EFR", ButLinesOfAFrequency},
      {L"ETE LTE", Signals},
      {L"ATL BFT ATT CHA0 TRI0 NGO0 GOE0 CHA1 TRI1 NGO1 GOE1 MLC", None}}},
    {"MonitoringFrequency",
     aceMonitoring,
     RowsAsRoots,
     L"CHI0EFR",
     {{L"EFR", None},
      {L"ETE LTE", Signals},
      {L"ATL BFT ATT CHA0 TRI0 NGO0 GOE0 CHA1 TRI1 NGO1 GOE1 MLC", None}}},
    {"General", aceEMSAutoTemplateGeneral, RowsAsRoots, L"CHI0ETE", {{L"ETE LTE", None}}},
    {"Susceptibility", aceEMSAutoTemplate, RowsAsRoots, L"CHI0STE0", {{L"STE0 STE1", None}}},
    {"Emission",
     aceEMIAutoTemplate,
     RowsAsRoots,
     L"CHI0BEF0",
     {{L"ETE EFR EMI0 BEF0 AFT0 EMI1 BEF1 AFT1 LTE", None}}},
    {"Sequence",
     aceTSTemplate,
     RowsAsRoots,
     L"CHI0BFT0",
     {{L"ETE TST0 BFT0 ATT0 TST1 BFT1 ATT1 LTE", None}}},
    {"Azimuth", aceAziChart, RowsAsRoots, L"CHI0LTE", {{L"ETE EFR LTE", None}}},
    {"Wireless",
     aceVKSTemplate,
     RowsAsRoots,
     L"CHI0LTE",
     {{L"LTE STE0 STE1", None}, {L"ETE TST0 BFT0 ATT0 TST1 BFT1 ATT1", L"QUE MON"}}},
    {"MatrixAsRoots", aceVKSDUT, RowsAsRoots, L"CHI0STE1", {{L"STE1", None}, {L"STE-1", All}}},
    {"MatrixInGroups",
     aceVKSDUT,
     RowsInGroups,
     L"CHI0STE0",
     {{L"STE0 STE1", None}, {L"STE-1 TST0_-1_-1 TST1_-1_-1 TST2_-1_-1", All}}},
    {"MatrixOfGlobalLists", aceVKSDUT, GlobalLists, L"CHI0BSA", {{L"BSA ASA", None}}},
};

class DraggedLines : public DraggedKinds {};

TEST_P(DraggedLines, AMomentTakesALineOrRefusesIt) {
    OpenRow();
    Lines told;
    for (const Refusal& row : GetParam().refusals) {
        ExpectRefused(row, Moves,
                      [](std::int32_t kind) { return LineDragged(String(KindIcons[kind])); });
        Append(told, Keys(row.nodes));
    }
    for (const String& key : AllKeys()) {
        if (key.starts_with(L"CHI")) {
            told.push_back(key);
        }
    }
    ExpectAllKeys(told);
}
INSTANTIATE_TEST_SUITE_P(Modules, DraggedLines, ::testing::ValuesIn(LineRows), NameOf);

}  // namespace
}  // namespace ace::test
