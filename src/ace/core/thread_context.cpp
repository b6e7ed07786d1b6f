#include <utility>

#include <ace/core/out_of_memory.h>
#include <ace/core/thread_context.h>

namespace ace {

ThreadContext::ThreadContext(std::shared_ptr<IHostFactory> factory)
    : x_factory(factory ? std::move(factory) : std::make_shared<IHostFactory>()) {}

/// An editor that nobody released ends while its services are still there.
ThreadContext::~ThreadContext() {
    Editor.reset();
}

namespace {

/// Outlasts the context that it tells of, because nothing destroys it.
thread_local bool ownContextHasGone = false;

struct OwnContext {
    OwnContext() = default;
    OwnContext(const OwnContext&) = delete;
    OwnContext& operator=(const OwnContext&) = delete;
    ~OwnContext() { ownContextHasGone = true; }

    const std::shared_ptr<ThreadContext> context = std::make_shared<ThreadContext>();
};

}  // namespace

ThreadContext& ThreadContext::Current() {
    if (ownContextHasGone) {
        throw RunTimeError(Errors::Internal, L"the thread has ended, and its services with it");
    }
    return OrOutOfMemory([]() -> ThreadContext& {
        thread_local const OwnContext own;
        return *own.context;
    });
}

void ThreadContext::InstallHost(std::shared_ptr<IHostFactory> factory) {
    Current().x_factory = factory ? std::move(factory)
                                  : OrOutOfMemory([] { return std::make_shared<IHostFactory>(); });
}

void ThreadContext::RequireMade(bool made) {
    if (!made) {
        Raise(Errors::ObjectNotSet);
    }
}

}  // namespace ace
