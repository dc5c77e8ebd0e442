#include "parameter/para_reset.h"

#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "parameter/para_fields.h"
#include "parameter/para_marks.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "parameter/para_transfer.h"
#include "parameter/para_verify.h"

namespace qdw8 {

void ResetParameters() {
    ParaSet = ParameterSet{};
    ParaReserved.fill(0);
    ParaRowTable = ParaRows{};
    ParaLoadedFlag = kClear;
    ResetParaFields();
    ClearParaMarks();
    VerifyReport.fill({});
    FactoryDeviceTable.fill({});
    FactoryCommonTable = {};
    KeepAxisFlag = kClear;
    KeptAxisMask = 0;
    FactoryDeviceFlag = kClear;
    DeviceCancelled = kClear;
    ResetParaTransfer();
}

} // namespace qdw8
