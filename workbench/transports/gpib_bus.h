/// The instrument bus of this machine.
#pragma once

#include <map>
#include <memory>

#include <ace/host/gpib_driver.h>

#include "workbench/transports/gpib_library.h"
#include "workbench/transports/remarks.h"

namespace ace::workbench {

/// Opens and writes devices through a library that is loaded at the first opening. Without one,
/// every opening is error `TransportErrors::CannotOpen`, which says so. Each call blocks as long as
/// the library does; the engine opens devices with a time-out of one second.
class GpibBus final : public IGpibDriver {
  public:
    /// `library` is a path in UTF-8; `remark` is told why a device can't be opened.
    explicit GpibBus(std::string library, Remark remark = {});

    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override;
    std::int32_t CloseDevice(std::int32_t handle, std::int32_t online) override;
    void WriteString(std::int16_t handle, const String& text) override;

  private:
    GpibLibrary& Library();

    std::string x_path;
    Remark x_remark;
    std::unique_ptr<GpibLibrary> x_library;
    std::map<std::int32_t, String> x_names;  ///< "GPIB board:address" of the open devices
};

}  // namespace ace::workbench
