/// The services of a simulated host. Each does what `SimHost` knows and writes it down.
#pragma once

#include "sim/sim_host.h"

namespace ace::sim {

class SimTraceLog : public ITraceLog {
  public:
    explicit SimTraceLog(SimHost& host) : x_host(host) {}
    bool IsEnabled() override;
    std::int32_t ReportError(const RunTimeError& error, std::int32_t threadId,
                             std::int32_t errorLine) override;
    void WriteLine(StringView marker, StringView component, StringView module, StringView procedure,
                   StringView message, StringView threadId) override;

  private:
    SimHost& x_host;
};

class SimLanguage : public ILanguage {
  public:
    explicit SimLanguage(SimHost& host) : x_host(host) {}
    String Text(std::int32_t number) override;

  private:
    SimHost& x_host;
};

/// Exact comparisons, so that a test can work out by hand what is equal.
class SimUtilities : public DefaultUtilities {
  public:
    explicit SimUtilities(SimHost& host) : x_host(host) {}
    bool IsEqual(double a, double b) override;
    bool IsSameValue(double a, double b) override;
    Value Max(const Value& first, std::span<const Value> further) override;
    bool InRange(const Value& lower, const Value& value, const Value& upper) override;
    std::int32_t Wait(float milliseconds) override;

  private:
    SimHost& x_host;
};

class SimTestInfo : public ITestInfo {
  public:
    explicit SimTestInfo(SimHost& host) : x_host(host) {}
    std::int32_t GetTestState(String& name) override;
    std::int32_t TestKind(String& name) override;

  private:
    SimHost& x_host;
};

class SimSystemServices : public ISystemServices {
  public:
    explicit SimSystemServices(SimHost& host) : x_host(host) {}
    std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t kind, std::int32_t mode,
                                                    const String& name, std::int32_t third,
                                                    std::int32_t fourth) override;
    bool FileIsUsable(const String& path, bool first, bool second) override;
    void ShowTimedMessage(const String& text, std::int32_t& style, const String& title,
                          std::int32_t milliseconds) override;
    std::shared_ptr<ITestInfo> GetCurrentTest() override;
    std::shared_ptr<ICalTable> GetTable(ITableType type, std::int32_t mode, const String& name,
                                        ITableMeasClass measClass, bool& flag) override;
    std::shared_ptr<ISettingsFile> GetGlobalSettings() override;
    void SetProgressText(const String& text) override;
    void WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) override;
    String ReadMacroSync(std::int32_t key) override;

  private:
    SimHost& x_host;
};

class SimDeviceList : public IDeviceList {
  public:
    explicit SimDeviceList(SimHost& host) : x_host(host) {}
    IDeviceList& GetDeviceListHost() override;
    void PostEvent(const String& sender, std::int32_t kind, const String& text) override;
    std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                            const String& protocol, std::int32_t& handle) override;
    std::int16_t FindSocket(const String& host, std::int32_t port, const String& third,
                            std::int32_t& handle) override;
    std::int32_t CloseSocket(std::int32_t handle) override;
    std::int32_t SendSocket(std::int32_t handle, const String& text) override;
    bool SocketIsOpen(std::int32_t handle) override;
    String ClassName(std::int32_t deviceClass) override;
    std::shared_ptr<IDevice> GetDevice(const String& name) override;
    std::vector<DeviceRecord> DevicesOfClass(const String& classKey) override;

  private:
    SimHost& x_host;
};

class SimGpibDriver : public IGpibDriver {
  public:
    explicit SimGpibDriver(SimHost& host) : x_host(host) {}
    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override;
    std::int32_t CloseDevice(std::int32_t handle, std::int32_t online) override;
    void WriteString(std::int16_t handle, const String& text) override;

  private:
    SimHost& x_host;
};

class SimStatusDisplay : public IStatusDisplay {
  public:
    explicit SimStatusDisplay(SimHost& host) : x_host(host) {}
    void ShowStatus(const String& text, bool first, bool second) override;

  private:
    SimHost& x_host;
};

class SimPlatform : public IPlatform {
  public:
    explicit SimPlatform(SimHost& host) : x_host(host) {}
    void Yield() override;
    std::int32_t sndPlaySoundA(const String& fileName, std::int32_t flags) override;
    void Beep() override;
    void ActivateProgram(double processId) override;
    double StartProgram(const String& commandLine) override;
    std::int32_t ThreadId() override;
    wchar_t DecimalSeparator() override;
    float SecondsSinceMidnight() override;

  private:
    SimHost& x_host;
};

class SimSerialPort : public ISerialPort {
  public:
    explicit SimSerialPort(SimHost& host) : x_host(host) {}
    std::int16_t CommPort() override;
    void CommPort(std::int16_t number) override;
    bool PortOpen() override;
    void PortOpen(bool open) override;
    void Output(const String& text) override;

  private:
    SimHost& x_host;
    std::int16_t x_number = 1;
};

}  // namespace ace::sim
