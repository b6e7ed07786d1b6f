/// Whether a test would come to its end, known before its first action.
#pragma once

#include "workbench/check/finding.h"
#include "workbench/cli/test_arguments.h"

namespace ace::workbench {

/// Where and why the test would end in the midst although nothing of the equipment fails: with the
/// place in its file, in one line; empty when it would come to its end. The test is rehearsed with
/// simulated transports and in no time, with the devices and the answers of `arguments`, and with
/// an operator who agrees or with none. Beside that the findings are asked: one that ends the test
/// (`Finding::endsTest`) does so where the rehearsal begins its action. What a line of the answers
/// stops on purpose is no end in the midst. A file that can't be loaded is `CommandError`
/// `BadFile`.
String WhyItSurelyEnds(const TestArguments& arguments, bool hasOperator, const TestSetUp& setUp,
                       const Answers& answers, const std::vector<Finding>& findings);

}  // namespace ace::workbench
