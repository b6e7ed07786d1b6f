/// The files that a run writes beside what it prints.
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// A file of the command line.
struct NamedFile {
    String what;       ///< in words: "the settings file", or the option that names it
    std::string path;  ///< UTF-8
};

/// Raises `CommandError` `WrongUse` when an output is one of the inputs or another output, whatever
/// names and links lead there: opening it would empty what is to be read. Nothing is opened. What
/// is no plain file, such as a terminal, may be named more than once.
void RefuseSharedFiles(const std::vector<NamedFile>& inputs, const std::vector<NamedFile>& outputs);

/// Opens a file to write, or raises `CommandError` `BadFile` with the reason. What it holds is
/// still there until `EmptyOutput`.
std::ofstream OpenOutput(const std::string& path);
/// Drops what a plain file held before.
void EmptyOutput(const std::string& path);

}  // namespace ace::workbench
