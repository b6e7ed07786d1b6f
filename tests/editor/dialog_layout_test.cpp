/// Where things stand in the action dialog, whatever it shows.
#include <set>

#include <ace/core/action_kinds.h>

#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

constexpr float BesidePane = 480.0F;  ///< twips of the form's width beside its pane

struct Box {
    float left, top, right, bottom;

    explicit Box(const ControlFields& control)
        : left(control.left),
          top(control.top),
          right(control.left + control.width),
          bottom(control.top + control.height) {}
    bool Overlaps(const Box& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool IsInside(float width, float height) const {
        return left >= 0.0F && top >= 0.0F && right <= width && bottom <= height;
    }
};

struct LaidOut {
    const char* name;
    aceModul moduleKind;
    p_Action action;
    DialogPane pane;
    std::vector<sim::FormAct> acts = {};
};
void PrintTo(const LaidOut& row, std::ostream* out) {
    *out << row.name;
}

const LaidOut LaidOuts[] = {
    {"Wait", aceTemplate, WaitFor(1000), DialogPane::Wait},
    {"Notify", aceTemplate, Tell(L"Door"), DialogPane::Notify},
    {"NotifyInAMatrix", aceVKSDUT, Tell(L"Door"), DialogPane::Notify},
    {"Question", aceVKSTemplate, Ask(L"Lamp on?"), DialogPane::Notify},
    {"Comment", aceMonitoring, Comment(true), DialogPane::Notify},
    {"Gpib", aceTemplate, Gpib(120, L"*RST"), DialogPane::Remote},
    {"Serial", aceTemplate, Serial(3, L"*RST"), DialogPane::Remote},
    {"Tcp", aceVKSTemplate, Tcp(L"gen", 5025, L"*RST"), DialogPane::Remote},
    {"Program", aceVKSDUT, Started(L"log.exe"), DialogPane::Remote},
    {"SetDevice", aceTemplate, Device(atSetDevice, L"EUT"), DialogPane::SetDevice},
    {"SetGenerator", aceTemplate, Device(atSetDevice, L"Injector"), DialogPane::SetDevice},
    {"Check", aceTemplate, Device(atCheckEut, L"EUT"), DialogPane::SetDevice},
    {"CheckInAnotherModule", aceMonitoring, Device(atCheckEut, L"EUT"), DialogPane::SetDevice},
    {"Monitor", aceVKSTemplate, Device(atMonitorEUT, L"EUT"), DialogPane::SetDevice},
    {"Amplifier", aceTemplate, Amplifier(L"Amplifier", 1), DialogPane::SetDevice},
    {"SwitchUnit", aceTemplate, Unit(L"Unit", L"A"), DialogPane::SetDevice},
    {"Generator", aceTemplate, Synchronised(L"Generator"), DialogPane::TrackFreq},
    {"Tracked", aceTemplate, Tracked(L"EUT"), DialogPane::TrackFreq},
    {"Macro", aceVKSTemplate, Api(L"values.mac"), DialogPane::Api},
    {"MacroOfTables", aceTemplate, Api(L"tables.mac"), DialogPane::Api},
};

class DialogLayout : public ShownDialog, public ::testing::WithParamInterface<LaidOut> {
  protected:
    DialogLayout() {
        constexpr std::int32_t TableParameter = 3;
        host->bench.Add<sim::SimMonitor>(*host, L"EUT");
        host->bench.Add<sim::SimBcGenerator>(*host, L"Injector");
        host->bench.Add<sim::SimAmplifier>(*host, L"Amplifier");
        host->bench.Add<sim::SimSwitchUnit>(*host, L"Unit");
        host->bench.Add<sim::SimRfGenerator>(*host, L"Generator");
        host->macros[L"values.mac"].parameters = {1, 1};
        host->macros[L"tables.mac"].parameters = {TableParameter};
        context.ModuleFileNames.fill(L"setup.ini");
    }
    /// Opens the row's line, with the template that measures emission, and looks at it.
    void Look(const std::function<void(const Form& form)>& look) {
        OpenWith(GetParam().moduleKind, {GetParam().action});
        State().EmiTemplate = true;
        Acts acts = GetParam().acts;
        acts.push_back(sim::Do([&](Form& form) { look(form); }));
        acts.push_back(PressCancel);
        ShowLine(acts);
    }
    static const Control& Pane(const Form& form) {
        return ControlOn(form,
                         L"fraAction(" + std::to_wstring(static_cast<int>(GetParam().pane)) + L")");
    }
    /// Controls that show directly in `parent`; null for the form.
    static std::vector<const Control*> ShownIn(const Form& form, const Control* parent) {
        std::vector<const Control*> shown;
        for (const Control* control : form.Controls()) {
            if (control->Parent() == parent && control->IsShown()) {
                shown.push_back(control);
            }
        }
        return shown;
    }
};

TEST_P(DialogLayout, OnePaneShowsThatOfTheKind) {
    Look([](const Form& form) {
        for (int pane = 0; pane < 6; ++pane) {
            EXPECT_EQ(ControlOn(form, L"fraAction(" + std::to_wstring(pane) + L")").IsShown(),
                      pane == static_cast<int>(GetParam().pane))
                << pane;
        }
        EXPECT_EQ(ShownIn(form, nullptr).size(), 3U) << "the pane and two buttons";
    });
}

TEST_P(DialogLayout, TheFormIsSizedToThePane) {
    Look([](const Form& form) {
        const Box pane(Pane(form));
        EXPECT_EQ(form.width, Pane(form).width + BesidePane);
        EXPECT_TRUE(pane.IsInside(form.width, form.height));
        EXPECT_GT(Pane(form).width, 0.0F);
        EXPECT_GT(Pane(form).height, 0.0F);
    });
}

TEST_P(DialogLayout, TheButtonsStandSideBySideBelowThePane) {
    Look([](const Form& form) {
        const Box pane(Pane(form));
        const Box ok(ControlOn(form, L"cmdOK"));
        const Box cancel(ControlOn(form, L"cmdCancel"));
        EXPECT_GE(ok.top, pane.bottom);
        EXPECT_EQ(ok.top, cancel.top);
        EXPECT_EQ(ok.bottom, cancel.bottom);
        EXPECT_LE(ok.right, cancel.left);
        EXPECT_TRUE(ok.IsInside(form.width, form.height));
        EXPECT_TRUE(cancel.IsInside(form.width, form.height));
    });
}

TEST_P(DialogLayout, WhatShowsHasASizeAndLiesInItsFrame) {
    Look([](const Form& form) {
        for (const Control* control : form.Controls()) {
            const Control* const parent = control->Parent();
            if (parent != nullptr && control->IsShown()) {
                EXPECT_GT(control->width, 0.0F) << testing::PrintToString(control->Name());
                EXPECT_GT(control->height, 0.0F) << testing::PrintToString(control->Name());
                EXPECT_TRUE(Box(*control).IsInside(parent->width, parent->height))
                    << testing::PrintToString(control->Name());
            }
        }
    });
}

TEST_P(DialogLayout, NoTwoControlsThatShowOverlap) {
    Look([](const Form& form) {
        std::set<const Control*> parents{nullptr};
        for (const Control* control : form.Controls()) {
            parents.insert(control->Parent());
        }
        for (const Control* parent : parents) {
            const std::vector<const Control*> shown = ShownIn(form, parent);
            for (std::size_t i = 0; i < shown.size(); ++i) {
                for (std::size_t k = i + 1; k < shown.size(); ++k) {
                    EXPECT_FALSE(Box(*shown[i]).Overlaps(Box(*shown[k])))
                        << testing::PrintToString(shown[i]->Name() + L" and " + shown[k]->Name());
                }
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Each, DialogLayout, ::testing::ValuesIn(LaidOuts),
                         [](const auto& one) { return std::string(one.param.name); });

class OneDialogBehindTheOther : public ShownDialog {};

/// The panes share the place at the top left.
TEST_F(OneDialogBehindTheOther, EveryPaneStandsWhereTheOneBeforeStood) {
    OpenWith(aceTemplate, {WaitFor(1000), Tell(L"Door"), Gpib(5, L"*RST")});
    std::vector<std::pair<float, float>> corners;
    for (int line = 0; line < 3; ++line) {
        ShowLine({sim::Do([&](Form& form) {
                      const Control& pane =
                          ControlOn(form, L"fraAction(" + std::to_wstring(line) + L")");
                      corners.emplace_back(pane.left, pane.top);
                  }),
                  PressCancel},
                 line);
    }
    EXPECT_THAT(corners, ::testing::Each(corners.front()));
    EXPECT_LE(corners.front().first, BesidePane);
}

}  // namespace
}  // namespace ace::test
