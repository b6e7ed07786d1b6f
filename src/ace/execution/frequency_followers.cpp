#include <ace/execution/frequency_followers.h>
#include <ace/execution/status_line.h>

namespace ace {

namespace {

constexpr std::int32_t FollowerTitleEnd = 9431;

}  // namespace

bool TestFollowsNoFrequency(ThreadContext& context) {
    const std::shared_ptr<ITestInfo> test = context.SystemServices().CurrentTest();
    if (!test) {
        return false;
    }
    String name;
    const std::int32_t kind = test->TestKind(name);
    return kind == 1 || kind == 2;
}

void AppendFollowerTitle(ThreadContext& context, String& title) {
    title.append(context.Language().Text(ActionsTitle)).append(L": ");
    title.append(context.Language().Text(FollowerTitleEnd));
}

}  // namespace ace
