#include "workbench/transports/own_thread.h"

#include <system_error>
#include <thread>
#include <utility>

namespace ace::workbench {

int RunOnOwnThread(std::function<void()> work) {
    try {
        std::thread(std::move(work)).detach();
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

}  // namespace ace::workbench
