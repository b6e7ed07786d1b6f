#include <array>
#include <memory>
#include <vector>

#include <ace/core/actions_engine.h>

#include "support/fake_editor.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Lifetime : public HostTest {
  protected:
    std::unique_ptr<aceActionsEngine> MakeEngine() {
        return std::make_unique<aceActionsEngine>(context);
    }
    /// All calls, questions too; the journal is empty afterwards.
    std::vector<String> TakeLines() {
        std::vector<String> lines = host->journal.Lines();
        host->journal.Clear();
        return lines;
    }
};

class FakeCommentForm : public ICommentForm {
  public:
    Boolean DisplayMessage(const String&, Boolean) override { return false; }
};

class FakeMacro : public DefaultApiMacro {
  public:
    void Abort() override {}
};

// ---- construction ------------------------------------------------------------------------------

TEST_F(Lifetime, TheFirstObjectMakesTheDisplayReadsTheLabelsAndMakesTheSerialForm) {
    const auto engine = MakeEngine();
    EXPECT_THAT(
        host->journal.Lines(),
        ElementsAre(L"Factory.MakeStatusDisplay()", L"Factory.MakeLanguage()",
                    L"Language.Text(9410)", L"Language.Text(9411)", L"Language.Text(9412)",
                    L"Language.Text(9413)", L"Language.Text(9414)", L"Factory.MakeSerialPort()"));
    EXPECT_THAT(context.ActionStatusTexts,
                ElementsAre(L"T(9410)", L"T(9411)", L"T(9412)", L"T(9413)", L"T(9414)"));
    EXPECT_EQ(context.InstanceCount, 1);
    EXPECT_TRUE(context.ModuleInitialised);
    EXPECT_NE(context.StatusDisplay, nullptr);
    EXPECT_NE(context.ComPortForm, nullptr);
}

TEST_F(Lifetime, TheSecondObjectMakesItsSerialFormBeforeItDropsTheOldOne) {
    const auto first = MakeEngine();
    const std::shared_ptr<IStatusDisplay> display = context.StatusDisplay;
    host->serialPortOpen = true;
    host->journal.Clear();
    const auto second = MakeEngine();
    EXPECT_THAT(TakeLines(), ElementsAre(L"Factory.MakeSerialPort()", L"SerialPort.PortOpen()",
                                         L"SerialPort.PortOpen(false)"));
    EXPECT_EQ(context.InstanceCount, 2);
    EXPECT_EQ(context.StatusDisplay, display);
}

TEST_F(Lifetime, AFreshObjectHasTheStartValues) {
    const auto engine = MakeEngine();
    const EngineState& state = engine->State();
    EXPECT_EQ(state.FileName, L"");
    EXPECT_EQ(state.Modul, aceTemplate);
    EXPECT_FALSE(state.InternalSubrangeOp);
    EXPECT_EQ(state.MainSubrangeCount, -1);
    EXPECT_EQ(state.MoniChannelCount, -1);
    EXPECT_EQ(state.EMSAutoStepCount, -1);
    EXPECT_EQ(state.EMIAutoStepCount, -1);
    EXPECT_EQ(state.TSTestCount, 0);
    EXPECT_EQ(state.VKSTestCount, 0);
    EXPECT_EQ(state.VKSStepCount, 0);
    EXPECT_EQ(state.ChangeFlags.size(), 9U);
    EXPECT_THAT(state.ChangeFlags, ::testing::Each(Boolean(false)));
    EXPECT_FALSE(state.IsAutoModule || state.EmiTemplate || state.VKSResult);
    EXPECT_EQ(state.LastFrequency, 0.0);
    EXPECT_EQ(state.VKSReplaceVars.count, 0);
    EXPECT_EQ(state.VKSDUTTemplate, 0);
    EXPECT_FALSE(state.VKSInfByFreq || state.VKSInfByBandwidth || state.VKSInfByPower);
    EXPECT_EQ(state.VKSDUTFreqCount, 0);
    EXPECT_EQ(state.VKSDUTBandwidthCount, 0);
    EXPECT_EQ(state.VKSDUTPowerCount, 0);
    EXPECT_EQ(state.EventSink, nullptr);
}

TEST_F(Lifetime, AFreshObjectHasEmptyListsAndNoArrays) {
    const auto engine = MakeEngine();
    const EngineState& state = engine->State();
    for (const ModuleRow& module : ModuleTable) {
        for (const FixedSet& fixed : module.AllFixed()) {
            EXPECT_EQ(state.*fixed.set, p_Subrange());
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            EXPECT_FALSE((state.*numbered.sets).IsAllocated());
            EXPECT_EQ(state.SavedCount.*numbered.saved, 0);
        }
    }
    for (const DynArray<String>* array :
         {&state.VKSStepKeys, &state.VKSStepUKeys, &state.VKSStepNames, &state.VKSTestUKeys,
          &state.VKSHostUKeys, &state.VKSHostNames, &state.VKSDUTFreqNames,
          &state.VKSDUTBandwidthNames, &state.VKSDUTPowerNames}) {
        EXPECT_FALSE(array->IsAllocated());
    }
    EXPECT_FALSE(state.VKSDUTIds.IsAllocated());
    EXPECT_FALSE(state.VKSDUTFreqs.IsAllocated());
}

TEST_F(Lifetime, TheSecondObjectWhileTheFirstIsMidTestClearsTestRunningAndInitReceiverPending) {
    const auto first = MakeEngine();
    EXPECT_FALSE(first->StartTest());
    EXPECT_TRUE(context.TestRunning);
    context.InitReceiverPending = true;
    const auto second = MakeEngine();
    EXPECT_FALSE(context.TestRunning);
    EXPECT_FALSE(context.InitReceiverPending);
    EXPECT_FALSE(first->InitReceiver());
}

TEST_F(Lifetime, ASecondObjectForgetsTheSocketWithoutClosingIt) {
    const auto first = MakeEngine();
    context.SocketHandle = 7;
    host->openSockets = {7};
    const auto second = MakeEngine();
    EXPECT_EQ(context.SocketHandle, -1);
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList"), IsEmpty());
    EXPECT_TRUE(host->openSockets.contains(7));
}

TEST_F(Lifetime, ASecondObjectLeavesTheOtherSharedStateAsItIs) {
    const auto first = MakeEngine();
    context.EutCheckRequest = acEutParkAccessories;
    context.EutCheckComment = L"comment";
    context.SystemCheck = true;
    context.ModuleFileNames[3] = L"emission.ini";
    context.DeviceSectionCounter = 250;
    context.RunningMacro = std::make_shared<FakeMacro>();
    context.CommentForm = std::make_shared<FakeCommentForm>();
    context.Editor = std::make_shared<FakeEditor>(*host);
    context.DispatcherRecords.Wait.Time = 5.0;
    context.ReaderRecords.SetDevice.ChanNo = 104;
    const auto second = MakeEngine();
    EXPECT_EQ(context.EutCheckRequest, 4);
    EXPECT_EQ(context.EutCheckComment, L"comment");
    EXPECT_TRUE(context.SystemCheck);
    EXPECT_EQ(context.ModuleFileNames[3], L"emission.ini");
    EXPECT_EQ(context.DeviceSectionCounter, 250);
    EXPECT_TRUE(context.RunningMacro && context.CommentForm && context.Editor);
    EXPECT_EQ(context.DispatcherRecords.Wait.Time, 5.0);
    EXPECT_EQ(context.ReaderRecords.SetDevice.ChanNo, 104);
}

TEST_F(Lifetime, AnInitialisationThatFailsLeavesTheObjectCounted) {
    host->faults.FailOperation(L"Factory.MakeStatusDisplay", 1, 57);
    EXPECT_EQ(ErrorOf([&] { MakeEngine(); }), 57);
    EXPECT_EQ(context.InstanceCount, 1);
    EXPECT_FALSE(context.ModuleInitialised);
    MakeEngine().reset();
    EXPECT_EQ(context.InstanceCount, 1);
    EXPECT_TRUE(context.ModuleInitialised);
    EXPECT_NE(context.StatusDisplay, nullptr);
}

TEST_F(Lifetime, AnInitialisationThatFailedHalfwayIsDoneAgainByTheNextObject) {
    host->faults.FailOperation(L"Language.Text", 3, 57);
    EXPECT_EQ(ErrorOf([&] { MakeEngine(); }), 57);
    EXPECT_THAT(context.ActionStatusTexts, ElementsAre(L"T(9410)", L"T(9411)", L"", L"", L""));
    context.DeviceSectionCounter = 7;
    const auto engine = MakeEngine();
    EXPECT_EQ(context.ActionStatusTexts[4], L"T(9414)");
    EXPECT_EQ(context.DeviceSectionCounter, 100);
}

TEST_F(Lifetime, AHostWithoutAStatusDisplayIsError91) {
    class Displayless : public IHostFactory {
        std::shared_ptr<IStatusDisplay> MakeStatusDisplay() override { return nullptr; }
    };
    ThreadContext bare(std::make_shared<Displayless>());
    EXPECT_EQ(ErrorOf([&] { aceActionsEngine{bare}; }), 91);
}

// ---- destruction -------------------------------------------------------------------------------

TEST_F(Lifetime, TheEndClosesPortThenSocketDropsTheFormAndThenCleansTheLists) {
    auto engine = MakeEngine();
    host->serialPortOpen = true;
    context.SocketHandle = 7;
    host->openSockets = {7};
    aceRemote remote;
    remote.DrvHdl = 5;
    Fill(engine->State().MainTest, EnterList, {Action(atRemote, remote)});
    context.DeviceList();
    context.GpibDriver();
    host->journal.Clear();
    engine.reset();
    EXPECT_THAT(TakeLines(),
                ElementsAre(L"SerialPort.PortOpen()", L"SerialPort.PortOpen(false)",
                            L"DeviceList.SocketIsOpen(7)", L"DeviceList.CloseSocket(7)",
                            L"SerialPort.PortOpen()", L"GpibDriver.CloseDevice(5, 0)"));
    EXPECT_EQ(context.SocketHandle, -1);
    EXPECT_EQ(context.ComPortForm, nullptr);
}

TEST_F(Lifetime, TheEndClosesNoPortThatIsNotOpen) {
    auto engine = MakeEngine();
    host->journal.Clear();
    engine.reset();
    EXPECT_THAT(TakeLines(), ElementsAre(L"SerialPort.PortOpen()", L"SerialPort.PortOpen()"));
}

TEST_F(Lifetime, TheEndAsksForNoSocketOfHandle0OrBelow) {
    for (const std::int32_t handle : {0, -1, -7}) {
        auto engine = MakeEngine();
        context.SocketHandle = handle;
        host->openSockets = {handle};
        engine.reset();
        EXPECT_THAT(host->journal.LinesOf(L"DeviceList"), IsEmpty());
        EXPECT_EQ(context.SocketHandle, handle);
    }
}

TEST_F(Lifetime, TheEndLeavesADeadSocketAndItsHandleAlone) {
    auto engine = MakeEngine();
    context.SocketHandle = 7;
    engine.reset();
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList"), ElementsAre(L"DeviceList.SocketIsOpen(7)"));
    EXPECT_EQ(context.SocketHandle, 7);
}

TEST_F(Lifetime, TheEndOfAnyObjectTakesPortAndSocketFromTheOthers) {
    auto first = MakeEngine();
    const auto second = MakeEngine();
    host->serialPortOpen = true;
    context.SocketHandle = 7;
    host->openSockets = {7};
    first.reset();
    EXPECT_FALSE(host->serialPortOpen);
    EXPECT_THAT(host->openSockets, IsEmpty());
    EXPECT_EQ(context.ComPortForm, nullptr);
}

TEST_F(Lifetime, AnEndWithoutTheFormStillClosesTheSocket) {
    auto first = MakeEngine();
    auto second = MakeEngine();
    first.reset();
    context.SocketHandle = 8;
    host->openSockets = {8};
    host->journal.Clear();
    second.reset();
    EXPECT_THAT(host->journal.Effects(),
                ElementsAre(L"DeviceList.SocketIsOpen(8)", L"DeviceList.CloseSocket(8)"));
    EXPECT_THAT(host->journal.LinesOf(L"SerialPort"), IsEmpty());
}

TEST_F(Lifetime, OnlyTheLastEndDropsDisplayAndCommentForm) {
    auto first = MakeEngine();
    auto second = MakeEngine();
    context.CommentForm = std::make_shared<FakeCommentForm>();
    const std::weak_ptr<IStatusDisplay> display = context.StatusDisplay;
    const std::weak_ptr<ICommentForm> form = context.CommentForm;
    first.reset();
    EXPECT_EQ(context.InstanceCount, 1);
    EXPECT_TRUE(context.ModuleInitialised);
    EXPECT_FALSE(display.expired() || form.expired());
    second.reset();
    EXPECT_EQ(context.InstanceCount, 0);
    EXPECT_FALSE(context.ModuleInitialised);
    EXPECT_TRUE(display.expired() && form.expired());
}

TEST_F(Lifetime, ACountThatFellBelowOneIsZeroAgain) {
    auto engine = MakeEngine();
    context.InstanceCount = 0;
    engine.reset();
    EXPECT_EQ(context.InstanceCount, 0);
    EXPECT_FALSE(context.ModuleInitialised);
}

TEST_F(Lifetime, TheNextFirstObjectInitialisesAgainWithTheServicesThatStayed) {
    MakeEngine().reset();
    context.DeviceSectionCounter = 250;
    host->texts[9410] = L"Wait";
    host->journal.Clear();
    const auto engine = MakeEngine();
    EXPECT_THAT(TakeLines(),
                ElementsAre(L"Factory.MakeStatusDisplay()", L"Language.Text(9410)",
                            L"Language.Text(9411)", L"Language.Text(9412)", L"Language.Text(9413)",
                            L"Language.Text(9414)", L"Factory.MakeSerialPort()"));
    EXPECT_EQ(context.ActionStatusTexts[0], L"Wait");
    EXPECT_EQ(context.DeviceSectionCounter, 100);
}

TEST_F(Lifetime, ObjectsGoInAnyOrder) {
    std::array<std::unique_ptr<aceActionsEngine>, 3> engines = {MakeEngine(), MakeEngine(),
                                                                MakeEngine()};
    engines[1].reset();
    engines[0].reset();
    EXPECT_EQ(context.InstanceCount, 1);
    EXPECT_EQ(ErrorOf([&] { engines[2]->StartTest(); }), 0);
    engines[2].reset();
    EXPECT_EQ(context.InstanceCount, 0);
}

TEST_F(Lifetime, TheEndLeavesEditorRequestAndTestAlone) {
    auto engine = MakeEngine();
    context.Editor = std::make_shared<FakeEditor>(*host);
    context.EutCheckRequest = acEutStopTest;
    context.TestRunning = true;
    engine.reset();
    EXPECT_NE(context.Editor, nullptr);
    EXPECT_EQ(context.EutCheckRequest, 128);
    EXPECT_TRUE(context.TestRunning);
    EXPECT_THAT(host->journal.LinesOf(L"Editor"), IsEmpty());
}

TEST_F(Lifetime, TheEndRaisesAndReportsNothingWhateverFails) {
    auto engine = MakeEngine();
    context.SocketHandle = 7;
    host->openSockets = {7};
    host->serialPortOpen = true;
    host->faults.FailCall(1, 57, sim::FaultScript::Until::ForEver);
    engine.reset();
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog"), IsEmpty());
    EXPECT_EQ(context.InstanceCount, 0);
    EXPECT_EQ(context.ComPortForm, nullptr);
}

}  // namespace
}  // namespace ace::test
