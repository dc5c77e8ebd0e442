#include "windows/help/manual_paper.h"

#include "app/string_table.h"
#include "windows/controls/texts.h"
#include "windows/help/manual.h"

#include <QAbstractTextDocumentLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <cmath>
#include <vector>

namespace qdw8 {
namespace {

constexpr std::int16_t kManualTitle = 3320;
constexpr double kMmPerInch = 25.4;
constexpr double kMarginMm = 20.0;
constexpr double kFootMm = 10.0; ///< below the text, where the number of the sheet stands
/// What begins on the next sheet must not show its first hair at the foot of this one.
constexpr double kHairMm = 0.3;

/// All pages in one text. `sheets`: the sheet on which each of them begins, as far as it is known.
QString WholeText(const Manual& manual, const std::vector<int>& sheets) {
    QString list;
    QString pages;
    std::size_t count = 0;
    for (const ManualPage& row : manual.rows) {
        const QString title = row.title.toHtmlEscaped();
        if (row.file.isEmpty()) {
            list += QStringLiteral("<tr><td colspan=\"2\"><b>%1</b></td></tr>").arg(title);
            continue;
        }
        const int sheet = count < sheets.size() ? sheets[count] : 0;
        ++count;
        list += QStringLiteral("<tr><td width=\"90%\">&nbsp;&nbsp;&nbsp;%1</td>"
                               "<td align=\"right\">%2</td></tr>")
                    .arg(title)
                    .arg(sheet);
        pages += QStringLiteral("<h1 style=\"page-break-before:always\">%1</h1>").arg(title) +
                 PageBody(manual, row.file);
    }
    return QStringLiteral("<html><head>%1</head><body><p class=\"cover\">QD-W8</p><p><b>%2</b></p>"
                          "<table class=\"list\" width=\"100%\">%3</table>%4</body></html>")
        .arg(StyleSheet(manual), ResQText(kManualTitle).toHtmlEscaped(), list, pages);
}

/// The sheet, from 1, on which the first line of a paragraph stands: a picture is a line, too.
int SheetOf(const QTextDocument& text, const QTextBlock& block) {
    double at = text.documentLayout()->blockBoundingRect(block).top();
    if (block.layout()->lineCount() > 0) {
        at += block.layout()->lineAt(0).rect().center().y();
    }
    return static_cast<int>(at / text.pageSize().height()) + 1;
}

/// No heading stands at the foot of a sheet, away from what it is over.
void KeepHeadings(QTextDocument& text) {
    for (QTextBlock block = text.begin(); block.next().isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 &&
            SheetOf(text, block) != SheetOf(text, block.next())) {
            QTextBlockFormat format;
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            QTextCursor(block).mergeBlockFormat(format);
            // What the change leaves of the old places is not to be trusted.
            text.markContentsDirty(0, text.characterCount());
        }
    }
}

/// The sheets on which the pages begin.
std::vector<int> Beginnings(const QTextDocument& text) {
    std::vector<int> sheets;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 1) {
            sheets.push_back(SheetOf(text, block));
        }
    }
    return sheets;
}

void DrawSheet(QPainter& painter, const QTextDocument& text, int sheet, double hair) {
    const QSizeF size = text.pageSize();
    const QRectF part(0.0, sheet * size.height(), size.width(), size.height() - hair);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = QPalette(Qt::black, Qt::white); // paper is white, whatever the screen is
    context.palette.setColor(QPalette::Text, Qt::black);
    context.palette.setColor(QPalette::Link, Qt::black);
    context.clip = part;
    painter.save();
    painter.translate(0.0, -part.top());
    painter.setClipRect(part);
    text.documentLayout()->draw(&painter, context);
    painter.restore();
}

} // namespace

bool PrintManual(const Manual& manual, QPagedPaintDevice& paper) {
    QPainter painter;
    if (!painter.begin(&paper)) {
        return false;
    }
    const double mmX = paper.logicalDpiX() / kMmPerInch;
    const double mmY = paper.logicalDpiY() / kMmPerInch;
    QTextDocument text;
    text.documentLayout()->setPaintDevice(&paper);
    text.setDocumentMargin(0.0);
    text.setMetaInformation(QTextDocument::DocumentUrl, manual.url(manual.home()).toString());
    // Once to see where the pages come to stand, once with their numbers.
    std::vector<int> sheets;
    for (int round = 0; round < 2; ++round) {
        text.setHtml(WholeText(manual, sheets));
        text.setPageSize({paper.width() - 2.0 * kMarginMm * mmX,
                          paper.height() - (2.0 * kMarginMm + kFootMm) * mmY});
        KeepHeadings(text);
        sheets = Beginnings(text);
    }
    painter.translate(kMarginMm * mmX, kMarginMm * mmY);
    const QRectF foot(0.0, text.pageSize().height(), text.pageSize().width(), kFootMm * mmY);
    bool good = true;
    for (int sheet = 0; good && sheet < text.pageCount(); ++sheet) {
        good = sheet == 0 || paper.newPage();
        if (good) {
            DrawSheet(painter, text, sheet, kHairMm * mmY);
            painter.setPen(Qt::black);
            painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom, QString::number(sheet + 1));
        }
    }
    return painter.end() && good;
}

} // namespace qdw8
