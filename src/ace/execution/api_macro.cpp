#include <ace/core/borrowed_text.h>
#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/execution/api_macro.h>
#include <ace/execution/replace_variables.h>
#include <ace/execution/status_line.h>

namespace ace {

namespace {

constexpr StringView Frequency = L"#FREQ#";
constexpr StringView StatusBegin = L"Execute API Macro: ";

constexpr std::int32_t MacroFailedText = 9183;

/// The record's texts as the macro gets them. Pairs of the host come first, so that a value that
/// holds "#FREQ#" is filled in too; the decimal separator of the frequency is the locale's. Each is
/// filled in outside the record, which another macro may take while the host is asked.
void FillParameters(ThreadContext& context, aceAPI& record) {
    const std::int32_t last = record.Parameters.UpperBound();
    for (std::int32_t i = 1; i <= last; ++i) {
        BorrowedText filled(context);
        filled->assign(std::as_const(record.Parameters)[i]);
        ReplaceVariables(context, record.vks, *filled);
        const std::size_t at = filled->find(Frequency);
        if (at != String::npos) {
            BorrowedText frequency(context);
            AppendFixed(*frequency, record.Freq, 1, context.Platform().DecimalSeparator());
            ReplaceAllFrom(*filled, at, Frequency, *frequency);
        }
        record.Parameters[i].swap(*filled);
    }
}

/// The filled texts as the macro takes them: lent for the call and given back, not copied.
struct LentParameters {
    explicit LentParameters(aceAPI& record)
        : value(std::move(record.Parameters)), x_record(record) {}
    LentParameters(const LentParameters&) = delete;
    LentParameters& operator=(const LentParameters&) = delete;
    ~LentParameters() { x_record.Parameters = std::get<DynArray<String>>(std::move(value)); }

    Value value;

  private:
    aceAPI& x_record;
};

/// True when the file was loaded.
bool LoadMacro(ThreadContext& context, IApiMacro& macro, aceAPI& record) {
    Value unread;
    if (record.Parameters.UpperBound() < 1) {
        return macro.Load(record.Program, {}, {}, unread);
    }
    FillParameters(context, record);
    const LentParameters parameters(record);
    return macro.Load(record.Program, parameters.value, {}, unread);
}

/// True when the macro was started.
bool StartMacro(ThreadContext& context, IApiMacro& macro, const aceAPI& record) {
    BorrowedText status(context);
    status->append(StatusBegin).append(record.Program);
    Required(context.StatusDisplay)->ShowStatus(*status, false, false);
    String unreadText;
    String errorText;
    Value unread;
    if (macro.Execute(unreadText, errorText, unread)) {
        return true;
    }
    context.UserDialogs().ShowMessageBox(errorText, IUserDialogs::Critical,
                                         context.Language().Text(ActionsTitle));
    return false;
}

/// The result is the runner's first answer; its second one alone decides about the message.
void RunMacro(ThreadContext& context, aceAPI& record, Boolean& result) {
    if (!context.RunningMacro) {
        context.RunningMacro = Required(context.Factory().MakeApiMacro());
    }
    const std::shared_ptr<IApiMacro> macro = context.RunningMacro;
    if (!LoadMacro(context, *macro, record) || !StartMacro(context, *macro, record)) {
        return;
    }
    macro->WaitFinished();
    result = macro->GetResult();
    if (!macro->GetResult()) {
        ILanguage& language = context.Language();
        context.UserDialogs().ShowMessageBox(
            language.Text(MacroFailedText) + L" [" + record.Program + L"]",
            IUserDialogs::Exclamation, language.Text(ActionsTitle));
    }
}

}  // namespace

Boolean modActions::RunApiMacro(ThreadContext& context, aceAPI& record) {
    Boolean result;
    ResumeNext quiet;
    quiet([&] { RunMacro(context, record, result); });
    quiet([&] { ClearStatus(context); });
    return result;
}

}  // namespace ace
