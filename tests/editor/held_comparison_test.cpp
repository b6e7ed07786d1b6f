#include <ace/core/action_kinds.h>

#include "editor/editor_fixture.h"
#include "support/every_kind.h"

namespace ace::test {
namespace {

/// One change in the dialog, and whether it counts as one.
struct ChangeRow {
    std::string name;
    p_Action entry;  ///< the action as it stands in the list
    std::function<void(EditorParts& parts)> change;
    bool counts;
};
void PrintTo(const ChangeRow& row, std::ostream* out) {
    *out << row.name;
}

constexpr bool Counts = true;
constexpr bool IsDropped = false;

/// Sets a member of a working record.
template <auto Record, class Member, class Given>
auto Set(Member member, Given value) {
    return [member, value](EditorParts& parts) { (parts.held.Records.*Record).*member = value; };
}
using R = WorkingRecords;

template <class Given, class Member>
ChangeRow Notify(std::string name, const p_Action& entry, Member member, Given value, bool counts) {
    return {std::move(name), entry, Set<&R::Notify>(member, value), counts};
}
template <class Given, class Member>
ChangeRow Remote(std::string name, const p_Action& entry, Member member, Given value, bool counts) {
    return {std::move(name), entry, Set<&R::Remote>(member, value), counts};
}
template <class Given, class Member>
ChangeRow Track(std::string name, Member member, Given value, bool counts);

aceVKSVar Variables() {
    aceVKSVar variables;
    variables.count = 1;
    return variables;
}

// ---- waits and messages ------------------------------------------------------------------------

p_Action Message(p_ActionTypes kind) {
    aceNotify record;
    record.Message = L"Close the door";
    record.WaveFile = L"c:\\gong.wav";
    return Action(kind, record);
}

std::vector<ChangeRow> MessageRows(p_ActionTypes kind, const std::string& name) {
    using N = aceNotify;
    const p_Action entry = Message(kind);
    const bool isComment = kind == atComment;
    return {
        Notify(name + "Beep", entry, &N::Beep, true, Counts),
        Notify(name + "Sound", entry, &N::WaveFile, L"c:\\bell.wav", Counts),
        Notify(name + "NoSound", entry, &N::WaveFile, L"", Counts),
        Notify(name + "CaseOfTheSound", entry, &N::WaveFile, L"C:\\GONG.wav", IsDropped),
        Notify(name + "Message", entry, &N::Message, L"Open the door", !isComment),
        Notify(name + "CaseOfTheMessage", entry, &N::Message, L"CLOSE the door", IsDropped),
        Notify(name + "Generator", entry, &N::GeneratorOff, true, isComment),
        Notify(name + "Variables", entry, &N::vks, Variables(), IsDropped),
    };
}

std::vector<ChangeRow> WaitRows() {
    const p_Action entry = WaitFor(1500);
    return {
        {"WaitTime", entry, Set<&R::Wait>(&aceWait::Time, 1501.0), Counts},
        {"WaitSameTime", entry, Set<&R::Wait>(&aceWait::Time, 1500.0), IsDropped},
        {"WaitOtherRecordsOfTheDialog", entry, Set<&R::Notify>(&aceNotify::Message, L"x"),
         IsDropped},
        {"WaitParameterThatIsNotTheWorkingRecord", entry,
         [](EditorParts& parts) { parts.held.Action.Parameter = aceWait{9.0}; }, IsDropped},
        {"WaitLatch", entry, [](EditorParts& parts) { parts.held.Action.IgnoreErr = true; },
         IsDropped},
        {"WaitDeviceSettings", entry,
         [](EditorParts& parts) { parts.DeviceSettingsChanged = true; }, IsDropped},
    };
}

// ---- commands ----------------------------------------------------------------------------------

p_Action Sent(std::int32_t iface, const String& command = L"*RST") {
    aceRemote record;
    record.Command = command;
    record.Iface = iface;
    record.GpibAddress = 120;
    record.SerComPort = 2;
    record.TcpHost = L"gen";
    record.TcpPort = 5025;
    record.Terminator = 1;
    record.Program = L"exerciser";
    return Action(atRemote, record);
}

/// The address of a way counts only for that way, and its end only with a command.
std::vector<ChangeRow> WayRows(const std::string& name, std::int32_t iface, const String& command) {
    using M = aceRemote;
    const p_Action entry = Sent(iface, command);
    const bool isSent = !command.empty();
    return {
        Remote(name + "Way", entry, &M::Iface, iface + 1, Counts),
        Remote(name + "Gpib", entry, &M::GpibAddress, 121, isSent && iface == M::Gpib),
        Remote(name + "Port", entry, &M::SerComPort, 3, isSent && iface == M::Serial),
        Remote(name + "TcpPort", entry, &M::TcpPort, 5026, isSent && iface == M::TcpIp),
        Remote(name + "TcpHost", entry, &M::TcpHost, L"amp", isSent && iface == M::TcpIp),
        Remote(name + "CaseOfTheHost", entry, &M::TcpHost, L"GEN", IsDropped),
        Remote(name + "Terminator", entry, &M::Terminator, 2, isSent),
        Remote(name + "Command", entry, &M::Command, L"*CLS", Counts),
        Remote(name + "CaseOfTheCommand", entry, &M::Command, isSent ? L"*rst" : L"", IsDropped),
        Remote(name + "Program", entry, &M::Program, L"other", Counts),
        Remote(name + "NoProgram", entry, &M::Program, L"", Counts),
        Remote(name + "CaseOfTheProgram", entry, &M::Program, L"EXERCISER", IsDropped),
        Remote(name + "Sync", entry, &M::WaitPrgSync, true, Counts),
        Remote(name + "Handle", entry, &M::DrvHdl, 4, IsDropped),
        Remote(name + "Process", entry, &M::ProgID, 4.0, IsDropped),
        Remote(name + "Variables", entry, &M::vks, Variables(), IsDropped),
    };
}

ChangeRow CommandThatGoes() {
    return Remote("RemoteNoCommandAnyMore", Sent(aceRemote::Gpib), &aceRemote::Command, L"",
                  Counts);
}

// ---- tracking ----------------------------------------------------------------------------------

template <class Given, class Member>
ChangeRow Track(std::string name, Member member, Given value, bool counts) {
    p_Action entry = Follow(L"Generator", L"Monitor");
    std::get<aceTrackFreq>(entry.Parameter).SigPathName = L"Path";
    return {"Track" + std::move(name), entry, Set<&R::TrackFreq>(member, value), counts};
}

std::vector<ChangeRow> TrackRows() {
    using T = aceTrackFreq;
    return {
        Track("Generator", &T::GenName, L"Other", Counts),
        Track("CaseOfTheGenerator", &T::GenName, L"GENERATOR", Counts),
        Track("Path", &T::SigPathName, L"Other", Counts),
        Track("CaseOfThePath", &T::SigPathName, L"PATH", Counts),
        Track("Table", &T::TableName, L"Other", Counts),
        Track("CaseOfTheTable", &T::TableName, L"LEVELS", Counts),
        Track("Question", &T::AskOnMeasStart, true, Counts),
        Track("Monitor", &T::MoniName, L"Other", Counts),
        Track("CaseOfTheMonitor", &T::MoniName, L"MONITOR", Counts),
        Track("Delay", &T::DelayTime, 5, IsDropped),
        Track("TypeOfTheTable", &T::TableType, 5, IsDropped),
        Track("ClassOfTheTable", &T::TableMeasClass, 5, IsDropped),
        Track("Frequency", &T::Freq, 30e6, IsDropped),
    };
}

// ---- macros ------------------------------------------------------------------------------------

/// Parameters from 1 on; none has the bounds 0 to 0.
DynArray<String> Parameters(const Lines& texts) {
    DynArray<String> parameters;
    parameters.Redim(texts.empty() ? 0 : 1, static_cast<std::int32_t>(texts.size()));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        parameters[static_cast<std::int32_t>(i + 1)] = texts[i];
    }
    return parameters;
}
p_Action MacroWith(const DynArray<String>& parameters) {
    aceAPI record;
    record.Program = L"log.mac";
    record.Parameters = parameters;
    return Action(atAPI, record);
}
template <class Given, class Member>
ChangeRow Api(std::string name, const DynArray<String>& parameters, Member member, Given value,
              bool counts) {
    return {"Macro" + std::move(name), MacroWith(parameters), Set<&R::Api>(member, value), counts};
}

std::vector<ChangeRow> MacroRows() {
    using A = aceAPI;
    const DynArray<String> two = Parameters({L"level", L"3"});
    const DynArray<String> none = Parameters({});
    const DynArray<String> unallocated;
    return {
        Api("Program", two, &A::Program, L"other.mac", Counts),
        Api("CaseOfTheProgram", two, &A::Program, L"LOG.MAC", IsDropped),
        Api("FirstParameter", two, &A::Parameters, Parameters({L"power", L"3"}), Counts),
        Api("SecondParameter", two, &A::Parameters, Parameters({L"level", L"4"}), Counts),
        Api("CaseOfAParameter", two, &A::Parameters, Parameters({L"LEVEL", L"3"}), IsDropped),
        Api("OneMore", two, &A::Parameters, Parameters({L"level", L"3", L""}), Counts),
        Api("OneLess", two, &A::Parameters, Parameters({L"level"}), Counts),
        Api("NoneAnyMore", two, &A::Parameters, none, IsDropped),
        Api("NoArrayAnyMore", two, &A::Parameters, unallocated, IsDropped),
        Api("TheFirst", none, &A::Parameters, Parameters({L"level"}), Counts),
        Api("TheFirstOfNoArray", unallocated, &A::Parameters, Parameters({L"level"}), Counts),
        Api("NoneOfNone", none, &A::Parameters, unallocated, IsDropped),
        Api("Frequency", two, &A::Freq, 30e6, IsDropped),
        Api("Variables", two, &A::vks, Variables(), IsDropped),
    };
}

// ---- devices -----------------------------------------------------------------------------------

template <class Given, class Member>
ChangeRow OfDevice(const std::string& name, p_ActionTypes kind, Member member, Given value,
                   bool counts) {
    return {name, OnDevice(kind, L"EUT"), Set<&R::SetDevice>(member, value), counts};
}

std::vector<ChangeRow> DeviceRows(p_ActionTypes kind, const std::string& name) {
    using D = aceSetDevice;
    const bool isCheck = kind == atCheckEut || kind == atMonitorEUT;
    const bool hasSettings = isCheck || kind == atSetDevice;
    return {
        OfDevice(name + "Name", kind, &D::DevName, L"Amplifier", Counts),
        OfDevice(name + "CaseOfTheName", kind, &D::DevName, L"eut", Counts),
        {name + "Settings", OnDevice(kind, L"EUT"),
         [](EditorParts& parts) { parts.DeviceSettingsChanged = true; }, hasSettings},
        OfDevice(name + "State", kind, &D::AmpState, 2, kind == atSwitchAmp),
        OfDevice(name + "Path", kind, &D::Path, L"A", kind == atSwitchUnit),
        OfDevice(name + "CommentToTable", kind, &D::CommToTable, true, isCheck),
        OfDevice(name + "Notify", kind, &D::Notify, true, isCheck),
        OfDevice(name + "Stop", kind, &D::StopTest, true, isCheck),
        OfDevice(name + "Wait", kind, &D::WaitState, true, isCheck),
        OfDevice(name + "WaitTime", kind, &D::WaitTime, 2.5F, isCheck),
        OfDevice(name + "LoadingPosition", kind, &D::LoadingPos, true, isCheck),
        OfDevice(name + "UseCycle", kind, &D::UseTimeCyc, true, isCheck),
        OfDevice(name + "Cycle", kind, &D::CycleTime, 60.0, isCheck),
        OfDevice(name + "Section", kind, &D::ChanNo, 8, IsDropped),
        OfDevice(name + "SignalPath", kind, &D::SigPathName, L"A", IsDropped),
        OfDevice(name + "LastCheck", kind, &D::LastCheck, 7.0F, IsDropped),
    };
}

// ---- kinds -------------------------------------------------------------------------------------

void DoNothing(EditorParts& /*parts*/) {}

std::vector<ChangeRow> KindRows() {
    std::vector<ChangeRow> rows;
    for (const p_ActionTypes kind :
         {atProtRec, atTestStop, atGotoSingle, atStopLevSweep, atNbBbEtsi, atParkAcc}) {
        const std::string name = "Kind" + std::to_string(kind);
        rows.push_back({name, Action(kind), DoNothing, IsDropped});
        rows.push_back({name + "Settings", Action(kind),
                        [](EditorParts& parts) { parts.DeviceSettingsChanged = true; }, IsDropped});
        rows.push_back({name + "WithARecord", Action(kind, aceWait{5.0}), DoNothing, IsDropped});
    }
    for (const std::int32_t kind : {18, 99, -1}) {
        rows.push_back({"Kind" + std::to_string(kind == -1 ? 1000 : kind),
                        Action(static_cast<p_ActionTypes>(kind)), DoNothing, Counts});
    }
    const auto becomes = [](p_ActionTypes kind) {
        return [kind](EditorParts& parts) { parts.held.Action.ActionType = kind; };
    };
    rows.push_back({"MessageBecomesAQuestion", Message(atNotify), becomes(atQuestion), Counts});
    rows.push_back({"RecordBecomesAStop", Action(atProtRec), becomes(atTestStop), Counts});
    rows.push_back(
        {"CheckBecomesAMonitor", OnDevice(atCheckEut, L"EUT"), becomes(atMonitorEUT), Counts});
    return rows;
}

std::vector<ChangeRow> ChangeRows() {
    std::vector<ChangeRow> rows;
    const auto add = [&rows](const std::vector<ChangeRow>& more) {
        rows.insert(rows.end(), more.begin(), more.end());
    };
    add(WaitRows());
    add(MessageRows(atNotify, "Notify"));
    add(MessageRows(atQuestion, "Question"));
    add(MessageRows(atComment, "Comment"));
    add(WayRows("Gpib", aceRemote::Gpib, L"*RST"));
    add(WayRows("Serial", aceRemote::Serial, L"*RST"));
    add(WayRows("Tcp", aceRemote::TcpIp, L"*RST"));
    add(WayRows("OtherWay", 7, L"*RST"));
    add(WayRows("NoCommand", aceRemote::Gpib, L""));
    add({CommandThatGoes()});
    add(TrackRows());
    add(MacroRows());
    add(DeviceRows(atSetDevice, "Set"));
    add(DeviceRows(atCheckEut, "Check"));
    add(DeviceRows(atMonitorEUT, "Monitor"));
    add(DeviceRows(atSwitchAmp, "Amplifier"));
    add(DeviceRows(atSwitchUnit, "Unit"));
    add(KindRows());
    return rows;
}

class HeldComparison : public EditorTest, public ::testing::WithParamInterface<ChangeRow> {};

TEST_P(HeldComparison, AChangeCountsAsTheTableSaysAndIsDroppedOtherwise) {
    const ChangeRow& row = GetParam();
    Fill(State().MainTest, EnterList, {row.entry});
    Open(aceTemplate);
    HoldNew(row.entry);
    row.change(Parts());
    p_Action& entry = Parts().lists.MainTest.Enter[0];
    ChangeAction(Parts(), entry);
    EXPECT_EQ(engine->Change(), row.counts);
    const p_Action expected = row.counts ? ActionFromRecords(Parts().held) : row.entry;
    EXPECT_EQ(entry, expected);
    EXPECT_EQ(State().MainTest.Enter[0], expected);
}
INSTANTIATE_TEST_SUITE_P(Changes, HeldComparison, ::testing::ValuesIn(ChangeRows()),
                         [](const auto& row) { return row.param.name; });

using Comparison = HeldComparison;

TEST_F(Comparison, WhatIsHeldComesOverTheEntryWithTheWorkingRecord) {
    Fill(State().MainTest, EnterList, {Tell(L"Close the door")});
    Open(aceTemplate);
    HoldNew(Tell(L"Close the door"));
    Parts().held.Records.Notify.Message = L"Open the DOOR";
    Parts().held.Records.Notify.GeneratorOff = true;
    ChangeAction(Parts(), Parts().lists.MainTest.Enter[0]);
    p_Action expected = Tell(L"Open the DOOR");
    std::get<aceNotify>(expected.Parameter).GeneratorOff = true;
    EXPECT_EQ(State().MainTest.Enter[0], expected) << "with what alone would not have counted";
}

TEST_F(Comparison, AKindWithoutARecordComesOverAnEntryWithoutOne) {
    Fill(State().MainTest, EnterList, {WaitFor(1000)});
    Open(aceTemplate);
    HoldNew(Action(atProtRec));
    ChangeAction(Parts(), Parts().lists.MainTest.Enter[0]);
    EXPECT_EQ(State().MainTest.Enter[0], Action(atProtRec));
}

TEST_F(Comparison, TheHostComparesTheTimesOfAWait) {
    Fill(State().MainTest, EnterList, {WaitFor(1500)});
    Open(aceTemplate);
    HoldNew(WaitFor(1600));
    ChangeAction(Parts(), Parts().lists.MainTest.Enter[0]);
    EXPECT_EQ(TakeEffects(), Journal(L"Utilities.IsEqual(1600, 1500)"));
}

TEST_F(Comparison, AHostThatFailsToCompareLeavesTheEntryAndTheFlag) {
    Fill(State().MainTest, EnterList, {WaitFor(1500)});
    Open(aceTemplate);
    HoldNew(WaitFor(1600));
    host->faults.FailOperation(L"Utilities.IsEqual", 1, 57);
    EXPECT_EQ(ErrorOf([&] { ChangeAction(Parts(), Parts().lists.MainTest.Enter[0]); }), 57);
    EXPECT_EQ(Parts().lists.MainTest.Enter[0], WaitFor(1500));
    EXPECT_FALSE(engine->Change());
}

TEST_F(Comparison, AnEntryWithAnotherKindsRecordIsError13AndStays) {
    for (const ActionKind& kind : ActionKinds()) {
        if (kind.record == RecordType::None) {
            continue;
        }
        const p_Action entry = Action(kind.kind, 30);
        Fill(State().MainTest, EnterList, {WaitFor(1)});
        Open(aceTemplate);
        Parts().held.Action = Action(kind.kind);
        Parts().lists.MainTest.Enter[0] = entry;
        EXPECT_EQ(ErrorOf([&] { ChangeAction(Parts(), Parts().lists.MainTest.Enter[0]); }), 13);
        EXPECT_EQ(Parts().lists.MainTest.Enter[0], entry);
        EXPECT_FALSE(engine->Change());
    }
}

}  // namespace
}  // namespace ace::test
