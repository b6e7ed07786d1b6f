#include <utility>

#include <ace/core/thread_context.h>

namespace ace {

ThreadContext::ThreadContext(std::shared_ptr<IHostFactory> factory)
    : x_factory(factory ? std::move(factory) : std::make_shared<IHostFactory>()) {}

ThreadContext::~ThreadContext() = default;

ThreadContext& ThreadContext::Current() {
    thread_local ThreadContext context;
    return context;
}

void ThreadContext::InstallHost(std::shared_ptr<IHostFactory> factory) {
    Current().x_factory = factory ? std::move(factory) : std::make_shared<IHostFactory>();
}

void ThreadContext::RequireMade(bool made) {
    if (!made) {
        Raise(Errors::ObjectNotSet);
    }
}

}  // namespace ace
