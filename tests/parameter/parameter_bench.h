#pragma once

#include "parameter/para_set.h"
#include "parameter/sample_sets.h"
#include "platform/whole_file.h"
#include "support/bench.h"
#include "support/boxes.h"

#include <filesystem>

namespace qdw8::test {

inline const std::string kHere = QDW8_SOURCE_DIR "/tests/parameter/";

/// Four axes in use, and the sample set.
struct ParameterBench : LineBench {
    ParameterBench() { ParaSet = SampleSet(); }
    const std::array<std::string, 13>& working() const {
        return line.controller.machine().working.blocks;
    }
    const std::array<std::string, 13>& lasting() const {
        return line.controller.machine().lasting.blocks;
    }
    std::int16_t result = 0;
};
using ParameterTest = Unit<ParameterBench>;

} // namespace qdw8::test
