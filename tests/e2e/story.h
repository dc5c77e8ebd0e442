#pragma once

#include <QString>

/// A story is a text of stories/*.txt: the words that a user says to himself, one line after the
/// other. It begins with the program at its splash and ends with the program closed.
namespace e2e {

/// Reads all stories, and writes the settings that this one starts with.
void OpenStory(const QString& name);
/// Plays it. Comes back only by the end of the process.
[[noreturn]] void PlayStory();

} // namespace e2e
