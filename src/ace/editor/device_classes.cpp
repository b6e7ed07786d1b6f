#include <ace/editor/device_classes.h>

namespace ace {

std::vector<String> NamesOfClass(ThreadContext& context, StringView deviceClass) {
    std::vector<String> names;
    for (DeviceRecord& device : context.DeviceList().DevicesOfClass(String(deviceClass))) {
        if (!device.Name.empty()) {
            names.push_back(std::move(device.Name));
        }
    }
    return names;
}

std::vector<String> MonitorsFor(ThreadContext& context, std::int32_t use) {
    std::vector<String> names;
    for (String& name : NamesOfClass(context, DeviceClasses::Monitoring)) {
        const auto monitor =
            std::dynamic_pointer_cast<IMonitorDevice>(context.DeviceList().GetDevice(name));
        if (monitor && (monitor->Capabilities() & use) != 0) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

String ClassOf(ThreadContext& context, IDevice& device) {
    return context.DeviceList().ClassName(device.DeviceClass());
}

}  // namespace ace
