#pragma once

#include "windows/controls/kept_focus.h"

#include <QDialog>
#include <array>
#include <cstddef>
#include <cstdint>

class QBoxLayout;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QVBoxLayout;

namespace qdw8 {

class FieldLabel;
class KeyField;
class MoveList;
class NumberSlider;
class PictureLabel;
struct MoveChoices;

/// The move test: a list of positions, a range of them or a group, and homing. It shows what
/// motion/move_test.h holds.
class frmMove : public QDialog {
public:
    explicit frmMove(QWidget* parent = nullptr);
    ~frmMove() override;

    /// Looks at the numbers, the lamps, the texts and what can be used again; goes when it is to
    /// go.
    void showState();
    /// Gives the start button of the group run the focus.
    void focusGroupMove();

    /// By Escape and by the title bar: asks first while a run is on its way.
    void reject() override;

private:
    /// The tabs in their order; list and range have more in common than the group.
    enum Tab : std::size_t { kList, kRange, kOfGroup };
    /// How a run of positions goes on; the list and the range each have one.
    struct Way {
        QRadioButton* continual = nullptr;
        QRadioButton* step = nullptr;
        QCheckBox* repeat = nullptr;
        QCheckBox* noSqMcr = nullptr;
        QCheckBox* timerUse = nullptr;
        KeyField* timer = nullptr;
    };
    struct Run {
        QPushButton* move = nullptr;
        QPushButton* pause = nullptr; ///< null: a group has none
        QPushButton* stop = nullptr;
        QLabel* homing = nullptr; ///< what the button does about it
    };
    struct Lamp {
        PictureLabel* white = nullptr;
        PictureLabel* green = nullptr;
        QLabel* caption = nullptr;
    };

    QVBoxLayout* addPage(std::int16_t tag, char mnemonic);
    void makeListPage();
    void makeRangePage();
    void makeGroupPage();
    void makeWay(QBoxLayout& page, Tab tab);
    void makeRun(QBoxLayout& page, Tab tab);
    void makeFoot(QBoxLayout& layout);
    bool takeTyped();
    bool mayStart();
    void showWay(Tab tab, const MoveChoices& choices, bool timerUseOn, bool timerOn);
    static void showLamp(const Lamp& lamp, bool on);
    void leave();

    KeptFocus kept;
    QTabWidget* tabs = nullptr;
    MoveList* list = nullptr;
    QPushButton* oneTo15 = nullptr;
    QPushButton* clear = nullptr;
    std::array<Way, 2> ways;
    std::array<Run, 3> runs;
    NumberSlider* start = nullptr;
    NumberSlider* end = nullptr;
    NumberSlider* group = nullptr;
    QPushButton* home = nullptr;
    std::array<Lamp, 2> lamps;
    FieldLabel* reached = nullptr;
    QLabel* text = nullptr;
};

} // namespace qdw8
