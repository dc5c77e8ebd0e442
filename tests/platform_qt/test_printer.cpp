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
    /// The drawing commands of the PDF file: its streams that are packed, unpacked.
    QString drawing() const {
        const QByteArray document = pdf();
        QString result;
        for (qsizetype at = 0; (at = document.indexOf("stream\nx", at)) >= 0; ++at) {
            // Qt's unpacker wants the unpacked size in front, and takes it as a mere hint.
            result += qUncompress(QByteArray("\0\0\x10\0", 4) + document.mid(at + 7));
        }
        return result;
    }

    QTemporaryDir folder;
    QString file = folder.filePath("page.pdf");
    Printer& paper = ThePlatform().ThePrinter;
};

TEST_F(QtPrinter, MeasuresInMillimetres) {
    EXPECT_NEAR(paper.ScaleWidth(), 210.0, 0.5);
    EXPECT_NEAR(paper.ScaleHeight(), 297.0, 0.5);
    const double width = paper.TextWidth("A");
    EXPECT_NEAR(paper.TextWidth("iW-0."), 5.0 * width, 0.1) << "the font has no fixed width";
    paper.SetFontSize(22);
    EXPECT_NEAR(paper.TextWidth("A"), 2.0 * width, 0.1);
    EXPECT_NEAR(paper.TextHeight("A"), 11, 4); // 22 points are 7.8 mm
    EXPECT_THROW(paper.SetFontSize(0), Fault);
}

TEST_F(QtPrinter, PagesAndPlacesComeOutAsDrawn) {
    paper.Line(10, 20, 200, 20);
    paper.NewPage();
    paper.Print(20, 30, "位置 No.1");
    EXPECT_TRUE(pdf().isEmpty()) << "nothing is printed before the document ends";
    paper.EndDoc();
    EXPECT_TRUE(pdf().contains("/Count 2"));
    // A line from one point to another in units of the page, which a matrix turns into points.
    const QRegularExpression form("([\\d.]+) 0 0 -[\\d.]+ 0 [\\d.]+ cm[\\s\\S]*?"
                                  "([\\d.]+) ([\\d.]+) m\\s+([\\d.]+) ([\\d.]+) l");
    const QStringList found = form.match(drawing()).capturedTexts();
    ASSERT_EQ(found.size(), 6) << drawing().left(500).toStdString();
    const double places[] = {10, 20, 200, 20};
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(found[i + 2].toDouble() * found[1].toDouble() / 72.0 * 25.4, places[i], 0.1);
    }
}

TEST_F(QtPrinter, ADroppedOrFailedDocumentPrintsNothingAndTheNextOneIsFresh) {
    paper.Print(20, 30, "dropped");
    paper.KillDoc();
    paper.KillDoc();
    SetPrinterOutputFile(folder.filePath("missing/page.pdf").toStdString());
    paper.Print(20, 30, "lost");
    EXPECT_THROW(paper.EndDoc(), Fault);
    SetPrinterOutputFile(file.toStdString());
    paper.EndDoc();
    EXPECT_FALSE(QFile::exists(file));
    paper.Print(20, 30, "second");
    paper.EndDoc();
    EXPECT_TRUE(pdf().contains("/Count 1"));
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        SetPrinterOutputFile("");
        paper.Print(20, 30, "nowhere");
        EXPECT_THROW(paper.EndDoc(), Fault);
    }
}

} // namespace
} // namespace qdw8
