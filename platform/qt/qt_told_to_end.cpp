#include "platform/platform.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QDialog>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace qdw8 {
namespace {

constexpr unsigned kHangsAfterS = 10;

/// From the signal to the event loop; made once for the process.
std::array<int, 2> told{-1, -1}; // NOLINT: a signal finds nothing else

void NoteSignal(int /*signal*/) {
    const int error = errno;
    ::alarm(kHangsAfterS); // where no event loop runs any more
    [[maybe_unused]] const ssize_t count = ::write(told[1], "", 1);
    errno = error;
}

void TakeNote() {
    std::array<char, 64> notes{};
    while (::read(told[0], notes.data(), notes.size()) > 0) {
    }
    const std::function<void()> obey = ThePlatform().OnToldToEnd;
    if (obey) {
        CallGuarded("OnToldToEnd", obey);
    } else {
        ThePlatform().EndProgram();
    }
}

/// A signal that the system has the process ignore, as one that outlives its terminal, stays so.
void Listen(int signal) {
    struct sigaction before {};
    struct sigaction action {};
    action.sa_handler = NoteSignal;
    action.sa_flags = SA_RESTART;
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
        ::sigaction(signal, &action, nullptr);
    }
}

bool CancelModal() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
        return true;
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* dialog = qobject_cast<QDialog*>(modal)) {
        dialog->done(QDialog::Rejected); // a close it might refuse, or ask about
    }
    return modal != nullptr;
}

} // namespace

void InstallQtToldToEnd() {
    ThePlatform().CancelModal = CancelModal;
    if (told[0] >= 0 || ::pipe2(told.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(told[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, TakeNote);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Listen(signal);
    }
    // A display or a terminal that is gone, and a file that may not grow, fail what is written.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace qdw8
