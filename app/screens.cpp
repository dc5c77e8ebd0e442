#include "app/screens.h"

namespace qdw8 {

ScreenFunctions& Screens() {
    static ScreenFunctions screens;
    return screens;
}

} // namespace qdw8
