/// What the tests of checks stand on: findings as short texts.
#pragma once

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "workbench/check/rules.h"
#include "workbench/devices/device_file.h"
#include "workbench/files/disk_settings_file.h"
#include "workbench/session/bench_host.h"

namespace ace::workbench {

/// The bytes of an example.
inline std::string Example(const std::string& name) {
    std::ostringstream text;
    text << std::ifstream(std::string(ACE_EXAMPLES) + "/" + name, std::ios::binary).rdbuf();
    return text.str();
}

/// What a check is told beside the file; none of it as long as it is empty.
struct Beside {
    std::string bench{};
    std::string answers{};
    std::string faults{};
    bool here = false;
};

/// The findings of a file's text.
inline std::vector<Finding> FindingsIn(const std::string& text, const Beside& beside = {},
                                       const SetUpOptions& options = {}) {
    const SettingsDocument document(text);
    const auto host = std::make_shared<BenchHost>(Clock::Virtual, TransportChoice(),
                                                  std::make_shared<FaultRules>());
    const SettingsDocument bench(beside.bench);
    if (!beside.bench.empty()) {
        ReadDevices(bench, L"bench.ini", *host);
    }
    const Answers answers(FromUtf8(beside.answers), L"answers.txt");
    const FaultRules faults(FromUtf8(beside.faults), L"faults.txt");
    CheckInput input;
    input.document = &document;
    input.path = L"test.ini";
    input.setUp = ReadSetUp(document, input.path, options);
    input.bench = beside.bench.empty() ? nullptr : &host->bench;
    input.benchDocument = beside.bench.empty() ? std::nullopt : std::optional(bench);
    input.benchPath = L"bench.ini";
    input.answers = &answers;
    input.answersPath = L"answers.txt";
    input.faults = &faults;
    input.faultsPath = L"faults.txt";
    input.here = beside.here;
    return FindingsOf(CheckedFile(input));
}

/// "5 unknown-keyword": the line and the rule.
inline std::vector<std::string> Shortly(const std::vector<Finding>& findings) {
    std::vector<std::string> texts;
    for (const Finding& finding : findings) {
        texts.push_back(std::to_string(finding.place.line) + " " + ToUtf8(finding.rule->name));
    }
    return texts;
}

/// A single test with one subrange; what follows begins on line 4.
inline const std::string SingleTest = "[Workbench]\nModule=0\nSubRanges=1\n";
/// The enter list of its start: the section on line 4, the count on 5, the entries from 6 on.
inline std::string Start(const std::vector<std::string>& entries) {
    std::string text =
        "[ActionsOnTest]\nNumOfEnterActions=" + std::to_string(entries.size()) + "\n";
    for (std::size_t i = 0; i < entries.size(); ++i) {
        text += "EnterAction" + std::to_string(i + 1) + "=" + entries[i] + "\n";
    }
    return text;
}
/// The every-frequency list of its start, the same way.
inline std::string AtFrequency(const std::vector<std::string>& entries) {
    std::string text = "[ActionsOnTest]\nNumOfFreqActions=" + std::to_string(entries.size()) + "\n";
    for (std::size_t i = 0; i < entries.size(); ++i) {
        text += "FrequAction" + std::to_string(i + 1) + "=" + entries[i] + "\n";
    }
    return text;
}

}  // namespace ace::workbench
