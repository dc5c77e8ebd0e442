#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace qdw8 {
namespace {

class QtSettings : public ::testing::Test {
protected:
    QtSettings() {
        qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
        InstallQtSettings();
    }
    ~QtSettings() override {
        before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
    }

    static std::string get(const std::string& key, const std::string& fallback = "-") {
        return ThePlatform().Settings.GetSetting("Settings", key, fallback);
    }
    static void save(const std::string& key, const std::string& value) {
        ThePlatform().Settings.SaveSetting("Settings", key, value);
    }
    /// A start with this file there.
    void startWith(const QByteArray& text) const {
        QFile file(ini);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        InstallQtSettings();
    }

    QByteArray before = qgetenv("XDG_CONFIG_HOME");
    QTemporaryDir folder;
    QString ini = folder.filePath("QD-W8/settings.ini");
};

TEST_F(QtSettings, EveryTextSurvivesTheNextStartInAFileThatAPersonCanRead) {
    EXPECT_EQ(ThePlatform().settingsFolder, folder.filePath("QD-W8").toStdString());
    EXPECT_EQ(get("DevSize1", " 44"), " 44");
    save("PortNo", "2");
    save("PortNo", "3");
    QFile file(ini);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "[Settings]\nPortNo=3\n") << "it has to be there at once";
    const char* texts[] = {"",     " 44",  "44 ",      "a,b;c=d", "\"x\"",
                           "@Day", "100%", "C:\\a\\b", "位置",    "a\r\nb[Settings]"};
    for (const char* text : texts) {
        save("Key", text);
        InstallQtSettings();
        EXPECT_EQ(get("Key"), text);
    }
}

TEST_F(QtSettings, ABrokenFileNeverFailsAndIsMended) {
    for (const QByteArray& text : {QByteArray(300, '\xFF'), QByteArray(300, '\0'),
                                   QByteArray("[Settings\nno sense at all\nPortNo=4\n")}) {
        startWith(text);
        EXPECT_EQ(get("Language", "2"), "2");
        save("Language", "1");
        InstallQtSettings();
        EXPECT_EQ(get("Language"), "1") << text.toHex().left(40).toStdString();
    }
}

TEST_F(QtSettings, AFileThatCanBeNoStoreIsSetAsideWhole) {
    const QByteArray huge = "[Settings]\nPortNo=4\nNote=" + QByteArray(70'000, 'x');
    startWith(huge);
    EXPECT_EQ(get("PortNo"), "-");
    save("PortNo", "5");
    EXPECT_EQ(QFile(ini + ".aside").size(), huge.size());
    ASSERT_TRUE(QFile::remove(ini));
    ASSERT_EQ(::mkfifo(ini.toUtf8().constData(), 0600), 0);
    InstallQtSettings();
    EXPECT_EQ(get("PortNo"), "-");
    EXPECT_EQ(QFile(ini + ".aside").size(), huge.size());
}

TEST_F(QtSettings, AFileThatCannotBeWrittenKeepsTheValueForTheRun) {
    // A folder stands where the file should be: that stops the administrator, too.
    ASSERT_TRUE(QDir().mkpath(ini));
    InstallQtSettings();
    save("Language", "1");
    EXPECT_EQ(get("Language", "2"), "1");
}

} // namespace
} // namespace qdw8
