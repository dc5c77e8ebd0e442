#include "print/print_job.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/file_questions.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "app/waits.h"
#include "platform/platform.h"
#include "print/print_page.h"

#include <exception>
#include <filesystem>
#include <optional>

namespace qdw8 {
namespace {

struct State {
    std::string name;    ///< proposed for a PDF file of the document that is looked at
    bool saved = false;  ///< it went into a PDF file
    bool onPage = false; ///< pages are being drawn or printed
};
State state;

/// The flags of the printer dialog: no selection, copies made by the printer, no print to a file.
constexpr int kPrintFlags = 1310724;
constexpr FileKind kPdfFile{3263, "pdf"};
/// Fewer pages are out before anybody could read how far they are.
constexpr int kLongPrint = 5;

/// What the user does after a look at the pages.
enum class Look { Leave, Print, OtherPrinter };

/// Drops what was drawn on every way out; nothing is left to drop behind a good end.
struct DocumentDropped {
    DocumentDropped() = default;
    ~DocumentDropped() {
        try {
            ThePlatform().ThePrinter.KillDoc();
        } catch (const std::exception&) {
            // A printer that fails even so has been told of already.
        }
    }
    DocumentDropped(const DocumentDropped&) = delete;
    DocumentDropped& operator=(const DocumentDropped&) = delete;
};

std::string PdfName(const PrintJob& job) {
    const bool file = !job.fileName.empty() && job.fileName != kShownName;
    const std::filesystem::path name = file ? job.fileName : ResText(job.shownName);
    return name.stem().string() + ".pdf";
}

PrinterAnswer AskPrinter() {
    if (IsSet(ProgramEndFlag)) {
        return PrinterAnswer::Cancel;
    }
    return ThePlatform().CommonDialog1.ShowPrinter({kPrintFlags, true});
}

Look ShowPages() {
    std::int16_t answer = 0;
    ShowModal([&answer] { answer = Screens().frmPrintPreview(); });
    return answer == 1 ? Look::Print : answer == 2 ? Look::OtherPrinter : Look::Leave;
}

/// Hands the pages on by `send`, with progress and a way to cancel if they are many.
bool Send(const std::function<bool(const PageDone&)>& send) {
    if (PrintPageNo < kLongPrint) {
        return send({});
    }
    const TransferShown shown(PrintPageNo, 3265, TransferShown::Cancel::Yes, 3260);
    return send([&shown](int pages) {
        shown.moveTo(pages);
        MsecTimer(1); // the user's click comes in
        return !IsSet(TransferCancelFlag) && !IsSet(ProgramEndFlag);
    });
}

void Draw(const PrintJob& job) {
    ThePlatform().ThePrinter.SetTitle(std::filesystem::path(state.name).stem().string());
    ThePlatform().ThePrinter.SetFontName(ResText(job.fontId));
    PrinterSetup(job.lines);
    job.draw();
}

/// Nothing: another printer is to be chosen. Else whether the user has what he wanted.
std::optional<bool> PrintOnce(const PrintJob& job) {
    state.onPage = false;
    const PrinterAnswer answer = AskPrinter();
    if (answer == PrinterAnswer::Cancel) {
        return state.saved;
    }
    const DocumentDropped dropped;
    state.onPage = true;
    Draw(job);
    if (answer == PrinterAnswer::Preview) {
        switch (ShowPages()) {
        case Look::Leave: return state.saved;
        case Look::OtherPrinter: return std::nullopt;
        case Look::Print: break;
        }
    }
    return Send(ThePlatform().ThePrinter.EndDoc);
}

} // namespace

bool RunPrint(const PrintJob& job) {
    state = {PdfName(job), false, false};
    try {
        std::optional<bool> done;
        while (!done) {
            done = PrintOnce(job);
        }
        if (!*done) {
            ShowTexts({396});
        }
        return *done;
    } catch (const std::exception&) {
        ShowBox(state.onPage ? job.failureOnPage : job.failure);
        return false;
    }
}

void cmdPreviewPdf_Click() {
    try {
        const auto chosen = AskFileToSave(kPdfFile, 3264, state.name);
        if (!chosen) {
            return;
        }
        const auto save = [&chosen](const PageDone& pageDone) {
            return ThePlatform().ThePrinter.SavePdf(chosen->path, pageDone);
        };
        state.saved = Send(save) || state.saved;
    } catch (const std::exception&) {
        ShowTexts({3266});
    }
}

void ResetPrintJob() {
    state = State{};
}

} // namespace qdw8
