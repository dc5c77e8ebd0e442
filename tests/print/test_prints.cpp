// Tells the stories of stories.txt: a print from its command to the printer, and what stands
// afterwards.

#include "app/screens.h"
#include "parameter/para_rows.h"
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

#include <deque>
#include <utility>

namespace qdw8::test {
namespace {

class Story : public PositionBench {
public:
    Story() {
        Screens().frmPrintSelect = [this] {
            EXPECT_FALSE(choices.empty());
            while (!choices.empty()) {
                const std::string choice = choices.front();
                choices.pop_front();
                PlayVerb(form, choice);
            }
        };
        ThePlatform().CommonDialog1.ShowPrinter = [this](const PrinterQuestion&) {
            const std::string answer = next(printer);
            if (answer == "fails") {
                throw Fault("no printing system");
            }
            return answer == "print"  ? PrinterAnswer::Print
                   : answer == "look" ? PrinterAnswer::Preview
                                      : PrinterAnswer::Cancel;
        };
        Screens().frmPrintPreview = [this] {
            for (std::string act = next(looks);; act = next(looks)) {
                if (act != "pdf") {
                    return static_cast<std::int16_t>(std::stoi(act));
                }
                cmdPreviewPdf_Click();
            }
        };
        Screens().frmTrance = [this] {
            bars += TheTransferDialog().shown ? std::to_string(TheTransferDialog().prgBar1) + " "
                                              : "gone";
        };
    }
    void tell(const std::string& statement) { TellStatement(words, values, statement); }

private:
    static std::string next(std::deque<std::string>& queue) {
        if (queue.empty()) {
            ADD_FAILURE() << "not expected";
            return "0";
        }
        std::string first = queue.front();
        queue.pop_front();
        return first;
    }
    std::string fileAt(const std::string& name) const {
        return name == "none" ? "" : name[0] == '@' ? fileOf(name.substr(1)) : pathOf(name);
    }
    void run(void (*command)()) {
        page.clear();
        command();
        platform.checkAllAsked();
        EXPECT_TRUE(choices.empty() && printer.empty() && looks.empty());
        ExpectAtRest(platform);
    }
    static bool picks(const FileQuestion& asked) { return asked.title.starts_with("Specify"); }
    static std::string beeped(int beeps) { return beeps == 0 ? "" : "beep"; }

    PageRecorder page;
    std::deque<std::string> choices, printer, looks;
    std::string bars;
    std::string picked;

    /// What is done in the dialog.
    const Verbs form{
        {"box", Does([this](auto& text) { platform.expectBox(text); })},
        {"posi", Does([](auto& on) { PrintSelect.chkPrintPosi = on == "on"; })},
        {"para", Does([](auto& on) { PrintSelect.chkPrintPara = on == "on"; })},
        {"posi-file", Does([this](auto& name) {
             PrintSelect.optPrintPosi = 1;
             PrintSelect.posiPath = fileAt(name);
         })},
        {"para-file", Does([this](auto& name) {
             PrintSelect.optPrintPara = 1;
             PrintSelect.paraPath = fileAt(name);
         })},
        {"start", [this](auto& text) { return leave(false, text); }},
        {"end", [this](auto& text) { return leave(true, text); }},
        {"browse",
         [this](auto& name) {
             ThePlatform().CommonDialog1.ShowFile = [&](const FileQuestion& asked) {
                 EXPECT_TRUE(picks(asked)) << asked.title;
                 return name == "none" ? std::nullopt : std::optional(FileAnswer{"/there", name});
             };
             PrintSelect.chkPrintPara ? cmdSelectParaFile_Click() : cmdSelectPosiFile_Click();
             return PrintSelect.lblPrintPosiName + " " + PrintSelect.lblPrintParaName;
         }},
        {"range",
         [](auto&) { return PrintSelect.txtPrintStartPosi + "-" + PrintSelect.txtPrintEndPosi; }},
        {"set", [](auto&) { return PrintSetEnabled() ? "on" : "off"; }},
        {"ok", [](auto&) { return cmdPrintSet_Click() ? "closes" : "stays"; }}};
    std::string leave(bool end, const std::string& text) {
        const int before = platform.beeps;
        const std::string left = LeavePrintRange(end, text);
        return beeped(platform.beeps - before) + left;
    }

    const StoryWords words{
        {"grid",
         [](Args& a) {
             const int first = Number(a);
             showRows(static_cast<std::int16_t>(first), static_cast<std::int16_t>(Number(a)));
             ShowPosiFileName("job");
         }},
        {"set",
         [](Args& a) {
             const int position = Number(a);
             const int column = ColumnNamed(Word(a));
             type(position, column, Rest(a));
         }},
        {"unit", [](Args& a) { DispMmFlag = FlagOf(Word(a) == "mm"); }},
        {"file",
         [this](Args& a) {
             const std::string name = Word(a);
             writeFile(name, "\"QD-K8\"\r\n\"" + Rest(a) +
                                 "\",,,\r\n\"NEW\",\"NEW\",\"NEW\",\"NEW\"\r\n" +
                                 "1,30,3,0,1005,30,3,0,0,30,3,0,0,30,2,0,0,0,0,0,\"\"\r\n");
         }},
        {"read", [this](Args& a) { ReadPosiFile(fileAt(Word(a))); }},
        {"loaded", [](Args&) { ParaLoadedFlag = kSet; }},
        {"fails-at", [this](Args& a) { page.failsAt = Number(a); }},
        {"choose", [this](Args& a) { choices.push_back(Rest(a)); }},
        {"printer", [this](Args& a) { printer.push_back(Word(a)); }},
        {"look", [this](Args& a) { looks.push_back(Word(a)); }},
        {"save-pdf",
         [this](Args& a) {
             ThePlatform().CommonDialog1.ShowFile = [this, name = Rest(a)](const FileQuestion& q) {
                 picked = q.fileName;
                 return std::optional(FileAnswer{name, name});
             };
         }},
        {"cancel-after", [this](Args& a) { platform.after(Number(a), cmdTranceCancel_Click); }},
        {"box", [this](Args& a) { platform.expectBox(Plain(Rest(a))); }},
        {"result", [this](Args&) { platform.expectScreen("frmSyogoKekka"); }},
        {"range",
         [this](Args& a) {
             const std::string rows = Word(a);
             platform.expectScreen("frmSelectPosiNo3", [rows] {
                 if (rows == "cancel") {
                     RangeCancelFlag = kSet;
                     return;
                 }
                 PosiFirst = static_cast<std::int16_t>(std::stoi(rows));
                 PosiLast = GridLast;
             });
         }},
        {"do", [this](Args&) { run(PrintPosiCommand); }},
        {"print-parameters", [this](Args&) { run([] { PrintParaData("some.pmt"); }); }}};
    const StoryValues values{
        {"pages", [this](Args&) { return std::to_string(page.pages); }},
        {"bars", [this](Args&) { return std::exchange(bars, ""); }},
        {"pdf", [this](Args&) { return page.saved + " for " + picked; }},
        {"ranges",
         [](Args&) {
             return std::to_string(GridFirst) + "-" + std::to_string(GridLast) + " " +
                    std::to_string(PosiFirst) + "-" + std::to_string(PosiLast) + " file " +
                    std::to_string(FileFirst) + "-" + std::to_string(FileLast);
         }},
        {"staged", [](Args& a) { return TextOf(PosiStage.at(std::size_t(Number(a))).at(20)); }},
        // the texts in a line of the first page, by its height
        {"line", [this](Args& a) {
             const double y = Number(a);
             std::string texts;
             for (const PageRecorder::Text& it : page.texts) {
                 texts += it.page == 1 && it.y == y ? (texts.empty() ? "" : " | ") + it.text : "";
             }
             return texts;
         }}};
};

TEST(Prints, GoAsTold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/print/stories.txt", 10);
}

} // namespace
} // namespace qdw8::test
