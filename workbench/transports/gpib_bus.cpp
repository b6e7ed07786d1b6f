#include "workbench/transports/gpib_bus.h"

#include <limits>

#include <ace/host/run_time_error.h>

#include "workbench/transports/instrument_bytes.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

constexpr std::int16_t NoDevice = -1;

}  // namespace

GpibBus::GpibBus(std::string library, Remark remark)
    : x_path(std::move(library)), x_remark(std::move(remark)) {}

GpibLibrary& GpibBus::Library() {
    if (!x_library) {
        x_library = std::make_unique<GpibLibrary>(x_path);
    }
    return *x_library;
}

std::int16_t GpibBus::OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                                 std::int16_t timeOut, std::int16_t sendEoi,
                                 std::int16_t endOfString) {
    const String name = L"GPIB " + std::to_wstring(board) + L":" + std::to_wstring(primary);
    const int device = Library().Ibdev(board, primary, secondary, timeOut, sendEoi, endOfString);
    if (device < 0) {
        Tell(x_remark, name + L": can't open: " + TextOf(Library().Status()));
        return NoDevice;
    }
    if (device > std::numeric_limits<std::int16_t>::max()) {
        Library().Ibonl(device, 0);
        Tell(x_remark, name + L": can't open: the library's handle " + std::to_wstring(device) +
                           L" does not fit into 16 bits");
        return NoDevice;
    }
    x_names[device] = name;
    return static_cast<std::int16_t>(device);
}

std::int32_t GpibBus::CloseDevice(std::int32_t handle, std::int32_t online) {
    if (x_names.erase(handle) == 0) {
        return 0;
    }
    return Library().Ibonl(handle, online).word;
}

void GpibBus::WriteString(std::int16_t handle, const String& text) {
    const auto name = x_names.find(handle);
    if (name == x_names.end()) {
        throw RunTimeError(TransportErrors::CannotSend,
                           L"GPIB: handle " + std::to_wstring(handle) + L" is no open device");
    }
    const GpibStatus status = Library().Ibwrt(handle, InstrumentBytes(text));
    if (status.HasFailed()) {
        throw RunTimeError(TransportErrors::CannotSend,
                           name->second + L": can't send: " + TextOf(status));
    }
}

}  // namespace ace::workbench
