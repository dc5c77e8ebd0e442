// Every row of the table of commands, pressed on every control that it has.

#include "program/commands.h"

#include "app/string_table.h"
#include "main_form.h"
#include "motion/motion_window.h"
#include "platform/whole_file.h"
#include "position/grid_lines.h"
#include "position/grid_undo.h"

#include <optional>
#include <set>

namespace qdw8::test {
namespace {

class CommandRows : public MainForm {
protected:
    CommandRows() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
        ThePlatform().ShowMessageBox = [this](const BoxQuestion& question) {
            note(question.text);
            return BoxAnswer::Cancel;
        };
        ThePlatform().CommonDialog1 = {[this](const FileQuestion& question) {
                                           note(question.title);
                                           return std::nullopt;
                                       },
                                       [this](const PrinterQuestion& question) {
                                           note("printer " + std::to_string(question.flags));
                                           return PrinterAnswer::Cancel;
                                       }};
        platform.onOutput = [this](const std::string& frame) {
            note("sends " + frame.substr(0, frame.size() - 2));
        };
        Screens().frmSelectPosiNo3 = [this] { note("range"); };
        Screens().frmDevice3 = [this] { note("frmDevice3"); };
        Screens().frmGrpShow = [this] { note("frmGrp"); };
        Screens().frmSqMcrShow = [this] { note("frmSqMcr"); };
        Screens().frmIOCheckShow = [this] { note("frmIOCheck"); };
        Screens().frmJOGShow = [this] { note("frmJOG"); };
        Screens().frmOptions2Show = [this] { note("frmOptions2"); };
        Screens().frmAboutShow = [this] { note("frmAbout"); };
        Screens().frmHelpShow = [this] { note("frmHelp"); };
        Screens().frmMoveShow = [this] { note("frmMove"); };
        Screens().frmParameta2Show = [this](bool modal) { note(modal ? "" : "frmParameta2"); };
        Screens().frmPrintSelect = [this] { note("frmPrintSelect"); };
        Screens().frmMainClose = [this] { note("close"); };
        Screens().frmDataShogo = [this] {
            note("frmDataShogo");
            return std::int16_t{0};
        };
        Screens().frmSelection = [this](const SelectionQuestion& question) {
            note(question.text);
            return kSelectionCancelled;
        };
    }

    void note(const std::string& what) {
        // The choice of the range alone doesn't tell enough.
        if (first.empty() || first == "range") {
            first += (first.empty() ? "" : ", ") + what;
        }
    }
    /// Of three rows the second is new, and one has been taken back; two rows of two cells are
    /// selected, a line is on the clipboard.
    std::string whatHappens(const std::string& control, bool built) {
        show(1, 2);
        InsertLines(3, 1);
        InsertLines(3, 1);
        mnuGridUndo_Click();
        PosiDirtyFlag = kClear;
        ShowPosiFileName(ResText(213));
        copyOutside(std::string(19, '\t'));
        drag(3, 2, 4, 3);
        EXPECT_EQ(isOn(QString::fromStdString(control)), built) << control;
        const auto hidden = [this] {
            return std::string(Get<QWidget>(*window, "tbToolBar").isHidden() ? "tool bar" : "") +
                   (Get<QWidget>(*window, "sbStatusBar").isHidden() ? "status bar" : "");
        };
        first.clear();
        MotionWindowClosed(); // of the command before
        press(QString::fromStdString(control));
        if (flgdData().rows.size() != 5) {
            note(std::to_string(flgdData().rows.size()) + " rows");
        }
        if (Get<QWidget>(*window, "GoToBar").isVisible()) {
            note("GoToBar");
        }
        if (!hidden().empty()) {
            note(hidden());
            press(QString::fromStdString(control));
            EXPECT_EQ(hidden(), "") << "it comes back";
        }
        return first;
    }

    std::string first;
};

TEST_F(CommandRows, EveryControlDoesWhatItsRowSays) {
    std::string all;
    std::size_t presses = 0;
    for (const CommandRow& row : Commands().rows) {
        std::set<std::string> does;
        for (const auto& place : {row.button ? std::optional(row.button->name) : std::nullopt,
                                  row.entry ? std::optional(row.entry->name) : std::nullopt,
                                  row.tool ? std::optional(row.tool->name) : std::nullopt}) {
            if (place) {
                const std::string name(NameOf(*place));
                presses += row.routine != nullptr ? 1U : 0U;
                does.insert(whatHappens(name, row.built()));
                all += (all.empty() || all.ends_with('\n') ? "" : " ") + name;
            }
        }
        EXPECT_EQ(does.size(), 1U) << "every control the same: " << all;
        all += ": " + (does.begin()->empty() ? "-" : *does.begin()) + '\n';
    }
    const std::string told = ReadWholeFile(QDW8_SOURCE_DIR "/tests/windows/commands.txt");
    EXPECT_EQ(all, told.substr(told.find("mnuFileNew")));
    EXPECT_EQ(commands.size(), presses) << "each control that is on has handed its command out";
}

} // namespace
} // namespace qdw8::test
