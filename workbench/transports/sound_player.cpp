#include "workbench/transports/sound_player.h"

#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/command_line.h"
#include "workbench/transports/machine_files.h"

namespace ace::workbench {

namespace {

/// In the order in which they are tried.
const std::vector<std::string> KnownPlayers[] = {{"paplay"}, {"pw-play"}, {"aplay", "-q"}};

}  // namespace

std::vector<std::string> FindPlayer(const std::string& searchPath) {
    for (std::vector<std::string> player : KnownPlayers) {
        if (const auto path = FindProgram(player.front(), searchPath)) {
            player.front() = *path;
            return player;
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
    std::vector<std::string> command =
        x_player.empty() ? FindPlayer(SearchPath()) : SplitCommandLine(x_player);
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
