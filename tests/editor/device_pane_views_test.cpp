// How the panes of devices, tracked frequencies and macros stand when they open, hidden fields
// included, for a new and an existing action of each kind.
#include <optional>

#include "editor/macro_bench.h"

namespace ace::test {
namespace {

/// A dialog that opens, and the file that says how its pane stands.
struct PaneView {
    std::string file;
    p_ActionTypes kind;
    std::optional<p_Action> existing = {};  ///< none for a new action
    bool measuresEmission = false;
};

template <class Set>
p_Action Device(p_ActionTypes kind, const String& name, Set&& set) {
    p_Action action = OnDevice(kind, name);
    set(std::get<aceSetDevice>(action.Parameter));
    return action;
}
p_Action Device(p_ActionTypes kind, const String& name) {
    return OnDevice(kind, name);
}
/// A check with all that a new one hasn't.
p_Action Check(p_ActionTypes kind) {
    return Device(kind, L"Camera", [](aceSetDevice& record) {
        record.StopTest = record.WaitState = record.LoadingPos = record.UseTimeCyc = true;
        record.WaitTime = 12.5F;
        record.CycleTime = 33.0;
    });
}
p_Action Synchronised() {
    aceTrackFreq record;
    record.GenName = L"Synth 2";
    record.SigPathName = L"Path A";
    record.TableName = L"Levels";
    record.TableType = 41;
    record.TableMeasClass = 2;
    record.AskOnMeasStart = true;
    return Action(atTrackFreq, record);
}
p_Action Followed() {
    aceTrackFreq record;
    record.MoniName = L"Tracker";
    record.DelayTime = 250;
    return Action(atTrackFreq, record);
}

std::vector<PaneView> AllViews();

class PaneViews : public MacroBench, public ::testing::WithParamInterface<PaneView> {
  public:
    static p_Action MacroOf(const String& program, const Lines& parameters) {
        return Macro(program, parameters);
    }

  protected:
    PaneViews() {
        AddMonitor(L"Camera", 2 + 4);
        AddMonitor(L"Tracker", 8);
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimAmplifier>(L"Amplifier");
        Add<sim::SimSwitchUnit>(L"Relays")->paths = {L"A", L"B"};
        Add<sim::SimSignalPath>(L"Path A");
        Add<sim::SimRfGenerator>(L"Synth 1");
        Add<sim::SimRfGenerator>(L"Synth 2");
        Section(7) = {L"Gain=3"};
    }
    /// The lines of the one frame of the dialog that shows, with those of all that stands in it.
    static Lines ShownPane(const Form& form) {
        Lines pane;
        bool isInside = false;
        for (const String& line : LinesOf(sim::FormView(form, sim::Places::Left))) {
            const bool isFrame = line.starts_with(L"  fraAction(");
            const bool standsDeeper = line.starts_with(L"    ");
            isInside = isFrame ? !line.ends_with(L" hidden") : isInside && standsDeeper;
            if (isInside) {
                pane.push_back(line.substr(2));
            }
        }
        return pane;
    }
    /// Opens the dialog on the moment that takes the kind, and looks at it.
    Lines Look(const PaneView& view) {
        const bool isTrack = view.kind == atTrackFreq;
        const bool isWireless = view.kind == atMonitorEUT;
        p_Subrange& set = isWireless ? State().VKSTemplate : State().MainTest;
        if (view.existing) {
            Fill(set, isTrack ? FreqList : EnterList, {*view.existing});
        }
        State().EmiTemplate = view.measuresEmission;
        Open(isWireless ? aceVKSTemplate : aceTemplate);
        Lines pane;
        const Acts acts{Do([&](Form& form) { pane = ShownPane(form); }), PressCancel};
        const String moment = isTrack ? L"EFR" : L"ETE";
        if (view.existing) {
            EditLine(acts, L"CHI0" + moment);
        } else {
            AddKind(view.kind, acts, moment);
        }
        return pane;
    }
};

std::vector<PaneView> AllViews() {
    const auto generator = Device(atSetDevice, L"Radio", [](aceSetDevice& record) {
        record.Path = L"Output 1";
        record.SigPathName = L"Path A";
    });
    const auto amplifier =
        Device(atSwitchAmp, L"Amplifier", [](aceSetDevice& record) { record.AmpState = 1; });
    const auto unit =
        Device(atSwitchUnit, L"Relays", [](aceSetDevice& record) { record.Path = L"B"; });
    return {{"set_device_new", atSetDevice},
            {"set_device", atSetDevice, Device(atSetDevice, L"Camera")},
            {"set_generator", atSetDevice, generator},
            {"check_new", atCheckEut},
            {"check", atCheckEut, Check(atCheckEut)},
            {"check_emission_new", atCheckEut, std::nullopt, true},
            {"check_emission", atCheckEut, Check(atCheckEut), true},
            {"monitor_new", atMonitorEUT},
            {"monitor", atMonitorEUT, Check(atMonitorEUT)},
            {"switch_amplifier_new", atSwitchAmp},
            {"switch_amplifier", atSwitchAmp, amplifier},
            {"switch_unit_new", atSwitchUnit},
            {"switch_unit", atSwitchUnit, unit},
            {"track_new", atTrackFreq, std::nullopt, true},
            {"track_generator", atTrackFreq, Synchronised(), true},
            {"track_monitor", atTrackFreq, Followed(), true},
            {"track_unprepared", atTrackFreq, Synchronised(), false},
            {"macro_new", atAPI},
            {"macro", atAPI, PaneViews::MacroOf(L"plain.mac", {})},
            {"macro_value", atAPI, PaneViews::MacroOf(L"log.mac", {L"1.5", L"Levels", L"2"})},
            {"macro_table", atAPI, PaneViews::MacroOf(L"table.mac", {L"Levels"})}};
}

TEST_P(PaneViews, APaneOpensAsItsFileSays) {
    EXPECT_EQ(Look(GetParam()), GoldenLines("editor/dialog_" + GetParam().file + ".txt"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, PaneViews, ::testing::ValuesIn(AllViews()),
                         [](const auto& row) { return row.param.file; });

}  // namespace
}  // namespace ace::test
