#include "platform/cp932_text.h"

#include "platform/fault.h"

#include <cerrno>
#include <iconv.h>

namespace qdw8 {
namespace {

/// Length of the UTF-8 sequence that begins with this byte; 1 for a byte that begins none.
std::size_t SequenceLength(unsigned char lead) {
    if (lead >= 0xF0) {
        return 4;
    }
    if (lead >= 0xE0) {
        return 3;
    }
    return lead >= 0xC0 ? 2 : 1;
}

std::string Convert(const char* to, const char* from, std::string_view text, bool fromUtf8) {
    const iconv_t converter = iconv_open(to, from);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the C library's own sign of failure
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        throw Fault("the system has no conversion for the Japanese code page");
    }
    std::string input(text);
    std::string result;
    char* in = input.data();
    std::size_t inLeft = input.size();
    while (inLeft > 0) {
        char chunk[256];
        char* out = chunk;
        std::size_t outLeft = sizeof chunk;
        const std::size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
        result.append(chunk, sizeof chunk - outLeft);
        if (done == static_cast<std::size_t>(-1) && errno != E2BIG) {
            std::size_t skip = 1;
            if (fromUtf8) {
                skip = SequenceLength(static_cast<unsigned char>(*in));
                for (std::size_t i = 1; i < skip; ++i) {
                    if (i >= inLeft || (static_cast<unsigned char>(in[i]) & 0xC0U) != 0x80U) {
                        skip = i;
                    }
                }
            }
            result += '?';
            in += skip;
            inLeft -= skip;
        }
    }
    iconv_close(converter);
    return result;
}

} // namespace

std::string ToCp932(std::string_view utf8) {
    return Convert("CP932", "UTF-8", utf8, true);
}

std::string FromCp932(std::string_view bytes) {
    return Convert("UTF-8", "CP932", bytes, false);
}

} // namespace qdw8
