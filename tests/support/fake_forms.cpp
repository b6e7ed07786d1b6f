#include "support/fake_forms.h"

#include <gtest/gtest.h>

namespace ace::test {

FakeCommentForm::FakeCommentForm(sim::SimHost& host) : x_host(host) {}

FakeCommentForm::~FakeCommentForm() = default;

Boolean FakeCommentForm::DisplayMessage(const String& message, Boolean question) {
    x_host.Call(L"CommentForm.DisplayMessage", sim::CallText(message, question));
    if (answers.empty()) {
        ADD_FAILURE() << "a message without an answer";
        return false;
    }
    const bool answer = answers.front();
    answers.pop_front();
    if (onShow) {
        onShow();
    }
    return answer;
}

}  // namespace ace::test
