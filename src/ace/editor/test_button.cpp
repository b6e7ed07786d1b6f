#include <utility>

#include <ace/core/cleaning.h>
#include <ace/editor/test_button.h>
#include <ace/execution/device_actions.h>
#include <ace/execution/plain_actions.h>
#include <ace/execution/remote_commands.h>
#include <ace/execution/start_program.h>

namespace ace {

namespace {

/// Shows the pointer of a busy program as long as it lives.
class BusyPointer {
  public:
    explicit BusyPointer(ThreadContext& context) : x_context(context) {
        x_context.UserDialogs().SetBusyPointer(true);
    }
    ~BusyPointer() {
        ResumeNext next;
        next([&] { x_context.UserDialogs().SetBusyPointer(false); });
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    ThreadContext& x_context;
};

void TellAndPlay(EditorParts& parts, std::int32_t style, StringView title) {
    const aceNotify record = parts.held.Records.Notify;
    if (!record.Message.empty()) {
        parts.context.UserDialogs().ShowMessageBox(record.Message, style, String(title));
    }
    if (!record.WaveFile.empty() || record.Beep) {
        modActions::PlaySound(parts.context, record);
    }
}

void TestNotify(EditorParts& parts) {
    TellAndPlay(parts, IUserDialogs::Information, L"Test Message");
}

void TestQuestion(EditorParts& parts) {
    TellAndPlay(parts, IUserDialogs::YesNo | IUserDialogs::Question, L"Question ?");
}

/// A copy of the held command, with the bus device that a test of the same address has opened. It
/// stays open for the next test while the dialog stands, unless another test has left one
/// meanwhile.
class TestedRemote {
  public:
    explicit TestedRemote(EditorParts& parts) : record(parts.held.Records.Remote), x_parts(parts) {
        aceRemote before = std::exchange(parts.tested, {});
        if (before.GpibAddress == record.GpibAddress) {
            record.DrvHdl = before.DrvHdl;
        } else {
            CloseBusDevice(parts.context, before);
        }
    }
    ~TestedRemote() {
        if (x_parts.tested.DrvHdl <= aceRemote::NoHandle) {
            x_parts.tested = std::move(record);
        } else {
            CloseBusDevice(x_parts.context, record);
        }
    }
    TestedRemote(const TestedRemote&) = delete;
    TestedRemote& operator=(const TestedRemote&) = delete;

    aceRemote record;

  private:
    EditorParts& x_parts;
};

void TestRemote(EditorParts& parts) {
    const BusyPointer busy(parts.context);
    TestedRemote tested(parts);
    aceRemote& record = tested.record;
    Boolean ignoreAll;
    if (!record.Command.empty()) {
        modActions::SendRemoteCommand(parts.context, record, ignoreAll);
    }
    if (!record.Program.empty()) {
        modActions::StartRemoteProgram(parts.context, record, ignoreAll);
    }
    aceRemote& kept = parts.held.Records.Remote;
    if (kept.Program == record.Program) {
        kept.ProgID = record.ProgID;
    }
}

void UseDevice(EditorParts& parts, Boolean isSet) {
    aceSetDevice record = parts.held.Records.SetDevice;
    if (record.DevName.empty()) {
        return;
    }
    Boolean ignoreAll;
    modActions::SetCheckDevice(parts.context, record, isSet, ignoreAll, parts.moduleKind);
    aceSetDevice& kept = parts.held.Records.SetDevice;
    if (kept.DevName == record.DevName) {
        kept.Device = record.Device;
        kept.MoniDev = record.MoniDev;
        kept.BcGen = record.BcGen;
        if (kept.SigPathName == record.SigPathName) {
            kept.SigPath = record.SigPath;
        }
        kept.LastCheck = record.LastCheck;
    }
}

void TestSetDevice(EditorParts& parts) {
    UseDevice(parts, true);
}

void TestCheck(EditorParts& parts) {
    UseDevice(parts, false);
}

/// The kinds that can be tried.
struct TestRow {
    p_ActionTypes kind;
    void (*test)(EditorParts& parts);
};
constexpr TestRow Tests[] = {
    {atNotify, TestNotify},       {atQuestion, TestQuestion}, {atRemote, TestRemote},
    {atSetDevice, TestSetDevice}, {atCheckEut, TestCheck},    {atMonitorEUT, TestCheck},
};

}  // namespace

void TestHeldAction(EditorParts& parts) {
    for (const TestRow& row : Tests) {
        if (row.kind == parts.held.Action.ActionType) {
            row.test(parts);
            return;
        }
    }
}

void EndTests(EditorParts& parts) {
    aceRemote tested = std::exchange(parts.tested, {});
    CloseBusDevice(parts.context, tested);
}

}  // namespace ace
