#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSerialPortInfo>
#include <QStringList>
#include <QSysInfo>

#include <algorithm>
#include <gnu/libc-version.h>
#include <string>
#include <vector>

namespace qdw8 {
namespace {

/// "FT232R USB UART, FTDI"; what the adapter doesn't tell is left out.
std::string NameOf(const QSerialPortInfo& port) {
    QStringList parts{port.description(), port.manufacturer()};
    parts.removeAll(QString());
    parts.removeDuplicates();
    return parts.join(QLatin1String(", ")).toStdString();
}

std::vector<SerialDevice> SerialDevices() {
    std::vector<SerialDevice> devices;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo& port : ports) {
        devices.push_back({port.systemLocation().toStdString(), NameOf(port)});
    }
    std::sort(
        devices.begin(), devices.end(),
        [](const SerialDevice& one, const SerialDevice& other) { return one.path < other.path; });
    return devices;
}

QString Described(const QScreen& screen) {
    const QSize size = screen.size() * screen.devicePixelRatio();
    return QStringLiteral("%1 x %2 (%3 %, %4 dpi)")
        .arg(size.width())
        .arg(size.height())
        .arg(qRound(100 * screen.devicePixelRatio()))
        .arg(qRound(screen.logicalDotsPerInch()));
}

DesktopFacts Facts() {
    DesktopFacts facts;
    facts.system =
        QStringLiteral("%1, %2 %3, %4, %5")
            .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                 QSysInfo::currentCpuArchitecture(), QGuiApplication::platformName())
            .toStdString();
    QStringList screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens << Described(*screen);
    }
    facts.screen = screens.join(QLatin1String("; ")).toStdString();
    facts.libraries = {std::string("Qt ") + qVersion(),
                       std::string("GNU C library ") + gnu_get_libc_version(),
                       "GNU C++ library " + std::to_string(_GLIBCXX_RELEASE)};
    return facts;
}

} // namespace

void InstallQtMachine() {
    ThePlatform().ListSerialDevices = SerialDevices;
    ThePlatform().GetDesktopFacts = Facts;
}

} // namespace qdw8
