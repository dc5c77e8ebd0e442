#include "program/wiring.h"

#include "app/Module1.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "link/background.h"
#include "link/end_of_run.h"
#include "platform/qt/kept_places.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/work_window.h"
#include "position/grid_editor.h"
#include "print/grp_print.h"
#include "print/para_print.h"
#include "print/sm_print.h"
#include "program/commands.h"
#include "program/shutdown.h"
#include "windows/controls/in_front.h"
#include "windows/controls/program_icon.h"
#include "windows/device/frmDevice2.h"
#include "windows/device/frmDevice3.h"
#include "windows/dialogs/frmDataShogo.h"
#include "windows/dialogs/frmGiveUp.h"
#include "windows/dialogs/frmProcessing.h"
#include "windows/dialogs/frmSelectPosiNo2.h"
#include "windows/dialogs/frmSelectPosiNo3.h"
#include "windows/dialogs/frmSelectPosiNo4.h"
#include "windows/dialogs/frmSelection.h"
#include "windows/dialogs/frmSplash.h"
#include "windows/dialogs/frmSyogoKekka.h"
#include "windows/dialogs/frmTrance.h"
#include "windows/help/frmAbout.h"
#include "windows/help/frmHelp.h"
#include "windows/help/help_key.h"
#include "windows/main/frmMain.h"
#include "windows/motion/frmIOCheck.h"
#include "windows/motion/frmJOG.h"
#include "windows/motion/frmMove.h"
#include "windows/options/frmOptions2.h"
#include "windows/parameter/frmParameta2.h"
#include "windows/print/frmPrintPreview.h"
#include "windows/print/frmPrintSelect.h"
#include "windows/tables/frmGrp.h"
#include "windows/tables/frmSqMcr.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>
#include <memory>

namespace qdw8 {
namespace {

/// The windows that outlive a single question. They are made when they are first needed, and go
/// with the process.
struct Windows {
    std::unique_ptr<frmSplash> splash;
    std::unique_ptr<frmMain> main;
    std::unique_ptr<frmTrance> trance;
    std::unique_ptr<frmProcessing> processing;
    std::unique_ptr<frmGiveUp> giveUp;
    std::unique_ptr<frmParameta2> parameters;
    std::unique_ptr<frmGrp> groups;
    std::unique_ptr<frmSqMcr> macros;
    std::unique_ptr<frmIOCheck> inputOutput;
    std::unique_ptr<frmJOG> teaching;
    std::unique_ptr<frmMove> moveTest;
    std::unique_ptr<frmHelp> help;
};

Windows& TheWindows() {
    static auto* windows = new Windows;
    return *windows;
}

/// What a modal window stands over, and gives the keys back to.
QWidget* Parent() {
    return WindowOfWork(TheWindows().main.get());
}

/// What the toolkit itself says, and the font, in the language of the run.
void DressForLanguage() {
    if (LanguageBase != 0) {
        return; // the toolkit's own texts are English
    }
    SetStandardTexts({ResText(1403), ResText(1404), ResText(3070) + "(&Y)", ResText(3071) + "(&N)",
                      ResText(3072) + "(&O)", ResText(3073) + "(&S)", ResText(3074), ResText(3075),
                      ResText(3076), ResText(3250) + "(&V)"});
    QFont font = QApplication::font();
    font.setFamilies({"Noto Sans CJK JP", "IPAGothic", font.family()});
    QApplication::setFont(font);
    auto* translator = new QTranslator(qApp);
    if (translator->load(QLocale(QLocale::Japanese), "qtbase", "_",
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
}

/// Forwards to a window once it is there.
template<typename Window>
std::function<void()> Tell(std::unique_ptr<Window> Windows::*window, void (Window::*show)()) {
    return [window, show] {
        if (const auto& there = TheWindows().*window) {
            (there.get()->*show)();
        }
    };
}

/// Opens a window that doesn't block, as it stands when it is opened; one that is open comes to the
/// front.
template<typename Window> std::function<void()> Open(std::unique_ptr<Window> Windows::*window) {
    return [window] {
        auto& there = TheWindows().*window;
        if (!there || !there->isVisible()) {
            there = std::make_unique<Window>(TheWindows().main.get());
            KeepPlace(*there);
        }
        there->show();
        WorkIn(*there);
    };
}

/// The states of the commands go for every window.
void TellCommands() {
    const Windows& windows = TheWindows();
    if (windows.main) {
        windows.main->showCommands();
    }
    if (windows.parameters) {
        windows.parameters->showState();
    }
    if (windows.groups) {
        windows.groups->showState();
    }
    if (windows.macros) {
        windows.macros->showState();
    }
    if (windows.inputOutput) {
        windows.inputOutput->showState();
    }
    if (windows.moveTest) {
        windows.moveTest->showState();
    }
}

/// The parameter window stays as it is while it is open, and takes another modality.
void OpenParameters(bool modal) {
    auto& there = TheWindows().parameters;
    if (!there) {
        there = std::make_unique<frmParameta2>(TheWindows().main.get());
        KeepPlace(*there);
    }
    there->open(modal);
}

/// What is half typed in any window belongs to it before its end is asked for.
bool QueryUnload() {
    if (const auto& parameters = TheWindows().parameters) {
        parameters->takeTyped();
    }
    if (const auto& groups = TheWindows().groups) {
        groups->takeTyped();
    }
    return frmMain_QueryUnload();
}

void OpenHelp(const HelpAsked& asked) {
    const PollHeld held; // nothing begins on the line under the box that there is no manual
    ShowHelp(TheWindows().help, asked);
}

void ShowMain(bool small) {
    Windows& windows = TheWindows();
    windows.main = std::make_unique<frmMain>(
        Commands(), MainWindowEvents{RunCommand, QueryUnload, frmMain_Unload, flgdData_RowColChange,
                                     OpenDroppedPosiFile});
    windows.trance = std::make_unique<frmTrance>(windows.main.get());
    windows.processing = std::make_unique<frmProcessing>(windows.main.get());
    windows.giveUp = std::make_unique<frmGiveUp>(windows.main.get());
    windows.main->loadResources();
    windows.main->showSized(small);
}

} // namespace

void WireScreens() {
    QApplication::setWindowIcon(ProgramIcon());
    ScreenFunctions& screens = Screens();
    screens.frmMainPanel = Tell(&Windows::main, &frmMain::showPanel);
    screens.frmMainCommands = TellCommands;
    screens.flgdData = Tell(&Windows::main, &frmMain::showGrid);
    screens.flgdDataFocus = Tell(&Windows::main, &frmMain::focusGrid);
    screens.flgdDataFinishInput = [] {
        const auto& main = TheWindows().main;
        return !main || main->finishInput();
    };
    screens.frmTrance = Tell(&Windows::trance, &frmTrance::showState);
    screens.frmProcessing = Tell(&Windows::processing, &frmProcessing::showState);
    screens.frmGiveUp = Tell(&Windows::giveUp, &frmGiveUp::showState);
    screens.languageSettled = DressForLanguage;
    screens.frmMainShow = ShowMain;
    const auto before = std::make_shared<QPointer<QWidget>>();
    screens.frmMainFront = [before] {
        *before = WorkWindow();
        WorkIn(*TheWindows().main);
    };
    screens.frmMainBack = [before] {
        QWidget* window = before->data();
        if (window != nullptr && window->isVisible()) {
            WorkIn(*window);
        }
    };
    screens.frmMainClose = [] { TheWindows().main->close(); };
    screens.frmSplashShow = [] {
        TheWindows().splash = std::make_unique<frmSplash>();
        TheWindows().splash->showCentred();
    };
    screens.frmSplashUnload = [] { TheWindows().splash.reset(); };
    screens.frmSelection = [](const SelectionQuestion& question) {
        return AskSelection(Parent(), question);
    };
    screens.frmDevice2 = [] { ShowDevice2(Parent()); };
    screens.frmDevice3 = [] { ShowDevice3(Parent()); };
    screens.frmSelectPosiNo2 = [] { ShowSelectPosiNo2(Parent()); };
    screens.frmSelectPosiNo3 = [] { ShowSelectPosiNo3(Parent()); };
    screens.frmSelectPosiNo4 = [](bool overlap) { ShowSelectPosiNo4(Parent(), overlap); };
    screens.frmDataShogo = [] { return AskDataShogo(Parent()); };
    screens.frmSyogoKekka = [] { ShowSyogoKekka(Parent()); };
    screens.frmParameta2Show = OpenParameters;
    screens.frmParameta2 = Tell(&Windows::parameters, &frmParameta2::showState);
    screens.frmDeviceShow = [] { TheWindows().parameters->calculateStroke(); };
    screens.frmGrpShow = Open(&Windows::groups);
    screens.frmGrp = Tell(&Windows::groups, &frmGrp::showState);
    screens.frmSqMcrShow = Open(&Windows::macros);
    screens.frmSqMcr = Tell(&Windows::macros, &frmSqMcr::showState);
    screens.frmIOCheckShow = Open(&Windows::inputOutput);
    screens.frmPrintSelect = [] { ShowPrintSelect(Parent()); };
    screens.frmPrintPreview = [] { return ShowPrintPreview(Parent()); };
    screens.PrintGrpData = PrintGrpData;
    screens.PrintSmData = PrintSmData;
    screens.PrintParaData = PrintParaData;
    screens.frmIOCheck = Tell(&Windows::inputOutput, &frmIOCheck::showState);
    screens.frmJOGShow = Open(&Windows::teaching);
    screens.frmJOG = Tell(&Windows::teaching, &frmJOG::showState);
    screens.frmMoveShow = Open(&Windows::moveTest);
    screens.frmMove = Tell(&Windows::moveTest, &frmMove::showState);
    screens.cmdGrpMoveFocus = Tell(&Windows::moveTest, &frmMove::focusGroupMove);
    screens.frmOptions2Show = [] { ShowOptions2(TheWindows().main.get()); };
    screens.frmAboutShow = [] { ShowAbout(TheWindows().main.get()); };
    screens.frmHelpShow = [] { OpenHelp({}); };
    InstallHelpKey(*qApp, OpenHelp);
}

} // namespace qdw8
