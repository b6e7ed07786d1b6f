#include "support/fake_editor.h"
#include "support/store_fixture.h"
#include "support/sweep_steps.h"

namespace ace::test {
namespace {

/// The number of entries, all elements, and the mark that a move or exchange is at work.
String SubrangesLeft(const SweepRig& rig) {
    const EngineState& state = rig.engine->State();
    String text = std::to_wstring(state.MainSubrangeCount);
    for (const String& entry : TextsOf(state.MainSubranges)) {
        text += L" " + entry;
    }
    return text + (state.InternalSubrangeOp ? L" moving" : L"");
}
String TestsLeft(const SweepRig& rig) {
    const EngineState& state = rig.engine->State();
    String text = std::to_wstring(state.VKSTestCount) + L" tests";
    for (const String& key : TextsOf(state.VKSTestUKeys)) {
        text += L" " + key;
    }
    text += L", " + std::to_wstring(state.VKSStepCount) + L" steps";
    for (const String& key : TextsOf(state.VKSStepKeys)) {
        text += L" " + key;
    }
    return text;
}

void PrepareSubranges(SweepRig& rig) {
    EngineState& state = rig.MakeEngine().State();
    state.MainSubranges = Letters(L"ABC");
    state.MainSubrangeCount = 3;
    rig.context.Editor = std::make_shared<FakeEditor>(*rig.host);
}
void PrepareTracedSubranges(SweepRig& rig) {
    PrepareSubranges(rig);
    rig.context.Editor.reset();
    rig.host->tracing = true;
}
/// Two tests of which the first has two steps.
void PrepareTests(SweepRig& rig) {
    EngineState& state = rig.MakeEngine().State();
    state.Modul = aceVKSTemplate;
    rig.engine->AddSubrange(1, L"T1");
    rig.engine->AddSubrange(2, L"T2");
    rig.engine->AddVKSStep(L"s1", L"T1", L"name");
    rig.engine->AddVKSStep(L"s2", L"T2", L"name");
    rig.engine->AddVKSStep(L"s3", L"T1", L"name");
    rig.context.Editor = std::make_shared<FakeEditor>(*rig.host);
}

const String Load = L"Editor.LoadEditor";
const String Select = L"Editor.SetSubrange";
const std::vector<String> Traced = {L"TraceLog.IsEnabled", L"Platform.ThreadId",
                                    L"TraceLog.WriteLine"};
const String ThreeLeft = L"3 AAAA BBBB CCCC";

Steps AddSteps() {
    const String added = L"4 AAAA ..B. BBBB CCCC ....";
    return Operation(1, ThreeLeft,
                     Operation(2, ThreeLeft, {}, added) + Raised(1, {Load, Select}, added), added);
}
Steps DeleteSteps() {
    const String deleted = L"2 BBBB CCCC CCCC";
    return Operation(1, ThreeLeft,
                     Operation(2, ThreeLeft, {}, deleted) + Raised(1, {Load}, deleted), deleted);
}
Steps MoveSteps() {
    const String begun = ThreeLeft + L" moving";
    const String deleted = L"2 BBBB CCCC CCCC moving";
    const String added = L"3 BBBB CCCC ..C. CCCC moving";
    const String moved = L"3 BBBB CCCC AAAA CCCC";
    return Operation(1, ThreeLeft,
                     Operation(2, begun, Operation(3, begun, {}, deleted), deleted) +
                         Operation(2, deleted, Operation(3, deleted, {}, added), added) +
                         Raised(1, {Load, Select}, moved),
                     moved);
}
Steps SwapSteps() {
    const String swapped = L"3 CCCC BBBB AAAA";
    return Operation(1, ThreeLeft, Raised(1, {Load, Select}, swapped), swapped);
}
Steps TracedDeleteSteps() {
    const String deleted = L"2 BBBB CCCC CCCC";
    return Raised(1, Traced, ThreeLeft) + Raised(2, Traced, ThreeLeft) +
           Raised(2, Traced, deleted) + Raised(1, Traced, deleted);
}

const String TestsBefore = L"2 tests T1 T2 , 3 steps s1 s2 s3 ";

Steps AddTestSteps() {
    const String entered = L"3 tests T1 T2 , 3 steps s1 s2 s3 ";
    const String added = L"3 tests T1 T2 T3 , 3 steps s1 s2 s3 ";
    return Operation(1, TestsBefore, Operation(2, TestsBefore, {}, entered), added);
}
Steps DeleteTestSteps() {
    const String entered = L"1 tests T1 T2 , 3 steps s1 s2 s3 ";
    const String noTest = L"1 tests T2 , 3 steps s1 s2 s3 ";
    const String firstEntered = L"1 tests T2 , 2 steps s1 s2 s3 ";
    const String first = L"1 tests T2 , 2 steps s2 s3 ";
    const String secondEntered = L"1 tests T2 , 1 steps s2 s3 ";
    const String second = L"1 tests T2 , 1 steps s2 ";
    return Operation(1, TestsBefore,
                     Operation(2, TestsBefore, {}, entered) +
                         Operation(2, noTest, {}, firstEntered) +
                         Operation(2, first, {}, secondEntered) + Raised(1, {Load}, second),
                     second);
}

std::vector<SweepRow> Rows() {
    return {
        {"AddSubrange", PrepareSubranges, [](SweepRig& rig) { rig.engine->AddSubrange(2); },
         SubrangesLeft, AddSteps()},
        {"DeleteSubrange", PrepareSubranges, [](SweepRig& rig) { rig.engine->DeleteSubrange(1); },
         SubrangesLeft, DeleteSteps()},
        {"DeleteSubrangeTraced", PrepareTracedSubranges,
         [](SweepRig& rig) { rig.engine->DeleteSubrange(1); }, SubrangesLeft, TracedDeleteSteps()},
        {"MoveSubrange", PrepareSubranges, [](SweepRig& rig) { rig.engine->MoveSubrange(1, 3); },
         SubrangesLeft, MoveSteps(), false},
        {"SwapSubrange", PrepareSubranges, [](SweepRig& rig) { rig.engine->SwapSubrange(3, 1); },
         SubrangesLeft, SwapSteps()},
        {"EditorSelectSubrange", PrepareSubranges,
         [](SweepRig& rig) { rig.engine->EditorSelectSubrange(2); }, SubrangesLeft,
         Operation(1, ThreeLeft, Raised(1, {Select}, ThreeLeft), ThreeLeft)},
        {"AddWirelessTest", PrepareTests, [](SweepRig& rig) { rig.engine->AddSubrange(3, L"T3"); },
         TestsLeft, AddTestSteps()},
        {"DeleteWirelessTest", PrepareTests,
         [](SweepRig& rig) { rig.engine->DeleteSubrange(1, L"T1"); }, TestsLeft, DeleteTestSteps()},
    };
}

class StoreSweep : public ::testing::TestWithParam<SweepRow> {};

TEST_P(StoreSweep, EveryHostCallThatFailsEndsTheOperationByItsPattern) {
    Sweep(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Operations, StoreSweep, ::testing::ValuesIn(Rows()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
