#include "platform/last_word.h"
#include "platform/qt/qt_platform.h"
#include "program/startup.h"
#include "program/told_to_end.h"
#include "program/wiring.h"
#include "windows/access/visible_focus.h"
#include "windows/colours/legible.h"

#include <QApplication>

int main(int argc, char** argv) {
    qdw8::StartLastWord();
    argc = 1; // the program has no command line, and neither has the toolkit
    QApplication application(argc, argv);
    QApplication::setApplicationName("QD-W8");
    QApplication::setDesktopFileName("qd-w8"); // by which a desktop finds the icon of the windows
    qdw8::InstallStyle();
    const qdw8::LegibleDesktop colours;
    // The main window alone decides when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);

    qdw8::InstallQtPlatform();
    qdw8::WireScreens();
    qdw8::KeepUnsavedAtExit();
    qdw8::Main();
    return QApplication::exec();
}
