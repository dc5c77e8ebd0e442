// The controller against dialogues on paper: when, what is asked, what comes back.

#include "scripts.h"
#include "simulator/control.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace qdk8;
using namespace qdk8::test;

namespace {

/// A controller fresh from the crate, and where its dialogue stands.
struct Talk {
    Controller controller;
    Millis now = 0;

    std::string take(Millis until) {
        std::string bytes;
        for (const Outgoing& out : controller.takeDue(until)) {
            bytes += out.hangUp ? "<hang-up>" : out.bytes;
        }
        return bytes;
    }

    /// On to a moment from event to event, as an owner with a clock goes. Gives what came earlier.
    std::string goOnTo(Millis moment) {
        std::string early;
        for (auto next = controller.nextDue(); next && *next < moment;
             next = controller.nextDue()) {
            if (*next < now) {
                return "the next event lies in the past";
            }
            now = *next;
            early += take(now);
        }
        if (moment > now) {
            early += take(moment - 1);
        }
        now = moment;
        return early;
    }

    std::string order(const std::string& text) {
        std::istringstream stream(text);
        const OrderResult result =
            ObeyControl(controller, Words{std::istream_iterator<std::string>(stream), {}}, now);
        return result.problem.empty() ? Joined(result.lines) : "error";
    }
};

void Play(const Script& script) {
    Talk talk;
    for (const ScriptLine& line : script.lines) {
        const std::string time = line.fields[0];
        const std::string request = line.fields[1];
        const Millis moment = std::stoll(time) + (time[0] == '+' ? talk.now : 0);
        ExpectShown(script, line, Shown(talk.goOnTo(moment)), "");
        std::string came;
        if (request[0] == '>') {
            came = talk.order(request.substr(2));
        } else {
            // What comes by itself is announced: nobody would look for it else.
            const bool silent = request == "-";
            const bool announced = talk.controller.nextDue() == talk.now;
            if (!silent) {
                const bool partly = request.back() == '&';
                const auto bytes = Unescaped(request.substr(0, request.size() - (partly ? 1 : 0)));
                talk.controller.receive(*bytes + (partly ? "" : "\r\n"), talk.now);
            }
            came = Shown(talk.take(talk.now));
            EXPECT_TRUE(announced || !silent || came.empty()) << script.file << ':' << line.number;
        }
        ExpectShown(script, line, came, line.fields[2]);
    }
    ExpectShown(script, script.lines.back(), Shown(talk.goOnTo(talk.now + kLongestWait)), "");
}

TEST(Dialogues, GoAsTheyAreWritten) {
    for (const Script& script : ReadScripts(DIALOGUES)) {
        Play(script);
    }
}

} // namespace
