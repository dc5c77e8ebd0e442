#include "position/posi_reader.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/number_forms.h"
#include "app/waits.h"
#include "device/axis_device.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "platform/whole_file.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace qdw8 {

namespace {

struct State {
    std::int16_t first = 0;
    std::int16_t last = 0;
    Flag hasRows = kClear;
    Flag commentCut = kClear;
    bool leftOpen = false; ///< a file that was refused for its first field is left open
};
State state;

/// No row has a longer field but for the comment, and no file so many rows: what has is no position
/// file, and nobody waits for its end.
constexpr std::size_t kLongestField = 1000;
constexpr int kMostRows = 20'000;

/// The bytes of the code page in which the 40 characters of a comment, and one more, have room.
constexpr std::size_t kCommentBytes = 82;

std::string ShortField(FieldReader& fields) {
    std::string field = fields.next();
    if (field.size() > kLongestField) {
        throw Fault("a field is longer than any name or number");
    }
    return field;
}

std::string Comment(FieldReader& fields) {
    const std::string field = fields.next();
    BoundText comment = BoundCellText(kComment, FromCp932(field.substr(0, kCommentBytes)));
    if (comment.cut) {
        FileCommentCut = kSet;
    }
    return std::move(comment.text);
}

bool IsWord(const std::string& text) {
    return text == "NEW" || text == "OLD";
}

void ReadFour(FieldReader& fields, std::array<std::string, kAxes>& texts) {
    for (std::string& text : texts) {
        text = FromCp932(ShortField(fields));
    }
}

void ReadRow(FieldReader& fields, bool first) {
    const std::int16_t position = ToInt16(NumberFromText(ShortField(fields)));
    if (position < 0 || position > kLastPosition) {
        throw Fault("there is no such position");
    }
    if (first) {
        FileFirst = position;
    }
    FileLast = position;
    StageRow& row = PosiStage[static_cast<std::size_t>(position)];
    for (std::size_t column = 1; column <= kComment; ++column) {
        row[column] = ShortField(fields);
    }
    row[kComment + 1] = Comment(fields);
    FileHasRowsFlag = kSet;
}

/// Everything behind the magic.
void ReadBody(FieldReader fields) {
    ReadFour(fields, FileDevText);
    FieldReader rows = fields;
    ReadFour(rows, FileNewOld);
    if (std::none_of(FileNewOld.begin(), FileNewOld.end(), IsWord)) {
        // The older form has no line of types: what was read is the beginning of the first row.
        FileNewOld.fill("OLD");
        rows = fields;
    }
    for (int count = 0; !rows.atEnd(); ++count) {
        if (count == kMostRows) {
            throw Fault("a file of more rows than there are positions");
        }
        ReadRow(rows, count == 0);
    }
}

} // namespace

std::int16_t& FileFirst = state.first;
std::int16_t& FileLast = state.last;
Flag& FileHasRowsFlag = state.hasRows;
Flag& FileCommentCut = state.commentCut;

std::int16_t ReadPosiFile(const std::string& path) {
    FileHasRowsFlag = kClear;
    FileCommentCut = kClear;
    if (state.leftOpen) {
        state.leftOpen = false;
        return 1;
    }
    try {
        FieldReader fields(ReadWholeFile(path));
        if (fields.next() != "QD-K8") {
            state.leftOpen = true;
            ShowTexts({21, 20});
            return 0;
        }
        ReadBody(std::move(fields));
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

bool ReadPosiFileWithTries(const std::string& path) {
    const bool read = SixTries([&path] { return ReadPosiFile(path) == 0; });
    if (!read) {
        ShowTexts({484});
    }
    return read;
}

void ResetPosiReader() {
    state = State{};
}

} // namespace qdw8
