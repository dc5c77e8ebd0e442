// Every fault at byte level, the way rules are read, and when they strike.

#include "ask.h"

#include <gtest/gtest.h>

using namespace qdk8;

namespace {

void AddRule(Controller& controller, const std::string& rule) {
    std::string problem;
    ASSERT_TRUE(controller.addFault(rule, problem)) << rule << ": " << problem;
}

// What goes out for the request "0RH" (good reply "0RH0"), each piece with its moment.
std::string Traffic(const std::string& fault) {
    Controller controller;
    AddRule(controller, "0RH:1:" + fault);
    Ask(controller, "0RV", 0);
    controller.receive("0RH\r\n", 10);
    std::string all;
    for (const Outgoing& out : controller.takeDue(100000)) {
        all += std::to_string(out.at) + "[" + (out.hangUp ? "hang-up" : out.bytes) + "]";
    }
    return all;
}

TEST(Faults, SpoilTheReplyByteByByte) {
    const std::vector<std::pair<std::string, std::string>> all{
        {"silence", ""},
        {"deaf", ""},
        {"late=1500", "1510[0RH0\r\n]"},
        {"part=5", "10[0RH0\r]"},
        {"part=0", ""},
        {"bytes=7", "10[0]17[R]24[H]31[0]38[\r]45[\n]"},
        {"noise-before", "10[~#?0RH0\r\n]"},
        {"noise-inside=XY", "10[0RXYH0\r\n]"},
        {"echo", "10[0ZZ0\r\n]"},
        {"echo=0RA", "10[0RA0\r\n]"},
        {"long", "10[0RH00\r\n]"},
        {"short", "10[0RH\r\n]"},
        {"twice", "10[0RH0\r\n0RH0\r\n]"},
        {"error=06", "10[0%%006\r\n]"},
        {"error=0%%134", "10[0%%134\r\n]"},
        {"error=0%%1", "10[0%%1\r\n]"},
        {"reply=0RH7", "10[0RH7\r\n]"},
        {"previous", "10[0RV140A40\r\n]"},
        {"hangup", "10[hang-up]"},
        {"hangup=2", "10[0R]10[hang-up]"},
    };
    for (const auto& [fault, expected] : all) {
        EXPECT_EQ(Traffic(fault), expected) << fault;
    }
}

TEST(Faults, StrikeAtTheirOccurrence) {
    const std::vector<std::pair<std::string, std::string>> all{
        {"3", "..x..."}, {"*", "xxxxxx"}, {"4+", "...xxx"}, {"2-3", ".xx..."}};
    for (const auto& [occurrence, expected] : all) {
        Controller controller;
        AddRule(controller, "0RA:" + occurrence + ":silence");
        std::string seen;
        for (int i = 0; i < 6; ++i) {
            seen += Ask(controller, "0RA", i).empty() ? "x" : ".";
            EXPECT_EQ(Ask(controller, "0RH", i), "0RH0\r\n") << "another command";
        }
        EXPECT_EQ(seen, expected) << occurrence;
    }
}

TEST(Faults, NoReplyOvertakesTheOneBefore) {
    Controller controller;
    AddRule(controller, "0RH:1:late=1500");
    AddRule(controller, "0RI:1:bytes=7");
    EXPECT_EQ(Ask(controller, "0RH", 10), "");
    EXPECT_EQ(Ask(controller, "0RA", 1000), "");
    EXPECT_EQ(Ask(controller, "0RA", 1510), "0RH0\r\n0RA1\r\n0RA1\r\n");
    Ask(controller, "0RI", 2000);
    EXPECT_EQ(Ask(controller, "0RA", 2001, 2069), "RI000000\r");
    EXPECT_EQ(Ask(controller, "0SP", 2069, 2070), "\n0RA1\r\n0SP\r\n");
}

TEST(Faults, MayMeanOneFrameOrAll) {
    Controller controller;
    AddRule(controller, "0CM1:*:silence");
    EXPECT_EQ(Ask(controller, "0CM0", 0), "0CM0\r\n");
    EXPECT_EQ(Ask(controller, "0CM1", 0), "");
    AddRule(controller, "*:2:long");
    EXPECT_EQ(Ask(controller, "0RH", 0), "0RH0\r\n");
    EXPECT_EQ(Ask(controller, "0RA", 0), "0RA10\r\n");
    controller.clearFaults();
    EXPECT_EQ(Ask(controller, "0CM1", 0), "0CM1\r\n");
}

TEST(Faults, LoseTheReplyOrTheRequest) {
    const std::vector<std::pair<std::string, bool>> all{
        {"silence", true}, {"deaf", false}, {"error=02", false}, {"echo", true}};
    for (const auto& [fault, obeyed] : all) {
        Controller controller;
        AddRule(controller, "0CM02:*:" + fault);
        Ask(controller, "0CM02", 0);
        EXPECT_EQ(controller.machine().mode, obeyed ? 2 : 0) << fault;
        EXPECT_EQ(controller.count("0CM"), 1) << fault;
    }
}

TEST(Faults, WaitForTheEndOfAGroup) {
    Controller controller;
    const Millis now = Home(controller, 0);
    AddRule(controller, "0MG:1:late=500");
    EXPECT_EQ(Ask(controller, "0MG01", now), "");
    Millis ended = now;
    while (!controller.machine().plan.empty()) {
        ended = *controller.nextDue();
        ASSERT_TRUE(controller.takeDue(ended).empty());
    }
    EXPECT_EQ(controller.nextDue(), ended + 500);
    EXPECT_EQ(controller.takeDue(ended + 500).at(0).bytes, "0MG01\r\n");
}

TEST(Faults, BadRulesAreRefusedWithAReason) {
    for (const char* rule :
         {"", "0RP", "0RP:1", "0XX:1:silence", "0R:1:silence", "0RP::silence", "0RP:0:silence",
          "0RP:x:silence", "0RP:5-2:silence", "0RP:1:nothing", "0RP:1:late", "0RP:1:late=x",
          "0RP:1:silence=3", "0RP:1:error=9", "0RP:1:bytes=-1"}) {
        FaultRule parsed;
        std::string problem;
        EXPECT_FALSE(ParseFaultRule(rule, parsed, problem)) << rule;
        EXPECT_FALSE(problem.empty()) << rule;
        EXPECT_EQ(problem.find('\n'), std::string::npos) << rule;
    }
}

} // namespace
