#include "editor/editor_sweep_rig.h"

namespace ace::test {
namespace {

/// The editor's own lists, what its tree shows while it is linked, and its list.
String Links(const String& lists, const String& tree, const String& list) {
    return L"lists " + lists + L", tree " + tree + L", list " + list;
}
String LinksLeft(const SweepRig& rig) {
    if (!rig.context.Editor) {
        return L"no editor";
    }
    const EditorParts& parts = PartsOf(rig);
    const String nodes = TreeWords(ControlsOf(rig).tree);
    return Links(StartList(parts.lists),
                 parts.m_View != nullptr ? L"linked" + nodes : L"not linked",
                 parts.m_List != nullptr ? L"linked" : L"not linked");
}
/// Of an edit as well: the store and its flag.
String TakenLeft(const SweepRig& rig) {
    return LinksLeft(rig) + L", store " + StartList(rig.engine->State()) +
           (rig.engine->State().ChangeFlags[aceEMSAutoTemplateGeneral] ? L", changed" : L"");
}

// ---- building ----------------------------------------------------------------------------------

const std::vector<String> LineOfAWait = {L"Language.Text", L"Platform.DecimalSeparator",
                                         L"Tree.AddChild"};

/// The tree of a start list with one wait, built inside `depth` operations. Any failure ends both
/// links.
Steps BuildSteps(std::int32_t depth, const String& left) {
    return Raised(depth, {L"Tree.SetRootsSorted", L"Tree.Clear"}, left) +
           Raised(depth, {L"Language.Text", L"Tree.AddRoot"}, left) +
           Operation(depth + 1, left,
                     Raised(depth + 1, {L"Tree.Find", L"Tree.FirstChild"}, left) +
                         Raised(depth + 1, LineOfAWait, left) +
                         Raised(depth + 1, {L"Tree.SetExpanded"}, left),
                     left) +
           Raised(depth, {L"Language.Text", L"Tree.Find", L"Tree.AddSibling"}, left) +
           Operation(
               depth + 1, left,
               Raised(depth + 1, {L"Tree.Find", L"Tree.FirstChild", L"Tree.SetExpanded"}, left),
               left);
}
/// The seven kinds that the module offers.
Steps OfferSteps(const String& left) {
    Steps steps;
    for (int kind = 0; kind < 7; ++kind) {
        steps = steps + Raised(1, {L"Language.Text", L"List.Add"}, left);
    }
    return steps;
}
const String Open = L"linked ETE+ 1 LTE+";
const String None = L"not linked";

Steps LoadSteps() {
    const String closed = Links(L"0[]", None, None);
    const String taken = Links(L"1[1]", None, None);
    return Raised(1, {L"TraceLog.IsEnabled", L"Tree.SetEvents"}, closed) +
           Raised(1, {L"Tree.SetUp"}, Links(L"0[]", L"linked", None)) +
           Raised(2, {L"TraceLog.IsEnabled"}, closed) + BuildSteps(2, taken) +
           Raised(2, {L"TraceLog.IsEnabled"}, taken) +
           Raised(1, {L"List.SetEvents"}, Links(L"1[1]", Open, None)) +
           Raised(1, {L"List.SetUp", L"List.Clear"}, Links(L"1[1]", Open, L"linked")) +
           OfferSteps(Links(L"1[1]", Open, L"linked")) +
           Raised(1, {L"TraceLog.IsEnabled"}, Links(L"1[1]", Open, L"linked"));
}

/// The old links are given back first, and the tree shows what it showed until it is cleared.
Steps LoadAgainSteps() {
    const String open = Links(L"1[1]", Open, L"linked");
    const String treeless = Links(L"1[1]", None, L"linked");
    const String listless = Links(L"1[1]", Open, None);
    const String taken = Links(L"1[1]", None, None);
    return Raised(1, {L"TraceLog.IsEnabled"}, open) +
           Raised(1, {L"Tree.SetEvents", L"Tree.SetEvents"}, treeless) +
           Raised(1, {L"Tree.SetUp"}, open) + Raised(2, {L"TraceLog.IsEnabled"}, taken) +
           BuildSteps(2, taken) + Raised(2, {L"TraceLog.IsEnabled"}, taken) +
           Raised(1, {L"List.SetEvents", L"List.SetEvents"}, listless) +
           Raised(1, {L"List.SetUp", L"List.Clear"}, open) + OfferSteps(open) +
           Raised(1, {L"TraceLog.IsEnabled"}, open);
}

/// The lists without the wait.
Steps TakeSteps() {
    const String left = Links(L"0[]", None, None) + L", store 1[1]";
    return Raised(1, {L"Tree.SetRootsSorted", L"Tree.Clear"}, left) +
           Raised(1, {L"Language.Text", L"Tree.AddRoot"}, left) +
           Operation(2, left,
                     Raised(2, {L"Tree.Find", L"Tree.FirstChild", L"Tree.SetExpanded"}, left),
                     left) +
           Raised(1, {L"Language.Text", L"Tree.Find", L"Tree.AddSibling"}, left) +
           Operation(2, left,
                     Raised(2, {L"Tree.Find", L"Tree.FirstChild", L"Tree.SetExpanded"}, left),
                     left);
}

// ---- wireless trees ----------------------------------------------------------------------------

/// A load of an editor whose form is ready, around the building of a tree that shows no list. The
/// last of the kinds on offer have words of their own.
Steps LoadAround(const Steps& build, int texts, int words, const String& tree) {
    const String closed = Links(L"0[]", None, None);
    const String open = Links(L"0[]", L"linked " + tree, L"linked");
    Steps offered = Raised(1, {L"List.SetEvents"}, Links(L"0[]", L"linked " + tree, None)) +
                    Raised(1, {L"List.SetUp", L"List.Clear"}, open);
    for (int kind = 0; kind < texts; ++kind) {
        offered = offered + Raised(1, {L"Language.Text", L"List.Add"}, open);
    }
    for (int kind = 0; kind < words; ++kind) {
        offered = offered + Raised(1, {L"List.Add"}, open);
    }
    return Raised(1, {L"TraceLog.IsEnabled", L"Tree.SetEvents"}, closed) +
           Raised(1, {L"Tree.SetUp"}, Links(L"0[]", L"linked", None)) +
           Operation(2, closed, Raised(2, {L"Tree.SetRootsSorted", L"Tree.Clear"}, closed) + build,
                     closed) +
           offered + Raised(1, {L"TraceLog.IsEnabled"}, open);
}

/// A moment without actions is shown, and what follows behind it.
Steps EmptyDisplay(const std::vector<String>& behind) {
    const String left = Links(L"0[]", None, None);
    return Operation(3, left,
                     Raised(3, {L"Tree.Find", L"Tree.FirstChild", L"Tree.SetExpanded"}, left) +
                         Raised(3, behind, left),
                     left);
}
/// A node, and its moment in a wireless template, whose group is closed and opened again.
Steps WirelessNode(const std::vector<String>& calls, bool isInGroup) {
    const std::vector<String> redrawn = {L"Tree.Parent", L"Tree.SetExpanded", L"Tree.SetExpanded"};
    return Raised(2, calls, Links(L"0[]", None, None)) +
           EmptyDisplay(isInGroup ? redrawn : std::vector<String>{L"Tree.Parent"});
}
Steps LoadWirelessSteps() {
    const std::vector<String> child = {L"Language.Text", L"Tree.Find", L"Tree.AddChild"};
    const Steps build =
        WirelessNode({L"Language.Text", L"Tree.AddRoot"}, false) +
        Raised(2, {L"Tree.AddRoot"}, Links(L"0[]", None, None)) + WirelessNode(child, true) +
        WirelessNode({L"Tree.Find", L"Tree.AddChild"}, true) + WirelessNode(child, true) +
        WirelessNode({L"Language.Text", L"Tree.Find", L"Tree.AddSibling"}, false);
    return LoadAround(build, 7, 2, L"ETE TST0+ BFT0 STE0 ATT0 LTE");
}

/// A group of one frequency with a leaf for its one bandwidth.
Steps LoadMatrixSteps() {
    const Steps build = Raised(2,
                               {L"Tree.AddRoot", L"Tree.SetChildrenSorted", L"Tree.Find",
                                L"Tree.AddChild", L"Tree.SetRootsSorted"},
                               Links(L"0[]", None, None)) +
                        EmptyDisplay({}) +
                        Raised(2, {L"Tree.Nodes", L"Tree.SetExpanded", L"Tree.SetExpanded"},
                               Links(L"0[]", None, None));
    return LoadAround(build, 7, 0, L"TST0_-1_-1+ STE0+");
}

// ---- selecting ---------------------------------------------------------------------------------

/// A template with one subrange, where all four roots are expanded.
Steps SelectSteps() {
    const auto left = [](const String& tree) {
        return Links(L"0[]", L"linked " + tree, L"linked");
    };
    const auto failed = [&](const std::vector<String>& calls, const String& tree) {
        return Raised(2, calls, left(tree));
    };
    const std::vector<String> collapse = {L"Tree.SetExpanded"};
    const std::vector<String> next = {L"Tree.NextSibling"};
    const std::vector<String> further = {L"Tree.NextSibling", L"Tree.SetExpanded"};
    const String closed = L"ETE EFR SUR0 ESR0 LSR0 LTE";
    const String chosen = L"ETE EFR SUR0+* ESR0 LSR0 LTE";
    return Raised(1, {L"TraceLog.IsEnabled"}, left(L"ETE+ EFR+ SUR0+ ESR0 LSR0 LTE+")) +
           failed({L"TraceLog.IsEnabled", L"Tree.Find"}, L"ETE+ EFR+ SUR0+ ESR0 LSR0 LTE+") +
           failed(collapse, L"ETE+ EFR+ SUR0+ ESR0 LSR0 LTE+") +
           failed(further, L"ETE EFR+ SUR0+ ESR0 LSR0 LTE+") +
           failed(further, L"ETE EFR SUR0+ ESR0 LSR0 LTE+") +
           failed(further, L"ETE EFR SUR0 ESR0 LSR0 LTE+") + failed(next, closed) +
           failed({L"Tree.Find", L"Tree.Select"}, closed) +
           failed(collapse, L"ETE EFR SUR0* ESR0 LSR0 LTE") +
           failed({L"Tree.FirstChild", L"Tree.SetExpanded"}, chosen) +
           failed(further, L"ETE EFR SUR0+* ESR0+ LSR0 LTE") +
           failed(next, L"ETE EFR SUR0+* ESR0+ LSR0+ LTE") +
           failed({L"TraceLog.IsEnabled"}, L"ETE EFR SUR0+* ESR0+ LSR0+ LTE") +
           Raised(1, {L"TraceLog.IsEnabled"}, left(L"ETE EFR SUR0+* ESR0+ LSR0+ LTE"));
}

// ---- rows --------------------------------------------------------------------------------------

/// The form is loaded, which is done once in its life.
void PrepareForm(SweepRig& rig) {
    MakeClosed(rig, {WaitFor(1000)});
    rig.context.Editor = MakeEditor(rig.context);
    rig.context.Editor->Load();
    ControlsOf(rig).form = rig.context.Editor;
}
/// A wireless test with a step.
void PrepareWireless(SweepRig& rig) {
    PrepareForm(rig);
    EngineState& state = rig.engine->State();
    FillModule(state, aceVKSTemplate, {});
    state.VKSTestCount = state.VKSStepCount = 1;
    state.VKSHostUKeys = state.VKSHostNames = state.VKSTestUKeys;
}
/// A matrix with a row of 2.4 GHz in its only bandwidth.
void PrepareMatrix(SweepRig& rig) {
    PrepareForm(rig);
    EngineState& state = rig.engine->State();
    FillModule(state, aceVKSDUT, {});
    state.VKSDUTTemplate = 0;
    state.VKSInfByBandwidth = true;
    state.VKSStepCount = state.VKSDUTFreqCount = state.VKSDUTBandwidthCount = 1;
    state.VKSDUTIds(0, 0) = 2.4e9;
    state.VKSDUTIds(0, 1) = 0.0;
    state.VKSDUTFreqs.Redim(0, 0);
    state.VKSDUTFreqs[0] = 2.4e9;
    state.VKSDUTFreqNames.Redim(0, 0);
    state.VKSDUTBandwidthNames.Redim(0, 0);
}
void Load(SweepRig& rig) {
    rig.engine->LoadEditor(&ControlsOf(rig).list, &ControlsOf(rig).tree);
}
void PrepareOpen(SweepRig& rig) {
    PrepareForm(rig);
    Load(rig);
}
void PrepareTemplate(SweepRig& rig) {
    MakeClosed(rig, {}, aceTemplate);
    rig.engine->State().MainSubranges.Redim(0, 0);
    rig.engine->State().MainSubrangeCount = 1;
    Load(rig);
    ControlsOf(rig).form = rig.context.Editor;
    sim::SimTree& tree = ControlsOf(rig).tree;
    for (const String key : {L"ETE", L"EFR", L"SUR0", L"LTE"}) {
        tree.SetExpanded(tree.Find(key), true);
    }
}
void Take(SweepRig& rig) {
    rig.context.Editor->TakeLists({});
}
/// A control that isn't given back hinders nobody.
Steps ReleaseSteps() {
    return {Swallowed(L"Tree.SetEvents", L"no editor"), Swallowed(L"List.SetEvents", L"no editor")};
}

std::vector<SweepRow> Rows() {
    return {
        {"LoadEditor", PrepareForm, Load, LinksLeft, LoadSteps(), true, false},
        {"LoadEditorAgain", PrepareOpen, Load, LinksLeft, LoadAgainSteps(), true, false},
        {"LoadWireless", PrepareWireless, Load, LinksLeft, LoadWirelessSteps(), true, false},
        {"LoadMatrix", PrepareMatrix, Load, LinksLeft, LoadMatrixSteps(), true, false},
        {"TakeLists", PrepareOpen, Take, TakenLeft, TakeSteps(), false},
        {"EditorSelectSubrange", PrepareTemplate,
         [](SweepRig& rig) { rig.engine->EditorSelectSubrange(1); }, LinksLeft, SelectSteps()},
        {"Release", PrepareOpen, [](SweepRig& rig) { rig.engine->Release(); }, LinksLeft,
         ReleaseSteps()},
    };
}

class EditorLinksSweep : public ::testing::TestWithParam<SweepRow> {};

TEST_P(EditorLinksSweep, EveryHostCallThatFailsEndsTheOperationByItsPattern) {
    Sweep(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Operations, EditorLinksSweep, ::testing::ValuesIn(Rows()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
