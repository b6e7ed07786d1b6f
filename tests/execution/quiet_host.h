/// A host for runs without memory: settings files of a simulated host, a bench on which every
/// action on a device, the bus and a macro succeeds, and nothing else.
#pragma once

#include "support/every_kind.h"

namespace ace::test {

/// A device of every kind, and always active.
class QuietDevice final : public DefaultDevice,
                          public DefaultMonitorDevice,
                          public DefaultBcGenerator,
                          public DefaultRfGenerator,
                          public DefaultAmplifier,
                          public DefaultSwitchUnit,
                          public DefaultReceiver,
                          public std::enable_shared_from_this<QuietDevice> {
  public:
    explicit QuietDevice(sim::SimClass ofClass) : x_class(ofClass) {}
    std::shared_ptr<IDevice> CommonDevice() override { return shared_from_this(); }
    std::int32_t DeviceClass() override { return static_cast<std::int32_t>(x_class); }
    std::int32_t State() override { return Active; }
    void SetFrequency(double) override {}
    void SetFrequency(double&) override {}

  private:
    sim::SimClass x_class;
};

/// Its yields and waits allocate nothing: a moment hands on as it comes what a host raises there.
class QuietHost : public IHostFactory {
  public:
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return std::make_shared<Services>(*this);
    }
    std::shared_ptr<IDeviceList> MakeDeviceList() override {
        return isBare ? IHostFactory::MakeDeviceList() : std::make_shared<Devices>();
    }
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return isBare ? IHostFactory::MakeGpibDriver() : std::make_shared<Bus>();
    }
    std::shared_ptr<IApiMacro> MakeApiMacro() override { return std::make_shared<Macro>(); }

    bool isBare = false;        ///< there is no bench: devices and buses fail
    sim::SimHost store;         ///< its files
    std::size_t lastWaits = 0;  ///< waits that took `LastWait`

  private:
    struct Services : DefaultSystemServices {
        explicit Services(QuietHost& owner) : host(owner) {}
        std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t kind, std::int32_t,
                                                        const String& name, std::int32_t,
                                                        std::int32_t) override {
            return host.store.OpenFile(kind, name);
        }
        void ShowTimedMessage(const String&, std::int32_t&, const String&,
                              std::int32_t milliseconds) override {
            host.lastWaits += milliseconds == LastWait ? 1U : 0U;
        }
        std::shared_ptr<ICalTable> GetTable(ITableType, std::int32_t, const String&,
                                            ITableMeasClass, bool&) override {
            return table;
        }
        QuietHost& host;
        std::shared_ptr<ICalTable> table = std::make_shared<DefaultCalTable>();
    };
    struct Devices : DefaultDeviceList {
        String ClassName(std::int32_t deviceClass) override {
            return sim::ClassKeyOf(static_cast<sim::SimClass>(deviceClass));
        }
        std::shared_ptr<IDevice> GetDevice(const String& name) override {
            return name == L"Injector" ? injector : other;
        }
        std::vector<DeviceRecord> DevicesOfClass(const String&) override { return {{}, receiver}; }
        std::shared_ptr<IDevice> injector =
            std::make_shared<QuietDevice>(sim::SimClass::BcGenerators);
        std::shared_ptr<IDevice> other = std::make_shared<QuietDevice>(sim::SimClass::Monitoring);
        DeviceRecord receiver{L"Receiver"};
    };
    struct Bus : DefaultGpibDriver {
        std::int16_t OpenDevice(std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                                std::int16_t, std::int16_t) override {
            return 1;
        }
    };
    struct Macro : DefaultApiMacro {
        bool Load(const String&, const Value&, const Value&, Value&) override { return true; }
        bool Execute(String&, String&, Value&) override { return true; }
        bool GetResult() override { return true; }
    };
};

}  // namespace ace::test
