#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QAbstractEventDispatcher>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <poll.h>
#include <pty.h>
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
        MSComm1().SetCommPort(1);
        MSComm1().OnComm = [this] {
            ++notices;
            openInNotice = MSComm1().PortOpen();
        };
    }
    ~QtSerial() override {
        MSComm1().SetPortOpen(false);
        MSComm1().OnComm = nullptr;
        pullOut();
        ThePlatform().settingsFolder.clear();
    }

    /// A new pseudo-terminal stands behind COM1.
    void plugIn() {
        int slave = -1;
        char name[128] = {};
        ASSERT_EQ(::openpty(&farEnd, &slave, name, nullptr, nullptr), 0);
        ::close(slave);
        const std::string link = ThePlatform().settingsFolder + "/ports/com1";
        fs::remove(link);
        fs::create_symlink(name, link);
    }

    void pullOut() {
        if (farEnd >= 0) {
            ::close(farEnd);
            farEnd = -1;
        }
    }

    void farEndSends(const std::string& text) const {
        ASSERT_EQ(::write(farEnd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    /// What has reached the far end by now, without any turn of the event loop.
    std::string farEndHears() const {
        char bytes[4096];
        pollfd ready{farEnd, POLLIN, 0};
        if (::poll(&ready, 1, 10000) != 1) {
            return {};
        }
        const ssize_t count = ::read(farEnd, bytes, sizeof bytes);
        return {bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }

    QTemporaryDir folder;
    int farEnd = -1;
    QObject watch;
    int notices = 0;
    bool openInNotice = false;
};

TEST_F(QtSerial, AnExchange) {
    SerialControl& port = MSComm1();
    EXPECT_FALSE(port.PortOpen());
    port.SetPortOpen(true);
    port.SetSettings("9600,N,8,1");
    port.SetCDTimeout(3000);
    port.SetHandshaking(0);
    EXPECT_TRUE(port.PortOpen());

    port.Output("0RH\r\n");
    EXPECT_EQ(farEndHears(), "0RH\r\n");
    EXPECT_EQ(notices, 0);

    const std::string reply("0RH\x01\xFF\0\r\n", 8);
    farEndSends(reply);
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 8 && notices > 0; }));
    EXPECT_EQ(port.CommEvent(), 2);
    port.SetInputLen(3);
    EXPECT_EQ(port.Input(), "0RH");
    EXPECT_EQ(port.InBufferCount(), 5);
    port.SetInputLen(0);
    EXPECT_EQ(port.Input(), reply.substr(3));
    EXPECT_EQ(port.Input(), "");
    EXPECT_TRUE(port.PortOpen());
}

TEST_F(QtSerial, SettingsReachTheLineWheneverTheyAreWritten) {
    SerialControl& port = MSComm1();
    const auto lineIs = [&](speed_t speed, bool twoStops) {
        termios line{};
        return ::tcgetattr(farEnd, &line) == 0 && ::cfgetospeed(&line) == speed &&
               ((line.c_cflag & CSTOPB) != 0) == twoStops;
    };
    port.SetPortOpen(true);
    port.SetSettings("9600,N,8,1");
    EXPECT_TRUE(lineIs(B9600, false));
    port.SetSettings("19200,n,8,2");
    EXPECT_TRUE(lineIs(B19200, true));
    port.SetPortOpen(false);
    port.SetSettings("4800,N,8,1");
    port.SetPortOpen(true);
    EXPECT_TRUE(lineIs(B4800, false));

    for (const char* bad : {"", "9600", "9600,N,8", "9600,N,8,1,", "9600,X,8,1", "9600,NN,8,1",
                            "9600,,8,1", "0,N,8,1", "fast,N,8,1", "9600,N,9,1", "9600,N,8,3"}) {
        EXPECT_THROW(port.SetSettings(bad), Fault) << bad;
    }
    EXPECT_THROW(port.SetHandshaking(4), Fault);
    EXPECT_TRUE(lineIs(B4800, false));
    EXPECT_TRUE(port.PortOpen());
}

TEST_F(QtSerial, AClosedPortFaultsAndHoldsNothing) {
    SerialControl& port = MSComm1();
    EXPECT_THROW(port.Output("x"), Fault);
    EXPECT_THROW(port.Input(), Fault);
    EXPECT_EQ(port.InBufferCount(), 0);
    port.SetPortOpen(false);

    port.SetCommPort(2);
    fs::create_symlink("/nowhere", ThePlatform().settingsFolder + "/ports/com2");
    EXPECT_THROW(port.SetPortOpen(true), Fault);
    EXPECT_FALSE(port.PortOpen());
    fs::create_symlink("/dev/null", ThePlatform().settingsFolder + "/ports/com3");
    port.SetCommPort(3); // there is a device, but no line
    EXPECT_THROW(port.SetPortOpen(true), Fault);
    EXPECT_FALSE(port.PortOpen());
    PumpFor(30);
    EXPECT_EQ(notices, 0);

    port.SetCommPort(1);
    port.SetPortOpen(true);
    farEndSends("unread\r\n");
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() > 0; }));
    port.SetPortOpen(false);
    EXPECT_EQ(port.InBufferCount(), 0);
    port.SetPortOpen(true);
    EXPECT_EQ(port.InBufferCount(), 0);
}

TEST_F(QtSerial, APulledCableClosesThePortOnceAndCostsNothingAfterwards) {
    SerialControl& port = MSComm1();
    port.SetPortOpen(true);
    farEndSends("part of a reply");
    EXPECT_TRUE(PumpUntil([&] { return notices == 1; }));

    pullOut();
    EXPECT_TRUE(PumpUntil([&] { return notices == 2; }));
    EXPECT_FALSE(openInNotice);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(port.CommEvent(), 1007);
    EXPECT_EQ(port.InBufferCount(), 0);
    EXPECT_THROW(port.Input(), Fault);
    EXPECT_THROW(port.Output("0RH\r\n"), Fault);

    int turns = 0;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &watch,
                     [&] { ++turns; });
    PumpFor(300);
    EXPECT_LE(turns, 30) << "the lost line keeps the program awake";
    EXPECT_EQ(notices, 2);

    plugIn();
    port.SetPortOpen(true);
    port.Output("again");
    EXPECT_EQ(farEndHears(), "again");
}

TEST_F(QtSerial, ALineFoundDeadWhileSendingIsClosedOnce) {
    SerialControl& port = MSComm1();
    port.SetPortOpen(true);
    pullOut();
    EXPECT_THROW(port.Output("0RH\r\n"), Fault);
    EXPECT_FALSE(port.PortOpen());
    EXPECT_EQ(notices, 0) << "the notice comes out of the pump, not out of Output";
    EXPECT_TRUE(PumpUntil([&] { return notices == 1; }));
    PumpFor(50);
    EXPECT_EQ(notices, 1);
}

TEST_F(QtSerial, ANoticeDoesNotOutliveAPortClosedByTheProgram) {
    SerialControl& port = MSComm1();
    port.SetPortOpen(true);
    pullOut();
    EXPECT_THROW(port.Output("x"), Fault);
    port.SetPortOpen(false);
    plugIn();
    port.SetPortOpen(true);
    PumpFor(50);
    EXPECT_EQ(notices, 0);
    EXPECT_TRUE(port.PortOpen());
}

TEST_F(QtSerial, TheNoticeMayWaitThrowOrCloseThePort) {
    SerialControl& port = MSComm1();
    std::string heard;
    bool waits = true;
    port.OnComm = [&] {
        heard += port.Input();
        if (waits) {
            // As the receiver does when it shows a box: later characters must still be heard.
            waits = false;
            farEndSends("two ");
            EXPECT_TRUE(PumpUntil([&] { return heard == "one two "; }));
        }
    };
    port.SetPortOpen(true);
    farEndSends("one ");
    EXPECT_TRUE(PumpUntil([&] { return heard == "one two "; }));

    port.OnComm = [&] {
        ++notices;
        heard += port.Input();
        throw Fault("a mistake in the receiver");
    };
    farEndSends("three");
    EXPECT_NO_THROW(EXPECT_TRUE(PumpUntil([&] { return heard == "one two three"; })));

    port.OnComm = [&] { port.SetPortOpen(false); };
    farEndSends("four");
    EXPECT_TRUE(PumpUntil([&] { return !port.PortOpen(); }));
}

} // namespace
} // namespace qdw8
