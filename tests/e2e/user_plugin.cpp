#include "scenarios.h"
#include "user.h"

#include <QGenericPlugin>
#include <QThread>

namespace e2e {

/// Brings the user into the program: Qt loads it by the name of its key, the program knows nothing.
class UserPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "user_plugin.json")

public:
    QObject* create(const QString& key, const QString& scenario) override;
};

QObject* UserPlugin::create(const QString&, const QString& name) {
    const Scenario* scenario = findScenario(name);
    if (scenario == nullptr) {
        fail(QStringLiteral("no scenario is named \"%1\"").arg(name));
    }
    // The settings have to be there before the program looks at them.
    if (scenario->settings) {
        writeSettings(*scenario->settings);
    }
    auto* user = QThread::create([scenario] { scenario->play(); });
    // The program is only being set up: the user sits down when its events begin to run.
    post([user] { user->start(); });
    return ear();
}

} // namespace e2e

#include "user_plugin.moc"
