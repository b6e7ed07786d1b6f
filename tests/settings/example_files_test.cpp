#include <fstream>
#include <iterator>

#include <ace/settings/line_observer.h>

#include "settings/sections_fixture.h"

namespace ace {
namespace {

using test::ErrorOf;

struct ExampleFiles : test::SectionsTest {
    /// Puts an example into the host's files; its bytes become characters one by one.
    void Open(const char* name) {
        std::ifstream file(std::string(ACE_EXAMPLES) + "/" + name, std::ios::binary);
        ASSERT_TRUE(file) << name;
        String text;
        for (std::istreambuf_iterator<char> at(file), end; at != end; ++at) {
            text += static_cast<wchar_t>(static_cast<unsigned char>(*at));
        }
        host->files[L"f"] = sim::ParseSections(text);
    }
};

TEST_F(ExampleFiles, ASingleTestLoadsAndSavesBackLineByLine) {
    Open("ri_template.ini");
    const sim::SimSections before = host->files[L"f"];
    Load(aceTemplate, 3);
    EXPECT_EQ(state.MainTest.EnterCount, 11);
    EXPECT_EQ(state.MainTest.LeaveCount, 7);
    EXPECT_EQ(state.MainTest.FreqCount, 3);
    EXPECT_EQ(state.MainSubranges[2].EnterCount, 8);
    EXPECT_EQ(context.DeviceSectionCounter, 102);
    Save(aceTemplate);
    EXPECT_EQ(host->files[L"f"], before);
}

TEST_F(ExampleFiles, AMatrixLoadsAndSavesBackLineByLineUnderEachOfItsTemplates) {
    const struct {
        std::int32_t number;
        std::int32_t rows;
    } templates[] = {{0, 16}, {2, 2}, {3, 0}};
    for (const auto& matrix : templates) {
        Open("wireless_dut.ini");
        const sim::SimSections before = host->files[L"f"];
        EXPECT_EQ(Load(aceVKSDUT, matrix.number), matrix.rows);
        Save(aceVKSDUT);
        EXPECT_EQ(host->files[L"f"], before) << matrix.number;
    }
    EXPECT_EQ(state.VKSDUTGlob.EnterCount, 3);
}

TEST_F(ExampleFiles, AFileFullOfTrapsLoadsAndHasAnEntryThatCanNotBeSaved) {
    Open("lint_traps.ini");
    Load(aceTemplate, 2);
    const DynArray<p_Action>& enter = state.MainTest.Enter;
    EXPECT_EQ(enter[5], p_Action());  // an old keyword that nobody reads
    EXPECT_EQ(RecordOf<aceNotify>(enter[1]).WaveFile, L"C:\\EMC\\Sounds\\attention.wav");
    EXPECT_TRUE(RecordOf<aceNotify>(enter[2]).Beep);
    EXPECT_EQ(RecordOf<aceRemote>(enter[4]).Command, L"OUTP OFF");
    EXPECT_EQ(RecordOf<aceTrackFreq>(state.MainTest.Freq[3]).GenName, L"RF Gen 2");
    EXPECT_EQ(RecordOf<aceWait>(state.MainSubranges[0].Enter[0]).Time, 200.0);
    EXPECT_EQ(state.MainSubranges[0].Enter[1], p_Action());
    EXPECT_EQ(ErrorOf([&] { Save(aceTemplate); }), 13);
}

TEST_F(ExampleFiles, ACommentInsideASectionStopsTheLoad) {
    Open("load_stops.ini");
    struct : ILineObserver {
        void LineIsRead(const LineReport& report) override { last = report.line; }
        String last;
    } observer;
    context.LineObserver = &observer;
    EXPECT_EQ(ErrorOf([&] { Load(aceTemplate, 2); }), 5);
    EXPECT_EQ(observer.last, L"; switch-on sequence");
    EXPECT_EQ(state.MainTest.EnterCount, 0);
    EXPECT_EQ(state.MainSubrangeCount, -1);
}

}  // namespace
}  // namespace ace
