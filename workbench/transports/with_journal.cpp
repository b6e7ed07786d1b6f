#include "workbench/transports/with_journal.h"

#include <ace/host/forwarding.h>

namespace ace::workbench {

namespace {

using sim::CallText;
using sim::SimHost;

constexpr bool Question = true;

class JournalGpibDriver final : public ForwardingGpibDriver {
  public:
    JournalGpibDriver(SimHost& host, std::shared_ptr<IGpibDriver> next)
        : ForwardingGpibDriver(std::move(next)), x_host(host) {}

    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override {
        x_host.Call(L"GpibDriver.OpenDevice",
                    CallText(board, primary, secondary, timeOut, sendEoi, endOfString));
        return Next().OpenDevice(board, primary, secondary, timeOut, sendEoi, endOfString);
    }
    std::int32_t CloseDevice(std::int32_t handle, std::int32_t online) override {
        x_host.Call(L"GpibDriver.CloseDevice", CallText(handle, online));
        return Next().CloseDevice(handle, online);
    }
    void WriteString(std::int16_t handle, const String& text) override {
        x_host.Call(L"GpibDriver.WriteString", CallText(handle, text));
        Next().WriteString(handle, text);
    }

  private:
    SimHost& x_host;
};

class JournalSerialPort final : public ForwardingSerialPort {
  public:
    JournalSerialPort(SimHost& host, std::shared_ptr<ISerialPort> next)
        : ForwardingSerialPort(std::move(next)), x_host(host) {}

    std::int16_t CommPort() override {
        x_host.Call(L"SerialPort.CommPort", {}, Question);
        return Next().CommPort();
    }
    void CommPort(std::int16_t number) override {
        x_host.Call(L"SerialPort.CommPort", CallText(number));
        Next().CommPort(number);
    }
    bool PortOpen() override {
        x_host.Call(L"SerialPort.PortOpen", {}, Question);
        return Next().PortOpen();
    }
    void PortOpen(bool open) override {
        x_host.Call(L"SerialPort.PortOpen", CallText(open));
        Next().PortOpen(open);
    }
    void Output(const String& text) override {
        x_host.Call(L"SerialPort.Output", CallText(text));
        Next().Output(text);
    }

  private:
    SimHost& x_host;
};

class JournalApiMacro final : public ForwardingApiMacro {
  public:
    JournalApiMacro(SimHost& host, std::shared_ptr<IApiMacro> next)
        : ForwardingApiMacro(std::move(next)), x_host(host) {}

    std::int16_t ParameterCount() override {
        x_host.Call(L"ApiMacro.ParameterCount", {});
        return Next().ParameterCount();
    }
    MacroParameterInfo ParameterInfo(std::int32_t& index) override {
        x_host.Call(L"ApiMacro.ParameterInfo", CallText(index));
        return Next().ParameterInfo(index);
    }
    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override {
        x_host.Call(L"ApiMacro.Load", CallText(program, parameters, second));
        return Next().Load(program, parameters, second, value);
    }
    void Abort() override {
        x_host.Call(L"ApiMacro.Abort", {});
        Next().Abort();
    }
    bool GetResult() override {
        x_host.Call(L"ApiMacro.GetResult", {});
        return Next().GetResult();
    }
    bool Execute(String& text, String& errorText, Value& value) override {
        x_host.Call(L"ApiMacro.Execute", {});
        return Next().Execute(text, errorText, value);
    }
    void WaitFinished() override {
        x_host.Call(L"ApiMacro.WaitFinished", {});
        Next().WaitFinished();
    }

  private:
    SimHost& x_host;
};

class JournalDeviceList final : public ForwardingDeviceList {
  public:
    JournalDeviceList(SimHost& host, std::shared_ptr<IDeviceList> next)
        : ForwardingDeviceList(std::move(next)), x_host(host) {}

    std::int32_t OpenSocket(const String& address, std::int32_t port, std::int32_t third,
                            const String& protocol, std::int32_t& handle) override {
        x_host.Call(L"DeviceList.OpenSocket", CallText(address, port, third, protocol, handle));
        return Next().OpenSocket(address, port, third, protocol, handle);
    }
    std::int16_t FindSocket(const String& address, std::int32_t port, const String& third,
                            std::int32_t& handle) override {
        x_host.Call(L"DeviceList.FindSocket", CallText(address, port, third, handle));
        return Next().FindSocket(address, port, third, handle);
    }
    std::int32_t CloseSocket(std::int32_t handle) override {
        x_host.Call(L"DeviceList.CloseSocket", CallText(handle));
        return Next().CloseSocket(handle);
    }
    std::int32_t SendSocket(std::int32_t handle, const String& text) override {
        x_host.Call(L"DeviceList.SendSocket", CallText(handle, text));
        return Next().SendSocket(handle, text);
    }
    bool SocketIsOpen(std::int32_t handle) override {
        x_host.Call(L"DeviceList.SocketIsOpen", CallText(handle));
        return Next().SocketIsOpen(handle);
    }

  private:
    SimHost& x_host;
};

class JournalPlatform final : public ForwardingPlatform {
  public:
    JournalPlatform(SimHost& host, std::shared_ptr<IPlatform> next)
        : ForwardingPlatform(std::move(next)), x_host(host) {}

    std::int32_t sndPlaySoundA(const String& fileName, std::int32_t flags) override {
        x_host.Call(L"Platform.sndPlaySoundA", CallText(fileName, flags));
        return Next().sndPlaySoundA(fileName, flags);
    }
    void ActivateProgram(double processId) override {
        x_host.Call(L"Platform.ActivateProgram", CallText(processId));
        Next().ActivateProgram(processId);
    }
    double StartProgram(const String& commandLine) override {
        x_host.Call(L"Platform.StartProgram", CallText(commandLine));
        return Next().StartProgram(commandLine);
    }

  private:
    SimHost& x_host;
};

class JournalSystemServices final : public ForwardingSystemServices {
  public:
    JournalSystemServices(SimHost& host, std::shared_ptr<ISystemServices> next)
        : ForwardingSystemServices(std::move(next)), x_host(host) {}

    std::shared_ptr<ISettingsFile> GetGlobalSettings() override {
        x_host.Call(L"SystemServices.GetGlobalSettings", {});
        return Next().GetGlobalSettings();
    }
    void WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) override {
        x_host.Call(L"SystemServices.WriteMacroSync", CallText(group, key, value));
        Next().WriteMacroSync(group, key, value);
    }
    String ReadMacroSync(std::int32_t key) override {
        x_host.Call(L"SystemServices.ReadMacroSync", CallText(key));
        return Next().ReadMacroSync(key);
    }

  private:
    SimHost& x_host;
};

}  // namespace

std::shared_ptr<IGpibDriver> WithJournal(SimHost& host, std::shared_ptr<IGpibDriver> driver) {
    return std::make_shared<JournalGpibDriver>(host, std::move(driver));
}
std::shared_ptr<ISerialPort> WithJournal(SimHost& host, std::shared_ptr<ISerialPort> port) {
    return std::make_shared<JournalSerialPort>(host, std::move(port));
}
std::shared_ptr<IApiMacro> WithJournal(SimHost& host, std::shared_ptr<IApiMacro> macro) {
    return std::make_shared<JournalApiMacro>(host, std::move(macro));
}
std::shared_ptr<IDeviceList> WithJournal(SimHost& host, std::shared_ptr<IDeviceList> list) {
    return std::make_shared<JournalDeviceList>(host, std::move(list));
}
std::shared_ptr<IPlatform> WithJournal(SimHost& host, std::shared_ptr<IPlatform> platform) {
    return std::make_shared<JournalPlatform>(host, std::move(platform));
}
std::shared_ptr<ISystemServices> WithJournal(SimHost& host,
                                             std::shared_ptr<ISystemServices> services) {
    return std::make_shared<JournalSystemServices>(host, std::move(services));
}

}  // namespace ace::workbench
