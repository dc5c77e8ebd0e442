#pragma once

// Orders are lines of words that somebody beside the line gives the simulator: a person or a test.

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace qdk8 {

using Words = std::vector<std::string>;

/// What an order comes to: the lines of its answer without "ok", or `problem` in one line.
struct OrderResult {
    std::string lines;
    std::string problem;
};

/// One order, given by its first word to whatever a `Target` is. The help is one line.
template<typename Target> struct Order {
    std::string_view word;
    OrderResult (*routine)(Target&, const Words&);
    const char* help;
};

inline OrderResult Refusing(const std::string& problem) {
    return {"", problem};
}

/// The order that begins with `word`; null if there is none.
template<typename Target, std::size_t count>
const Order<Target>* FindOrder(const std::array<Order<Target>, count>& orders,
                               std::string_view word) {
    const auto* found = std::find_if(orders.begin(), orders.end(),
                                     [&](const Order<Target>& o) { return o.word == word; });
    return found != orders.end() ? found : nullptr;
}

/// The lines of a help text, one for each order.
template<typename Target, std::size_t count>
std::string HelpOf(const std::array<Order<Target>, count>& orders) {
    std::string help;
    for (const Order<Target>& order : orders) {
        help += std::string("    ") + order.help + "\n";
    }
    return help;
}

} // namespace qdk8
