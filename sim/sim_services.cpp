#include "sim/sim_services.h"

#include <ace/core/text.h>

namespace ace::sim {

namespace {

constexpr bool Question = true;

String Endpoint(const String& host, std::int32_t port) {
    return host + L":" + IntegerText(port);
}

}  // namespace

bool SimTraceLog::IsEnabled() {
    x_host.Call(L"TraceLog.IsEnabled", {}, Question);
    return x_host.tracing;
}

std::int32_t SimTraceLog::ReportError(const RunTimeError& error, std::int32_t threadId,
                                      std::int32_t) {
    x_host.Call(L"TraceLog.ReportError", CallText(error.Number(), error.Description(), threadId));
    if (x_host.reportAnswers.empty()) {
        return 0;
    }
    const std::int32_t answer = x_host.reportAnswers.front();
    x_host.reportAnswers.pop_front();
    return answer;
}

void SimTraceLog::WriteLine(StringView marker, StringView component, StringView module,
                            StringView procedure, StringView message, StringView threadId) {
    x_host.Call(L"TraceLog.WriteLine",
                CallText(marker, component, module, procedure, message, threadId));
}

String SimLanguage::Text(std::int32_t number) {
    x_host.Call(L"Language.Text", CallText(number), Question);
    return x_host.TextOf(number);
}

bool SimUtilities::IsEqual(double a, double b) {
    x_host.Call(L"Utilities.IsEqual", CallText(a, b));
    return DefaultUtilities::IsEqual(a, b);
}

bool SimUtilities::IsSameValue(double a, double b) {
    x_host.Call(L"Utilities.IsSameValue", CallText(a, b));
    return DefaultUtilities::IsSameValue(a, b);
}

Value SimUtilities::Max(const Value& first, std::span<const Value> further) {
    x_host.Call(L"Utilities.Max", CallText(first, further));
    return DefaultUtilities::Max(first, further);
}

bool SimUtilities::InRange(const Value& lower, const Value& value, const Value& upper) {
    x_host.Call(L"Utilities.InRange", CallText(lower, value, upper));
    return DefaultUtilities::InRange(lower, value, upper);
}

std::int32_t SimUtilities::Wait(float milliseconds) {
    x_host.Call(L"Utilities.Wait", CallText(static_cast<double>(milliseconds)));
    x_host.PassTime(static_cast<double>(milliseconds));
    return 0;
}

std::int32_t SimTestInfo::GetTestState(String& name) {
    x_host.Call(L"TestInfo.GetTestState", CallText(name));
    return x_host.testState.value_or(0);
}

std::int32_t SimTestInfo::TestKind(String& name) {
    x_host.Call(L"TestInfo.TestKind", CallText(name));
    return x_host.testKind;
}

std::shared_ptr<ISettingsFile> SimSystemServices::OpenSettingsFile(std::int32_t kind,
                                                                   std::int32_t mode,
                                                                   const String& name,
                                                                   std::int32_t third,
                                                                   std::int32_t fourth) {
    x_host.Call(L"SystemServices.OpenSettingsFile", CallText(kind, mode, name, third, fourth));
    return x_host.OpenFile(kind, name);
}

bool SimSystemServices::FileIsUsable(const String& path, bool first, bool second) {
    x_host.Call(L"SystemServices.FileIsUsable", CallText(path, first, second));
    return x_host.usableFiles.contains(path);
}

void SimSystemServices::ShowTimedMessage(const String& text, std::int32_t& style,
                                         const String& title, std::int32_t milliseconds) {
    x_host.Call(L"SystemServices.ShowTimedMessage", CallText(text, style, title, milliseconds));
    if (x_host.onTimedMessage) {
        x_host.onTimedMessage();
    }
    x_host.PassTime(milliseconds);
}

std::shared_ptr<ITestInfo> SimSystemServices::GetCurrentTest() {
    x_host.Call(L"SystemServices.GetCurrentTest", {});
    return x_host.testState ? std::make_shared<SimTestInfo>(x_host) : nullptr;
}

std::shared_ptr<ICalTable> SimSystemServices::GetTable(ITableType type, std::int32_t mode,
                                                       const String& name,
                                                       ITableMeasClass measClass, bool& flag) {
    x_host.Call(L"SystemServices.GetTable", CallText(type, mode, name, measClass, flag));
    return x_host.bench.Table(name);
}

std::shared_ptr<ISettingsFile> SimSystemServices::GetGlobalSettings() {
    x_host.Call(L"SystemServices.GetGlobalSettings", {});
    return std::make_shared<SimSettingsFile>(x_host, x_host.globalSettings);
}

void SimSystemServices::SetProgressText(const String& text) {
    x_host.Call(L"SystemServices.SetProgressText", CallText(text));
}

void SimSystemServices::WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) {
    x_host.Call(L"SystemServices.WriteMacroSync", CallText(group, key, value));
    x_host.programs.macroSync[key] = value;
}

String SimSystemServices::ReadMacroSync(std::int32_t key) {
    x_host.Call(L"SystemServices.ReadMacroSync", CallText(key));
    std::deque<String>& answers = x_host.programs.macroSyncAnswers;
    if (answers.empty()) {
        return x_host.programs.macroSync[key];
    }
    String answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

IDeviceList& SimDeviceList::GetDeviceListHost() {
    x_host.Call(L"DeviceList.GetDeviceListHost", {}, Question);
    return *this;
}

void SimDeviceList::PostEvent(const String& sender, std::int32_t kind, const String& text) {
    x_host.Call(L"DeviceList.PostEvent", CallText(sender, kind, text));
}

std::int32_t SimDeviceList::OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                                       const String& protocol, std::int32_t& handle) {
    x_host.Call(L"DeviceList.OpenSocket", CallText(host, port, third, protocol, handle));
    const String endpoint = Endpoint(host, port);
    if (x_host.instruments.refusedEndpoints.contains(endpoint)) {
        return -1;
    }
    handle = x_host.instruments.nextSocket++;
    x_host.instruments.sockets[handle] = endpoint;
    x_host.openSockets.insert(handle);
    return 0;
}

std::int16_t SimDeviceList::FindSocket(const String& host, std::int32_t port, const String& third,
                                       std::int32_t& handle) {
    x_host.Call(L"DeviceList.FindSocket", CallText(host, port, third, handle));
    for (const auto& [socket, endpoint] : x_host.instruments.sockets) {
        if (endpoint == Endpoint(host, port) && x_host.openSockets.contains(socket)) {
            return static_cast<std::int16_t>(socket);
        }
    }
    return -1;
}

std::int32_t SimDeviceList::SendSocket(std::int32_t handle, const String& text) {
    x_host.Call(L"DeviceList.SendSocket", CallText(handle, text));
    return 0;
}

std::int32_t SimDeviceList::CloseSocket(std::int32_t handle) {
    x_host.Call(L"DeviceList.CloseSocket", CallText(handle));
    x_host.openSockets.erase(handle);
    return 0;
}

bool SimDeviceList::SocketIsOpen(std::int32_t handle) {
    x_host.Call(L"DeviceList.SocketIsOpen", CallText(handle));
    return x_host.openSockets.contains(handle);
}

String SimDeviceList::ClassName(std::int32_t deviceClass) {
    x_host.Call(L"DeviceList.ClassName", CallText(deviceClass));
    return ClassKeyOf(static_cast<SimClass>(deviceClass));
}

std::shared_ptr<IDevice> SimDeviceList::GetDevice(const String& name) {
    x_host.Call(L"DeviceList.GetDevice", CallText(name));
    return x_host.bench.Device(name);
}

std::vector<DeviceRecord> SimDeviceList::DevicesOfClass(const String& classKey) {
    x_host.Call(L"DeviceList.DevicesOfClass", CallText(classKey));
    return x_host.bench.OfClass(classKey);
}

std::int16_t SimGpibDriver::OpenDevice(std::int16_t board, std::int16_t primary,
                                       std::int16_t secondary, std::int16_t timeOut,
                                       std::int16_t sendEoi, std::int16_t endOfString) {
    x_host.Call(L"GpibDriver.OpenDevice",
                CallText(board, primary, secondary, timeOut, sendEoi, endOfString));
    if (x_host.instruments.absentGpib.contains(board * 100 + primary)) {
        return -1;
    }
    return x_host.instruments.nextGpibHandle++;
}

void SimGpibDriver::WriteString(std::int16_t handle, const String& text) {
    x_host.Call(L"GpibDriver.WriteString", CallText(handle, text));
}

std::int32_t SimGpibDriver::CloseDevice(std::int32_t handle, std::int32_t online) {
    x_host.Call(L"GpibDriver.CloseDevice", CallText(handle, online));
    return 0;
}

void SimStatusDisplay::ShowStatus(const String& text, bool first, bool second) {
    x_host.Call(L"StatusDisplay.ShowStatus", CallText(text, first, second));
}

void SimPlatform::Yield() {
    x_host.Call(L"Platform.Yield", {});
    x_host.CountYield();
}

std::int32_t SimPlatform::sndPlaySoundA(const String& fileName, std::int32_t flags) {
    x_host.Call(L"Platform.sndPlaySoundA", CallText(fileName, flags));
    return x_host.brokenSounds.contains(fileName) ? 0 : 1;
}

void SimPlatform::Beep() {
    x_host.Call(L"Platform.Beep", {});
}

void SimPlatform::ActivateProgram(double processId) {
    x_host.Call(L"Platform.ActivateProgram", CallText(processId));
    if (!x_host.programs.running.contains(processId)) {
        Raise(Errors::InvalidProcedureCall);
    }
}

double SimPlatform::StartProgram(const String& commandLine) {
    x_host.Call(L"Platform.StartProgram", CallText(commandLine));
    SimPrograms& programs = x_host.programs;
    const auto refused = programs.unstartable.find(commandLine);
    if (refused != programs.unstartable.end()) {
        throw RunTimeError(refused->second, L"the program can't be started");
    }
    const auto known = programs.identifiers.find(commandLine);
    const double identifier =
        known != programs.identifiers.end() ? known->second : programs.nextIdentifier++;
    programs.running.insert(identifier);
    return identifier;
}

std::int32_t SimPlatform::ThreadId() {
    x_host.Call(L"Platform.ThreadId", {}, Question);
    return x_host.threadId;
}

wchar_t SimPlatform::DecimalSeparator() {
    x_host.Call(L"Platform.DecimalSeparator", {}, Question);
    return x_host.decimalSeparator;
}

float SimPlatform::SecondsSinceMidnight() {
    x_host.Call(L"Platform.SecondsSinceMidnight", {}, Question);
    return static_cast<float>(x_host.SecondsSinceMidnight());
}

std::int16_t SimSerialPort::CommPort() {
    x_host.Call(L"SerialPort.CommPort", {}, Question);
    return x_number;
}

void SimSerialPort::CommPort(std::int16_t number) {
    x_host.Call(L"SerialPort.CommPort", CallText(number));
    x_number = number;
}

bool SimSerialPort::PortOpen() {
    x_host.Call(L"SerialPort.PortOpen", {}, Question);
    return x_host.serialPortOpen;
}

void SimSerialPort::Output(const String& text) {
    x_host.Call(L"SerialPort.Output", CallText(text));
}

void SimSerialPort::PortOpen(bool open) {
    x_host.Call(L"SerialPort.PortOpen", CallText(open));
    x_host.serialPortOpen = open && !x_host.instruments.brokenPorts.contains(x_number);
}

}  // namespace ace::sim
