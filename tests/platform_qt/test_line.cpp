// The line, the settings and the clipboard, told in line.txt.

#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "pump.h"
#include "support/story.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <filesystem>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace qdw8::test {
namespace {

class LinePlayer {
public:
    LinePlayer() {
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
        InstallQtDesktop();
        InstallQtSettings();
        InstallQtSerial();
        std::filesystem::create_directories(ports);
        plug("");
        port.SetCommPort(1);
        port.OnComm = [this] { ++notices; };
        port.SetPortOpen(true);
    }
    ~LinePlayer() {
        port.SetPortOpen(false);
        port.OnComm = nullptr;
        ::close(farEnd);
    }
    void tell(const std::string& line) const { PlayVerb(verbs, line); }
    void farSays(const std::string& text) const {
        ASSERT_EQ(::write(farEnd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    QTemporaryDir home;
    int farEnd = -1;
    std::filesystem::path ports = home.filePath("QD-W8/ports").toStdString();
    SerialControl& port = MSComm1();
    int notices = 0;

private:
    /// A new line, or COM1 is that device.
    void plug(const std::string& device) {
        char name[128] = {};
        int nearEnd = -1;
        if (device.empty()) {
            ASSERT_EQ(::openpty(&farEnd, &nearEnd, name, nullptr, nullptr), 0);
        }
        std::filesystem::remove(ports / "com1");
        std::filesystem::create_symlink(device + name, ports / "com1");
        ::close(nearEnd);
    }
    std::string hears() const {
        char bytes[64] = {};
        pollfd come{farEnd, POLLIN, 0};
        return ::poll(&come, 1, 10'000) == 1 && ::read(farEnd, bytes, 63) > 0 ? bytes : "";
    }
    void slowly(const std::string& text) {
        for (const char one : text) {
            QTest::qWait(1);
            EXPECT_EQ(notices, 0);
            farSays({one});
        }
    }
    std::string farLine() const {
        termios line{};
        ::tcgetattr(farEnd, &line);
        const std::map<speed_t, const char*> bauds{{B19200, "19200"}, {B4800, "4800"}};
        return bauds.at(::cfgetospeed(&line)) +
               std::string((line.c_lflag & ICANON) == 0 ? " raw" : "") +
               ((line.c_cflag & CSTOPB) != 0 ? " 2" : " 1");
    }
    static void quiet() {
        int turns = 0;
        QObject watch;
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         &watch, [&] { ++turns; });
        QTest::qWait(200);
        EXPECT_LE(turns, 200) << "a lost line keeps the program awake";
    }
    std::string take(const std::string& count) const {
        port.SetInputLen(std::stoi(count));
        const std::string text = port.Input();
        return text.size() > 1000 ? text.substr(text.size() - 4) : text;
    }
    static std::string get(const std::string& key) {
        return ThePlatform().Settings.GetSetting("Settings", key, "-");
    }
    static void save(const std::string& text) {
        const std::size_t blank = text.find(' ');
        ThePlatform().Settings.SaveSetting("Settings", text.substr(0, blank),
                                           text.substr(blank + 1));
    }
    static void keeps(const std::string& text) {
        save("Key " + text);
        InstallQtSettings();
        EXPECT_EQ(get("Key"), text);
    }
    QByteArray file() const {
        QFile store(ini);
        return store.open(QIODevice::ReadOnly) ? store.readAll() : QByteArray();
    }
    void setStore(const std::string& text) const {
        QFile store(ini);
        EXPECT_TRUE(store.open(QIODevice::WriteOnly) && store.write(Times(text)) > 0);
    }
    /// "3 ab" is "ababab".
    static QByteArray Times(const std::string& text) {
        return QByteArray::fromStdString(text.substr(text.find(' ') + 1)).repeated(std::stoi(text));
    }
    static std::string paste() {
        const std::string text = ThePlatform().TheClipboard.GetText();
        EXPECT_LE(text.size(), 1U << 20U);
        return text.size() > 1000 ? text.substr(text.size() - 7) : text;
    }

    QString ini = home.filePath("QD-W8/settings.ini");
    const Verbs verbs{
        {"far", Does([this](auto& text) { farSays(text); })},
        {"slowly", Does([this](auto& text) { slowly(text); })},
        {"flow", Does([this](auto& text) {
             for (int i = std::stoi(text); i > 0; --i) {
                 farSays(std::string(99, 'x') + text.back());
                 QTest::qWait(1);
             }
         })},
        {"comes",
         Does([this](auto&) { EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() > 0; })); })},
        {"hears", [this](auto&) { return hears(); }},
        {"pull", Does([this](auto&) { ::close(farEnd); })},
        {"plug", Does([this](auto& device) { plug(device); })},
        {"open", Does([this](auto&) { port.SetPortOpen(true); })},
        {"close", Does([this](auto&) { port.SetPortOpen(false); })},
        {"out", Does([this](auto& text) { port.Output(text); })},
        {"take", [this](auto& count) { return take(count); }},
        {"count", [this](auto&) { return std::to_string(port.InBufferCount()); }},
        {"drop", Does([this](auto&) { port.DropInput(); })},
        {"settings", Does([this](auto& text) { port.SetSettings(text); })},
        {"handshaking", Does([this](auto& kind) { port.SetHandshaking(std::stoi(kind)); })},
        {"event", [this](auto&) { return std::to_string(port.CommEvent()); }},
        {"line", [this](auto&) { return farLine(); }},
        {"notices", Does([this](auto& count) {
             EXPECT_TRUE(PumpUntil([&] { return notices == std::stoi(count); }));
             EXPECT_EQ(port.PortOpen(), port.CommEvent() == 2);
         })},
        {"told", [this](auto&) { return std::to_string(notices); }},
        {"quiet", Does([](auto&) { quiet(); })},
        {"get", get},
        {"save", Does(save)},
        {"keeps", Does(keeps)},
        {"restart", Does([](auto&) { InstallQtSettings(); })},
        {"file", [this](auto&) { return file().toStdString(); }},
        {"store", Does([this](auto& text) { setStore(text); })},
        {"pipe", Does([this](auto&) {
             EXPECT_TRUE(QFile::remove(ini) && ::mkfifo(ini.toUtf8().constData(), 0600) == 0);
         })},
        {"folder", Does([this](auto&) { EXPECT_TRUE(QFile::remove(ini) && QDir().mkpath(ini)); })},
        {"aside", [this](auto&) { return std::to_string(QFile(ini + ".aside").size()); }},
        {"copy",
         Does([](auto& text) { ThePlatform().TheClipboard.SetText(Times(text).toStdString()); })},
        {"paste", [](auto&) { return paste(); }}};
};

TEST(QtLine, ComesOutAsTold) {
    TellStories<LinePlayer>(QDW8_SOURCE_DIR "/tests/platform_qt/line.txt", 11);
}

TEST(QtLine, TheNoticeMayWaitThrowOrCloseThePort) {
    LinePlayer line;
    std::string heard;
    line.port.OnComm = [&] {
        heard += line.port.Input();
        if (heard == "one\n") {
            // As the receiver does when it shows a box: later characters must still be heard.
            line.farSays("two\n");
            EXPECT_TRUE(PumpUntil([&] { return heard == "one\ntwo\n"; }));
            throw Fault("a mistake in the receiver");
        }
        line.port.SetPortOpen(!heard.ends_with("three\n"));
    };
    line.farSays("one\n");
    EXPECT_NO_THROW(EXPECT_TRUE(PumpUntil([&] { return heard == "one\ntwo\n"; })));
    line.farSays("three\n");
    EXPECT_TRUE(PumpUntil([&] { return !line.port.PortOpen(); }));
}

} // namespace
} // namespace qdw8::test
