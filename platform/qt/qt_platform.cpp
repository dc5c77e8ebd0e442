#include "platform/qt/qt_platform.h"

namespace qdw8 {

void InstallQtPlatform() {
    InstallQtTimers();
    InstallQtSerial();
    InstallQtMessageBox();
    InstallQtCommonDialog();
    InstallQtPrinter();
    InstallQtSettings();
    InstallQtDesktop();
    InstallQtInputMethod();
}

} // namespace qdw8
