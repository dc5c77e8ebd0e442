#pragma once

#include <QString>
#include <QVector>
#include <utility>

/// What the user does, one routine for each story. Each begins with the program at its splash and
/// ends with the program closed.
namespace e2e {

using Settings = QVector<std::pair<QString, QString>>;

struct Scenario {
    const char* name;
    Settings settings; ///< what `settings.ini` holds before the program starts
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

} // namespace e2e
