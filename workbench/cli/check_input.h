/// What a check is told of a test.
#pragma once

#include "workbench/check/checked_file.h"
#include "workbench/cli/test_arguments.h"
#include "workbench/session/bench_host.h"

namespace ace::workbench {

/// The test as its command line says it, beside what was read for it: its file, the devices on the
/// bench of `host`, the script of failures at `faults` that `host` has, and the answers. All of
/// these must outlive what comes out. The file of the devices is read once more, for its places.
CheckInput InputOfCheck(const TestArguments& arguments, const std::optional<std::string>& faults,
                        const SettingsDocument& document, const TestSetUp& setUp,
                        const Answers& answers, const BenchHost& host);

}  // namespace ace::workbench
