#include "layers/layers.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>

namespace ace::layers {
namespace {

namespace fs = std::filesystem;

struct Layer {
    std::string_view name;
    std::string_view folder;  ///< where its files lie
    std::string_view prefix;  ///< how its headers are included
};

/// From the bottom to the top: a layer includes itself and what stands before it.
constexpr std::array<Layer, 9> Layers{{
    {"host", "src/ace/host/", "ace/host/"},
    {"core", "src/ace/core/", "ace/core/"},
    {"settings", "src/ace/settings/", "ace/settings/"},
    {"execution", "src/ace/execution/", "ace/execution/"},
    {"matrix", "src/ace/matrix/", "ace/matrix/"},
    {"editor", "src/ace/editor/", "ace/editor/"},
    {"dialogs", "src/ace/dialogs/", "ace/dialogs/"},
    {"sim", "sim/", "sim/"},
    {"workbench", "workbench/", "workbench/"},
}};
constexpr std::array<std::string_view, 3> Roots{"src", "sim", "workbench"};

std::size_t LayerOf(std::string_view path, std::string_view Layer::*start) {
    const auto row = std::find_if(Layers.begin(), Layers.end(), [&](const Layer& layer) {
        return path.substr(0, (layer.*start).size()) == layer.*start;
    });
    return static_cast<std::size_t>(row - Layers.begin());
}

/// Headers of the standard library have neither a folder nor an extension.
bool IsStandard(std::string_view included) {
    return included.find_first_of("./") == std::string_view::npos;
}

struct Include {
    std::string name;
    bool angled;
};

/// The header that a line includes, if it is an include line.
std::optional<Include> IncludeOf(const std::string& line) {
    constexpr std::string_view Blanks = " \t";
    const auto hash = line.find_first_not_of(Blanks);
    if (hash == std::string::npos || line[hash] != '#') {
        return {};
    }
    const auto word = line.find_first_not_of(Blanks, hash + 1);
    if (word == std::string::npos || line.compare(word, 7, "include") != 0) {
        return {};
    }
    const auto open = line.find_first_of("<\"", word + 7);
    if (open == std::string::npos) {
        return Include{line.substr(word + 7), false};
    }
    const auto close = line.find(line[open] == '<' ? '>' : '"', open + 1);
    return Include{line.substr(open + 1, close - open - 1), line[open] == '<'};
}

void AddFaultsOf(const fs::path& root, const std::string& file, std::vector<std::string>& faults) {
    std::ifstream in(root / file);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        const auto include = IncludeOf(line);
        const auto fault = include ? Fault(file, include->name, include->angled) : "";
        if (!fault.empty()) {
            faults.push_back(file + ":" + std::to_string(number) + ": " + fault);
        }
    }
}

std::vector<std::string> SourcesBelow(const fs::path& root) {
    std::vector<std::string> files;
    for (const auto part : Roots) {
        if (!fs::is_directory(root / part)) {
            continue;
        }
        for (const auto& entry : fs::recursive_directory_iterator(root / part)) {
            if (const auto kind = entry.path().extension(); kind == ".h" || kind == ".cpp") {
                files.push_back(entry.path().lexically_relative(root).generic_string());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

std::string Fault(std::string_view file, std::string_view included, bool angled) {
    const auto name = std::string(included);
    const auto from = LayerOf(file, &Layer::folder);
    if (from == Layers.size()) {
        return "lies in no known folder";
    }
    if (included.find("..") != std::string_view::npos) {
        return "includes \"" + name + "\" by a relative path";
    }
    const auto to = LayerOf(included, &Layer::prefix);
    if (to < Layers.size()) {
        return to <= from ? ""
                          : std::string(Layers[from].name) + " includes " +
                                std::string(Layers[to].name) + ", a later folder: " + name;
    }
    if (!angled) {
        return "includes \"" + name + "\", which is in no known folder";
    }
    const bool isEngine = file.substr(0, 8) == "src/ace/";
    return isEngine && !IsStandard(included)
               ? "the engine includes <" + name + ">, which is not of the standard library"
               : "";
}

std::vector<std::string> FaultsBelow(const std::filesystem::path& root) {
    const auto files = SourcesBelow(root);
    std::vector<std::string> faults;
    if (files.empty()) {
        faults.push_back("no sources below " + root.generic_string());
    }
    for (const auto& file : files) {
        AddFaultsOf(root, file, faults);
    }
    return faults;
}

}  // namespace ace::layers
