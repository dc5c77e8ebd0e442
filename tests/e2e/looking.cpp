#include "looking.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QRadioButton>
#include <QTableView>
#include <functional>

namespace e2e {

namespace {

/// The first visible control of the name that `fits`.
QWidget* find(const QString& name, const std::function<bool(QWidget*)>& fits) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) {
            continue;
        }
        if (window->objectName() == name && fits(window)) {
            return window;
        }
        for (QWidget* child : window->findChildren<QWidget*>(name)) {
            if (child->window() == window && child->isVisible() && fits(child)) {
                return child;
            }
        }
    }
    return nullptr;
}

} // namespace

QWidget* seen(const QString& name) {
    return find(name, [](QWidget*) { return true; });
}

QWidget* ready(const QString& name) {
    const QWidget* modal = QApplication::activeModalWidget();
    return find(name, [modal](QWidget* widget) {
        return widget->isEnabled() && (modal == nullptr || widget->window() == modal);
    });
}

QMessageBox* boxOnTop() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

Spot spotOn(QWidget* widget) {
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

QString readText(const QWidget* widget) {
    if (widget == nullptr) {
        return {};
    }
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return button->text();
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
        return field->text();
    }
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
        return list->currentText();
    }
    return widget->windowTitle();
}

namespace {

QAction* actionOf(const QString& name) {
    const QWidget* main = seen(QStringLiteral("frmMain"));
    if (main == nullptr) {
        return nullptr;
    }
    auto* action = main->findChild<QAction*>(name);
    const auto* menu = main->findChild<QMenu*>(name);
    return action == nullptr && menu != nullptr ? menu->menuAction() : action;
}

} // namespace

Spot spotOfEntry(const QString& menuName, const QString& name) {
    QAction* action = actionOf(name);
    if (action == nullptr || !action->isEnabled() || QApplication::activeModalWidget() != nullptr) {
        return {};
    }
    QWidget* holder = seen(menuName);
    QRect place;
    if (auto* menu = qobject_cast<QMenu*>(holder)) {
        place = menu->actionGeometry(action);
    } else if (auto* bar = qobject_cast<QMenuBar*>(holder)) {
        place = bar->actionGeometry(action);
    }
    return place.isEmpty() ? Spot{} : Spot{holder, place.center()};
}

QTableView* table(const QString& name) {
    return qobject_cast<QTableView*>(seen(name));
}

Spot spotOfCell(int row, int column) {
    const auto* view = qobject_cast<QTableView*>(ready(QStringLiteral("flgdData")));
    if (view == nullptr) {
        return {};
    }
    const QRect place = view->visualRect(view->model()->index(row, column));
    return view->viewport()->rect().contains(place.center()) && !place.isEmpty()
               ? Spot{view->viewport(), place.center()}
               : Spot{};
}

Spot spotOfLine(int row) {
    const auto* view = qobject_cast<QTableView*>(ready(QStringLiteral("flgdData")));
    if (view == nullptr) {
        return {};
    }
    QHeaderView* head = view->verticalHeader();
    const QPoint at(head->width() / 2,
                    head->sectionViewportPosition(row) + head->sectionSize(row) / 2);
    return head->viewport()->rect().contains(at) ? Spot{head->viewport(), at} : Spot{};
}

} // namespace e2e
