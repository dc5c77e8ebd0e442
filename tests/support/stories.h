#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace qdw8::test {

/// Plays a file of stories, `file` being below tests/. A line "= name" begins a story with a player
/// of its own; its `play` gets each line behind. Empty lines and those behind a "#" are passed
/// over. Gives how many were told.
template<typename Player> int PlayStories(const std::string& file) {
    std::ifstream stories(QDW8_SOURCE_DIR "/tests/" + file);
    std::unique_ptr<Player> player;
    std::string name;
    int told = 0;
    for (std::string line; std::getline(stories, line);) {
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        SCOPED_TRACE(name + ": " + line);
        if (line.starts_with("= ")) {
            player.reset();
            player = std::make_unique<Player>();
            name = line;
            ++told;
        } else {
            player->play(line);
        }
    }
    return told;
}

} // namespace qdw8::test
