#include "position/posi_write.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "position/check_result.h"
#include "position/posi_table.h"

#include <algorithm>
#include <exception>

namespace qdw8 {
namespace {

constexpr std::size_t kRowLength = 43;

bool IsWholeRow(const std::string& row) {
    return row.size() == kRowLength && row.find_first_not_of("0123456789ABCDEF") == row.npos;
}

bool IsSent(std::int16_t position) {
    return !IsSet(PosiRowError[static_cast<std::size_t>(position) - 1]);
}

void BuildRows() {
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        if (IsSent(position)) {
            PosiFrameText[static_cast<std::size_t>(position) - 1] = PosiRowText(position);
        }
    }
}

/// One row. False: it was not taken, and the user has been told.
bool WriteRow(const std::string& row) {
    if (!IsWholeRow(row)) {
        ShowWrongData();
        return false;
    }
    if (WritePosiRow(row) != 0) {
        return false;
    }
    // The echo of the position number is the whole verification.
    constexpr std::size_t kEcho = 6;
    if (("0WP" + row).substr(0, kEcho) != ReplyText.substr(0, kEcho)) {
        CloseCtPort();
        CommErrorFlag = kSet;
        ShowWrongData();
        return false;
    }
    return true;
}

bool WriteRows() {
    int done = 0;
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        if (!IsSent(position)) {
            continue;
        }
        if (!WriteRow(PosiFrameText[static_cast<std::size_t>(position) - 1])) {
            return false;
        }
        SetTranceValue(++done);
    }
    return true;
}

} // namespace

std::string PosiRowText(std::int16_t position) {
    const PosiRow& row = PosiTable[static_cast<std::size_t>(position)];
    std::string text = HexField(position, 3);
    for (std::size_t column = 0; column < kComment; ++column) {
        text += HexField(ToInt32(row.number[column]),
                         static_cast<int>(ColumnOf(static_cast<int>(column)).width));
    }
    return text;
}

std::int16_t WritePosidataToCt() {
    try {
        BuildRows();
        TransferRunFlag = kSet;
        ShowTrance(PosiLast - PosiFirst + 1, ResText(383));
        const bool good = WriteRows();
        UnloadTrance();
        CloseCtPort();
        return good ? 0 : 1;
    } catch (const std::exception&) {
        UnloadTrance();
        CloseCtPort();
        ShowWrongData(); // a number that is no 32-bit number has no form on the line
        return 1;
    }
}

} // namespace qdw8
