/// Sounds by a player program of this machine.
#pragma once

#include <string>
#include <vector>

#include <ace/host/basic_types.h>

#include "workbench/transports/programs.h"

namespace ace::workbench {

/// The first known player in the folders of `searchPath`, which colons separate, with the options
/// that it needs; empty when there is none.
std::vector<std::string> FindPlayer(const std::string& searchPath);

/// Plays a file by starting a player with the file's name as its last argument.
class SoundPlayer {
  public:
    /// `player` is a command line; the empty one looks for a player when a sound is to be played.
    explicit SoundPlayer(String player = {}) : x_player(std::move(player)) {}

    /// Starts the sound and returns while it plays. False without a player, for a file that isn't
    /// there, and while the sound before it still plays. A file that the player can't read is no
    /// failure: that shows only when the player runs.
    bool Play(const String& fileName);
    /// Why the last sound could not be played.
    const String& Failure() const { return x_failure; }

  private:
    String Start(const std::string& file);

    String x_failure;
    String x_player;
    Programs x_programs;
    double x_playing = 0.0;  ///< process of the last sound
};

}  // namespace ace::workbench
