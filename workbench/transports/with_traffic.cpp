#include "workbench/transports/with_traffic.h"

#include <map>

#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/host/forwarding.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/instrument_bytes.h"

namespace ace::workbench {

namespace {

using Log = std::shared_ptr<TrafficLog>;

/// Runs `act`; a failure is a line with `bytes` and its cause.
template <class Act>
auto LogFailure(TrafficLog& log, const TrafficLog::Entry& entry, std::string_view bytes,
                Act&& act) {
    try {
        return act();
    } catch (...) {
        log.End(entry, bytes, L"failed: " + CurrentRunTimeError().Description());
        throw;
    }
}

/// The bytes that a transport makes of the text; none when it can't.
std::string BytesOf(const String& text) {
    try {
        return InstrumentBytes(text);
    } catch (const RunTimeError&) {
        return {};
    }
}

/// A command to an instrument.
template <class Act>
void LogSending(TrafficLog& log, StringView transport, const String& address, const String& text,
                Act&& act) {
    const std::string bytes = BytesOf(text);
    const TrafficLog::Entry entry = log.Begin(transport, address);
    LogFailure(log, entry, bytes, act);
    log.End(entry, bytes, L"sent " + std::to_wstring(bytes.size()) + L" bytes");
}

class TrafficDeviceList final : public ForwardingDeviceList {
  public:
    TrafficDeviceList(Log log, std::shared_ptr<IDeviceList> next)
        : ForwardingDeviceList(std::move(next)), x_log(std::move(log)) {}

    std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                            const String& protocol, std::int32_t& handle) override {
        const String address = host + L":" + std::to_wstring(port);
        const TrafficLog::Entry entry = x_log->Begin(TrafficNames::Tcp, address);
        const std::int32_t result = LogFailure(*x_log, entry, {}, [&] {
            return Next().OpenSocket(host, port, third, protocol, handle);
        });
        if (handle < 1) {
            x_log->End(entry, {}, L"failed: no connection");
        }
        x_addresses[handle] = address;
        return result;
    }
    std::int32_t SendSocket(std::int32_t handle, const String& text) override {
        const auto address = x_addresses.find(handle);
        std::int32_t result = 0;
        LogSending(*x_log, TrafficNames::Tcp,
                   address != x_addresses.end() ? address->second : String(), text,
                   [&] { result = Next().SendSocket(handle, text); });
        return result;
    }

  private:
    Log x_log;
    std::map<std::int32_t, String> x_addresses;
};

class TrafficGpibDriver final : public ForwardingGpibDriver {
  public:
    TrafficGpibDriver(Log log, std::shared_ptr<IGpibDriver> next)
        : ForwardingGpibDriver(std::move(next)), x_log(std::move(log)) {}

    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override {
        const String address = std::to_wstring(board) + L":" + std::to_wstring(primary);
        const TrafficLog::Entry entry = x_log->Begin(TrafficNames::Gpib, address);
        const std::int16_t handle = LogFailure(*x_log, entry, {}, [&] {
            return Next().OpenDevice(board, primary, secondary, timeOut, sendEoi, endOfString);
        });
        if (handle == -1) {
            x_log->End(entry, {}, L"failed: the device can't be opened");
        }
        x_addresses[handle] = address;
        return handle;
    }
    void WriteString(std::int16_t handle, const String& text) override {
        const auto address = x_addresses.find(handle);
        LogSending(*x_log, TrafficNames::Gpib,
                   address != x_addresses.end() ? address->second : String(), text,
                   [&] { Next().WriteString(handle, text); });
    }

  private:
    Log x_log;
    std::map<std::int16_t, String> x_addresses;
};

class TrafficSerialPort final : public ForwardingSerialPort {
  public:
    TrafficSerialPort(Log log, std::shared_ptr<ISerialPort> next)
        : ForwardingSerialPort(std::move(next)), x_log(std::move(log)) {}

    using ForwardingSerialPort::CommPort;
    void CommPort(std::int16_t number) override {
        Next().CommPort(number);
        x_number = number;
    }
    using ForwardingSerialPort::PortOpen;
    void PortOpen(bool open) override {
        const TrafficLog::Entry entry = x_log->Begin(TrafficNames::Serial, Address());
        LogFailure(*x_log, entry, {}, [&] { Next().PortOpen(open); });
        if (open && !Next().PortOpen()) {
            x_log->End(entry, {}, L"failed: the port stays closed");
        }
    }
    void Output(const String& text) override {
        LogSending(*x_log, TrafficNames::Serial, Address(), text, [&] { Next().Output(text); });
    }

  private:
    String Address() const { return L"COM" + std::to_wstring(x_number); }

    Log x_log;
    std::int16_t x_number = 1;  ///< of a fresh port
};

class TrafficPlatform final : public ForwardingPlatform {
  public:
    TrafficPlatform(Log log, std::shared_ptr<IPlatform> next)
        : ForwardingPlatform(std::move(next)), x_log(std::move(log)) {}

    double StartProgram(const String& commandLine) override {
        const std::string line = ToUtf8(commandLine);
        const TrafficLog::Entry entry = x_log->Begin(TrafficNames::Program, {});
        const double process =
            LogFailure(*x_log, entry, line, [&] { return Next().StartProgram(commandLine); });
        x_log->End(entry, line, L"started, process " + FormatGeneral(process, L'.'));
        return process;
    }

  private:
    Log x_log;
};

class TrafficApiMacro final : public ForwardingApiMacro {
  public:
    TrafficApiMacro(Log log, std::shared_ptr<IApiMacro> next)
        : ForwardingApiMacro(std::move(next)), x_log(std::move(log)) {}

    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override {
        const TrafficLog::Entry entry = x_log->Begin(TrafficNames::Macro, program);
        const bool loaded = LogFailure(
            *x_log, entry, {}, [&] { return Next().Load(program, parameters, second, value); });
        if (!loaded) {
            x_log->End(entry, {}, L"failed: not loaded");
            return false;
        }
        x_program = program;
        x_texts = TextsOf(parameters);
        return true;
    }
    bool Execute(String& text, String& errorText, Value& value) override {
        const TrafficLog::Entry entry = x_log->Begin(TrafficNames::Macro, x_program);
        const bool started = LogFailure(*x_log, entry, x_texts,
                                        [&] { return Next().Execute(text, errorText, value); });
        x_log->End(entry, x_texts, started ? L"started" : L"failed: " + errorText);
        return started;
    }

  private:
    /// The texts of the inputs, each with a line feed behind it.
    static std::string TextsOf(const Value& parameters) {
        std::string texts;
        const auto* list = std::get_if<DynArray<String>>(&parameters);
        if (list != nullptr && list->IsAllocated()) {
            for (std::int32_t i = std::max(1, list->LowerBound()); i <= list->UpperBound(); ++i) {
                texts += ToUtf8((*list)[i]) + "\n";
            }
        }
        return texts;
    }

    Log x_log;
    String x_program;
    std::string x_texts;
};

template <class Wrapper, class Interface>
std::shared_ptr<Interface> Wrapped(Log log, std::shared_ptr<Interface> next) {
    return log ? std::make_shared<Wrapper>(std::move(log), std::move(next)) : std::move(next);
}

}  // namespace

std::shared_ptr<IDeviceList> WithTraffic(Log log, std::shared_ptr<IDeviceList> list) {
    return Wrapped<TrafficDeviceList>(std::move(log), std::move(list));
}
std::shared_ptr<IGpibDriver> WithTraffic(Log log, std::shared_ptr<IGpibDriver> driver) {
    return Wrapped<TrafficGpibDriver>(std::move(log), std::move(driver));
}
std::shared_ptr<ISerialPort> WithTraffic(Log log, std::shared_ptr<ISerialPort> port) {
    return Wrapped<TrafficSerialPort>(std::move(log), std::move(port));
}
std::shared_ptr<IPlatform> WithTraffic(Log log, std::shared_ptr<IPlatform> platform) {
    return Wrapped<TrafficPlatform>(std::move(log), std::move(platform));
}
std::shared_ptr<IApiMacro> WithTraffic(Log log, std::shared_ptr<IApiMacro> macro) {
    return Wrapped<TrafficApiMacro>(std::move(log), std::move(macro));
}

}  // namespace ace::workbench
