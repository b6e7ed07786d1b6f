#include "editor/editor_sweep_rig.h"

namespace ace::test {
namespace {

const std::vector<String> LineOfAWait = {L"Language.Text", L"Platform.DecimalSeparator",
                                         L"Tree.AddChild"};

/// The place of the moment ETE, asked for inside another operation.
Steps PositionOfMoment(const String& left) {
    return Operation(2, left, Raised(2, {L"Tree.Key", L"Tree.ChildCount"}, left), left);
}
/// The place of its first line.
Steps PositionOfFirstLine(const String& left) {
    return Operation(
        2, left, Raised(2, {L"Tree.Key", L"Tree.Parent", L"Tree.Key", L"Tree.FirstChild"}, left),
        left);
}
/// Steps of a display of ETE, whose lines go and come as `trees` says, one state after the other;
/// `left` makes the whole state of a tree's.
Steps Display(const std::vector<String>& trees, std::size_t removed,
              const std::vector<String>& lineCalls,
              const std::function<String(const String&)>& left) {
    Steps steps = Raised(2, {L"TraceLog.IsEnabled", L"Tree.Find"}, left(trees[0]));
    for (std::size_t i = 0; i < removed; ++i) {
        steps = steps + Raised(2, {L"Tree.FirstChild", L"Tree.Remove"}, left(trees[i]));
    }
    steps = steps + Raised(2, {L"Tree.FirstChild"}, left(trees[removed]));
    for (std::size_t i = removed; i + 2 < trees.size(); ++i) {
        steps = steps + Raised(2, lineCalls, left(trees[i]));
    }
    return steps + Raised(2, {L"Tree.SetExpanded"}, left(trees[trees.size() - 2])) +
           Raised(2, {L"TraceLog.IsEnabled"}, left(trees.back()));
}

/// Asking for the selected node and its place.
Steps Begun(const Steps& position, const String& before) {
    return Raised(1, {L"TraceLog.IsEnabled", L"Tree.Selected"}, before) + position;
}

// ---- additions ---------------------------------------------------------------------------------

Steps AddSteps() {
    const auto inserted = [](const String& tree) { return EditLeft(L"2[1 9]", L"1[1]", tree); };
    const String before = EditLeft(L"1[1]", L"1[1]", L"ETE+* 1 LTE+");
    return Begun(PositionOfMoment(before), before) +
           Display({L"ETE+* 1 LTE+", L"ETE+* LTE+", L"ETE+* 1 LTE+", L"ETE+* 1 9 LTE+",
                    L"ETE+* 1 9 LTE+"},
                   1, LineOfAWait, inserted) +
           Raised(1, {L"TraceLog.IsEnabled"},
                  EditLeft(L"2[1 9]", L"2[1 9]", L"ETE+* 1 9 LTE+", true));
}

String WithFile(const String& edit, const String& section, int counter) {
    return edit + L", counter " + std::to_wstring(counter) + L", new section " + section;
}
/// With the section that the device gets, and the counter of sections.
String SectionLeft(const SweepRig& rig) {
    const sim::SimSections& file = rig.host->files[L"setup.ini"];
    const auto section = file.find(L"Actions101-Device");
    return WithFile(EditLeft(rig), section != file.end() ? section->second.at(0) : L"none",
                    rig.context.DeviceSectionCounter);
}

Steps AddDeviceSteps() {
    const String shown = L"ETE+* G LTE+";
    const auto inserted = [](const String& tree) {
        return WithFile(EditLeft(L"2[D7 D101]", L"1[D7]", tree), L"Gain=3", 101);
    };
    const String before = WithFile(EditLeft(L"1[D7]", L"1[D7]", shown), L"none", 100);
    const String grown = WithFile(EditLeft(L"1[D7 -]", L"1[D7]", shown), L"none", 101);
    return Begun(PositionOfMoment(before), before) +
           Raised(2, {L"SystemServices.OpenSettingsFile"}, grown) +
           Raised(1, {L"SettingsFile.GetSection", L"SettingsFile.SetSection"}, grown) +
           Raised(1, {L"SettingsFile.Release"}, grown) +
           Display({shown, L"ETE+* LTE+", shown, L"ETE+* G G LTE+", L"ETE+* G G LTE+"}, 1,
                   {L"Language.Text", L"Tree.AddChild"}, inserted) +
           Raised(1, {L"TraceLog.IsEnabled"},
                  WithFile(EditLeft(L"2[D7 D101]", L"2[D7 D101]", L"ETE+* G G LTE+", true),
                           L"Gain=3", 101));
}

// ---- the other edits ---------------------------------------------------------------------------

/// The first of two waits of 1 and 2 seconds becomes one of 9.
Steps ModifySteps() {
    const String before = EditLeft(L"2[1 2]", L"2[1 2]", L"ETE+ 1* 2 LTE+");
    const auto changed = [](const String& tree) {
        return EditLeft(L"2[9 2]", L"2[9 2]", tree, true);
    };
    return Begun(PositionOfFirstLine(before), before) +
           Raised(2, {L"TraceLog.IsEnabled", L"Utilities.IsEqual"}, before) +
           Raised(2, {L"TraceLog.IsEnabled"}, changed(L"ETE+ 1* 2 LTE+")) +
           Display({L"ETE+ 1* 2 LTE+", L"ETE+* 2 LTE+", L"ETE+* LTE+", L"ETE+* 9 LTE+",
                    L"ETE+* 9 2 LTE+", L"ETE+* 9 2 LTE+"},
                   2, LineOfAWait, changed) +
           Raised(1, {L"TraceLog.IsEnabled"}, changed(L"ETE+* 9 2 LTE+"));
}

Steps DeleteLineSteps() {
    const String before = EditLeft(L"2[1 2]", L"2[1 2]", L"ETE+ 1* 2 LTE+");
    const auto removed = [](const String& tree) { return EditLeft(L"1[2]", L"2[1 2]", tree); };
    return Raised(1, {L"TraceLog.IsEnabled", L"Tree.Selected", L"Tree.Key"}, before) +
           PositionOfFirstLine(before) +
           Display({L"ETE+ 1* 2 LTE+", L"ETE+* 2 LTE+", L"ETE+* LTE+", L"ETE+* 2 LTE+",
                    L"ETE+* 2 LTE+"},
                   2, LineOfAWait, removed) +
           Raised(1, {L"TraceLog.IsEnabled"}, EditLeft(L"1[2]", L"1[2]", L"ETE+* 2 LTE+", true));
}

Steps ClearSteps() {
    const String before = EditLeft(L"1[1]", L"1[1]", L"ETE+* 1 LTE+");
    const auto cleared = [](const String& tree) { return EditLeft(L"0[]", L"1[1]", tree); };
    return Raised(1, {L"TraceLog.IsEnabled", L"Tree.Selected", L"Tree.Key"}, before) +
           Display({L"ETE+* 1 LTE+", L"ETE+* LTE+", L"ETE* LTE+"}, 1, LineOfAWait, cleared) +
           Raised(1, {L"TraceLog.IsEnabled"}, EditLeft(L"0[]", L"0[]", L"ETE* LTE+", true));
}

Steps MoveSteps() {
    const auto moved = [](const String& tree) { return EditLeft(L"2[2 1]", L"2[1 2]", tree); };
    return Raised(1, {L"TraceLog.IsEnabled"}, EditLeft(L"2[1 2]", L"2[1 2]", L"ETE+* 1 2 LTE+")) +
           Display({L"ETE+* 1 2 LTE+", L"ETE+* 2 LTE+", L"ETE+* LTE+", L"ETE+* 2 LTE+",
                    L"ETE+* 2 1 LTE+", L"ETE+* 2 1 LTE+"},
                   2, LineOfAWait, moved) +
           Raised(1, {L"TraceLog.IsEnabled"},
                  EditLeft(L"2[2 1]", L"2[2 1]", L"ETE+* 2 1 LTE+", true));
}

/// With the trace on each end of an operation is two calls more.
Steps TracedMoveSteps() {
    const std::vector<String> traced = {L"TraceLog.IsEnabled", L"Platform.ThreadId",
                                        L"TraceLog.WriteLine"};
    const String moved = EditLeft(L"1[1]", L"1[1]", L"ETE+* 1 LTE+");
    const String gone = EditLeft(L"1[1]", L"1[1]", L"ETE+* LTE+");
    return Raised(1, traced, moved) + Raised(2, traced, moved) +
           Raised(2, {L"Tree.Find", L"Tree.FirstChild", L"Tree.Remove"}, moved) +
           Raised(2, {L"Tree.FirstChild"}, gone) + Raised(2, LineOfAWait, gone) +
           Raised(2, {L"Tree.SetExpanded"}, moved) + Raised(2, traced, moved) +
           Raised(1, traced, moved + L", changed");
}

// ---- looking -----------------------------------------------------------------------------------

String HeldLeft(const SweepRig& rig) {
    return WordOf(PartsOf(rig).held.Action) + L" held, " + EditLeft(rig);
}
Steps GetSteps() {
    const String left = EditLeft(L"2[1 2]", L"2[1 2]", L"ETE+ 1* 2 LTE+");
    return Begun(PositionOfFirstLine(L"9 held, " + left), L"9 held, " + left) +
           Raised(1, {L"TraceLog.IsEnabled"}, L"1 held, " + left);
}
Steps GetListSteps() {
    const String left = EditLeft(L"2[1 2]", L"2[1 2]", L"ETE+ 1* 2 LTE+");
    return Begun(PositionOfFirstLine(left), left) + Raised(1, {L"TraceLog.IsEnabled"}, left);
}

// ---- groups ------------------------------------------------------------------------------------

/// A template with one subrange, of which no start list tells; both its moments are empty.
Steps ClearGroupSteps() {
    const auto left = [](const String& tree) { return EditLeft(L"0[]", L"0[]", tree); };
    const auto shown = [&](const String& tree, const String& collapsed) {
        return Raised(
                   2,
                   {L"TraceLog.IsEnabled", L"Tree.Find", L"Tree.FirstChild", L"Tree.SetExpanded"},
                   left(tree)) +
               Raised(2, {L"TraceLog.IsEnabled"}, left(collapsed));
    };
    const String before = L"ETE EFR SUR0* ESR0+ LSR0+ LTE";
    const String half = L"ETE EFR SUR0* ESR0 LSR0+ LTE";
    const String after = L"ETE EFR SUR0* ESR0 LSR0 LTE";
    return Raised(1, {L"TraceLog.IsEnabled", L"Tree.Selected", L"Tree.Key"}, left(before)) +
           shown(before, half) + shown(half, after) +
           Raised(1, {L"TraceLog.IsEnabled"}, left(after));
}
/// The subrange stands for the first of its moments.
Steps GetGroupSteps() {
    const String left = EditLeft(L"0[]", L"0[]", L"ETE EFR SUR0* ESR0+ LSR0+ LTE");
    return Begun(Operation(
                     2, left,
                     Raised(2, {L"Tree.Key", L"Tree.FirstChild", L"Tree.Key", L"Tree.ChildCount"},
                            left),
                     left),
                 left) +
           Raised(1, {L"TraceLog.IsEnabled"}, left);
}

// ---- rows --------------------------------------------------------------------------------------

void PrepareMoment(SweepRig& rig) {
    OpenHolding(rig, {WaitFor(1000)}, L"ETE", WaitFor(9000));
}
void PrepareTracedMoment(SweepRig& rig) {
    PrepareMoment(rig);
    rig.host->tracing = true;
}
void PrepareTwo(SweepRig& rig) {
    OpenHolding(rig, {WaitFor(1000), WaitFor(2000)}, L"ETE", WaitFor(9000));
}
void PrepareLine(SweepRig& rig) {
    OpenHolding(rig, {WaitFor(1000), WaitFor(2000)}, L"CHI0ETE", WaitFor(9000));
}
void PrepareDevice(SweepRig& rig) {
    const p_Action device = OnDevice(atSetDevice, L"Generator");
    OpenHolding(rig, {device}, L"ETE", device);
}
void PrepareSubrange(SweepRig& rig) {
    MakeClosed(rig, {}, aceTemplate);
    rig.engine->State().MainSubranges.Redim(0, 0);
    rig.engine->State().MainSubrangeCount = 1;
    Open(rig, L"SUR0");
    sim::SimTree& tree = ControlsOf(rig).tree;
    tree.SetExpanded(tree.Find(L"ESR0"), true);
    tree.SetExpanded(tree.Find(L"LSR0"), true);
}
void LookAtTheList(SweepRig& rig) {
    std::int32_t count = 0;
    std::int32_t index = 0;
    GetSelectedList(PartsOf(rig), count, index);
}
void Move(SweepRig& rig, std::int32_t to) {
    MoveAction(PartsOf(rig), ptStartTest, 0, 0, to);
}

/// A row on the state that an edit leaves. What has lost its selected line is another edit then.
SweepRow Edit(const std::string& name, void (*prepare)(SweepRig&), void (*act)(SweepRig&),
              const Steps& steps, bool repeatable = true) {
    return {name,  prepare,   act, [](const SweepRig& rig) { return EditLeft(rig); },
            steps, repeatable};
}

std::vector<SweepRow> Rows() {
    return {
        Edit(
            "AddAction", PrepareMoment, [](auto& rig) { AddAction(PartsOf(rig), true); },
            AddSteps()),
        {"AddDevice", PrepareDevice, [](SweepRig& rig) { AddAction(PartsOf(rig), true); },
         SectionLeft, AddDeviceSteps()},
        Edit(
            "ModifyAction", PrepareLine, [](auto& rig) { ModifyAction(PartsOf(rig)); },
            ModifySteps(), false),
        Edit(
            "DeleteLine", PrepareLine, [](auto& rig) { DeleteAction(PartsOf(rig)); },
            DeleteLineSteps()),
        Edit(
            "ClearMoment", PrepareMoment, [](auto& rig) { DeleteAction(PartsOf(rig)); },
            ClearSteps()),
        Edit(
            "ClearSubrange", PrepareSubrange, [](auto& rig) { DeleteAction(PartsOf(rig)); },
            ClearGroupSteps()),
        Edit(
            "MoveAction", PrepareTwo, [](auto& rig) { Move(rig, 1); }, MoveSteps()),
        Edit(
            "MoveActionTraced", PrepareTracedMoment, [](auto& rig) { Move(rig, 0); },
            TracedMoveSteps()),
        {"GetAction", PrepareLine, [](SweepRig& rig) { GetAction(PartsOf(rig)); }, HeldLeft,
         GetSteps()},
        Edit("GetSelectedList", PrepareLine, LookAtTheList, GetListSteps()),
        Edit("GetSelectedListOfAGroup", PrepareSubrange, LookAtTheList, GetGroupSteps()),
    };
}

class EditorSweep : public ::testing::TestWithParam<SweepRow> {};

TEST_P(EditorSweep, EveryHostCallThatFailsEndsTheEditByItsPattern) {
    Sweep(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Edits, EditorSweep, ::testing::ValuesIn(Rows()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
