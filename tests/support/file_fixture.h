/// What the tests of files stand on: a folder that goes away, and errors as values.
#pragma once

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include <ace/host/run_time_error.h>

namespace ace::workbench {

/// The run-time error that `act` raises; number 0 when it raises none.
template <class Act>
RunTimeError ErrorIn(Act&& act) {
    try {
        act();
    } catch (const RunTimeError& error) {
        return error;
    }
    return RunTimeError(0);
}

/// Every file is made in a folder of the test's own, which is taken away afterwards.
class FolderTest : public ::testing::Test {
  protected:
    FolderTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "ace_test_XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no folder for the test");
        }
        folder = pattern;
    }
    ~FolderTest() override { std::filesystem::remove_all(folder); }

    std::string Path(const std::string& name) const { return folder + "/" + name; }
    String WidePath(const std::string& name) const {
        const std::string path = Path(name);
        return String(path.begin(), path.end());
    }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const {
        std::ostringstream bytes;
        bytes << std::ifstream(Path(name), std::ios::binary).rdbuf();
        return bytes.str();
    }
    /// Names in the folder, so that a forgotten temporary file is seen.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    static mode_t ModeOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    std::string folder;
};

}  // namespace ace::workbench
