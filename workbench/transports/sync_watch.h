/// Notices programs that never confirm their work.
#pragma once

#include <functional>
#include <memory>

#include <ace/host/system_services.h>

namespace ace::workbench {

/// The same services, simulated or real. `onSilence` is called when a wait for the macro
/// synchronisation, which stands between two progress texts, ended without its confirmation: the
/// time is over, or the host has broken its waits off. The engine itself goes on in silence.
std::shared_ptr<ISystemServices> WatchSync(std::shared_ptr<ISystemServices> services,
                                           std::function<void()> onSilence);

}  // namespace ace::workbench
