#include "windows/dialogs/frmSelectPosiNo4.h"

#include "windows/controls/load_form_resources.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace qdw8 {
namespace {

constexpr int kTextCharacters = 48; ///< width of the text that there is nothing in common

/// The rows stand below each other though the last one is a panel of its own: each has the same
/// three columns.
struct Columns {
    std::array<int, 3> widths{};

    void fit(int column, const QWidget& control) {
        int& width = widths.at(static_cast<std::size_t>(column));
        width = std::max(width, control.sizeHint().width());
    }
    void apply(QGridLayout& layout) const {
        for (int column = 0; column < 3; ++column) {
            layout.setColumnMinimumWidth(column, widths.at(static_cast<std::size_t>(column)));
        }
        layout.setHorizontalSpacing(kRangeSpacing * 2);
        layout.setColumnStretch(3, 1);
    }
};

QLabel* MakeLabel(QWidget& parent, const char* name, std::int16_t tag = 0) {
    auto* label = new QLabel(&parent);
    label->setObjectName(QString::fromLatin1(name));
    SetNumbers(*label, tag);
    return label;
}

QLabel* MakeNumber(QWidget& parent, const char* name, const std::string& text) {
    QLabel* label = MakeLabel(parent, name);
    label->setText(QString::fromStdString(text));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label->setMargin(2);
    return label;
}

} // namespace

frmSelectPosiNo4::frmSelectPosiNo4(bool common, QWidget* parent)
    : QDialog(parent), overlap(common) {
    QVBoxLayout* layout = BeginRangeDialog(*this, "frmSelectPosiNo4");
    const VerifyRangeTexts preset = VerifyRangePreset();

    layout->itemAt(0)->widget()->setVisible(overlap);
    QLabel* nothing = MakeLabel(*this, "lblSyogoHuka", 342);
    nothing->setWordWrap(true);
    nothing->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kTextCharacters);
    nothing->setVisible(!overlap);
    layout->addWidget(nothing);

    auto* rows = new QGridLayout;
    rows->setContentsMargins(0, kRangeSpacing, 0, 0);
    rows->setVerticalSpacing(kRangeSpacing);
    layout->addLayout(rows);
    QLabel* startHead = MakeLabel(*this, "lblStartPosiMoji", 1809);
    QLabel* endHead = MakeLabel(*this, "lblEndPosiMoji", 1810);
    rows->addWidget(startHead, 0, 1);
    rows->addWidget(endHead, 0, 2);
    struct Row {
        QLabel* caption;
        QLabel* start;
        QLabel* end;
    };
    const std::array<Row, 2> numbers{Row{MakeLabel(*this, "lblFileMoji", 1611),
                                         MakeNumber(*this, "lblFileStartNo", preset.file.start),
                                         MakeNumber(*this, "lblFileEndNo", preset.file.end)},
                                     Row{MakeLabel(*this, "lblPcMoji", 1612),
                                         MakeNumber(*this, "lblPcStartNo", preset.grid.start),
                                         MakeNumber(*this, "lblPcEndNo", preset.grid.end)}};
    for (int row = 0; row < 2; ++row) {
        const Row& made = numbers.at(static_cast<std::size_t>(row));
        rows->addWidget(made.caption, row + 1, 0);
        rows->addWidget(made.start, row + 1, 1);
        rows->addWidget(made.end, row + 1, 2);
    }

    auto* picture = new QWidget(this);
    picture->setObjectName(QStringLiteral("PictureVerifyRange"));
    auto* boxes = new QGridLayout(picture);
    boxes->setContentsMargins(0, 0, 0, kRangeSpacing);
    layout->addWidget(picture);
    QLabel* rangeMoji = MakeLabel(*picture, "lblRangeMoji", 1613);
    range.lblStartPosiMoji = startHead;
    range.lblEndPosiMoji = endHead;
    range.txtStartPosiNo =
        new NumberField(QStringLiteral("txtStartPosiNo"), kPosiNoDigits, picture);
    range.txtEndPosiNo = new NumberField(QStringLiteral("txtEndPosiNo"), kPosiNoDigits, picture);
    range.txtStartPosiNo->setText(QString::fromStdString(preset.range.start));
    range.txtEndPosiNo->setText(QString::fromStdString(preset.range.end));
    boxes->addWidget(rangeMoji, 0, 0);
    boxes->addWidget(range.txtStartPosiNo, 0, 1);
    boxes->addWidget(range.txtEndPosiNo, 0, 2);
    picture->setVisible(overlap);

    MakeRangeButtons(*this, range);
    connect(range.cmdOk, &QPushButton::clicked, this, [this] { accept(); });

    RangeDialogOpened();
    LoadFormResources(*this);
    Columns columns;
    for (const Row& made : numbers) {
        columns.fit(0, *made.caption);
    }
    columns.fit(0, *rangeMoji);
    columns.fit(1, *startHead);
    columns.fit(2, *endHead);
    columns.apply(*rows);
    columns.apply(*boxes);
    range.txtStartPosiNo->setFixedWidth(columns.widths[1]);
    range.txtEndPosiNo->setFixedWidth(columns.widths[2]);

    const auto name = [](QWidget& control, const QLabel& row, const QLabel& head,
                         const QString& value) {
        control.setAccessibleName(
            (row.text() + QLatin1Char(' ') + head.text() + QLatin1Char(' ') + value).trimmed());
    };
    for (const Row& made : numbers) {
        name(*made.start, *made.caption, *startHead, made.start->text());
        name(*made.end, *made.caption, *endHead, made.end->text());
    }
    name(*range.txtStartPosiNo, *rangeMoji, *startHead, {});
    name(*range.txtEndPosiNo, *rangeMoji, *endHead, {});
    if (overlap) {
        range.txtStartPosiNo->setFocus();
    } else {
        range.cmdOk->setFocus();
    }
}

void frmSelectPosiNo4::accept() {
    if (!overlap || TakeVerifyRange(range.texts())) {
        QDialog::accept();
    } else {
        range.txtStartPosiNo->setFocus(); // the numbers are to be typed again
    }
}

void frmSelectPosiNo4::reject() {
    RangeDialogCancelled();
    QDialog::reject();
}

void ShowSelectPosiNo4(QWidget* parent, bool overlap) {
    frmSelectPosiNo4(overlap, parent).exec();
}

} // namespace qdw8
