/// References to device objects of which only the name is known.
#pragma once

#include <memory>

namespace ace::test {

/// Stands for a device object: it hands out references to itself as any interface and counts them.
/// Nobody may look behind such a reference.
class OpaqueDevice {
  public:
    template <class Interface>
    std::shared_ptr<Interface> As() const {
        return {x_token, reinterpret_cast<Interface*>(x_token.get())};
    }
    /// References handed out and still alive.
    long References() const { return x_token.use_count() - 1; }

  private:
    std::shared_ptr<long double> x_token = std::make_shared<long double>();
};

}  // namespace ace::test
