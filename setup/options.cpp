#include "setup/options.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/move_defaults.h"
#include "app/number_forms.h"
#include "app/settings.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/stop.h"
#include "link/window_command.h"
#include "position/posi_check.h"

namespace qdw8 {
namespace {

bool IsPort(std::int16_t number) {
    return number >= 1 && number <= 9;
}
bool IsJogVel(std::int16_t number) {
    return number >= kJogVelLowest && number <= kJogVelHighest;
}
bool IsAcc(std::int16_t number) {
    return number >= 1 && number <= 3;
}

/// A field takes two digits at most.
std::int16_t NumberIn(const std::string& field) {
    return ToInt16(NumberFromText(field));
}

/// The option of an acceleration in memory, or else the stored one; a store that holds none at all
/// counts as empty.
int AccOption(std::int16_t inMemory, const char* key) {
    std::int16_t acc = IsAcc(inMemory) ? inMemory : SettingNumber(key, kAccOf100Pls);
    if (!IsAcc(acc)) {
        acc = kAccOf100Pls;
    }
    return acc - 1;
}

bool CheckJogVel(const OptionsForm& form) {
    if (IsJogVel(NumberIn(form.txtJogVel))) {
        return true;
    }
    ShowTexts({2225});
    return false;
}

void TakePort(std::int16_t port) {
    if (port != PortNo) {
        GoOffLine();
        SetMotionRuns(false); // what moves at the old port's end is none of the new one's
    }
    PortNo = port;
}

void TakeUnit(Flag DisplayUnitChoice) {
    SaveSettingNumber("DispMmUnit", IsSet(DisplayUnitChoice) ? 1 : 0);
    if (DisplayUnitChoice != DispMmFlag && ChangeUnit(DisplayUnitChoice) != 0) {
        ShowTexts({2541, 2542});
    }
}

void TakeFlag(Flag& flag, bool set, const char* key) {
    flag = FlagOf(set);
    SaveSettingNumber(key, set ? 1 : 0);
}

void TakeNumber(std::int16_t& number, int value, const char* key) {
    number = static_cast<std::int16_t>(value);
    SaveSettingNumber(key, number);
}

} // namespace

OptionsForm LoadOptions() {
    OptionsForm form;
    form.txtPortNo = std::to_string(IsPort(PortNo) ? PortNo : StoredPortNo());
    form.chkPortOccupy = IsSet(PortOccupyFlag);
    const bool known = LanguageNo == 1 || LanguageNo == 2;
    form.optLanguege = (known ? LanguageNo : SettingNumber("Language", 2)) == 1 ? 0 : 1;
    form.optHyojiKirikae = IsSet(DispMmFlag) ? 1 : 0;
    form.optSutiSyori = IsSet(MmRoundUpFlag) ? 0 : 1;
    form.txtJogVel = std::to_string(
        IsJogVel(VelOf100Pls) ? VelOf100Pls : SettingNumber("VelOf100Pls", kVelOf100Pls));
    form.optJogAcc = AccOption(AccOf100Pls, "AccOf100Pls");
    form.optJogAcc2 = AccOption(AccOf100Pls2, "AccOf100Pls2");
    return form;
}

std::int16_t PortOfOptions(const OptionsForm& form) {
    const std::int16_t typed = NumberIn(form.txtPortNo);
    return IsPort(typed) ? typed : StoredPortNo();
}

bool MayLeaveOptionsTab(OptionsTab tab, const OptionsForm& form) {
    return tab != OptionsTab::Teaching || CheckJogVel(form);
}

OptionsOk cmdOK_Click(const OptionsForm& form) {
    if (!CheckJogVel(form)) {
        return OptionsOk::SpeedRefused;
    }
    const std::int16_t port = PortOfOptions(form);
    if (port != PortNo && LineReserved()) {
        ShowTexts({3290, kLineReserved});
        return OptionsOk::PortRefused;
    }
    TakePort(port);
    LanguageChangedFlag = FlagOf((form.optLanguege == 0) != (LanguageNo == 1));
    TakeUnit(FlagOf(form.optHyojiKirikae == 1));
    TakeFlag(MmRoundUpFlag, form.optSutiSyori == 0, "MmRoundUp");
    TakeFlag(PortOccupyFlag, form.chkPortOccupy, "PortOccupy");
    CloseCtPort();
    TakeNumber(VelOf100Pls, NumberIn(form.txtJogVel), "VelOf100Pls");
    TakeNumber(AccOf100Pls, form.optJogAcc + 1, "AccOf100Pls");
    TakeNumber(AccOf100Pls2, form.optJogAcc2 + 1, "AccOf100Pls2");
    TellLostSettings();
    return OptionsOk::Done;
}

} // namespace qdw8
