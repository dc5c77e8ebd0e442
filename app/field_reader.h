#pragma once

#include <string>
#include <string_view>

namespace qdw8 {

/// Reads the comma-separated fields of a data or list file one after the other, over line ends.
///
/// Blanks before a field are skipped. A field that begins with a double quote runs to the next
/// double quote, and what follows up to the comma or line end is dropped. Any other field runs to
/// the next comma or line end. CR, CR LF and LF each end a line, and a line end ends a field.
class FieldReader {
public:
    explicit FieldReader(std::string text) : content(std::move(text)) {}

    /// True when nothing is left to read.
    bool atEnd() const { return at >= content.size(); }

    /// The next field. Throws `Fault` at the end of the text and for a quote that never closes.
    std::string next();

private:
    bool atLineEnd() const { return content[at] == '\r' || content[at] == '\n'; }
    void endField();

    std::string content;
    std::size_t at = 0;
};

/// A text as a field between double quotes; there is no escaping.
std::string QuotedField(std::string_view text);

} // namespace qdw8
