/// The form that tells or asks the operator while a test runs.
#pragma once

#include <array>

#include <ace/core/thread_context.h>
#include <ace/host/forms.h>

namespace ace {

/// One instance serves all notifications and questions of a thread. It is hidden between two calls,
/// never unloaded, so sizes and words go on from what the last call left.
///
/// Messages run while it is shown. When the host drops the last engine from inside, the form lives
/// on until the call in progress has handed back its answer. When it has another message displayed
/// from inside, that one takes the form over: the operator sees the new message alone, the one
/// press of a button hides the form and answers both calls, the inner one first. A notification
/// inside a question keeps the question's icon and words.
class frmComment : public Form,
                   public ICommentForm,
                   public std::enable_shared_from_this<frmComment> {
  public:
    explicit frmComment(ThreadContext& context);

    /// Errors of the host's language data and of its screen come out; the words of a question are
    /// taken back then too.
    Boolean DisplayMessage(const String& message, Boolean question) override;

    Label lblComment{*this, L"lblComment", {.left = 840, .top = 240, .width = 4890, .height = 195}};
    Picture imgStop{*this, L"imgStop", {.left = 240, .top = 240, .width = 480, .height = 480}};
    Picture imgQue{
        *this, L"imgQue", {.visible = false, .left = 240, .top = 240, .width = 480, .height = 480}};
    DropDown cboComment{*this, L"cboComment"};
    Button cmdClose{*this,
                    L"cmdClose",
                    {.caption = L"&OK",
                     .captionNumber = 6,
                     .left = 1680,
                     .top = 1200,
                     .width = 1215,
                     .height = 375}};
    Button cmdStopTest{*this,
                       L"cmdStopTest",
                       {.caption = L"Stop Test",
                        .captionNumber = 9312,
                        .toolTipNumber = 9313,
                        .left = 3075,
                        .top = 1200,
                        .width = 1215,
                        .height = 375}};

  protected:
    void Loaded() override;
    /// The frame is another way to press `cmdClose`.
    void FrameClosed() override { cmdClose.Click(); }

  private:
    void FitToMessage(const String& message);
    void Answer(Boolean stopTest);

    ThreadContext& x_context;
    Boolean x_stopTest;  ///< the stop answer
    std::array<String, 1> x_comments{L"NOGO"};
};

}  // namespace ace
