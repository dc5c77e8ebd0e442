#include "windows/dialogs/frmSelection.h"

#include "app/program_end.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTextLayout>
#include <QVBoxLayout>

namespace qdw8 {
namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 10;
/// Longest line of a text, in widths of a digit.
constexpr int kLineCharacters = 70;

/// Breaks a text into lines that are no wider than `width`; option buttons break none themselves.
QString Broken(const QString& text, const QFont& font, int width) {
    QTextLayout layout(text, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        // Japanese may break anywhere; behind a comma or a full stop it reads best.
        const int start = line.textStart();
        const int end = start + line.textLength();
        const auto stop =
            text.lastIndexOf(QRegularExpression(QStringLiteral("[\u3001\u3002]")), end - 1);
        if (end < text.size() && stop > start + line.textLength() / 2) {
            line.setNumColumns(static_cast<int>(stop) - start + 1);
        }
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines.join(QLatin1Char('\n'));
}

} // namespace

frmSelection::frmSelection(const SelectionQuestion& question, QWidget* parent)
    : QDialog(parent), mustAnswer(question.mustAnswer) {
    setObjectName(QStringLiteral("frmSelection"));
    setWindowTitle(QString::fromStdString(question.title));
    const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * kLineCharacters;

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* text = new QLabel(Broken(QString::fromStdString(question.text), font(), width), this);
    text->setObjectName(QStringLiteral("lblSelectText"));
    text->setTextFormat(Qt::PlainText);
    layout->addWidget(text);
    if (!question.details.empty()) {
        QStringList lines;
        for (const std::string& line : question.details) {
            lines << QString::fromStdString(line);
        }
        auto* details = new QLabel(lines.join(QLatin1Char('\n')), this);
        details->setObjectName(QStringLiteral("lblSelectDetails"));
        details->setTextFormat(Qt::PlainText);
        layout->addWidget(details);
    }
    layout->addSpacing(kSpacing / 2);

    for (const std::string& choice : question.choices) {
        auto* option = new QRadioButton(Broken(EscapedMnemonics(choice), font(), width), this);
        option->setObjectName(QStringLiteral("optSelectKomoku(%1)").arg(options.size()));
        option->setAccessibleName(QString::fromStdString(choice));
        options.push_back(option);
        layout->addWidget(option);
    }
    if (!options.empty()) {
        options.front()->setChecked(true);
        options.front()->setFocus();
    }

    auto* ok = new QPushButton(this);
    ok->setObjectName(QStringLiteral("cmdSelectOk"));
    ok->setDefault(true);
    SetNumbers(*ok, 1403);
    auto* cancel = new QPushButton(this);
    cancel->setObjectName(QStringLiteral("cmdSelectCancel"));
    SetNumbers(*cancel, 1404);
    cancel->setEnabled(!mustAnswer);
    cancel->setVisible(!mustAnswer);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addSpacing(kSpacing / 2);
    layout->addLayout(buttons);

    connect(ok, &QPushButton::clicked, this, [this] { confirm(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    LoadFormResources(*this);
    text->setAccessibleName(QString::fromStdString(question.text));
    setAccessibleDescription(QString::fromStdString(question.text));
}

void frmSelection::confirm() {
    // Whatever isn't one of the first two is the third.
    SelectResult = 2;
    for (std::size_t index = 0; index < options.size() && index < 2; ++index) {
        if (options[index]->isChecked()) {
            SelectResult = static_cast<std::int16_t>(index);
        }
    }
    accept();
}

void frmSelection::reject() {
    if (mustAnswer && !AskToEndProgram()) {
        return;
    }
    SelectResult = kSelectionCancelled;
    QDialog::reject();
}

std::int16_t AskSelection(QWidget* parent, const SelectionQuestion& question) {
    frmSelection dialog(question, parent);
    dialog.exec();
    return dialog.SelectResult;
}

} // namespace qdw8
