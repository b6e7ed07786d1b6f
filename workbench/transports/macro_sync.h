/// The file by which started programs tell that their work is done.
#pragma once

#include <string>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// "MacroSync.ini": lines "key=value" below headers "[Group<number>]", in UTF-8. The workbench
/// writes a value before it starts a program; the program rewrites that line or adds one at the end
/// of the file. Nothing is kept in memory: every call takes the file as it is.
class MacroSync {
  public:
    /// `path` is in UTF-8; a relative one counts from the folder the workbench was started in,
    /// which is also that of the programs it starts.
    explicit MacroSync(std::string path) : x_path(std::move(path)) {}

    const std::string& Path() const { return x_path; }
    /// Takes every line of the key away and writes a new one below the group's header. Makes the
    /// file if there is none. A failure is error `FileErrors::CannotRead` or `CannotSave`; a file
    /// whose text can't be read stays as it is.
    void Write(std::int32_t group, std::int32_t key, const String& value) const;
    /// The value of the file's last line with the key, in whatever group, so that a program may
    /// simply add one; without blanks around it. Empty when there is no such line or no file. A
    /// file that can't be read is error `FileErrors::CannotRead`.
    String Read(std::int32_t key) const;

  private:
    std::string x_path;
};

}  // namespace ace::workbench
