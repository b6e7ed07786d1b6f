#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// The kinds that the list offers for each module.
class Palette : public ShownEditor {
  protected:
    Lines Offered(const String& heading, aceModul moduleKind) {
        Open(moduleKind);
        return Journal(L"== " + heading + L" ==", LinesOf(list.Text()));
    }
    bool Offers(StringView icon) const { return list.Text().find(icon) != String::npos; }
};

TEST_F(Palette, EachModuleOffersItsKindsBehindTheFiveOfAll) {
    Lines offered = Offered(L"single test of immunity", aceTemplate);
    State().EmiTemplate = true;
    Append(offered, Offered(L"single test of emission", aceTemplate));
    State().EmiTemplate = false;
    Append(offered, Offered(L"monitoring", aceMonitoring));
    Append(offered, Offered(L"susceptibility, general lists", aceEMSAutoTemplateGeneral));
    Append(offered, Offered(L"susceptibility, steps", aceEMSAutoTemplate));
    Append(offered, Offered(L"emission", aceEMIAutoTemplate));
    Append(offered, Offered(L"sequence", aceTSTemplate));
    Append(offered, Offered(L"azimuth chart", aceAziChart));
    Append(offered, Offered(L"wireless tests", aceVKSTemplate));
    Append(offered, Offered(L"matrix", aceVKSDUT));

    EXPECT_EQ(offered, GoldenLines("editor/offered_kinds.txt"));
}

TEST_F(Palette, OnlyASingleTestAsksWhetherItMeasuresEmission) {
    for (std::int32_t module = aceMonitoring; module < ModulCount; ++module) {
        State().EmiTemplate = false;
        Open(static_cast<aceModul>(module));
        const String offered = list.Text();
        State().EmiTemplate = true;
        Open(static_cast<aceModul>(module));
        EXPECT_EQ(LinesOf(list.Text()), LinesOf(offered)) << module;
    }
}

TEST_F(Palette, AutomaticTestsAreNoEmissionTemplatesByThemselves) {
    State().IsAutoModule = true;
    Open(aceTemplate);
    EXPECT_TRUE(Offers(L"SWA"));
    EXPECT_FALSE(Offers(L"TRC"));
}

TEST_F(Palette, CaptionsAreTheHostsTextsButForQuestionAndMonitor) {
    host->texts[9031] = L"Set device";
    host->texts[9064] = L"Notification";
    Open(aceVKSTemplate);

    const Lines offered = LinesOf(list.Text());
    EXPECT_EQ(offered.front(), L"ACT:3 \"Set device\" DEV");
    EXPECT_EQ(offered.back(), L"ACT:17 \"Monitor\" MON");
    EXPECT_EQ(offered[offered.size() - 2], L"ACT:16 \"Question\" QUE");
}

TEST_F(Palette, NextLoadFillsTheListAnew) {
    Open(aceMonitoring);
    Open(aceEMSAutoTemplate);
    EXPECT_EQ(LinesOf(list.Text()).size(), 6U);
}

/// The host adds subranges while the list stands: nothing else is offered for that.
TEST_F(Palette, SubrangesThatComeLeaveTheListAlone) {
    State().MainSubrangeCount = 0;
    Open(aceTemplate);
    State().EmiTemplate = true;
    engine->AddSubrange(1);
    EXPECT_TRUE(Offers(L"SWA"));
    EXPECT_THAT(host->journal.LinesOf(L"List."), ::testing::IsEmpty());
}

}  // namespace
}  // namespace ace::test
