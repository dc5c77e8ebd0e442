#pragma once

#include "app/string_table.h"

#include <QString>
#include <cstdint>

namespace qdw8 {

/// The text with the id, in the language of the run. Throws `Fault` for an id with no row.
inline QString TextOf(std::int16_t id) {
    return QString::fromStdString(ResText(id));
}

/// A text that must not be taken for one with a mnemonic.
inline QString WithoutMnemonics(const std::string& text) {
    return QString::fromStdString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace qdw8
