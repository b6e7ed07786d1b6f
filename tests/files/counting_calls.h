/// System calls that are counted and may fail.
#pragma once

#include <cerrno>

#include "workbench/files/file_calls.h"

namespace ace::workbench {

/// Counts the renames, one for every save.
class CountingCalls : public FileCalls {
  public:
    int saves = 0;
    int failWith = 0;
    int Rename(const std::string& from, const std::string& to) override {
        ++saves;
        errno = failWith;
        return failWith != 0 ? -1 : FileCalls::Rename(from, to);
    }
};

}  // namespace ace::workbench
