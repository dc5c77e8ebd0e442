#include "windows/dialogs/cancel_key.h"

#include "windows/controls/load_form_resources.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>

#include <utility>

namespace qdw8 {

CancelKey::CancelKey(QDialog& shown, std::function<bool()> isOffered)
    : QObject(&shown), dialog(shown), offered(std::move(isOffered)) {
    qApp->installEventFilter(this);
}

bool CancelKey::takesKeys() const {
    const QWidget* modal = QApplication::activeModalWidget();
    return dialog.isVisible() && offered() && QApplication::activePopupWidget() == nullptr &&
           (modal == nullptr || modal == dialog.parentWidget());
}

bool CancelKey::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr) {
        return false;
    }
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && takesKeys()) {
        event->accept();
        dialog.reject();
        return true;
    }
    if (event->type() == QEvent::Hide && widget != &dialog && widget->isModal()) {
        const auto activate = [this] {
            if (takesKeys()) {
                dialog.activateWindow();
            }
        };
        QMetaObject::invokeMethod(this, activate, Qt::QueuedConnection);
    }
    return false;
}

QPushButton* AddCancelButton(QDialog& dialog, QBoxLayout& layout, const char* name,
                             std::function<void()> click) {
    auto* cancel = new QPushButton(&dialog);
    cancel->setObjectName(QString::fromLatin1(name));
    dialog.setFocusPolicy(Qt::StrongFocus);
    cancel->setFocusPolicy(Qt::TabFocus);
    cancel->setAutoDefault(false);
    SetNumbers(*cancel, 1404);
    QObject::connect(cancel, &QPushButton::clicked, &dialog, std::move(click));
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cancel);
    layout.addLayout(row);
    return cancel;
}

} // namespace qdw8
