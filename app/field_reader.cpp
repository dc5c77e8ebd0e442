#include "app/field_reader.h"

#include "platform/fault.h"

namespace qdw8 {

std::string FieldReader::next() {
    if (atEnd()) {
        throw Fault("the file ends where a field is due");
    }
    while (!atEnd() && content[at] == ' ') {
        ++at;
    }
    std::string field;
    if (!atEnd() && content[at] == '"') {
        const std::size_t close = content.find('"', at + 1);
        if (close == std::string::npos) {
            at = content.size();
            throw Fault("a quoted field doesn't end");
        }
        field = content.substr(at + 1, close - at - 1);
        at = close + 1;
        while (!atEnd() && content[at] != ',' && !atLineEnd()) {
            ++at;
        }
    } else {
        const std::size_t begin = at;
        while (!atEnd() && content[at] != ',' && !atLineEnd()) {
            ++at;
        }
        field = content.substr(begin, at - begin);
    }
    endField();
    return field;
}

/// Steps over the comma or the one line end that ended a field.
void FieldReader::endField() {
    if (atEnd()) {
        return;
    }
    const char end = content[at++];
    if (end == '\r' && !atEnd() && content[at] == '\n') {
        ++at;
    }
}

std::string QuotedField(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

} // namespace qdw8
