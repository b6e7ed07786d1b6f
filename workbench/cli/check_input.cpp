#include "workbench/cli/check_input.h"

#include "workbench/files/text_encoding.h"

namespace ace::workbench {

CheckInput InputOfCheck(const TestArguments& arguments, const std::optional<std::string>& faults,
                        const SettingsDocument& document, const TestSetUp& setUp,
                        const Answers& answers, const BenchHost& host) {
    const auto pathOf = [](const std::optional<std::string>& path) {
        return FromUtf8(path.value_or(std::string()));
    };
    CheckInput input;
    input.document = &document;
    input.path = FromUtf8(arguments.file);
    input.setUp = setUp;
    if (arguments.devices) {
        input.bench = &host.bench;
        input.benchDocument = ExistingDocument(*arguments.devices);
    }
    input.benchPath = pathOf(arguments.devices);
    input.answers = &answers;
    input.answersPath = pathOf(arguments.answers);
    input.faults = &host.Faults();
    input.faultsPath = pathOf(faults);
    return input;
}

}  // namespace ace::workbench
