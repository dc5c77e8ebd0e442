// The line on a real pseudo-terminal: what comes late, or by itself, in front of a command.

#include "link/exchange.h"
#include "link/line_state.h"
#include "link/link_reset.h"
#include "link/port.h"
#include "link/receiver.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform_qt/far_end.h"
#include "platform_qt/pump.h"

#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>
#include <utility>

namespace qdw8::test {
namespace {

constexpr std::int16_t kLimit = 150;

/// A controller on COM1 that repeats each frame, the next one `late` ms behind its limit.
class PtyTest : public testing::TestWithParam<bool> {
protected:
    PtyTest() {
        InstallQtTimers();
        InstallQtSerial();
        ThePlatform().ShowMessageBox = [this](const BoxQuestion&) {
            ++boxes;
            return BoxAnswer::Ok;
        };
        ThePlatform().settingsFolder = folder.path().toStdString();
        QObject::connect(&notifier, &QSocketNotifier::activated, [this] { hear(); });
        ResetModule3Tusin();
        PortOccupyFlag = FlagOf(GetParam());
    }
    ~PtyTest() override {
        CloseCtPortForce();
        ThePlatform() = Platform{};
    }
    void hear() {
        heard += far.hears();
        if (heard.ends_with("\r\n")) {
            QTimer::singleShot(
                std::exchange(late, 0), &notifier,
                [this, reply = std::exchange(heard, {})] { far.says(reply), ++replies; });
        }
    }
    /// A command of the user: one frame, and the reply that must be its own.
    std::int16_t command() {
        GoOnLine();
        ReplyTimeoutMs = kLimit;
        const std::int16_t result = SendCtCommandOnce("0CM", 6, std::to_string(++commands % 10), 1);
        CloseCtPort();
        return result;
    }
    /// A line that comes by itself, and has come.
    void disturb(const std::string& line) {
        far.says(line);
        if (MSComm1().PortOpen()) {
            EXPECT_TRUE(
                PumpUntil([&] { return ReplyText == line || MSComm1().InBufferCount() > 0; }));
        } else {
            EXPECT_TRUE(FarEnd::hasCome(far.near));
        }
    }

    QTemporaryDir folder;
    FarEnd far{folder.path().toStdString()};
    QSocketNotifier notifier{far.far, QSocketNotifier::Read};
    std::string heard;
    int late = 0;
    int replies = 0;
    int commands = 0;
    int boxes = 0;
};

TEST_P(PtyTest, OneLateReplySpoilsNothingBehindIt) {
    EXPECT_EQ(command(), 0);
    late = kLimit + 50;
    EXPECT_EQ(command(), 1);
    EXPECT_TRUE(PumpUntil([this] { return replies == 2; }));
    EXPECT_EQ(command() + command() + command(), 0);
    EXPECT_EQ(boxes, 1);
}

TEST_P(PtyTest, StrayLinesAndNoiseInFrontOfEachCommandAreNotItsReply) {
    EXPECT_EQ(command(), 0);
    for (const char* line : {"\r\n", "~#?\r\n", "0CM0\r\n", "\r\n"}) {
        disturb(line);
        EXPECT_EQ(command(), 0) << line;
        SetOfflineState(); // deaf, as behind a failure
        disturb(line);
        EXPECT_EQ(command(), 0) << line;
    }
    EXPECT_EQ(boxes, 0);
}

INSTANTIATE_TEST_SUITE_P(PortKept, PtyTest, testing::Bool());

} // namespace
} // namespace qdw8::test
