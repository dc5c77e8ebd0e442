# Turns a text file into a C++ source with one string view, in pieces that every compiler takes.
file(READ "${SOURCE}" text)
string(LENGTH "${text}" length)
set(pieces "")
set(at 0)
while(at LESS length)
  # Cut behind a row, so that no character is torn apart.
  string(SUBSTRING "${text}" ${at} 4000 piece)
  string(FIND "${piece}" "\n" last REVERSE)
  math(EXPR size "${last} + 1")
  string(SUBSTRING "${piece}" 0 ${size} piece)
  string(APPEND pieces "R\"~rows~(${piece})~rows~\"\n")
  math(EXPR at "${at} + ${size}")
endwhile()
file(WRITE "${TARGET}"
"// Made from ${LANGUAGE}.txt by the build.
#include <string_view>
namespace ${NAMESPACE} {
extern const std::string_view k_${LANGUAGE}_rows;
const std::string_view k_${LANGUAGE}_rows =
${pieces};
} // namespace ${NAMESPACE}
")
