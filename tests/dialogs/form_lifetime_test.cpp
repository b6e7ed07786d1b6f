#include <ace/core/actions_engine.h>
#include <ace/dialogs/frm_comment.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using sim::Do;
using sim::Press;

/// How long the forms live that all engines of a thread share.
class FormLifetime : public HostTest {};

TEST_F(FormLifetime, ANewEngineReplacesTheSerialFormAndTheEndOfAnyEngineDropsIt) {
    aceActionsEngine first(context);
    const std::weak_ptr<IComPortForm> formOfFirst = context.ComPortForm;
    {
        const aceActionsEngine second(context);
        EXPECT_TRUE(formOfFirst.expired());
        EXPECT_NE(context.ComPortForm, nullptr);
    }
    EXPECT_EQ(context.ComPortForm, nullptr);
}

TEST_F(FormLifetime, TheCommentFormOutlivesTheLastEngineUntilItsAnswerIsHandedBack) {
    auto engine = std::make_unique<aceActionsEngine>(context);
    context.CommentForm = MakeCommentForm(context);
    const std::weak_ptr<ICommentForm> watched = context.CommentForm;
    host->user.Expect({L"frmComment",
                       {Do([&](Form&) { engine.reset(); }), Press(L"cmdStopTest")},
                       {{L"lblComment", L"m"}}});
    EXPECT_TRUE(context.CommentForm->DisplayMessage(L"m", true));
    EXPECT_EQ(context.CommentForm, nullptr);
    EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace ace::test
