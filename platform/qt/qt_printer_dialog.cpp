#include "platform/platform.h"
#include "platform/qt/dialog_parent.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shared_printer.h"

#include <QPageSetupDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>

namespace qdw8 {
namespace {

constexpr int kPageSetup = 64;

std::optional<int> ShowPrinterDialog(const PrinterQuestion& question) {
    QPrinter& printer = SharedPrinter();
    QPointer<QDialog> dialog;
    // A PDF file knows no page set-up dialog of its own; the printer dialog has the paper, too.
    if ((question.flags & kPageSetup) != 0 && printer.outputFormat() == QPrinter::NativeFormat) {
        dialog = new QPageSetupDialog(&printer, DialogParent());
    } else {
        printer.setCopyCount(std::max(1, question.copies));
        dialog = new QPrintDialog(&printer, DialogParent());
    }
    dialog->setObjectName(QStringLiteral("CommonDialog1"));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    delete dialog.data();
    const int copies = printer.copyCount();
    // The caller prints as many documents as it is told; the printer itself makes one of each.
    printer.setCopyCount(1);
    printer.setFullPage(true);
    return accepted ? std::optional(copies) : std::nullopt;
}

} // namespace

void InstallQtCommonDialog() {
    ThePlatform().CommonDialog1.ShowFile = ShowFileDialog;
    ThePlatform().CommonDialog1.ShowPrinter = ShowPrinterDialog;
}

} // namespace qdw8
