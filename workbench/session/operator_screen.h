/// The operator's screen of a session: forms are answered at once.
#pragma once

#include <ace/host/form_host.h>

namespace ace::workbench {

class SessionHost;

/// Reads what a form shows, asks the session's owner for the answer and presses the button. A form
/// that it does not know is closed by its frame, and that is told.
class OperatorScreen final : public IFormHost {
  public:
    /// `host` must outlive the object.
    explicit OperatorScreen(SessionHost& host) : x_host(host) {}

    void ShowModal(Form& form) override;
    void Hide(Form&) override {}
    /// One line of 195 twips for each line of the text.
    float TextHeight(const String& text, float width) override;

  private:
    SessionHost& x_host;
};

}  // namespace ace::workbench
