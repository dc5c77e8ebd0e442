#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QFile>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

class QtPrinter : public ::testing::Test {
protected:
    QtPrinter() {
        InstallQtPrinter();
        SetPrinterOutputFile(file.toStdString());
        paper.SetFontName("MS GOTHIC");
        paper.SetFontSize(11);
    }
    ~QtPrinter() override { SetPrinterOutputFile(""); }

    QByteArray pdf() const {
        QFile printed(file);
        return printed.open(QIODevice::ReadOnly) ? printed.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QString file = folder.filePath("page.pdf");
    Printer& paper = ThePlatform().ThePrinter;
};

/// The drawing commands of a PDF file: its streams, unpacked.
QString DrawingOf(const QByteArray& pdf) {
    QString drawing;
    for (qsizetype at = pdf.indexOf("stream\n"); at >= 0; at = pdf.indexOf("stream\n", at + 1)) {
        const qsizetype begin = at + 7;
        // A packed stream begins with an "x".
        const qsizetype end = pdf.indexOf("endstream", begin);
        if (pdf.mid(at - 3, 3) == "end" || end < 0 || pdf.at(begin) != 'x') {
            continue;
        }
        // Qt's unpacker wants the unpacked size in front, and takes it as a mere hint.
        drawing += QString::fromLatin1(
            qUncompress(QByteArray("\0\0\x10\0", 4) + pdf.mid(begin, end - begin)));
    }
    return drawing;
}

TEST_F(QtPrinter, MeasuresInMillimetres) {
    EXPECT_NEAR(paper.ScaleWidth(), 210.0, 0.5);
    EXPECT_NEAR(paper.ScaleHeight(), 297.0, 0.5);
    const double width = paper.TextWidth("A");
    const double height = paper.TextHeight("A");
    // 11 points are 3.9 mm.
    EXPECT_GT(height, 3.5);
    EXPECT_LT(height, 7.5);
    EXPECT_GT(width, 1.0);
    EXPECT_NEAR(paper.TextWidth("iW-0."), 5.0 * width, 0.1) << "the font has no fixed width";
    paper.SetFontSize(22);
    EXPECT_NEAR(paper.TextWidth("A"), 2.0 * width, 0.1);
    EXPECT_NEAR(paper.TextHeight("A"), 2.0 * height, 0.3);
    EXPECT_THROW(paper.SetFontSize(0), Fault);
}

TEST_F(QtPrinter, PagesAndPlacesComeOutAsDrawn) {
    paper.Line(10, 20, 200, 20);
    paper.NewPage();
    paper.Print(20, 30, "位置 No.1");
    EXPECT_TRUE(pdf().isEmpty()) << "nothing is printed before the document ends";
    paper.EndDoc();

    const QByteArray document = pdf();
    EXPECT_TRUE(document.contains("/Count 2")) << document.size();

    // A line from one point to another in units of the page, which a matrix turns into points.
    const QRegularExpression scaling("([\\d.]+) 0 0 -([\\d.]+) 0 ([\\d.]+) cm");
    const QRegularExpression line("([\\d.]+) ([\\d.]+) m\\s+([\\d.]+) ([\\d.]+) l");
    const QString drawing = DrawingOf(document);
    const auto scale = scaling.match(drawing);
    const auto stroke = line.match(drawing);
    ASSERT_TRUE(scale.hasMatch() && stroke.hasMatch()) << drawing.left(500).toStdString();
    const double mm = scale.captured(1).toDouble() / 72.0 * 25.4;
    EXPECT_NEAR(stroke.captured(1).toDouble() * mm, 10.0, 0.1);
    EXPECT_NEAR(stroke.captured(2).toDouble() * mm, 20.0, 0.1);
    EXPECT_NEAR(stroke.captured(3).toDouble() * mm, 200.0, 0.1);
    EXPECT_NEAR(stroke.captured(4).toDouble() * mm, 20.0, 0.1);
}

TEST_F(QtPrinter, ADroppedDocumentPrintsNothing) {
    paper.Print(20, 30, "first");
    paper.KillDoc();
    paper.KillDoc();
    paper.EndDoc();
    EXPECT_FALSE(QFile::exists(file));

    paper.Print(20, 30, "second");
    paper.EndDoc();
    EXPECT_TRUE(pdf().contains("/Count 1"));
}

TEST_F(QtPrinter, AFailingPrinterFaultsAndTheNextDocumentIsFresh) {
    SetPrinterOutputFile(folder.filePath("missing/page.pdf").toStdString());
    paper.Print(20, 30, "lost");
    EXPECT_THROW(paper.EndDoc(), Fault);
    SetPrinterOutputFile(file.toStdString());
    EXPECT_NO_THROW(paper.EndDoc());
    EXPECT_FALSE(QFile::exists(file)) << "the lost document came back";

    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        SetPrinterOutputFile("");
        paper.Print(20, 30, "nowhere");
        EXPECT_THROW(paper.EndDoc(), Fault);
    }
}

} // namespace
} // namespace qdw8
