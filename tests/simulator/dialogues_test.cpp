// The controller against dialogues on paper: when, what is asked, what comes back.

#include "scripts.h"
#include "simulator/control.h"
#include "support/story.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace qdk8;
using namespace qdk8::test;

namespace {

/// A controller fresh from the crate, and where its dialogue stands.
struct Talk {
    ~Talk() { EXPECT_EQ(Shown(goOnTo(now + kLongestWait)), "") << "comes behind the end"; }

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

    void tell(const std::string& line) {
        const auto [time, request, reply] = Fields(line);
        EXPECT_EQ(Shown(goOnTo(std::stoll(time) + (time[0] == '+' ? now : 0))), "") << "early";
        if (request[0] == '>') {
            EXPECT_EQ(order(request.substr(2)), reply);
            return;
        }
        // What comes by itself is announced: nobody would look for it else.
        const bool announced = request != "-" || reply.empty() || controller.nextDue() == now;
        EXPECT_TRUE(announced);
        if (request != "-") {
            const bool partly = request.back() == '&';
            const auto bytes = Unescaped(request.substr(0, request.size() - (partly ? 1 : 0)));
            controller.receive(*bytes + (partly ? "" : "\r\n"), now);
        }
        EXPECT_EQ(Shown(take(now)), reply);
    }
};

TEST(Dialogues, GoAsTheyAreWritten) {
    qdw8::test::TellStories<Talk>(DIALOGUES, 1);
}

} // namespace
