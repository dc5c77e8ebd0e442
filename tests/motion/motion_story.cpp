#include "motion/motion_story.h"

#include "app/command_states.h"
#include "link/line_state.h"
#include "link/supervision.h"
#include "platform/platform.h"
#include "support/boxes.h"
#include "support/every_step.h"

#include <utility>

namespace qdw8::test {
namespace {

std::uint32_t Hex(Args& args) {
    return static_cast<std::uint32_t>(std::stoul(Word(args), nullptr, 16));
}

} // namespace

MotionStory::MotionStory()
    : words{
          {"wait", [this](Args& a) { platform.run(Number(a)); }},
          {"in",
           [this](Args& a) {
               const int ms = Number(a);
               later(ms, Rest(a));
           }},
          {"confirm-end", [](Args&) { ProgramEndFlag = kSet; }},
          {"give-up", [this](Args&) { AnswerByItself(platform); }},
          {"offline", [](Args&) { SetOfflineState(); }},
          {"during", [this](Args& a) { during(a); }},
          {"box", [this](Args& a) { platform.expectBox(BoxText(Rest(a))); }},
          {"in-box",
           [this](Args& a) {
               ThePlatform().ShowMessageBox = [this, ask = ThePlatform().ShowMessageBox, left = Number(a),
                                          what = Rest(a)](const BoxQuestion& box) mutable {
                   --left == 0 ? tell(what) : void();
                   return ask(box);
               };
           }},
          {"fault", [this](Args& a) { addFault(Word(a)); }},
          {"mend", [this](Args&) { line.controller.clearFaults(); }},
          {"cable", [this](Args&) { platform.breakLine(); }},
          {"hear",
           [this](Args& a) {
               EnableTimer(Timer1);
               platform.arrive(0, Rest(a) + "\r\n");
           }},
          {"inputs", [this](Args& a) { line.controller.setInputs(Hex(a), platform.now); }},
          {"outputs", [this](Args& a) { line.controller.setOutputs(Hex(a)); }},
          {"busy", [](Args&) { CtBusyFlag = kSet; }},
          {"free", [](Args&) { CtBusyFlag = kClear; }},
          {"hold", [this](Args&) { held = std::make_unique<PollHeld>(); }},
          {"release", [this](Args&) { held.reset(); }},
          {"command", [this](Args&) { command = std::make_unique<CommandsAway>(); }},
          {"command-ends", [this](Args&) { command.reset(); }},
          {"at-rest", [this](Args&) { ExpectAtRest(platform); }},
      },
      values{
          {"sent", [this](Args&) { return frames(false); }},
          {"frames", [this](Args&) { return frames(true); }},
          {"commands", [](Args&) { return CommandsTaken() ? "away" : "there"; }},
          {"program", [this](Args&) { return platform.ended ? "ended" : "runs"; }},
      } {}

MotionStory::~MotionStory() = default;

void MotionStory::add(const StoryWords& more, const StoryValues& moreValues) {
    words.insert(more.begin(), more.end());
    values.insert(moreValues.begin(), moreValues.end());
}

std::string MotionStory::frames(bool pollsAsOne) {
    std::string text;
    std::string before;
    for (const std::string& frame : std::exchange(platform.sent, {})) {
        if (!pollsAsOne || frame != before) {
            text += (text.empty() ? "" : " ") + frame;
        }
        before = frame;
    }
    return text;
}

void MotionStory::during(Args& args) {
    const std::string frame = Word(args);
    const std::size_t mark = frame.find(':');
    const int number = mark == std::string::npos ? 1 : std::stoi(frame.substr(mark + 1));
    platform.onOutput = [this, begins = frame.substr(0, mark), left = number, what = Rest(args),
                         send = platform.onOutput](const std::string& text) mutable {
        if (text.starts_with(begins) && --left == 0) {
            later(0, what);
        }
        send(text);
    };
}

void MotionStory::later(std::int64_t ms, const std::string& what) {
    platform.after(ms, [this, what] {
        for (const std::string& statement : Split(what, ';')) {
            tell(statement);
        }
    });
}

} // namespace qdw8::test
