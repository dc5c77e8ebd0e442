#include "platform/platform.h"
#include "platform/qt/dialog_parent.h"
#include "platform/qt/qt_file_dialog.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shared_printer.h"
#include "platform/qt/standard_texts.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QStringList>
#include <algorithm>

namespace qdw8 {
namespace {

/// The first name like this one, counted on, that no file has yet.
QString FreeName(const QString& path) {
    static const QRegularExpression form(QStringLiteral("^(.*?)(?:-(\\d{1,4}))?(\\.pdf)?$"),
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch parts = form.match(path);
    QString free = path;
    for (int count = std::max(1, parts.captured(2).toInt()) + 1; QFileInfo::exists(free); ++count) {
        free = parts.captured(1) + QStringLiteral("-%1.pdf").arg(count);
    }
    return free;
}

/// A PDF file is called one, and a bare name stands in the folder that was proposed: the toolkit
/// looks for it in one folder and writes it into another. The proposal is a new name: who only
/// wants to look at the pages isn't asked whether the last print may be overwritten.
void NamePdf(const QPrintDialog& dialog, const QPushButton& print) {
    if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"))) {
        name->setText(FreeName(name->text()));
        const QDir folder = QFileInfo(name->text()).dir();
        QObject::connect(&print, &QPushButton::pressed, name, [name, folder] {
            if (name->text().isEmpty()) {
                return;
            }
            QString path = folder.absoluteFilePath(name->text());
            if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive) &&
                !QFileInfo(path).isDir()) {
                path += QLatin1String(".pdf");
            }
            name->setText(path);
        });
    }
}

/// One button more, which goes through the dialog's own button to print: that one alone looks
/// whether the file can be written, and asks before one is overwritten.
void AddPreviewButton(QPrintDialog& dialog, QDialogButtonBox& buttons, QPushButton& print,
                      bool& preview) {
    auto* look = buttons.addButton(QString::fromStdString(TheStandardTexts().preview),
                                   QDialogButtonBox::ActionRole);
    look->setObjectName(QStringLiteral("cmdPrintPreview"));
    look->setAutoDefault(false);
    QObject::connect(look, &QPushButton::clicked, &dialog, [&dialog, &print, &preview] {
        preview = true;
        print.click();
        preview = dialog.result() == QDialog::Accepted;
    });
}

/// While it lives the dialogs of the toolkit lack what the printing system would do by itself
/// behind the program's back: to leave pages out, to print several on one. What is looked at before
/// would not be what is printed.
class NotOffered : public QObject {
public:
    NotOffered() { qApp->installEventFilter(this); }

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        static const QStringList names{QStringLiteral("gbPrintRange"),
                                       QStringLiteral("pagesPerSheetButtonGroup")};
        if (event->type() == QEvent::Show && names.contains(object->objectName())) {
            static_cast<QWidget*>(object)->hide();
        }
        return false;
    }
};

PrinterAnswer ShowPrinterDialog(const PrinterQuestion& question) {
    QPrinter& printer = SharedPrinter();
    bool preview = false;
    const NotOffered notOffered;
    ShowMarginsUsed();
    QPointer<QDialog> dialog;
    // Without a printer it sets the paper of the PDF files.
    if ((question.flags & kPageSetup) != 0) {
        dialog = new QPageSetupDialog(&printer, DialogParent());
    } else {
        printer.setCopyCount(1);
        auto* print = new QPrintDialog(&printer, DialogParent());
        print->setOption(QAbstractPrintDialog::PrintPageRange, false);
        auto* buttons = print->findChild<QDialogButtonBox*>();
        auto* ok = buttons == nullptr ? nullptr : buttons->button(QDialogButtonBox::Ok);
        if (ok != nullptr) {
            ok->setObjectName(QStringLiteral("cmdPrinterPrint"));
            NamePdf(*print, *ok);
            if (question.offersPreview) {
                AddPreviewButton(*print, *buttons, *ok, preview);
            }
        }
        dialog = print;
    }
    dialog->setObjectName(QStringLiteral("CommonDialog1"));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    delete dialog.data();
    ShowMarginsUsed();
    return !accepted ? PrinterAnswer::Cancel
           : preview ? PrinterAnswer::Preview
                     : PrinterAnswer::Print;
}

} // namespace

void InstallQtCommonDialog() {
    // The file dialog would keep folders and columns in a store of the toolkit's own.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    ThePlatform().CommonDialog1.ShowFile = ShowFileDialog;
    ThePlatform().CommonDialog1.ShowPrinter = ShowPrinterDialog;
}

} // namespace qdw8
