/// Programs of a test's own.
#pragma once

#include <chrono>
#include <filesystem>
#include <thread>

#include "support/file_fixture.h"

namespace ace::workbench {

/// True as soon as `holds` does; false when it does not within ten seconds.
template <class Holds>
bool Eventually(Holds&& holds) {
    for (int tries = 0; tries < 2000; ++tries) {
        if (holds()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

/// Makes shell scripts in the test's folder.
class ScriptTest : public FolderTest {
  protected:
    /// An executable script that runs in the test's folder.
    void Script(const std::string& name, const std::string& lines) const {
        Write(name, "#!/bin/sh\ncd '" + folder + "' || exit 99\n" + lines + "\n");
        std::filesystem::permissions(Path(name), std::filesystem::perms::owner_all);
    }
    /// What a script wrote into a file, once there is something.
    std::string ReadWhenThere(const std::string& name) const {
        Eventually([&] { return !Read(name).empty(); });
        return Read(name);
    }
};

}  // namespace ace::workbench
