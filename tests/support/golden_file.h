/// Expected lines that stand in files of their own, each checked by eye. A folder of tests that has
/// such files says in its CMakeLists.txt where they are, as ACE_GOLDEN.
#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::test {

/// The lines of a text, without their ends. Two lists of lines that differ are told by the first
/// line that does.
inline std::vector<String> LinesOf(StringView text) {
    std::vector<String> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(L'\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == StringView::npos ? text.size() : end + 1);
    }
    return lines;
}

/// The lines of a file, which is ASCII. One that is missing or empty fails the test.
inline std::vector<String> GoldenLines(const std::string& name) {
    std::vector<String> lines;
    std::ifstream file(std::string(ACE_GOLDEN) + "/" + name);
    for (std::string line; std::getline(file, line);) {
        lines.emplace_back(line.begin(), line.end());
    }
    EXPECT_FALSE(lines.empty()) << "nothing to read in " << name;
    return lines;
}

}  // namespace ace::test
