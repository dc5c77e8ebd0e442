#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "platform/whole_file.h"
#include "support/story.h"
#include "tables_bench.h"

#include <algorithm>
#include <filesystem>
#include <utility>

/// Tells the stories in stories/ in the words of the tables below. After each "do" everything asked
/// for must have come, and the program must be at rest.
namespace qdw8::test {
namespace {

const SmallTable& TableOf(Args& args) {
    return Word(args) == "groups" ? Groups() : Macros();
}
void Click(const std::string& control) {
    const auto named = [&](const TableCommand& command) { return command.control == control; };
    const auto* group = std::find_if(GrpCommands().begin(), GrpCommands().end(), named);
    const auto* macro = std::find_if(SmCommands().begin(), SmCommands().end(), named);
    ASSERT_TRUE(group != GrpCommands().end() || macro != SmCommands().end()) << control;
    group != GrpCommands().end() ? RunTableCommand(Groups(), *group)
                                 : RunTableCommand(Macros(), *macro);
}
std::string YesOrNo(bool yes) {
    return yes ? "yes" : "no";
}

/// Numbers of a row, "groups 5" or "macros 5", of a copy. END behind END is left out.
auto NumbersOf(Held copy) {
    return [copy](Args& args) {
        const SmallTable& table = TableOf(args);
        const Numbers numbers = table.take(copy);
        const std::size_t first = IndexOf(table, Number(args), 0);
        std::string text;
        std::string zeros;
        for (int field = 0; field < table.fields; ++field) {
            const std::int16_t number = numbers[first + static_cast<std::size_t>(field)];
            zeros += (field == 0 ? "" : " ") + std::to_string(number);
            text += number == 0 ? "" : std::exchange(zeros, "");
        }
        return text;
    };
}
/// "groups 5 3 9": the first numbers of a row of a copy.
auto SetNumbers(Held copy) {
    return [copy](Args& args) {
        const SmallTable& table = TableOf(args);
        Numbers numbers = table.take(copy);
        std::size_t at = IndexOf(table, Number(args), 0);
        for (std::int16_t number = 0; args >> number; ++at) {
            numbers.at(at) = number;
        }
        table.put(copy, numbers);
    };
}
std::vector<Numbers> Everything() {
    return {TakeGroups(Held::Shown), TakeGroups(Held::Compare), TakeMacros(Held::Shown),
            TakeMacros(Held::Compare)};
}
/// A row of the screen and what is done with it.
auto InRow(void (*act)(int row, Args& args)) {
    return [act](Args& args) { act(Number(args) - 1, args); };
}

class Story : public TablesBench {
public:
    Story() {
        Screens().frmTrance = [this] {
            const TransferDialog& dialog = TheTransferDialog();
            if (dialog.lblSetumei == OfferText()) {
                cmdTranceCancel_Click();
            } else if (dialog.shown) {
                bar = dialog.lblSetumei + (dialog.cancelShown ? "* " : " ") +
                      std::to_string(dialog.prgBar1) + "/" + std::to_string(dialog.prgBar1Max);
            } else {
                goneAt = platform.events.size();
            }
        };
    }

    void tell(const std::string& statement) { TellStatement(words, values, statement); }

private:
    /// A file of the tests with "@", else one in the folder.
    std::string fileAt(const std::string& name) const {
        return name[0] == '@' ? QDW8_SOURCE_DIR "/tests/tables/files/" + name.substr(1)
                              : pathOf(name);
    }
    StoryWords::mapped_type ask(BoxButtons buttons, BoxAnswer answer) {
        return [=, this](Args& args) { platform.expectBox(Rest(args), buttons, answer); };
    }
    /// "file title", and for a save the proposed name between them; a file "nothing": cancelled.
    StoryWords::mapped_type pick(FileQuestion::Kind kind, int flags) {
        return [=, this](Args& args) {
            const std::string name = Word(args);
            const std::string ending = name.substr(name.size() - 3);
            const std::string proposed = flags == kOverwritePrompt ? Word(args) : "";
            const std::string filter = (ending == "grp" ? "GRP" : "SM") + (" Data(*." + ending) +
                                       ")|*." + ending + "|All files(*.*)|*.*";
            platform.expectFile({kind, Rest(args), filter, ending, proposed, "", flags},
                                name.starts_with("nothing")
                                    ? std::nullopt
                                    : std::optional(FileAnswer{fileAt(name), name}));
        };
    }
    /// "frame what": a button is clicked while the program waits for the answer to a frame, the
    /// transfer is cancelled, or the end of the program confirmed.
    void during(Args& args) {
        platform.onOutput = [this, frame = Word(args), what = Word(args),
                             send = platform.onOutput](const std::string& text) {
            if (text.starts_with(frame)) {
                platform.after(0, [what] {
                    what == "cancel" ? cmdTranceCancel_Click()
                    : what == "end"  ? void(ProgramEndFlag = kSet)
                                     : Click(what);
                });
            }
            send(text);
        };
    }
    void run(const std::function<void()>& command) {
        platform.sent.clear();
        const std::int64_t begin = platform.now;
        command();
        took = platform.now - begin;
        platform.checkAllAsked();
        ExpectAtRest(platform);
    }
    /// The frames of the last command; rows that follow each other stand together.
    std::string frames() const {
        std::string text;
        std::string last;
        int count = 0;
        for (const std::string& frame : platform.sent) {
            const std::string kind = frame.starts_with("0CM") ? frame : frame.substr(0, 3);
            count = kind == last ? count + 1 : 1;
            text.resize(count == 1 ? text.size() : text.rfind(' '));
            text += " " + (count == 1 ? frame : kind + "*" + std::to_string(count));
            last = kind;
        }
        return text.substr(text.empty() ? 0 : 1);
    }
    std::string closes(Args& args) {
        bool goes = false;
        run([&] { goes = MayClose(TableOf(args)); });
        return YesOrNo(goes);
    }

    std::int64_t took = 0;
    std::string bar;        ///< the last that the transfer dialog showed
    std::size_t goneAt = 0; ///< what had been asked and told when it went
    std::string printed;
    std::vector<Numbers> kept;
    const StoryWords words{
        // what there is
        {"set", SetNumbers(Held::Shown)},
        {"compare", SetNumbers(Held::Compare)},
        {"fault", [this](Args& a) { addFault(Word(a)); }},
        {"during", [this](Args& a) { during(a); }},
        {"paper",
         [this](Args&) {
             Screens().PrintGrpData = [this](const std::string& name) {
                 printed = name;
                 for (const int number :
                      {GrpCompare[1].start + 0, GrpCompare[5].start + 0,
                       SmCompare[1][0].command + 0, SmCompare[20][0].command + 0}) {
                     printed += number == kNotInFile ? " -" : " " + std::to_string(number);
                 }
             };
             Screens().PrintSmData = Screens().PrintGrpData;
         }},
        {"huge",
         [this](Args& a) {
             const auto size = static_cast<std::uintmax_t>(Number(a));
             const std::string name = Word(a);
             std::filesystem::resize_file(writeFile(name, Rest(a)), size);
         }},
        {"folder", [this](Args& a) { std::filesystem::create_directory(fileAt(Word(a))); }},
        {"no-dialog", [](Args&) { ThePlatform().CommonDialog1.ShowFile = {}; }},
        {"keep", [this](Args&) { kept = Everything(); }},
        // what the program asks
        {"box", [this](Args& a) { platform.expectBox(Rest(a)); }},
        {"ok", ask(BoxButtons::OkCancel, BoxAnswer::Ok)},
        {"cancel", ask(BoxButtons::OkCancel, BoxAnswer::Cancel)},
        {"yes", ask(BoxButtons::YesNoCancel, BoxAnswer::Yes)},
        {"no", ask(BoxButtons::YesNoCancel, BoxAnswer::No)},
        {"stay", ask(BoxButtons::YesNoCancel, BoxAnswer::Cancel)},
        {"open", pick(FileQuestion::Kind::Open, kFileMustExist)},
        {"drop",
         [this](Args& a) {
             const SmallTable& table = TableOf(a);
             run([&] { OpenDroppedTable(table, {fileAt(Word(a))}); });
         }},
        {"save", pick(FileQuestion::Kind::Save, kOverwritePrompt)},
        // what the user does
        {"do", [this](Args& a) { run([&a] { Click(Word(a)); }); }},
        {"page", [](Args& a) { ShowGrpPage(Number(a)); }},
        {"start", InRow([](int row, Args& a) { EditGrp(row, kGrpStart, Rest(a)); })},
        {"end", InRow([](int row, Args& a) { EditGrp(row, kGrpEnd, Rest(a)); })},
        {"macro", [](Args& a) { ShowMacro(Number(a)); }},
        {"choose", InRow([](int step, Args& a) { ChooseSmCommand(step, Number(a)); })},
        {"type", InRow([](int step, Args& a) { EditSmData(step, Rest(a)); })},
        {"enter", InRow([](int step, Args&) { EnterSmData(step); })},
        {"open-again", [](Args& a) { &TableOf(a) == &Groups() ? LoadGrp() : LoadSm(); }},
        // what stands afterwards, beside what `values` tells
        {"kept", [this](Args&) { EXPECT_EQ(Everything(), kept); }},
        {"same", [this](Args& a) {
             const std::string text = ReadWholeFile(fileAt(Word(a)));
             EXPECT_EQ(text, ReadWholeFile(fileAt(Word(a))));
         }}};
    /// "word arguments = value"
    const StoryValues values{
        {"shown", NumbersOf(Held::Shown)},
        {"delivered", NumbersOf(Held::Compare)},
        {"mark", [](Args& a) { return std::to_string(GrpTable.at(std::size_t(Number(a))).error); }},
        {"refused",
         [](Args& a) {
             const SmallTable& table = TableOf(a);
             const int row = Number(a);
             const std::int16_t reason = ReasonOf(table, row, Number(a));
             return reason == 0 ? "no" : ResText(reason);
         }},
        {"unsaved", [](Args& a) { return YesOrNo(TableOf(a).state.unsaved); }},
        {"named", [](Args& a) { return TableOf(a).state.name; }},
        {"closes", [this](Args& a) { return closes(a); }},
        {"frames", [this](Args&) { return frames(); }},
        {"bar", [this](Args&) { return bar; }},
        {"box-behind-dialog",
         [this](Args&) { return YesOrNo(platform.events.at(goneAt).starts_with("box")); }},
        {"took", [this](Args&) { return std::to_string(took); }},
        {"printed", [this](Args&) { return printed; }},
        {"beeps", [this](Args&) { return std::to_string(platform.beeps); }},
        {"row",
         [](Args& a) {
             const SmStepShown& row = TheSmForm().steps.at(std::size_t(Number(a) - 1));
             return std::to_string(row.comboMerei) + ":" + row.txtSmData;
         }},
        {"keys",
         [](Args& a) {
             std::string keys = "\b0123456789-x\r";
             std::erase_if(
                 keys, [step = Number(a) - 1](char key) { return !SmDataKeyGoesIn(step, key); });
             return keys.replace(keys.find('\b'), 1, "<");
         }},
        {"limits", [](Args& a) { return ResText(SmDataLimits(Number(a) - 1)); }}};
};

TEST(Tables, Stories) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/tables/stories", 60);
}

} // namespace
} // namespace qdw8::test
