#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

namespace qdw8 {
namespace {

QString KeyOf(const std::string& section, const std::string& key) {
    return QString::fromStdString(section) + u'/' + QString::fromStdString(key);
}

/// Many times what the program ever stores.
constexpr qint64 kLargestStore = qint64{64} * 1024;

/// The file of the store. One that would take the program's time and memory at each start, or hold
/// it up for ever, is moved out of the way; if that can't be, the store lives for the run alone.
QString UsableStore(const QString& path) {
    const QFileInfo store(path);
    const bool usable =
        !store.exists() || store.isDir() || (store.isFile() && store.size() <= kLargestStore);
    QString aside = path + QStringLiteral(".aside");
    for (int number = 1; !usable && QFileInfo::exists(aside) && number < 100; ++number) {
        aside = path + QStringLiteral(".aside%1").arg(number);
    }
    return usable || QFile::rename(path, aside) ? path : path + QStringLiteral("/none");
}

/// The toolkit doesn't know this folder yet. What is no whole path doesn't count.
QString StateFolder() {
    const QString told = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(told) ? told
                                       : QDir::homePath() + QStringLiteral("/.local/state")) +
           QStringLiteral("/QD-W8");
}

} // namespace

void InstallQtSettings() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/QD-W8");
    QDir().mkpath(folder);
    ThePlatform().settingsFolder = folder.toStdString();
    ThePlatform().stateFolder = StateFolder().toStdString();

    auto store = std::make_shared<QSettings>(UsableStore(folder + QStringLiteral("/settings.ini")),
                                             QSettings::IniFormat);
    ThePlatform().Settings.GetSetting = [store](const std::string& section, const std::string& key,
                                                const std::string& fallback) {
        return store->value(KeyOf(section, key), QString::fromStdString(fallback))
            .toString()
            .toStdString();
    };
    ThePlatform().Settings.IsKept = [store] { return store->status() == QSettings::NoError; };
    ThePlatform().Settings.SaveSetting = [store](const std::string& section, const std::string& key,
                                                 const std::string& value) {
        store->setValue(KeyOf(section, key), QString::fromStdString(value));
        // Written now: the program ends without any farewell to its objects.
        store->sync();
    };
}

} // namespace qdw8
