#include "layers/layers.h"

#include <algorithm>
#include <array>
#include <deque>
#include <fstream>
#include <map>
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
constexpr std::array<Layer, 15> Layers{{
    {"host", "src/ace/host", "ace/host"},
    {"core", "src/ace/core/", "ace/core/"},
    {"settings", "src/ace/settings/", "ace/settings/"},
    {"execution", "src/ace/execution/", "ace/execution/"},
    {"matrix", "src/ace/matrix/", "ace/matrix/"},
    {"editor", "src/ace/editor/", "ace/editor/"},
    {"dialogs", "src/ace/dialogs/", "ace/dialogs/"},
    {"sim", "sim/", "sim/"},
    {"workbench/words", "workbench/words/", "workbench/words/"},
    {"workbench/files", "workbench/files/", "workbench/files/"},
    {"workbench/transports", "workbench/transports/", "workbench/transports/"},
    {"workbench/devices", "workbench/devices/", "workbench/devices/"},
    {"workbench/session", "workbench/session/", "workbench/session/"},
    {"workbench/check", "workbench/check/", "workbench/check/"},
    {"workbench/cli", "workbench/cli/", "workbench/cli/"},
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

/// An include line and where it stands.
struct PlacedInclude {
    std::string file;
    int line;
    Include include;

    std::string Place() const { return file + ":" + std::to_string(line); }
};

void AddIncludesOf(const fs::path& root, const std::string& file,
                   std::vector<PlacedInclude>& includes) {
    std::ifstream in(root / file);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (const auto include = IncludeOf(line)) {
            includes.push_back({file, number, *include});
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

/// A file without its extension: a header and its source are one room.
std::string RoomOf(const std::string& file) {
    return file.substr(0, file.rfind('.'));
}

/// The file that is included, by its path below the root.
std::string FileOf(const Include& include) {
    return include.name.starts_with("ace/") ? "src/" + include.name : include.name;
}

/// For each room the includes that lead out of it. Those of files that lie nowhere are left out.
using Doors = std::map<std::string, std::vector<const PlacedInclude*>>;

/// Intentional: a service of the simulated host holds the host that makes it. It is a stand-in in
/// one piece, whose rooms are there to be read one by one.
bool IsAccepted(const PlacedInclude& door) {
    return door.file.starts_with("sim/sim_") && door.include.name == "sim/sim_host.h";
}

Doors DoorsOf(const std::vector<PlacedInclude>& includes) {
    Doors doors;
    for (const auto& include : includes) {
        const auto from = RoomOf(include.file);
        if (from != RoomOf(FileOf(include.include)) && !IsAccepted(include)) {
            doors[from].push_back(&include);
        }
    }
    return doors;
}

/// The shortest way from a room back to itself that passes no room before it in the order of the
/// names; so each circle is told once, from its first room. Empty when there is none.
std::vector<const PlacedInclude*> CircleFrom(const std::string& start, const Doors& doors) {
    std::map<std::string, const PlacedInclude*> cameBy;
    std::deque<std::string> rooms{start};
    while (!rooms.empty() && !cameBy.contains(start)) {
        const auto room = doors.find(rooms.front());
        rooms.pop_front();
        if (room == doors.end()) {
            continue;
        }
        for (const auto* door : room->second) {
            const auto next = RoomOf(FileOf(door->include));
            if (next >= start && cameBy.emplace(next, door).second) {
                rooms.push_back(next);
            }
        }
    }
    std::vector<const PlacedInclude*> circle;
    for (auto step = cameBy.find(start); step != cameBy.end();) {
        circle.insert(circle.begin(), step->second);
        const auto before = RoomOf(step->second->file);
        step = before == start ? cameBy.end() : cameBy.find(before);
    }
    return circle;
}

void AddCircles(const std::vector<PlacedInclude>& includes, std::vector<std::string>& faults) {
    const Doors doors = DoorsOf(includes);
    for (const auto& [room, ignored] : doors) {
        std::string way;
        for (const auto* door : CircleFrom(room, doors)) {
            way += door->Place() + " -> ";
        }
        if (!way.empty()) {
            faults.push_back("a circle of rooms: " + way + room);
        }
    }
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
    std::vector<PlacedInclude> includes;
    for (const auto& file : files) {
        AddIncludesOf(root, file, includes);
    }
    for (const auto& one : includes) {
        const auto fault = Fault(one.file, one.include.name, one.include.angled);
        if (!fault.empty()) {
            faults.push_back(one.Place() + ": " + fault);
        }
    }
    AddCircles(includes, faults);
    return faults;
}

}  // namespace ace::layers
