#pragma once

#include "support/scripted_platform.h"
#include "support/simulated_line.h"

#include <gtest/gtest.h>
#include <string>

namespace qdw8::test {

/// A program just started, on the scripted platform, with the delivered lists beside it: every room
/// in the state of a fresh start, the error list read, no actuator told of yet (every axis counts
/// as in use), and an empty folder for files that goes with the object.
///
/// A room's own bench adds what its tests begin with:
///
///     struct ReadBench : LineBench {
///         ReadBench() { ...devices, rows... }
///     };
///     using ReadTest = Unit<ReadBench>;
///     TEST_F(ReadTest, ...) { platform.expectBox(BoxText("timeout")); ... }
class Bench {
public:
    Bench();
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    std::string pathOf(const std::string& name) const { return folder + "/" + name; }
    /// Writes a file into the folder and gives its path.
    std::string writeFile(const std::string& name, const std::string& bytes) const;
    /// Makes the folder the one of the program: no list lies in it.
    void leaveListsBehind() const;

    ScriptedPlatform platform;
    std::string folder;
};

/// The same with the simulated controller, its start machine, at the other end of the line.
class LineBench : public Bench {
public:
    /// A fault rule of the simulator, "0RP:3:silence".
    void addFault(const std::string& rule);
    /// Forgets frames and faults so far.
    void forgetFrames();

    SimulatedLine line{platform};
};

/// What every command must leave behind, whatever became of it: the line free, no wait running, no
/// dialog up, no command away, the poll free to run, and the port closed unless it is kept.
void ExpectAtRest(const ScriptedPlatform& platform);

/// A test fixture out of a bench.
template<typename TheBench> class Unit : public testing::Test, protected TheBench {};

} // namespace qdw8::test
