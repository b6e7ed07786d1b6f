/// The form that tells the operator of an action that failed on a device, and asks how to go on.
#pragma once

#include <ace/core/thread_context.h>
#include <ace/host/forms.h>

namespace ace {

/// Made anew for each failure and dropped afterwards; nothing survives on it. A failure from inside
/// the show has a form of its own.
class frmGpibError : public Form {
  public:
    explicit frmGpibError(ThreadContext& context);

    /// Shows the failure of an action of `actionType` modally; messages run meanwhile. `ignoreAll`
    /// goes in and out: only `cmdIgnoreAll` sets it, every other answer hands back what came in.
    /// True when the operator asks to stop the test. A kind and parameter that no failure comes
    /// with leave heading and details empty. Errors of the language data and the screen come out.
    Boolean ShowError(p_ActionTypes actionType, Boolean& ignoreAll,
                      const DeviceErrorSubject& parameter, std::int32_t errorNumber,
                      const String& errorText);

    Label lblMessage{*this, L"lblMessage", {.left = 840, .top = 240, .width = 4845, .height = 195}};
    /// On the background colour of a menu.
    TextBox txtError{*this, L"txtError", {.left = 840, .top = 600, .width = 4845, .height = 990}};
    Picture imgStop{*this, L"imgStop", {.left = 240, .top = 240, .width = 480, .height = 480}};
    Button cmdStopTest{*this,
                       L"cmdStopTest",
                       {.caption = L"Stop Test",
                        .captionNumber = 9312,
                        .toolTipNumber = 9313,
                        .left = 982.5F,
                        .top = 1860,
                        .width = 1215,
                        .height = 375}};
    Button cmdIgnore{*this,
                     L"cmdIgnore",
                     {.caption = L"Ignore",
                      .captionNumber = 9314,
                      .toolTipNumber = 9315,
                      .left = 2377.5F,
                      .top = 1860,
                      .width = 1215,
                      .height = 375}};
    Button cmdIgnoreAll{*this,
                        L"cmdIgnoreAll",
                        {.caption = L"Ignore All",
                         .captionNumber = 9316,
                         .toolTipNumber = 9317,
                         .left = 3772.5F,
                         .top = 1860,
                         .width = 1215,
                         .height = 375}};

  protected:
    /// Escape is another way to press `cmdIgnore`.
    void KeyPressed(std::int32_t key) override;

  private:
    ThreadContext& x_context;
    Boolean x_stopTest;   ///< the stop answer
    Boolean x_ignoreAll;  ///< the ignore-all flag
};

}  // namespace ace
