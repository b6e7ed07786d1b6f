/// The services that both hosts of the benchmarks have.
#pragma once

#include <ace/host/host_factory.h>

#include "bench/host_calls.h"

namespace ace::bench {

template <bool Counts>
class QuietPlatform final : public DefaultPlatform {
  public:
    void Yield() override { Count<Counts>(Call::Yield); }
};

template <bool Counts>
class QuietTraceLog final : public DefaultTraceLog {
  public:
    bool IsEnabled() override {
        Count<Counts>(Call::TraceQuestion);
        return false;
    }
};

template <bool Counts>
class QuietDriver final : public DefaultGpibDriver {
  public:
    std::int16_t OpenDevice(std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                            std::int16_t) override {
        return 1;
    }
    void WriteString(std::int16_t, const String&) override { Count<Counts>(Call::BusWrite); }
};

template <bool Counts>
class QuietStatus final : public DefaultStatusDisplay {
  public:
    void ShowStatus(const String&, bool, bool) override { Count<Counts>(Call::Status); }
};

template <bool Counts>
class QuietBoxes final : public DefaultUserDialogs {
  public:
    std::int32_t ShowMessageBox(const String&, std::int32_t, const String&) override {
        Count<Counts>(Call::Box);
        return AnswerOk;
    }
};

/// Every form is answered by closing it.
template <bool Counts>
class QuietForms final : public DefaultFormHost {
  public:
    void ShowModal(Form& form) override {
        Count<Counts>(Call::Form);
        DefaultFormHost::ShowModal(form);
    }
};

template <bool Counts>
class QuietBoxesOfTime : public DefaultSystemServices {
  public:
    void ShowTimedMessage(const String&, std::int32_t&, const String&, std::int32_t) override {
        Count<Counts>(Call::TimedMessage);
    }
};

template <bool Counts>
class QuietEvents : public DefaultDeviceList {
  public:
    void PostEvent(const String&, std::int32_t, const String&) override {
        Count<Counts>(Call::Event);
    }
};

/// A host without devices.
template <bool Counts>
class QuietFactory : public IHostFactory {
  public:
    std::shared_ptr<IPlatform> MakePlatform() override {
        return std::make_shared<QuietPlatform<Counts>>();
    }
    std::shared_ptr<ITraceLog> MakeTraceLog() override {
        return std::make_shared<QuietTraceLog<Counts>>();
    }
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return std::make_shared<QuietDriver<Counts>>();
    }
    std::shared_ptr<IStatusDisplay> MakeStatusDisplay() override {
        return std::make_shared<QuietStatus<Counts>>();
    }
    std::shared_ptr<IUserDialogs> MakeUserDialogs() override {
        return std::make_shared<QuietBoxes<Counts>>();
    }
    std::shared_ptr<IFormHost> MakeFormHost() override {
        return std::make_shared<QuietForms<Counts>>();
    }
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return std::make_shared<QuietBoxesOfTime<Counts>>();
    }
    std::shared_ptr<IDeviceList> MakeDeviceList() override {
        return std::make_shared<QuietEvents<Counts>>();
    }
};

}  // namespace ace::bench
