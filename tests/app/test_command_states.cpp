// Which commands each routine takes away and gives back, command by command.

#include "app/command_states.h"

#include "app/screens.h"
#include "support/story.h"

#include <set>

namespace qdw8::test {
namespace {

using Names = std::set<std::string>;

const std::map<std::string, void (*)()> kRoutines{
    NAMED(CMDBTN_Muko),  NAMED(CMDBTN_Yuko),  NAMED(ToolBar_Muko),      NAMED(ToolBar_Yuko),
    NAMED(Menyu_Muko),   NAMED(Menyu_Yuko),   NAMED(MenuFunction_Muko), NAMED(MenuFunction_Yuko),
    NAMED(EditCMD_Muko), NAMED(EditCMD_Yuko), NAMED(LinePaste_Muko),    NAMED(CellPasteYuko)};

/// The commands that are on, or those that are not.
Names Now(bool enabled) {
    Names names;
    for (std::size_t i = 0; i < kCommands; ++i) {
        if (IsEnabled(static_cast<Command>(i)) == enabled) {
            names.emplace(NameOf(static_cast<Command>(i)));
        }
    }
    return names;
}

/// A fresh program with every command built, and on or off.
void Begin(bool enabled) {
    ResetCommandStates();
    CMDBTN_Yuko();
    for (std::size_t i = 0; i < kCommands; ++i) {
        SetBuilt(static_cast<Command>(i));
        SetEnabled(static_cast<Command>(i), enabled);
    }
}

TEST(CommandStates, EachRoutineTouchesItsListsAndNothingElse) {
    Begin(true);
    std::map<std::string, Names> lists{{"Rest", Now(true)}};
    ASSERT_EQ(lists["Rest"].size(), kCommands) << "each has a name of its own";
    int routines = 0;
    for (const auto& row : RowsOf("app/command_states.txt")) {
        Args words(row[0]);
        const std::string name = Word(words);
        const std::string sign = Word(words);
        Names named;
        for (std::string word; words >> word;) {
            named.merge(sign == "=" ? Names{word} : Names(lists.at(word)));
            sign == "=" ? lists["Rest"].erase(word) : 0;
        }
        if (sign == "=") {
            lists[name] = named;
        } else {
            Begin(sign == "-");
            int told = 0;
            Screens().frmMainCommands = [&told] { ++told; };
            LineCopiedFlag = name == "LineCopied" ? kSet : 1; // only kSet counts
            CellCopiedFlag = FlagOf(name == "CellCopied");
            name == "CommandsAway"
                ? void(CommandsAway())
                : (name.ends_with("Copied") ? EditCMD_Yuko : kRoutines.at(name))();
            Screens() = {};
            EXPECT_EQ(Now(sign == "+"), named) << row[0];
            EXPECT_GE(told, 1);
            ++routines;
        }
    }
    EXPECT_EQ(routines, 18);
}

TEST(CommandStates, NothingIsOnInABatchAndEditCommandsComeBackAsTheyWere) {
    Begin(true);
    SetEnabled(Command::mnuEditLinePaste, false);
    const Names before = Now(true);
    {
        const EditCommandsAway away;
        EXPECT_NE(Now(true), before);
    }
    EXPECT_EQ(Now(true), before);
    const CommandsAway away;
    { const CommandsAway inside; }
    EXPECT_EQ(Now(true), (Names{"mnuFileExit", "mnuGridGoTo", "mnuGridRedo", "mnuGridUndo"}))
        << "the outer one still runs";
}

} // namespace
} // namespace qdw8::test
