#include "sim/sim_host.h"

#include <cmath>

#include <ace/core/text.h>

#include "sim/sim_dialogs.h"
#include "sim/sim_services.h"

namespace ace::sim {

namespace {

constexpr bool Question = true;

}  // namespace

void SimHost::Call(StringView operation, CallArguments arguments, bool isQuestion) {
    if (beforeCall) {
        beforeCall(operation, arguments);
    }
    const std::int32_t error = faults.Next(operation);
    journal.Add({operation, arguments, error, isQuestion});
    if (error != 0) {
        throw RunTimeError(error, L"scripted failure", L"SimHost");
    }
}

String SimHost::TextOf(std::int32_t number) const {
    const auto found = texts.find(number);
    return found != texts.end() ? found->second : L"T(" + IntegerText(number) + L")";
}

double SimHost::SecondsSinceMidnight() const {
    constexpr double SecondsOfDay = 86400.0;
    return std::fmod(startOfDay + Now() / 1000.0, SecondsOfDay);
}

std::shared_ptr<ISettingsFile> SimHost::OpenFile(std::int32_t, const String& name) {
    return missingFiles.contains(name) ? nullptr : std::make_shared<SimSettingsFile>(*this, name);
}

void SimHost::CountYield() {
    ++x_yields;
    if (onYield) {
        onYield(x_yields);
    }
}

std::shared_ptr<ITraceLog> SimHost::MakeTraceLog() {
    Call(L"Factory.MakeTraceLog", {}, Question);
    return std::make_shared<SimTraceLog>(*this);
}
std::shared_ptr<ILanguage> SimHost::MakeLanguage() {
    Call(L"Factory.MakeLanguage", {}, Question);
    return std::make_shared<SimLanguage>(*this);
}
std::shared_ptr<IUtilities> SimHost::MakeUtilities() {
    Call(L"Factory.MakeUtilities", {}, Question);
    return std::make_shared<SimUtilities>(*this);
}
std::shared_ptr<ISystemServices> SimHost::MakeSystemServices() {
    Call(L"Factory.MakeSystemServices", {}, Question);
    return std::make_shared<SimSystemServices>(*this);
}
std::shared_ptr<IDeviceList> SimHost::MakeDeviceList() {
    Call(L"Factory.MakeDeviceList", {}, Question);
    return std::make_shared<SimDeviceList>(*this);
}
std::shared_ptr<IDeviceSettingsStore> SimHost::MakeDeviceSettingsStore() {
    Call(L"Factory.MakeDeviceSettingsStore", {}, Question);
    return std::make_shared<SimDeviceSettingsStore>(*this);
}
std::shared_ptr<IGpibDriver> SimHost::MakeGpibDriver() {
    Call(L"Factory.MakeGpibDriver", {}, Question);
    return std::make_shared<SimGpibDriver>(*this);
}
std::shared_ptr<IStatusDisplay> SimHost::MakeStatusDisplay() {
    Call(L"Factory.MakeStatusDisplay", {}, Question);
    return std::make_shared<SimStatusDisplay>(*this);
}
std::shared_ptr<IPlatform> SimHost::MakePlatform() {
    Call(L"Factory.MakePlatform", {}, Question);
    return std::make_shared<SimPlatform>(*this);
}
std::shared_ptr<ISerialPort> SimHost::MakeSerialPort() {
    Call(L"Factory.MakeSerialPort", {}, Question);
    return std::make_shared<SimSerialPort>(*this);
}
std::shared_ptr<IFormHost> SimHost::MakeFormHost() {
    Call(L"Factory.MakeFormHost", {}, Question);
    return std::make_shared<SimFormHost>(*this);
}
std::shared_ptr<IUserDialogs> SimHost::MakeUserDialogs() {
    return std::make_shared<SimUserDialogs>(*this);
}
std::shared_ptr<IApiMacro> SimHost::MakeApiMacro() {
    return std::make_shared<SimApiMacro>(*this);
}

}  // namespace ace::sim
