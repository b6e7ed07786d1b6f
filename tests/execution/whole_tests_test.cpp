#include "support/whole_test.h"

namespace ace::test {
namespace {

const String Beeped = L"Platform.Beep()";
const Lines Pause = {StandbyOn, Yielded, RadiationOn, Yielded};

String Compared(const String& frequency, const String& last) {
    return L"Utilities.IsEqual(" + frequency + L", " + last + L")";
}
String Ranked(std::int32_t signal, std::int32_t code) {
    return L"Utilities.Max(" + std::to_wstring(signal) + L", [" + std::to_wstring(code) + L"])";
}

class WholeTests : public WholeTest {};

// ---- single test --------------------------------------------------------------------------------

constexpr StringView TemplateFile =
    LR"([ActionsOnTest]
NumOfEnterActions=2
EnterAction1=NOTIFY:Door closed,,1
EnterAction2=WAIT:1.000
NumOfLeaveActions=1
LeaveAction1=MSG:Open the door
NumOfFreqActions=2
FrequAction1=MSG:never shown here
FrequAction2=WAIT:2.000
[ActionsOnSR1]
NumOfEnterActions=1
EnterAction1=WAIT:3.000
NumOfLeaveActions=1
LeaveAction1=WAIT:4.000
[ActionsOnSR2]
NumOfEnterActions=2
EnterAction1=STOP:
EnterAction2=WAIT:5.000
)";

TEST_F(WholeTests, Template) {
    Load(aceTemplate, 2, TemplateFile);
    OperatorGoesOn();
    OperatorGoesOn();

    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Beeped, Notified(L"Door closed"), Yielded, Waited(1),
                                     Yielded, Yielded));
    EXPECT_FALSE(engine->EnterSubrange(1));
    EXPECT_FALSE(engine->NewFrequency(80e6, false));
    EXPECT_FALSE(engine->NewFrequency(80e6, false));
    EXPECT_FALSE(engine->NewFrequency(80.8e6, false));
    EXPECT_FALSE(engine->LeaveSubrange(1));
    const Lines frequency = Journal(Yielded, Yielded, Waited(2));
    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 1), Yielded, Waited(3), Compared(L"80000000", L"-1"), frequency,
                      Compared(L"80000000", L"80000000"), Compared(L"80800000", L"80000000"),
                      frequency, InRange(0, 0, 1), Yielded, Waited(4)));
    EXPECT_TRUE(engine->EnterSubrange(2));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 1, 1), Yielded, Yielded, Beeped, Notified(L"Open the door")));
    EXPECT_FALSE(context.TestRunning);
}

// ---- monitoring ---------------------------------------------------------------------------------

constexpr StringView MonitoringFile =
    LR"([ActionsOnEutMon]
NumOfEnterActions=1
EnterAction1=WAIT:1.000
NumOfLeaveActions=1
LeaveAction1=WAIT:2.000
NumOfFreqActions=1
FrequAction1=WAIT:3.000
NumOfMlcActions=1
MLLeaAction1=WAIT:4.000
[ActionsOnMonTestLoop]
NumOfEnterActions=1
EnterAction1=WAIT:5.000
NumOfLeaveActions=1
LeaveAction1=WAIT:6.000
[ActionsOnChannel1]
NumOfEnterActions=3
EnterAction1=COMMENT:1
EnterAction2=GOTOSGL:
EnterAction3=WAIT:7.000
NumOfLeaveActions=1
LeaveAction1=MSG:Lamp is on again
NumOfFreqActions=1
FrequAction1=WAIT:8.000
)";

TEST_F(WholeTests, Monitoring) {
    Load(aceMonitoring, 1, MonitoringFile);

    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(engine->BeforeTestLoop());
    EXPECT_FALSE(engine->NewFrequency(150e3, false));
    EXPECT_FALSE(engine->AfterStep(1));
    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, Waited(1), Yielded, Waited(5), Compared(L"150000", L"-1"), Yielded,
                      Waited(3), Yielded, Waited(4)));
    OperatorStops();
    EXPECT_EQ(engine->Trigger(1, L"Lamp"), 0);
    EXPECT_EQ(engine->GetNoGo(1), 4);
    EXPECT_EQ(engine->EnterNoGo(1, L"Lamp"), 4);
    EXPECT_EQ(engine->Go(1, L"Lamp"), 5);
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(8), Ranked(2, 0), Yielded, Ranked(2, 0),
                                     Yielded, Ranked(4, 2), Yielded, Waited(7), Yielded,
                                     Notified(L"Lamp is on again"), Ranked(5, 0)));
    EXPECT_FALSE(engine->AfterTestLoop());
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(6), Yielded, Waited(2)));
}

// ---- automatic susceptibility test --------------------------------------------------------------

constexpr StringView GeneralFile =
    LR"([ActionsOnEMSAutoTest]
NumOfEnterActions=1
EnterAction1=QUESTION:Amplifiers warm?,,0
NumOfLeaveActions=2
LeaveAction1=PARKACC:
LeaveAction2=WAIT:1.000
NumOfFreqActions=1
FrequAction1=WAIT:2.000
)";

TEST_F(WholeTests, SusceptibilityGeneral) {
    Load(aceEMSAutoTemplateGeneral, 0, GeneralFile);
    OperatorStops();
    Value comment;

    EXPECT_TRUE(engine->StartTest());
    EXPECT_TRUE(context.TestRunning);
    EXPECT_FALSE(engine->NewFrequency(80e6, false));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);

    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, Questioned(L"Amplifiers warm?"), Compared(L"80000000", L"-1"),
                      Yielded, Waited(2), Yielded, Yielded, Waited(1)));
}

constexpr StringView StepsFile =
    LR"([ActionsOnStep1]
NumOfEnterActions=2
EnterAction1=WAIT:1.000
EnterAction2=STOP:
[ActionsOnStep2]
NumOfEnterActions=1
EnterAction1=MSG:Turn the table
)";

TEST_F(WholeTests, SusceptibilitySteps) {
    Load(aceEMSAutoTemplate, 3, StepsFile);
    OperatorGoesOn();

    EXPECT_EQ(engine->StepNumber(), 3);
    EXPECT_EQ(engine->StepDescription(1), L"1: Wait time");
    EXPECT_EQ(engine->StepDescription(2), L"2: Turn the table");
    EXPECT_EQ(engine->StepDescription(3), L"Step 3: ---");
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(), Lines{});
    EXPECT_TRUE(engine->EnterStep(1));
    EXPECT_FALSE(engine->EnterStep(2));
    EXPECT_FALSE(engine->EnterStep(3));
    EXPECT_FALSE(engine->EnterStep(4));
    EXPECT_FALSE(engine->StopTest());

    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 2), Yielded, Waited(1), Yielded, InRange(0, 1, 2), Yielded,
                      Notified(L"Turn the table"), InRange(0, 2, 2), InRange(0, 3, 2)));
}

// ---- automatic emission test --------------------------------------------------------------------

constexpr StringView EmissionFile =
    LR"([General]
SystemCheck=1
[ActionsOnEMIAutoTest]
NumOfEnterActions=2
EnterAction1=SOUND:
EnterAction2=WAIT:1.000
NumOfLeaveActions=2
LeaveAction1=WAIT:2.000
LeaveAction2=PARKACC:
NumOfFreqActions=1
FrequAction1=WAIT:3.000
[ActionsOnStep1]
NumOfEnterActions=1
EnterAction1=WAIT:4.000
NumOfLeaveActions=1
LeaveAction1=WAIT:5.000
)";

TEST_F(WholeTests, Emission) {
    Load(aceEMIAutoTemplate, 1, EmissionFile);
    EXPECT_TRUE(context.SystemCheck);
    Value comment;

    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Sounded(Beeped), Yielded, Waited(1)));
    EXPECT_FALSE(engine->BeforeStep(1));
    EXPECT_FALSE(engine->NewFrqCheckForAccLoading());
    EXPECT_FALSE(engine->NewFrequency(30e6, false));
    EXPECT_FALSE(engine->NewFrequency(30e6, true));
    EXPECT_FALSE(engine->AfterStep(1));
    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 0), Yielded, Waited(4), Compared(L"30000000", L"-1"), Yielded,
                      Waited(3), Compared(L"30000000", L"30000000"), Yielded, Waited(3),
                      InRange(0, 0, 0), Yielded, Waited(5)));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(2), Yielded));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
}

// ---- sequence and azimuth chart -----------------------------------------------------------------

constexpr StringView SequenceFile =
    LR"([ActionsOnTestSequence]
NumOfEnterActions=1
EnterAction1=WAIT:1.000
NumOfLeaveActions=2
LeaveAction1=PARKACC:
LeaveAction2=WAIT:2.000
[ActionsOnTest1]
NumOfEnterActions=1
EnterAction1=WAIT:3.000
[ActionsOnTest2]
NumOfLeaveActions=1
LeaveAction1=WAIT:4.000
)";

TEST_F(WholeTests, Sequence) {
    Load(aceTSTemplate, 2, SequenceFile);
    Value comment;

    EXPECT_EQ(engine->TestNumber(), 2);
    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(engine->BeforeTest(1));
    EXPECT_FALSE(engine->AfterTest(1));
    EXPECT_FALSE(engine->BeforeTest(2));
    EXPECT_FALSE(engine->AfterTest(2));
    EXPECT_FALSE(engine->StopTest());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), InRange(0, 0, 1), Yielded, Waited(3),
                                     InRange(0, 0, 1), InRange(0, 1, 1), InRange(0, 1, 1), Yielded,
                                     Waited(4), Yielded, Yielded, Waited(2)));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
}

constexpr StringView AzimuthFile =
    LR"([ActionsOnAzimuthChart]
NumOfEnterActions=1
EnterAction1=QUESTION:Table at zero?,,1
NumOfLeaveActions=1
LeaveAction1=PARKACC:
NumOfFreqActions=1
FrequAction1=WAIT:1.000
)";

TEST_F(WholeTests, AzimuthChart) {
    Load(aceAziChart, 0, AzimuthFile);
    OperatorGoesOn();
    Value comment;

    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(engine->NewFrequency(1e9, false));
    EXPECT_FALSE(engine->StopTest());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Beeped, Questioned(L"Table at zero?"),
                                     Compared(L"1000000000", L"-1"), Yielded, Waited(1), Yielded));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
}

// ---- wireless -----------------------------------------------------------------------------------

constexpr StringView WirelessFile =
    LR"([ActionsOnVKSTemplate]
NumOfEnterActions=1
EnterAction1=WAIT:1.000
NumOfLeaveActions=1
LeaveAction1=SOUND:
)";

TEST_F(WholeTests, WirelessTemplate) {
    Load(aceVKSTemplate, 0, WirelessFile);

    EXPECT_FALSE(engine->StartTest());
    EXPECT_TRUE(context.TestRunning);
    EXPECT_FALSE(engine->StopTest());
    EXPECT_FALSE(context.TestRunning);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Beeped, Pause));
}

TEST_F(WholeTests, WirelessMatrix) {
    Load(aceVKSDUT, 3,
         LR"([ActionsOnVKSDUTGlob]
NumOfEnterActions=1
EnterAction1=WAIT:1.000
)");

    EXPECT_FALSE(engine->StartTest());
    EXPECT_TRUE(context.TestRunning);
    EXPECT_FALSE(engine->NewFrequency(2402e6, false));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_FALSE(context.TestRunning);

    EXPECT_EQ(TakeEffects(), Journal(Compared(L"2402000000", L"-1")));
}

}  // namespace
}  // namespace ace::test
