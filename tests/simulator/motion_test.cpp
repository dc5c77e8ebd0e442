// Motion in time: what is asked in between, and when it ends.

#include "ask.h"

#include <gtest/gtest.h>

using namespace qdk8;

namespace {

// A row whose first axis goes to `pulses` at speed 10 (100 mm/s), the others to 0.
std::string Row(const std::string& pulses, const std::string& common) {
    return "0A30" + pulses + "1E30000001E30000001E2000000" + common;
}

TEST(Motion, HomingTakesTimeAndShows) {
    Controller controller;
    EXPECT_EQ(Ask(controller, "0MM000F", 0), "0MM000F\r\n");
    EXPECT_EQ(Ask(controller, "0RA", 500), "0RA0\r\n");
    EXPECT_EQ(Ask(controller, "0RH", 500), "0RH0\r\n");
    const Millis end = RunDown(controller, 500);
    EXPECT_GT(end, 1000);
    EXPECT_LT(end, 20000);
    EXPECT_EQ(Ask(controller, "0RA", end), "0RA1\r\n");
    EXPECT_EQ(Ask(controller, "0RH", end), "0RH1\r\n");
    EXPECT_EQ(Ask(controller, "0RO", end), "0RO300000\r\n");
}

TEST(Motion, HomesInTheOrderOfTheAxes) {
    Controller controller;
    Ask(controller, "0MM000F", 0);
    const Millis first = *controller.nextDue();
    controller.takeDue(first);
    EXPECT_EQ(controller.machine().homed, 0x1U);
    const Millis second = *controller.nextDue();
    controller.takeDue(second);
    EXPECT_EQ(controller.machine().homed, 0x7U) << "axes 2 and 3 share an order";
    controller.takeDue(*controller.nextDue());
    EXPECT_EQ(controller.machine().homed, 0xFU);
}

TEST(Motion, AHomingWithoutSensorEndsInItsAlarm) {
    Controller controller;
    controller.setHomeSensorFails(true);
    const Millis end = Home(controller, 0);
    EXPECT_EQ(Ask(controller, "0RA", end), "0%%134\r\n");
    EXPECT_EQ(Ask(controller, "0RH", end), "0RH0\r\n");
}

TEST(Motion, MovesAtTheSpeedOfTheRow) {
    Controller controller;
    Millis now = Home(controller, 0);
    controller.setPositionRow(7, Row("01388", "0200")); // 5000 pulses are 100 mm
    EXPECT_EQ(Ask(controller, "0MP0071", now), "0MP0071\r\n");
    EXPECT_EQ(*controller.nextDue(), now + 1000 + 40) << "100 mm at 100 mm/s, and the ramp";
    EXPECT_EQ(Ask(controller, "0RO", now + 1), "0RO000000\r\n");
    EXPECT_EQ(controller.position(0, now + 520), 2500);
    EXPECT_EQ(Ask(controller, "0MP0011", now + 520), "0%%00D\r\n");
    EXPECT_EQ(Ask(controller, "0WP001" + Row("00000", "0000"), now + 520), "0%%005\r\n");
    now += 1040;
    EXPECT_EQ(Ask(controller, "0RC1", now), "0RC101388\r\n");
    EXPECT_EQ(Ask(controller, "0RO", now), "0RO300072\r\n") << "number 7 reached, OUT 2";
}

TEST(Motion, InterpolatedAxesArriveTogether) {
    Controller controller;
    const Millis now = Home(controller, 0);
    const std::string both = "0A30013880A30003E8"
                             "1E30000001E2000000";
    controller.setPositionRow(1, both + "0000");
    Ask(controller, "0MP0013", now);
    EXPECT_EQ(controller.position(1, now + 500), 1000) << "alone it is there early";
    RunDown(controller, now);
    Ask(controller, "0MM0003", now + 5000);
    const Millis again = RunDown(controller, now + 5000);
    controller.setPositionRow(1, both + "1000");
    Ask(controller, "0MP0013", again);
    EXPECT_NEAR(controller.position(1, again + 520), 500, 2);
}

TEST(Motion, StopLeavesTheAxesWhereTheyAre) {
    Controller controller;
    const Millis now = Home(controller, 0);
    controller.setPositionRow(7, Row("01388", "0000"));
    Ask(controller, "0MP0071", now);
    EXPECT_EQ(Ask(controller, "0SP", now + 520), "0SP\r\n");
    EXPECT_EQ(Ask(controller, "0RA", now + 520), "0RA1\r\n");
    EXPECT_EQ(Ask(controller, "0RC1", now + 9000), "0RC1009C4\r\n");
}

TEST(Motion, JogRunsUntilItIsStopped) {
    Controller controller;
    const Millis now = Home(controller, 0);
    EXPECT_EQ(Ask(controller, "0JR10005", now), "0JR\r\n"); // half of JOG speed 15: 75 mm/s
    EXPECT_EQ(Ask(controller, "0SP", now + 1000), "0SP\r\n");
    EXPECT_EQ(controller.position(0, now + 2000), 3750);
    Ask(controller, "0JR20000", now + 3000);
    const Millis end = RunDown(controller, now + 3000);
    EXPECT_EQ(controller.position(0, end), 0) << "the home end stops it";
    EXPECT_EQ(Ask(controller, "0JR30000", end), "0%%002\r\n");
}

TEST(Motion, JogSpeedIsAPlainDecimalNumber) {
    const std::vector<std::pair<std::string, std::string>> all{
        {"0", "0JR"},      {"9", "0JR"},      {"1.5", "0JR"},    {".5", "0JR"},
        {"5.", "0JR"},     {"1e0", "0%%001"}, {"0x1", "0%%001"}, {" 1", "0%%001"},
        {"+1", "0%%001"},  {"-1", "0%%001"},  {".", "0%%001"},   {"1..", "0%%001"},
        {"inf", "0%%001"}, {"", "0%%001"},    {"10", "0%%002"}};
    for (const auto& [speed, reply] : all) {
        Controller controller;
        EXPECT_EQ(Ask(controller, "0JR1000" + speed, 0), reply + "\r\n") << '"' << speed << '"';
    }
}

TEST(Motion, InchingGoesToItsTarget) {
    Controller controller;
    Millis now = Home(controller, 0);
    const std::string rest = "143000000143000000142000000";
    EXPECT_EQ(Ask(controller, "0MV143100064" + rest, now), "0MV\r\n");
    now = RunDown(controller, now);
    EXPECT_EQ(Ask(controller, "0RC1", now), "0RC100064\r\n");
    EXPECT_EQ(Ask(controller, "0MV143103A99" + rest, now), "0%%017\r\n") << "past 15000 pulses";
    EXPECT_EQ(Ask(controller, "0CM1", now), "0%%017\r\n") << "it stands until reset";
    Ask(controller, "0AR", now);
    EXPECT_EQ(Ask(controller, "0RC1", now), "0RC100064\r\n");
}

TEST(Motion, WithoutSoftLimitTheStrokeEndHolds) {
    Controller controller;
    std::string block = controller.machine().working.blocks[5];
    block.replace(22, 2, "00");
    controller.setBlock(5, block);
    const Millis now = Home(controller, 0);
    Ask(controller,
        "0MV143103A99"
        "143000000143000000142000000",
        now);
    EXPECT_EQ(controller.position(0, RunDown(controller, now)), 15000);
}

TEST(Motion, BadRowsAreAnAlarm) {
    Controller controller;
    const Millis now = Home(controller, 0);
    controller.setPositionRow(9, std::string(40, 'F'));
    EXPECT_EQ(Ask(controller, "0MP0091", now), "0%%008\r\n");
    EXPECT_EQ(Ask(controller, "0CM1", now), "0%%008\r\n");
}

TEST(Motion, AnAlarmStopsTheAxes) {
    Controller controller;
    const Millis now = Home(controller, 0);
    controller.setPositionRow(7, Row("01388", "0000"));
    Ask(controller, "0MP0071", now);
    controller.raiseAlarm({'0', '0', '6'}, now + 520);
    EXPECT_EQ(Ask(controller, "0RA", now + 600), "0%%006\r\n");
    EXPECT_EQ(controller.position(0, now + 2000), 2500);
}

TEST(Motion, AutoHomeHomesOnTheWay) {
    Controller controller;
    std::string block = controller.machine().working.blocks[0];
    block.replace(2, 2, "01");
    controller.setBlock(0, block);
    EXPECT_EQ(Ask(controller, "0MP0011", 0), "0MP0011\r\n");
    const Millis end = RunDown(controller, 0);
    EXPECT_EQ(controller.machine().homed, 0x1U);
    EXPECT_EQ(Ask(controller, "0RA", end), "0RA1\r\n");
    EXPECT_NE(controller.position(0, end), 0);
}

TEST(Groups, AreAnsweredWhenTheyHaveEnded) {
    Controller controller;
    const Millis now = Home(controller, 0);
    for (int n = 1; n <= 3; ++n) {
        controller.setPositionRow(n, Row(ToHex(1000 * n, 5), "0000"));
    }
    Ask(controller, "0WG01001003", now);
    EXPECT_EQ(Ask(controller, "0MG01", now), "");
    const Millis step = 200 + 40; // 1000 pulses are 20 mm
    EXPECT_TRUE(controller.takeDue(now + 3 * step - 1).empty());
    const auto reply = controller.takeDue(now + 3 * step);
    ASSERT_EQ(reply.size(), 1U);
    EXPECT_EQ(reply[0].bytes, "0MG01\r\n");
    EXPECT_EQ(controller.position(0, now + 3 * step), 3000);

    Ask(controller, "0MG01", now + 5000);
    EXPECT_EQ(Ask(controller, "0SP", now + 5100), "0SP\r\n0MG01\r\n") << "a stop ends it, too";
    Ask(controller, "0MG01", now + 6000);
    controller.raiseAlarm({'1', '1', '1'}, now + 6001);
    EXPECT_EQ(controller.takeDue(now + 6001).at(0).bytes, "0%%111\r\n");
}

TEST(Groups, BackwardsAreRefused) {
    Controller controller;
    const Millis now = Home(controller, 0);
    Ask(controller, "0WG01003001", now);
    EXPECT_EQ(Ask(controller, "0MG01", now), "0%%009\r\n");
}

TEST(Groups, RunFromTheLineWhateverTheGroupInputMayDo) {
    Controller controller;
    std::string block = controller.machine().working.blocks[0];
    block.replace(6, 2, "00"); // GRP ENABLE
    controller.setBlock(0, block);
    const Millis now = Home(controller, 0);
    Ask(controller, "0WG01001001", now);
    EXPECT_EQ(Ask(controller, "0MG01", now, now + 600000), "0MG01\r\n");
}

TEST(Macros, RunAtTheTargetUnlessSkipped) {
    Controller controller;
    const Millis now = Home(controller, 0);
    // Output 2 on, 300 ms, wait for input 1, output 2 off.
    Ask(controller,
        "0WS01"
        "32531142" +
            std::string(24, '0'),
        now);
    controller.setPositionRow(5, Row("00000", "0001"));
    EXPECT_EQ(Ask(controller, "0MM0051", now), "0MM0051\r\n");
    EXPECT_EQ(Ask(controller, "0RA", now), "0RA1\r\n") << "no macro, nothing to move";
    Ask(controller, "0MP0051", now);
    EXPECT_EQ(Ask(controller, "0RO", now), "0RO120050\r\n");
    EXPECT_EQ(controller.nextDue(), now + 300);
    EXPECT_EQ(Ask(controller, "0RA", now + 60000), "0RA0\r\n") << "the input keeps it";
    EXPECT_FALSE(controller.nextDue().has_value());
    controller.setInputs(0x010000, now + 60001);
    EXPECT_EQ(Ask(controller, "0RA", now + 60001), "0RA1\r\n");
    EXPECT_EQ(Ask(controller, "0RO", now + 60001), "0RO300050\r\n");
}

TEST(Macros, GiveUpWaitingWhenThereIsALimit) {
    Controller controller;
    std::string block = controller.machine().working.blocks[0];
    block.replace(8, 4, "0105"); // limit on, 5 times 100 ms
    controller.setBlock(0, block);
    const Millis now = Home(controller, 0);
    Ask(controller,
        "0WS01"
        "11" +
            std::string(30, '0'),
        now);
    controller.setPositionRow(5, Row("00000", "0001"));
    Ask(controller, "0MP0051", now);
    controller.setInputs(0x020000, now + 300); // another input does not prolong the wait
    EXPECT_EQ(Ask(controller, "0RA", now + 499), "0RA0\r\n");
    EXPECT_EQ(Ask(controller, "0RA", now + 500), "0%%00B\r\n");
    Ask(controller, "0AR", now + 500);
    EXPECT_EQ(Ask(controller, "0RA", now + 500), "0RA1\r\n");
}

} // namespace
