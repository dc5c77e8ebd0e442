# Turns a text file into a C++ source with one string view, in pieces that every compiler takes.
file(READ "${SOURCE}" text)
string(LENGTH "${text}" length)
set(pieces "")
set(at 0)
while(at LESS length)
  string(SUBSTRING "${text}" ${at} 4000 piece)
  string(APPEND pieces "R\"~rows~(${piece})~rows~\"\n")
  math(EXPR at "${at} + 4000")
endwhile()
file(WRITE "${TARGET}"
"// Made from ${LANGUAGE}.txt by the build.
#include <string_view>
namespace qdw8 {
extern const std::string_view k_${LANGUAGE}_rows;
const std::string_view k_${LANGUAGE}_rows =
${pieces};
} // namespace qdw8
")
