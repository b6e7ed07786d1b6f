/// Slips of the pen in good sets of files, and what becomes of the test with each of them.
#pragma once

#include <filesystem>
#include <sstream>

#include "session/session_fixture.h"
#include "workbench/check/rules.h"
#include "workbench/devices/device_file.h"
#include "workbench/session/bench_host.h"

namespace ace::workbench {

/// A folder with the good files of a test, whose settings file has the folder's name, and with a
/// table of slips.
struct VariantSet {
    std::string name;
    std::size_t least = 0;  ///< so many slips at least change or end the test

    std::string Main() const { return name + ".ini"; }
    std::string Folder() const { return std::string(ACE_VARIANTS) + "/" + name; }
};
inline void PrintTo(const VariantSet& set, std::ostream* out) {
    *out << set.name;
}

/// One slip: a patch of one line of one file. The format stands at the top of ri/variants.txt.
struct Variant {
    std::string name;
    std::string file;
    struct Edit {
        char sign;         ///< '-' or '+'
        std::size_t line;  ///< from 1
        std::string text;
    };
    std::vector<Edit> edits;
    std::string run;
    std::vector<std::string> findings;
};

/// The files of a test by their names.
using FileSet = std::map<std::string, std::string>;

inline std::string FileText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

inline FileSet GoodSet(const VariantSet& set) {
    FileSet files;
    for (const auto& entry : std::filesystem::directory_iterator(set.Folder())) {
        const std::string name = entry.path().filename();
        if (name != "variants.txt") {
            files[name] = FileText(entry.path());
        }
    }
    return files;
}
/// The text of a file that the set may lack.
inline std::string TextIn(const FileSet& files, const std::string& name) {
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
}

/// "- 37 [ActionsOnSR1]"; "\s" stands for a blank.
inline Variant::Edit ReadEdit(const std::string& line) {
    std::size_t length = 0;
    Variant::Edit edit{line[0], std::stoul(line.substr(2), &length), {}};
    const std::size_t begin = 2 + length + 1;
    edit.text = line.size() > begin ? line.substr(begin) : "";
    for (std::size_t at = 0; (at = edit.text.find("\\s")) != std::string::npos;) {
        edit.text.replace(at, 2, " ");
    }
    return edit;
}

inline std::vector<Variant> AllVariants(const VariantSet& set) {
    std::vector<Variant> variants;
    std::istringstream table(FileText(set.Folder() + "/variants.txt"));
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with("== ")) {
            variants.push_back({line.substr(3), {}, {}, {}, {}});
            std::getline(table, variants.back().file);
        } else if (line.starts_with("- ") || line.starts_with("+ ")) {
            variants.back().edits.push_back(ReadEdit(line));
        } else if (line.starts_with("run ")) {
            variants.back().run = line.substr(4);
        } else if (!line.empty() && line[0] != '#') {
            variants.back().findings.push_back(line);
        }
    }
    return variants;
}

/// The good set with the patch of a variant, whose lines must be those of the file.
inline FileSet Patched(const VariantSet& set, const Variant& variant) {
    FileSet files = GoodSet(set);
    std::vector<std::string> lines;
    std::istringstream text(files.at(variant.file));
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    for (const Variant::Edit& edit : variant.edits) {
        const auto at = lines.begin() + static_cast<std::ptrdiff_t>(edit.line) - 1;
        if (edit.sign == '+') {
            lines.insert(at, edit.text);
        } else {
            EXPECT_EQ(*at, edit.text) << variant.name;
            lines.erase(at);
        }
    }
    std::string& patched = files.at(variant.file);
    patched.clear();
    for (const std::string& line : lines) {
        patched += line + "\n";
    }
    return files;
}

/// What came of a test: how it ended, what was told and when.
struct Happened {
    std::string end;  ///< "finished", "stopped", "ends" with an error, "load" or "refused ri.ini:9"
    std::size_t moments = 0;
    std::vector<std::string> lines;
    std::vector<double> times;
    bool operator==(const Happened&) const = default;
};

/// Stands in the folder of the test, where the sounds, macros and programs of the sets are.
class VariantsTest : public FolderTest, public ::testing::WithParamInterface<VariantSet> {
  protected:
    VariantsTest() : before(std::filesystem::current_path()) {
        for (const char* name : {"done.wav", "log_eut.sh", "exerciser.sh"}) {
            Write(name, "");
        }
        std::filesystem::permissions(Path("log_eut.sh"), std::filesystem::perms::owner_all);
        std::filesystem::current_path(folder);
    }
    ~VariantsTest() override { std::filesystem::current_path(before); }

    /// The findings as "ri.ini:37 section-misspelt", each with words; or why a file was refused.
    static std::vector<std::string> FindingsOfSet(const FileSet& files);
    /// Runs the test of the set on a virtual clock.
    Happened Run(const FileSet& files) const;

  private:
    std::filesystem::path before;
};

}  // namespace ace::workbench
