#include "workbench/transports/real_host.h"

#include <ace/host/forwarding.h>

#include "workbench/transports/command_line.h"
#include "workbench/transports/gpib_bus.h"
#include "workbench/transports/macro_runner.h"
#include "workbench/transports/macro_sync.h"
#include "workbench/transports/programs.h"
#include "workbench/transports/sound_player.h"

namespace ace::workbench {

namespace {

class RealDeviceList final : public ForwardingDeviceList {
  public:
    RealDeviceList(std::shared_ptr<IDeviceList> rest, const RealHostNeeds& needs)
        : ForwardingDeviceList(std::move(rest)), x_sockets(needs.settings.tcp, needs.events) {}

    std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t, const String&,
                            std::int32_t& handle) override {
        handle = x_sockets.Open(host, port);
        return 0;
    }
    std::int16_t FindSocket(const String& host, std::int32_t port, const String&,
                            std::int32_t&) override {
        return static_cast<std::int16_t>(x_sockets.Find(host, port));
    }
    std::int32_t CloseSocket(std::int32_t handle) override {
        x_sockets.Close(handle);
        return 0;
    }
    std::int32_t SendSocket(std::int32_t handle, const String& text) override {
        x_sockets.Send(handle, text);
        return 0;
    }
    bool SocketIsOpen(std::int32_t handle) override { return x_sockets.IsOpen(handle); }

  private:
    TcpSockets x_sockets;
};

class RealPlatform final : public ForwardingPlatform {
  public:
    RealPlatform(std::shared_ptr<IPlatform> rest, const RealHostNeeds& needs)
        : ForwardingPlatform(std::move(rest)),
          x_sounds(needs.settings.soundPlayer),
          x_remark(needs.remark) {}

    std::int32_t sndPlaySoundA(const String& fileName, std::int32_t) override {
        if (x_sounds.Play(fileName)) {
            return 1;
        }
        Tell(x_remark, L"sound " + fileName + L": can't be played: " + x_sounds.Failure());
        return 0;
    }
    void ActivateProgram(double processId) override {
        if (!x_programs.IsRunning(processId)) {
            Raise(Errors::InvalidProcedureCall);
        }
    }
    double StartProgram(const String& commandLine) override {
        return x_programs.Start(SplitCommandLine(commandLine));
    }

  private:
    Programs x_programs;
    SoundPlayer x_sounds;
    Remark x_remark;
};

class RealSystemServices final : public ForwardingSystemServices {
  public:
    RealSystemServices(std::shared_ptr<ISystemServices> rest, const RealHostNeeds& needs)
        : ForwardingSystemServices(std::move(rest)),
          x_openConfiguration(needs.openConfiguration),
          x_sync(needs.settings.macroSync) {}

    std::shared_ptr<ISettingsFile> GetGlobalSettings() override {
        std::shared_ptr<ISettingsFile> file = x_openConfiguration ? x_openConfiguration() : nullptr;
        return file ? file : std::make_shared<DefaultSettingsFile>();
    }
    void WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) override {
        x_sync.Write(group, key, value);
    }
    String ReadMacroSync(std::int32_t key) override { return x_sync.Read(key); }

  private:
    std::function<std::shared_ptr<ISettingsFile>()> x_openConfiguration;
    MacroSync x_sync;
};

}  // namespace

std::shared_ptr<IGpibDriver> RealHost::MakeGpibDriver() const {
    return std::make_shared<GpibBus>(x_needs.settings.gpibLibrary, x_needs.remark);
}
std::shared_ptr<ISerialPort> RealHost::MakeSerialPort() const {
    return std::make_shared<SerialLine>(x_needs.settings.serialDevices,
                                        x_needs.settings.serialStall, x_needs.events);
}
std::shared_ptr<IApiMacro> RealHost::MakeApiMacro() const {
    return std::make_shared<MacroRunner>(x_needs.events, x_needs.remark);
}
std::shared_ptr<IDeviceList> RealHost::MakeDeviceList(std::shared_ptr<IDeviceList> rest) const {
    return std::make_shared<RealDeviceList>(std::move(rest), x_needs);
}
std::shared_ptr<IPlatform> RealHost::MakePlatform(std::shared_ptr<IPlatform> rest) const {
    return std::make_shared<RealPlatform>(std::move(rest), x_needs);
}
std::shared_ptr<ISystemServices> RealHost::MakeSystemServices(
    std::shared_ptr<ISystemServices> rest) const {
    return std::make_shared<RealSystemServices>(std::move(rest), x_needs);
}

}  // namespace ace::workbench
