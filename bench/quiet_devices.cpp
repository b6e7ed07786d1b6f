#include <ace/host/amplifier.h>
#include <ace/host/bc_generator.h>
#include <ace/host/monitor_device.h>
#include <ace/host/receiver.h>
#include <ace/host/rf_generator.h>
#include <ace/host/switch_unit.h>

#include "bench/quiet_host.h"
#include "bench/quiet_services.h"

namespace ace::bench {

namespace {

template <bool Counts>
class QuietDevice final : public DefaultDevice,
                          public DefaultMonitorDevice,
                          public DefaultSwitchUnit,
                          public DefaultRfGenerator,
                          public DefaultSignalPath,
                          public std::enable_shared_from_this<QuietDevice<Counts>> {
  public:
    std::int32_t State() override { return Active; }
    std::shared_ptr<IDevice> CommonDevice() override { return this->shared_from_this(); }
    void SetFrequency(double&) override {}
    void SetFrequency(double) override {}
    void SetChannel(std::int32_t, std::int32_t) override { Count<Counts>(Call::Channel); }
    void SwitchPath(String&) override { Count<Counts>(Call::Path); }
    void Execute() override { Count<Counts>(Call::Generator); }
};

template <bool Counts>
class QuietList final : public QuietEvents<Counts> {
  public:
    std::shared_ptr<IDevice> GetDevice(const String&) override { return x_device; }

  private:
    std::shared_ptr<IDevice> x_device = std::make_shared<QuietDevice<Counts>>();
};

template <bool Counts>
class QuietServices final : public QuietBoxesOfTime<Counts> {
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

template <bool Counts>
class QuietMacro final : public DefaultApiMacro {
  public:
    bool Load(const String&, const Value&, const Value&, Value&) override {
        Count<Counts>(Call::MacroLoad);
        return true;
    }
    bool Execute(String&, String&, Value&) override { return true; }
    bool GetResult() override {
        Count<Counts>(Call::MacroResult);
        return true;
    }
};

template <bool Counts>
class Factory final : public QuietFactory<Counts> {
  public:
    std::shared_ptr<IDeviceList> MakeDeviceList() override {
        return std::make_shared<QuietList<Counts>>();
    }
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return std::make_shared<QuietServices<Counts>>();
    }
    std::shared_ptr<IApiMacro> MakeApiMacro() override {
        return std::make_shared<QuietMacro<Counts>>();
    }
};

}  // namespace

std::shared_ptr<IHostFactory> HostWithDevices() {
    if (HostsCount()) {
        return std::make_shared<Factory<true>>();
    }
    return std::make_shared<Factory<false>>();
}

}  // namespace ace::bench
