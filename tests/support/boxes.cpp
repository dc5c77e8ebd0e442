#include "support/boxes.h"

#include "support/story.h"

namespace qdw8::test {

std::string BoxText(const std::string& name) {
    static const auto boxes = RowsOf("support/boxes.txt");
    const auto named = [&name](const auto& row) { return row[0] == name; };
    return std::find_if(boxes.begin(), boxes.end(), named)->at(1);
}

} // namespace qdw8::test
