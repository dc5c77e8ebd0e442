#pragma once

#include <string>
#include <vector>

namespace qdw8::test {

/// Widths of a Latin and of a Japanese character and the height of a line, by the font's size.
struct Face {
    double latin;
    double japanese;
    double height;
};
inline constexpr Face kGothic{0.5, 1.0, 1.0};

/// A printer that remembers what it was told to put where. It is the printer of the platform in
/// force while that lives.
class PageRecorder {
public:
    struct Text {
        int page;
        double x, y, width, height, points;
        bool bold;
        std::string text;
    };
    struct Rule {
        int page;
        double x1, x2, y;
    };

    PageRecorder();

    /// Nothing printed yet.
    void clear();
    /// Fails the test where a text lies over another or over a rule, in the foot, or beyond an
    /// edge.
    void expectLegible() const;
    /// A line for each text and rule, as they came.
    std::string told() const;

    Face face = kGothic;
    double width = 200; ///< that can be printed on: A4 less 5 mm at each side
    double height = 287;
    std::string font;
    std::vector<Text> texts;
    std::vector<Rule> rules;
    int pages = 0;     ///< of the documents that went out
    int failsAt = -1;  ///< so many texts are good, then the printer fails
    std::string saved; ///< path of a PDF file

private:
    double widthOf(const std::string& text) const;

    double points = 0;
    bool bold = false;
    int page = 1;
};

} // namespace qdw8::test
