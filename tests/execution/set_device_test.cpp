#include <ace/execution/device_actions.h>

#include "support/device_fixture.h"

namespace ace::test {
namespace {

using sim::Press;

const String Section = L"Actions250-Device";

class SetDevice : public DeviceTest {
  protected:
    SetDevice() {
        record.DevName = L"EUT";
        record.ChanNo = 250;
        host->files[L"setup.ini"][Section] = {L"Gain=3"};
    }
    Boolean Set(std::int32_t moduleKind = aceTemplate) {
        return modActions::SetCheckDevice(context, record, true, ignoreAll, moduleKind);
    }
    /// The calls of a set monitoring device that is on.
    static Lines MonitorSet(bool isFirst) {
        return Journal(Prepared(L"EUT", 250, 2, isFirst),
                       Called(L"MonitorDevice.SetChannel", L"EUT", 250, 1), StateOf(L"EUT"));
    }
    /// The calls of a set broadcast generator between its class and its end.
    static Lines BroadcastSet(bool hasPath) {
        return Journal(Called(L"BcGenerator.SetSignalPath", L"EUT", hasPath),
                       Loaded(L"EUT", Section), Called(L"BcGenerator.Apply", L"EUT"));
    }

    aceSetDevice record;
};

// ---- monitoring device -------------------------------------------------------------------------

TEST_F(SetDevice, AMonitoringDeviceGetsItsSettingsOntoTheChannel) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), MonitorSet(true));
    EXPECT_EQ(monitor->settings, Lines{L"Gain=3"});
    EXPECT_EQ(monitor->channelsSet, std::set<std::int32_t>{250});
}

TEST_F(SetDevice, TheDeviceStaysInTheRecordAndIsNotLookedUpAgain) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    Set();
    TakeCalls();
    EXPECT_EQ(record.Device, monitor);
    EXPECT_EQ(record.MoniDev, monitor);
    EXPECT_EQ(record.BcGen, nullptr);
    record.DevName = L"another name";
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), MonitorSet(false));
}

TEST_F(SetDevice, ASetLeavesTheTimeOfTheLastCheckAndTheRequestsAlone) {
    Add<sim::SimMonitor>(L"EUT");
    record.LastCheck = 17.0F;
    record.UseTimeCyc = record.StopTest = record.LoadingPos = record.CommToTable = true;
    record.CycleTime = 86400.0;
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), MonitorSet(true));
    EXPECT_EQ(record.LastCheck, 17.0F);
    EXPECT_EQ(context.EutCheckRequest, 0);
    EXPECT_EQ(context.EutCheckComment, L"");
}

TEST_F(SetDevice, AMonitoringDeviceThatStaysInactiveFailsOnlyBehindItsChannel) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    monitor->state = monitor->stateOnceActivated = 0;
    ExpectError(L"cmdStopTest", L"T(9321)", L"EUT", 4010, L"T(3350)");
    EXPECT_TRUE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), Woken(L"EUT"), Classed(L"EUT", 1),
                                   UsedFor(L"EUT", 2), Loaded(L"EUT", Section),
                                   Called(L"MonitorDevice.SetChannel", L"EUT", 250, 1),
                                   StateOf(L"EUT"), StateOf(L"EUT"), ErrorShown()));
}

/// The second question finds the device on.
TEST_F(SetDevice, AStateOf0BehindTheChannelIsAskedOnceMore) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    std::size_t states = 0;
    host->journal.Observe([&](const sim::HostCall& call) {
        if (call.operation == L"Device.State") {
            monitor->state = ++states == 2 ? 0 : 1;
        }
    });
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(MonitorSet(true), StateOf(L"EUT")));
}

TEST_F(SetDevice, AnInactiveDeviceIsActivatedAndThenSet) {
    Add<sim::SimMonitor>(L"EUT")->state = 0;
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Opened(), Found(L"EUT"), Woken(L"EUT"), Classed(L"EUT", 1),
                      UsedFor(L"EUT", 2), Loaded(L"EUT", Section),
                      Called(L"MonitorDevice.SetChannel", L"EUT", 250, 1), StateOf(L"EUT")));
}

// ---- broadcast generator -----------------------------------------------------------------------

TEST_F(SetDevice, ABroadcastGeneratorWithoutAPathGetsNoneAndItsSettingsAreApplied) {
    const auto generator = Add<sim::SimBcGenerator>(L"EUT");
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), StateOf(L"EUT"), Classed(L"EUT", 2),
                                   BroadcastSet(false)));
    EXPECT_EQ(generator->applied, Lines{L"Gain=3"});
    EXPECT_EQ(record.BcGen, generator);
    EXPECT_EQ(record.MoniDev, nullptr);
}

TEST_F(SetDevice, AGeneratorsPathIsLookedUpAndPreparedOnceAndKept) {
    const auto generator = Add<sim::SimBcGenerator>(L"EUT");
    const auto path = Add<sim::SimSignalPath>(L"Antenna");
    record.SigPathName = L"Antenna";
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), StateOf(L"EUT"), Classed(L"EUT", 2),
                                   Found(L"Antenna"), Called(L"SignalPath.Prepare", L"Antenna"),
                                   BroadcastSet(true)));
    EXPECT_EQ(generator->signalPath, path);
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Opened(), StateOf(L"EUT"), Classed(L"EUT", 2), BroadcastSet(true)));
}

TEST_F(SetDevice, APathThatIsNotFoundIsNoFailureAndIsLookedUpAgain) {
    Add<sim::SimBcGenerator>(L"EUT");
    record.SigPathName = L"nowhere";
    EXPECT_FALSE(Set());
    TakeCalls();
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), StateOf(L"EUT"), Classed(L"EUT", 2), Found(L"nowhere"),
                                   BroadcastSet(false)));
}

TEST_F(SetDevice, ABroadcastGeneratorThatStaysInactiveIsSetWithoutFurtherTest) {
    const auto generator = Add<sim::SimBcGenerator>(L"EUT");
    generator->state = generator->stateOnceActivated = 0;
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), Woken(L"EUT"), Classed(L"EUT", 2),
                                   BroadcastSet(false)));
}

// ---- the settings file -------------------------------------------------------------------------

struct FileRow {
    std::int32_t moduleKind;
    std::int32_t kind;
};
/// The file kinds differ from those of a load: monitoring opens the kind of a template.
constexpr FileRow FileKinds[] = {
    {aceTemplate, 20},        {aceMonitoring, 20},      {aceEMSAutoTemplateGeneral, 26},
    {aceEMSAutoTemplate, 26}, {aceEMIAutoTemplate, 24}, {aceTSTemplate, 29},
    {aceAziChart, 37},        {aceVKSTemplate, 301},    {aceVKSDUT, 302}};

TEST_F(SetDevice, TheFileOfTheToldModuleIsOpenedEachTime) {
    Add<sim::SimMonitor>(L"EUT");
    for (const FileRow& row : FileKinds) {
        EXPECT_FALSE(Set(row.moduleKind));
        EXPECT_EQ(TakeCalls().front(), Opened(row.kind)) << row.moduleKind;
    }
}

TEST_F(SetDevice, WithoutASettingsFileTheDeviceIsToldSo) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    host->missingFiles = {L"setup.ini"};
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Opened(), Found(L"EUT"), StateOf(L"EUT"), Classed(L"EUT", 1),
                      UsedFor(L"EUT", 2), Called(L"Device.LoadSettings", L"EUT", false, Section),
                      Called(L"MonitorDevice.SetChannel", L"EUT", 250, 1), StateOf(L"EUT")));
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(SetDevice, ADeviceOutsideTheListIsShownWithNumber0AndNoText) {
    for (const wchar_t* button : {L"cmdIgnore", L"cmdStopTest"}) {
        ExpectError(button, L"T(9321)", L"EUT", 0, L"");
        EXPECT_EQ(Set(), button == String(L"cmdStopTest"));
        EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), ErrorShown()));
        EXPECT_FALSE(ignoreAll);
    }
}

TEST_F(SetDevice, ADeviceOfNoUseIsShownWithNumber0AndNoText) {
    Add<sim::SimAmplifier>(L"EUT");
    ExpectError(L"cmdStopTest", L"T(9321)", L"EUT", 0, L"");
    EXPECT_TRUE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Opened(), Found(L"EUT"), StateOf(L"EUT"), Classed(L"EUT", 4), ErrorShown()));
}

/// A device of the generators' class that can't be used as one.
class FalseGenerator : public sim::SimDevice {
  public:
    FalseGenerator(sim::SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), sim::SimClass::BcGenerators) {}
};

TEST_F(SetDevice, AGeneratorByClassAloneIsShownWithNumber0AndNoText) {
    Add<FalseGenerator>(L"EUT");
    ExpectError(L"cmdStopTest", L"T(9321)", L"EUT", 0, L"");
    EXPECT_TRUE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Opened(), Found(L"EUT"), StateOf(L"EUT"), Classed(L"EUT", 2), ErrorShown()));
}

TEST_F(SetDevice, IgnoreAllIsHandedBackAndSilencesTheNextFailure) {
    ExpectError(L"cmdIgnoreAll", L"T(9321)", L"EUT", 0, L"");
    EXPECT_FALSE(Set());
    EXPECT_TRUE(ignoreAll);
    TakeCalls();
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT")));
}

TEST_F(SetDevice, AFailureOfTheDeviceIsShownWithItsNumberAndText) {
    Add<sim::SimMonitor>(L"EUT");
    host->faults.FailOperation(L"MonitorDevice.SetChannel", 1, 77);
    ExpectError(L"cmdStopTest", L"T(9321)", L"EUT", 77, L"scripted failure");
    EXPECT_TRUE(Set());
}

TEST_F(SetDevice, AnAbortByOperatorOrHostStopsWithoutADialogAlsoWhenSilenced) {
    Add<sim::SimMonitor>(L"EUT");
    for (const std::int32_t error : {8202, 4202}) {
        for (const bool isSilenced : {false, true}) {
            ignoreAll = isSilenced;
            host->faults.FailOperation(L"Device.LoadSettings", 1, error);
            EXPECT_TRUE(Set());
            EXPECT_EQ(ignoreAll, isSilenced);
            host->faults.Clear();
            EXPECT_THAT(TakeCalls(), ::testing::Not(::testing::Contains(ErrorShown())));
        }
    }
}

// ---- trace lines -------------------------------------------------------------------------------

const String Started = Start(L"modActions (Code)", L"SetCheckDevice", L"");

/// The missing end of the normal way is how the routine traces itself.
TEST_F(SetDevice, ASetThatGoesThroughIsTracedByItsStartAlone) {
    Add<sim::SimMonitor>(L"EUT");
    host->tracing = true;
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Started, MonitorSet(true)));
}

TEST_F(SetDevice, AFailureIsTracedAtBothEndsTheDialogBetweenThem) {
    host->tracing = true;
    ExpectError(L"cmdIgnore", L"T(9321)", L"EUT", 0, L"");
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Started, Opened(), Found(L"EUT"), ErrorShown(), End(L"SetCheckDevice")));
}

TEST_F(SetDevice, AnAbortIsTracedAtBothEnds) {
    host->tracing = true;
    host->faults.FailOperation(L"DeviceList.GetDevice", 1, 8202);
    EXPECT_TRUE(Set());
    EXPECT_EQ(TakeCalls(),
              Journal(Started, Opened(), Failed(Found(L"EUT"), 8202), End(L"SetCheckDevice")));
}

TEST_F(SetDevice, ASilencedFailureIsTracedAtBothEnds) {
    host->tracing = true;
    ignoreAll = true;
    EXPECT_FALSE(Set());
    EXPECT_EQ(TakeCalls(), Journal(Started, Opened(), Found(L"EUT"), End(L"SetCheckDevice")));
}

}  // namespace
}  // namespace ace::test
