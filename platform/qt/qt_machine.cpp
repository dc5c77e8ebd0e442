#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>

#include <gnu/libc-version.h>
#include <string>

namespace qdw8 {
namespace {

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
    ThePlatform().GetDesktopFacts = Facts;
}

} // namespace qdw8
