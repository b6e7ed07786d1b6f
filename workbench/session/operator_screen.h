/// The operator's screen of a session: forms are answered at once.
#pragma once

#include <functional>

#include <ace/host/form_host.h>

#include "workbench/session/dialog.h"

namespace ace::sim {
class SimHost;
}

namespace ace::workbench {

/// Reads what a form shows, asks the session's owner for the answer and presses the button. A form
/// that it does not know is closed by its frame, and that is told.
class OperatorScreen final : public IFormHost {
  public:
    /// `host` gets the calls into its journal and must outlive the object. `ask` answers a dialog;
    /// `tell` is told what no call of the journal tells.
    OperatorScreen(sim::SimHost& host, std::function<Reply(const Dialog& dialog)> ask,
                   std::function<void(StringView words)> tell)
        : x_host(host), x_ask(std::move(ask)), x_tell(std::move(tell)) {}

    void ShowModal(Form& form) override;
    void Hide(Form&) override {}
    /// One line of 195 twips for each line of the text.
    float TextHeight(const String& text, float width) override;

  private:
    sim::SimHost& x_host;
    std::function<Reply(const Dialog& dialog)> x_ask;
    std::function<void(StringView words)> x_tell;
};

}  // namespace ace::workbench
