#include "sim/sim_host.h"

#include <cmath>
#include <deque>
#include <vector>

#include <ace/core/text.h>

#include "sim/sim_dialogs.h"
#include "sim/sim_services.h"

namespace ace::sim {

namespace {

constexpr bool Question = true;

/// Arguments with texts and lists of their own: an engine that is called from inside may overwrite
/// those of the caller.
class OwnArguments {
  public:
    explicit OwnArguments(CallArguments arguments)
        : x_arguments(arguments.begin(), arguments.end()) {
        for (CallArgument& argument : x_arguments) {
            if (const auto* text = std::get_if<StringView>(&argument)) {
                argument = StringView(x_texts.emplace_back(*text));
            } else if (const auto* words = std::get_if<Words>(&argument)) {
                argument = Words{x_texts.emplace_back(words->text)};
            } else if (const auto* values = std::get_if<std::span<const Value>>(&argument)) {
                argument =
                    std::span<const Value>(x_lists.emplace_back(values->begin(), values->end()));
            }
        }
    }
    CallArguments All() const { return x_arguments; }

  private:
    std::deque<String> x_texts;
    std::deque<std::vector<Value>> x_lists;
    std::vector<CallArgument> x_arguments;
};

}  // namespace

void SimHost::Call(StringView operation, CallArguments arguments, bool isQuestion) {
    const auto note = [&](CallArguments shown) {
        const std::int32_t error = faults.Next(operation);
        journal.Add({operation, shown, error, isQuestion});
        if (error != 0) {
            throw RunTimeError(error, L"scripted failure", L"SimHost");
        }
    };
    if (beforeCall) {
        const OwnArguments own(arguments);
        beforeCall(operation, own.All());
        note(own.All());
    } else {
        note(arguments);
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
    Call(L"Factory.MakeUserDialogs", {}, Question);
    return std::make_shared<SimUserDialogs>(*this);
}
std::shared_ptr<IApiMacro> SimHost::MakeApiMacro() {
    Call(L"Factory.MakeApiMacro", {}, Question);
    return std::make_shared<SimApiMacro>(*this);
}

}  // namespace ace::sim
