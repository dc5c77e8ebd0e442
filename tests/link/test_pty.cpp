// The line on a real pseudo-terminal: what comes late, or by itself, in front of a command.

#include "link/exchange.h"
#include "link/line_state.h"
#include "link/link_reset.h"
#include "link/port.h"
#include "link/receiver.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform_qt/verbs.h"

#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QTimer>

#include <filesystem>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

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
        char name[128] = {};
        termios silent{}; // a closed port echoes nothing
        ::cfmakeraw(&silent);
        EXPECT_EQ(::openpty(&farEnd, &nearEnd, name, &silent, nullptr), 0);
        std::filesystem::create_directory(ThePlatform().settingsFolder + "/ports");
        std::filesystem::create_symlink(name, ThePlatform().settingsFolder + "/ports/com1");
        notifier = std::make_unique<QSocketNotifier>(farEnd, QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, [this] { hear(); });
        ResetModule3Tusin();
        PortOccupyFlag = FlagOf(GetParam());
    }
    ~PtyTest() override {
        CloseCtPortForce();
        notifier.reset();
        ::close(nearEnd);
        ::close(farEnd);
        ThePlatform() = Platform{};
    }
    void says(const std::string& text) {
        ASSERT_EQ(::write(farEnd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void hear() {
        char bytes[64];
        heard.append(bytes, static_cast<std::size_t>(::read(farEnd, bytes, sizeof bytes)));
        if (heard.ends_with("\r\n")) {
            QTimer::singleShot(
                std::exchange(late, 0), notifier.get(),
                [this, reply = std::exchange(heard, {})] { says(reply), ++replies; });
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
        says(line);
        if (MSComm1().PortOpen()) {
            EXPECT_TRUE(
                PumpUntil([&] { return ReplyText == line || MSComm1().InBufferCount() > 0; }));
        } else {
            pollfd come{nearEnd, POLLIN, 0};
            EXPECT_EQ(::poll(&come, 1, 10'000), 1);
        }
    }

    QTemporaryDir folder;
    std::unique_ptr<QSocketNotifier> notifier;
    std::string heard;
    int farEnd = -1;
    int nearEnd = -1; ///< keeps the far end alive while the port is closed
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
