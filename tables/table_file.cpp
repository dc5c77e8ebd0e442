#include "tables/table_file.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/number_forms.h"
#include "app/waits.h"
#include "platform/fault.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <cmath>
#include <exception>

namespace qdw8 {
namespace {

/// A thousand times what such a file needs: nobody waits for the end of a larger one.
constexpr std::size_t kLargestFile = std::size_t{1} << 20U;

std::int16_t WholeNumber(FieldReader& fields) {
    const double number = WholeNumberField(fields.next());
    if (number != std::floor(number)) {
        throw Fault("a number with a fraction");
    }
    return ToInt16(number);
}

/// Empty lines behind the last row are no rows, nor is the end mark of old editors.
constexpr const char* kNothing = " \t\r\n\x1A";

std::string WithoutEmptyEnd(std::string text) {
    text.resize(text.find_last_not_of(kNothing) + 1);
    return text;
}

/// A last row without its line's end may be cut in the middle of a number.
bool EndsItsLastLine(const std::string& text) {
    return text.find_first_of("\r\n", text.find_last_not_of(kNothing) + 1) != text.npos;
}

FileRead Read(const SmallTable& table, const std::string& path) {
    const std::string text = ReadWholeFile(path, kLargestFile);
    FieldReader fields(WithoutEmptyEnd(text));
    const std::string controller = fields.next();
    const std::string kind = fields.next();
    const auto& known = table.file.controllers;
    if (kind != table.file.kind ||
        std::find(known.begin(), known.end(), controller) == known.end()) {
        return FileRead::OtherKind;
    }
    if (!EndsItsLastLine(text)) {
        throw Fault("the last line has no end");
    }
    for (int i = 0; i < table.file.sizeFields; ++i) {
        fields.next(); // they decide nothing
    }
    Numbers numbers = table.take(Held::Compare);
    while (!fields.atEnd()) {
        const std::int16_t row = WholeNumber(fields);
        if (row < 1 || row > table.rows) {
            throw Fault("there is no such row");
        }
        for (int field = 0; field < table.fields; ++field) {
            numbers[IndexOf(table, row, field)] = WholeNumber(fields);
        }
    }
    table.put(Held::Compare, numbers);
    return FileRead::Good;
}

std::string FileText(const SmallTable& table) {
    const SmallTable::File& file = table.file;
    std::string text = QuotedField(file.controllers.front()) + "," + QuotedField(file.kind) +
                       "\r\n" + file.sizes + "\r\n";
    const Numbers numbers = table.take(Held::Shown);
    for (int row = 1; row <= table.rows; ++row) {
        text += QuotedField(std::to_string(row)) + (file.rowAlone ? "\r\n" : ",");
        for (int field = 0; field < table.fields; ++field) {
            text += std::to_string(numbers[IndexOf(table, row, field)]);
            text += (field + 1) % file.fieldsInLine == 0 ? "\r\n" : ",";
        }
    }
    return text;
}

} // namespace

FileRead ReadTableFile(const SmallTable& table, const std::string& path) {
    FileRead outcome = FileRead::Failed;
    try {
        outcome = Read(table, path);
    } catch (const std::exception&) {
        return FileRead::Failed;
    }
    if (outcome == FileRead::OtherKind && table.texts.otherKind != 0) {
        ShowTexts({table.texts.otherKind, 20});
    }
    return outcome;
}

bool ReadTableFileWithTries(const SmallTable& table, const std::string& path) {
    FileRead outcome = FileRead::Failed;
    SixTries([&] {
        outcome = ReadTableFile(table, path);
        return outcome != FileRead::Failed; // a second look at another kind finds the same
    });
    const bool told = outcome == FileRead::OtherKind && table.texts.otherKind != 0;
    if (outcome != FileRead::Good && !told) {
        ShowTexts({table.texts.readFailed});
    }
    return outcome == FileRead::Good;
}

std::int16_t WriteTableFile(const SmallTable& table, const std::string& path) {
    try {
        WriteWholeFile(path, FileText(table));
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

} // namespace qdw8
