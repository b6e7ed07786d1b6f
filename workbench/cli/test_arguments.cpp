#include "workbench/cli/test_arguments.h"

#include <ace/host/run_time_error.h>

#include "workbench/devices/device_file.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/channel_watch.h"

namespace ace::workbench {

SetUpOptions ReadTestOptions(const TestArguments& arguments) {
    SetUpOptions options = ReadOptions(arguments);
    for (const std::string& text : arguments.sweeps) {
        try {
            options.sweeps.push_back(ParseSweep(FromUtf8(text)));
        } catch (const RunTimeError& error) {
            RefuseUse(L"--sweep: " + error.Description());
        }
    }
    return options;
}

Answers ReadAnswers(const TestArguments& arguments) {
    return arguments.answers
               ? Answers(ExistingText(*arguments.answers), FromUtf8(*arguments.answers))
               : Answers();
}

std::shared_ptr<FaultRules> ReadFaults(const std::optional<std::string>& path) {
    return path ? std::make_shared<FaultRules>(ExistingText(*path), FromUtf8(*path))
                : std::make_shared<FaultRules>();
}

void ReadBench(const TestArguments& arguments, sim::SimHost& host) {
    if (arguments.devices) {
        ReadDevices(ExistingDocument(*arguments.devices), FromUtf8(*arguments.devices), host);
    }
}

void RequireWatchingDevices(const TestSetUp& setUp, const sim::SimBench& bench) {
    for (const ChannelEvents& channel : setUp.channels) {
        if (channel.watch && !IsMonitor(bench, channel.watch->device)) {
            RefuseUse(L"channel \"" + channel.name + L"\" is watched by \"" +
                      channel.watch->device +
                      L"\": say with --devices which monitoring device that is");
        }
    }
}

}  // namespace ace::workbench
