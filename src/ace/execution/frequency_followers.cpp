#include <ace/execution/frequency_followers.h>
#include <ace/execution/status_line.h>
#include <ace/execution/what_runs.h>

namespace ace {

namespace {

constexpr std::int32_t FollowerTitleEnd = 9431;

}  // namespace

bool FollowsNoFrequency(std::int32_t testKind) {
    return testKind == 1 || testKind == 2;
}

bool TestFollowsNoFrequency(ThreadContext& context) {
    const std::shared_ptr<ITestInfo> test = context.SystemServices().CurrentTest();
    if (!test) {
        return false;
    }
    String name;
    return FollowsNoFrequency(test->TestKind(name));
}

void AppendFollowerTitle(ThreadContext& context, String& title) {
    title.append(context.Language().Text(ActionsTitle)).append(L": ");
    title.append(context.Language().Text(FollowerTitleEnd));
}

}  // namespace ace
