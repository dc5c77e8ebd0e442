#pragma once

#include "support/bench.h"
#include "tables/groups.h"
#include "tables/grp_form.h"
#include "tables/macros.h"
#include "tables/sm_form.h"

namespace qdw8::test {

/// Both windows just opened.
struct TablesBench : LineBench {
    TablesBench() {
        LoadGrp();
        LoadSm();
    }
};
using TablesTest = Unit<TablesBench>;

} // namespace qdw8::test
