#include "version/version.h"

namespace version {

const char* const kNumber = QDW8_MAJOR "." QDW8_MINOR "." QDW8_REVISION;
const char* const kShown = QDW8_MAJOR "." QDW8_MINOR QDW8_REVISION "E";

} // namespace version
