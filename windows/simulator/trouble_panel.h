#pragma once

#include "windows/simulator/signals_panel.h"

#include <QStringList>

class QComboBox;
class QGroupBox;
class QListWidget;
class QPushButton;

namespace qdk8 {

/// What goes wrong at will: alarms of the machine, faults of the line.
class TroublePanel : public QWidget {
public:
    TroublePanel(TellSimulator teller, QWidget* parent);

    void show(const Look& look);
    /// Puts the texts of the lists in the language chosen.
    void showTexts();

private:
    QWidget* makeAlarms();
    QWidget* makeFaults();
    QWidget* makeFaultChoice(QWidget* parent);
    void addFault(bool once);
    void removeFault();
    void listFaults();

    TellSimulator tell;
    QComboBox* alarm = nullptr;
    QPushButton* raise = nullptr;
    QPushButton* clear = nullptr;
    QCheckBox* homing = nullptr;
    QComboBox* fault = nullptr;
    QComboBox* request = nullptr;
    QListWidget* list = nullptr;
    QPushButton* remove = nullptr;
    QPushButton* removeAll = nullptr;
    QStringList rules; ///< those in the list
};

/// An alarm as its error reply, in words; the reply alone where it has none.
QString AlarmInWords(const QString& reply);

/// A fault rule in words, as far as the window has them.
QString RuleInWords(const QString& rule);

} // namespace qdk8
