#include "windows/help/frmHelp.h"

#include "app/boxes.h"
#include "platform/platform.h"
#include "platform/qt/shared_printer.h"
#include "platform/qt/work_window.h"
#include "platform/whole_file.h"
#include "windows/access/tab_keys.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/texts.h"
#include "windows/help/manual_paper.h"

#include <QApplication>
#include <QBuffer>
#include <QHBoxLayout>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace qdw8 {
namespace {

constexpr std::int16_t kNoManual = 414;
constexpr std::int16_t kTitle = 3320;
constexpr std::int16_t kContents = 3321;
constexpr std::int16_t kIndex = 3322;
constexpr std::int16_t kSearch = 3323;
constexpr std::int16_t kBack = 3324;
constexpr std::int16_t kForward = 3325;
constexpr std::int16_t kPrint = 3326;
constexpr std::int16_t kSavePdf = 3258;
constexpr std::int16_t kLarger = 3328;
constexpr std::int16_t kSmaller = 3329;
constexpr std::int16_t kSearchFor = 3330;
constexpr std::int16_t kNotFound = 3331;
constexpr std::int16_t kNotPrinted = 3332;
constexpr std::int16_t kPdfFilter = 3263;
constexpr std::int16_t kPdfName = 3334;
constexpr std::int16_t kIndexStart = 3335;

constexpr QSize kSize{1000, 720};
constexpr int kLeastWidth = 560; ///< with the list and a page that can be read
constexpr int kMargin = 8;
constexpr int kPageMargin = 14;
constexpr int kPlaceRole = Qt::UserRole;
/// Room for what a window manager puts around a window.
constexpr QSize kFrameAround{10, 40};

/// Shows the pages as the manual makes them.
class PageBrowser : public QTextBrowser {
public:
    PageBrowser(const Manual& of, QWidget* parent) : QTextBrowser(parent), manual(of) {}

    QVariant loadResource(int type, const QUrl& name) override {
        if (type == QTextDocument::HtmlResource) {
            return PageHtml(manual, name.fileName());
        }
        return QTextBrowser::loadResource(type, name);
    }

    /// Makes pictures that are wider than the page as wide as it.
    void fitPictures() {
        const double room = viewport()->width() - 2.0 * document()->documentMargin();
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            for (auto at = block.begin(); !at.atEnd(); ++at) {
                const QTextFragment piece = at.fragment();
                QTextImageFormat format = piece.charFormat().toImageFormat();
                if (!format.isValid()) {
                    continue;
                }
                const QByteArray file =
                    loadResource(QTextDocument::ImageResource, QUrl(format.name())).toByteArray();
                const QSizeF size = QImage::fromData(file).size();
                const double scale = std::min(1.0, room / std::max(1.0, size.width()));
                if (scale > 0.0 && format.width() != size.width() * scale) {
                    format.setWidth(size.width() * scale);
                    format.setHeight(size.height() * scale);
                    QTextCursor cursor(document());
                    cursor.setPosition(piece.position());
                    cursor.setPosition(piece.position() + piece.length(), QTextCursor::KeepAnchor);
                    cursor.setCharFormat(format);
                    break; // the pieces are others now; a picture stands alone
                }
            }
        }
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        fitPictures();
    }

private:
    const Manual& manual;
};

QListWidgetItem* AddPlace(QListWidget& list, const QString& text, const QString& place) {
    auto* item = new QListWidgetItem(text, &list);
    item->setData(kPlaceRole, place);
    return item;
}

QWidget* Page(const char* name, std::int16_t tag, QWidget* parent) {
    auto* made = new QWidget(parent);
    made->setObjectName(QLatin1String(name));
    SetNumbers(*made, tag);
    new QVBoxLayout(made);
    return made;
}

/// A field above a list; Enter in the field takes the list's first entry.
QLineEdit* MakeField(QWidget& tab, const char* name, std::int16_t says) {
    auto* field = new QLineEdit(&tab);
    field->setObjectName(QLatin1String(name));
    SetNumbers(*field, says);
    field->setPlaceholderText(ResQText(says));
    field->setClearButtonEnabled(true);
    tab.layout()->addWidget(field);
    return field;
}

} // namespace

frmHelp::frmHelp(Manual shown) : QWidget(nullptr, Qt::Window), manual(std::move(shown)) {
    setObjectName(QStringLiteral("frmHelp"));
    SetNumbers(*this, kTitle);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    auto* browser = new PageBrowser(manual, this);
    page = browser;
    page->setObjectName(QStringLiteral("txtPage"));
    SetNumbers(*page, kTitle);
    page->document()->setDocumentMargin(kPageMargin);
    // Else a picture that is fitted could make the bar come and go.
    page->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto* row = new QHBoxLayout;
    makeButtons(*row);
    layout->addLayout(row);
    auto* split = new QSplitter(this);
    split->addWidget(makeTabs());
    split->addWidget(page);
    split->setStretchFactor(1, 1);
    const int list = listWidth();
    split->setSizes({list, kSize.width() - list});
    layout->addWidget(split, 1);
    makeKeys();
    LoadFormResources(*this);
    QSize size = kSize;
    if (const QScreen* on = screen()) {
        size = size.boundedTo(on->availableSize() - kFrameAround);
    }
    resize(size);
    connect(page, &QTextBrowser::sourceChanged, this, [this, browser](const QUrl& url) {
        browser->fitPictures();
        followPage(url.fileName());
    });
}

void frmHelp::makeButtons(QHBoxLayout& row) {
    const auto button = [&](const char* name, std::int16_t caption) {
        auto* made = new QPushButton(this);
        made->setObjectName(QLatin1String(name));
        SetNumbers(*made, caption);
        row.addWidget(made);
        return made;
    };
    QPushButton* back = button("cmdBack", kBack);
    QPushButton* forward = button("cmdForward", kForward);
    connect(back, &QPushButton::clicked, page, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, page, &QTextBrowser::forward);
    connect(page, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(button("cmdLarger", kLarger), &QPushButton::clicked, page, [this] { page->zoomIn(); });
    connect(button("cmdSmaller", kSmaller), &QPushButton::clicked, page,
            [this] { page->zoomOut(); });
    row.addStretch();
    connect(button("cmdPrint", kPrint), &QPushButton::clicked, this, [this] { print(); });
    connect(button("cmdSavePdf", kSavePdf), &QPushButton::clicked, this, [this] { savePdf(); });
}

/// As wide as the longest title in the contents, as far as the page keeps the larger half.
int frmHelp::listWidth() const {
    int widest = 0;
    for (const ManualPage& row : manual.rows) {
        widest = std::max(widest, contents->fontMetrics().horizontalAdvance(row.title));
    }
    const int around = 2 * contents->indentation() +
                       contents->verticalScrollBar()->sizeHint().width() +
                       2 * contents->frameWidth() + 4 * kMargin;
    return std::min(std::max(widest + around, tabs->tabBar()->sizeHint().width()),
                    kSize.width() / 2);
}

QTabWidget* frmHelp::makeTabs() {
    tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("tabHelp"));
    tabs->addTab(makeContents(tabs), QString());
    tabs->addTab(makeIndex(tabs), QString());
    tabs->addTab(makeSearch(tabs), QString());
    AddTabKeys(*tabs);
    return tabs;
}

QWidget* frmHelp::makeContents(QWidget* parent) {
    QWidget* tab = Page("tabContents", kContents, parent);
    contents = new QTreeWidget(tab);
    contents->setObjectName(QStringLiteral("treeContents"));
    SetNumbers(*contents, kContents);
    contents->setHeaderHidden(true);
    QTreeWidgetItem* chapter = nullptr;
    for (const ManualPage& row : manual.rows) {
        if (row.file.isEmpty() || chapter == nullptr) {
            chapter = new QTreeWidgetItem(contents, {row.title});
            chapter->setFlags(Qt::ItemIsEnabled);
        }
        if (!row.file.isEmpty()) {
            auto* item = new QTreeWidgetItem(chapter, {row.title});
            item->setData(0, kPlaceRole, row.file);
        }
    }
    contents->expandAll();
    connect(contents, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item != nullptr) {
            goTo(item->data(0, kPlaceRole).toString());
        }
    });
    tab->layout()->addWidget(contents);
    return tab;
}

QWidget* frmHelp::makeIndex(QWidget* parent) {
    QWidget* tab = Page("tabIndex", kIndex, parent);
    QLineEdit* start = MakeField(*tab, "txtIndex", kIndexStart);
    index = new QListWidget(tab);
    index->setObjectName(QStringLiteral("lstIndex"));
    SetNumbers(*index, kIndex);
    for (const auto& [word, place] : manual.words) {
        AddPlace(*index, word, place);
    }
    const auto show = [this](const QListWidgetItem* item) {
        if (item != nullptr) {
            goTo(item->data(kPlaceRole).toString());
        }
    };
    connect(index, &QListWidget::currentItemChanged, this, show);
    connect(index, &QListWidget::itemClicked, this, show);
    connect(start, &QLineEdit::textChanged, this,
            [this](const QString& text) { filterIndex(text); });
    tab->layout()->addWidget(index);
    return tab;
}

QWidget* frmHelp::makeSearch(QWidget* parent) {
    QWidget* tab = Page("tabSearch", kSearch, parent);
    question = MakeField(*tab, "txtSearch", kSearchFor);
    found = new QListWidget(tab);
    found->setObjectName(QStringLiteral("lstFound"));
    SetNumbers(*found, kSearch);
    const auto show = [this](const QListWidgetItem* item) {
        if (item != nullptr && item->flags().testFlag(Qt::ItemIsSelectable)) {
            goTo(item->data(kPlaceRole).toString());
            markWords(question->text());
        }
    };
    connect(found, &QListWidget::currentItemChanged, this, show);
    connect(found, &QListWidget::itemClicked, this, show);
    connect(question, &QLineEdit::textChanged, this, [this](const QString& text) { search(text); });
    connect(question, &QLineEdit::returnPressed, this, [this] { found->setCurrentRow(0); });
    tab->layout()->addWidget(found);
    return tab;
}

void frmHelp::makeKeys() {
    const auto key = [this](const QKeySequence& keys, const auto& does) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, does);
    };
    key(Qt::Key_Escape, [this] { close(); });
    key(QKeySequence::Back, [this] { page->backward(); });
    key(QKeySequence::Forward, [this] { page->forward(); });
    key(QKeySequence::ZoomIn, [this] { page->zoomIn(); });
    key(QKeySequence::ZoomOut, [this] { page->zoomOut(); });
    key(QKeySequence::Print, [this] { print(); });
    key(QKeySequence::Find, [this] {
        tabs->setCurrentIndex(2);
        question->setFocus();
        question->selectAll();
    });
}

void frmHelp::goTo(const QString& place) {
    if (!place.isEmpty() && page->source() != manual.url(place)) {
        page->setSource(manual.url(place));
    }
}

/// The title names the page, the contents show where it stands.
void frmHelp::followPage(const QString& file) {
    setWindowTitle(manual.titleOf(file) + QLatin1String(" - ") + ResQText(kTitle));
    const QSignalBlocker quiet(contents);
    for (QTreeWidgetItemIterator item(contents); *item != nullptr; ++item) {
        if ((*item)->data(0, kPlaceRole).toString() == file) {
            contents->setCurrentItem(*item);
        }
    }
}

void frmHelp::filterIndex(const QString& start) {
    for (int row = 0; row < index->count(); ++row) {
        QListWidgetItem* item = index->item(row);
        item->setHidden(!item->text().contains(start, Qt::CaseInsensitive));
    }
}

void frmHelp::search(const QString& asked) {
    const QSignalBlocker quiet(found);
    found->clear();
    for (const QString& file : searcher.find(asked)) {
        AddPlace(*found, manual.titleOf(file), file);
    }
    if (found->count() == 0 && !WordsOf(asked).isEmpty()) {
        AddPlace(*found, ResQText(kNotFound), QString())->setFlags(Qt::NoItemFlags);
    }
}

void frmHelp::markWords(const QString& asked) {
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString& word : WordsOf(asked)) {
        QTextCursor at(page->document());
        while (!(at = page->document()->find(word, at)).isNull()) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(palette().highlight());
            mark.format.setForeground(palette().highlightedText());
            marks << mark;
        }
    }
    page->setExtraSelections(marks);
    if (!marks.isEmpty()) {
        QTextCursor first = marks.first().cursor;
        first.clearSelection();
        page->setTextCursor(first);
    }
}

void frmHelp::open(const HelpAsked& asked) {
    if (!asked.names.contains(objectName())) {
        goTo(manual.placeOf(asked.names));
        // A box says more than one row of the messages, each in a line.
        page->setExtraSelections({});
        page->moveCursor(QTextCursor::Start);
        const QString line = asked.text.section(u'\n', 0, 0).trimmed();
        if (!line.isEmpty() && page->find(line)) {
            // What to do stands below it.
            QScrollBar& scroll = *page->verticalScrollBar();
            scroll.setValue(scroll.value() + page->cursorRect().top() - kPageMargin);
        }
    } else {
        goTo(manual.placeOf({objectName()}));
    }
    // What a modal window blocks can't be read; what stands in front of it can.
    winId();
    const QWidget* modal = QApplication::activeModalWidget();
    QWindow* over = modal == nullptr ? nullptr : modal->windowHandle();
    if (isVisible() && windowHandle()->transientParent() != over) {
        hide();
    }
    if (over != nullptr && !isVisible()) {
        putBeside(*modal);
    }
    windowHandle()->setTransientParent(over);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    page->setFocus();
}

/// What is explained is to be seen with what explains it.
void frmHelp::putBeside(const QWidget& other) {
    const QRect screen = other.screen()->availableGeometry();
    const QRect taken = other.frameGeometry();
    const int left = taken.x() - screen.x();
    const int right = screen.x() + screen.width() - taken.x() - taken.width();
    const int beside = std::max(left, right) - kFrameAround.width();
    // Where no side has room for a page, it covers no more than it must of the wider one.
    const int most = beside >= kLeastWidth ? beside : screen.width() * 2 / 3;
    resize(std::min(kSize.width(), most),
           std::min(kSize.height(), screen.height() - kFrameAround.height()));
    // It has no frame before it is on the screen.
    const QPoint frame(kFrameAround.width() / 2, kFrameAround.height() - kFrameAround.width() / 2);
    move(right >= left ? screen.x() + screen.width() - width() - frame.x() : screen.x() + frame.x(),
         screen.y() + frame.y());
}

void frmHelp::print() {
    WorkIn(*this); // the dialog stands over the manual
    const PrinterAnswer answer = ThePlatform().CommonDialog1.ShowPrinter({0, false});
    if (answer != PrinterAnswer::Cancel && !PrintManual(manual, SharedPrinter())) {
        ShowTexts({kNotPrinted});
    }
}

void frmHelp::savePdf() {
    WorkIn(*this);
    FileQuestion asked;
    asked.kind = FileQuestion::Kind::Save;
    asked.title = ResText(kSavePdf);
    asked.filter = ResText(kPdfFilter);
    asked.defaultExt = "pdf";
    asked.fileName = ResText(kPdfName);
    asked.flags = kOverwritePrompt;
    if (const auto answer = ThePlatform().CommonDialog1.ShowFile(asked)) {
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter writer(&pdf);
        writer.setPageSize(SharedPrinter().pageLayout().pageSize());
        writer.setPageMargins({});
        writer.setTitle(QStringLiteral("QD-W8"));
        try {
            if (!PrintManual(manual, writer)) {
                throw std::runtime_error("not drawn");
            }
            WriteWholeFile(answer->path, pdf.data().toStdString());
        } catch (const std::exception&) {
            ShowTexts({kNotPrinted});
        }
    }
}

void ShowHelp(std::unique_ptr<frmHelp>& window, const HelpAsked& asked) {
    if (!window) {
        auto manual = ReadManual();
        if (!manual) {
            ShowTexts({kNoManual});
            return;
        }
        window = std::make_unique<frmHelp>(std::move(*manual));
    }
    window->open(asked);
}

} // namespace qdw8
