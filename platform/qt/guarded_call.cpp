#include "platform/qt/guarded_call.h"

#include <QtGlobal>

#include <exception>

namespace qdw8 {

void CallGuarded(const char* who, const std::function<void()>& routine) {
    if (!routine) {
        return;
    }
    try {
        routine();
    } catch (const std::exception& error) {
        qWarning("%s: %s", who, error.what());
    } catch (...) {
        qWarning("%s: unknown fault", who);
    }
}

} // namespace qdw8
