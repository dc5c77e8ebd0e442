#pragma once

#include "app/string_table.h"

#include <QString>
#include <concepts>
#include <cstdint>

namespace qdw8 {

/// The text with the id, in the language of the run. Throws `Fault` for an id with no row.
inline QString ResQText(std::int16_t id) {
    return QString::fromStdString(ResText(id));
}

/// The text with every "&" doubled, so that a control shows it and takes none for a mnemonic.
inline QString EscapedMnemonics(const std::string& text) {
    return QString::fromStdString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// The object name of an element of an array of controls, "cmdJOG(3)"; the index begins at 0.
template<std::integral Index> QString Named(const char* name, Index index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

} // namespace qdw8
