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

void TestRemote(EditorParts& parts) {
    const BusyPointer busy(parts.context);
    aceRemote record = parts.held.Records.Remote;
    Boolean ignoreAll;
    if (!record.Command.empty()) {
        modActions::SendRemoteCommand(parts.context, record, ignoreAll);
    }
    if (!record.Program.empty()) {
        modActions::StartRemoteProgram(parts.context, record, ignoreAll);
    }
    aceRemote& kept = parts.held.Records.Remote;
    kept.ProgID = record.ProgID;
    if (kept.Iface == record.Iface && kept.GpibAddress == record.GpibAddress) {
        kept.DrvHdl = record.DrvHdl;
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
        kept.SigPath = record.SigPath;
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

}  // namespace ace
