// The port, going on and off line, and waits.

#include "link/Module3Tusin.h"
#include "link/link_fixture.h"
#include "platform/fault.h"

namespace qdw8::test {
namespace {

using PortTest = LinkTest;

TEST_F(PortTest, LineSettingsAreWrittenBehindTheOpen) {
    // Each step of the control notes itself; settings before the open would be lost.
    SerialControl& port = MSComm1();
    port.SetCDTimeout = [this](int ms) { platform.events.push_back("CD " + std::to_string(ms)); };
    port.SetHandshaking = [this](int kind) {
        platform.events.push_back("handshaking " + std::to_string(kind));
    };
    PortNo = 9;
    EXPECT_EQ(OpenCtPort(), 0);
    EXPECT_EQ(newEvents(), (std::vector<std::string>{"open 9", "settings 9600,N,8,1", "CD 3000",
                                                     "handshaking 0"}));
    EXPECT_EQ(OpenCtPort(), 0);
    EXPECT_EQ(newEvents(), std::vector<std::string>{}) << "an open port is left as it is";
}

TEST_F(PortTest, PortNumberOutOfRangeIsReplacedByTheStoredOne) {
    struct Row {
        std::int16_t number;
        std::string stored;
        std::int16_t used;
    };
    // A stored number is used as it is; the open of such a port fails.
    for (const Row& row :
         {Row{0, "3", 3}, Row{10, "9", 9}, Row{-1, "", 1}, Row{10, "12", 12}, Row{5, "3", 5}}) {
        PortNo = row.number;
        platform.settings.clear();
        if (!row.stored.empty()) {
            platform.settings["PortNo"] = row.stored;
        }
        EXPECT_EQ(OpenCtPort(), row.used <= 9 ? 0 : 1);
        EXPECT_EQ(PortNo, row.used);
        EXPECT_EQ(platform.portOpen, row.used <= 9);
        EXPECT_TRUE(row.used > 9 || platform.openedPort == row.used);
        CloseCtPortForce();
    }
}

TEST_F(PortTest, FailedOpenGivesOneAndNothingMore) {
    platform.failingOpens = 1;
    EXPECT_EQ(OpenCtPort(), 1);
    EXPECT_EQ(newEvents(), std::vector<std::string>{"open fails"});
    EXPECT_EQ(state(), "OnLine");
}

TEST_F(PortTest, FaultBehindTheOpenCountsAsFailed) {
    MSComm1().SetHandshaking = [](int) { throw Fault("refused"); };
    EXPECT_EQ(OpenCtPort(), 1);
}

TEST_F(PortTest, OpenForABatchTriesSixTimes) {
    platform.failingOpens = 5;
    EXPECT_EQ(OpenCtPortForBatch(), 0);
    EXPECT_EQ(platform.now, 500);
    CloseCtPortForce();

    platform.failingOpens = 6;
    platform.expectBox(box::kPort);
    EXPECT_EQ(OpenCtPortForBatch(), 1);
    EXPECT_EQ(platform.now, 1000);
    EXPECT_EQ(platform.failingOpens, 0);
    EXPECT_EQ(state(), "OffLine");
}

TEST_F(PortTest, OccupiedPortIsClosedByForceOnly) {
    PortOccupyFlag = kSet;
    OpenCtPort();
    CloseCtPort();
    EXPECT_EQ(state(), "OnLine PortOpen");
    CloseCtPortForce();
    EXPECT_EQ(state(), "OnLine");

    PortOccupyFlag = 1; // only -1 counts as set
    OpenCtPort();
    CloseCtPort();
    EXPECT_EQ(state(), "OnLine");
    newEvents();
    CloseCtPort();
    CloseCtPortForce();
    EXPECT_EQ(newEvents(), std::vector<std::string>{}) << "a closed port is left alone";
}

TEST_F(PortTest, GoingOnLineForgetsTheFailureButLightsNothing) {
    SetOfflineState();
    CommErrorFlag = kSet;
    newEvents();
    GoOnLine();
    EXPECT_EQ(state(), "OnLine");
    EXPECT_EQ(newEvents(), std::vector<std::string>{}) << "the lamp waits for a good reply";
    SetOnlineState();
    EXPECT_EQ(newEvents(), std::vector<std::string>{"online lamp on"});
    SetOfflineState();
    EXPECT_EQ(state(), "OffLine");
    EXPECT_EQ(newEvents(), std::vector<std::string>{"online lamp off"});
}

TEST_F(PortTest, WaitsMayNest) {
    // The inner wait begins while the outer one runs; each takes its own time.
    std::int64_t innerEnd = 0;
    platform.after(30, [&] {
        MsecTimer(40);
        innerEnd = platform.now;
    });
    MsecTimer(100);
    EXPECT_EQ(innerEnd, 70);
    EXPECT_EQ(platform.now, 100);

    // The outer time is over while the inner wait still runs: it can only return behind it.
    platform.after(10, [] { MsecTimer(500); });
    MsecTimer(100);
    EXPECT_EQ(platform.now, 610);
}

} // namespace
} // namespace qdw8::test
