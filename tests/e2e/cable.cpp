#include "cable.h"

#include "user.h"

#include <QDir>
#include <QFileInfo>

namespace e2e {

QString linkOfCom1() {
    return configFolder() + QStringLiteral("/ports/com1");
}

Cable::Cable(const QStringList& options) {
    const QString link = linkOfCom1();
    QDir().mkpath(QFileInfo(link).path());
    simulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    simulator.start(QStringLiteral(SIMULATOR_PROGRAM),
                    QStringList{QStringLiteral("--control"), QStringLiteral("--link"), link} +
                        options);
    const QString ready = readLine();
    if (!ready.startsWith(QStringLiteral("qd-k8-sim ready on "))) {
        fail(QStringLiteral("the simulator is not ready: \"%1\"").arg(ready));
    }
}

Cable::~Cable() {
    simulator.closeWriteChannel();
    if (!simulator.waitForFinished(kDeadline)) {
        fail(QStringLiteral("the simulator doesn't end"));
    }
}

QStringList Cable::tell(const QString& line) {
    simulator.write(line.toUtf8() + '\n');
    QStringList answer;
    while (true) {
        const QString said = readLine();
        if (said == QStringLiteral("ok")) {
            return answer;
        }
        if (said.startsWith(QStringLiteral("error"))) {
            fail(QStringLiteral("the simulator, told \"%1\": %2").arg(line, said));
        }
        answer += said;
    }
}

QString Cable::readLine() {
    while (!simulator.canReadLine()) {
        if (!simulator.waitForReadyRead(kDeadline)) {
            fail(QStringLiteral("the simulator says nothing: ") + simulator.errorString());
        }
    }
    return QString::fromUtf8(simulator.readLine()).trimmed();
}

} // namespace e2e
