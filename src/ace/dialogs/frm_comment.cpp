#include <optional>

#include <ace/dialogs/frm_comment.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr float ButtonDistance = 100.0F;  ///< twips between the message and the buttons

/// While it lives, the form has the icon and the words of a question.
class QuestionWords {
  public:
    explicit QuestionWords(frmComment& form)
        : x_form(form),
          x_closeCaption(form.cmdClose.caption),
          x_stopCaption(form.cmdStopTest.caption) {
        x_form.imgQue.visible = true;
        x_form.imgStop.visible = false;
        x_form.cmdClose.caption = L"Yes";
        x_form.cmdStopTest.caption = L"No";
        x_form.cmdStopTest.toolTip.clear();
    }
    /// Intentional: the tool tip does not come back; the stop button has none for the rest of
    /// the form's life once a question has been shown.
    ~QuestionWords() {
        x_form.imgStop.visible = true;
        x_form.imgQue.visible = false;
        x_form.cmdClose.caption = std::move(x_closeCaption);
        x_form.cmdStopTest.caption = std::move(x_stopCaption);
        x_form.cmdStopTest.toolTip.clear();
    }
    QuestionWords(const QuestionWords&) = delete;
    QuestionWords& operator=(const QuestionWords&) = delete;

  private:
    frmComment& x_form;
    String x_closeCaption;
    String x_stopCaption;
};

}  // namespace

frmComment::frmComment(ThreadContext& context)
    : Form(L"frmComment", 9351, 5970.0F, 1710.0F), x_context(context) {
    cmdClose.onClick = [this] { Answer(false); };
    cmdStopTest.onClick = [this] { Answer(true); };
}

void frmComment::Loaded() {
    x_context.Language().TranslateForm(*this);
    cboComment.list.assign(x_comments.begin(), x_comments.end());
    cboComment.listIndex = 0;
}

/// The height follows the distance that the buttons move, from whatever the last call left.
/// Intentional: the old place counts in whole twips, so fractional heights let the form drift.
void frmComment::FitToMessage(const String& message) {
    lblComment.caption = message;
    lblComment.height = x_context.FormHost().TextHeight(message, lblComment.width);
    cboComment.visible = false;
    const std::int32_t oldTop = RoundToLong(static_cast<double>(cmdClose.top));
    cmdClose.top = lblComment.top + lblComment.height + ButtonDistance;
    cmdStopTest.top = cmdClose.top;
    height = static_cast<float>(static_cast<double>(height) -
                                (oldTop - static_cast<double>(cmdClose.top)));
}

Boolean frmComment::DisplayMessage(const String& message, Boolean question) {
    const std::shared_ptr<frmComment> alive = weak_from_this().lock();
    Load();
    FitToMessage(message);
    x_stopTest = false;
    {
        std::optional<QuestionWords> words;
        if (question) {
            words.emplace(*this);
        }
        ShowModal(x_context.FormHost());
    }
    return x_stopTest;
}

void frmComment::Answer(Boolean stopTest) {
    x_stopTest = stopTest;
    Hide();
}

std::shared_ptr<ICommentForm> MakeCommentForm(ThreadContext& context) {
    return std::make_shared<frmComment>(context);
}

}  // namespace ace
