#include "looking.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

namespace e2e {

namespace {

/// The first visible control of the name that `fits`.
QWidget* Find(const QString& name, const std::function<bool(QWidget*)>& fits) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == name && widget->isVisible() && fits(widget)) {
            return widget;
        }
    }
    return nullptr;
}

QAction* ActionOf(const QString& name) {
    const QWidget* main = Seen("frmMain");
    if (main == nullptr) {
        return nullptr;
    }
    auto* action = main->findChild<QAction*>(name);
    const auto* menu = main->findChild<QMenu*>(name);
    return action == nullptr && menu != nullptr ? menu->menuAction() : action;
}

} // namespace

QWidget* Seen(const QString& name) {
    return Find(name, [](QWidget*) { return true; });
}

QWidget* Ready(const QString& name) {
    const QWidget* modal = QApplication::activeModalWidget();
    return Find(name, [modal](QWidget* widget) {
        return widget->isEnabled() && (modal == nullptr || widget->window() == modal);
    });
}

Spot SpotOn(QWidget* widget) {
    if (widget == nullptr) {
        return {};
    }
    QPoint at = widget->rect().center();
    if (qobject_cast<QRadioButton*>(widget) != nullptr ||
        qobject_cast<QCheckBox*>(widget) != nullptr) {
        at.setX(widget->height() / 2);
    }
    return {widget, at};
}

Spot SpotOfEntry(const QString& menuName, const QString& name) {
    QAction* action = ActionOf(name);
    if (action == nullptr || !action->isEnabled() || QApplication::activeModalWidget() != nullptr) {
        return {};
    }
    QWidget* holder = Seen(menuName);
    const auto* menu = qobject_cast<QMenu*>(holder);
    const auto* bar = qobject_cast<QMenuBar*>(holder);
    const QRect place = menu != nullptr  ? menu->actionGeometry(action)
                        : bar != nullptr ? bar->actionGeometry(action)
                                         : QRect();
    return place.isEmpty() ? Spot{} : Spot{holder, place.center()};
}

Spot SpotOfTab(const QString& page) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (auto* bar : window->findChildren<QTabBar*>()) {
            auto* tabs = qobject_cast<QTabWidget*>(bar->parentWidget());
            const int index = tabs->indexOf(tabs->findChild<QWidget*>(page));
            if (bar->isVisible() && index >= 0) {
                return {bar, bar->tabRect(index).center()};
            }
        }
    }
    return {};
}

QString ReadText(const QString& name) {
    const QWidget* widget = Seen(name);
    if (widget == nullptr) {
        return QString("(no %1 to be seen)").arg(name);
    }
    for (const char* property : {"text", "currentText"}) {
        if (const QVariant text = widget->property(property); text.isValid()) {
            return text.toString();
        }
    }
    return widget->windowTitle();
}

} // namespace e2e
