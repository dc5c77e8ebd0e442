#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shared_printer.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>

#include <memory>
#include <vector>

namespace qdw8 {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kLineWidthMm = 0.15;

/// One text or line on a page. All lengths in mm.
struct Mark {
    bool isLine = false;
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
    QFont font;
    QString text;
};

using Page = std::vector<Mark>;

struct PrinterState {
    QFont font;
    std::vector<Page> pages; ///< empty: no document has begun
};

/// The forms are laid out for the fixed-width Japanese font of Windows. Elsewhere the next best
/// is a font of the system in which a Japanese character takes two columns as well.
QFont FontByName(const QString& name) {
    QFont font;
    font.setFamilies({name, QStringLiteral("MS Gothic"), QStringLiteral("IPAGothic"),
                      QStringLiteral("Noto Sans Mono CJK JP"), QStringLiteral("TakaoGothic"),
                      QStringLiteral("VL Gothic"), QStringLiteral("monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    return font;
}

void SetFontName(PrinterState& state, const std::string& name) {
    const double size = state.font.pointSizeF();
    const bool bold = state.font.bold();
    state.font = FontByName(QString::fromStdString(name));
    state.font.setPointSizeF(size);
    state.font.setBold(bold);
}

QSizeF SheetMm() {
    return SharedPrinter().pageLayout().fullRect(QPageLayout::Millimeter).size();
}

double MmPerUnitX() {
    return kMmPerInch / SharedPrinter().logicalDpiX();
}
double MmPerUnitY() {
    return kMmPerInch / SharedPrinter().logicalDpiY();
}

Page& CurrentPage(PrinterState& state) {
    if (state.pages.empty()) {
        state.pages.emplace_back();
    }
    return state.pages.back();
}

void DrawMark(QPainter& painter, const Mark& mark, double toX, double toY) {
    if (mark.isLine) {
        painter.setPen(QPen(Qt::black, kLineWidthMm * toX));
        painter.drawLine(QPointF(mark.x1 * toX, mark.y1 * toY),
                         QPointF(mark.x2 * toX, mark.y2 * toY));
        return;
    }
    painter.setPen(Qt::black);
    painter.setFont(mark.font);
    const double ascent = QFontMetricsF(mark.font, painter.device()).ascent();
    painter.drawText(QPointF(mark.x1 * toX, mark.y1 * toY + ascent), mark.text);
}

void PrintPages(const std::vector<Page>& pages) {
    QPrinter& printer = SharedPrinter();
    if (printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty()) {
        throw Fault("there is no printer");
    }
    QPainter painter;
    if (!painter.begin(&printer)) {
        throw Fault("the printer can't be used");
    }
    bool firstPage = true;
    for (const Page& page : pages) {
        if (!firstPage && !printer.newPage()) {
            printer.abort(); // nothing of the document is to come out
            throw Fault("the printer gave up at a new page");
        }
        firstPage = false;
        for (const Mark& mark : page) {
            DrawMark(painter, mark, 1.0 / MmPerUnitX(), 1.0 / MmPerUnitY());
        }
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error) {
        throw Fault("the printer failed");
    }
}

void EndDoc(PrinterState& state) {
    const std::vector<Page> pages = std::move(state.pages);
    state.pages.clear();
    if (!pages.empty()) {
        PrintPages(pages);
    }
}

} // namespace

QPrinter& SharedPrinter() {
    static std::unique_ptr<QPrinter> printer;
    if (!printer) {
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setFullPage(true);
        printer->setPageSize(QPageSize(QPageSize::A4));
        // It talks to a part of Qt that goes with the application object.
        qAddPostRoutine([] { printer.reset(); });
    }
    return *printer;
}

void SetPrinterOutputFile(const std::string& path) {
    QPrinter& printer = SharedPrinter();
    // An empty name goes back to the default printer by itself; a name that ends otherwise than
    // in ".pdf" would not be taken for a PDF file.
    printer.setOutputFileName(QString::fromStdString(path));
    if (!path.empty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
    }
    printer.setFullPage(true);
}

void InstallQtPrinter() {
    auto state = std::make_shared<PrinterState>();
    state->font = FontByName(QStringLiteral("MS GOTHIC"));
    state->font.setPointSizeF(11.0);

    Printer& paper = ThePlatform().ThePrinter;
    paper.SetFontName = [state](const std::string& name) { SetFontName(*state, name); };
    paper.SetFontSize = [state](double points) {
        if (!(points > 0.0)) {
            throw Fault("bad font size");
        }
        state->font.setPointSizeF(points);
    };
    paper.SetFontBold = [state](bool bold) { state->font.setBold(bold); };
    paper.ScaleWidth = [] { return SheetMm().width(); };
    paper.ScaleHeight = [] { return SheetMm().height(); };
    paper.TextWidth = [state](const std::string& text) {
        const QFontMetricsF metrics(state->font, &SharedPrinter());
        return metrics.horizontalAdvance(QString::fromStdString(text)) * MmPerUnitX();
    };
    paper.TextHeight = [state](const std::string&) {
        return QFontMetricsF(state->font, &SharedPrinter()).height() * MmPerUnitY();
    };
    paper.Print = [state](double x, double y, const std::string& text) {
        CurrentPage(*state).push_back(
            {false, x, y, 0.0, 0.0, state->font, QString::fromStdString(text)});
    };
    paper.Line = [state](double x1, double y1, double x2, double y2) {
        CurrentPage(*state).push_back({true, x1, y1, x2, y2, {}, {}});
    };
    paper.NewPage = [state] {
        CurrentPage(*state);
        state->pages.emplace_back();
    };
    paper.EndDoc = [state] { EndDoc(*state); };
    paper.KillDoc = [state] { state->pages.clear(); };
}

} // namespace qdw8
