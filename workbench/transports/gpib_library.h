/// An NI-488 compatible library, loaded while the workbench runs.
#pragma once

#include <memory>
#include <string>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The figures of the interface that are used here. Source: the NI-488.2 programmer's
/// documentation, tables of the status word and of the error codes.
namespace Ni488 {
inline constexpr int ErrBit = 0x8000;   ///< ERR: the call failed, the error code says why
inline constexpr int TimoBit = 0x4000;  ///< TIMO: the time-out passed
}  // namespace Ni488

/// What a call left behind.
struct GpibStatus {
    int word = 0;   ///< status word
    int error = 0;  ///< error code; of meaning only when the call failed

    bool HasFailed() const { return (word & Ni488::ErrBit) != 0; }
};

/// Name and meaning of a failure, such as "ENOL (error 2): no listener on the bus"; the time-out is
/// told too.
String TextOf(const GpibStatus& status);

/// The C functions of a library by their names: `ibdev`, `ibwrt`, `ibonl`; the status from
/// `ThreadIbsta` and `ThreadIberr` or, where those are missing, from the variables `ibsta` and
/// `iberr`.
class GpibLibrary {
  public:
    /// Loads the library at `path` (UTF-8), which may be a bare file name that the system looks up.
    /// An empty path, a library that can't be loaded and a missing name are error
    /// `TransportErrors::CannotOpen`, which says what is missing.
    explicit GpibLibrary(const std::string& path);
    GpibLibrary(const GpibLibrary&) = delete;
    GpibLibrary& operator=(const GpibLibrary&) = delete;
    ~GpibLibrary();

    /// The calls of these names; the first answers the device, -1 when it can't be opened.
    int Ibdev(int board, int primary, int secondary, int timeOut, int sendEoi, int endOfString);
    GpibStatus Ibwrt(int device, const std::string& bytes);
    GpibStatus Ibonl(int device, int online);
    /// Status of the last call.
    GpibStatus Status() const;

  private:
    struct Functions;

    std::unique_ptr<Functions> x_functions;
};

}  // namespace ace::workbench
