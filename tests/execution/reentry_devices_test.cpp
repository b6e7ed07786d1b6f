/// The host comes back into the engine from inside a device action. The working records are those
/// of the thread: the routine in progress goes on with what the inner action left there.
#include "support/device_moments.h"

namespace ace::test {
namespace {

class ReentryDevices : public DeviceMoments {
  protected:
    ReentryDevices() { context.UserDialogs(); }
    /// The host does `act` once, within the first call of `operation`.
    void Within(const String& operation, std::function<void()> act) {
        host->journal.Observe([this, operation, act = std::move(act)](const auto& entry) {
            if (entry.operation == operation && !std::exchange(done, true)) {
                act();
            }
        });
    }
    void TearDown() override {
        EngineTest::TearDown();
        EXPECT_TRUE(done);
    }
    /// A check whose wait is one round, and an inner action on another device.
    p_Action WaitingCheck() {
        p_Action action = OnDevice(atCheckEut, L"EUT", {&aceSetDevice::WaitState});
        RecordOf<aceSetDevice>(action).ChanNo = 1;
        return action;
    }
    aceSetDevice& Stored(std::int32_t index) {
        return RecordOf<aceSetDevice>(State().MainTest.Enter[index]);
    }

    std::shared_ptr<sim::SimMonitor> eut = Add<sim::SimMonitor>(L"EUT");
    std::shared_ptr<sim::SimMonitor> other = Add<sim::SimMonitor>(L"Other");
    bool done = false;
};

// ---- the working record is overwritten ---------------------------------------------------------

/// The inner set leaves its device, its channel 7 and no flag: the check reads on there, and its
/// element takes over the whole record.
TEST_F(ReentryDevices, ASetWithinTheWaitOfACheckGivesItAnotherDevice) {
    eut->readings[1] = {3.0, 3.0};
    Fill(State().MainTest, EnterList, {WaitingCheck()});
    Fill(State().MainTest, LeaveList, {OnDevice(atSetDevice, L"Other")});
    Within(L"Utilities.Wait", [&] { engine->StopTest(); });
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(host->journal.LinesOf(L"MonitorDevice.ReadChannel"),
              (Lines{ChannelRead(L"EUT", 1), ChannelRead(L"Other", 7)}));
    EXPECT_EQ(Stored(0).DevName, L"Other");
    EXPECT_EQ(Stored(0).MoniDev, other);
    EXPECT_EQ(Stored(0).LastCheck, 36001.0F);
    EXPECT_TRUE(context.TestRunning);
}

/// An inner amplifier action leaves no monitoring device to read: error 91, on the form.
TEST_F(ReentryDevices, AnAmplifierWithinTheWaitOfACheckLeavesItNothingToRead) {
    Add<sim::SimAmplifier>(L"Amp");
    eut->readings[1] = {3.0, 3.0};
    Fill(State().MainTest, EnterList, {WaitingCheck()});
    Fill(State().MainTest, LeaveList, {OnDevice(atSwitchAmp, L"Amp")});
    Within(L"Utilities.Wait", [&] { engine->StopTest(); });
    host->user.Expect(
        {L"frmGpibError",
         {sim::Press(L"cmdStopTest")},
         {{L"txtError", L"T(9322):\tAmp\r\nT(9320)\t91\r\n\tobject variable not set"}}});
    EXPECT_TRUE(engine->StartTest());
}

/// The outer check was to stop the test; the inner one leaves it parking instead.
TEST_F(ReentryDevices, ACheckWithinTheMessageOfACheckReplacesItsFlags) {
    eut->readings[7] = {3.0};
    other->readings[7] = {3.0};
    Fill(State().MainTest, EnterList,
         {OnDevice(atCheckEut, L"EUT", {&aceSetDevice::Notify, &aceSetDevice::StopTest})});
    Fill(State().MainTest, LeaveList,
         {OnDevice(atCheckEut, L"Other", {&aceSetDevice::LoadingPos})});
    comments->answers = {false};
    comments->onShow = [&] {
        done = true;
        EXPECT_FALSE(engine->StopTest());
    };
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeRequest(), 4);
    EXPECT_EQ(Stored(0).DevName, L"Other");
}

TEST_F(ReentryDevices, ATrackingWithinTheTimedMessageOfATrackingLeavesItsRecord) {
    Fill(State().MainTest, FreqList, {Follow(L"", L"EUT")});
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    Fill(State().MoniChannels[0], FreqList, {Follow(L"", L"Other")});
    host->onTimedMessage = [&] {
        if (!std::exchange(done, true)) {
            engine->Trigger(1, L"");
        }
    };
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(RecordOf<aceTrackFreq>(State().MainTest.Freq[0]).MoniDev, other);
}

/// The inner action asks too, for the test does not run yet. Its No stands: a Yes changes nothing.
TEST_F(ReentryDevices, AFrequencyWithinTheQuestionReachesTheGeneratorThatAsks) {
    const auto generator = Add<sim::SimRfGenerator>(L"Gen");
    Add<sim::SimCalTable>(L"Levels");
    Fill(State().MainTest, FreqList, {Follow(L"Gen", {}, true)});
    host->user.ExpectQuestion(false);  // of the frequency, which is asked within
    host->user.ExpectQuestion(true);
    Within(L"UserDialogs.ShowMessageBox", [&] { engine->NewFrequency(80e6, false); });
    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(context.GeneratorEnabled);
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{80e6, 0.0, false}));
    EXPECT_EQ(RecordOf<aceTrackFreq>(State().MainTest.Freq[0]).Freq, 80e6);
}

// ---- an error form within another --------------------------------------------------------------

TEST_F(ReentryDevices, AFailureWithinTheErrorFormHasAFormOfItsOwn) {
    Fill(State().MainTest, EnterList, {OnDevice(atSetDevice, L"gone")});
    Fill(State().MainTest, LeaveList, {OnDevice(atSetDevice, L"gone too")});
    host->user.Expect({L"frmGpibError",
                       {sim::Do([&](Form&) {
                            done = true;
                            Answer(L"cmdStopTest");
                            EXPECT_TRUE(engine->StopTest());
                        }),
                        sim::Press(L"cmdIgnoreAll")},
                       {}});
    EXPECT_FALSE(engine->StartTest());
    EXPECT_TRUE(State().MainTest.Enter[0].IgnoreErr);
    EXPECT_FALSE(State().MainTest.Leave[0].IgnoreErr);
    EXPECT_EQ(Stored(0).DevName, L"gone too");
}

// ---- whatever the host does --------------------------------------------------------------------

/// A place within a device action.
struct Place {
    const char* name;
    const wchar_t* operation;
};
void PrintTo(const Place& place, std::ostream* out) {
    *out << place.name;
}
const Place Places[] = {{"InTheWait", L"Utilities.Wait"},
                        {"InTheMessage", L"CommentForm.DisplayMessage"},
                        {"InTheErrorForm", L"FormHost.ShowModal"},
                        {"InTheBox", L"UserDialogs.ShowMessageBox"},
                        {"InTheTimedMessage", L"SystemServices.ShowTimedMessage"},
                        {"InALookUp", L"DeviceList.GetDevice"},
                        {"InAReading", L"MonitorDevice.ReadChannel"},
                        {"InAnActivation", L"Device.Activate"},
                        {"InLoadedSettings", L"Device.LoadSettings"},
                        {"InASwitch", L"SwitchUnit.SwitchPath"},
                        {"InAnAmplifier", L"Amplifier.SetState"},
                        {"InAGenerator", L"RfGenerator.Execute"}};

/// A test that comes by all of these places.
class ReentryPlaces : public ReentryDevices, public ::testing::WithParamInterface<Place> {
  protected:
    ReentryPlaces() {
        Add<sim::SimAmplifier>(L"Amp")->state = 0;
        Add<sim::SimSwitchUnit>(L"Unit");
        Add<sim::SimRfGenerator>(L"Gen");
        Add<sim::SimCalTable>(L"Levels");
        eut->readings[1] = {3.0};
        p_Action check = WaitingCheck();
        RecordOf<aceSetDevice>(check).Notify = true;
        Fill(State().MainTest, EnterList,
             {check, OnDevice(atSwitchAmp, L"Amp"), OnDevice(atSwitchUnit, L"Unit"),
              OnDevice(atSetDevice, L"gone")});
        Fill(State().MainTest, FreqList, {Follow(L"Gen", L"EUT", true)});
        comments->answers = {false};
        host->user.ExpectQuestion(true);
        Answer(L"cmdIgnore");
    }
    void At(std::function<void()> act) { Within(GetParam().operation, std::move(act)); }
};

INSTANTIATE_TEST_SUITE_P(Places, ReentryPlaces, ::testing::ValuesIn(Places),
                         [](const auto& row) { return row.param.name; });

TEST_P(ReentryPlaces, TheRunningListsAreHeld) {
    std::int32_t lists = -1;
    At([&] {
        lists = std::max(ErrorOf([&] { State().MainTest.Enter.Erase(); }),
                         ErrorOf([&] { State().MainTest.Freq.Erase(); }));
    });
    // The list that is not running may go; a walk that comes to it then fails.
    ErrorOf([&] { engine->StartTest(); });
    EXPECT_EQ(lists, 10);
    host->user.TakeComplaints();
    comments->answers.clear();
}

TEST_P(ReentryPlaces, AnObjectThatIsDroppedEndsItsTestInOrder) {
    const aceActionsEngine another(context);
    At([&] { engine.reset(); });
    EXPECT_FALSE(engine->StartTest());
    EXPECT_TRUE(context.TestRunning);
    EXPECT_EQ(host->journal.LinesOf(L"FormHost.ShowModal").size(), 1U);
}

/// What was in use lives on to the end of its call; later look-ups find nothing.
TEST_P(ReentryPlaces, TheLastObjectAndTheWholeBenchCanGoFromInside) {
    At([&] {
        engine.reset();
        host->bench.devices.clear();
        host->bench.tables.clear();
        eut.reset();
        other.reset();
    });
    EXPECT_EQ(ErrorOf([&] { engine->StartTest(); }), 0);
    EXPECT_TRUE(context.TestRunning);
    host->user.TakeComplaints();  // failures that nobody expected, if there were any
    comments->answers.clear();
}

/// The working record is the one thing that the inner test changes; the memory stays sound.
TEST_P(ReentryPlaces, TheSameTestFromInsideLeavesBothInOrder) {
    comments->answers = {false, false};
    host->user.ExpectQuestion(true);
    Answer(L"cmdIgnore");
    At([&] { engine->StartTest(); });
    EXPECT_EQ(ErrorOf([&] { engine->StartTest(); }), 0);
    EXPECT_FALSE(State().MainTest.Enter.IsHeld());
    EXPECT_FALSE(State().MainTest.Freq.IsHeld());
    host->user.TakeComplaints();
    comments->answers.clear();
}

TEST_P(ReentryPlaces, AnErrorOutOfTheHostsOwnCodeIsAFailureOfTheDevice) {
    At([] { throw RunTimeError(77, L"host"); });
    Answer(L"cmdIgnore");
    const std::int32_t error = ErrorOf([&] { engine->StartTest(); });
    // Out of the form itself there is no form left to show it; otherwise it is shown, and behind it
    // the device that is gone.
    const bool inForm = String(GetParam().operation) == L"FormHost.ShowModal";
    EXPECT_EQ(error, inForm ? 77 : 0);
    EXPECT_EQ(host->journal.LinesOf(L"FormHost.ShowModal").size(), inForm ? 1U : 2U);
    host->user.TakeComplaints();
    comments->answers.clear();
}

}  // namespace
}  // namespace ace::test
