/// The host of the benchmarks: its services do nothing, and its instruments can be reached.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::bench {

/// A factory whose platform and trace log stand where the compiler can't see them: what is measured
/// are calls through the interface, as with any host.
std::shared_ptr<IHostFactory> QuietHost();

}  // namespace ace::bench
