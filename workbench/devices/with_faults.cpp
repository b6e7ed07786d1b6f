#include "workbench/devices/with_faults.h"

#include <map>

#include <ace/host/forwarding.h>

namespace ace::workbench {

namespace {

using Rules = std::shared_ptr<FaultRules>;

class FaultySockets final : public ForwardingDeviceList {
  public:
    FaultySockets(Rules rules, std::shared_ptr<IDeviceList> next)
        : ForwardingDeviceList(std::move(next)), x_rules(std::move(rules)) {}

    std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                            const String& protocol, std::int32_t& handle) override {
        const String name = L"TCP " + host + L":" + std::to_wstring(port);
        x_rules->Count(FaultSubject::Tcp, name, FaultAct::Opening);
        const std::int32_t answer = Next().OpenSocket(host, port, third, protocol, handle);
        x_names[handle] = name;
        return answer;
    }
    std::int32_t SendSocket(std::int32_t handle, const String& text) override {
        x_rules->Count(FaultSubject::Tcp, x_names[handle], FaultAct::Write);
        return Next().SendSocket(handle, text);
    }

  private:
    Rules x_rules;
    std::map<std::int32_t, String> x_names;
};

class FaultyGpib final : public ForwardingGpibDriver {
  public:
    FaultyGpib(Rules rules, std::shared_ptr<IGpibDriver> next)
        : ForwardingGpibDriver(std::move(next)), x_rules(std::move(rules)) {}

    std::int16_t OpenDevice(std::int16_t board, std::int16_t primary, std::int16_t secondary,
                            std::int16_t timeOut, std::int16_t sendEoi,
                            std::int16_t endOfString) override {
        const String name = L"GPIB " + std::to_wstring(board) + L":" + std::to_wstring(primary);
        x_rules->Count(FaultSubject::Gpib, name, FaultAct::Opening);
        const std::int16_t handle =
            Next().OpenDevice(board, primary, secondary, timeOut, sendEoi, endOfString);
        x_names[handle] = name;
        return handle;
    }
    void WriteString(std::int16_t handle, const String& text) override {
        x_rules->Count(FaultSubject::Gpib, x_names[handle], FaultAct::Write);
        Next().WriteString(handle, text);
    }

  private:
    Rules x_rules;
    std::map<std::int16_t, String> x_names;
};

class FaultySerial final : public ForwardingSerialPort {
  public:
    FaultySerial(Rules rules, std::shared_ptr<ISerialPort> next)
        : ForwardingSerialPort(std::move(next)), x_rules(std::move(rules)) {}

    using ForwardingSerialPort::PortOpen;
    void PortOpen(bool open) override {
        if (open) {
            Count(FaultAct::Opening);
        }
        Next().PortOpen(open);
    }
    void Output(const String& text) override {
        Count(FaultAct::Write);
        Next().Output(text);
    }

  private:
    void Count(FaultAct act) {
        x_rules->Count(FaultSubject::Serial, L"COM" + std::to_wstring(Next().CommPort()), act);
    }

    Rules x_rules;
};

class FaultyPrograms final : public ForwardingPlatform {
  public:
    FaultyPrograms(Rules rules, std::shared_ptr<IPlatform> next)
        : ForwardingPlatform(std::move(next)), x_rules(std::move(rules)) {}

    double StartProgram(const String& commandLine) override {
        x_rules->Count(FaultSubject::Program, commandLine, FaultAct::Start);
        return Next().StartProgram(commandLine);
    }

  private:
    Rules x_rules;
};

class FaultyMacro final : public ForwardingApiMacro {
  public:
    FaultyMacro(Rules rules, std::shared_ptr<IApiMacro> next)
        : ForwardingApiMacro(std::move(next)), x_rules(std::move(rules)) {}

    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override {
        x_program = program;
        return Next().Load(program, parameters, second, value);
    }
    bool Execute(String& text, String& errorText, Value& value) override {
        try {
            x_rules->Count(FaultSubject::Macro, x_program, FaultAct::Run);
        } catch (const RunTimeError& error) {
            errorText = error.Description();
            return false;
        }
        return Next().Execute(text, errorText, value);
    }

  private:
    Rules x_rules;
    String x_program;
};

template <class Faulty, class Service>
std::shared_ptr<Service> Wrap(Rules rules, std::shared_ptr<Service> next) {
    if (!rules || rules->IsEmpty()) {
        return next;
    }
    return std::make_shared<Faulty>(std::move(rules), std::move(next));
}

/// What the calls of the simulated devices are; a call that is not here counts as a mere call.
struct CallRow {
    StringView operation;
    FaultAct act;
};
constexpr CallRow Calls[] = {
    {L"Device.Activate", FaultAct::Activation},
    {L"Device.State", FaultAct::State},
    {L"Device.LoadSettings", FaultAct::Setting},
    {L"MonitorDevice.SetChannel", FaultAct::Setting},
    {L"MonitorDevice.SetFrequency", FaultAct::Setting},
    {L"BcGenerator.Apply", FaultAct::Setting},
    {L"RfGenerator.Execute", FaultAct::Setting},
    {L"Receiver.SetParameter", FaultAct::Setting},
    {L"MonitorDevice.ReadChannel", FaultAct::Reading},
    {L"Amplifier.SetState", FaultAct::Switching},
    {L"SwitchUnit.SwitchPath", FaultAct::Switching},
};
/// Beginnings of the names of all calls whose first argument is a device's name.
constexpr StringView DeviceCalls[] = {L"Device.",      L"MonitorDevice.", L"BcGenerator.",
                                      L"Amplifier.",   L"SwitchUnit.",    L"Receiver.",
                                      L"RfGenerator.", L"SignalPath."};

}  // namespace

std::shared_ptr<IDeviceList> WithFaults(Rules rules, std::shared_ptr<IDeviceList> list) {
    return Wrap<FaultySockets>(std::move(rules), std::move(list));
}
std::shared_ptr<IGpibDriver> WithFaults(Rules rules, std::shared_ptr<IGpibDriver> driver) {
    return Wrap<FaultyGpib>(std::move(rules), std::move(driver));
}
std::shared_ptr<ISerialPort> WithFaults(Rules rules, std::shared_ptr<ISerialPort> port) {
    return Wrap<FaultySerial>(std::move(rules), std::move(port));
}
std::shared_ptr<IPlatform> WithFaults(Rules rules, std::shared_ptr<IPlatform> platform) {
    return Wrap<FaultyPrograms>(std::move(rules), std::move(platform));
}
std::shared_ptr<IApiMacro> WithFaults(Rules rules, std::shared_ptr<IApiMacro> macro) {
    return Wrap<FaultyMacro>(std::move(rules), std::move(macro));
}

void CountDeviceCall(FaultRules& rules, StringView operation, sim::CallArguments arguments) {
    bool isDevice = false;
    for (const StringView beginning : DeviceCalls) {
        isDevice = isDevice || operation.starts_with(beginning);
    }
    if (!isDevice || arguments.empty()) {
        return;
    }
    FaultAct act = FaultAct::Call;
    for (const CallRow& row : Calls) {
        if (row.operation == operation) {
            act = row.act;
        }
    }
    rules.Count(FaultSubject::Device, sim::PlainText(arguments.front()), act);
}

}  // namespace ace::workbench
