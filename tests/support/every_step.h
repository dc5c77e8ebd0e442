#pragma once

#include "support/bench.h"

#include <functional>
#include <string>
#include <vector>

/// One command, and every way in which the line can fail it: the command runs once undisturbed and
/// then once for each frame that it sends and each fault, the fault at that frame.
///
///     TEST(Read, EveryStep) {
///         EveryStep<ReadBench>(
///             [](ReadBench& bench) {           // prepares what is asked, and runs the command
///                 bench.platform.expectScreen("frmSelectPosiNo2", ...);
///                 ReadFromCt();
///             },
///             [](ReadBench& bench, const Step& step) { // what must be back, or stand, behind it
///                 EXPECT_EQ(GridFirst, step.fault.empty() ? 5 : 1);
///             });
///     }
///
/// Each run has a bench of its own. Boxes need not be expected: those that are expected are
/// answered as told, any other is noted in `step.boxes` and answered with OK, Yes, or, where
/// something could be saved first, No; what was expected and never came is no error. A wait that
/// is offered to be given up is given up. After each run `ExpectAtRest` is looked at by itself.
///
/// The test that uses it must not have a platform of its own in force: `TEST`, not `TEST_F`.
namespace qdw8::test {

/// A run as the check sees it.
struct Step {
    std::string fault;              ///< as below; empty in the undisturbed run
    std::string frame;              ///< the frame at which it happens
    int number = 0;                 ///< its number among the frames of the undisturbed run, from 1
    std::vector<std::string> boxes; ///< that were not expected

    /// The line is dead from that frame on.
    bool dead() const { return fault == "dead" || fault == "hangup" || fault == "dumb"; }
};

/// The faults, in the simulator's words: what it does with the reply to that frame, and two more.
/// "dead": no answer to this and any later frame; "dumb": a reply that can't be believed, and then
/// none any more.
inline const std::vector<std::string> kAllFaults{"dead",     "dumb",     "silence", "error=03",
                                                 "error=14", "echo=0ZZ", "short",   "previous",
                                                 "stray",    "hangup"};

/// Adds the rules of one fault at the n-th frame from now.
void AddStepFault(LineBench& bench, const std::string& fault, int number);
/// Answers by itself as told above.
void AnswerByItself(ScriptedPlatform& platform);

template<typename TheBench>
void EveryStep(const std::function<void(TheBench&)>& command,
               const std::function<void(TheBench&, const Step&)>& check,
               const std::vector<std::string>& faults = kAllFaults) {
    std::vector<std::string> frames;
    const auto run = [&](Step step) {
        SCOPED_TRACE(step.fault.empty() ? "undisturbed"
                                        : step.fault + " at frame " + std::to_string(step.number) +
                                              ", " + step.frame);
        TheBench bench;
        AnswerByItself(bench.platform);
        if (!step.fault.empty()) {
            AddStepFault(bench, step.fault, step.number);
        }
        const std::size_t sentBefore = bench.platform.sent.size();
        command(bench);
        if (step.fault.empty()) {
            frames.assign(bench.platform.sent.begin() + static_cast<std::ptrdiff_t>(sentBefore),
                          bench.platform.sent.end());
        }
        step.boxes = bench.platform.boxes;
        ExpectAtRest(bench.platform);
        check(bench, step);
    };
    run({});
    ASSERT_FALSE(frames.empty()) << "a command that sends nothing";
    for (std::size_t at = 0; at < frames.size(); ++at) {
        for (const std::string& fault : faults) {
            run({fault, frames[at], static_cast<int>(at) + 1, {}});
        }
    }
}

} // namespace qdw8::test
