#include "parameter/para_file.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/file_questions.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "app/waits.h"
#include "parameter/para_field_check.h"
#include "parameter/para_fields.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace qdw8 {

namespace {

struct Section {
    std::string_view name;
    std::size_t firstRow;
    std::size_t rows;
    std::size_t columns;
};

constexpr std::array<Section, 5> kSections = {{
    {"HOME", kRowOFFSET, 6, 4},
    {"AXIS", kRowSTROKE, 7, 4},
    {"PG", kRowFUNCTION, 2, 4},
    {"ETC", kRowHOME_OUT, 5, 1},
    {"SPECIAL", kRowAXIS, 7, 4},
}};

enum class Outcome { Taken, Failed, OtherKind };

/// Rows, columns and counts; a text counts as 0.
std::int16_t NextCount(FieldReader& fields) {
    return ToInt16(NumberFromText(fields.next()));
}

/// One section into the table, from the row on; returns the row behind it. Faults for a wrong name
/// and for a section that is larger than the table.
std::size_t ReadSection(FieldReader& fields, std::size_t index, std::size_t row, ParaRows& rows) {
    const std::size_t expected = std::min(index, kSections.size() - 1);
    if (fields.next() != kSections[expected].name) {
        throw Fault("a section has the wrong name");
    }
    const std::int16_t count = NextCount(fields);
    const std::int16_t columns = NextCount(fields);
    if (index == kSections.size() - 1) {
        // Older programs knew fewer items here.
        if (count == 6) {
            rows.at(0, kRowSTOP_PAUSE) = 0.0;
        }
        if (count == 6 || count == 7) {
            rows.at(0, kRowACC_DCC) = 0.0;
        }
    }
    for (std::int16_t i = 0; i < count; ++i, ++row) {
        for (std::int16_t column = 0; column < columns; ++column) {
            const std::string field = fields.next();
            ParaCell& cell = rows.cells.at(static_cast<std::size_t>(column)).at(row);
            // An actuator without a letter would look like a number.
            cell = row == kRowActuator ? ParaCell(field) : CellOfField(field);
        }
    }
    return row;
}

Outcome Read(const std::string& path) {
    try {
        FieldReader fields(FromCp932(ReadWholeFile(path)));
        const std::string controller = fields.next();
        const std::string kind = fields.next();
        if (controller != "QD-K8" || kind != "PRM") {
            ShowTexts({22, 20});
            return Outcome::OtherKind;
        }
        ParaRows rows;
        rows.at(0, kRowFileName) = std::filesystem::path(path).filename().string();
        const std::int16_t sections = NextCount(fields);
        if (sections < 1) {
            throw Fault("a file without sections");
        }
        std::size_t row = kRowOFFSET;
        for (std::int16_t i = 0; i < sections; ++i) {
            row = ReadSection(fields, static_cast<std::size_t>(i), row, rows);
        }
        ParaRowTable = std::move(rows);
        return Outcome::Taken;
    } catch (const std::exception&) {
        return Outcome::Failed;
    }
}

/// The line of a row: a value for each column, 0 where a common item stands in a wide section.
std::string RowLine(std::size_t row, std::size_t columns) {
    std::string line;
    for (std::size_t column = 0; column < columns; ++column) {
        line += column == 0 ? "" : ",";
        if (row == kRowActuator) {
            line += QuotedField(ParaSet.Actuator[column]);
            continue;
        }
        const ParaItem& item = ItemOfRow(static_cast<ParaRow>(row));
        const bool held = column == 0 || item.perAxis();
        line += held ? PlainDecimal(ParaValue(ParaSet, item, column)) : "0";
    }
    return line + "\r\n";
}

std::string FileText() {
    std::string text = QuotedField("QD-K8") + "," + QuotedField("PRM") + "\r\n";
    text += std::to_string(kSections.size()) + "\r\n";
    for (const Section& section : kSections) {
        text += QuotedField(section.name) + "," + std::to_string(section.rows) + "," +
                std::to_string(section.columns) + "\r\n";
        for (std::size_t i = 0; i < section.rows; ++i) {
            text += RowLine(section.firstRow + i, section.columns);
        }
    }
    return text;
}

} // namespace

std::int16_t ReadParaFile(const std::string& path) {
    return Read(path) == Outcome::Taken ? 0 : 1;
}

std::int16_t ReadParaFileWithTries(const std::string& path) {
    Outcome outcome = Outcome::Failed;
    const bool ended = SixTries([&] {
        outcome = Read(path);
        return outcome != Outcome::Failed;
    });
    if (!ended) {
        ShowTexts({681});
        return 1;
    }
    return outcome == Outcome::Taken ? std::int16_t{0} : std::int16_t{-1};
}

std::int16_t AskAndReadParaFile(std::int16_t titleId) {
    std::optional<FileAnswer> answer;
    try {
        answer = AskFileToOpen(kParaFile, titleId);
    } catch (const std::exception&) {
        ShowTexts({681});
        return 1;
    }
    return answer ? ReadParaFileWithTries(answer->path) : std::int16_t{-1};
}

std::int16_t OpenParaFile() {
    const std::int16_t result = AskAndReadParaFile(686);
    if (result == 0 && ApplyRowTable(RowSource::File) != 0) {
        // The file reads well and holds what no item can: trying again won't mend it.
        ShowTexts({681});
        return 1;
    }
    return result;
}

std::int16_t WriteParaFile(const std::string& path) {
    try {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            ParaSet.Actuator[axis] = BuildActuator(ParaSet.parts[axis]);
        }
        WriteWholeFile(path, ToCp932(FileText()));
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

std::int16_t SaveParameters() {
    if (!TakeParaFields(9, 10)) {
        return 1;
    }
    try {
        const auto answer = AskFileToSave(kParaFile, 11, ResText(12));
        if (!answer) {
            return 1;
        }
        const bool written = SixTries([&answer] { return WriteParaFile(answer->path) == 0; });
        if (written) {
            CountParaAsKept();
            ParaName = answer->title;
        }
        ShowTexts({written ? std::int16_t{14} : std::int16_t{13}});
        return written ? 0 : 1;
    } catch (const std::exception&) {
        ShowTexts({13});
        return 1;
    }
}

} // namespace qdw8
