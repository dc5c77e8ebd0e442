#include "print/page_recorder.h"

#include "platform/fault.h"
#include "platform/platform.h"
#include "print/print_page.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace qdw8::test {
namespace {

constexpr double kMmPerPoint = 25.4 / 72;
constexpr double kHair = 0.001;

} // namespace

PageRecorder::PageRecorder() {
    Printer& printer = ThePlatform().ThePrinter;
    printer.SetFontName = [this](const std::string& name) { font = name; };
    printer.SetFontSize = [this](double size) { points = size; };
    printer.SetFontBold = [this](bool on) { bold = on; };
    printer.ScaleWidth = [this] { return width; };
    printer.ScaleHeight = [this] { return height; };
    printer.TextWidth = [this](const std::string& text) { return widthOf(text); };
    printer.TextHeight = [this](const std::string&) { return points * kMmPerPoint * face.height; };
    printer.Print = [this](double x, double y, const std::string& text) {
        if (failsAt >= 0 && static_cast<int>(texts.size()) >= failsAt) {
            throw Fault("out of paper");
        }
        texts.push_back(
            {page, x, y, widthOf(text), points * kMmPerPoint * face.height, points, bold, text});
    };
    printer.Line = [this](double x1, double y1, double x2, double) {
        rules.push_back({page, x1, x2, y1});
    };
    printer.NewPage = [this] { ++page; };
    const auto send = [this](const PageDone& pageDone) {
        for (int done = 1; done <= page; ++done) {
            if (pageDone && !pageDone(done)) {
                return false;
            }
        }
        return true;
    };
    printer.EndDoc = [this, send](const PageDone& pageDone) {
        const bool out = send(pageDone);
        pages += out ? page : 0;
        page = 1;
        return out;
    };
    printer.SavePdf = [this, send](const std::string& path, const PageDone& pageDone) {
        if (path == "fails") {
            throw Fault("no such folder");
        }
        saved = path;
        return send(pageDone);
    };
    printer.KillDoc = [this] { page = 1; };
}

void PageRecorder::clear() {
    texts.clear();
    rules.clear();
    page = 1;
}

double PageRecorder::widthOf(const std::string& text) const {
    double ems = 0;
    for (const char byte : text) {
        const auto bits = static_cast<unsigned char>(byte);
        ems += bits < 0x80U ? face.latin : bits >= 0xC0U ? face.japanese : 0;
    }
    return ems * points * kMmPerPoint;
}

void PageRecorder::expectLegible() const {
    const double footTop = PrintBottom - PrintLineH;
    std::vector<Text> sorted = texts;
    std::sort(sorted.begin(), sorted.end(), [](const Text& a, const Text& b) {
        return std::pair(a.page, a.y) < std::pair(b.page, b.y);
    });
    for (auto a = sorted.begin(); a != sorted.end(); ++a) {
        const double right = a->x + a->width;
        const double bottom = a->y + a->height;
        const bool inFoot = a->y >= footTop - kHair;
        EXPECT_TRUE(a->x >= 0 && a->y >= 0 && right <= PrintRight + kHair) << a->text;
        EXPECT_LE(bottom, (inFoot ? height : footTop) + kHair) << a->text;
        for (auto b = a + 1; b != sorted.end() && b->page == a->page && b->y < bottom - kHair;
             ++b) {
            EXPECT_TRUE(b->x >= right - kHair || b->x + b->width <= a->x + kHair)
                << a->text << " and " << b->text;
        }
        for (const Rule& rule : rules) {
            EXPECT_TRUE(rule.page != a->page || rule.y <= a->y + kHair || rule.y >= bottom - kHair)
                << a->text << " is struck";
        }
    }
}

std::string PageRecorder::told() const {
    std::ostringstream lines;
    for (const Text& it : texts) {
        lines << it.page << ' ' << it.x << ' ' << it.y << ' ' << it.points << (it.bold ? "b " : " ")
              << it.text << '\n';
    }
    for (const Rule& it : rules) {
        lines << it.page << " rule " << it.x1 << ' ' << it.x2 << ' ' << it.y << '\n';
    }
    return lines.str();
}

} // namespace qdw8::test
