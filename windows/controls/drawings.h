#pragma once

#include <cstdint>

namespace qdw8 {

/// The project's own drawings.
enum class Drawing : std::uint8_t {
    // tool bar
    New,
    Open,
    Save,
    Print,
    Read,
    Load,
    Shogo,
    LineCopy,
    LinePaste,
    CellCopy,
    CellPaste,
    InputOutput,
    MoveTest,
    Group,
    SqMacro,
    // lamps; each says its state by its shape, too
    LampGreen, ///< a disc with a tick
    LampWhite, ///< an empty ring
    LampRed    ///< a disc with an exclamation mark
};

} // namespace qdw8
