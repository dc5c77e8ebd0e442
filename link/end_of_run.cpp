#include "link/end_of_run.h"

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/settings.h"
#include "link/port.h"
#include "platform/platform.h"

namespace qdw8 {

void EndIfConfirmed() {
    if (IsSet(ProgramEndFlag) && !CommandsTaken()) {
        CloseCtPortForce();
        frmMain_Unload();
    }
}

void frmMain_Unload() {
    SaveSettingNumber("PortNo", PortNo);
    if (IsSet(LanguageChangedFlag)) {
        LanguageNo = LanguageNo == 1 ? std::int16_t{2} : std::int16_t{1};
    }
    SaveSettingNumber("Language", LanguageNo);
    ThePlatform().EndProgram();
}

} // namespace qdw8
