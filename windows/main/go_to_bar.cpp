#include "windows/main/go_to_bar.h"

#include "position/grid_cursor.h"
#include "windows/controls/load_form_resources.h"
#include "windows/controls/number_field.h"
#include "windows/controls/refused_field.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kMargin = 4;
constexpr int kSpacing = 8;
constexpr int kDigits = 3;
constexpr std::int16_t kCaption = 3393;

} // namespace

GoToBar::GoToBar(std::function<void()> back, QWidget* parent)
    : QFrame(parent), done(std::move(back)),
      number(new NumberField(QStringLiteral("txtGoToPosiNo"), kDigits, this)),
      words(new QLabel(this)) {
    setObjectName(QStringLiteral("GoToBar"));
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    auto* caption = new QLabel(this);
    caption->setObjectName(QStringLiteral("lblGoToPosiNo"));
    caption->setBuddy(number);
    SetNumbers(*caption, kCaption);
    SetNumbers(*number, kCaption);
    words->setObjectName(QStringLiteral("lblGoToState"));
    words->setTextFormat(Qt::PlainText);
    words->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->addWidget(caption);
    layout->addWidget(number);
    layout->addWidget(words, 1);
    number->onEnter = [this] { go(); };
    number->installEventFilter(this);
    hide();
}

void GoToBar::open() {
    number->clear();
    say(QString::fromStdString(GoToRange()), false);
    show();
    number->setFocus(Qt::ShortcutFocusReason);
}

void GoToBar::go() {
    const std::string wrong = GoToPosition(number->text().toStdString());
    if (wrong.empty()) {
        done();
        return;
    }
    say(QString::fromStdString(wrong), true);
    number->selectAll();
}

void GoToBar::say(const QString& text, bool wrong) {
    words->setText(text);
    words->setToolTip(text);
    ShowJudgement(*number, wrong ? text : QString(), text);
}

bool GoToBar::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        setVisible(reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason);
    }
    return false;
}

void GoToBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        done();
    } else {
        QFrame::keyPressEvent(event);
    }
}

} // namespace qdw8
