/// The panes of the action dialog as they stand: for a new action of a kind, and for one that is
/// edited.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

/// A message of two lines with a sound.
p_Action Called(p_ActionTypes kind) {
    aceNotify record;
    record.Message = L"Close the door\r\nand wait";
    record.WaveFile = L"C:\\Sounds\\gong.wav";
    record.Beep = true;
    return Action(kind, record);
}
/// Every field of a command has a value of its own, whether its interface reads it or not.
p_Action Sent(std::int32_t iface) {
    aceRemote record;
    record.Command = L"*IDN?";
    record.Iface = iface;
    record.GpibAddress = 120;
    record.SerComPort = 3;
    record.TcpHost = L"gen";
    record.TcpPort = 5025;
    record.Terminator = 2;
    return Action(atRemote, record);
}
p_Action WithProgram() {
    aceRemote record;
    record.Program = L"C:\\log.exe -v";
    record.WaitPrgSync = true;
    return Action(atRemote, record);
}

struct ViewedDialog {
    const char* name;  ///< of the file: "dialog_" + name + ".txt"
    aceModul moduleKind;
    p_Action action;
    bool isNew = false;
};
void PrintTo(const ViewedDialog& row, std::ostream* out) {
    *out << row.name;
}

const ViewedDialog ViewedDialogs[] = {
    {"wait_new", aceTemplate, Action(atWait), true},
    {"wait", aceTemplate, WaitFor(1500.5)},
    {"notify_new", aceTemplate, Action(atNotify), true},
    {"notify", aceTemplate, Called(atNotify)},
    {"question_new", aceVKSTemplate, Action(atQuestion), true},
    {"question", aceVKSTemplate, Called(atQuestion)},
    {"comment_new", aceMonitoring, Action(atComment), true},
    {"comment", aceMonitoring, Comment(true)},
    {"remote_new", aceTemplate, Action(atRemote), true},
    {"remote_gpib", aceTemplate, Sent(aceRemote::Gpib)},
    {"remote_serial", aceTemplate, Sent(aceRemote::Serial)},
    {"remote_tcp", aceVKSTemplate, Sent(aceRemote::TcpIp)},
    {"remote_program", aceTemplate, WithProgram()},
};

class DialogViews : public ShownDialog, public ::testing::WithParamInterface<ViewedDialog> {};

TEST_P(DialogViews, TheDialogShowsWhatTheActionHolds) {
    const ViewedDialog& row = GetParam();
    Lines view;
    const Acts acts{sim::Do([&](const Form& form) { view = DialogView(form); }), PressCancel};
    if (row.isNew) {
        OpenWith(row.moduleKind);
        ShowNew(row.action.ActionType, acts);
    } else {
        OpenWith(row.moduleKind, {row.action});
        ShowLine(acts);
    }
    EXPECT_EQ(view, GoldenLines("editor/dialog_" + std::string(row.name) + ".txt"));
}

INSTANTIATE_TEST_SUITE_P(EachPane, DialogViews, ::testing::ValuesIn(ViewedDialogs),
                         [](const auto& one) { return std::string(one.param.name); });

/// What was typed and cancelled is gone when the next dialog of the pane comes up.
TEST_F(ShownDialog, EachDialogShowsItsOwnActionAndNothingOfTheOneBefore) {
    Lines view;
    OpenWith(aceTemplate, {Called(atNotify)});
    ShowNew(atNotify, {sim::Type(L"txtMessage", L"Other"), sim::Tick(L"chkBeep", true),
                       sim::Type(L"txtSoundFile", L"x.wav"), PressCancel});
    ShowNew(atNotify, {sim::Do([&](const Form& form) { view = DialogView(form); }), PressCancel});
    EXPECT_EQ(view, GoldenLines("editor/dialog_notify_new.txt"));
    ShowLine({sim::Do([&](const Form& form) { view = DialogView(form); }), PressCancel});
    EXPECT_EQ(view, GoldenLines("editor/dialog_notify.txt"));
}

}  // namespace
}  // namespace ace::test
