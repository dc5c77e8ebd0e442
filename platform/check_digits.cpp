#include "platform/check_digits.h"

#include <cstdint>
#include <cstdio>

namespace qdw8 {

std::string CheckDigits(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    char digits[kCheckDigits + 1];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

} // namespace qdw8
