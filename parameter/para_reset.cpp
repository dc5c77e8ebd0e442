#include "parameter/para_reset.h"

#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "parameter/para_fields.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"

namespace qdw8 {

void ResetParameters() {
    ParaSet = ParameterSet{};
    ParaReserved.fill(0);
    ParaRowTable = ParaRows{};
    ParaFields = ParaFieldTexts{};
    FactoryDeviceTable.fill({});
    FactoryCommonTable = {};
    KeepAxisFlag = kClear;
    KeptAxisMask = 0;
    FactoryDeviceFlag = kClear;
    DeviceCancelled = kClear;
}

} // namespace qdw8
