#include "each_window.h"

#include "app/main_panel.h"
#include "every_window.h"
#include "parameter/para_window.h"
#include "position/grid_display.h"
#include "print/print_select.h"
#include "program/commands.h"
#include "windows/dialogs/frmSplash.h"

namespace qdw8::test {
namespace {

template<typename Window, typename... With>
void Show(const EachWindow::Visit& visit, const char* name, With&&... with) {
    Window form(std::forward<With>(with)...);
    if constexpr (requires { form.showState(); }) {
        form.showState();
    }
    visit(name, form);
}

} // namespace

EachWindow::EachWindow() {
    loadParameters();
    Screens().frmDeviceShow = [] {};
    ThePlatform().programFolder = QDW8_DATA_DIR;
    AxisOff[2] = kSet;
}

void EachWindow::visitAll(const Visit& visit) {
    Set_MainFormStr();
    SetPanelLine({LinePanel::Sign::Bad, "COM1: /dev/ttyUSB0", false, ResText(3349, {"dialout"})});
    frmMain another(Commands(), {});
    another.loadResources();
    visit("frmMain", another);
    Show<frmSelection>(
        visit, "frmSelection",
        SelectionQuestion{ResText(471), ResText(44), {"A & B", ResText(46), ResText(47)}, false});
    Show<frmSelection>(
        visit, "frmSelection, must be answered",
        SelectionQuestion{ResText(471), ResText(41), {ResText(42), ResText(43)}, true});
    {
        const TransferShown shown(4, 368, TransferShown::Cancel::Yes);
        Show<frmTrance>(visit, "frmTrance");
    }
    {
        const TransferShown shown(4, 378);
        Show<frmTrance>(visit, "frmTrance, without cancel");
    }
    OfferGiveUp();
    Show<frmGiveUp>(visit, "frmGiveUp");
    WithdrawGiveUp();
    ProcessingShownFlag = kSet;
    Show<frmProcessing>(visit, "frmProcessing");
    ProcessingShownFlag = kClear;
    GridFirst = 1;
    GridLast = 10;
    Show<frmSelectPosiNo2>(visit, "frmSelectPosiNo2");
    Show<frmSelectPosiNo3>(visit, "frmSelectPosiNo3");
    for (const std::int16_t first : {std::int16_t{5}, std::int16_t{11}}) {
        FileFirst = first;
        FileLast = 20;
        Show<frmSelectPosiNo4>(visit, "frmSelectPosiNo4", CompareFileRange() == 0);
    }
    Show<frmDataShogo>(visit, "frmDataShogo");
    for (const Flag mode : {kClear, kSet}) {
        SyogoMode = mode;
        Show<frmSyogoKekka>(visit, "frmSyogoKekka");
    }
    Show<frmSplash>(visit, "frmSplash");
    FirstDeviceSetFlag = DispMmFlag = kSet;
    Show<frmDevice2>(visit, "frmDevice2, in mm");
    StartDeviceSelectFlag = kSet;
    DispMmFlag = kClear;
    Show<frmDevice2>(visit, "frmDevice2, at the start");
    StartDeviceSelectFlag = kClear;
    Show<frmDevice3>(visit, "frmDevice3");
    LoadParameta2();
    Show<frmParameta2>(visit, "frmParameta2");
    Show<frmDevice>(visit, "frmDevice");
    Show<frmGrp>(visit, "frmGrp");
    Show<frmSqMcr>(visit, "frmSqMcr");
    Show<frmIOCheck>(visit, "frmIOCheck");
    Show<frmJOG>(visit, "frmJOG");
    UnloadJog();
    Show<frmMove>(visit, "frmMove");
    LoadPrintSelect();
    Show<frmPrintSelect>(visit, "frmPrintSelect");
    Show<frmPrintPreview>(visit, "frmPrintPreview");
    ThePlatform().programFolder = "/opt/QD-W8";
    ThePlatform().settingsFolder = "/home/user/.config/QD-W8";
    Show<frmOptions2>(visit, "frmOptions2");
    Show<frmAbout>(visit, "frmAbout");
    ThePlatform().programFolder = QDW8_SOURCE_DIR;
    Show<frmHelp>(visit, "frmHelp", ReadManual().value_or(Manual{}));
    ThePlatform().programFolder = QDW8_DATA_DIR;
}

} // namespace qdw8::test
