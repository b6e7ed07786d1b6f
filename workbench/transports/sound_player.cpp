#include "workbench/transports/sound_player.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <unistd.h>

#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/command_line.h"

namespace ace::workbench {

namespace {

/// In the order in which they are tried.
const std::vector<std::string> KnownPlayers[] = {{"paplay"}, {"pw-play"}, {"aplay", "-q"}};

bool IsPlainFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

bool IsProgram(const std::string& path) {
    return IsPlainFile(path) && ::access(path.c_str(), X_OK) == 0;
}

std::vector<std::string> Folders(const std::string& searchPath) {
    std::vector<std::string> folders;
    std::istringstream rest(searchPath);
    for (std::string folder; std::getline(rest, folder, ':');) {
        folders.push_back(folder.empty() ? "." : folder);
    }
    return folders;
}

}  // namespace

std::vector<std::string> FindPlayer(const std::string& searchPath) {
    for (std::vector<std::string> player : KnownPlayers) {
        for (const std::string& folder : Folders(searchPath)) {
            const std::string path = folder + "/" + player.front();
            if (IsProgram(path)) {
                player.front() = path;
                return player;
            }
        }
    }
    return {};
}

/// Answers why it could not be started; empty when it plays.
String SoundPlayer::Start(const std::string& file) {
    if (!IsPlainFile(file)) {
        return L"there is no such file";
    }
    if (x_programs.IsRunning(x_playing)) {
        return L"the sound before it still plays";
    }
    const char* path = std::getenv("PATH");
    std::vector<std::string> command =
        x_player.empty() ? FindPlayer(path != nullptr ? path : "") : SplitCommandLine(x_player);
    if (command.empty()) {
        return L"this machine has no player; the configuration names one by [Sound] "
               L"Player=<command line>";
    }
    command.push_back(file);
    x_playing = x_programs.Start(command);
    return {};
}

bool SoundPlayer::Play(const String& fileName) {
    try {
        x_failure = Start(ToUtf8(fileName));
    } catch (const RunTimeError& error) {
        x_failure = error.Description();
    }
    return x_failure.empty();
}

}  // namespace ace::workbench
