#include <ace/host/host_factory.h>

namespace ace {

std::shared_ptr<ITraceLog> IHostFactory::MakeTraceLog() {
    return std::make_shared<DefaultTraceLog>();
}
std::shared_ptr<ILanguage> IHostFactory::MakeLanguage() {
    return std::make_shared<DefaultLanguage>();
}
std::shared_ptr<IUtilities> IHostFactory::MakeUtilities() {
    return std::make_shared<DefaultUtilities>();
}
std::shared_ptr<ISystemServices> IHostFactory::MakeSystemServices() {
    return std::make_shared<DefaultSystemServices>();
}
std::shared_ptr<IDeviceList> IHostFactory::MakeDeviceList() {
    return std::make_shared<DefaultDeviceList>();
}
std::shared_ptr<IDeviceSettingsStore> IHostFactory::MakeDeviceSettingsStore() {
    return std::make_shared<DefaultDeviceSettingsStore>();
}
std::shared_ptr<IGpibDriver> IHostFactory::MakeGpibDriver() {
    return std::make_shared<DefaultGpibDriver>();
}
std::shared_ptr<IStatusDisplay> IHostFactory::MakeStatusDisplay() {
    return std::make_shared<DefaultStatusDisplay>();
}
std::shared_ptr<IPlatform> IHostFactory::MakePlatform() {
    return std::make_shared<DefaultPlatform>();
}
std::shared_ptr<ISerialPort> IHostFactory::MakeSerialPort() {
    return std::make_shared<DefaultSerialPort>();
}
std::shared_ptr<IFormHost> IHostFactory::MakeFormHost() {
    return std::make_shared<DefaultFormHost>();
}
std::shared_ptr<IUserDialogs> IHostFactory::MakeUserDialogs() {
    return std::make_shared<DefaultUserDialogs>();
}
std::shared_ptr<IApiMacro> IHostFactory::MakeApiMacro() {
    return std::make_shared<DefaultApiMacro>();
}

}  // namespace ace
