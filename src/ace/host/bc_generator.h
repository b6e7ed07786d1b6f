/// A broadcast generator: a source that is set once and left alone.
#pragma once

#include <ace/host/signal_path.h>

namespace ace {

/// The generator's settings come from its section. Failures and messages as with `IDevice`.
class IBcGenerator {
  public:
    virtual ~IBcGenerator() = default;
    /// The path that the signal takes; none for an action without one.
    virtual void SetSignalPath(const std::shared_ptr<ISignalPath>& path) = 0;
    /// Applies the loaded settings.
    virtual void Apply() = 0;
};

/// Takes everything and does nothing.
class DefaultBcGenerator : public IBcGenerator {
  public:
    void SetSignalPath(const std::shared_ptr<ISignalPath>&) override {}
    void Apply() override {}
};

}  // namespace ace
