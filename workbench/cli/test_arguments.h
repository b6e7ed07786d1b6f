/// What a command takes that runs a test, for real or on paper.
#pragma once

#include <memory>
#include <vector>

#include "workbench/cli/set_up_arguments.h"
#include "workbench/devices/fault_rules.h"
#include "workbench/session/answers.h"
#include "workbench/session/set_up.h"

namespace ace::sim {
struct SimBench;
class SimHost;
}  // namespace ace::sim

namespace ace::workbench {

/// The arguments as the user wrote them, in UTF-8.
struct TestArguments : SetUpArguments {
    std::vector<std::string> sweeps{};
    std::optional<std::string> answers{};  ///< path of an answers file
    std::optional<std::string> devices{};  ///< path of a device file
};

/// `ReadOptions` with the sweeps. `CommandError` `WrongUse` for what makes no sense.
SetUpOptions ReadTestOptions(const TestArguments& arguments);
/// None without a file. One that can't be read or makes no sense is `CommandError` `BadFile`, as it
/// is below.
Answers ReadAnswers(const TestArguments& arguments);
/// The script of failures at `path`; an empty one without.
std::shared_ptr<FaultRules> ReadFaults(const std::optional<std::string>& path);
/// Puts the devices of the file on the bench of `host`, which must outlive them.
void ReadBench(const TestArguments& arguments, sim::SimHost& host);
/// `CommandError` `WrongUse` when a device watches a channel and the bench has no such monitoring
/// device.
void RequireWatchingDevices(const TestSetUp& setUp, const sim::SimBench& bench);

}  // namespace ace::workbench
