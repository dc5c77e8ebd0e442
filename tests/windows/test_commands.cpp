// Every row of the table of commands, pressed on every control that it has.

#include "program/commands.h"

#include "app/string_table.h"
#include "main_form.h"

#include <map>
#include <optional>

namespace qdw8::test {
namespace {

/// What tells the routine behind a command from every other: what it asks first, what it sends
/// first, or what has become of the window. Empty: not built, and every control of it is off.
const std::map<std::string, std::string> kDoes{
    {"mnuFileNew New", "range"},
    {"cmdPosiFileOpen mnuFileOpen Open", "Open Position Data file"},
    {"cmdPosiRead mnuFileGetfromCt Read", "Save the editing data before reading data?"},
    {"cmdPosiSaveFile mnuFileSave Save", "Save Position data As..."},
    {"mnuFileSaveAs", "range, Write Data to the file,Yes?"},
    {"cmdPosiLoad mnuFileLoadtoCt Load", "range, Data is transmitted to controller,Yes?"},
    {"cmdPosiVerify Shogo", "frmDataShogo"},
    {"mnuFileShogoFile", "Open Position Data file to be Verified"},
    {"mnuFileShogoCt", "range, sends 0CM1"},
    {"mnuFilePageSetup", "printer 64"},
    {"mnuFilePrint Print", ""},
    {"mnuFileClose", "close"},
    {"mnuFileExit", "close"},
    {"cmdInsertLine mnuEditGyoInsert", "7 rows"},
    {"cmdDeleteLine mnuEditGyoDelete", "3 rows"},
    {"mnuEditLineCopy LineCopy", "Click at Posi number in order to select the row, and execute."},
    {"mnuEditLinePaste LinePaste", "Click at Position number the data pasted to or the first "
                                   "column cell the data pasted, and execute."},
    {"mnuEditCellCopy CellCopy", "Please perform copy after chosing one cell."},
    {"mnuEditCellPaste CellPaste",
     "It is impossible to paste data into cells of two or more colums."},
    {"mnuViewToolBar", "tool bar"},
    {"mnuViewStatusBar", "status bar"},
    {"cmdOpenIoWin mnuViewInputOutput InputOutput", ""},
    {"cmdOpenMoveWin mnuViewMoveTest MoveTest", ""},
    {"cmdOpenGrpWindow mnuViewGroup Group", ""},
    {"cmdSqMcrWinOpen mnuViewSqMacro SqMacro", ""},
    {"cmdJogTeach mnuViewTeaching", ""},
    {"mnuViewOption", ""},
    {"mnuSettingsDeviceOnline", "frmDevice3"},
    {"mnuSettingsDeviceOffline", "Actuator Setting"},
    {"cmdChangeDev", "Actuator Setting"},
    {"cmdParaHyoji mnuSettingsDetail", ""},
    {"mnuSettingsOffline", "Do you change the software to Offline from Online?"},
    {"cmdReset mnuFuncAlmReset", "sends 0AR"},
    {"mnuFuncCtversion", "sends 0CM1"},
    {"mnuFuncGetAxis", "sends 0RD0"},
    {"mnuFuncExternal", ""},
    {"mnuHelpContents", ""},
    {"mnuHelpVersion", ""},
};

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
                                           return std::nullopt;
                                       }};
        platform.onOutput = [this](const std::string& frame) {
            note("sends " + frame.substr(0, frame.size() - 2));
        };
        Screens().frmSelectPosiNo3 = [this] { note("range"); };
        Screens().frmDevice3 = [this] { note("frmDevice3"); };
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
    /// Two rows of two cells are selected, a line is on the clipboard.
    std::string whatHappens(const std::string& control) {
        show(1, 3);
        PosiDirtyFlag = kClear;
        ShowPosiFileName(ResText(213));
        copyOutside(std::string(19, '\t'));
        drag(3, 2, 4, 3);
        const auto hidden = [this] {
            return std::string(Get<QWidget>(*window, "tbToolBar").isHidden() ? "tool bar" : "") +
                   (Get<QWidget>(*window, "sbStatusBar").isHidden() ? "status bar" : "");
        };
        first.clear();
        press(QString::fromStdString(control));
        if (flgdData().rows.size() != 5) {
            note(std::to_string(flgdData().rows.size()) + " rows");
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
    std::map<std::string, std::string> does;
    for (const CommandRow& row : Commands().rows) {
        std::string controls;
        for (const auto& place : {row.button ? std::optional(row.button->name) : std::nullopt,
                                  row.entry ? std::optional(row.entry->name) : std::nullopt,
                                  row.tool ? std::optional(row.tool->name) : std::nullopt}) {
            if (!place) {
                continue;
            }
            const std::string name(NameOf(*place));
            EXPECT_EQ(isOn(QString::fromStdString(name)), row.built()) << name;
            const std::string happens = whatHappens(name);
            const auto [all, isFirst] = does.emplace("this row", happens);
            EXPECT_EQ(happens, all->second) << name;
            controls += (controls.empty() ? "" : " ") + name;
        }
        EXPECT_EQ(kDoes.count(controls), 1U) << controls;
        auto happens = does.extract("this row");
        happens.key() = controls;
        does.insert(std::move(happens));
    }
    EXPECT_EQ(does, kDoes);
    EXPECT_EQ(commands.size(), 42U) << "each control that is on has handed its command out";
}

} // namespace
} // namespace qdw8::test
