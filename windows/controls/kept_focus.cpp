#include "windows/controls/kept_focus.h"

namespace qdw8 {

void KeptFocus::setOn(QWidget& control, bool on) {
    if (!on && window.focusWidget() == &control) {
        before = &control;
        window.setFocus();
    }
    control.setEnabled(on);
    if (on && before == &control) {
        before = nullptr;
        if (window.focusWidget() == &window || window.focusWidget() == nullptr) {
            control.setFocus();
        }
    }
}

} // namespace qdw8
