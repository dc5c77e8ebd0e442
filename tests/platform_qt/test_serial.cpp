#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QAbstractEventDispatcher>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

/// COM1 is a pseudo-terminal, whose other end the test holds.
class QtSerial : public ::testing::Test {
protected:
    QtSerial() {
        InstallQtSerial();
        ThePlatform().settingsFolder = folder.path().toStdString();
        fs::create_directory(ThePlatform().settingsFolder + "/ports");
        plugIn();
        port.SetCommPort(1);
        port.OnComm = [this] {
            ++notices;
            openInNotice = port.PortOpen();
        };
        port.SetPortOpen(true);
    }
    ~QtSerial() override {
        port.SetPortOpen(false);
        port.OnComm = nullptr;
        pullOut();
        ThePlatform().settingsFolder.clear();
    }

    void linkPort(const std::string& device) const {
        const std::string link = ThePlatform().settingsFolder + "/ports/com1";
        fs::remove(link);
        fs::create_symlink(device, link);
    }
    /// A new pseudo-terminal stands behind COM1.
    void plugIn() {
        farEnd = ::posix_openpt(O_RDWR | O_NOCTTY);
        ASSERT_EQ(::grantpt(farEnd) + ::unlockpt(farEnd), 0);
        linkPort(::ptsname(farEnd));
    }
    void pullOut() { ::close(farEnd); }
    void farEndSends(const std::string& text) const {
        ASSERT_EQ(::write(farEnd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    /// What has reached the far end by now, without any turn of the event loop.
    std::string farEndHears() const {
        char bytes[64] = {};
        pollfd ready{farEnd, POLLIN, 0};
        return ::poll(&ready, 1, 10000) == 1 && ::read(farEnd, bytes, 63) > 0 ? bytes : "";
    }

    QTemporaryDir folder;
    SerialControl& port = MSComm1();
    int farEnd = -1;
    int notices = 0;
    bool openInNotice = false;
};

TEST_F(QtSerial, ALineComesWholeWithOneNoticeHoweverItsCharactersCome) {
    port.Output("0RH\r\n");
    EXPECT_EQ(farEndHears(), "0RH\r\n");
    const std::string reply("0RH\x01\x03\x04\x11\x15\x16\x7F\xFF\0\r\n", 14);
    for (const char one : reply) {
        PumpFor(1);
        EXPECT_EQ(notices, 0);
        farEndSends(std::string(1, one));
    }
    EXPECT_TRUE(PumpUntil([&] { return notices == 1; }));
    EXPECT_EQ(port.CommEvent(), 2);
    EXPECT_EQ(port.InBufferCount(), 14);
    port.SetInputLen(3);
    EXPECT_EQ(port.Input(), "0RH");
    port.SetInputLen(0);
    EXPECT_EQ(port.Input(), reply.substr(3));
}

TEST_F(QtSerial, ALongLineEndsAllTheSameAndHalfALineCanBeDropped) {
    for (int i = 0; i < 60; ++i) { // longer than the system keeps
        farEndSends(std::string(100, 'x'));
        PumpFor(1);
    }
    farEndSends("\r\n");
    EXPECT_TRUE(PumpUntil([&] { return notices == 1; }));
    EXPECT_TRUE(port.Input().ends_with("x\r\n"));
    farEndSends("whole\nhalf");
    EXPECT_TRUE(PumpUntil([&] { return notices == 2; }));
    port.DropInput();
    EXPECT_EQ(port.InBufferCount(), 0);
    farEndSends("good\r\n");
    EXPECT_TRUE(PumpUntil([&] { return notices == 3; }));
    EXPECT_EQ(port.Input(), "good\r\n");
}

TEST_F(QtSerial, SettingsReachTheLineWheneverTheyAreWritten) {
    const auto lineIs = [&](speed_t speed, bool twoStops) {
        termios line{};
        return ::tcgetattr(farEnd, &line) == 0 && ::cfgetospeed(&line) == speed &&
               ((line.c_cflag & CSTOPB) != 0) == twoStops && (line.c_lflag & ICANON) != 0;
    };
    port.SetSettings("19200,n,8,2");
    EXPECT_TRUE(lineIs(B19200, true));
    port.SetPortOpen(false);
    port.SetSettings("4800,N,8,1");
    port.SetPortOpen(true);
    port.SetHandshaking(0);
    for (const char* bad : {"", "9600,N,8", "9600,N,8,1,", "9600,X,8,1", "9600,NN,8,1", "9600,,8,1",
                            "0,N,8,1", "fast,N,8,1", "9600,N,9,1", "9600,N,8,3"}) {
        EXPECT_THROW(port.SetSettings(bad), Fault) << bad;
    }
    EXPECT_THROW(port.SetHandshaking(4), Fault);
    EXPECT_TRUE(lineIs(B4800, false));
}

TEST_F(QtSerial, AClosedPortFaultsAndHoldsNothing) {
    farEndSends("unread\r\n");
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() > 0; }));
    port.SetPortOpen(false);
    EXPECT_EQ(port.InBufferCount(), 0);
    EXPECT_THROW(port.Output("x"), Fault);
    EXPECT_THROW(port.Input(), Fault);
    port.SetPortOpen(true);
    EXPECT_EQ(port.InBufferCount(), 0);
    port.SetPortOpen(false);
    for (const char* device : {"/nowhere", "/dev/null"}) {
        linkPort(device);
        EXPECT_THROW(port.SetPortOpen(true), Fault);
        EXPECT_FALSE(port.PortOpen());
    }
    PumpFor(30);
    EXPECT_EQ(notices, 0);
}

TEST_F(QtSerial, APulledCableClosesThePortOnceAndCostsNothingAfterwards) {
    for (const bool sending : {false, true}) {
        notices = 0;
        farEndSends("part of a reply");
        pullOut();
        if (sending) {
            EXPECT_THROW(port.Output("0RH\r\n"), Fault);
            EXPECT_EQ(notices, 0) << "the notice comes out of the pump, not out of Output";
        }
        EXPECT_TRUE(PumpUntil([&] { return notices == 1; }));
        EXPECT_FALSE(openInNotice);
        EXPECT_EQ(port.CommEvent(), 1007);
        int turns = 0;
        QObject watch;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         &watch, [&] { ++turns; });
        PumpFor(200);
        EXPECT_LE(turns, 30) << "the lost line keeps the program awake";
        EXPECT_EQ(notices, 1);
        plugIn();
        port.SetPortOpen(true);
        port.Output("again");
        EXPECT_EQ(farEndHears(), "again");
    }
    pullOut();
    EXPECT_THROW(port.Output("0RH\r\n"), Fault);
    plugIn();
    port.SetPortOpen(true);
    PumpFor(50);
    EXPECT_EQ(notices, 1) << "of a port that was opened anew nothing old is told";
}

TEST_F(QtSerial, TheNoticeMayWaitThrowOrCloseThePort) {
    std::string heard;
    port.OnComm = [&] {
        heard += port.Input();
        if (heard == "one\n") {
            // As the receiver does when it shows a box: later characters must still be heard.
            farEndSends("two\n");
            EXPECT_TRUE(PumpUntil([&] { return heard == "one\ntwo\n"; }));
            throw Fault("a mistake in the receiver");
        }
        if (heard.ends_with("three\n")) {
            port.SetPortOpen(false);
        }
    };
    farEndSends("one\n");
    EXPECT_NO_THROW(EXPECT_TRUE(PumpUntil([&] { return heard == "one\ntwo\n"; })));
    farEndSends("three\n");
    EXPECT_TRUE(PumpUntil([&] { return !port.PortOpen(); }));
}

} // namespace
} // namespace qdw8
