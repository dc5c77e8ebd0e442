#include "platform/qt/qt_platform.h"

#include "platform/qt/dialog_places.h"
#include "platform/qt/screen_watch.h"

namespace qdw8 {

void InstallQtPlatform() {
    InstallQtTimers();
    InstallQtSerial();
    InstallQtMessageBox();
    InstallQtCommonDialog();
    InstallQtPrinter();
    InstallQtSettings();
    InstallQtDesktop();
    InstallQtMachine();
    InstallQtInputMethod();
    InstallQtDialogPlaces();
    InstallQtScreenWatch();
    InstallQtToldToEnd();
}

} // namespace qdw8
