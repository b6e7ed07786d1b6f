/// One class for each service that hands every operation on to another object, so that a host
/// overrides only what it changes.
#pragma once

#include <utility>

#include <ace/host/host_factory.h>

namespace ace {

/// Holds the object to which a service hands on.
template <class Service>
class Forwarding : public Service {
  public:
    /// `next` must be there.
    explicit Forwarding(std::shared_ptr<Service> next) : x_next(std::move(next)) {}

  protected:
    Service& Next() { return *x_next; }

  private:
    std::shared_ptr<Service> x_next;
};

class ForwardingDeviceList : public Forwarding<IDeviceList> {
  public:
    using Forwarding::Forwarding;
    IDeviceList& GetDeviceListHost() override { return Next().GetDeviceListHost(); }
    void PostEvent(const String& sender, std::int32_t kind, const String& text) override {
        Next().PostEvent(sender, kind, text);
    }
    std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                            const String& protocol, std::int32_t& handle) override {
        return Next().OpenSocket(host, port, third, protocol, handle);
    }
    std::int16_t FindSocket(const String& host, std::int32_t port, const String& third,
                            std::int32_t& handle) override {
        return Next().FindSocket(host, port, third, handle);
    }
    std::int32_t CloseSocket(std::int32_t handle) override { return Next().CloseSocket(handle); }
    std::int32_t SendSocket(std::int32_t handle, const String& text) override {
        return Next().SendSocket(handle, text);
    }
    bool SocketIsOpen(std::int32_t handle) override { return Next().SocketIsOpen(handle); }
    String ClassName(std::int32_t deviceClass) override { return Next().ClassName(deviceClass); }
    std::shared_ptr<IDevice> GetDevice(const String& name) override {
        return Next().GetDevice(name);
    }
    std::vector<DeviceRecord> DevicesOfClass(const String& classKey) override {
        return Next().DevicesOfClass(classKey);
    }
};

class ForwardingGpibDriver : public Forwarding<IGpibDriver> {
  public:
    using Forwarding::Forwarding;
    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override {
        return Next().OpenDevice(board, primary, secondary, timeOut, sendEoi, endOfString);
    }
    std::int32_t CloseDevice(std::int32_t handle, std::int32_t online) override {
        return Next().CloseDevice(handle, online);
    }
    void WriteString(std::int16_t handle, const String& text) override {
        Next().WriteString(handle, text);
    }
};

class ForwardingSerialPort : public Forwarding<ISerialPort> {
  public:
    using Forwarding::Forwarding;
    std::int16_t CommPort() override { return Next().CommPort(); }
    void CommPort(std::int16_t number) override { Next().CommPort(number); }
    bool PortOpen() override { return Next().PortOpen(); }
    void PortOpen(bool open) override { Next().PortOpen(open); }
    void Output(const String& text) override { Next().Output(text); }
};

class ForwardingApiMacro : public Forwarding<IApiMacro> {
  public:
    using Forwarding::Forwarding;
    std::int16_t ParameterCount() override { return Next().ParameterCount(); }
    MacroParameterInfo ParameterInfo(std::int32_t& index) override {
        return Next().ParameterInfo(index);
    }
    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override {
        return Next().Load(program, parameters, second, value);
    }
    void Abort() override { Next().Abort(); }
    bool GetResult() override { return Next().GetResult(); }
    bool Execute(String& text, String& errorText, Value& value) override {
        return Next().Execute(text, errorText, value);
    }
    void WaitFinished() override { Next().WaitFinished(); }
};

class ForwardingPlatform : public Forwarding<IPlatform> {
  public:
    using Forwarding::Forwarding;
    void Yield() override { Next().Yield(); }
    std::int32_t sndPlaySoundA(const String& fileName, std::int32_t flags) override {
        return Next().sndPlaySoundA(fileName, flags);
    }
    void Beep() override { Next().Beep(); }
    void ActivateProgram(double processId) override { Next().ActivateProgram(processId); }
    double StartProgram(const String& commandLine) override {
        return Next().StartProgram(commandLine);
    }
    std::int32_t ThreadId() override { return Next().ThreadId(); }
    wchar_t DecimalSeparator() override { return Next().DecimalSeparator(); }
    float SecondsSinceMidnight() override { return Next().SecondsSinceMidnight(); }
};

class ForwardingSystemServices : public Forwarding<ISystemServices> {
  public:
    using Forwarding::Forwarding;
    std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t kind, std::int32_t mode,
                                                    const String& name, std::int32_t third,
                                                    std::int32_t fourth) override {
        return Next().OpenSettingsFile(kind, mode, name, third, fourth);
    }
    bool FileIsUsable(const String& path, bool first, bool second) override {
        return Next().FileIsUsable(path, first, second);
    }
    void ShowTimedMessage(const String& text, std::int32_t& style, const String& title,
                          std::int32_t milliseconds) override {
        Next().ShowTimedMessage(text, style, title, milliseconds);
    }
    std::shared_ptr<ITestInfo> GetCurrentTest() override { return Next().GetCurrentTest(); }
    std::shared_ptr<ITestInfo> CurrentTest() override { return Next().CurrentTest(); }
    std::shared_ptr<ICalTable> GetTable(ITableType type, std::int32_t mode, const String& name,
                                        ITableMeasClass measClass, bool& flag) override {
        return Next().GetTable(type, mode, name, measClass, flag);
    }
    std::shared_ptr<ISettingsFile> GetGlobalSettings() override {
        return Next().GetGlobalSettings();
    }
    void SetProgressText(const String& text) override { Next().SetProgressText(text); }
    void WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) override {
        Next().WriteMacroSync(group, key, value);
    }
    String ReadMacroSync(std::int32_t key) override { return Next().ReadMacroSync(key); }
};

class ForwardingFormHost : public Forwarding<IFormHost> {
  public:
    using Forwarding::Forwarding;
    void ShowModal(Form& form) override { Next().ShowModal(form); }
    void Hide(Form& form) override { Next().Hide(form); }
    float TextHeight(const String& text, float width) override {
        return Next().TextHeight(text, width);
    }
};

class ForwardingUserDialogs : public Forwarding<IUserDialogs> {
  public:
    using Forwarding::Forwarding;
    std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                const String& title) override {
        return Next().ShowMessageBox(text, style, title);
    }
    std::optional<String> OpenFile(const FileQuestion& question) override {
        return Next().OpenFile(question);
    }
    std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>& items) override {
        return Next().ShowPopupMenu(items);
    }
    void SetBusyPointer(Boolean busy) override { Next().SetBusyPointer(busy); }
};

class ForwardingDeviceSettingsStore : public Forwarding<IDeviceSettingsStore> {
  public:
    using Forwarding::Forwarding;
    void SetDevice(const String& deviceName, std::int32_t mode) override {
        Next().SetDevice(deviceName, mode);
    }
    void StoreIn(const std::shared_ptr<ISettingsFile>& settings, const String& section) override {
        Next().StoreIn(settings, section);
    }
    void EditSettings(String& text) override { Next().EditSettings(text); }
};

class ForwardingLanguage : public Forwarding<ILanguage> {
  public:
    using Forwarding::Forwarding;
    String Text(std::int32_t number) override { return Next().Text(number); }
    void TranslateForm(Form& form) override { Next().TranslateForm(form); }
};

class ForwardingStatusDisplay : public Forwarding<IStatusDisplay> {
  public:
    using Forwarding::Forwarding;
    void ShowStatus(const String& text, bool first, bool second) override {
        Next().ShowStatus(text, first, second);
    }
};

class ForwardingTraceLog : public Forwarding<ITraceLog> {
  public:
    using Forwarding::Forwarding;
    bool IsEnabled() override { return Next().IsEnabled(); }
    std::int32_t ReportError(const RunTimeError& error, std::int32_t threadId,
                             std::int32_t errorLine) override {
        return Next().ReportError(error, threadId, errorLine);
    }
    void WriteLine(StringView marker, StringView component, StringView module, StringView procedure,
                   StringView message, StringView threadId) override {
        Next().WriteLine(marker, component, module, procedure, message, threadId);
    }
};

class ForwardingUtilities : public Forwarding<IUtilities> {
  public:
    using Forwarding::Forwarding;
    bool IsEqual(double a, double b) override { return Next().IsEqual(a, b); }
    bool IsSameValue(double a, double b) override { return Next().IsSameValue(a, b); }
    Value Max(const Value& first, std::span<const Value> further) override {
        return Next().Max(first, further);
    }
    bool InRange(const Value& lower, const Value& value, const Value& upper) override {
        return Next().InRange(lower, value, upper);
    }
    std::int32_t Wait(float milliseconds) override { return Next().Wait(milliseconds); }
};

}  // namespace ace
