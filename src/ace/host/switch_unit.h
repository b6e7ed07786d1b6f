/// A switch unit: relays that make one of its paths.
#pragma once

#include <vector>

#include <ace/host/basic_types.h>

namespace ace {

/// Failures and messages as with `IDevice`.
class ISwitchUnit {
  public:
    virtual ~ISwitchUnit() = default;
    /// Switches the path of that name; the host may change `path`.
    virtual void SwitchPath(String& path) = 0;
    /// The names of its paths, in the unit's order.
    virtual std::vector<String> Paths() = 0;
};

/// Takes every path and names none.
class DefaultSwitchUnit : public ISwitchUnit {
  public:
    void SwitchPath(String&) override {}
    std::vector<String> Paths() override { return {}; }
};

}  // namespace ace
