#include "position/posi_reader.h"

#include "app/boxes.h"
#include "app/field_reader.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "link/Module3Tusin.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "platform/whole_file.h"
#include "position/posi_table.h"

#include <algorithm>
#include <exception>

namespace qdw8 {

std::int16_t FileFirst = 0;
std::int16_t FileLast = 0;
std::array<std::string, kAxes> FileNewOldText;
Flag FileReadFailFlag = kClear;

namespace {

/// A file that was refused for its first field is left open.
bool fileLeftOpen = false;

bool IsWord(const std::string& text) {
    return text == "NEW" || text == "OLD";
}

void ReadFour(FieldReader& fields, std::array<std::string, kAxes>& texts) {
    for (std::string& text : texts) {
        text = FromCp932(fields.next());
    }
}

void ReadRow(FieldReader& fields, bool first) {
    const std::int16_t position = ToInt16(NumberFromText(fields.next()));
    if (position < 0 || position > kLastPosition) {
        throw Fault("there is no such position");
    }
    if (first) {
        FileFirst = position;
    }
    FileLast = position;
    StageRow& row = PosiStage[static_cast<std::size_t>(position)];
    for (std::size_t column = 1; column <= kComment; ++column) {
        row[column] = fields.next();
    }
    row[kComment + 1] = FromCp932(fields.next());
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
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        FileNewOldText[axis] = ResText(FileNewOld[axis] == "NEW" ? 126 : 127);
    }
    for (bool first = true; !rows.atEnd(); first = false) {
        ReadRow(rows, first);
    }
}

} // namespace

std::int16_t ReadPosiFile(const std::string& path) {
    if (fileLeftOpen) {
        fileLeftOpen = false;
        return 1;
    }
    try {
        FieldReader fields(ReadWholeFile(path));
        if (fields.next() != "QD-K8") {
            FileReadFailFlag = kSet;
            fileLeftOpen = true;
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
    // Counted here: an exchange that runs out of the pause uses the shared counter.
    for (std::int16_t failed = 1;; ++failed) {
        FileReadFailFlag = kClear;
        if (ReadPosiFile(path) == 0) {
            return true;
        }
        RetryCount = failed;
        if (failed > kRetries) {
            ShowTexts({484});
            return false;
        }
        MsecTimer(kRetryPauseMs);
    }
}

void ResetPosiReader() {
    FileFirst = FileLast = 0;
    FileNewOldText.fill({});
    FileReadFailFlag = kClear;
    fileLeftOpen = false;
}

} // namespace qdw8
