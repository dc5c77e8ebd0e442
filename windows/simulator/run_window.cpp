#include "windows/simulator/run_window.h"

#include "simulator/serve.h"
#include "windows/access/visible_focus.h"
#include "windows/colours/legible.h"
#include "windows/simulator/texts.h"
#include "windows/simulator/window.h"

#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

/// The pictures stand in a library, which hands them over only when they are asked for by name.
/// The toolkit wants that said outside of every namespace.
static void TakePictures() {
    Q_INIT_RESOURCE(icon_of_qd_k8_sim);
}

namespace qdk8 {
namespace {

/// The toolkit would end the process with a core.
bool HasDesktop() {
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return true;
        }
    }
    return false;
}

QIcon Icon() {
    TakePictures();
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/qd-k8-sim/%1.png").arg(side));
    }
    return icon;
}

void Choose(const std::string& language) {
    ChooseLanguage(language.empty()   ? LanguageOfDesktop()
                   : language == "ja" ? Language::Japanese
                                      : Language::English);
}

} // namespace

int RunWithWindow(Front& front, int count, char** texts) {
    if (!HasDesktop()) {
        std::fprintf(stderr, "qd-k8-sim: --window wants a desktop, and there is none\n");
        return 1;
    }
    HoldSignals();
    count = 1; // its options are none of the toolkit's
    QApplication application(count, texts);
    QApplication::setApplicationName("qd-k8-sim");
    qdw8::InstallStyle();
    const qdw8::LegibleDesktop colours;
    QApplication::setWindowIcon(Icon());
    Choose(front.options.language);

    front.wake = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    Window window(front);
    int status = 1;
    std::thread service([&] {
        status = Serve(front);
        QMetaObject::invokeMethod(
            &window, [&window] { window.leave(); }, Qt::QueuedConnection);
    });
    window.showInCorner();
    QApplication::exec();
    GiveOrder(front, "quit");
    service.join();
    ::close(front.wake);
    return status;
}

} // namespace qdk8
