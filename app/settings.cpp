#include "app/settings.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "platform/fault.h"
#include "platform/platform.h"

namespace qdw8 {
namespace {
constexpr const char* kSection = "Settings";
}

std::string SettingText(const std::string& key, const std::string& fallback) {
    return ThePlatform().Settings.GetSetting(kSection, key, fallback);
}

std::int16_t SettingNumber(const std::string& key, std::int16_t fallback) {
    try {
        return ToInt16(NumberFromText(SettingText(key, std::to_string(fallback))));
    } catch (const Fault&) {
        return fallback;
    }
}

std::int16_t StoredPortNo() {
    const double number = NumberFromText(SettingText("PortNo", "1"));
    try {
        return ToInt16(number);
    } catch (const Fault&) {
        return 0;
    }
}

void SaveSettingText(const std::string& key, const std::string& text) {
    ThePlatform().Settings.SaveSetting(kSection, key, text);
}

void SaveSettingNumber(const std::string& key, std::int16_t number) {
    SaveSettingText(key, std::to_string(number));
}

void TellLostSettings() {
    const Platform& platform = ThePlatform();
    if (IsSet(SettingsLossToldFlag) || !platform.Settings.IsKept || platform.Settings.IsKept()) {
        return;
    }
    SettingsLossToldFlag = kSet;
    ShowBox(Lines({ResText(3350), "", platform.settingsFolder}));
}

} // namespace qdw8
