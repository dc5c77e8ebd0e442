// Tells the stories of stories.txt: a print from its command to the printer, and what stands
// afterwards.

#include "parameter/para_set.h"
#include "platform/fault.h"
#include "position/posi_reader.h"
#include "position/position_bench.h"
#include "print/page_recorder.h"
#include "print/para_print.h"
#include "print/print_command.h"
#include "print/print_job.h"
#include "print/print_select.h"
#include "support/story.h"

#include <utility>

namespace qdw8::test {
namespace {

using Text = const std::string&;

class Story : public PositionBench {
public:
    Story() {
        Screens().frmPrintSelect = [this] {
            for (Text choice : std::exchange(choices, {})) {
                PlayVerb(verbs, choice);
            }
        };
        ThePlatform().CommonDialog1.ShowPrinter = [this](const PrinterQuestion&) {
            const std::string answer = next();
            if (answer == "fails") {
                throw Fault("no printing system");
            }
            return static_cast<PrinterAnswer>(std::stoi(answer));
        };
        ThePlatform().CommonDialog1.ShowFile = [this](const FileQuestion& question) {
            asked = question.title + " " + question.fileName;
            const std::string name = next();
            return name == "-" ? std::nullopt : std::optional(FileAnswer{name, name});
        };
        Screens().frmPrintPreview = [this] {
            std::string act = next();
            for (; act == "pdf"; act = next()) {
                cmdPreviewPdf_Click();
            }
            return static_cast<std::int16_t>(std::stoi(act));
        };
        Screens().frmTrance = [this] {
            const TransferDialog& dialog = TheTransferDialog();
            bars += dialog.shown ? std::to_string(dialog.prgBar1) + " " : "gone";
        };
    }
    void tell(Text statement) {
        const std::string later = "choose ";
        if (statement.starts_with(later)) {
            choices.push_back(statement.substr(later.size()));
        } else {
            PlayVerb(verbs, statement);
        }
    }

private:
    std::string next() {
        if (answers.empty()) {
            ADD_FAILURE() << "not expected";
            return "0";
        }
        std::string first = answers.front();
        answers.erase(answers.begin());
        return first;
    }
    std::string fileAt(Text name) const {
        return name[0] == '@' ? fileOf(name.substr(1)) : name == "-" ? "" : pathOf(name);
    }
    void run(void (*command)()) {
        page.clear();
        const auto before = document();
        command();
        if (PrintSelect.optPrintPosi == 1) {
            EXPECT_EQ(document(), before);
        }
        platform.checkAllAsked();
        EXPECT_TRUE(choices.empty() && answers.empty());
        ExpectAtRest(platform);
    }
    /// What a print of a file leaves alone.
    std::vector<std::string> document() const {
        std::vector<std::string> all = gridTexts();
        for (std::size_t position = 1; position < PosiTable.size(); ++position) {
            all.push_back(held(static_cast<int>(position)) + PosiTable[position].comment);
        }
        all.push_back(PosiFileName + PosiFilePath + (IsSet(PosiDirtyFlag) ? "*" : ""));
        return all;
    }
    std::string leave(bool end, Text text) {
        platform.beeps = 0;
        const std::string left = LeavePrintRange(end, text);
        return platform.beeps == 0 ? left : left + "beep";
    }
    void expectRange(Text rows) {
        platform.expectScreen("frmSelectPosiNo3", [rows] {
            PosiFirst = static_cast<std::int16_t>(std::atoi(rows.c_str()));
            PosiLast = GridLast;
            RangeCancelFlag = FlagOf(rows == "cancel");
        });
    }
    void writeFileOf(Text device) const {
        writeFile("one.qdd", "\"QD-K8\"\r\n" + device + ",,,\r\nNEW,NEW,NEW,NEW\r\n" +
                                 "1,30,3,0,1005,30,3,0,0,30,3,0,0,30,2,0,0,0,0,0,\r\n");
    }
    /// The texts at a height of the first page.
    std::string line(double y) const {
        std::string all;
        for (const PageRecorder::Text& it : page.texts) {
            // A smaller text of the line begins lower, on the same base line.
            all += it.page != 1 || it.y < y || it.y >= y + 2 ? ""
                                                             : (all.empty() ? "" : " | ") + it.text;
        }
        return all;
    }

    PageRecorder page;
    std::vector<std::string> choices, answers;
    std::string bars, asked;
    const Verbs verbs{
        // what there is
        {"grid", Does([](Text rows) {
             showRows(static_cast<std::int16_t>(rows[0] - '0'),
                      static_cast<std::int16_t>(std::stoi(rows.substr(2))));
             ShowPosiFileName("job");
         })},
        {"type", Does([](Text what) {
             Args args(what);
             const int position = Number(args);
             const int column = ColumnNamed(Word(args));
             type(position, column, Rest(args));
         })},
        {"mm", Does([](Text) { DispMmFlag = kSet; })},
        {"pulses", Does([](Text) { DispMmFlag = kClear; })},
        {"read", Does([this](Text name) { ReadPosiFile(fileAt(name)); })},
        {"one.qdd", Does([this](Text device) { writeFileOf(device); })},
        {"loaded", Does([](Text) { ParaLoadedFlag = kSet; })},
        {"fails-at", Does([this](Text text) { page.failsAt = std::stoi(text); })},
        // what is asked and answered, later
        {"answer", Does([this](Text text) { answers.push_back(text); })},
        {"box", Does([this](Text text) { platform.expectBox(text); })},
        {"result", Does([this](Text) { platform.expectScreen("frmSyogoKekka"); })},
        {"range", Does([this](Text rows) { expectRange(rows); })},
        {"cancel", Does([this](Text ms) { platform.after(std::stoi(ms), cmdTranceCancel_Click); })},
        // in the dialog
        {"posi", Does([](Text on) { PrintSelect.chkPrintPosi = on == "on"; })},
        {"para", Does([](Text on) { PrintSelect.chkPrintPara = on == "on"; })},
        {"posi-file", Does([this](Text name) {
             PrintSelect.optPrintPosi = 1;
             PrintSelect.posiPath = fileAt(name);
         })},
        {"para-file", Does([this](Text name) {
             PrintSelect.optPrintPara = 1;
             PrintSelect.paraPath = fileAt(name);
         })},
        {"browse",
         [](Text kind) {
             kind == "posi" ? cmdSelectPosiFile_Click() : cmdSelectParaFile_Click();
             return PrintSelect.lblPrintPosiName + " " + PrintSelect.lblPrintParaName;
         }},
        {"start", [this](Text text) { return leave(false, text); }},
        {"end", [this](Text text) { return leave(true, text); }},
        {"boxes",
         [](Text) { return PrintSelect.txtPrintStartPosi + "-" + PrintSelect.txtPrintEndPosi; }},
        {"set", [](Text) { return PrintSetEnabled() ? "on" : "off"; }},
        {"ok", [](Text) { return cmdPrintSet_Click() ? "closes" : "stays"; }},
        // what is done, and what stands afterwards
        {"do", Does([this](Text) { run(PrintPosiCommand); })},
        {"do-parameters", Does([this](Text) { run([] { PrintParaData("some.pmt"); }); })},
        {"pages", [this](Text) { return std::to_string(page.pages); }},
        {"line", [this](Text y) { return line(std::stod(y)); }},
        {"bars", [this](Text) { return std::exchange(bars, ""); }},
        {"title", [this](Text) { return page.title; }},
        {"pdf", [this](Text) { return page.saved; }},
        {"asked", [this](Text) { return asked; }},
        {"ranges",
         [](Text) {
             std::string all;
             for (const std::int16_t it :
                  {GridFirst, GridLast, PosiFirst, PosiLast, FileFirst, FileLast}) {
                 all += (all.empty() ? "" : " ") + std::to_string(it);
             }
             return all;
         }},
        {"staged", [](Text row) { return TextOf(PosiStage.at(std::stoul(row)).at(20)); }}};
};

TEST(Prints, GoAsTold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/print/stories.txt", 12);
}

} // namespace
} // namespace qdw8::test
