// The options: options/*.txt, told in the words of the tables below. A form reads
// "port occupy raise unit language speed acc acc2", options by their number, the box by + and -.

#include "app/move_defaults.h"
#include "link/line_state.h"
#include "link/line_status.h"
#include "link/port.h"
#include "link/port_words.h"
#include "link/window_command.h"
#include "platform/port_info.h"
#include "setup/options.h"
#include "setup/system_info.h"
#include "setup_bench.h"
#include "support/story.h"

namespace qdw8::test {
namespace {

const std::map<std::string, std::int16_t*> kVariables{
    NAMED(&PortNo),       NAMED(&PortOccupyFlag), NAMED(&LanguageNo),  NAMED(&LanguageChangedFlag),
    NAMED(&DispMmFlag),   NAMED(&MmRoundUpFlag),  NAMED(&VelOf100Pls), NAMED(&AccOf100Pls),
    NAMED(&AccOf100Pls2), NAMED(&PosiDirtyFlag)};

class Story : public SetupBench {
public:
    void tell(const std::string& statement) { TellStatement(words, values, statement); }

private:
    static std::string text(const OptionsForm& form) {
        std::ostringstream all;
        all << form.txtPortNo << (form.chkPortOccupy ? " + " : " - ") << form.optSutiSyori << ' '
            << form.optHyojiKirikae << ' ' << form.optLanguege << ' ' << form.txtJogVel << ' '
            << form.optJogAcc << ' ' << form.optJogAcc2;
        return all.str();
    }
    static OptionsForm formIn(Args& args) {
        OptionsForm form;
        std::string box;
        std::string speed;
        args >> form.txtPortNo >> box >> form.optSutiSyori >> form.optHyojiKirikae >>
            form.optLanguege >> speed >> form.optJogAcc >> form.optJogAcc2;
        EXPECT_FALSE(args.fail());
        form.txtPortNo = form.txtPortNo == "_" ? "" : form.txtPortNo;
        form.txtJogVel = speed == "_" ? "" : speed;
        form.chkPortOccupy = box == "+";
        return form;
    }
    std::string ok(Args& args) {
        const OptionsOk done = cmdOK_Click(formIn(args));
        platform.checkAllAsked();
        return done == OptionsOk::Done ? "" : done == OptionsOk::PortRefused ? "port" : "speed";
    }

    const StoryWords words{
        {"stored",
         [this](Args& a) {
             const std::string key = Word(a);
             platform.settings[key] = Word(a);
         }},
        {"memory",
         [](Args& a) {
             std::int16_t& variable = *kVariables.at("&" + Word(a));
             variable = static_cast<std::int16_t>(Number(a));
         }},
        {"on-line", [](Args&) { GoOnLine(), OpenCtPort(); }},
        {"line-reserved", [](Args&) { ReserveLine(true); }},
        {"rows", [](Args&) { showRows(5, 7); }},
        {"fine-pulses", [](Args&) { DevSetting[0].DevLead = 1, DevSetting[0].DevPPR = 4000; }},
        {"working", [](Args& a) { PosiFirst = PosiLast = static_cast<std::int16_t>(Number(a)); }},
        {"type", // the target of AXIS 1
         [](Args& a) {
             const int row = Number(a);
             type(row, kPosi, Rest(a));
         }},
        {"box", [this](Args& a) { platform.expectBox(Rest(a)); }},
        {"check-window", [this](Args&) { platform.expectScreen("frmSyogoKekka"); }},
    };
    const StoryValues values{
        {"form", [](Args&) { return text(LoadOptions()); }},
        {"ok", [this](Args& a) { return ok(a); }},
        {"leave",
         [](Args& a) {
             const auto tab = static_cast<OptionsTab>(Number(a));
             return MayLeaveOptionsTab(tab, formIn(a)) ? "yes" : "no";
         }},
        {"memory", [](Args& a) { return std::to_string(*kVariables.at("&" + Word(a))); }},
        {"store",
         [this](Args&) {
             std::string all;
             for (const auto& [key, value] : platform.settings) {
                 all += (all.empty() ? "" : " ") + key + ":" + value;
             }
             return all;
         }},
        {"line",
         [this](Args&) {
             return std::string(platform.portOpen ? "open" : "closed") +
                    (IsSet(OffLineFlag) ? ", off line" : "");
         }},
        {"cells",
         [](Args&) { return cell(5, kPosi) + "|" + cell(6, kPosi) + "|" + cell(7, kPosi); }},
    };
};

TEST(Options, AllStoriesHold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/setup/options", 10);
}

struct PortWords : Bench {};
using PortWordsTest = Unit<PortWords>;

TEST_F(PortWordsTest, SayWhatIsMissingInOneSentence) {
    using enum PortState;
    const std::map<std::string, PortState> states{NAMED(Ready), NAMED(NoDevice), NAMED(LinkBroken),
                                                  NAMED(NoSerialDevice), NAMED(NotAllowed)};
    for (const auto& row : RowsOf("setup/ports.txt")) {
        const PortInfo info{states.at(row[0]), row[1], "/home/ports/com2", row[2] == "link",
                            row[3]};
        EXPECT_EQ(PortSentence(2, info), row[4]);
        EXPECT_TRUE(row.size() == 5 || LineInWords(info, false).state == row[5]) << row[5];
    }
}

TEST_F(PortWordsTest, ListTheSerialPortsByNameAndTheReportTellsOfThePort) {
    namespace fs = std::filesystem;
    const fs::path machine = folder;
    ThePlatform().settingsFolder = folder;
    ThePlatform().serialClassFolder = pathOf("class");
    EXPECT_EQ(SerialDeviceLines(), std::vector<std::string>{"No serial port was found."});
    // What the system tells of an adapter, a built-in port, a name alone, and a console.
    fs::create_directories(machine / "bus/usb1/1.0/port/tty");
    fs::create_directories(machine / "class/console");
    for (const char* name : {"ttyUSB10", "ttyUSB2", "ttyS3", "ttyS2"}) {
        fs::create_directories(machine / "class" / name);
        fs::create_symlink(std::string(name) == "ttyUSB2" ? machine / "bus/usb1/1.0/port"
                                                          : machine / "bus",
                           machine / "class" / name / "device");
    }
    writeFile("bus/usb1/product", "USB UART\n");
    writeFile("bus/usb1/manufacturer", "Maker\n");
    writeFile("class/ttyS2/type", "0\n");
    writeFile("class/ttyS3/type", "4\n");
    fs::create_directories(machine / "ports");
    fs::create_symlink("/dev/ttyUSB2", machine / "ports/com1");
    EXPECT_EQ(SerialDeviceLines(),
              (std::vector<std::string>{"/dev/ttyS3 - built-in port - COM4",
                                        "/dev/ttyUSB2 - USB UART (Maker) - COM1",
                                        "/dev/ttyUSB10 - built-in port"}));
    CtVersion = "";
    OffLineFlag = kSet;
    CopySystemInformation();
    EXPECT_EQ(
        platform.clipboard,
        "QD-W8 Ver1.40E\nOperating system: System 1\nScreen: 1280 x 1024\n"
        "Communication port: COM1 is /dev/ttyUSB2, which is not there; plug in the adapter or "
        "correct the link " +
            pathOf("ports/com1") +
            ".\nState: Offline, port closed\n"
            "Controller version: Not read in this run\nProgram folder: " QDW8_DATA_DIR
            "\nSettings folder: " +
            folder + "\nLibraries: Library 2, Library 3\n");
}

} // namespace
} // namespace qdw8::test
