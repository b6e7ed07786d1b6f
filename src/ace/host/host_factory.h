/// Where a thread's engine gets the host's services from.
#pragma once

#include <memory>

#include <ace/host/api_macro.h>
#include <ace/host/device_list.h>
#include <ace/host/device_settings_store.h>
#include <ace/host/form_host.h>
#include <ace/host/gpib_driver.h>
#include <ace/host/language.h>
#include <ace/host/platform.h>
#include <ace/host/serial_port.h>
#include <ace/host/status_display.h>
#include <ace/host/system_services.h>
#include <ace/host/trace_log.h>
#include <ace/host/user_dialogs.h>
#include <ace/host/utilities.h>

namespace ace {

/// Makes the services of one thread. Each is made on its first use and kept until the thread's
/// context ends, also after the last engine; the status display alone ends with the last engine and
/// the serial port with its form. A factory overrides what its host has: everything else is the
/// do-nothing default. An answer without object is error 91 at the first use.
class IHostFactory {
  public:
    virtual ~IHostFactory() = default;
    virtual std::shared_ptr<ITraceLog> MakeTraceLog();
    virtual std::shared_ptr<ILanguage> MakeLanguage();
    virtual std::shared_ptr<IUtilities> MakeUtilities();
    virtual std::shared_ptr<ISystemServices> MakeSystemServices();
    virtual std::shared_ptr<IDeviceList> MakeDeviceList();
    virtual std::shared_ptr<IDeviceSettingsStore> MakeDeviceSettingsStore();
    virtual std::shared_ptr<IGpibDriver> MakeGpibDriver();
    virtual std::shared_ptr<IStatusDisplay> MakeStatusDisplay();
    virtual std::shared_ptr<IPlatform> MakePlatform();
    virtual std::shared_ptr<ISerialPort> MakeSerialPort();
    virtual std::shared_ptr<IUserDialogs> MakeUserDialogs();
    /// A macro object of its own for each call.
    virtual std::shared_ptr<IApiMacro> MakeApiMacro();
    virtual std::shared_ptr<IFormHost> MakeFormHost();
};

}  // namespace ace
