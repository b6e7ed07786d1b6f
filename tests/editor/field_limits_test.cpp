/// The limits of the value boxes of the action dialog.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A check in a template that measures emission has both boxes of its pane.
class FieldLimits : public ShownDialog {
  protected:
    FieldLimits() {
        host->texts[9201] = L"yyy to xxx";
        host->bench.Add<sim::SimMonitor>(*host, L"EUT");
        context.ModuleFileNames.fill(L"setup.ini");
        host->files[L"setup.ini"][L"Actions7-Device"] = {L"Gain=3"};
    }
    void OpenEmission(const std::vector<p_Action>& actions = {}) {
        OpenWith(aceTemplate, actions);
        State().EmiTemplate = true;
    }
};

struct LimitedBox {
    const char* name;
    p_ActionTypes kind;
    String control;
    Lines outside;
    Lines inside;
    String limits;
};
void PrintTo(const LimitedBox& row, std::ostream* out) {
    *out << row.name;
}

const LimitedBox LimitedBoxes[] = {
    {"Wait",
     atWait,
     L"txtWait",
     {L"0", L"0.0009", L"-1", L"3600.001", L"1000000", L"soon", L""},
     {L"0.001", L"3600", L"3600.000", L"0,001"},
     L"0.001 to 3600.000"},
    {"WaitTime",
     atCheckEut,
     L"txtWaitTime",
     {L"0", L"0.99", L"3600.01"},
     {L"1", L"1,5", L"3600"},
     L"1.000 to 3600.000"},
    {"CycleTime",
     atCheckEut,
     L"txtCycleTime",
     {L"0", L"0.0005", L"600.01"},
     {L"0.001", L"600"},
     L"0.001 to 600.000"},
};

class LimitedBoxesOf : public FieldLimits, public ::testing::WithParamInterface<LimitedBox> {};
INSTANTIATE_TEST_SUITE_P(Each, LimitedBoxesOf, ::testing::ValuesIn(LimitedBoxes),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(LimitedBoxesOf, AValueOutsideIsToldWithTheFocusBackAndStays) {
    const LimitedBox& row = GetParam();
    OpenEmission();
    Acts acts;
    for (const String& text : row.outside) {
        host->user.ExpectBox(row.limits);
        acts.insert(acts.end(), {sim::Type(row.control, text), sim::Focus(L"cmdCancel"),
                                 SeeFocus(row.control), See(row.control, text)});
    }
    acts.push_back(PressCancel);
    ShowNew(row.kind, acts);
    EXPECT_EQ(Boxes(), Lines(row.outside.size(), Refused(row.limits)));
}

TEST_P(LimitedBoxesOf, OfAValueInsideNothingIsTold) {
    const LimitedBox& row = GetParam();
    OpenEmission();
    Acts acts;
    for (const String& text : row.inside) {
        acts.insert(acts.end(), {sim::Type(row.control, text), sim::EndInput(row.control),
                                 sim::Focus(L"cmdCancel"), SeeFocus(L"cmdCancel")});
    }
    acts.push_back(PressCancel);
    ShowNew(row.kind, acts);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_P(LimitedBoxesOf, AKeyThatEndsTheInputIsEnoughAndNothingElseIsTold) {
    const LimitedBox& row = GetParam();
    OpenEmission();
    host->user.ExpectBox(row.limits);
    ShowNew(row.kind, {sim::Type(row.control, row.outside.front()), sim::EndInput(row.control),
                       SeeFocus(row.control), sim::EndInput(row.control), sim::Focus(L"cmdCancel"),
                       SeeFocus(L"cmdCancel"), PressCancel});
    EXPECT_THAT(Boxes(), SizeIs(1));
}

/// The program may write into a box that nobody sees.
TEST_F(FieldLimits, ABoxThatDoesNotShowIsNotLookedAt) {
    OpenWith(aceTemplate);
    ShowNew(atCheckEut, {SeeShown({L"txtWaitTime"}, {L"txtCycleTime"}), sim::Do([](Form& form) {
                             auto& box = dynamic_cast<ValueBox&>(ControlOn(form, L"txtCycleTime"));
                             box.Type(L"9999");
                             box.EndInput();
                         }),
                         PressCancel});
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(FieldLimits, TheLimitsStandWithTheSeparatorOfThePlaceWhereverTheTextHasThem) {
    host->decimalSeparator = L',';
    host->texts[9201] = L"xxx at most, yyy at least (yyy-xxx)";
    const String told = L"3600,000 at most, 0,001 at least (0,001-3600,000)";
    OpenWith(aceTemplate);
    host->user.ExpectBox(told);
    ShowNew(atWait, {sim::Type(L"txtWait", L"4000"), sim::EndInput(L"txtWait"), PressCancel});
    EXPECT_THAT(Boxes(), ElementsAre(Refused(told)));
}

// ---- numbers that no file could hold -----------------------------------------------------------

TEST_F(FieldLimits, OkRefusesANumberThatNoFileCouldHold) {
    const String ofNoSingle = L"1" + String(40, L'0');
    const String ofNoDouble = L"1" + String(310, L'0');
    OpenEmission({OnDevice(atCheckEut, L"EUT"), WaitFor(1500)});
    const ModuleLists before = State();
    const std::tuple<String, String, int> boxes[] = {{L"txtWaitTime", ofNoSingle, 0},
                                                     {L"txtCycleTime", ofNoDouble, 0},
                                                     {L"txtWait", ofNoDouble, 1}};
    for (const auto& [box, text, line] : boxes) {
        host->user.ExpectBox();
        host->user.ExpectBox();
        ShowLine({sim::Type(box, text), PressOk, SeeFocus(box), PressCancel}, line);
    }
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), before);
}

TEST_F(FieldLimits, ACycleThatAFileCanHoldIsTakenHoweverLongItIs) {
    const String huge = L"1" + String(40, L'0');
    OpenEmission({OnDevice(atCheckEut, L"EUT")});
    host->user.ExpectBox();
    ShowLine({sim::Type(L"txtCycleTime", huge), PressOk});
    EXPECT_EQ(RecordOf<aceSetDevice>(Stored()).CycleTime, 1e40);
}

TEST_F(FieldLimits, OkRefusesADelayOfMoreThan32Bits) {
    OpenEmission({Tracked(L"EUT")});
    host->user.ExpectBox(L"1.000 to 600.000");
    ShowLine({sim::Type(L"txtDelayTime", L"2147483648"), PressOk, SeeFocus(L"txtDelayTime"),
              PressCancel});
    EXPECT_FALSE(engine->Change());
}

/// Intentional: OK asks it for nothing but 0, and for what no record holds.
TEST_F(FieldLimits, TheDelayOfATrackingHasLimitsThatNobodyAsks) {
    OpenEmission({Tracked(L"EUT")});
    ShowLine({SeeShown({L"txtDelayTime"}), sim::Type(L"txtDelayTime", L"9999"),
              sim::EndInput(L"txtDelayTime"), sim::Focus(L"cmdCancel"), PressCancel});
    EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace ace::test
