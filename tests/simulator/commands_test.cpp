// Every command of the catalogue against the exact text of its frame.

#include "ask.h"

#include <gtest/gtest.h>

using namespace qdk8;

namespace {

std::string Repeat(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

const std::string kRow = "1E30030D4" + Repeat("1E3000000", 3) + "1214";
const std::string kMacro = "1133" + Repeat("0", 28);

struct Exchange {
    const char* what;
    std::string request;
    std::string reply;
};

TEST(Commands, AreAnsweredWithTheirFrames) {
    const std::string block0 = "00000101"
                               "00320F00"
                               "00"
                               "40414243444546";
    const std::vector<Exchange> all{
        {"status", "0CM1", "0CM1"},
        {"recovery", "0CM0", "0CM0"},
        {"mode 2", "0CM02", "0CM02"},
        {"reset without alarm", "0AR", "0AR"},
        {"not homed", "0RH", "0RH0"},
        {"at rest", "0RA", "0RA1"},
        {"identity", "0RV", "0RV140A40"},
        {"axis board", "0RV3", "0RV3121K8R"},
        {"positions", "0RC5", "0RC50000000000"},
        {"positions of no axis", "0RC0", "0RC0"},
        {"block", "0RD0", "0RD0" + block0},
        {"61H", "0RD6",
         "0RD6"
         "01080190"
         "00003A98"
         "3D48012C"
         "494A4B4C"},
        {"44L", "0RD8",
         "0RD8"
         "01020190"
         "00004E20"
         "2C4C0064"
         "4F505152"},
        {"J52 is held as 52 and E", "0RDA",
         "0RDA"
         "01020190"
         "00004E20"
         "34450064"
         "55565758"},
        {"61F", "0RDC",
         "0RDC"
         "010800C0"
         "020012C0"
         "3D4600C8"
         "5B5C5D5E"},
        {"write block", "0WD0" + block0, "0WD0"},
        {"write row", "0WP3E7" + kRow, "0WP3E7"},
        {"row as written", "0RP3E7", "0RP3E7" + kRow},
        {"write group", "0WG630010FF", "0WG63"},
        {"group as written", "0RG63", "0RG630010FF"},
        {"write macro", "0WS14" + kMacro, "0WS14"},
        {"macro as written", "0RS14", "0RS14" + kMacro},
        {"inputs", "0RI", "0RI000000"},
        {"force outputs", "0WO0A5F03", "0WO0A5F03"},
        {"outputs", "0RO", "0RO0A5F03"},
        {"stop at rest", "0SP", "0SP"},
    };
    Controller controller;
    Millis now = 0;
    for (const Exchange& e : all) {
        EXPECT_EQ(Ask(controller, e.request, ++now), e.reply + "\r\n") << e.what;
    }
    EXPECT_EQ(controller.machine().mode, 2);
}

TEST(Commands, HaveTheLengthsOfTheLine) {
    Controller controller;
    const std::vector<std::pair<std::string, std::size_t>> lengths{
        {"0RP001", 48}, {"0RG01", 13}, {"0RS01", 39}, {"0RD4", 38}, {"0RV", 11},
        {"0RV1", 12},   {"0RI", 11},   {"0RO", 11},   {"0RH", 6},   {"0RCF", 26}};
    for (const auto& [request, length] : lengths) {
        EXPECT_EQ(Ask(controller, request, 0).size(), length) << request;
    }
}

TEST(Commands, AreRefusedWhenWrong) {
    const std::vector<Exchange> all{
        {"nothing", "", "0%%001"},
        {"unknown word", "0XX", "0%%001"},
        {"lower case digit", "0RP00a", "0%%001"},
        {"data missing", "0RP01", "0%%001"},
        {"too much data", "0RH0", "0%%001"},
        {"row one digit short", "0WP001" + kRow.substr(1), "0%%001"},
        {"position 0", "0RP000", "0%%002"},
        {"position 1000", "0RP3E8", "0%%002"},
        {"group 100", "0RG64", "0%%002"},
        {"macro 21", "0RS15", "0%%002"},
        {"block 13", "0RDD", "0%%002"},
        {"speed 61", "0WP0013D30030D4" + Repeat("1E3000000", 3) + "0000", "0%%002"},
        {"interpolation 2", "0WP001" + Repeat("1E3000000", 4) + "2000", "0%%002"},
        {"group to 1000", "0WG010013E8", "0%%002"},
        {"macro command 7", "0WS0171" + Repeat("0", 30), "0%%002"},
        {"input 5", "0WS0115" + Repeat("0", 30), "0%%002"},
        {"axis mask 1F in block 0",
         "0WD000000000"
         "00001F" +
             Repeat("0", 18),
         "0%%002"},
        {"mode 3", "0CM03", "0%%002"},
        {"what to commit", "0WE4", "0%%002"},
        {"move without homing", "0MP0014", "0%%033"},
    };
    Controller controller;
    for (const Exchange& e : all) {
        EXPECT_EQ(Ask(controller, e.request, 0), e.reply + "\r\n") << e.what;
    }
    EXPECT_EQ(Ask(controller, "0CM1", 0), "0CM1\r\n") << "a refusal is no alarm";

    controller.setAxisMask(0x3);
    EXPECT_EQ(Ask(controller, "0RC7", 0), "0%%034\r\n");
    EXPECT_EQ(Ask(controller, "0RV3", 0), "0%%034\r\n");
    EXPECT_EQ(Ask(controller, "0MM0008", 0), "0%%044\r\n");
}

TEST(Commands, ComeInAnyPieces) {
    Controller controller;
    controller.receive("0R", 0);
    controller.receive("H\r", 5);
    EXPECT_TRUE(controller.takeDue(5).empty());
    controller.receive("\n0RA\r\n0R", 7);
    std::string replies;
    for (const Outgoing& out : controller.takeDue(7)) {
        replies += out.bytes;
    }
    EXPECT_EQ(replies, "0RH0\r\n0RA1\r\n");
    controller.receive(std::string(300, 'x'), 8);
    EXPECT_EQ(Ask(controller, "0RA", 9), "0RA1\r\n") << "an endless line is dropped";
}

TEST(Commands, AreCounted) {
    Controller controller;
    Ask(controller, "0RP001", 3);
    Ask(controller, "0RP002", 4);
    Ask(controller, "0CM1", 5);
    EXPECT_EQ(controller.count("0RP"), 2);
    EXPECT_EQ(controller.count("0CM"), 1);
    EXPECT_EQ(controller.count("0WP"), 0);
    ASSERT_EQ(controller.frames().size(), 3U);
    EXPECT_EQ(controller.frames()[1].frame, "0RP002");
    EXPECT_EQ(controller.frames()[1].at, 4);
}

TEST(Power, TakesWhatWasNotCommitted) {
    Controller controller;
    const std::string before = Ask(controller, "0RG01", 0);
    const std::string macroBefore = Ask(controller, "0RS02", 0);
    Ask(controller, "0WG01002003", 0);
    Ask(controller, "0WS02" + kMacro, 0);
    Ask(controller, "0WP005" + kRow, 0);
    Ask(controller, "0CM01", 0);
    EXPECT_EQ(Ask(controller, "0WE1", 0), "");
    EXPECT_EQ(controller.nextDue(), 100);
    EXPECT_EQ(controller.takeDue(100).at(0).bytes, "0WE1\r\n");

    controller.powerOff(200);
    EXPECT_EQ(Ask(controller, "0RA", 200, 5000), "");
    controller.powerOn(6000);
    EXPECT_EQ(Ask(controller, "0RG01", 6000), before) << "groups need their own commit";
    EXPECT_NE(Ask(controller, "0RS02", 6000), macroBefore);
    EXPECT_EQ(Ask(controller, "0RP005", 6000), "0RP005" + kRow + "\r\n") << "rows last at once";
    EXPECT_EQ(controller.machine().mode, 0);
}

TEST(Power, BlocksLastAfterTheirCommit) {
    Controller controller;
    const std::string one = Ask(controller, "0RD0", 0).substr(3, 33);
    std::string two = one;
    two.replace(13, 2, "03");
    Ask(controller, "0WD" + two, 0);
    EXPECT_EQ(Ask(controller, "0RV3", 0), "0%%034\r\n") << "the new mask counts at once";
    controller.powerOff(1);
    controller.powerOn(2);
    EXPECT_EQ(Ask(controller, "0RD0", 3), "0RD" + one + "\r\n");
    Ask(controller, "0WD" + two, 4);
    Ask(controller, "0WE2", 4);
    controller.powerOff(5);
    controller.powerOn(6);
    EXPECT_EQ(Ask(controller, "0RD0", 7), "0RD" + two + "\r\n");
}

TEST(Power, ACommitThatCannotBeKeptIsAnAlarm) {
    Controller controller;
    bool kept = false;
    controller.setKeeper([&] { return kept; });
    const std::string before = Ask(controller, "0RG01", 0);
    Ask(controller, "0WG01002003", 0);
    EXPECT_EQ(Ask(controller, "0WE3", 0), "0%%10E\r\n");
    EXPECT_EQ(Ask(controller, "0CM1", 0), "0%%10E\r\n");
    controller.powerOff(1);
    controller.powerOn(2);
    EXPECT_EQ(Ask(controller, "0RG01", 2), before);
    kept = true;
    Ask(controller, "0WG01002003", 3);
    EXPECT_EQ(Ask(controller, "0WE3", 3, 1000), "0WE3\r\n");
}

TEST(Alarms, StandUntilTheyAreReset) {
    Controller controller;
    controller.raiseAlarm({'0', '0', '6'}, 0);
    for (const char* held : {"0CM1", "0CM0", "0RA", "0MM000F", "0MG01", "0JR10000"}) {
        EXPECT_EQ(Ask(controller, held, 1), "0%%006\r\n") << held;
    }
    EXPECT_EQ(Ask(controller, "0CM02", 1), "0CM02\r\n");
    EXPECT_EQ(Ask(controller, "0RP001", 1).substr(0, 6), "0RP001");
    EXPECT_EQ(Ask(controller, "0RO", 1), "0RO500000\r\n") << "ALM on, RDY off";
    EXPECT_EQ(Ask(controller, "0AR", 2), "0AR\r\n");
    EXPECT_EQ(Ask(controller, "0CM1", 3), "0CM1\r\n");
    EXPECT_EQ(Ask(controller, "0RO", 3), "0RO300000\r\n");
}

TEST(Alarms, OfTheOtherClassNeedAPowerCycle) {
    Controller controller;
    controller.raiseAlarm(*ParseAlarm("11"), 0);
    EXPECT_EQ(Ask(controller, "0AR", 1), "0%%101\r\n");
    controller.raiseAlarm(*ParseAlarm("06"), 2);
    EXPECT_EQ(Ask(controller, "0CM1", 2), "0%%101\r\n") << "the graver one stays";
    controller.powerOff(3);
    controller.powerOn(4);
    EXPECT_EQ(Ask(controller, "0CM1", 5), "0CM1\r\n");
}

TEST(Alarms, GoOutByThemselvesAndTellOfThemselves) {
    Controller controller;
    controller.raiseAlarm(*ParseAlarm("06"), 1000, 700, true);
    EXPECT_EQ(controller.takeDue(1000).at(0).bytes, "0%%006\r\n");
    EXPECT_EQ(Ask(controller, "0CM1", 1699), "0%%006\r\n");
    EXPECT_EQ(controller.nextDue(), 1700);
    EXPECT_EQ(Ask(controller, "0CM1", 1700), "0CM1\r\n");
}

TEST(Identity, IsWhatItIsSetTo) {
    Controller controller;
    controller.setAxisCount(2);
    controller.setBoard(2, "199ABC");
    EXPECT_EQ(Ask(controller, "0RV", 0), "0RV140A20\r\n");
    EXPECT_EQ(Ask(controller, "0RV2", 0), "0RV2199ABC\r\n");
    EXPECT_EQ(Ask(controller, "0RV3", 0), "0%%034\r\n") << "there is no third axis";
    const std::string block = Ask(controller, "0RD0", 0);
    EXPECT_EQ(block.substr(16, 2), "03") << "nor is it in use";
    EXPECT_EQ(Ask(controller, "0WD" + block.substr(3, 13) + "07" + block.substr(18, 18), 0),
              "0%%002\r\n");
    controller.setAxisMask(0xE);
    EXPECT_EQ(Ask(controller, "0RD0", 0).substr(16, 2), "02");
    controller.setIdentity("Z01?X!");
    EXPECT_EQ(Ask(controller, "0RV", 0), "0RVZ01?X!\r\n");
}

} // namespace
