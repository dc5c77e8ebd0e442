// Which commands each routine takes away and gives back, command by command.

#include "app/command_states.h"

#include "app/screens.h"
#include "platform/whole_file.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace qdw8 {
namespace {

using Names = std::set<std::string>;

const std::map<std::string, std::function<void()>> kRoutines{
    {"CMDBTN_Muko", CMDBTN_Muko},
    {"CMDBTN_Yuko", CMDBTN_Yuko},
    {"ToolBar_Muko", ToolBar_Muko},
    {"ToolBar_Yuko", ToolBar_Yuko},
    {"Menyu_Muko", Menyu_Muko},
    {"Menyu_Yuko", Menyu_Yuko},
    {"MenuFunction_Muko", MenuFunction_Muko},
    {"MenuFunction_Yuko", MenuFunction_Yuko},
    {"EditCMD_Muko", EditCMD_Muko},
    {"LinePaste_Muko", LinePaste_Muko},
    {"CellPasteYuko", CellPasteYuko},
    {"CommandsAway", [] { const CommandsAway away; }},
    {"EditCMD_Yuko", EditCMD_Yuko},
    {"LineCopied",
     [] {
         LineCopiedFlag = kSet;
         EditCMD_Yuko();
     }},
    {"CellCopied", [] {
         LineCopiedFlag = 1;
         CellCopiedFlag = kSet;
         EditCMD_Yuko();
     }}};

template<typename Act> void ForEachCommand(const Act& act) {
    for (std::size_t i = 0; i < kCommands; ++i) {
        act(static_cast<Command>(i));
    }
}

/// The commands that are on, or those that are not.
Names Now(bool enabled) {
    Names names;
    ForEachCommand([&](Command command) {
        if (IsEnabled(command) == enabled) {
            names.emplace(NameOf(command));
        }
    });
    return names;
}

/// A fresh program with every command built, and on or off.
void Begin(bool enabled) {
    ResetCommandStates();
    CMDBTN_Yuko();
    ForEachCommand([enabled](Command command) {
        SetBuilt(command);
        SetEnabled(command, enabled);
    });
}

TEST(CommandStates, EachRoutineTouchesItsListsAndNothingElse) {
    Begin(true);
    Names rest = Now(true);
    ASSERT_EQ(rest.size(), kCommands) << "each has a name of its own";
    std::map<std::string, Names> lists;
    std::istringstream table(ReadWholeFile(QDW8_SOURCE_DIR "/tests/app/command_states.txt"));
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string name;
        std::string sign;
        words >> name >> sign;
        if (name == "#") {
            continue;
        }
        SCOPED_TRACE(line);
        Names named;
        for (std::string word; words >> word;) {
            if (sign == "=") {
                named.insert(word);
                rest.erase(word);
            } else {
                const Names& list = word == "Rest" ? rest : lists.at(word);
                named.insert(list.begin(), list.end());
            }
        }
        if (sign == "=") {
            lists[name] = named;
            continue;
        }
        Begin(sign == "-");
        int told = 0;
        Screens().frmMainCommands = [&told] { ++told; };
        kRoutines.at(name)();
        Screens() = {};
        EXPECT_EQ(Now(sign == "+"), named);
        EXPECT_GE(told, 1);
    }
    EXPECT_EQ(lists.size(), 12U);
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
    EXPECT_EQ(Now(true), Names{"mnuFileExit"})
        << "the outer one still runs, and the end can be asked";
}

TEST(CommandStates, EverythingIsOffAtLoadAndWhatIsNotBuiltStaysOff) {
    ResetCommandStates();
    SetBuilt(Command::cmdReset);
    EXPECT_EQ(Now(true), Names{}) << "start-up has not ended yet";
    CMDBTN_Yuko();
    ToolBar_Yuko();
    Menyu_Yuko();
    EXPECT_EQ(Now(true), Names{"cmdReset"});
}

} // namespace
} // namespace qdw8
