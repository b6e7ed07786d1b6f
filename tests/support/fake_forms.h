/// Forms that answer from a queue, for tests that stand below the dialogs.
#pragma once

#include <deque>
#include <functional>

#include <ace/core/ports.h>

#include "sim/sim_host.h"

namespace ace::test {

/// A comment form without a screen. Each message is one line of the host's journal and takes the
/// next answer; one without an answer fails the test.
class FakeCommentForm : public ICommentForm {
  public:
    explicit FakeCommentForm(sim::SimHost& host);
    ~FakeCommentForm() override;

    std::deque<bool> answers;      ///< true is the stop button, which reads "No" on a question
    std::function<void()> onShow;  ///< runs while a message stands, before it is answered

    Boolean DisplayMessage(const String& message, Boolean question) override;

  private:
    sim::SimHost& x_host;
};

}  // namespace ace::test
