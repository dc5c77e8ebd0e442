#pragma once

#include "app/command_states.h"

#include <functional>

class QKeyEvent;
class QString;

namespace qdw8 {

/// What the keys of the grid make happen.
struct GridKeys {
    std::function<void(Command)> command;          ///< the keys for copy and paste
    std::function<void(const QString&)> editBegun; ///< an edit was begun by typing this
    std::function<int()> firstRow; ///< grid row at the top of the screen; 0: no data
};

/// A key while no cell is being edited. True: it is done with. False: it is the view's, which
/// moves and selects.
///
/// While no cell is current, an arrow key and its like make the first one on the screen current,
/// and everything else changes nothing.
bool RunGridKey(const QKeyEvent& event, const GridKeys& keys);

} // namespace qdw8
