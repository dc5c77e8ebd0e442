#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/printed_pages.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shared_printer.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QLibrary>
#include <QLineF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRawFont>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace qdw8 {
namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kMmPerPoint = kMmPerInch / 72.0;
constexpr double kLineWidthMm = 0.15;
/// Hardly any printer reaches the very edge of its paper.
constexpr double kLeastMarginMm = 5.0;
/// Of the sheet, mm: on less of it the forms can't be laid out. Margins go no further.
constexpr QSizeF kLeastPageMm(138.0, 200.0);
constexpr QLatin1String kSystemName("QD-W8");
constexpr int kPdfDpi = 1200;
/// Glyphs are drawn in hundredths of a millimetre: a font has no sizes below one pixel.
constexpr double kUnitsPerMm = 100.0;
/// Where the base line lies in the height of a line, as in the faces that the forms are laid out
/// for. What a face says of itself differs, up to half the height again, and would push one line
/// over the next.
constexpr double kBaseLine = 0.86;
constexpr double kMeasuredAt = 1000.0; ///< pixels

/// Texts of one size: all of a page is drawn at one go, which is ten times as fast as one by one.
struct GlyphsOfSize {
    bool bold = false;
    double points = 0.0;
    QRawFont font;
    QList<quint32> indexes;
    QList<QPointF> places; ///< hundredths of a millimetre
};
/// A text with a character that the face lacks.
struct PatchedText {
    QFont font;
    QPointF place;
    QString text;
};
struct Page {
    std::vector<GlyphsOfSize> glyphs;
    std::vector<PatchedText> patched;
    std::vector<QLineF> lines; ///< mm
};

/// One of the two weights of the face in force.
struct Weight {
    QFont font;
    QRawFont glyphs; ///< at the size at which texts are measured
    QHash<quint32, double> advances;
};

struct Document {
    QString name;
    std::array<Weight, 2> weights; ///< normal, bold
    double points = 11.0;
    bool bold = false;
    std::vector<Page> pages; ///< empty: no document has begun
    QString title;
};

Document& TheDocument() {
    static auto* document = new Document;
    return *document;
}

/// The forms are laid out for the fixed-width Japanese font of Windows. Elsewhere the next best
/// is a font of the system in which a Japanese character takes two columns as well.
QString FaceFor(const QString& wanted) {
    for (const QString& known : {wanted, QStringLiteral("MS Gothic"), QStringLiteral("IPAGothic"),
                                 QStringLiteral("Noto Sans Mono CJK JP"),
                                 QStringLiteral("TakaoGothic"), QStringLiteral("VL Gothic")}) {
        if (QFontDatabase::hasFamily(known)) {
            return known;
        }
    }
    const QStringList japanese = QFontDatabase::families(QFontDatabase::Japanese);
    const auto fixed = std::find_if(japanese.begin(), japanese.end(), [](const QString& family) {
        return QFontDatabase::isFixedPitch(family);
    });
    return fixed != japanese.end() ? *fixed
           : japanese.isEmpty()    ? QStringLiteral("monospace")
                                   : japanese.front();
}

void SetFontName(Document& document, const QString& name) {
    if (document.name == name) {
        return;
    }
    document.name = name;
    const QString face = FaceFor(name);
    for (const bool bold : {false, true}) {
        QFont font(face);
        font.setStyleHint(QFont::Monospace);
        font.setBold(bold);
        font.setPixelSize(static_cast<int>(kMeasuredAt));
        document.weights[bold ? 1 : 0] = {font, QRawFont::fromFont(font), {}};
    }
}

Weight& WeightOf(Document& document) {
    return document.weights[document.bold ? 1 : 0];
}

double SizeMm(const Document& document) {
    return document.points * kMmPerPoint;
}

double AdvanceOf(Weight& weight, quint32 glyph) {
    const auto known = weight.advances.constFind(glyph);
    if (known != weight.advances.constEnd()) {
        return *known;
    }
    const double advance = weight.glyphs.advancesForGlyphIndexes({glyph}).value(0).x();
    weight.advances.insert(glyph, advance);
    return advance;
}

/// The glyphs of a text; nothing if the face lacks one.
QList<quint32> GlyphsOf(const Weight& weight, const QString& text) {
    const QList<quint32> glyphs = weight.glyphs.glyphIndexesForString(text);
    return glyphs.contains(0) ? QList<quint32>() : glyphs;
}

double TextWidth(Document& document, const QString& text) {
    Weight& weight = WeightOf(document);
    const QList<quint32> glyphs = GlyphsOf(weight, text);
    double width = 0.0;
    for (const quint32 glyph : glyphs) {
        width += AdvanceOf(weight, glyph);
    }
    if (glyphs.isEmpty()) {
        width = QFontMetricsF(weight.font).horizontalAdvance(text);
    }
    return width / kMeasuredAt * SizeMm(document);
}

Page& CurrentPage(Document& document) {
    if (document.pages.empty()) {
        document.pages.emplace_back();
    }
    return document.pages.back();
}

GlyphsOfSize& GlyphsInForce(Document& document, Page& page) {
    for (GlyphsOfSize& glyphs : page.glyphs) {
        if (glyphs.bold == document.bold && glyphs.points == document.points) {
            return glyphs;
        }
    }
    QRawFont font = WeightOf(document).glyphs;
    font.setPixelSize(SizeMm(document) * kUnitsPerMm);
    page.glyphs.push_back({document.bold, document.points, font, {}, {}});
    return page.glyphs.back();
}

void Print(Document& document, double x, double y, const QString& text) {
    Weight& weight = WeightOf(document);
    Page& page = CurrentPage(document);
    const double size = SizeMm(document) * kUnitsPerMm;
    QPointF place(x * kUnitsPerMm, y * kUnitsPerMm + size * kBaseLine);
    const QList<quint32> glyphs = GlyphsOf(weight, text);
    if (glyphs.isEmpty()) {
        QFont font = weight.font;
        font.setPixelSize(std::max(1, qRound(size)));
        page.patched.push_back({font, place, text});
        return;
    }
    GlyphsOfSize& drawn = GlyphsInForce(document, page);
    for (const quint32 glyph : glyphs) {
        drawn.indexes.push_back(glyph);
        drawn.places.push_back(place);
        place.rx() += AdvanceOf(weight, glyph) / kMeasuredAt * size;
    }
}

QPageLayout LayoutMm() {
    QPageLayout layout = SharedPrinter().pageLayout();
    layout.setUnits(QPageLayout::Millimeter);
    return layout;
}

/// Two margins that face one another, at least as wide as `least` and leaving `room` between them.
std::pair<double, double> Facing(std::pair<double, double> wanted, std::pair<double, double> least,
                                 double sheet, double room) {
    const double first = std::max(0.0, wanted.first - least.first);
    const double second = std::max(0.0, wanted.second - least.second);
    const double most = std::max(0.0, sheet - room - least.first - least.second);
    const double scale = first + second > most ? most / (first + second) : 1.0;
    return {least.first + first * scale, least.second + second * scale};
}

QMarginsF MarginsMm() {
    const QPageLayout layout = LayoutMm();
    const QMarginsF set = layout.margins();
    const QMarginsF printer = layout.minimumMargins();
    const QSizeF sheet = layout.fullRect().size();
    const auto least = [](double margin) { return std::max(kLeastMarginMm, margin); };
    const auto [left, right] =
        Facing({set.left(), set.right()}, {least(printer.left()), least(printer.right())},
               sheet.width(), kLeastPageMm.width());
    const auto [top, bottom] =
        Facing({set.top(), set.bottom()}, {least(printer.top()), least(printer.bottom())},
               sheet.height(), kLeastPageMm.height());
    return {left, top, right, bottom};
}

QSizeF UsableMm() {
    const QMarginsF margins = MarginsMm();
    return SheetMm() - QSizeF(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void DrawPage(QPainter& painter, const Page& page) {
    const QMarginsF margins = MarginsMm();
    painter.save();
    painter.translate(margins.left(), margins.top());
    painter.setPen(QPen(Qt::black, kLineWidthMm));
    for (const QLineF& line : page.lines) {
        painter.drawLine(line);
    }
    painter.scale(1.0 / kUnitsPerMm, 1.0 / kUnitsPerMm);
    for (const GlyphsOfSize& glyphs : page.glyphs) {
        QGlyphRun run;
        run.setRawFont(glyphs.font);
        run.setGlyphIndexes(glyphs.indexes);
        run.setPositions(glyphs.places);
        painter.drawGlyphRun(QPointF(), run);
    }
    for (const PatchedText& patched : page.patched) {
        painter.setFont(patched.font);
        painter.drawText(patched.place, patched.text);
    }
    painter.restore();
}

/// All pages on a paged device of that many dots an inch. False: given up behind a page.
template<typename Device>
bool DrawPages(const std::vector<Page>& pages, Device& device, const PageDone& pageDone) {
    QPainter painter;
    if (!painter.begin(&device)) {
        throw Fault("the printer can't be used");
    }
    painter.scale(device.logicalDpiX() / kMmPerInch, device.logicalDpiY() / kMmPerInch);
    int done = 0;
    for (const Page& page : pages) {
        if (done > 0 && !device.newPage()) {
            throw Fault("the printer gave up at a new page");
        }
        DrawPage(painter, page);
        ++done;
        if (pageDone && !pageDone(done)) {
            return false;
        }
    }
    if (!painter.end()) {
        throw Fault("the printer failed");
    }
    return true;
}

bool WritePdf(const std::vector<Page>& pages, const QString& path, const PageDone& pageDone) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        throw Fault("the file can't be written");
    }
    QPageLayout layout = LayoutMm();
    layout.setMinimumMargins({});
    layout.setMargins({});
    QPdfWriter writer(&file);
    writer.setResolution(kPdfDpi);
    writer.setPageLayout(layout);
    writer.setTitle(TheDocument().title);
    if (!DrawPages(pages, writer, pageDone)) {
        return false;
    }
    if (!file.commit()) {
        throw Fault("the file can't be written");
    }
    return true;
}

/// Whether the printing system took the job that was handed to it last. Qt itself lets its answer
/// drop, and says of a printer that refuses everything that all went well.
bool JobTaken() {
    constexpr int kFirstError = 0x100; // below are the shades of success
    using LastError = int (*)();
    static const auto lastError =
        reinterpret_cast<LastError>(QLibrary::resolve(QStringLiteral("cups"), 2, "cupsLastError"));
    return lastError == nullptr || lastError() < kFirstError;
}

bool PrintPages(std::vector<Page> pages, const PageDone& pageDone) {
    QPrinter& printer = SharedPrinter();
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        if (printer.outputFileName().isEmpty()) {
            throw Fault("there is no printer");
        }
        return WritePdf(pages, printer.outputFileName(), pageDone);
    }
    // A job once begun can't be called back: its end hands over what was drawn so far. So all is
    // drawn into memory first, where it can be given up.
    QBuffer memory;
    memory.open(QIODevice::WriteOnly);
    QPdfWriter rehearsal(&memory);
    if (!DrawPages(pages, rehearsal, pageDone)) {
        return false;
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst) {
        std::reverse(pages.begin(), pages.end());
    }
    printer.setDocName(TheDocument().title);
    DrawPages(pages, printer, {});
    printer.setDocName(kSystemName); // of what else is printed
    if (printer.printerState() == QPrinter::Error || !JobTaken()) {
        throw Fault("the printer failed");
    }
    return true;
}

bool EndDoc(Document& document, const PageDone& pageDone) {
    std::vector<Page> pages = std::exchange(document.pages, {});
    return pages.empty() || PrintPages(std::move(pages), pageDone);
}

} // namespace

QPrinter& SharedPrinter() {
    static std::unique_ptr<QPrinter> printer;
    if (!printer) {
        printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setDocName(kSystemName);
        printer->setFullPage(true);
        printer->setPageSize(QPageSize(QPageSize::A4));
        printer->setPageMargins({}, QPageLayout::Millimeter);
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
    ShowMarginsUsed();
}

void ShowMarginsUsed() {
    SharedPrinter().setFullPage(true);
    SharedPrinter().setPageMargins(MarginsMm(), QPageLayout::Millimeter);
}

int PrintedPages() {
    return static_cast<int>(TheDocument().pages.size());
}

QSizeF SheetMm() {
    return LayoutMm().fullRect().size();
}

void DrawPrintedPage(QPainter& painter, int page) {
    DrawPage(painter, TheDocument().pages.at(static_cast<std::size_t>(page)));
}

void InstallQtPrinter() {
    Document& document = TheDocument();
    document = Document{};
    SetFontName(document, QStringLiteral("MS GOTHIC"));

    Printer& paper = ThePlatform().ThePrinter;
    paper.SetTitle = [&document](const std::string& title) {
        document.title = QString::fromStdString(title);
    };
    paper.SetFontName = [&document](const std::string& name) {
        SetFontName(document, QString::fromStdString(name));
    };
    paper.SetFontSize = [&document](double points) {
        if (!(points > 0.0)) {
            throw Fault("bad font size");
        }
        document.points = points;
    };
    paper.SetFontBold = [&document](bool bold) { document.bold = bold; };
    paper.ScaleWidth = [] { return UsableMm().width(); };
    paper.ScaleHeight = [] { return UsableMm().height(); };
    paper.TextWidth = [&document](const std::string& text) {
        return TextWidth(document, QString::fromStdString(text));
    };
    paper.TextHeight = [&document](const std::string&) { return SizeMm(document); };
    paper.Print = [&document](double x, double y, const std::string& text) {
        Print(document, x, y, QString::fromStdString(text));
    };
    paper.Line = [&document](double x1, double y1, double x2, double y2) {
        CurrentPage(document).lines.emplace_back(x1, y1, x2, y2);
    };
    paper.NewPage = [&document] {
        CurrentPage(document);
        document.pages.emplace_back();
    };
    paper.EndDoc = [&document](const PageDone& pageDone) { return EndDoc(document, pageDone); };
    paper.SavePdf = [&document](const std::string& path, const PageDone& pageDone) {
        return WritePdf(document.pages, QString::fromStdString(path), pageDone);
    };
    paper.KillDoc = [&document] { document.pages.clear(); };
}

} // namespace qdw8
