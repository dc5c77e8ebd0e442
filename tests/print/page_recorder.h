#pragma once

#include "platform/fault.h"
#include "platform/platform.h"
#include "print/print_page.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace qdw8::test {

/// Widths of a Latin and of a Japanese character and the height of a line, by the font's size.
struct Face {
    double latin = 0.5;
    double japanese = 1.0;
    double height = 1.0;
};

/// A printer that remembers what it was told to put where. It is the printer of the platform in
/// force while that lives.
class PageRecorder {
public:
    struct Text {
        int page;
        double x, y, right, bottom, points;
        bool bold;
        std::string text;
    };
    struct Rule {
        int page;
        double x, y;
    };

    PageRecorder() {
        Printer& to = ThePlatform().ThePrinter;
        to.SetTitle = [this](const std::string& name) { title = name; };
        to.SetFontName = [this](const std::string& name) { font = name; };
        to.SetFontSize = [this](double size) { points = size; };
        to.SetFontBold = [this](bool on) { bold = on; };
        to.ScaleWidth = [this] { return width; };
        to.ScaleHeight = [this] { return height; };
        to.TextWidth = [this](const std::string& text) { return widthOf(text); };
        to.TextHeight = [this](const std::string&) { return lineHeight(); };
        to.Print = [this](double x, double y, const std::string& text) { print(x, y, text); };
        to.Line = [this](double x, double y, double, double) { rules.push_back({page, x, y}); };
        to.NewPage = [this] { ++page; };
        to.EndDoc = [this](const PageDone& pageDone) {
            const bool out = send(pageDone);
            pages += out ? std::exchange(page, 1) : 0;
            return out;
        };
        to.SavePdf = [this](const std::string& path, const PageDone& pageDone) {
            saved = path != "fails" ? path : throw Fault("no such folder");
            return send(pageDone);
        };
        to.KillDoc = [this] { page = 1; };
    }

    /// Nothing printed yet.
    void clear() {
        texts.clear();
        rules.clear();
        page = 1;
    }

    /// Fails the test where a text lies over another or over a rule, in the foot, or beyond an
    /// edge.
    void expectLegible() const {
        const double hair = 0.001;
        const double footTop = PrintBottom - PrintLineH;
        auto sorted = texts;
        std::sort(sorted.begin(), sorted.end(), [](const Text& a, const Text& b) {
            return std::pair(a.page, a.y) < std::pair(b.page, b.y);
        });
        for (auto a = sorted.begin(); a != sorted.end(); ++a) {
            const bool inFoot = a->y >= footTop - hair;
            EXPECT_TRUE(a->x >= 0 && a->y >= 0 && a->right <= PrintRight + hair) << a->text;
            EXPECT_LE(a->bottom, (inFoot ? height : footTop) + hair) << a->text;
            for (auto b = a + 1; b != sorted.end() && b->page == a->page && b->y < a->bottom - hair;
                 ++b) {
                EXPECT_TRUE(b->x >= a->right - hair || b->right <= a->x + hair)
                    << a->text << " and " << b->text;
            }
            for (const Rule& rule : rules) {
                EXPECT_TRUE(rule.page != a->page || rule.y <= a->y + hair ||
                            rule.y >= a->bottom - hair)
                    << a->text << " is struck";
            }
        }
    }

    /// A line for each text and rule, as they came.
    std::string told() const {
        std::ostringstream lines;
        for (const Text& it : texts) {
            lines << it.page << ' ' << it.x << ' ' << it.y << ' ' << it.points
                  << (it.bold ? "b " : " ") << it.text << '\n';
        }
        for (const Rule& it : rules) {
            lines << it.page << " rule " << it.x << ' ' << it.y << '\n';
        }
        return lines.str();
    }

    Face face;
    double width = 200; ///< that can be printed on: A4 less 5 mm at each side
    double height = 287;
    std::string font, title;
    std::vector<Text> texts;
    std::vector<Rule> rules;
    int pages = 0;     ///< of the documents that went out
    int failsAt = -1;  ///< so many texts are good, then the printer fails
    std::string saved; ///< path of a PDF file

private:
    void print(double x, double y, const std::string& text) {
        if (static_cast<int>(texts.size()) == failsAt) {
            throw Fault("out of paper");
        }
        texts.push_back({page, x, y, x + widthOf(text), y + lineHeight(), points, bold, text});
    }
    bool send(const PageDone& pageDone) const {
        int out = 0;
        while (out < page && (!pageDone || pageDone(out + 1))) {
            ++out;
        }
        return out == page;
    }
    double size() const { return points * 25.4 / 72; }
    double lineHeight() const { return size() * face.height; }
    double widthOf(const std::string& text) const {
        double ems = 0;
        for (const char byte : text) {
            const auto bits = static_cast<unsigned char>(byte);
            ems += bits < 0x80U ? face.latin : bits >= 0xC0U ? face.japanese : 0;
        }
        return ems * size();
    }

    double points = 0;
    bool bold = false;
    int page = 1;
};

} // namespace qdw8::test
