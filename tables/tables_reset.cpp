#include "tables/tables_reset.h"

#include "tables/grp_form.h"
#include "tables/grp_table.h"
#include "tables/sm_form.h"
#include "tables/sm_table.h"

namespace qdw8 {

void ResetTables() {
    ResetGroups();
    ResetGrpForm();
    ResetMacros();
    ResetSmForm();
}

} // namespace qdw8
