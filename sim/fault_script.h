/// Scripted failures of a simulated host's calls.
#pragma once

#include <vector>

#include <ace/host/basic_types.h>

namespace ace::sim {

/// Which calls fail and with which error. Calls are counted from 1: over all operations, and over
/// those whose name begins with a prefix.
class FaultScript {
  public:
    enum class Until { Once, ForEver };

    /// Call `k` over all interfaces fails, once or from then on.
    void FailCall(std::size_t k, std::int32_t error, Until until = Until::Once) {
        FailOperation({}, k, error, until);
    }
    /// The `k`-th call of an operation whose name begins with `prefix` fails, once or from then on.
    void FailOperation(StringView prefix, std::size_t k, std::int32_t error,
                       Until until = Until::Once) {
        x_faults.push_back({String(prefix), k, error, until, 0});
    }
    void Clear() { x_faults.clear(); }

    /// Counts a call and says with which error it fails; 0 for none.
    std::int32_t Next(StringView operation);

  private:
    struct Fault {
        String prefix;
        std::size_t k;
        std::int32_t error;
        Until until;
        std::size_t seen;
    };
    std::vector<Fault> x_faults;
};

}  // namespace ace::sim
