/// The check of a settings file beside the engine's load of it.
#include "bench/cases.h"
#include "bench/file_text.h"
#include "workbench/check/rules.h"

namespace ace::bench {

namespace {

using namespace workbench;

constexpr std::int32_t Subranges = 10000;

/// The file is parsed, loaded and looked at by every rule.
Work Check() {
    return [bytes = SubrangesText(Subranges)] {
        const SettingsDocument document(bytes);
        CheckInput input;
        input.document = &document;
        input.path = L"file";
        input.setUp =
            ReadSetUp(document, input.path, {.moduleKind = aceTemplate, .subRanges = Subranges});
        static_cast<void>(FindingsOf(CheckedFile(input)));
    };
}

}  // namespace

std::vector<Case> CheckCases() {
    return {{.name = "a check beside the engine's load, 10000 subranges",
             .unit = "line",
             .units = static_cast<std::size_t>(Subranges) * LinesOfASubrange + 2,
             .floor = [] { return LoadSubranges(Subranges); },
             .ours = Check,
             .limits = {.instructions = 5}}};
}

}  // namespace ace::bench
