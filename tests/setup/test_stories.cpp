#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "device/device_lists.h"
#include "link/axis_mask.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/supervision.h"
#include "link/window_command.h"
#include "para_words.h"
#include "parameter/factory_lists.h"
#include "parameter/para_check.h"
#include "parameter/para_device.h"
#include "parameter/para_edit.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "parameter/para_window.h"
#include "parameter/sample_sets.h"
#include "platform/whole_file.h"
#include "position/posi_file.h"
#include "position/posi_transfer.h"
#include "setup/change_device.h"
#include "setup/controller_devices.h"
#include "setup/detail_edit.h"
#include "setup/device_copies.h"
#include "setup/device_set.h"
#include "setup/device_write.h"
#include "setup/line_commands.h"
#include "setup/para_commands.h"
#include "setup/para_window_commands.h"
#include "setup/posi_open.h"
#include "setup/repaint_axes.h"
#include "setup_bench.h"
#include "support/story.h"

#include <algorithm>
#include <utility>

/// Tells the stories in stories/ in the words of the tables below. A device is told as
/// " 44|L|100|N.VD|2|400|20000|100": size, speed, stroke, letters for new type, pulse generator,
/// vertical and own family, lead, pulses of a turn, stroke end in pulses and mm; axes as "12-4".
/// After each "do" everything asked for must have come, and the program must be at rest.
namespace qdw8::test {
namespace {

const std::map<std::string, Flag*> kFlags{{"AlarmFlag", &AlarmFlag},
                                          {"DetailEditFlag", &DetailEditFlag},
                                          {"DeviceCancelled", &DeviceCancelled},
                                          {"DispMmFlag", &DispMmFlag},
                                          {"FactoryDeviceFlag", &FactoryDeviceFlag},
                                          {"FirstDeviceSetFlag", &FirstDeviceSetFlag},
                                          {"KeepAxisFlag", &KeepAxisFlag},
                                          {"OffLineFlag", &OffLineFlag},
                                          {"OnLineFlag", &OnLineFlag},
                                          {"PortOccupyFlag", &PortOccupyFlag},
                                          {"ProgramEndFlag", &ProgramEndFlag},
                                          {"StartDeviceSelectFlag", &StartDeviceSelectFlag}};
const std::string kParaFilter = "Parameter(*.pmt)|*.pmt|All files(*.*)|*.*";
FileQuestion ParaFile(const std::string& title) {
    return {FileQuestion::Kind::Open, title, kParaFilter, "pmt", "", "", kFileMustExist};
}
const std::map<std::string, FileQuestion> kDialogs{
    {"positions",
     {FileQuestion::Kind::Open, "Open Position Data file",
      "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*", "qdd", "", "", kFileMustExist}},
    {"parameters", ParaFile("Open Parameter file")},
    {"verify", ParaFile("Open Parameter file to be Verified")},
    {"print", ParaFile("Open Parameter file to be printed")},
    {"save",
     {FileQuestion::Kind::Save, "Save Parameters as ...", kParaFilter, "pmt", "qdw8prm1.pmt", "",
      kOverwritePrompt}}};

std::string Box(const std::string& name, const FormBox& box) {
    return " " + name + (box.checked ? "+" : "-") + (box.enabled ? "" : "grey") +
           (box.visible ? "" : "hidden");
}

/// Lists and boxes of an axis in one line: " 44|L,H>L|50,100>100 PG- V+ Old-".
std::string Shown(const AxisPanel& panel) {
    return panel.comboDeviceSize.text + "|" + Joined(panel.comboDeviceSpeed.rows, ",") + ">" +
           panel.comboDeviceSpeed.text + "|" + Joined(panel.comboDeviceStroke.rows, ",") + ">" +
           panel.comboDeviceStroke.text + Box("PG", panel.chkDevPgUse) +
           Box("V", panel.chkDevVsiyou) + Box("Old", panel.chkNewOrOld);
}

void TakeDevice(std::array<AxisDevice, kAxes>& devices, Args& args) {
    AxisDevice& device = devices.at(static_cast<std::size_t>(Number(args) - 1));
    Args text(Rest(args));
    std::string flags;
    std::getline(std::getline(text, device.DevSize, '|'), device.DevSpeed, '|');
    char bar = 0;
    text >> device.DevStroke >> bar;
    std::getline(text, flags, '|');
    device.NewType = FlagOf(flags.starts_with('N'));
    device.WithPG = FlagOf(flags.find('P') != flags.npos);
    device.Vertical = FlagOf(flags.find('V') != flags.npos);
    device.Device = FlagOf(flags.find('D') != flags.npos);
    text >> device.DevLead >> bar >> device.DevPPR >> bar >> device.MaxPulse >> bar >>
        device.MaxStrokeMm;
}

std::string Text(const AxisDevice& device) {
    std::ostringstream text;
    text << device.DevSize << '|' << device.DevSpeed << '|' << device.DevStroke << '|'
         << (IsSet(device.NewType) ? 'N' : '.') << (IsSet(device.WithPG) ? 'P' : '.')
         << (IsSet(device.Vertical) ? 'V' : '.') << (IsSet(device.Device) ? 'D' : '.') << '|'
         << device.DevLead << '|' << device.DevPPR << '|' << device.MaxPulse << '|'
         << device.MaxStrokeMm;
    return text.str();
}

int MaskOf(const std::string& axes) {
    int mask = 0;
    for (const char axis : axes) {
        mask |= axis == '-' ? 0 : 1 << (axis - '1');
    }
    return mask;
}

std::string AxesOf(int mask) {
    std::string axes = "1234";
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        axes[axis] = (mask >> axis & 1) != 0 ? axes[axis] : '-';
    }
    return axes;
}

class Story : public SetupBench {
public:
    Story() {
        RepaintAxes();
        SetBuilt(Command::cmdChangeDev);
        CMDBTN_Yuko();
        PosiFolder = folder;
        Screens().frmParameta2Show = [this](bool) { ++opened; };
        Screens().frmMainCommands = FollowParaSet; // as the window does
        for (const ParaCommandRow& command : ParaCommands()) {
            commands[command.name] = [&command] { return RunWindowCommand(command.routine), 0; };
        }
        words.merge(ParaWords());
        values.merge(ParaValues());
    }

    void tell(const std::string& statement) {
        if (!screen.empty() && statement != "end") {
            script.push_back(statement);
        } else {
            TellStatement(words, values, statement);
        }
    }

private:
    static std::size_t axisOf(Args& args) { return static_cast<std::size_t>(Number(args) - 1); }
    static std::int16_t Short(Args& args) { return static_cast<std::int16_t>(Number(args)); }
    static std::pair<const ParaItem&, std::size_t> itemOf(Args& args) {
        return {ItemOfRow(static_cast<ParaRow>(Number(args))), axisOf(args)};
    }
    AxisPanel& panelOf(Args& args) { return form.axes[axisOf(args)]; }
    std::string run(Args& args) {
        ++depth;
        const int result = commands.at(Word(args))();
        if (--depth == 0) {
            platform.checkAllAsked();
            ExpectAtRest(platform);
        }
        return std::to_string(result);
    }
    /// Runs what is told up to "end" in the place of a modal window.
    void endOfScreen() {
        platform.expectScreen(std::exchange(screen, ""), [this, lines = std::exchange(script, {})] {
            for (const std::string& statement : lines) {
                SCOPED_TRACE(statement);
                tell(statement);
            }
        });
    }
    /// An edit in the window: the axis, and a text, or "on" and "off".
    void edit(Args& args, void (*change)(DeviceForm&, std::size_t, const std::string&)) {
        const std::size_t axis = axisOf(args);
        change(form, axis, Rest(args));
    }
    void tick(Args& args, void (*change)(DeviceForm&, std::size_t, bool)) {
        const std::size_t axis = axisOf(args);
        change(form, axis, Word(args) == "on");
    }
    /// "0 text|choice|choice|detail"; -1 cancels.
    void select(Args& args) {
        const std::int16_t answer = Short(args);
        SelectionQuestion question{"Select", "", {}, IsSet(StartDeviceSelectFlag)};
        Args parts(Rest(args));
        std::getline(parts, question.text, '|');
        for (std::string part; std::getline(parts, part, '|');) {
            question.choices.push_back(part); // the details, too, stand behind the text
        }
        platform.expectSelection(question, answer);
    }
    /// The size chosen where another one stood, with speed and stroke in force before.
    std::string follow(Args& args) {
        DevSetting[0] = DevSettei[0] = {" 44", "L", 100, kClear, kClear, kClear, kSet, 2, 400};
        OpenDevice2(form);
        const std::string speed = Word(args);
        DevSetting[0].DevStroke = Short(args);
        const std::string size = Word(args);
        DevSetting[0].DevSpeed = speed == "-" ? "" : speed;
        DevSetting[0].Vertical = FlagOf(CountsAsNewOnly(PadLeft(size, 3)));
        form.axes[0].chkDevPgUse.checked = form.axes[0].chkDevVsiyou.checked = true;
        ChangeSize(form, 0, size == "-" ? "" : size);
        return Shown(form.axes[0]) + (IsSet(DevSettei[0].NewType) ? " new" : " old");
    }
    /// What OK makes of a size, the boxes and the family.
    std::string taken(Args& args) {
        AxisPanel& panel = form.axes[0];
        panel.comboDeviceSize.text = PadLeft(Word(args), 3);
        const std::string boxes = Word(args);
        panel.chkNewOrOld.checked = boxes.find('O') != boxes.npos;
        panel.chkDevVsiyou.checked = boxes.find('V') != boxes.npos;
        panel.chkDevPgUse.checked = boxes.find('P') != boxes.npos;
        const std::string family = Word(args);
        panel.optQdSelect = family == "QD" ? kFamilyQd : kFamilyHn;
        FamilyText[0] = family;
        cmdDeviceSet2_Click(form);
        return Text(DevSettei[0]);
    }
    /// A parameter file of AXIS 2 alone, a QD-61H of 450 mm.
    void writeParameters(const std::string& name) const {
        const Everything before;
        AxisOff = {kSet, kClear, kSet, kSet};
        DevSettei[1] = {" 61", "H", 450, kSet, kSet, kSet, kSet, 0, 0, 0, 0};
        EXPECT_EQ(LoadFactoryParameters(), 0);
        EXPECT_EQ(WriteParaFile(pathOf(name)), 0);
        AxisOff = before.off;
        DevSettei = before.settei;
        ParaSet = before.parameters;
    }

    const qdk8::Memory& lasting() const { return line.controller.machine().lasting; }

    DeviceForm form;
    Everything kept;
    std::string screen;
    std::vector<std::string> script;
    int depth = 0;
    int opened = 0;
    std::string printed;
    std::map<std::string, std::function<int()>> commands{
        {"change", [] { return Change_Device(), 0; }},
        {"button", [] { return cmdChangeDev_Click(), 0; }},
        {"offline", [] { return mnuSettingsDeviceOffline_Click(), 0; }},
        {"online", [] { return mnuSettingsDeviceOnline_Click(), 0; }},
        {"off-line", [] { return mnuSettingsOffline_Click(), 0; }},
        {"open-positions", [] { return OpenPosiFile(), 0; }},
        {"take-parameters", TakeDevicesOfParaSet},
        {"take-image", TakeParameterDevices},
        {"complete", [] { return CompleteAxes() ? 1 : 0; }},
        {"choose", SelectDeviceAndLoadFactory},
        {"max-pulses", [] { return Culc_MaxPulse2(), 0; }},
        {"reflect", [] { return ReflectFileDevice2PcDevice(), 0; }},
        {"copy", [] { return LetDevSettingToDevSettei(), 0; }},
        {"read", GetParametaValue},
        {"write", [] { return cmdParaWrite_Click(), 0; }},
        {"load", [] { return LoadParameta2(), 0; }},
        {"close", [] { return ParaMayClose() ? 1 : 0; }},
        {"lock", [] { return TickTokuParaChange(false), 0; }},
        {"unlock", [] { return TickTokuParaChange(true), 0; }},
        {"check-device", ParametaValueCheck2},
        {"take", TorikomiParametaValue},
        {"factory", LoadFactoryParameters},
        {"device-factory", LoadFactoryParametersForDevice},
        {"show-fields", [] { return ParametaHyoji(), 0; }},
        {"save-parameters", SaveParameters},
        {"open-parameters", OpenParaFile},
        {"open2", [this] { return OpenDevice2(form), 0; }},
        {"open3", [this] { return OpenDevice3(form), 0; }},
        {"ok2", [this] { return cmdDeviceSet2_Click(form), 0; }},
        {"ok3", [this] { return cmdDeviceSet3_Click(form), 0; }},
        {"cancel2", [this] { return CancelDevice2(form) ? 1 : 0; }},
        {"cancel3", [this] { return CancelDevice3(form) ? 1 : 0; }},
        {"closed3", [] { return Device3Closed(), 0; }},
        {"detail", [this] { return cmdSyosai_Click(form), 0; }},
        {"write-devices", [this] { return cmdPrmCtWrite_Click(form, [] {}), 0; }},
    };
    StoryWords words{
        // what there is
        {"agree", [this](Args&) { agree(); }},
        {"on-line", [](Args&) { GoOnLine(), OpenCtPort(); }},
        {"sample", [](Args&) { ParaSet = SampleSet(); }},
        {"axes", [](Args& a) { SetAxisOffByMask(AxisOff, MaskOf(Word(a))); }},
        {"file-axes", [](Args& a) { SetAxisOffByMask(FileAxisOff, MaskOf(Word(a))); }},
        {"controller-axes",
         [this](Args& a) { line.controller.setAxisMask(static_cast<unsigned>(MaskOf(Word(a)))); }},
        {"block",
         [this](Args& a) {
             const int block = Number(a);
             line.controller.setBlock(block, Word(a));
         }},
        {"fault", [this](Args& a) { addFault(Word(a)); }},
        {"forget", [this](Args&) { forgetFrames(); }},
        {"commit-time", [this](Args& a) { line.controller.setCommitTime(Number(a)); }},
        {"program", [](Args& a) { TakeDevice(DevSetting, a); }},
        {"pending", [](Args& a) { TakeDevice(DevSettei, a); }},
        {"on", [](Args& a) { *kFlags.at(Word(a)) = kSet; }},
        {"off", [](Args& a) { *kFlags.at(Word(a)) = kClear; }},
        {"lamp", [](Args&) { SetPanel(&MainPanel::imgGreenLedOnline, true); }},
        {"rows",
         [](Args& a) {
             std::apply(showRows, std::tuple{Short(a), Short(a)});
         }},
        {"working", [](Args& a) { PosiFirst = PosiLast = Short(a); }},
        {"type",
         [](Args& a) {
             const int row = Number(a);
             int column = Word(a) == "ACC" ? kAcc : kPosi;
             column += kAxisColumns * (Number(a) - 1);
             type(row, column, Rest(a));
         }},
        {"parameter",
         [](Args& a) {
             const auto [item, axis] = itemOf(a);
             SetParaValue(ParaSet, item, axis, Number(a));
         }},
        {"actuator",
         [](Args& a) {
             const std::size_t axis = axisOf(a);
             ParaSet.parts[axis] = ParseActuator(ParaSet.Actuator[axis] = Rest(a));
         }},
        {"printer",
         [this](Args&) {
             Screens().frmDeviceShow = [] {};
             Screens().PrintParaData = [this](const std::string& name) { printed += name + ","; };
         }},
        {"lists-behind", [this](Args&) { leaveListsBehind(); }},
        {"list",
         [this](Args& a) {
             const std::string name = Word(a);
             std::filesystem::copy_file(QDW8_DATA_DIR "/" + name, pathOf(name));
         }},
        {"file",
         [this](Args& a) {
             const std::string name = Word(a);
             writeFile(name, Rest(a));
         }},
        {"parameters-file", [this](Args& a) { writeParameters(Word(a)); }},
        {"bad-parameters-file", // names no device
         [this](Args&) {
             std::string bytes = ReadWholeFile(pathOf("good.pmt"));
             writeFile("bad.pmt", bytes.erase(bytes.find(" 61H450"), 7));
         }},
        {"positions-file", [this](Args& a) { ASSERT_EQ(SaveFileAs2(Word(a)), 0); }},
        {"from-controller",
         [](Args&) {
             ASSERT_EQ(ReadAxisMask(), 0);
             ASSERT_EQ(TakeOverDevicesOfController(), 0);
             ASSERT_EQ(ReadPosidataFromCt(), LineResult::Done);
         }},
        {"keep", [this](Args&) { kept = Everything(); }},
        // what the program asks
        {"box", [this](Args& a) { platform.expectBox(Rest(a)); }},
        {"ask", // "OkCancel", "YesNo" or "YesNoCancel" by number, the answer by its letter
         [this](Args& a) {
             const auto buttons = static_cast<BoxButtons>(Number(a));
             const auto answer = static_cast<BoxAnswer>(std::string("OCYN").find(Word(a)));
             platform.expectBox(Rest(a), buttons, answer);
         }},
        {"select", [this](Args& a) { select(a); }},
        {"pick",
         [this](Args& a) {
             const FileQuestion& dialog = kDialogs.at(Word(a));
             const std::string name = Word(a);
             platform.expectFile(dialog, name.empty()
                                             ? std::nullopt
                                             : std::optional(FileAnswer{pathOf(name), name}));
         }},
        {"dialog-fails",
         [](Args&) {
             ThePlatform().CommonDialog1.ShowFile =
                 [](const FileQuestion&) -> std::optional<FileAnswer> {
                 throw std::runtime_error("no dialog");
             };
         }},
        {"screen", [this](Args& a) { platform.expectScreen(Word(a)); }},
        {"in", [this](Args& a) { screen = Word(a); }},
        {"end", [this](Args&) { endOfScreen(); }},
        // what the user does
        {"do", [this](Args& a) { run(a); }},
        {"run", [this](Args& a) { platform.run(Number(a)); }},
        {"poll", [](Args&) { EnableTimer(Timer1); }},
        {"no-poll", [](Args&) { DisableTimer(Timer1); }},
        {"at",
         [this](Args& a) {
             const int ms = Number(a);
             platform.after(ms, [this, statement = Rest(a)] { tell(statement); });
         }},
        {"command-runs",
         [this](Args& a) {
             const CommandsAway away;
             ++depth;
             platform.run(Number(a));
             --depth;
         }},
        {"size", [this](Args& a) { edit(a, ChangeSize); }},
        {"speed", [this](Args& a) { edit(a, ChangeSpeed); }},
        {"stroke", [this](Args& a) { edit(a, ChangeStroke); }},
        {"old", [this](Args& a) { tick(a, ChangeNewOrOld); }},
        {"tick", [this](Args& a) { tick(a, ChangeAxisEnable); }},
        {"grey-old", [this](Args& a) { panelOf(a).chkNewOrOld.enabled = false; }},
        {"other-family", [this](Args& a) { ChangeFamily(form, axisOf(a), kFamilyHn); }},
        {"no-sizes", [this](Args& a) { panelOf(a).comboDeviceSize.rows.clear(); }},
        // what stands afterwards, beside what `values` tells
        {"kept", [this](Args&) { EXPECT_EQ(Everything(), kept); }},
    };
    StoryValues values{
        {"do", [this](Args& a) { return run(a); }},
        {"axes", [](Args&) { return AxesOf(AxisMaskOf(AxisOff)); }},
        {"lasting-axes",
         [this](Args&) { return AxesOf(static_cast<int>(qdk8::AxisMask(lasting()))); }},
        {"lasting", [this](Args& a) { return lasting().blocks.at(axisOf(a) + 1); }},
        {"program", [](Args& a) { return Text(DevSetting[axisOf(a)]); }},
        {"pending", [](Args& a) { return Text(DevSettei[axisOf(a)]); }},
        {"family",
         [](Args&) {
             return Joined({FamilyText.begin(), FamilyText.end()}, ",");
         }},
        {"flags",
         [](Args&) {
             std::string on;
             for (const auto& [name, flag] : kFlags) {
                 on += IsSet(*flag) ? name + " " : "";
             }
             return on;
         }},
        {"port", [this](Args&) { return platform.portOpen ? "open" : "closed"; }},
        {"lamp", [](Args&) { return ThePanel().imgGreenLedOnline ? "on" : "off"; }},
        {"now", [this](Args&) { return std::to_string(platform.now); }},
        {"setting", [this](Args& a) { return platform.settings[Word(a)]; }},
        {"settings", [this](Args&) { return std::to_string(platform.settings.size()); }},
        {"parameter",
         [](Args& a) {
             const auto [item, axis] = itemOf(a);
             return PlainDecimal(ParaValue(ParaSet, item, axis));
         }},
        {"label", [](Args& a) { return ThePanel().lblDeviceType[axisOf(a)].substr(0, 11); }},
        {"head", [](Args& a) { return ThePanel().axisHeader[axisOf(a)]; }},
        {"colour",
         [](Args&) {
             return std::to_string(static_cast<int>(flgdData().rows[kGridHeadRows].colour[1]));
         }},
        {"posi", [](Args& a) { return cell(Number(a), kPosi); }},
        {"mm", [](Args& a) { return PlainDecimal(unitsOf(a).mm[0]); }},
        {"pulses", [](Args& a) { return PlainDecimal(unitsOf(a).pulse[0]); }},
        {"working",
         [](Args&) { return std::to_string(PosiFirst) + "-" + std::to_string(PosiLast); }},
        {"name", [](Args&) { return PosiFileName; }},
        {"changes", [](Args&) { return IsSet(PosiDirtyFlag) ? "unsaved" : "saved"; }},
        {"enabled", [](Args&) { return IsEnabled(Command::cmdChangeDev) ? "yes" : "no"; }},
        {"commands", [](Args&) { return CommandsTaken() ? "away" : "there"; }},
        {"opened", [this](Args&) { return std::to_string(opened); }},
        {"sent", [this](Args&) { return Joined(platform.sent, ","); }},
        {"last", [this](Args&) { return platform.sent.back(); }},
        {"actuator-text",
         [](Args& a) {
             const std::size_t axis = axisOf(a);
             const ActuatorParts& parts = ParaSet.parts[axis];
             return parts.size + "|" + parts.speed + "|" + std::to_string(parts.stroke) + "|" +
                    ParaSet.Actuator[axis];
         }},
        {"printed", [this](Args&) { return printed; }},
        {"count", [this](Args& a) { return std::to_string(countOf(Word(a))); }},
        {"differs",
         [](Args&) { return CompareActuatorSettingOfPosifile2PC() != 0 ? "yes" : "no"; }},
        {"sizes", [this](Args& a) { return Joined(panelOf(a).comboDeviceSize.rows, ","); }},
        {"panel", [this](Args& a) { return Shown(panelOf(a)); }},
        {"ticked",
         [this](Args&) {
             int mask = 0;
             for (std::size_t axis = 0; axis < kAxes; ++axis) {
                 mask |= form.axes[axis].chkAxisEnable ? 1 << axis : 0;
             }
             return AxesOf(mask);
         }},
        {"window",
         [this](Args&) {
             return std::string(form.cautionShown ? "caution " : "") +
                    (form.cancelShown ? "cancel" : "");
         }},
        {"follow", [this](Args& a) { return follow(a); }},
        {"taken", [this](Args& a) { return taken(a); }},
    };
    /// Frames that begin so.
    std::ptrdiff_t countOf(const std::string& head) const {
        return std::count_if(platform.sent.begin(), platform.sent.end(),
                             [&](const std::string& frame) { return frame.starts_with(head); });
    }
    static const PosiUnits& unitsOf(Args& args) {
        return PosiUnitTable[static_cast<std::size_t>(Number(args))];
    }
};

TEST(SetupStories, AllHold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/setup/stories", 25);
}

} // namespace
} // namespace qdw8::test
