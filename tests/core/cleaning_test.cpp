#include <iterator>
#include <string>
#include <vector>

#include <ace/core/cleaning.h>

#include "core/opaque_device.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

aceRemote Gpib(std::int32_t handle) {
    aceRemote record;
    record.Command = L"*RST";
    record.DrvHdl = handle;
    return record;
}

p_Action OpenGpib(std::int32_t handle) {
    return Action(atRemote, Gpib(handle));
}

class Cleaning : public HostTest {
  protected:
    /// The close calls of cleaning `actions` as a list.
    std::vector<String> Closes(const ListFields& list, const std::vector<p_Action>& actions) {
        p_Subrange lists;
        Fill(lists, list, actions);
        modActions::CleanSubrange(context, lists);
        return TakeEffects();
    }
};

// ---- which kinds in which list -----------------------------------------------------------------

struct KindRow {
    std::int32_t kind;
    std::string lists;  ///< of "ELFM": enter, leave, frequency, multi-level
};

const KindRow KindRows[] = {
    {atWait, ""},
    {atNotify, ""},
    {atRemote, "ELM"},
    {atSetDevice, "ELFM"},
    {atCheckEut, "ELFM"},
    {atTrackFreq, "F"},
    {atComment, ""},
    {atProtRec, ""},
    {atTestStop, ""},
    {atGotoSingle, ""},
    {atStopLevSweep, ""},
    {atNbBbEtsi, ""},
    {atSwitchAmp, "EL"},
    {atSwitchUnit, "ELFM"},
    {atAPI, ""},
    {atParkAcc, ""},
    {atQuestion, ""},
    {atMonitorEUT, "E"},
    {18, ""},
    {31, ""},
    {32, ""},
    {34, ""},
    {-1, ""},
    {2147483647, ""},
    {-2147483647 - 1, ""},
};

/// The record that a treated action of the kind is copied into; kinds that are never treated carry
/// one too, so that treating them would be seen.
ActionParameter MarkedRecord(std::int32_t kind) {
    aceRemote remote;
    remote.Command = L"mark";
    aceTrackFreq track;
    track.MoniName = L"mark";
    aceSetDevice device;
    device.DevName = L"mark";
    switch (kind) {
        case atRemote:
            return remote;
        case atTrackFreq:
            return track;
        default:
            return device;
    }
}

bool IsTreated(const ThreadContext& context) {
    const WorkingRecords& records = context.ReaderRecords;
    return records.Remote.Command == L"mark" || records.TrackFreq.MoniName == L"mark" ||
           records.SetDevice.DevName == L"mark";
}

class CleanedKind : public ::testing::TestWithParam<KindRow> {};

TEST_P(CleanedKind, IsTreatedInItsListsAlone) {
    const KindRow& row = GetParam();
    const std::string letters = "ELFM";
    for (std::size_t i = 0; i < letters.size(); ++i) {
        ThreadContext context;
        p_Subrange lists;
        Fill(lists, ActionLists[i],
             {Action(static_cast<p_ActionTypes>(row.kind), MarkedRecord(row.kind))});
        modActions::CleanSubrange(context, lists);
        EXPECT_EQ(IsTreated(context), row.lists.find(letters[i]) != std::string::npos)
            << "kind " << row.kind << " in list " << letters[i];
    }
}
INSTANTIATE_TEST_SUITE_P(Kinds, CleanedKind, ::testing::ValuesIn(KindRows));

TEST_F(Cleaning, LeavesTheFifthListAlone) {
    p_Subrange lists;
    lists.UtilCount = 1;
    lists.Util.Redim(0, 0);
    lists.Util[0] = OpenGpib(5);
    modActions::CleanSubrange(context, lists);
    EXPECT_THAT(host->journal.Lines(), IsEmpty());
}

// ---- bus devices -------------------------------------------------------------------------------

TEST_F(Cleaning, ClosesBusDevicesInTheOrderOfTheListsAndElements) {
    p_Subrange lists;
    Fill(lists, MlcList, {OpenGpib(5), OpenGpib(6)});
    Fill(lists, FreqList, {OpenGpib(4)});
    Fill(lists, LeaveList, {OpenGpib(3)});
    Fill(lists, EnterList, {OpenGpib(1), OpenGpib(2)});
    modActions::CleanSubrange(context, lists);
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"GpibDriver.CloseDevice(1, 0)", L"GpibDriver.CloseDevice(2, 0)",
                            L"GpibDriver.CloseDevice(3, 0)", L"GpibDriver.CloseDevice(5, 0)",
                            L"GpibDriver.CloseDevice(6, 0)"));
}

TEST_F(Cleaning, ARemoteActionOfTheFrequencyListKeepsItsBusDeviceOpen) {
    EXPECT_THAT(Closes(FreqList, {OpenGpib(4)}), IsEmpty());
}

TEST_F(Cleaning, ClosesOnlyABusDeviceThatIsOpen) {
    EXPECT_THAT(Closes(EnterList, {OpenGpib(-1), OpenGpib(-2), OpenGpib(0)}),
                ElementsAre(L"GpibDriver.CloseDevice(0, 0)"));
}

TEST_F(Cleaning, ClosesNothingOfTheOtherTransports) {
    for (const std::int32_t iface : {1, 2, 3, -1}) {
        aceRemote record = Gpib(5);
        record.Iface = iface;
        EXPECT_THAT(Closes(EnterList, {Action(atRemote, record)}), IsEmpty());
        EXPECT_EQ(context.ReaderRecords.Remote.DrvHdl, 5);
    }
}

TEST_F(Cleaning, AHandleBeyond16BitsClosesNothingAndIsNoError) {
    EXPECT_THAT(Closes(EnterList, {OpenGpib(32768), OpenGpib(32767)}),
                ElementsAre(L"GpibDriver.CloseDevice(32767, 0)"));
    EXPECT_THAT(Closes(EnterList, {OpenGpib(65541)}), IsEmpty());
    EXPECT_EQ(context.ReaderRecords.Remote.DrvHdl, -1);
}

TEST_F(Cleaning, AFailingCloseGoesOn) {
    host->faults.FailOperation(L"GpibDriver.CloseDevice", 1, 57);
    EXPECT_THAT(
        Closes(EnterList, {OpenGpib(1), OpenGpib(2)}),
        ElementsAre(L"GpibDriver.CloseDevice(1, 0) -> error 57", L"GpibDriver.CloseDevice(2, 0)"));
}

TEST_F(Cleaning, AFailingCloseEndsTheCopysHandleAllTheSame) {
    host->faults.FailOperation(L"GpibDriver.CloseDevice", 1, 57);
    Closes(EnterList, {OpenGpib(1)});
    EXPECT_EQ(context.ReaderRecords.Remote.DrvHdl, -1);
}

TEST_F(Cleaning, AnActionWithoutItsRecordGoesOn) {
    EXPECT_THAT(Closes(EnterList, {Action(atRemote), Action(atRemote, aceWait()),
                                   Action(atRemote, std::int32_t{5}), OpenGpib(2)}),
                ElementsAre(L"GpibDriver.CloseDevice(2, 0)"));
}

TEST_F(Cleaning, ACountBeyondTheArrayGoesOnWithTheNextList) {
    p_Subrange lists;
    Fill(lists, EnterList, {OpenGpib(1)});
    lists.EnterCount = 3;
    Fill(lists, LeaveList, {OpenGpib(2)});
    modActions::CleanSubrange(context, lists);
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"GpibDriver.CloseDevice(1, 0)", L"GpibDriver.CloseDevice(2, 0)"));
}

TEST_F(Cleaning, GoesByTheCountAndNotByTheBounds) {
    p_Subrange lists;
    Fill(lists, EnterList, {OpenGpib(1), OpenGpib(2)});
    lists.EnterCount = 1;
    modActions::CleanSubrange(context, lists);
    EXPECT_THAT(TakeEffects(), ElementsAre(L"GpibDriver.CloseDevice(1, 0)"));
}

// ---- copies and references ---------------------------------------------------------------------

TEST_F(Cleaning, ChangesNoElementOfTheList) {
    const OpaqueDevice device;
    aceSetDevice set;
    set.Device = device.As<IDevice>();
    p_Subrange lists;
    Fill(lists, EnterList, {OpenGpib(5), Action(atSetDevice, set)});
    const p_Subrange before = lists;
    modActions::CleanSubrange(context, lists);
    EXPECT_EQ(lists, before);
}

TEST_F(Cleaning, TheCopyOfARemoteActionGoesIntoTheReadersRecord) {
    aceRemote record = Gpib(5);
    record.Program = L"c:\\run.exe";
    Closes(EnterList, {Action(atRemote, record)});
    record.DrvHdl = -1;
    EXPECT_EQ(context.ReaderRecords.Remote, record);
    EXPECT_EQ(context.DispatcherRecords.Remote, aceRemote());
}

TEST_F(Cleaning, TheCopyOfADeviceActionGoesIntoTheReadersRecordWithoutReferences) {
    const OpaqueDevice device;
    aceSetDevice record;
    record.DevName = L"EUT";
    record.ChanNo = 104;
    record.LastCheck = 12.5F;
    const aceSetDevice withoutReferences = record;
    record.Device = device.As<IDevice>();
    record.MoniDev = device.As<IMonitorDevice>();
    record.BcGen = device.As<IBcGenerator>();
    record.AmplDev = device.As<IAmplifier>();
    record.SwitchDev = device.As<ISwitchUnit>();
    record.SigPath = device.As<ISignalPath>();
    Closes(EnterList, {Action(atSetDevice, std::move(record))});
    EXPECT_EQ(context.ReaderRecords.SetDevice, withoutReferences);
    EXPECT_EQ(device.References(), 0);
}

TEST_F(Cleaning, TheCopyOfATrackingActionGoesIntoTheReadersRecordWithoutReferences) {
    const OpaqueDevice device;
    aceTrackFreq record;
    record.GenName = L"SMB";
    record.DelayTime = 50;
    record.Freq = 30e6;
    const aceTrackFreq withoutReferences = record;
    record.MoniDev = device.As<IMonitorDevice>();
    record.GenDev = device.As<IRfGenerator>();
    record.SigPath = device.As<ISignalPath>();
    record.CalTable = device.As<ICalTable>();
    Closes(FreqList, {Action(atTrackFreq, std::move(record))});
    EXPECT_EQ(context.ReaderRecords.TrackFreq, withoutReferences);
    EXPECT_EQ(device.References(), 0);
}

// ---- the lists of each module ------------------------------------------------------------------

/// Handles of the four lists of a set: `base` + 1 to `base` + 4.
p_Subrange OpenLists(std::int32_t base) {
    p_Subrange lists;
    for (std::int32_t i = 0; i < 4; ++i) {
        Fill(lists, ActionLists[i], {OpenGpib(base + i + 1)});
    }
    return lists;
}

/// Two sets in use and a spare one behind them.
void OpenNumbered(DynArray<p_Subrange>& lists, std::int32_t& count, std::int32_t base) {
    lists.Redim(0, 2);
    for (std::int32_t i = 0; i <= 2; ++i) {
        lists[i] = OpenLists(base + 10 * i);
    }
    count = 2;
}

void OpenEverything(EngineState& state) {
    state.MainTest = OpenLists(100);
    state.MoniEut = OpenLists(200);
    state.MoniLoop = OpenLists(300);
    state.EMSAutoGeneral = OpenLists(400);
    state.EMIAutoTest = OpenLists(500);
    state.TSTest = OpenLists(600);
    state.AziChart = OpenLists(700);
    state.VKSDUTGlob = OpenLists(800);
    state.VKSTemplate = OpenLists(900);
    OpenNumbered(state.MainSubranges, state.MainSubrangeCount, 1000);
    OpenNumbered(state.MoniChannels, state.MoniChannelCount, 2000);
    OpenNumbered(state.EMSAutoSteps, state.EMSAutoStepCount, 3000);
    OpenNumbered(state.EMIAutoSteps, state.EMIAutoStepCount, 4000);
    OpenNumbered(state.TSTests, state.TSTestCount, 5000);
    OpenNumbered(state.VKSTests, state.VKSTestCount, 6000);
    OpenNumbered(state.VKSSteps, state.VKSStepCount, 7000);
}

struct ModuleBases {
    std::int32_t moduleKind;
    std::vector<std::int32_t> bases;  ///< of the sets that are cleaned, in order
};

const ModuleBases CleanedModules[] = {
    {aceTemplate, {100, 1000, 1010}},
    {aceMonitoring, {200, 300, 2000, 2010}},
    {aceEMSAutoTemplateGeneral, {400}},
    {aceEMSAutoTemplate, {3000, 3010}},
    {aceEMIAutoTemplate, {500, 4000, 4010}},
    {aceTSTemplate, {600, 5000, 5010}},
    {aceAziChart, {700}},
    {aceVKSTemplate, {900, 6000, 6010, 7000, 7010}},
    {aceVKSDUT, {800, 7000, 7010}},
    {9, {}},
    {-1, {}},
};

class CleanedModule : public Cleaning, public ::testing::WithParamInterface<ModuleBases> {};

TEST_P(CleanedModule, HasItsOwnListsCleanedInOrder) {
    EngineState state(context);
    OpenEverything(state);
    state.Modul = static_cast<aceModul>(GetParam().moduleKind);
    CleanLists(state);
    std::vector<String> expected;
    for (const std::int32_t base : GetParam().bases) {
        for (const std::int32_t list : {1, 2, 4}) {
            expected.push_back(L"GpibDriver.CloseDevice(" + std::to_wstring(base + list) + L", 0)");
        }
    }
    EXPECT_EQ(TakeEffects(), expected);
}
INSTANTIATE_TEST_SUITE_P(Modules, CleanedModule, ::testing::ValuesIn(CleanedModules));

TEST_F(Cleaning, OfAFreshObjectDoesNothing) {
    for (std::int32_t moduleKind = 0; moduleKind < 9; ++moduleKind) {
        EngineState state(context);
        state.Modul = static_cast<aceModul>(moduleKind);
        CleanLists(state);
    }
    EXPECT_THAT(host->journal.Lines(), IsEmpty());
}

TEST_F(Cleaning, ANumberedArrayThatIsGoneGoesOnWithTheNextLists) {
    EngineState state(context);
    OpenEverything(state);
    state.Modul = aceVKSTemplate;
    state.VKSTemplate = p_Subrange();
    state.VKSTests.Erase();
    state.VKSStepCount = 1;
    CleanLists(state);
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"GpibDriver.CloseDevice(7001, 0)", L"GpibDriver.CloseDevice(7002, 0)",
                            L"GpibDriver.CloseDevice(7004, 0)"));
}

}  // namespace
}  // namespace ace::test
