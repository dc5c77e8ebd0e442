#pragma once

#include "platform/fault.h"

#include <QByteArray>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

namespace qdw8::test {

/// A step of a story: gets the text behind its name, and gives what came of it.
using Verb = std::function<std::string(const std::string& text)>;
using Verbs = std::map<std::string, Verb>;

/// A step of which nothing comes.
template<typename Act> Verb Does(Act act) {
    return [act](const std::string& text) { return act(text), std::string(); };
}

/// Plays a line "verb text = result". "%0A" is the character of that number, "^" a line end, and
/// the result "!" a fault.
inline void PlayVerb(const Verbs& verbs, const std::string& line) {
    const auto plain = [](const QByteArray& text) {
        return QByteArray::fromPercentEncoding(text.trimmed().replace("^", "%0D%0A")).toStdString();
    };
    const QByteArray all(line.c_str());
    const qsizetype end = all.indexOf('=') < 0 ? all.size() : all.indexOf('=');
    const qsizetype blank = std::min(end, (all + ' ').indexOf(' '));
    std::string result;
    try {
        result = verbs.at(all.first(blank).toStdString())(plain(all.sliced(blank, end - blank)));
    } catch (const Fault&) {
        result = "!";
    }
    EXPECT_EQ(result, plain(all.mid(end + 1)));
}

/// Serves events until the condition holds. False if it still doesn't after half a minute, which
/// no machine needs.
inline bool PumpUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 30000);
}

} // namespace qdw8::test
