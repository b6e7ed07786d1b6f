#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

/// The lines of a rebuild, some of them wrong on purpose: readers of traces know them so.
class MatrixTraceTest : public MatrixTest {
  protected:
    static Lines Rebuilt(const Lines& inside) {
        return Journal(Start(EngineModule, L"VKSCreateDUTSteps", L""), inside,
                       End(L"VKSCreateDUTSteps"));
    }
    /// A row that is there already, and one that is added at `index`.
    static Lines Found(const String& frequency) {
        return {Start(EngineModule, L"AddVKSDUTStep", L"Freq = " + frequency),
                End(L"AddVKSDUTStep")};
    }
    static Lines Added(const String& frequency, std::int32_t index) {
        return {Start(EngineModule, L"AddVKSDUTStep", L"Freq = " + frequency),
                Start(CodeModule, L"AddEntry", L"Index = " + std::to_wstring(index)),
                End(L"AddEntry"), End(L"AddVKSDUTStep")};
    }
    static Lines Deleted(const String& frequency, std::int32_t index) {
        return {Start(EngineModule, L"DeleteVKSDUTStep", L"Freq = " + frequency),
                Start(CodeModule, L"DeleteEntry", L"Index = " + std::to_wstring(index)),
                End(L"DeleteEntry"), End(L"DeleteVKSDUTStep")};
    }
};

TEST_F(MatrixTraceTest, AddVKSDUTFreqNamesItselfAfterThePowersInBothLines) {
    host->tracing = true;

    engine->AddVKSDUTFreq(L"2.4 GHz", 2.4e9);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineModule, L"AddVKSDUTPowerID", L"Freq = 2400000000"),
                                     Rebuilt(Added(L"-1", 1)), End(L"AddVKSDUTPowerID")));
}

TEST_F(MatrixTraceTest, FrequencyIsShownInTheGeneralFormatOfTheLocale) {
    host->tracing = true;
    host->decimalSeparator = L',';

    engine->DeleteVKSDUTFreq(2412.5);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineModule, L"DeleteVKSDUTFreq", L"Freq = 2412,5"),
                                     End(L"DeleteVKSDUTFreq")));
}

TEST_F(MatrixTraceTest, SetVKSDUTInfluenceStartsUnderTheNameOfThePowersAndAComponentOfItsOwn) {
    host->tracing = true;

    engine->SetVKSDUTInfluence(0, 0, 0);

    EXPECT_EQ(TakeEffects(),
              Journal(L"TraceLog.WriteLine(\"start\", \"SetVKSDUTInfluence\", "
                      L"\"aceActionsEngine (Code)\", \"AddVKSDUTPowerID\", \"\", \"1\")",
                      Rebuilt(Added(L"-1", 1)), End(L"SetVKSDUTInfluence")));
}

TEST_F(MatrixTraceTest, AddedIdsAreToldAsTheyWereGiven) {
    engine->SetVKSDUTInfluence(0, 0, 0);
    host->tracing = true;

    engine->AddVKSDUTBandwidthID(L"10");
    engine->AddVKSDUTPowerID(L"low", 7);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"AddVKSDUTBandwidthID", L"BandwidthID = -1"),
                      Rebuilt(Found(L"-1")), End(L"AddVKSDUTBandwidthID"),
                      Start(EngineModule, L"AddVKSDUTPowerID", L"PowerID = 7"),
                      Rebuilt(Found(L"-1")), End(L"AddVKSDUTPowerID")));
}

TEST_F(MatrixTraceTest, DeletedBandwidthIsToldAndDeletedPowerIsNot) {
    host->tracing = true;

    engine->DeleteVKSDUTBandwidthID(3);
    engine->DeleteVKSDUTPowerID(3);

    EXPECT_EQ(
        TakeEffects(),
        Journal(Start(EngineModule, L"DeleteVKSDUTBandwidthID", L"BandwidthID = 3"),
                End(L"DeleteVKSDUTBandwidthID"), Start(EngineModule, L"DeleteVKSDUTPowerID", L""),
                End(L"DeleteVKSDUTPowerID")));
}

TEST_F(MatrixTraceTest, RebuildDeletesFromTheLastRowToTheFirstAndThenAdds) {
    AddFrequencies({0});
    AddPowers({L"low", L"high"});
    ASSERT_EQ(Rows(), (Lines{L"-1_-1_-1 .", L"0_-1_-1 ."}));
    host->tracing = true;

    engine->SetVKSDUTInfluence(0, 0, 1);

    Lines lines = TakeEffects();
    lines.erase(lines.begin());
    lines.pop_back();
    EXPECT_EQ(lines, Rebuilt(Journal(Deleted(L"0", 2), Deleted(L"-1", 1), Added(L"-1", 1),
                                     Added(L"0", 2), Added(L"-1", 3), Added(L"0", 4))));
}

TEST_F(MatrixTraceTest, RebuildWithoutInfluenceGoesThroughTheTableEntryByEntry) {
    AddFrequencies({2400, 5000});
    engine->SetVKSDUTInfluence(1, 0, 0);
    host->tracing = true;

    engine->SetVKSDUTInfluence(0, 0, 0);

    Lines lines = TakeEffects();
    lines.erase(lines.begin());
    lines.pop_back();
    EXPECT_EQ(lines, Rebuilt(Journal(Deleted(L"2400", 1), Deleted(L"5000", 1), Added(L"-1", 1))));
}

TEST_F(MatrixTraceTest, DeletedFrequencyWalksTheRowsFromTheFirst) {
    HaveRows({{5000, 0, -1}, {2400, 0, -1}, {5000, 1, -1}});
    host->tracing = true;

    engine->DeleteVKSDUTFreq(5000);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"DeleteVKSDUTFreq", L"Freq = 5000"), Deleted(L"5000", 1),
                      Deleted(L"5000", 2), End(L"DeleteVKSDUTFreq")));
}

TEST_F(MatrixTraceTest, ErrorIsReportedByEachOperationThatItPassesAndTheEndLinesAreMissing) {
    engine->AddVKSDUTBandwidthID(L"10");
    host->journal.Clear();
    host->tracing = true;

    EXPECT_EQ(ErrorOf([&] { engine->DeleteVKSDUTBandwidthID(-9); }), 9);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"DeleteVKSDUTBandwidthID", L"BandwidthID = -9"),
                      SubscriptReported));
}

}  // namespace
}  // namespace ace::test
