#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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
    QByteArray fileText() const {
        QFile ini(iniName);
        return ini.open(QIODevice::ReadOnly) ? ini.readAll() : QByteArray();
    }
    void writeFile(const QByteArray& text) const {
        QFile ini(iniName);
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write(text);
    }

    QByteArray before = qgetenv("XDG_CONFIG_HOME");
    QTemporaryDir folder;
    QString iniName = folder.filePath("QD-W8/settings.ini");
};

TEST_F(QtSettings, TheFolderIsMadeAndAMissingKeyIsTheFallback) {
    EXPECT_EQ(ThePlatform().settingsFolder, folder.filePath("QD-W8").toStdString());
    EXPECT_TRUE(QDir(folder.filePath("QD-W8")).exists());
    EXPECT_EQ(get("PortNo", "1"), "1");
    EXPECT_EQ(get("DevSize1", " 44"), " 44");
}

TEST_F(QtSettings, EveryTextSurvivesTheNextStart) {
    const char* texts[] = {"",     "1",    " 44",      "44 ",  "a,b;c=d", "\"x\"",
                           "@Day", "100%", "C:\\a\\b", "位置", "a\r\nb",  "[Settings]"};
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        save("Key" + std::to_string(i), texts[i]);
    }
    InstallQtSettings();
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        EXPECT_EQ(get("Key" + std::to_string(i)), texts[i]);
    }
}

TEST_F(QtSettings, TheFileIsWrittenAtOnceAndAPersonCanReadIt) {
    save("PortNo", "2");
    EXPECT_EQ(fileText(), "[Settings]\nPortNo=2\n");
    save("PortNo", "3");
    EXPECT_EQ(fileText(), "[Settings]\nPortNo=3\n");
}

TEST_F(QtSettings, ABrokenFileNeverFailsAndIsMended) {
    const QByteArray broken[] = {QByteArray(300, '\xFF'), QByteArray(300, '\0'),
                                 "[Settings\nPortNo", "[Settings]\nno sense at all\nPortNo=4\n"};
    for (const QByteArray& text : broken) {
        writeFile(text);
        InstallQtSettings();
        EXPECT_EQ(get("Language", "2"), "2");
        save("Language", "1");
        EXPECT_EQ(get("Language"), "1");
        InstallQtSettings();
        EXPECT_EQ(get("Language"), "1") << text.toHex().left(40).toStdString();
    }
    EXPECT_EQ(get("PortNo"), "4") << "what could be read was lost";
}

TEST_F(QtSettings, AFileThatCannotBeWrittenKeepsTheValueForTheRun) {
    // A folder stands where the file should be: that stops the administrator, too.
    ASSERT_TRUE(QDir().mkpath(iniName));
    InstallQtSettings();
    EXPECT_EQ(get("Language", "2"), "2");
    save("Language", "1");
    EXPECT_EQ(get("Language", "2"), "1");
}

} // namespace
} // namespace qdw8
