#pragma once

#include <QString>
#include <QVector>
#include <optional>
#include <utility>

/// What the user does, one routine for each story. Each begins with the program at its splash and
/// ends with the program closed.
namespace e2e {

using Settings = QVector<std::pair<QString, QString>>;

struct Scenario {
    const char* name;
    /// What `settings.ini` holds before the program starts; nothing: what the story before left.
    std::optional<Settings> settings;
    void (*play)();
};

/// Null if there is none of that name.
const Scenario* findScenario(const QString& name);

void sliceEnglishMm();
void sliceEnglishPulses();
void sliceJapanese();
void tourEnglish();
void tourJapanese();

void readCancelled();
void cablePulled();
void noController();
void noAnswer();
void twoAxes();

void alarmGoesOut();
void resetBothClasses();

void versionQuery();
void axesInUse();
void offlineCommand();

void deviceOfflineCatalogue();
void deviceNextStart(); ///< in the home that `deviceOfflineCatalogue` leaves
void deviceOfflineFile();
void deviceOnlineWrite();
void deviceMismatch();

void editCells();
void checkErrors();

void openOtherDevices();
void verifyFile();
void verifyController();
void writeBack();
void writeInterrupted();

} // namespace e2e
