#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// Stories: what the user does, what the program asks and what stands afterwards, a statement a
/// line. "== title" begins a new one with a fresh program; "#" begins a comment. The words are
/// those of the room.
namespace qdw8::test {

using Args = std::istringstream;
std::string Word(Args& args);
int Number(Args& args);
/// What is left of the line, plain.
std::string Rest(Args& args);
/// A text as data files hold it: "\r", "\n", "\t", "\0" and "\xFF" stand for themselves.
std::string Plain(const std::string& text);
/// The parts of a text, without blanks at their ends; an empty last one counts.
std::vector<std::string> Split(const std::string& text, char mark);
/// The lines of a file below tests/ but empty ones and those that begin with "#".
std::vector<std::string> LinesOf(const std::string& file);
/// All of them, with the mark between two.
std::string Joined(const std::vector<std::string>& parts, const std::string& mark = " ");
/// The rows of a table below tests/, their parts between "|" and plain.
std::vector<std::vector<std::string>> RowsOf(const std::string& table);

/// "word arguments", and "word arguments = value".
using StoryWords = std::map<std::string, std::function<void(Args&)>>;
using StoryValues = std::map<std::string, std::function<std::string(Args&)>>;
void TellStatement(const StoryWords& words, const StoryValues& values,
                   const std::string& statement);

/// A step of a story: gets the text behind its name, and gives what came of it.
using Verb = std::function<std::string(const std::string& text)>;
using Verbs = std::map<std::string, Verb>;
/// A step of which nothing comes.
template<typename Act> Verb Does(Act act) {
    return [act](const std::string& text) { return act(text), std::string(); };
}
/// Plays "verb text = result", or "verb text" whose result is not looked at. Both are plain, "^" is
/// a line end, and the result "!" a fault.
void PlayVerb(const Verbs& verbs, const std::string& line);

/// A row of a table of what has a name: the name, and what is called so.
#define NAMED(it)                                                                                  \
    { #it, it }

/// Tells all stories of a file or folder, each by a `Story` of its own.
template<typename Story> void TellStories(const std::string& path, int atLeast) {
    namespace fs = std::filesystem;
    int told = 0;
    std::vector<fs::path> files{path};
    if (fs::is_directory(path)) {
        files.assign(fs::directory_iterator(path), {});
    }
    for (const fs::path& file : files) {
        std::ifstream lines(file);
        std::unique_ptr<Story> story;
        std::string title;
        int number = 0;
        for (std::string statement; std::getline(lines, statement);) {
            SCOPED_TRACE(title + "\n" + file.filename().string() + ":" + std::to_string(++number) +
                         " " + statement);
            if (statement.starts_with("== ")) {
                story.reset(); // one platform at a time
                story = std::make_unique<Story>();
                title = statement.substr(3);
                ++told;
            } else if (!statement.empty() && !statement.starts_with('#')) {
                story->tell(statement);
                ASSERT_FALSE(testing::Test::HasFatalFailure());
            }
        }
    }
    EXPECT_GE(told, atLeast);
}

} // namespace qdw8::test
