#pragma once

#include "app/main_panel.h"
#include "windows/main/grid_view.h"
#include "windows/main/main_commands.h"

#include <QMainWindow>
#include <array>
#include <functional>
#include <string>
#include <vector>

class QGridLayout;
class QGroupBox;
class QLabel;

namespace qdw8 {

class FieldLabel;
class GoToBar;
class LineRow;

/// What the main window hands to the rules.
struct MainWindowEvents {
    /// The user has chosen a command that may be used. Those that run in the window don't come
    /// here.
    std::function<void(Command)> command;
    /// The window is to be closed. False refuses; true is followed by `unload`.
    std::function<bool()> queryUnload;
    std::function<void()> unload;
    /// Grid row and column of the current cell, then of the selection's other end.
    std::function<void(int row, int column, int rowSel, int columnSel)> rowColChange;
    /// Files were dropped onto the window while a file could be opened.
    std::function<void(const std::vector<std::string>& paths)> dropped = {};
};

/// The main window. It holds controls only: what they show stands in `ThePanel()`, in the command
/// states and in `flgdData()`, and the show... routines look at it again. They cost next to nothing
/// when nothing has changed, so they may be called after every exchange.
class frmMain : public QMainWindow {
public:
    frmMain(const CommandTable& table, MainWindowEvents events);

    /// Fills in the texts; once, in the language of the run.
    void loadResources();
    /// Shows the window; `small` is for a screen of at most 800 pixels' width. Never larger than
    /// the screen.
    void showSized(bool small);

    void showPanel();
    void showCommands();
    void showGrid();
    void focusGrid();
    /// As `GridView::finishInput`.
    bool finishInput();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// A pair of pictures at one place: the coloured one is shown or hidden over the white one.
    struct Lamp {
        QLabel* coloured = nullptr;
        QLabel* white = nullptr;
        QLabel* caption = nullptr;
    };

    QWidget* makeTop();
    QGroupBox* makeFrame(const char* name, std::int16_t tag);
    QGroupBox* makeStatusFrame();
    QWidget* makeInfoRow();
    void makeStatusBar();
    void setTabOrders();
    QGridLayout* addButtons(QGroupBox& frame, Frame which);
    QLabel* label(QWidget& parent, const char* name, std::int16_t tag);
    Lamp makeLamp(QWidget& parent, const char* coloured, const char* white, int drawing,
                  std::int16_t tag, std::int16_t toolTipText);
    static void showLamp(const Lamp& lamp, bool on, const QString& state);
    void chosen(Command command);
    void lookAtClipboard();
    void showLimits();
    void showTitle();

    CommandTable table;
    MainWindowEvents events;
    CommandControls controls;
    QToolBar* toolBar = nullptr;
    GridView* grid = nullptr;
    GoToBar* goTo = nullptr;
    std::array<Lamp, 4> lamps;
    FieldLabel* alarmNo = nullptr;
    QLabel* alarmText = nullptr;
    LineRow* lineRow = nullptr;
    FieldLabel* fileName = nullptr;
    std::array<FieldLabel*, kAxes> deviceTypes{};
    std::array<FieldLabel*, 4> statusPanels{};
    MainPanel shown;              ///< what stands on the screen, so that only changes are painted
    bool loaded = false;          ///< the panel has been shown once
    bool clipboardChanged = true; ///< since the paste commands were last set by it
};

} // namespace qdw8
