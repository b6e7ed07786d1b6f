/// The host's running test, as the engine may ask about it.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// The current test. No operation lets messages run.
class ITestInfo {
  public:
    virtual ~ITestInfo() = default;
    /// State of the test; 14 is the only value that the engine tests. `name` arrives empty.
    virtual std::int32_t GetTestState(String& name) = 0;
    /// The same under the name by which some hosts know it.
    virtual std::int32_t TestStatus(String& name) { return GetTestState(name); }
    /// Kind of the test; tests of the kinds 1 and 2 have no use for generators and monitoring
    /// devices that follow the frequency. `name` arrives empty.
    virtual std::int32_t TestKind(String& name) = 0;
};

/// A test in state 0, of kind 0.
class DefaultTestInfo : public ITestInfo {
  public:
    std::int32_t GetTestState(String&) override { return 0; }
    std::int32_t TestKind(String&) override { return 0; }
};

}  // namespace ace
