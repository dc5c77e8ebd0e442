#include "app/number_forms.h"
#include "app/screens.h"
#include "platform/whole_file.h"
#include "position/grid_clipboard.h"
#include "position/grid_lines.h"
#include "position/grid_undo.h"
#include "position/posi_file.h"
#include "position/posi_new.h"
#include "position/posi_reader.h"
#include "position/posi_verify.h"
#include "position/range_dialogs.h"
#include "position_bench.h"
#include "setup/posi_open.h"
#include "setup/posi_read.h"
#include "setup/posi_write.h"
#include "support/story.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

/// Tells the stories in stories/ in the words of the tables below. After each "do" everything asked
/// for must have come, and the program must be at rest.
namespace qdw8::test {
namespace {

/// A word between quotes.
std::string Field(Args& args) {
    const std::string word = Word(args);
    return word.substr(1, word.size() - 2);
}
std::int16_t Short(Args& args) {
    return static_cast<std::int16_t>(Number(args));
}
std::pair<std::int16_t, std::int16_t> Range(const std::string& text) {
    return {static_cast<std::int16_t>(std::stoi(text)),
            static_cast<std::int16_t>(std::stoi(text.substr(text.find('-') + 1)))};
}

std::ptrdiff_t Named(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) - names.begin();
}

const std::map<std::string, void (*)()> kCommands{{"save", SavePosiFile},
                                                  {"save-as", SavePosiFileAs},
                                                  {"open", OpenPosiFile},
                                                  {"new", mnuFileNew_Click},
                                                  {"close", mnuFileClose_Click},
                                                  {"read", ReadFromCt},
                                                  {"write", WriteToCt},
                                                  {"verify", VerifyChoose},
                                                  {"verify-file", PosiDataFileShogo2},
                                                  {"verify-controller", PosiDataCtShogo},
                                                  {"check", [] { PosiDataCheck3(); }},
                                                  {"mm", [] { ChangeUnit(kSet); }},
                                                  {"pulses", [] { ChangeUnit(kClear); }},
                                                  {"undo", mnuGridUndo_Click},
                                                  {"redo", mnuGridRedo_Click},
                                                  {"insert-lines", InsertLine_Click},
                                                  {"delete-lines", DeleteLine_Click},
                                                  {"delete", flgdData_Delete},
                                                  {"end-program", [] { ProgramEndFlag = kSet; }},
                                                  {"copy-cell", mnuEditCellCopy_Click},
                                                  {"copy-lines", mnuEditLineCopy_Click},
                                                  {"paste-cells", mnuEditCellPaste_Click},
                                                  {"paste-lines", mnuEditLinePaste_Click}};
const std::map<std::string, std::pair<FileQuestion::Kind, const char*>> kDialogs{
    {"open", {FileQuestion::Kind::Open, "Open Position Data file"}},
    {"verify", {FileQuestion::Kind::Open, "Open Position Data file to be Verified"}},
    {"save", {FileQuestion::Kind::Save, "Save Position data As..."}},
    {"save-as", {FileQuestion::Kind::Save, "Save Position Data as ..."}}};

class Story : public PositionBench {
public:
    Story() {
        for (const Command command :
             {Command::cmdInsertLine, Command::mnuEditLinePaste, Command::mnuEditCellPaste}) {
            SetBuilt(command);
        }
        CMDBTN_Yuko();
        Screens().frmMainClose = [this] { ++closes; };
        Screens().frmTrance = [this] {
            const TransferDialog& dialog = TheTransferDialog();
            bars += !dialog.shown
                        ? "gone"
                        : dialog.lblSetumei.substr(0, 4) + (dialog.cancelShown ? "* " : " ") +
                              std::to_string(dialog.prgBar1) + "/" +
                              std::to_string(dialog.prgBar1Max) + ", ";
        };
    }

    void tell(const std::string& statement) { TellStatement(words, values, statement); }

private:
    /// A file of the tests with "@", else one in the folder.
    std::string fileAt(const std::string& name) const {
        return name == "nothing" ? "" : name[0] == '@' ? fileOf(name.substr(1)) : pathOf(name);
    }
    static std::pair<int, int> place(Args& args) {
        const int position = Number(args);
        return {position - GridFirst + kGridHeadRows, ColumnNamed(Word(args)) + 1};
    }
    void run(Args& args) {
        const std::int64_t begin = platform.now;
        kCommands.at(Word(args))();
        took = platform.now - begin;
        platform.checkAllAsked();
        ExpectAtRest(platform);
        EXPECT_EQ(flgdData().locked + flgdData().frozen, 0);
    }
    /// Runs a command when the program waits for the answer to a frame for the first time.
    void runDuring(Args& args) {
        const std::string frame = Word(args);
        platform.onOutput = [this, frame, run = kCommands.at(Word(args)),
                             send = platform.onOutput](const std::string& t) mutable {
            if (run != nullptr && t.starts_with(frame)) {
                platform.after(0, std::exchange(run, nullptr));
            }
            send(t);
        };
    }
    void edit(Args& args, int key, bool accepted) {
        platform.beeps = 0;
        ASSERT_TRUE(StartEdit());
        SetEditText(Rest(args));
        flgdData_KeyDownEdit(key);
        EXPECT_EQ(CommitEdit(), accepted);
        EXPECT_EQ(platform.beeps, accepted ? 0 : 1);
        CancelEdit();
    }
    void expectResult(Args& args) {
        platform.expectScreen("frmSyogoKekka", [wanted = Rest(args)] {
            std::string marked;
            for (const ResultRow& row : ResultRows()) {
                marked += std::to_string(row.position);
                for (int column = 0; column < kComment; ++column) {
                    const bool failed = row.failed.test(static_cast<std::size_t>(column));
                    marked += failed ? " " + GridHead(1, column + 1) : "";
                }
                marked += "; ";
            }
            EXPECT_EQ(marked, wanted + "; ");
            EXPECT_EQ(static_cast<std::size_t>(PosiErrorCount), ResultRows().size());
        });
    }
    void expectRangeOf(Args& args) {
        const std::string dialog = Word(args);
        const std::string rows = Word(args);
        if (rows == "cancel") {
            platform.expectScreen(dialog, RangeDialogCancelled);
        } else if (rows.empty()) {
            platform.expectScreen(dialog + " without a range");
        } else {
            expectRange(dialog, Range(rows).first, Range(rows).second);
        }
    }

    std::int64_t took = 0;
    int closes = 0;
    std::string bars; ///< what the transfer dialog showed, one after the other
    const StoryWords words{
        // what there is
        {"grid", [](Args& a) { std::apply(showRows, Range(Word(a))); }},
        {"no-grid", [](Args&) { ResetGrid(); }},
        {"set",
         [](Args& a) {
             const auto [row, column] = place(a);
             SetGridText(row, column, Rest(a));
         }},
        {"working", [](Args& a) { std::tie(PosiFirst, PosiLast) = Range(Word(a)); }},
        {"unit", [](Args& a) { DispMmFlag = FlagOf(Word(a) == "mm"); }},
        {"changed", [](Args&) { PosiDirtyFlag = kSet; }},
        {"file", [this](Args& a) { TakePosiFile(fileAt(Word(a))); }},
        {"name", [](Args& a) { ShowPosiFileName(Rest(a)); }},
        {"copy",
         [this](Args& a) {
             const auto from = fileAt(Word(a));
             std::filesystem::copy(from, fileAt(Word(a)));
         }},
        {"remove", [this](Args& a) { std::filesystem::remove(fileAt(Word(a))); }},
        {"clip",
         [this](Args& a) {
             platform.clipboard = Rest(a);
             ClipboardChanged();
         }},
        {"fault", [this](Args& a) { addFault(Word(a)); }},
        {"axes",
         [this](Args& a) {
             line.controller.setAxisMask(static_cast<unsigned>(std::stoi(Word(a), nullptr, 2)));
         }},
        {"during", [this](Args& a) { runDuring(a); }},
        {"axis-1",
         [](Args& a) {
             AxisOff[0] = FlagOf(Word(a) == "out");
             DispAxisData();
         }},
        {"stroke", [](Args& a) { DevSetting[0].DevStroke = Short(a); }},
        {"pulses-a-turn", [](Args& a) { DevSetting[3].DevPPR = Short(a); }},
        {"old-type", [](Args&) { DevSetting[0].NewType = kClear; }},
        {"wide", [](Args&) { AccWideFlag = kSet; }},
        // what the program asks
        {"box", [this](Args& a) { platform.expectBox(Rest(a)); }},
        {"ask",
         [this](Args& a) {
             const auto buttons = Named({"Ok", "OkCancel", "YesNo", "YesNoCancel"}, Word(a));
             const auto answer = Named({"Ok", "Cancel", "Yes", "No"}, Word(a));
             platform.expectBox(Rest(a), static_cast<BoxButtons>(buttons),
                                static_cast<BoxAnswer>(answer));
         }},
        {"range", [this](Args& a) { expectRangeOf(a); }},
        {"pick",
         [this](Args& a) {
             const auto& dialog = kDialogs.at(Word(a));
             expectFile(dialog.first, dialog.second, fileAt(Word(a)));
         }},
        {"equal",
         [this](Args& a) {
             platform.expectBox("Data : indicated and saved into the file(" + fileAt(Word(a)) +
                                ")\r\n\r\nResult of Verify - OK");
         }},
        {"result", [this](Args& a) { expectResult(a); }},
        {"with", [this](Args& a) { platform.expectScreen("frmDataShogo", {}, Short(a)); }},
        {"differs",
         [this](Args& a) {
             platform.expectSelection({"Select",
                                       "Setting of AXIS and DEVICE differs by PC software and the "
                                       "controller. Which processing is performed?",
                                       {"A setting in a controller is read.",
                                        "A setting in a controller is disregarded."},
                                       false},
                                      Short(a));
         }},
        // what the user does
        {"do", [this](Args& a) { run(a); }},
        {"select",
         [](Args& a) {
             const auto [row, column] = place(a);
             const bool to = Word(a) == "to";
             const auto end = to ? place(a) : std::pair(row, column);
             flgdData_RowColChange(row, column, end.first, end.second);
         }},
        {"type", [this](Args& a) { edit(a, 0, true); }},
        {"enter", [this](Args& a) { edit(a, kKeyEnter, true); }},
        {"tab", [this](Args& a) { edit(a, kKeyTab, true); }},
        {"wrong", [this](Args& a) { edit(a, kKeyEnter, false); }},
        {"insert",
         [this](Args& a) {
             const int room = Number(a);
             platform.beeps = 0;
             pasted = TextToPaste(Rest(a), room);
             EXPECT_EQ(platform.beeps, pasted ? 0 : 1);
         }},
        // what stands afterwards, beside what `values` tells
        {"shows", [](Args& a) { std::apply(ExpectRanges, Range(Word(a))); }},
        {"at", [](Args& a) { EXPECT_EQ(std::pair(flgdData().row, flgdData().col), place(a)); }},
        {"holds",
         [this](Args& a) {
             const std::string text = ReadWholeFile(fileAt(Word(a)));
             EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), Number(a));
         }},
        {"same",
         [this](Args& a) {
             const auto one = fileAt(Word(a));
             EXPECT_EQ(ReadWholeFile(one), ReadWholeFile(fileAt(Word(a))));
         }},
        {"no-file", [this](Args& a) { EXPECT_FALSE(std::filesystem::exists(fileAt(Word(a)))); }},
        {"document", [this](Args& a) { EXPECT_EQ(PosiFilePath, fileAt(Word(a))); }},
    };
    std::optional<std::string> pasted;
    /// "word arguments = value"
    const StoryValues values{
        {"rows", [](Args&) { return std::to_string(flgdData().rows.size()); }},
        {"has-data", [](Args&) { return PosiTableHasData() ? "yes" : "no"; }},
        {"place", [](Args&) { return flgdData().row + flgdData().col == 0 ? "nowhere" : "cell"; }},
        {"name", [](Args&) { return ThePanel().lblFileName; }},
        {"changes", [](Args&) { return IsSet(PosiDirtyFlag) ? "unsaved" : "saved"; }},
        {"written", [](Args&) { return IsSet(SaveCancelledFlag) ? "no" : "yes"; }},
        {"took", [this](Args&) { return std::to_string(took); }},
        {"closes", [this](Args&) { return std::to_string(closes); }},
        {"clipboard", [this](Args&) { return platform.clipboard; }},
        {"inserted", [this](Args&) { return pasted.value_or("nothing"); }},
        {"mode", [this](Args&) { return std::to_string(line.controller.machine().mode); }},
        {"sent", [this](Args& a) { return std::to_string(line.controller.count(Word(a))); }},
        {"frames", [this](Args&) { return std::to_string(platform.sent.size()); }},
        {"takes",
         [this](Args& a) {
             const std::string dialog = Word(a);
             const RangeTexts texts{Field(a), Field(a)};
             std::tie(PosiFirst, PosiLast) = Range("101-102");
             const bool taken = dialog == "read"   ? TakeReadRange(false, texts)
                                : dialog == "grid" ? TakeGridRange(texts)
                                                   : TakeVerifyRange(texts);
             platform.checkAllAsked();
             return (taken ? "" : "no ") + std::to_string(PosiFirst) + "-" +
                    std::to_string(PosiLast);
         }},
        {"common",
         [](Args& a) {
             std::tie(FileFirst, FileLast) = Range(Word(a));
             std::tie(GridFirst, GridLast) = Range(Word(a));
             return CompareFileRange() != 0
                        ? "nothing"
                        : VerifyRangePreset().range.start + "-" + VerifyRangePreset().range.end;
         }},
        {"preset", [](Args&) { return ReadRangePreset().start + "-" + ReadRangePreset().end; }},
        {"order", [this](Args&) { return Joined(platform.sent); }},
        {"bars", [this](Args&) { return bars; }},
        {"sees", [](Args& a) { return std::apply(GridText, place(a)); }},
        {"marked",
         [](Args& a) {
             const auto [row, column] = place(a);
             const auto& bad = flgdData().rows[static_cast<std::size_t>(row)].bad;
             return bad.test(static_cast<std::size_t>(column)) ? "yes" : "no";
         }},
        {"table",
         [](Args& a) {
             const auto& row = PosiTable[static_cast<std::size_t>(Number(a))];
             return PlainDecimal(row.number[static_cast<std::size_t>(ColumnNamed(Word(a)))]);
         }},
        {"keys",
         [](Args& a) {
             GoToCell(2, ColumnNamed(Word(a)) + 1);
             EXPECT_TRUE(StartEdit());
             std::string passed = std::to_string(flgdData().edit.maxLength) + " ";
             for (const char key : std::string("0123456789.-+eE &Habc")) {
                 const std::string typed(1, key);
                 passed += TypeIntoEdit(typed, typed) ? typed : "";
             }
             CancelEdit();
             return passed;
         }},
        {"edit-commands",
         [](Args&) {
             std::string on = IsEnabled(Command::cmdInsertLine) ? "lines " : "";
             on += IsEnabled(Command::mnuEditLinePaste) ? "paste-lines " : "";
             return on + (IsEnabled(Command::mnuEditCellPaste) ? "paste-cells" : "");
         }},
    };
};

TEST(Stories, AllHold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/position/stories", 20);
}

} // namespace
} // namespace qdw8::test
