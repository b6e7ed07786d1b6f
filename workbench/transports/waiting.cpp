#include "workbench/transports/waiting.h"

#include <thread>

namespace ace::workbench {

void SleepAndRunEvents(const RunEvents& events) {
    std::this_thread::sleep_for(EventSlice);
    if (events) {
        events();
    }
}

}  // namespace ace::workbench
