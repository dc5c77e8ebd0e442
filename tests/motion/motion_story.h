#pragma once

#include "link/background.h"
#include "support/bench.h"
#include "support/story.h"

#include <memory>

namespace qdw8 {
class CommandsAway;
}

/// What the stories of all windows that act on the machine say: time, the line and its faults, what
/// the controller does, other commands, the end of the program. "sent" are the frames since it was
/// asked last, "frames" the same with equal ones in a row as one; "during FRAME WORDS" lets
/// something happen in the wait for the answer to the next frame that begins so, "in-box N WORDS"
/// while the Nth box is up.
namespace qdw8::test {

class MotionStory : public LineBench {
public:
    MotionStory();
    ~MotionStory();
    void tell(const std::string& statement) { TellStatement(words, values, statement); }

protected:
    /// Those of one window.
    void add(const StoryWords& more, const StoryValues& moreValues);

private:
    std::string frames(bool pollsAsOne);
    void during(Args& args);
    void later(std::int64_t ms, const std::string& what);

    std::unique_ptr<PollHeld> held;
    std::unique_ptr<CommandsAway> command;
    StoryWords words;
    StoryValues values;
};

} // namespace qdw8::test
