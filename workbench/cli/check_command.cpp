#include "workbench/cli/check_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "workbench/check/as_loaded.h"
#include "workbench/check/rules.h"
#include "workbench/cli/check_input.h"
#include "workbench/cli/console_report.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// A text below its heading, in lines that fit the terminal.
void PrintIndented(ConsoleReport& report, StringView text, std::size_t width) {
    constexpr std::size_t Indentation = 4;
    const std::size_t left = width > Indentation ? width - Indentation : width;
    for (const String& line : Wrapped(text, left)) {
        report.PrintText(String(Indentation, L' ') + line);
    }
}

/// "3: 1 of what stops the load or the save, 2 of what is skipped or lost"
String CountsText(const std::vector<Finding>& findings) {
    if (findings.empty()) {
        return L"none: the file does what it says";
    }
    String text = std::to_wstring(findings.size());
    StringView separator = L": ";
    for (std::size_t i = 0; i < FindingGroupCount; ++i) {
        const auto group = static_cast<FindingGroup>(i);
        const auto count = std::ranges::count(
            findings, group, [](const Finding& finding) { return finding.rule->group; });
        if (count > 0) {
            text.append(separator)
                .append(std::to_wstring(count))
                .append(L" ")
                .append(WordsOf(group).count);
            separator = L", ";
        }
    }
    return text;
}

void Print(ConsoleReport& report, const CheckInput& input, const std::vector<Finding>& findings,
           std::size_t width) {
    report.PrintPair(L"File", input.path);
    report.PrintPair(L"Module", ModuleText(input.setUp.moduleKind, input.setUp.subRanges));
    report.PrintNotes(input.setUp.notes);
    report.PrintPair(L"Findings", CountsText(findings));
    const Finding* before = nullptr;
    for (const Finding& finding : findings) {
        if (before == nullptr || before->rule->group != finding.rule->group) {
            report.PrintText(L"\n" + String(WordsOf(finding.rule->group).title) + L"\n");
        }
        before = &finding;
        const String text =
            finding.place.text.empty() ? L"" : L" " + QuotedLine(finding.place.text);
        report.PrintText(PlaceWords(finding.place) + text);
        PrintIndented(report, finding.meaning, width);
        PrintIndented(report, finding.advice, width);
    }
}

CheckResult ResultOf(const std::vector<Finding>& findings) {
    const bool isUnusable = std::ranges::any_of(findings, [](const Finding& finding) {
        return finding.rule->group == FindingGroup::Stops;
    });
    return isUnusable         ? CheckResult::Unusable
           : findings.empty() ? CheckResult::Clean
                              : CheckResult::Findings;
}

}  // namespace

std::string JsonOf(const Finding& finding) {
    nlohmann::ordered_json object;
    const auto add = [&](const char* key, StringView text) {
        if (!text.empty()) {
            object[key] = ToUtf8(text);
        }
    };
    add("rule", finding.rule->name);
    add("group", WordsOf(finding.rule->group).name);
    add("file", finding.place.file);
    if (finding.place.line > 0) {
        object["line"] = finding.place.line;
    }
    add("section", finding.place.section);
    add("entry", finding.place.entry);
    add("text", finding.place.text);
    add("meaning", finding.meaning);
    add("advice", finding.advice);
    return object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

CheckResult CheckCommand(const CheckArguments& arguments, const CheckOutput& output) {
    const SettingsDocument document = ExistingDocument(arguments.file);
    const TestSetUp setUp =
        ReadSetUp(document, FromUtf8(arguments.file), ReadTestOptions(arguments));
    const Answers answers = ReadAnswers(arguments);
    const auto host = std::make_shared<BenchHost>(Clock::Virtual, TransportChoice(),
                                                  ReadFaults(arguments.faults));
    ReadBench(arguments, *host);
    CheckInput input = InputOfCheck(arguments, arguments.faults, document, setUp, answers, *host);
    input.here = arguments.here;
    const CheckedFile file(input);
    const std::vector<Finding> findings = FindingsOf(file);

    std::ostringstream text;
    ConsoleReport report(text, false);
    if (arguments.asLoaded) {
        for (const String& line : AsLoaded(file, output.width)) {
            report.PrintText(line + L"\n");
        }
    } else if (arguments.json) {
        for (const Finding& finding : findings) {
            text << JsonOf(finding) << '\n';
        }
    } else {
        Print(report, input, findings, output.width);
    }
    output.out << text.str();
    return ResultOf(findings);
}

}  // namespace ace::workbench
