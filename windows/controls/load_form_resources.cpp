#include "windows/controls/load_form_resources.h"

#include "app/Module1.h"
#include "app/number_forms.h"
#include "windows/controls/texts.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QAction>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>
#include <QToolBar>
#include <QVariant>
#include <exception>

namespace qdw8 {
namespace {

std::int16_t NumberIn(const QString& text) {
    if (text.trimmed().startsWith(QLatin1Char('&'))) {
        return 0; // a caption with a mnemonic, not a hexadecimal number
    }
    return ToInt16(NumberFromText(text.toStdString()));
}

QString PropertyText(const QObject& control, const char* name) {
    return control.property(name).toString();
}

/// A caption as it is read out: without its mnemonic marks.
QString WithoutMarks(QString caption) {
    return caption.remove(QLatin1Char('&'));
}

/// The caption with the mark of the control's mnemonic, if it has one.
QString Marked(const QObject& control, QString caption) {
    const QString letter = PropertyText(control, kMnemonic);
    if (letter.isEmpty()) {
        return caption;
    }
    const qsizetype at = LanguageBase == 0 ? -1 : caption.indexOf(letter);
    return at < 0 ? caption + QStringLiteral("(&%1)").arg(letter.toUpper())
                  : caption.insert(at, QLatin1Char('&'));
}

/// A number with no row, or one too large, is passed over and the next step runs: one wrong number
/// must not leave the rest of a window without its texts.
template<typename Step> void PassOver(Step step) {
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}

void LoadToolTip(QWidget& control) {
    PassOver([&control] {
        const std::int16_t number = NumberIn(PropertyText(control, kToolTipText));
        if (number > 0) {
            control.setToolTip(ResQText(number));
        }
    });
}

void LoadLabel(QLabel& label) {
    PassOver([&label] {
        const QString text = ResQText(NumberIn(PropertyText(label, kTag)));
        label.setText(Marked(label, text));
        label.setAccessibleName(text);
    });
    LoadToolTip(label);
}

void LoadMenu(QMenu& menu) {
    PassOver([&menu] {
        const QString text = ResQText(NumberIn(menu.title()));
        menu.setTitle(text);
        menu.setAccessibleName(WithoutMarks(text));
    });
    for (QAction* entry : menu.actions()) {
        if (entry->menu() == nullptr && !entry->isSeparator()) {
            PassOver([entry] { entry->setText(ResQText(NumberIn(entry->text()))); });
        }
    }
}

void LoadToolBar(QToolBar& toolBar) {
    for (QAction* button : toolBar.actions()) {
        const QString number = PropertyText(*button, kToolTipText);
        if (number.isEmpty()) {
            continue;
        }
        PassOver([&] {
            const QString text = ResQText(NumberIn(number));
            button->setToolTip(text);
            if (QWidget* widget = toolBar.widgetForAction(button)) {
                widget->setAccessibleName(text);
            }
        });
    }
}

void LoadHeads(const QHeaderView& header) {
    QAbstractItemModel* model = header.model();
    if (model == nullptr) {
        return;
    }
    for (int column = 0; column < header.count(); ++column) {
        const QVariant number = model->headerData(column, header.orientation(), kTagRole);
        if (number.isValid()) {
            PassOver([&] {
                model->setHeaderData(column, header.orientation(),
                                     ResQText(NumberIn(number.toString())), Qt::DisplayRole);
            });
        }
    }
}

/// The tabs that a control is a page of; null if it is none.
QTabWidget* TabsOf(const QWidget& page) {
    // The pages lie in a stack of their own inside the tabs.
    const QWidget* stack = page.parentWidget();
    auto* tabs = stack == nullptr ? nullptr : qobject_cast<QTabWidget*>(stack->parentWidget());
    return tabs != nullptr && tabs->indexOf(&page) >= 0 ? tabs : nullptr;
}

void LoadOther(QWidget& control) {
    PassOver([&control] {
        const std::int16_t number = NumberIn(PropertyText(control, kTag));
        if (number <= 0) {
            return;
        }
        const QString text = ResQText(number);
        if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
            button->setText(Marked(control, text));
        } else if (auto* frame = qobject_cast<QGroupBox*>(&control)) {
            frame->setTitle(Marked(control, text));
        } else if (QTabWidget* tabs = TabsOf(control)) {
            tabs->setTabText(tabs->indexOf(&control), Marked(control, text));
        }
        control.setAccessibleName(WithoutMarks(text));
    });
    LoadToolTip(control);
}

void LoadControls(QWidget& parent) {
    for (QObject* child : parent.children()) {
        auto* control = qobject_cast<QWidget*>(child);
        if (control == nullptr) {
            continue;
        }
        if (auto* menu = qobject_cast<QMenu*>(control)) {
            LoadMenu(*menu);
        } else if (control->isWindow()) {
            continue;
        } else if (auto* label = qobject_cast<QLabel*>(control)) {
            LoadLabel(*label);
        } else if (auto* toolBar = qobject_cast<QToolBar*>(control)) {
            LoadToolBar(*toolBar);
        } else if (auto* header = qobject_cast<QHeaderView*>(control)) {
            LoadHeads(*header);
        } else {
            LoadOther(*control);
        }
        LoadControls(*control);
    }
}

} // namespace

void SetNumbers(QObject& control, std::int16_t tag, std::int16_t toolTipText) {
    if (tag != 0) {
        control.setProperty(kTag, QString::number(tag));
    }
    if (toolTipText != 0) {
        control.setProperty(kToolTipText, QString::number(toolTipText));
    }
}

void SetMnemonic(QObject& control, char letter) {
    control.setProperty(kMnemonic, QString(QLatin1Char(letter)));
}

void LoadFormResources(QWidget& window) {
    PassOver([&window] {
        const QString tag = PropertyText(window, kTag);
        if (!tag.isEmpty()) {
            window.setWindowTitle(ResQText(NumberIn(tag)));
        }
    });
    LoadControls(window);
}

} // namespace qdw8
