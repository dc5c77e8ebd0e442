#include "simulator/front_control.h"

#include "simulator/control.h"
#include "simulator/orders.h"

#include <array>
#include <sstream>

namespace qdk8 {
namespace {

OrderResult HangUp(Front& front, const Words&) {
    PullCable(front);
    return {};
}

OrderResult PlugIn(Front& front, const Words&) {
    if (front.terminal.master >= 0) {
        return Refusing("the cable is plugged in");
    }
    std::string problem;
    if (!Plug(front.terminal, problem)) {
        return Refusing(problem);
    }
    TellPlace(front, "plugged");
    return {};
}

OrderResult Handful(Front& front, const Words& words) {
    const auto handful = words.size() == 2 ? ParseHandful(words[1]) : std::nullopt;
    if (!handful) {
        return Refusing("handful wants a number from 1 to 4096");
    }
    front.options.handful = handful;
    return {};
}

OrderResult Save(Front& front, const Words&) {
    std::string problem;
    return KeepMemory(front, problem) ? OrderResult{} : Refusing(problem);
}

OrderResult Quit(Front& front, const Words&) {
    front.ended = true;
    return {};
}

constexpr std::array<Order<Front>, 5> kOrders{{
    {"hangup", HangUp, "hangup: pull the cable"},
    {"plug", PlugIn, "plug: a fresh terminal, told by \"qd-k8-sim plugged on ...\""},
    {"handful", Handful, "handful N: as --handful"},
    {"save", Save, "save: the lasting memory to its file, now"},
    {"quit", Quit, "quit"},
}};

OrderResult ObeyWords(Front& front, const Words& words) {
    if (const Order<Front>* order = FindOrder(kOrders, words[0])) {
        return order->routine(front, words);
    }
    OrderResult result = ObeyControl(front.controller, words, Milliseconds());
    // Without power nothing more leaves the controller, not even what is on its way.
    if (!front.controller.powered()) {
        front.leaving.clear();
    }
    return result;
}

} // namespace

std::string ObeyFront(Front& front, const std::string& line) {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    if (words.empty()) {
        return "";
    }
    const OrderResult result = ObeyWords(front, words);
    return result.problem.empty() ? result.lines + "ok\n" : "error: " + result.problem + "\n";
}

std::string FrontHelp() {
    return HelpOf(kOrders);
}

} // namespace qdk8
