// Which commands each routine takes away and gives back, command by command.

#include "app/command_states.h"

#include "app/screens.h"

#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace qdw8 {
namespace {

using Names = std::set<std::string>;

const Names kButtons{"cmdPosiSaveFile", "cmdPosiLoad",    "cmdPosiRead",      "cmdPosiVerify",
                     "cmdOpenIoWin",    "cmdOpenMoveWin", "cmdOpenGrpWindow", "cmdSqMcrWinOpen",
                     "cmdParaHyoji",    "cmdJogTeach",    "cmdReset"};
const Names kLineButtons{"cmdInsertLine", "cmdDeleteLine"};
const Names kToolBar{"New",   "Open",        "Save",     "Print", "Read",   "Load",
                     "Shogo", "InputOutput", "MoveTest", "Group", "SqMacro"};
const Names kToolBarEdit{"LineCopy", "LinePaste", "CellCopy", "CellPaste"};
const Names kMenus{"mnuFileOpen",  "mnuFileGetfromCt", "mnuFileSave",      "mnuFileSaveAs",
                   "mnuFileShogo", "mnuFileLoadtoCt",  "mnuFilePageSetup", "mnuFilePrint",
                   "mnuEdit",      "mnuFuncCtversion", "mnuFunctionCt",    "mnuView",
                   "mnuSettings"};
const Names kLineMenus{"mnuEditGyoInsert", "mnuEditGyoDelete"};
const Names kLineClip{"mnuEditLineCopy", "mnuEditLinePaste", "LineCopy", "LinePaste"};
const Names kCellClip{"mnuEditCellCopy", "mnuEditCellPaste", "CellCopy", "CellPaste"};

Names operator+(Names all, const Names& more) {
    all.insert(more.begin(), more.end());
    return all;
}

Names operator-(Names all, const Names& fewer) {
    for (const std::string& name : fewer) {
        all.erase(name);
    }
    return all;
}

std::vector<Command> AllCommands() {
    std::vector<Command> commands;
    for (std::size_t i = 0; i < kCommands; ++i) {
        commands.push_back(static_cast<Command>(i));
    }
    return commands;
}

Names EnabledNames() {
    Names names;
    for (const Command command : AllCommands()) {
        if (IsEnabled(command)) {
            names.emplace(NameOf(command));
        }
    }
    return names;
}

class CommandStates : public testing::Test {
protected:
    CommandStates() {
        ResetCommandStates();
        for (const Command command : AllCommands()) {
            SetBuilt(command);
        }
    }
    ~CommandStates() override { Screens() = ScreenFunctions{}; }

    /// Every command on (or, with false, off), no batch running.
    static void setAll(bool enabled) {
        CMDBTN_Yuko();
        for (const Command command : AllCommands()) {
            SetEnabled(command, enabled);
        }
    }
};

const Names kEverything = [] {
    Names names;
    for (const Command command : AllCommands()) {
        names.emplace(NameOf(command));
    }
    return names;
}();
/// What no routine touches.
const Names kLeftOut = kEverything - kButtons - kLineButtons - kToolBar - kToolBarEdit - kMenus -
                       kLineMenus - kLineClip - kCellClip;

TEST_F(CommandStates, EveryCommandHasANameOfItsOwn) {
    EXPECT_EQ(kEverything.size(), kCommands);
    EXPECT_EQ(kEverything.count(""), 0U);
}

TEST_F(CommandStates, EachRoutineTouchesItsListAndNothingElse) {
    struct Case {
        std::string name;
        std::function<void()> routine;
        Names off; ///< what it takes away when everything is on
        Names on;  ///< what it gives back when everything is off
    };
    const Names editLine = kLineButtons + kLineMenus;
    const std::vector<Case> cases{
        // A batch holds the commands of no list too.
        {"CMDBTN_Muko", CMDBTN_Muko, kButtons + kLineButtons + kLeftOut, {}},
        {"CMDBTN_Yuko", CMDBTN_Yuko, {}, kButtons},
        {"ToolBar_Muko", ToolBar_Muko, kToolBar + kToolBarEdit, {}},
        {"ToolBar_Yuko", ToolBar_Yuko, {}, kToolBar},
        {"Menyu_Muko", Menyu_Muko, kMenus + kLineMenus, {}},
        {"Menyu_Yuko", Menyu_Yuko, {}, kMenus},
        {"MenuFunction_Muko", MenuFunction_Muko, {"mnuFunctionCt"}, {}},
        {"MenuFunction_Yuko", MenuFunction_Yuko, {}, {"mnuFunctionCt"}},
        {"EditCMD_Muko", EditCMD_Muko, editLine + kLineClip + kCellClip, {}},
        {"LinePaste_Muko", LinePaste_Muko, kLineClip, {}},
        {"CellPasteYuko", CellPasteYuko, {}, editLine + kLineClip + kCellClip},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        setAll(true);
        c.routine();
        EXPECT_EQ(kEverything - EnabledNames(), c.off);
        setAll(false);
        c.routine();
        EXPECT_EQ(EnabledNames(), c.on);
    }
}

TEST_F(CommandStates, ARowSelectionOffersWhatTheClipboardsHold) {
    const Names copies = kLineButtons + kLineMenus +
                         Names{"mnuEditCellCopy", "CellCopy", "mnuEditLineCopy", "LineCopy"};
    const Names linePaste{"mnuEditLinePaste", "LinePaste"};
    const Names cellPaste{"mnuEditCellPaste", "CellPaste"};
    for (const Flag line : {kSet, kClear, Flag{1}}) {
        for (const Flag cell : {kSet, kClear, Flag{1}}) {
            SCOPED_TRACE(std::to_string(line) + " " + std::to_string(cell));
            LineCopiedFlag = line;
            CellCopiedFlag = cell;
            const Names pastes =
                (line == kSet ? linePaste : Names{}) + (cell == kSet ? cellPaste : Names{});
            setAll(false);
            EditCMD_Yuko();
            EXPECT_EQ(EnabledNames(), copies + pastes);
            setAll(true);
            EditCMD_Yuko();
            EXPECT_EQ(EnabledNames(), kEverything - (linePaste + cellPaste) + pastes);
        }
    }
}

TEST_F(CommandStates, ABatchGivesBackAllButTheEditCommands) {
    setAll(true);
    {
        const CommandsAway away;
        EXPECT_EQ(EnabledNames(), Names{});
    }
    EXPECT_EQ(EnabledNames(), kEverything - kLineButtons - kLineMenus - kLineClip - kCellClip);
}

TEST_F(CommandStates, TheEditCommandsComeBackAsTheyWere) {
    setAll(true);
    SetEnabled(Command::mnuEditLinePaste, false);
    const Names before = EnabledNames();
    {
        const EditCommandsAway away;
        EXPECT_EQ(EnabledNames(), kEverything - kLineButtons - kLineMenus - kLineClip - kCellClip);
    }
    EXPECT_EQ(EnabledNames(), before);
}

TEST_F(CommandStates, EverythingIsOffAtLoadAndWhatIsNotBuiltStaysOff) {
    ResetCommandStates();
    EXPECT_EQ(EnabledNames(), Names{});
    SetBuilt(Command::cmdReset);
    SetBuilt(Command::mnuFileOpen);
    EXPECT_EQ(EnabledNames(), Names{}) << "start-up has not ended yet";
    CMDBTN_Yuko();
    ToolBar_Yuko();
    Menyu_Yuko();
    EXPECT_EQ(EnabledNames(), (Names{"cmdReset", "mnuFileOpen"}));
}

TEST_F(CommandStates, TheWindowIsTold) {
    int told = 0;
    Screens().frmMainCommands = [&told] { ++told; };
    for (const auto& routine : {CMDBTN_Muko, CMDBTN_Yuko, ToolBar_Muko, ToolBar_Yuko, Menyu_Muko,
                                Menyu_Yuko, MenuFunction_Muko, MenuFunction_Yuko, EditCMD_Muko,
                                EditCMD_Yuko, CellPasteYuko, LinePaste_Muko}) {
        told = 0;
        routine();
        EXPECT_GE(told, 1);
    }
}

} // namespace
} // namespace qdw8
