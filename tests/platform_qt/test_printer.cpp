#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shared_printer.h"

#include <QFile>
#include <QPageLayout>
#include <QPrinter>
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
    EXPECT_NEAR(paper.ScaleWidth(), 200.0, 0.5); // of 210, the margins left out
    EXPECT_NEAR(paper.ScaleHeight(), 287.0, 0.5);
    for (const double set : {90.0, 30.0, 0.0}) {
        SharedPrinter().setPageMargins({set, set, set, set}, QPageLayout::Millimeter);
        ShowMarginsUsed();
        const double used = SharedPrinter().pageLayout().margins(QPageLayout::Millimeter).left();
        EXPECT_NEAR(used, set == 90.0 ? 36.0 : set == 30.0 ? 30.0 : 5.0, 0.1);
        EXPECT_NEAR(paper.ScaleWidth(), 210.0 - 2 * used, 0.1);
    }
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
    paper.EndDoc({});
    EXPECT_TRUE(pdf().contains("/Count 2"));
    // A line from one point to another in the units of two matrices, page and sheet.
    const QRegularExpression form("([\\d.]+) 0 0 -[\\d.]+ 0 [\\d.]+ cm[\\s\\S]*?"
                                  "([\\d.]+) 0 0 [\\d.]+ ([\\d.]+) [\\d.]+ cm[^c]*?"
                                  "([\\d.]+) ([\\d.]+) m\\s+([\\d.]+) ([\\d.]+) l");
    const QStringList found = form.match(drawing()).capturedTexts();
    ASSERT_EQ(found.size(), 8) << drawing().left(500).toStdString();
    const double margin = 5;
    const double places[] = {10, 20, 200, 20};
    for (int i = 0; i < 4; ++i) {
        const double units = found[i + 4].toDouble() * found[2].toDouble() + found[3].toDouble();
        EXPECT_NEAR(units * found[1].toDouble() / 72.0 * 25.4, margin + places[i], 0.1);
    }
}

TEST_F(QtPrinter, ADroppedOrFailedDocumentPrintsNothingAndTheNextOneIsFresh) {
    paper.Print(20, 30, "dropped");
    paper.KillDoc();
    paper.KillDoc();
    SetPrinterOutputFile(folder.filePath("missing/page.pdf").toStdString());
    paper.Print(20, 30, "lost");
    EXPECT_THROW(paper.EndDoc({}), Fault);
    SetPrinterOutputFile(file.toStdString());
    paper.EndDoc({});
    EXPECT_FALSE(QFile::exists(file));
    paper.Print(20, 30, "second");
    paper.EndDoc({});
    EXPECT_TRUE(pdf().contains("/Count 1"));
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        SetPrinterOutputFile("");
        paper.Print(20, 30, "nowhere");
        EXPECT_THROW(paper.EndDoc({}), Fault);
    }
}

} // namespace
} // namespace qdw8
