#pragma once

#include <QWidget>

namespace qdw8 {

/// What stands on the screen while the program starts: name, version and drawing, in the middle of
/// the screen and without a frame.
class frmSplash : public QWidget {
public:
    frmSplash();
    /// Shows it centred on the screen.
    void showCentred();
};

} // namespace qdw8
