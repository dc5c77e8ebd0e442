#include "gui.h"
#include "story.h"

#include <QGenericPlugin>
#include <QThread>

namespace e2e {

/// Brings the user into the program: Qt loads it by the name of its key, the program knows nothing.
class UserPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "user_plugin.json")

public:
    QObject* create(const QString& key, const QString& story) override;
};

QObject* UserPlugin::create(const QString&, const QString& story) {
    // The settings have to be there before the program looks at them.
    OpenStory(story);
    // The program is only being set up: the user sits down when its events begin to run.
    Post([user = QThread::create(PlayStory)] { user->start(); });
    return Ear();
}

} // namespace e2e

#include "user_plugin.moc"
