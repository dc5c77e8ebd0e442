#pragma once

#include <QTest>

#include <functional>

namespace qdw8::test {

/// Serves events until the condition holds. False if it still doesn't after half a minute, which
/// no machine needs.
inline bool PumpUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 30000);
}

} // namespace qdw8::test
