#include "platform/platform.h"
#include "platform/qt/dialog_parent.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shared_printer.h"
#include "platform/qt/standard_texts.h"

#include <QDialogButtonBox>
#include <QPageSetupDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace qdw8 {
namespace {

/// The dialog of the toolkit with one button more, which takes its choices like its own button to
/// print.
void AddPreviewButton(QPrintDialog& dialog, bool& preview) {
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    if (buttons == nullptr) {
        return;
    }
    if (auto* print = buttons->button(QDialogButtonBox::Ok)) {
        print->setObjectName(QStringLiteral("cmdPrinterPrint"));
    }
    auto* look = buttons->addButton(QString::fromStdString(TheStandardTexts().preview),
                                    QDialogButtonBox::ActionRole);
    look->setObjectName(QStringLiteral("cmdPrintPreview"));
    look->setAutoDefault(false);
    QObject::connect(look, &QPushButton::clicked, &dialog, [&dialog, &preview] {
        preview = true;
        dialog.accept();
        preview = dialog.result() == QDialog::Accepted;
    });
}

PrinterAnswer ShowPrinterDialog(const PrinterQuestion& question) {
    QPrinter& printer = SharedPrinter();
    bool preview = false;
    QPointer<QDialog> dialog;
    // A PDF file knows no page set-up dialog of its own; the printer dialog has the paper, too.
    if ((question.flags & kPageSetup) != 0 && printer.outputFormat() == QPrinter::NativeFormat) {
        dialog = new QPageSetupDialog(&printer, DialogParent());
    } else {
        printer.setCopyCount(1);
        auto* print = new QPrintDialog(&printer, DialogParent());
        print->setOption(QAbstractPrintDialog::PrintPageRange, false);
        if (question.offersPreview) {
            AddPreviewButton(*print, preview);
        }
        dialog = print;
    }
    dialog->setObjectName(QStringLiteral("CommonDialog1"));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    delete dialog.data();
    printer.setFullPage(true);
    return !accepted ? PrinterAnswer::Cancel
           : preview ? PrinterAnswer::Preview
                     : PrinterAnswer::Print;
}

} // namespace

void InstallQtCommonDialog() {
    ThePlatform().CommonDialog1.ShowFile = ShowFileDialog;
    ThePlatform().CommonDialog1.ShowPrinter = ShowPrinterDialog;
}

} // namespace qdw8
