// The stories of grid_stories.txt, in the real window over the real rules.

#include "main_form.h"
#include "position/grid_display.h"
#include "support/every_step.h"
#include "support/story.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QUrl>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <random>

namespace qdw8::test {
namespace {

const QString kFiles = QDW8_SOURCE_DIR "/tests/position/files/";

class GridUser : public MainForm {
public:
    GridUser() {
        AnswerByItself(platform);
        Screens().frmSyogoKekka = [] {};
        AxisOff[2] = kSet;
    }
    void tell(const std::string& statement) {
        Args args(statement);
        const std::string verb = Word(args);
        const std::string rest = Rest(args);
        Args numbers(rest);
        play(verb, rest, {std::istream_iterator<int>(numbers), {}});
        ASSERT_EQ(window->isWindowModified(), IsSet(PosiDirtyFlag));
    }

protected:
    /// `rest`: what stands behind the verb; `n`: the numbers at its head.
    void play(const std::string& verb, const std::string& rest, const std::vector<int>& n) {
        const auto behind = [&rest](int words) {
            Args args(rest);
            for (; words > 0; --words) {
                Word(args);
            }
            return Rest(args);
        };
        const QString name = QString::fromStdString(rest);
        const std::map<std::string, std::function<void()>> verbs{
            {"rows",
             [&] { show(static_cast<std::int16_t>(n[0]), static_cast<std::int16_t>(n[1])); }},
            {"unit",
             [&] {
                 DispMmFlag = FlagOf(rest == "mm");
                 Set_MainFormStr();
             }},
            {"set", [&] { SetGridText(n[0], n[1], behind(2)); }},
            {"outside", [&] { copyOutside(rest); }},
            {"click",
             [&] {
                 click(n[0], n[1]);
                 QApplication::processEvents();
             }},
            {"now", [&] { n[1] == 0 ? clickNumber(n[0]) : click(n[0], n[1]); }},
            {"double", [&] { doubleClick(n[0], n[1]); }},
            {"drag", [&] { drag(n[0], n[1], n[2], n[3]); }},
            {"number",
             [&] {
                 clickNumber(n[0]);
                 QApplication::processEvents();
             }},
            {"keys", [&] { keys(rest); }},
            {"held",
             [&] {
                 QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
                 QApplication::sendEvent(QApplication::focusWidget(), &again);
             }},
            {"press", [&] { press(name); }},
            {"scroll", [&] { grid->verticalScrollBar()->setValue(n[0]); }},
            {"home", [] { GridHome(); }},
            {"menu", [&] { rightClick(n[0], n[1]); }},
            {"offers",
             [&] {
                 QMenu& menu = Get<QMenu>(*window, "mnuGrid");
                 std::string on;
                 for (const QAction* entry : menu.actions()) {
                     const bool seen = menu.isVisible() && entry->isEnabled();
                     on += seen && !entry->isSeparator() ? entry->text().toStdString() + ", " : "";
                 }
                 EXPECT_EQ(on, rest.empty() ? "" : rest + ", ");
                 menu.close();
             }},
            {"lock", [&] { lock.emplace(); }},
            {"busy", [&] { busy.emplace(); }},
            {"drop",
             [&] {
                 QMimeData files;
                 QList<QUrl> urls;
                 for (const QString& file : name.split(' ')) {
                     urls << (file.contains(':') ? QUrl(QString(file).replace('@', kFiles))
                                                 : QUrl::fromLocalFile(kFiles + file));
                 }
                 files.setUrls(urls);
                 QDragEnterEvent over({}, Qt::CopyAction, &files, Qt::LeftButton, {});
                 QApplication::sendEvent(window.get(), &over);
                 EXPECT_NE(over.isAccepted(), busy.has_value());
                 QDropEvent event({}, Qt::CopyAction, &files, Qt::LeftButton, {});
                 QApplication::sendEvent(window.get(), &event);
                 QApplication::processEvents();
             }},
            {"edit",
             [&] {
                 EXPECT_EQ(editing(), !rest.empty());
                 EXPECT_EQ(flgdData().edit.open ? editor->text().toStdString() : "", rest);
                 if (editing()) {
                     EXPECT_EQ(editor->geometry(),
                               grid->visualRect(at(flgdData().row, flgdData().col)));
                 }
             }},
            {"named", [&] { EXPECT_EQ(editor->accessibleName().toStdString(), rest); }},
            {"cell",
             [&] {
                 const std::string seen = n[1] == 0 ? GridText(n[0], 0) : shown(n[0], n[1]);
                 EXPECT_EQ(seen, behind(2));
             }},
            {"column",
             [&] {
                 const std::string cells = behind(3);
                 EXPECT_EQ(down(n[0], n[1], n[2]), n[1] + 1 == n[2] && cells.empty() ? " " : cells);
             }},
            {"at",
             [&] {
                 Place all = place();
                 all.resize(n.size());
                 EXPECT_EQ(all, n);
             }},
            {"seen",
             [&] {
                 EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(at(n[0], n[1]))));
             }},
            {"count", [&] { EXPECT_EQ(grid->model()->rowCount(), n[0]); }},
            {"beeps", [&] { EXPECT_EQ(platform.beeps, n[0]); }},
            {"clipboard", [&] { EXPECT_EQ(clipboard(), rest); }},
            {"dirty", [&] { EXPECT_EQ(IsSet(PosiDirtyFlag), rest == "yes"); }},
            {"ran", [&] { EXPECT_EQ(Joined(commands), rest); }},
            {"on", [&] { EXPECT_TRUE(isOn(name)); }},
            {"off", [&] { EXPECT_FALSE(isOn(name)); }},
            {"box",
             [&] {
                 ASSERT_FALSE(platform.boxes.empty());
                 EXPECT_NE(platform.boxes.back().find(rest), std::string::npos);
             }},
            {"focus", [&] { EXPECT_EQ(QApplication::focusWidget()->objectName(), name); }},
            {"top", [&] { EXPECT_EQ(grid->verticalScrollBar()->value(), n[0]); }},
            {"marked", [&] { EXPECT_TRUE(isMarked(n[0], n[1])); }},
            {"unmarked", [&] { EXPECT_FALSE(isMarked(n[0], n[1])); }},
            {"compose",
             [&] {
                 compose({name, {}});
             }},
            {"commit", [&] { compose({}, name); }},
            {"ime", [&] { expectInputMethod(rest == "yes"); }},
            {"close", [&] { EXPECT_EQ(window->close(), mayClose = rest == "yes"); }},
            {"closed", [&] { EXPECT_EQ(closed, rest + " "); }},
            {"says",
             [&] {
                 const auto& bar = Get<QWidget>(*window, "GoToBar");
                 EXPECT_EQ(bar.isVisible() ? text("lblGoToState") : "", name);
             }},
            {"limits", [&] { EXPECT_EQ(text("sbStatusBar(4)"), name); }},
        };
        verbs.at(verb)();
    }

    /// Characters, and keys between angle brackets.
    static void keys(const std::string& typed) {
        const QString all = QString::fromStdString(typed);
        for (int at = 0; at < all.size(); ++at) {
            if (all[at] != QLatin1Char('<')) {
                type(QString(all[at]).toUtf8());
                continue;
            }
            const int end = static_cast<int>(all.indexOf(QLatin1Char('>'), at));
            const QKeyCombination pressed = QKeySequence(all.mid(at + 1, end - at - 1))[0];
            key(pressed.key(), pressed.keyboardModifiers());
            at = end;
        }
    }

    void rightClick(int row, int column) const {
        const QHeaderView& numbers = *grid->verticalHeader();
        const QPoint there = column > 0 ? middleOf(row, column)
                                        : QPoint(5, numbers.sectionViewportPosition(row - 2) + 2);
        QWidget* part = column > 0 ? grid->viewport() : numbers.viewport();
        QWidget* under = part->childAt(there) != nullptr ? part->childAt(there) : part;
        QTest::mouseClick(under, Qt::RightButton, {}, there);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, there, {});
        QApplication::sendEvent(under, &asked);
    }
    bool isMarked(int row, int column) const {
        grid->scrollTo(at(row, column));
        const bool told = !at(row, column).data(Qt::AccessibleDescriptionRole).toString().isEmpty();
        EXPECT_EQ(PaintedColour(*grid, at(row, column)) == QColor(0xFF, 0x80, 0x80), told);
        return told;
    }
    static void compose(QInputMethodEvent event, const QString& committed = {}) {
        event.setCommitString(committed);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    void expectInputMethod(bool wanted) const {
        EXPECT_EQ(QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled), wanted);
        EXPECT_EQ(platform.imeOpen, false) << "left as it is in the comment";
    }

    std::optional<GridLock> lock;
    std::optional<CommandsAway> busy;
};

struct Story : GridUser {
    void TestBody() override {}
};

TEST(GridStories, GoAsTold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/windows/grid_stories.txt", 45);
}

TEST_F(GridUser, ScreenAndDataAgreeWhateverTheUserDoes) {
    show(1, 8);
    QAbstractItemModel& model = *grid->model();
    std::map<std::pair<int, int>, QString> seen; // as painted last
    const auto paint = [&](const QModelIndex& from, const QModelIndex& to) {
        for (int row = from.row(); row <= to.row(); ++row) {
            for (int column = from.column(); column <= to.column(); ++column) {
                seen[{row, column}] = model.index(row, column).data().toString();
            }
        }
    };
    const auto paintAll = [&] { paint(at(2, 1), model.index(model.rowCount() - 1, 19)); };
    QObject::connect(&model, &QAbstractItemModel::dataChanged, window.get(), paint);
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, window.get(), paintAll);
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, window.get(), paintAll);
    paintAll();
    std::mt19937 random(1);
    const auto pick = [&random](std::size_t count) { return static_cast<int>(random() % count); };
    const auto any = [&random](const auto& of) { return of[random() % of.size()]; };
    const std::vector<std::string> keys{
        "4",     "0",      "a",       "<F2>",     "<Del>",    "<Return>",     "<Esc>",
        "<Up>",  "<Down>", "<Right>", "<Ctrl+C>", "<Ctrl+V>", "<Shift+Down>", "<Shift+Right>",
        "<Home>"};
    const std::vector<std::string> presses{"cmdInsertLine", "cmdDeleteLine", "mnuEditLineCopy",
                                           "mnuEditLinePaste"};
    for (int step = 0; step < 1000; ++step) {
        const std::size_t rows = flgdData().rows.size() - 2;
        const std::vector<int> cells{pick(rows) + 2, pick(20) + 1, pick(rows) + 2, pick(20) + 1};
        const auto deed = static_cast<std::size_t>(pick(10));
        const std::vector<std::string> verbs{"click", "drag", "number", "press"};
        const std::string name = deed == 3 ? any(presses) : any(keys);
        SCOPED_TRACE(std::to_string(step) + (deed < 4 ? " " + verbs[deed] : " keys") + " " + name);
        play(deed < 4 ? verbs[deed] : "keys", name, cells);
        ASSERT_EQ(window->isWindowModified(), IsSet(PosiDirtyFlag));
        if (flgdData().rows.size() < 5) {
            show(1, 8);
        }
        for (const auto& [place, text] : seen) {
            const int row = place.first + 2;
            ASSERT_TRUE(row > model.rowCount() + 1 || text == shown(row, place.second + 1).c_str());
        }
        const QItemSelectionRange range = grid->selectionModel()->selection().value(0);
        const Place now = place();
        ASSERT_TRUE(!editing() || flgdData().edit.text.ends_with(editor->text().toStdString()));
        ASSERT_EQ((Place{range.top() + 2, range.left() + 1, range.bottom() + 2, range.right() + 1}),
                  now[0] < 2 ? (Place{1, 0, 1, 0})
                             : (Place{std::min(now[0], now[2]), std::min(now[1], now[3]),
                                      std::max(now[0], now[2]), std::max(now[1], now[3])}));
    }
}

} // namespace
} // namespace qdw8::test
