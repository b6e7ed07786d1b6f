#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

class QuietPlatform final : public DefaultPlatform {
  public:
    void Yield() override {}
};

class QuietTraceLog final : public DefaultTraceLog {
  public:
    bool IsEnabled() override { return false; }
};

class QuietDriver final : public DefaultGpibDriver {
  public:
    std::int16_t OpenDevice(std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                            std::int16_t) override {
        return 1;
    }
};

class QuietFactory final : public IHostFactory {
  public:
    std::shared_ptr<IPlatform> MakePlatform() override { return std::make_shared<QuietPlatform>(); }
    std::shared_ptr<ITraceLog> MakeTraceLog() override { return std::make_shared<QuietTraceLog>(); }
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return std::make_shared<QuietDriver>();
    }
};

}  // namespace

std::shared_ptr<IHostFactory> QuietHost() {
    return std::make_shared<QuietFactory>();
}

}  // namespace ace::bench
