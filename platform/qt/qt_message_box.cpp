#include "platform/message_box.h"

#include "platform/platform.h"
#include "platform/qt/dialog_parent.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/standard_texts.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <vector>

namespace qdw8 {
namespace {

struct Choice {
    BoxAnswer answer;
    QMessageBox::ButtonRole role;
    std::string text;
    const char* name;
};

std::vector<Choice> ChoicesOf(BoxButtons buttons) {
    const StandardTexts& texts = TheStandardTexts();
    const Choice ok{BoxAnswer::Ok, QMessageBox::AcceptRole, texts.ok, "Ok"};
    const Choice cancel{BoxAnswer::Cancel, QMessageBox::RejectRole, texts.cancel, "Cancel"};
    const Choice yes{BoxAnswer::Yes, QMessageBox::YesRole, texts.yes, "Yes"};
    const Choice no{BoxAnswer::No, QMessageBox::NoRole, texts.no, "No"};
    switch (buttons) {
    case BoxButtons::Ok: return {ok};
    case BoxButtons::OkCancel: return {ok, cancel};
    case BoxButtons::YesNo: {
        // A sole button of the role No would be taken for what closing the box means.
        Choice firmNo = no;
        firmNo.role = QMessageBox::YesRole;
        return {yes, firmNo};
    }
    case BoxButtons::YesNoCancel: return {yes, no, cancel};
    }
    return {ok};
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::None: return QMessageBox::NoIcon;
    case BoxIcon::Question: return QMessageBox::Question;
    case BoxIcon::Exclamation: return QMessageBox::Warning;
    case BoxIcon::Stop: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QString TitleOf(const BoxQuestion& question) {
    if (!question.title.empty()) {
        return QString::fromStdString(question.title);
    }
    const QString program = QCoreApplication::applicationName();
    return program.isEmpty() ? QStringLiteral("QD-W8") : program;
}

/// Lines are broken where a word ends. A list without a blank, or a long path, would run out of the
/// box and be cut off: such words get places where they may be broken.
QString WithBreaks(const QString& text) {
    static const QRegularExpression longWord(QStringLiteral("[\\x21-\\x7E]{60,}"));
    static const QRegularExpression place(QStringLiteral("([,/]|[^,/]{40})"));
    QString broken;
    qsizetype done = 0;
    for (auto words = longWord.globalMatch(text); words.hasNext();) {
        const auto word = words.next();
        broken += text.mid(done, word.capturedStart() - done) +
                  word.captured().replace(place, QStringLiteral("\\1\u200B"));
        done = word.capturedEnd();
    }
    return broken + text.mid(done);
}

/// A text that would make the box higher than the screen scrolls.
void ScrollIfLong(QMessageBox& box) {
    constexpr int kWidth = 600;
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (label == nullptr || grid == nullptr) {
        return;
    }
    label->setWordWrap(true);
    const int most = box.screen()->availableGeometry().height() / 2;
    if (label->heightForWidth(kWidth) <= most) {
        label->setWordWrap(false); // the box itself finds the best width
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    auto* area = new QScrollArea(&box);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->removeWidget(label);
    area->setWidget(label);
    area->setFixedSize(kWidth + area->verticalScrollBar()->sizeHint().width(), most);
    grid->addWidget(area, row, column, rows, columns);
}

BoxAnswer ShowBox(const BoxQuestion& question) {
    // The window behind the box may go while it is up, and takes the box with it.
    const QPointer<QWidget> parent = DialogParent();
    const QPointer<QMessageBox> box = new QMessageBox(parent);
    box->setObjectName(QStringLiteral("MessageBox"));
    box->setWindowTitle(TitleOf(question));
    box->setTextFormat(Qt::PlainText);
    box->setText(WithBreaks(QString::fromStdString(question.text)
                                .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))));
    box->setIcon(IconOf(question.icon));

    const std::vector<Choice> choices = ChoicesOf(question.buttons);
    std::vector<QAbstractButton*> buttons;
    for (const Choice& choice : choices) {
        QPushButton* button = box->addButton(QString::fromStdString(choice.text), choice.role);
        button->setObjectName(QString::fromLatin1(choice.name));
        buttons.push_back(button);
        if (buttons.size() == (question.mildDefault ? choices.size() : 1)) {
            box->setDefaultButton(button);
        }
        if (choice.answer == BoxAnswer::Cancel) {
            box->setEscapeButton(button);
        }
    }
    ScrollIfLong(*box);
    box->exec();

    // The last choice is the mildest one: Cancel where there is one, else No or the sole button.
    BoxAnswer answer = choices.back().answer;
    if (box) {
        for (std::size_t i = 0; i < choices.size(); ++i) {
            if (buttons[i] == box->clickedButton()) {
                answer = choices[i].answer;
            }
        }
        delete box.data();
    }
    GiveKeysBack(parent);
    return answer;
}

} // namespace

void InstallQtMessageBox() {
    ThePlatform().ShowMessageBox = ShowBox;
}

} // namespace qdw8
