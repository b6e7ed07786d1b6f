#include "bench/bench_devices.h"

#include <ace/host/amplifier.h>
#include <ace/host/bc_generator.h>
#include <ace/host/monitor_device.h>
#include <ace/host/receiver.h>
#include <ace/host/rf_generator.h>
#include <ace/host/switch_unit.h>

namespace ace::bench {

namespace {

class QuietDevice final : public DefaultDevice,
                          public DefaultMonitorDevice,
                          public DefaultSwitchUnit,
                          public DefaultRfGenerator,
                          public DefaultSignalPath,
                          public std::enable_shared_from_this<QuietDevice> {
  public:
    std::int32_t State() override { return Active; }
    std::shared_ptr<IDevice> CommonDevice() override { return shared_from_this(); }
    void SetFrequency(double&) override {}
    void SetFrequency(double) override {}
};

class QuietList final : public DefaultDeviceList {
  public:
    std::shared_ptr<IDevice> GetDevice(const String&) override { return x_device; }

  private:
    std::shared_ptr<IDevice> x_device = std::make_shared<QuietDevice>();
};

class QuietServices final : public DefaultSystemServices {
  public:
    std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t, std::int32_t, const String&,
                                                    std::int32_t, std::int32_t) override {
        return x_file;
    }
    std::shared_ptr<ICalTable> GetTable(ITableType, std::int32_t, const String&, ITableMeasClass,
                                        bool&) override {
        return x_table;
    }

  private:
    std::shared_ptr<ISettingsFile> x_file = std::make_shared<DefaultSettingsFile>();
    std::shared_ptr<ICalTable> x_table = std::make_shared<DefaultCalTable>();
};

class QuietMacro final : public DefaultApiMacro {
  public:
    bool Load(const String&, const Value&, const Value&, Value&) override { return true; }
    bool Execute(String&, String&, Value&) override { return true; }
    bool GetResult() override { return true; }
};

class QuietDriver final : public DefaultGpibDriver {
  public:
    std::int16_t OpenDevice(std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                            std::int16_t) override {
        return 1;
    }
};

class Factory final : public IHostFactory {
  public:
    std::shared_ptr<IDeviceList> MakeDeviceList() override { return std::make_shared<QuietList>(); }
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return std::make_shared<QuietServices>();
    }
    std::shared_ptr<IApiMacro> MakeApiMacro() override { return std::make_shared<QuietMacro>(); }
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return std::make_shared<QuietDriver>();
    }
};

}  // namespace

std::shared_ptr<IHostFactory> HostWithDevices() {
    return std::make_shared<Factory>();
}

}  // namespace ace::bench
