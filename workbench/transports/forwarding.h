/// One class per host interface that hands every operation on to another object, so that a host
/// overrides only what it changes. The other object must be there.
#pragma once

#include <memory>
#include <utility>

#include <ace/host/host_factory.h>

namespace ace::workbench {

class ForwardingDeviceList : public IDeviceList {
  public:
    explicit ForwardingDeviceList(std::shared_ptr<IDeviceList> next) : x_next(std::move(next)) {}
    IDeviceList& GetDeviceListHost() override { return x_next->GetDeviceListHost(); }
    void PostEvent(const String& sender, std::int32_t kind, const String& text) override {
        x_next->PostEvent(sender, kind, text);
    }
    std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                            const String& protocol, std::int32_t& handle) override {
        return x_next->OpenSocket(host, port, third, protocol, handle);
    }
    std::int16_t FindSocket(const String& host, std::int32_t port, const String& third,
                            std::int32_t& handle) override {
        return x_next->FindSocket(host, port, third, handle);
    }
    std::int32_t CloseSocket(std::int32_t handle) override { return x_next->CloseSocket(handle); }
    std::int32_t SendSocket(std::int32_t handle, const String& text) override {
        return x_next->SendSocket(handle, text);
    }
    bool SocketIsOpen(std::int32_t handle) override { return x_next->SocketIsOpen(handle); }
    String ClassName(std::int32_t deviceClass) override { return x_next->ClassName(deviceClass); }
    std::shared_ptr<IDevice> GetDevice(const String& name) override {
        return x_next->GetDevice(name);
    }
    std::vector<DeviceRecord> DevicesOfClass(const String& classKey) override {
        return x_next->DevicesOfClass(classKey);
    }

  protected:
    IDeviceList& Next() { return *x_next; }

  private:
    std::shared_ptr<IDeviceList> x_next;
};

class ForwardingGpibDriver : public IGpibDriver {
  public:
    explicit ForwardingGpibDriver(std::shared_ptr<IGpibDriver> next) : x_next(std::move(next)) {}
    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override {
        return x_next->OpenDevice(board, primary, secondary, timeOut, sendEoi, endOfString);
    }
    std::int32_t CloseDevice(std::int32_t handle, std::int32_t online) override {
        return x_next->CloseDevice(handle, online);
    }
    void WriteString(std::int16_t handle, const String& text) override {
        x_next->WriteString(handle, text);
    }

  protected:
    IGpibDriver& Next() { return *x_next; }

  private:
    std::shared_ptr<IGpibDriver> x_next;
};

class ForwardingSerialPort : public ISerialPort {
  public:
    explicit ForwardingSerialPort(std::shared_ptr<ISerialPort> next) : x_next(std::move(next)) {}
    std::int16_t CommPort() override { return x_next->CommPort(); }
    void CommPort(std::int16_t number) override { x_next->CommPort(number); }
    bool PortOpen() override { return x_next->PortOpen(); }
    void PortOpen(bool open) override { x_next->PortOpen(open); }
    void Output(const String& text) override { x_next->Output(text); }

  protected:
    ISerialPort& Next() { return *x_next; }

  private:
    std::shared_ptr<ISerialPort> x_next;
};

class ForwardingApiMacro : public IApiMacro {
  public:
    explicit ForwardingApiMacro(std::shared_ptr<IApiMacro> next) : x_next(std::move(next)) {}
    std::int16_t ParameterCount() override { return x_next->ParameterCount(); }
    MacroParameterInfo ParameterInfo(std::int32_t& index) override {
        return x_next->ParameterInfo(index);
    }
    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override {
        return x_next->Load(program, parameters, second, value);
    }
    void Abort() override { x_next->Abort(); }
    bool GetResult() override { return x_next->GetResult(); }
    bool Execute(String& text, String& errorText, Value& value) override {
        return x_next->Execute(text, errorText, value);
    }
    void WaitFinished() override { x_next->WaitFinished(); }

  protected:
    IApiMacro& Next() { return *x_next; }

  private:
    std::shared_ptr<IApiMacro> x_next;
};

class ForwardingPlatform : public IPlatform {
  public:
    explicit ForwardingPlatform(std::shared_ptr<IPlatform> next) : x_next(std::move(next)) {}
    void Yield() override { x_next->Yield(); }
    std::int32_t sndPlaySoundA(const String& fileName, std::int32_t flags) override {
        return x_next->sndPlaySoundA(fileName, flags);
    }
    void Beep() override { x_next->Beep(); }
    void ActivateProgram(double processId) override { x_next->ActivateProgram(processId); }
    double StartProgram(const String& commandLine) override {
        return x_next->StartProgram(commandLine);
    }
    std::int32_t ThreadId() override { return x_next->ThreadId(); }
    wchar_t DecimalSeparator() override { return x_next->DecimalSeparator(); }
    float SecondsSinceMidnight() override { return x_next->SecondsSinceMidnight(); }

  protected:
    IPlatform& Next() { return *x_next; }

  private:
    std::shared_ptr<IPlatform> x_next;
};

class ForwardingSystemServices : public ISystemServices {
  public:
    explicit ForwardingSystemServices(std::shared_ptr<ISystemServices> next)
        : x_next(std::move(next)) {}
    std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t kind, std::int32_t mode,
                                                    const String& name, std::int32_t third,
                                                    std::int32_t fourth) override {
        return x_next->OpenSettingsFile(kind, mode, name, third, fourth);
    }
    bool FileIsUsable(const String& path, bool first, bool second) override {
        return x_next->FileIsUsable(path, first, second);
    }
    void ShowTimedMessage(const String& text, std::int32_t& style, const String& title,
                          std::int32_t milliseconds) override {
        x_next->ShowTimedMessage(text, style, title, milliseconds);
    }
    std::shared_ptr<ITestInfo> GetCurrentTest() override { return x_next->GetCurrentTest(); }
    std::shared_ptr<ITestInfo> CurrentTest() override { return x_next->CurrentTest(); }
    std::shared_ptr<ICalTable> GetTable(ITableType type, std::int32_t mode, const String& name,
                                        ITableMeasClass measClass, bool& flag) override {
        return x_next->GetTable(type, mode, name, measClass, flag);
    }
    std::shared_ptr<ISettingsFile> GetGlobalSettings() override {
        return x_next->GetGlobalSettings();
    }
    void SetProgressText(const String& text) override { x_next->SetProgressText(text); }
    void WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) override {
        x_next->WriteMacroSync(group, key, value);
    }
    String ReadMacroSync(std::int32_t key) override { return x_next->ReadMacroSync(key); }

  protected:
    ISystemServices& Next() { return *x_next; }

  private:
    std::shared_ptr<ISystemServices> x_next;
};

}  // namespace ace::workbench
