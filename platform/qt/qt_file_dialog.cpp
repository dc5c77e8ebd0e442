#include "platform/qt/qt_file_dialog.h"

#include "platform/qt/dialog_parent.h"
#include "platform/qt/kept_places.h"
#include "platform/qt/standard_texts.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>

#include <algorithm>

namespace qdw8 {
namespace {

QString QtText(const std::string& text) {
    return QString::fromStdString(text);
}

/// One entry: the name of the kind, as it is shown, and its patterns, parted by ";".
QString NameFilter(const QString& name, const QString& patterns) {
    QStringList list = patterns.split(u';', Qt::SkipEmptyParts);
    for (QString& pattern : list) {
        pattern = pattern.trimmed();
        if (pattern == u"*.*") {
            pattern = QStringLiteral("*");
        }
    }
    // Most names tell the pattern themselves, and then it isn't shown twice.
    QString title = name;
    const QString told = u'(' + patterns + u')';
    if (title.endsWith(told)) {
        title.chop(told.size());
    } else {
        title += u' ';
    }
    return title + u'(' + list.join(u' ') + u')';
}

void SetLabels(QFileDialog& dialog, bool saving) {
    const StandardTexts& texts = TheStandardTexts();
    dialog.setLabelText(QFileDialog::LookIn, QtText(texts.folder));
    dialog.setLabelText(QFileDialog::FileName, QtText(texts.fileName));
    dialog.setLabelText(QFileDialog::FileType, QtText(texts.fileType));
    dialog.setLabelText(QFileDialog::Accept, QtText(saving ? texts.save : texts.open));
    dialog.setLabelText(QFileDialog::Reject, QtText(texts.cancel));
}

/// A name without a name: nothing, or nothing in front of the extension.
bool IsNoName(const QString& name, const QString& extension) {
    const bool ends = name.endsWith(extension, Qt::CaseInsensitive);
    const QString stem = ends ? name.chopped(extension.size()) : name;
    return std::all_of(stem.begin(), stem.end(), [](QChar c) { return c.isSpace() || c == u'.'; });
}

/// Qt's dialog with the rule of the default extension, which Qt adds only to a name without any
/// point, and only after it has asked about another one.
class FileDialog : public QFileDialog {
public:
    FileDialog(QWidget* parent, const std::string& defaultExt)
        : QFileDialog(parent), extension(QtText(defaultExt.empty() ? "" : "." + defaultExt)) {}

protected:
    void accept() override {
        auto* edit = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (edit == nullptr || edit->text().trimmed().isEmpty()) {
            return;
        }
        const QFileInfo typed(selectedFiles().constFirst());
        if (!typed.isDir() && !extension.isEmpty()) {
            const bool saving = acceptMode() == AcceptSave;
            if (saving && IsNoName(typed.fileName(), extension)) {
                return;
            }
            if (!typed.fileName().endsWith(extension, Qt::CaseInsensitive) &&
                (saving || !typed.exists())) {
                edit->setText(directory().relativeFilePath(typed.filePath()) + extension);
            }
        }
        QFileDialog::accept();
    }

private:
    QString extension;
};

void SetUp(QFileDialog& dialog, const FileQuestion& question) {
    const bool saving = question.kind == FileQuestion::Kind::Save;
    const bool mustExist = !saving && (question.flags & kFileMustExist) != 0;
    dialog.setObjectName(QStringLiteral("CommonDialog1"));
    // The desktop's own dialogs know neither the labels nor the rule of the default extension.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (question.flags & kOverwritePrompt) == 0);
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setWindowTitle(QtText(question.title));
    const QStringList filters = NameFilters(question.filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
    }
    dialog.setDirectory(question.folder.empty() ? QDir::currentPath() : QtText(question.folder));
    if (!question.fileName.empty()) {
        dialog.selectFile(QtText(question.fileName));
    }
    SetLabels(dialog, saving);
    // Wide enough for the side bar and whole file names, whatever the font, and on the screen.
    const QFontMetrics metrics(dialog.font());
    const QSize wanted =
        KeepSize(dialog, {metrics.horizontalAdvance(u'0') * 100, metrics.height() * 28});
    const QScreen* screen = dialog.screen();
    dialog.resize(screen == nullptr ? wanted : wanted.boundedTo(screen->availableSize() * 0.9));
}

} // namespace

QStringList NameFilters(const std::string& filter) {
    const QStringList parts = QtText(filter).split(u'|');
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        result += NameFilter(parts[i], parts[i + 1]);
    }
    return result;
}

std::optional<FileAnswer> ShowFileDialog(const FileQuestion& question) {
    const QPointer<QWidget> parent = DialogParent();
    const QPointer<QFileDialog> dialog = new FileDialog(parent, question.defaultExt);
    SetUp(*dialog, question);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    const QStringList files = dialog ? dialog->selectedFiles() : QStringList();
    delete dialog.data();
    GiveKeysBack(parent);
    if (!accepted || files.isEmpty()) {
        return std::nullopt;
    }
    const QFileInfo file(files.front());
    QDir::setCurrent(file.absolutePath());
    return FileAnswer{file.absoluteFilePath().toStdString(), file.fileName().toStdString()};
}

} // namespace qdw8
