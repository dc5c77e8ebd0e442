#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

namespace qdw8 {
namespace {

QString KeyOf(const std::string& section, const std::string& key) {
    return QString::fromStdString(section) + u'/' + QString::fromStdString(key);
}

} // namespace

void InstallQtSettings() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/QD-W8");
    QDir().mkpath(folder);
    ThePlatform().settingsFolder = folder.toStdString();

    auto store =
        std::make_shared<QSettings>(folder + QStringLiteral("/settings.ini"), QSettings::IniFormat);
    ThePlatform().Settings.GetSetting = [store](const std::string& section, const std::string& key,
                                                const std::string& fallback) {
        return store->value(KeyOf(section, key), QString::fromStdString(fallback))
            .toString()
            .toStdString();
    };
    ThePlatform().Settings.SaveSetting = [store](const std::string& section, const std::string& key,
                                                 const std::string& value) {
        store->setValue(KeyOf(section, key), QString::fromStdString(value));
        // Written now: the program ends without any farewell to its objects.
        store->sync();
    };
}

} // namespace qdw8
