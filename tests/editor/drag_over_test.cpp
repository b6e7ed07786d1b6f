#include "editor/drag_effects.h"

namespace ace::test {
namespace {

// ---- what is selected counts before what is dragged --------------------------------------------

/// The effects over all nodes of a tree.
struct EffectRow {
    aceModul moduleKind;
    std::int32_t matrix;
    StringView selected;  ///< empty for none
    StringView text;      ///< of the drag
    StringView moves;     ///< nodes with `Moves`
    StringView movesOnly;
    StringView copies;
    StringView nothing;
};
void PrintTo(const EffectRow& row, std::ostream* out) {
    *out << row.moduleKind << " " << testing::PrintToString(row.text) << " from "
         << testing::PrintToString(row.selected);
}

/// Enter lists have one line, leave lists two, those of a frequency three, that of the end four.
constexpr EffectRow LinesOverNodes[] = {
    // The line's own moment takes it whatever its kind; lines of other lists are no place.
    {aceTemplate, RowsAsRoots, L"CHI1EFR", L"ACT:1000,WAI",
     L"ETE EFR SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE", L"CHI0EFR CHI2EFR", L"",
     L"CHI1EFR /ETE /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceTemplate, RowsAsRoots, L"CHI0ESR0", L"ACT:1000,WAI",
     L"ETE SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE", L"", L"",
     L"EFR /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    // The text tells the kind, not the line.
    {aceTemplate, RowsAsRoots, L"CHI0LTE", L"ACT:1000,STP", L"SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE",
     L"CHI1LTE", L"", L"ETE EFR CHI0LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1"},
    {aceTemplate, RowsAsRoots, L"CHI0LTE", L"ACT:1000,TRC",
     L"ETE EFR SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE", L"CHI1LTE", L"",
     L"CHI0LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1"},
    {aceMonitoring, RowsAsRoots, L"CHI1TRI0", L"ACT:1000,WAI",
     L"ETE ATL BFT ATT CHA0 TRI0 NGO0 GOE0 CHA1 TRI1 NGO1 GOE1 MLC LTE", L"CHI0TRI0 CHI2TRI0", L"",
     L"EFR CHI1TRI0 /ETE /EFR /BFT /ATT /NGO0 /GOE0 /TRI1 /NGO1 /GOE1 /MLC /LTE"},
    {aceMonitoring, RowsAsRoots, L"CHI2MLC", L"ACT:1000,DEV",
     L"ETE EFR ATL BFT ATT CHA0 TRI0 NGO0 GOE0 CHA1 TRI1 NGO1 GOE1 MLC LTE",
     L"CHI0MLC CHI1MLC CHI3MLC", L"",
     L"CHI2MLC /ETE /EFR /BFT /ATT /TRI0 /NGO0 /GOE0 /TRI1 /NGO1 /GOE1 /LTE"},
    {aceEMSAutoTemplateGeneral, RowsAsRoots, L"CHI0LTE", L"ACT:1000,STP", L"ETE LTE", L"CHI1LTE",
     L"", L"CHI0LTE /ETE"},
    {aceEMSAutoTemplate, RowsAsRoots, L"CHI0STE0", L"ACT:1000,STP", L"STE0 STE1", L"", L"",
     L"/STE0 /STE1"},
    {aceEMIAutoTemplate, RowsAsRoots, L"CHI1AFT1", L"ACT:1000,STP",
     L"ETE EFR EMI0 BEF0 AFT0 EMI1 BEF1 AFT1 LTE", L"CHI0AFT1", L"",
     L"CHI1AFT1 /ETE /EFR /BEF0 /AFT0 /BEF1 /LTE"},
    {aceTSTemplate, RowsAsRoots, L"CHI0BFT0", L"ACT:1000,STP",
     L"ETE TST0 BFT0 ATT0 TST1 BFT1 ATT1 LTE", L"", L"", L"/ETE /BFT0 /ATT0 /BFT1 /ATT1 /LTE"},
    {aceAziChart, RowsAsRoots, L"CHI2EFR", L"ACT:1000,STP", L"ETE EFR LTE", L"CHI0EFR CHI1EFR", L"",
     L"CHI2EFR /ETE /LTE"},
    {aceVKSTemplate, RowsAsRoots, L"CHI0STE0", L"ACT:1000,QUE", L"STE0 STE1", L"", L"",
     L"ETE TST0 BFT0 ATT0 TST1 BFT1 ATT1 LTE /ETE /BFT0 /STE0 /ATT0 /BFT1 /STE1 /ATT1 /LTE"},
    {aceVKSTemplate, RowsAsRoots, L"CHI0BFT1", L"ACT:1000,MON", L"BFT0 BFT1 STE0 STE1", L"", L"",
     L"ETE TST0 ATT0 TST1 ATT1 LTE /ETE /BFT0 /STE0 /ATT0 /BFT1 /STE1 /ATT1 /LTE"},
    // A leaf without a row and the groups of the matrix have no list.
    {aceVKSDUT, RowsAsRoots, L"CHI0STE1", L"ACT:1000,WAI", L"STE1", L"", L"", L"STE-1 /STE1"},
    {aceVKSDUT, RowsInGroups, L"CHI0STE0", L"ACT:1000,WAI", L"STE0 STE1", L"", L"",
     L"STE-1 TST0_-1_-1 TST1_-1_-1 TST2_-1_-1 /STE0 /STE1"},
    {aceVKSDUT, GlobalLists, L"CHI0ASA", L"ACT:1000,STP", L"BSA ASA", L"CHI1ASA", L"",
     L"CHI0ASA /BSA"},
};

/// A kind of the list, while a line is selected: what goes for the line comes first.
constexpr EffectRow KindsWithALineSelected[] = {
    {aceTemplate, RowsAsRoots, L"CHI1EFR", L"ACT:5", L"EFR", L"CHI0EFR CHI2EFR", L"",
     L"ETE SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE CHI1EFR /ETE /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceTemplate, RowsAsRoots, L"CHI0ESR0", L"ACT:5", L"ESR0 ESR1", L"", L"EFR",
     L"ETE SUR0 LSR0 SUR1 LSR1 LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceMonitoring, RowsAsRoots, L"CHI0GOE1", L"ACT:10", L"GOE0 GOE1", L"CHI1GOE1",
     L"ETE EFR ATL BFT ATT CHA0 NGO0 CHA1 NGO1 LTE",
     L"TRI0 TRI1 MLC CHI0GOE1 /ETE /EFR /BFT /ATT /TRI0 /NGO0 /GOE0 /TRI1 /NGO1 /MLC /LTE"},
    {aceEMSAutoTemplateGeneral, RowsAsRoots, L"CHI0ETE", L"ACT:5", L"ETE", L"", L"LTE",
     L"/ETE /LTE"},
    {aceEMSAutoTemplate, RowsAsRoots, L"CHI0STE0", L"ACT:5", L"STE0 STE1", L"", L"",
     L"/STE0 /STE1"},
    {aceEMIAutoTemplate, RowsAsRoots, L"CHI0ETE", L"ACT:15", L"ETE", L"",
     L"EFR EMI0 BEF0 AFT0 EMI1 BEF1 AFT1 LTE", L"/ETE /EFR /BEF0 /AFT0 /BEF1 /AFT1 /LTE"},
    {aceTSTemplate, RowsAsRoots, L"CHI1ATT0", L"ACT:5", L"ATT0 ATT1", L"CHI0ATT0",
     L"ETE TST0 BFT0 TST1 BFT1 LTE", L"CHI1ATT0 /ETE /BFT0 /BFT1 /ATT1 /LTE"},
    {aceAziChart, RowsAsRoots, L"CHI0LTE", L"ACT:15", L"LTE", L"CHI1LTE", L"EFR",
     L"ETE CHI0LTE /ETE /EFR"},
    {aceVKSTemplate, RowsAsRoots, L"CHI1ATT0", L"ACT:17", L"ATT0 ATT1", L"CHI0ATT0", L"STE0 STE1",
     L"ETE TST0 BFT0 TST1 BFT1 LTE CHI1ATT0 /ETE /BFT0 /STE0 /BFT1 /STE1 /ATT1 /LTE"},
    {aceVKSDUT, RowsInGroups, L"CHI0STE0", L"ACT:5", L"STE0 STE1", L"", L"",
     L"STE-1 TST0_-1_-1 TST1_-1_-1 TST2_-1_-1 /STE0 /STE1"},
    {aceVKSDUT, GlobalLists, L"CHI0BSA", L"ACT:5", L"BSA", L"", L"ASA", L"/BSA /ASA"},
};

/// The same while a moment is: the nodes with the letters of its group take every kind.
constexpr EffectRow KindsWithAMomentSelected[] = {
    {aceTemplate, RowsAsRoots, L"ESR0", L"ACT:5", L"SUR0 SUR1", L"", L"EFR",
     L"ETE ESR0 LSR0 ESR1 LSR1 LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceTemplate, RowsAsRoots, L"ESR0", L"ACT:0", L"SUR0 SUR1", L"",
     L"ETE EFR ESR0 LSR0 ESR1 LSR1 LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE", L""},
    {aceTemplate, RowsAsRoots, L"ETE", L"ACT:5", L"", L"", L"EFR",
     L"ETE SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceMonitoring, RowsAsRoots, L"NGO1", L"ACT:4", L"CHA0 CHA1", L"",
     L"ETE EFR ATL BFT ATT TRI0 GOE0 TRI1 GOE1 LTE "
     L"/ETE /EFR /BFT /ATT /TRI0 /NGO0 /GOE0 /TRI1 /NGO1 /GOE1 /MLC /LTE",
     L"NGO0 NGO1 MLC"},
    {aceEMIAutoTemplate, RowsAsRoots, L"BEF0", L"ACT:15", L"EMI0 EMI1", L"",
     L"EFR BEF0 AFT0 BEF1 AFT1 LTE /ETE /EFR /BEF0 /AFT0 /BEF1 /AFT1 /LTE", L"ETE"},
    {aceVKSTemplate, RowsAsRoots, L"STE0", L"ACT:16", L"TST0 TST1", L"", L"STE0 STE1",
     L"ETE BFT0 ATT0 BFT1 ATT1 LTE /ETE /BFT0 /STE0 /ATT0 /BFT1 /STE1 /ATT1 /LTE"},
    {aceVKSDUT, RowsInGroups, L"STE0", L"ACT:0", L"", L"", L"STE0 STE1 /STE0 /STE1",
     L"STE-1 TST0_-1_-1 TST1_-1_-1 TST2_-1_-1"},
};

/// A drag that says it carries a line, while no line is selected.
constexpr EffectRow LinesOfNowhere[] = {
    {aceTemplate, RowsAsRoots, L"", L"ACT:1000,WAI", L"", L"", L"",
     L"ETE EFR SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceTemplate, RowsAsRoots, L"ESR0", L"ACT:1000,WAI", L"", L"", L"",
     L"ETE EFR SUR0 ESR0 LSR0 SUR1 ESR1 LSR1 LTE /ETE /EFR /ESR0 /LSR0 /ESR1 /LSR1 /LTE"},
    {aceVKSDUT, RowsInGroups, L"TST0_-1_-1", L"ACT:1000,SGL", L"", L"", L"",
     L"STE0 STE1 STE-1 TST0_-1_-1 TST1_-1_-1 TST2_-1_-1 /STE0 /STE1"},
};

class DragOver : public DragEffects, public ::testing::WithParamInterface<EffectRow> {};

TEST_P(DragOver, TheEffectIsThatOfTheSelectionTheTargetAndTheKeys) {
    const EffectRow& row = GetParam();
    OpenWhole(row.moduleKind, row.matrix);
    if (!row.selected.empty()) {
        Select(String(row.selected));
    }
    Lines told;
    const std::pair<StringView, StringView> columns[] = {{row.moves, Moves},
                                                         {row.movesOnly, MovesOnly},
                                                         {row.copies, Copies},
                                                         {row.nothing, Nothing}};
    for (const auto& [nodes, effects] : columns) {
        for (const String& key : Keys(nodes)) {
            EXPECT_EQ(EffectsOver({String(row.text)}, key), effects) << testing::PrintToString(key);
        }
        Append(told, Keys(nodes));
    }
    ExpectAllKeys(told);
}
INSTANTIATE_TEST_SUITE_P(Lines, DragOver, ::testing::ValuesIn(LinesOverNodes));
INSTANTIATE_TEST_SUITE_P(Kinds, DragOver, ::testing::ValuesIn(KindsWithALineSelected));
INSTANTIATE_TEST_SUITE_P(KindsAndMoments, DragOver, ::testing::ValuesIn(KindsWithAMomentSelected));
INSTANTIATE_TEST_SUITE_P(Nowhere, DragOver, ::testing::ValuesIn(LinesOfNowhere));

}  // namespace
}  // namespace ace::test
