#include "scenarios.h"

#include <algorithm>
#include <array>

namespace e2e {

const Scenario* findScenario(const QString& name) {
    const std::pair<QString, QString> english{QStringLiteral("Language"), QStringLiteral("2")};
    const std::pair<QString, QString> japanese{QStringLiteral("Language"), QStringLiteral("1")};
    const std::pair<QString, QString> pulses{QStringLiteral("DispMmUnit"), QStringLiteral("0")};
    static const std::array all{
        Scenario{"slice_english_mm", Settings{}, sliceEnglishMm},
        Scenario{"slice_english_pulses", Settings{english, pulses}, sliceEnglishPulses},
        Scenario{"slice_japanese", Settings{japanese}, sliceJapanese},
        Scenario{"tour_english", Settings{english}, tourEnglish},
        Scenario{"tour_japanese", Settings{japanese}, tourJapanese},
        Scenario{"read_cancelled", Settings{}, readCancelled},
        Scenario{"cable_pulled", Settings{}, cablePulled},
        Scenario{"no_controller", Settings{}, noController},
        Scenario{"no_answer", Settings{}, noAnswer},
        Scenario{"two_axes", Settings{}, twoAxes},
        Scenario{"alarm_goes_out", Settings{}, alarmGoesOut},
        Scenario{"reset_both_classes", Settings{}, resetBothClasses},
        Scenario{"version_query", Settings{}, versionQuery},
        Scenario{"axes_in_use", Settings{}, axesInUse},
        Scenario{"offline_command", Settings{}, offlineCommand},
        Scenario{"device_offline_catalogue", Settings{}, deviceOfflineCatalogue},
        Scenario{"device_next_start", std::nullopt, deviceNextStart},
        Scenario{"device_offline_file", Settings{}, deviceOfflineFile},
        Scenario{"device_online_write", Settings{}, deviceOnlineWrite},
        Scenario{"device_mismatch", Settings{}, deviceMismatch},
        Scenario{"edit_cells", Settings{}, editCells},
        Scenario{"check_errors", Settings{}, checkErrors},
        Scenario{"open_other_devices", Settings{}, openOtherDevices},
        Scenario{"verify_file", Settings{}, verifyFile},
        Scenario{"verify_controller", Settings{}, verifyController},
        Scenario{"write_back", Settings{}, writeBack},
        Scenario{"write_interrupted", Settings{}, writeInterrupted},
    };
    const auto* known = std::find_if(all.begin(), all.end(), [&name](const Scenario& scenario) {
        return name == QLatin1String(scenario.name);
    });
    return known == all.end() ? nullptr : known;
}

} // namespace e2e
