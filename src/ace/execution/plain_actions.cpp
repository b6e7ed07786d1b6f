#include <ace/core/actions_engine.h>
#include <ace/core/borrowed_text.h>
#include <ace/core/text.h>
#include <ace/execution/plain_actions.h>
#include <ace/execution/replace_variables.h>
#include <ace/execution/signal_path.h>
#include <ace/execution/status_line.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

/// Parts of the texts of a wait, whose lengths are known when this is compiled.
constexpr StringView Blank = L" ";
constexpr StringView Seconds = L" s";

/// The one state of the host's test in which a template leaves its receivers alone.
constexpr std::int32_t UnprotectedState = 14;

Boolean ShowMessage(ThreadContext& context, const Statements& stmt, aceNotify& record,
                    Boolean question) {
    if (!context.CommentForm) {
        stmt([&] { context.CommentForm = MakeCommentForm(context); });
    }
    ReplaceVariables(context, stmt, record.vks, record.Message);
    return stmt([&] {
        const std::shared_ptr<ICommentForm> form = Required(context.CommentForm);
        return form->DisplayMessage(record.Message, question);
    });
}

/// What the host's device side is told around a notification; made once.
struct RadiationTexts {
    String standby = L"Standby On";
    String radiation = L"Radiation on";
};
const RadiationTexts& Radiation() {
    static const RadiationTexts texts;
    return texts;
}

}  // namespace

void modActions::PostEvent(ThreadContext& context, std::int32_t kind, const String& text) {
    static const String sender = L"ActionEngine";
    context.DeviceList().GetDeviceListHost().PostEvent(sender, kind, text);
}

void modActions::Wait(ThreadContext& context, const aceWait& record) {
    ResumeNext quiet;
    quiet([&] {
        const wchar_t separator = context.Platform().DecimalSeparator();
        BorrowedText text(context);
        text->append(context.ActionStatusTexts[WaitLabel]).append(Blank);
        AppendFixed(*text, record.Time / 1000.0, 3, separator == L',' ? L'.' : separator);
        text->append(Seconds);
        Required(context.StatusDisplay)->ShowStatus(*text, true, true);
        std::int32_t style = IUserDialogs::Information;
        AppendWaitHint(context, *text);
        context.SystemServices().ShowTimedMessage(
            *text, style, context.ActionStatusTexts[WaitLabel], RoundToLong(record.Time));
        Required(context.StatusDisplay)->ShowStatus({}, false, false);
    });
}

void modActions::PlaySound(ThreadContext& context, const aceNotify& record) {
    ResumeNext quiet;
    quiet([&] {
        IPlatform& platform = context.Platform();
        bool played = true;
        if (!record.WaveFile.empty()) {
            played = platform.sndPlaySoundA(record.WaveFile, IPlatform::SoundFlags) != 0;
        }
        if (record.Beep) {
            platform.Beep();
        }
        if (!played) {
            platform.Beep();
        }
    });
}

Boolean modActions::Notify(ThreadContext& context, const Statements& stmt, aceNotify& record,
                           std::int32_t moduleKind) {
    const bool silent = moduleKind == aceTemplate && context.SystemCheck;
    if (!record.WaveFile.empty() || (record.Beep && !silent)) {
        PlaySound(context, record);
    }
    stmt([&] { PostEvent(context, RadiationEvent, Radiation().standby); });
    stmt([&] { context.Platform().Yield(); });
    Boolean result;
    if (!record.Message.empty() && !silent) {
        result = ShowMessage(context, stmt, record, false);
    }
    stmt([&] { PostEvent(context, RadiationEvent, Radiation().radiation); });
    stmt([&] { context.Platform().Yield(); });
    return result;
}

Boolean modActions::Question(ThreadContext& context, const Statements& stmt, aceNotify& record) {
    if (!record.WaveFile.empty() || record.Beep) {
        PlaySound(context, record);
    }
    stmt([&] { context.Platform().Yield(); });
    Boolean result;
    if (!record.Message.empty()) {
        result = ShowMessage(context, stmt, record, true);
    }
    stmt([&] { context.Platform().Yield(); });
    return result;
}

void modActions::ProtectIfAllowed(ThreadContext& context, const Statements& stmt,
                                  std::int32_t moduleKind) {
    const std::shared_ptr<ITestInfo> test =
        stmt([&] { return context.SystemServices().GetCurrentTest(); });
    bool forbidden = false;
    if (test) {
        String name;
        const std::int32_t state = stmt([&] { return test->TestStatus(name); });
        forbidden = state == UnprotectedState && moduleKind == aceTemplate;
    }
    if (!forbidden) {
        context.InitReceiverPending = true;
        stmt([&] { ProtectReceivers(context); });
    }
}

void aceActionsEngine::StopAllActions() {
    ThreadContext& context = x_state->Context;
    ResumeNext quiet;
    quiet([&] {
        const std::shared_ptr<IApiMacro> macro = context.RunningMacro;
        if (macro) {
            macro->Abort();
        }
        Required(context.StatusDisplay)->ShowStatus({}, false, false);
    });
}

}  // namespace ace
