#pragma once

#include "windows/help/help_key.h"
#include "windows/help/manual.h"

#include <QWidget>
#include <memory>

class QHBoxLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;

namespace qdw8 {

/// The manual: contents, index and search at the left, the page at the right. It stands by itself
/// and blocks nothing.
class frmHelp : public QWidget {
public:
    explicit frmHelp(Manual shown);

    /// Shows what was asked about, in front of everything, a modal window too.
    void open(const HelpAsked& asked);

private:
    void makeButtons(QHBoxLayout& row);
    QTabWidget* makeTabs();
    int listWidth() const;
    QWidget* makeContents(QWidget* parent);
    QWidget* makeIndex(QWidget* parent);
    QWidget* makeSearch(QWidget* parent);
    void makeKeys();
    void goTo(const QString& place);
    void followPage(const QString& file);
    void filterIndex(const QString& start);
    void search(const QString& question);
    void markWords(const QString& question);
    void putBeside(const QWidget& other);
    void print();
    void savePdf();

    Manual manual;
    ManualSearch searcher{manual};
    QTextBrowser* page = nullptr;
    QTabWidget* tabs = nullptr;
    QTreeWidget* contents = nullptr;
    QListWidget* index = nullptr;
    QLineEdit* question = nullptr;
    QListWidget* found = nullptr;
};

/// Shows what was asked about in the window of the manual, which is made when it is first needed. A
/// box with message 414 if there is no manual.
void ShowHelp(std::unique_ptr<frmHelp>& window, const HelpAsked& asked);

} // namespace qdw8
