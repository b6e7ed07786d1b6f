/// Prints of settings files: whole, without their heads, and their notes alone.
#pragma once

#include <fstream>
#include <sstream>

#include "support/file_fixture.h"
#include "workbench/cli/print_command.h"

namespace ace::workbench {

inline const std::string Examples = std::string(ACE_EXAMPLES) + "/";

class PrintCommandTest : public FolderTest {
  protected:
    static std::string PrintOf(const SetUpArguments& arguments, std::size_t width = 0) {
        std::ostringstream out;
        PrintCommand(arguments, {.out = out, .width = width});
        return out.str();
    }
    std::string PrintOfText(const std::string& text, SetUpArguments arguments = {}) const {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        return PrintOf(arguments);
    }
    /// What stands behind the head.
    std::string Below(const std::string& text, const SetUpArguments& arguments = {}) const {
        const std::string print = PrintOfText(text, arguments);
        const std::size_t end = print.find("\n\n");
        EXPECT_NE(end, std::string::npos) << print;
        return print.substr(end + 2);
    }
    /// The note alone; empty where there is none.
    std::string Note(const std::string& text, const SetUpArguments& arguments = {}) const {
        const std::string print = PrintOfText(text, arguments);
        const std::size_t begin = print.find("\n+-");
        return begin == std::string::npos ? "" : print.substr(begin + 1);
    }
    static std::string Golden(const std::string& name) {
        std::ostringstream text;
        text << std::ifstream(std::string(ACE_PRINTS) + "/" + name).rdbuf();
        return text.str();
    }
};

}  // namespace ace::workbench
