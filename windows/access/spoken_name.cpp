#include "windows/access/spoken_name.h"

#include <QComboBox>
#include <QLabel>
#include <QVariant>

namespace qdw8 {
namespace {

/// Dynamic property of a list: its label.
constexpr const char* kLabel = "SpokenLabel";

} // namespace

void NameControl(QWidget& control, const QString& name) {
    control.setAccessibleName(name);
    auto* list = qobject_cast<QComboBox*>(&control);
    if (list == nullptr || list->parentWidget() == nullptr) {
        return;
    }
    auto* label = list->property(kLabel).value<QLabel*>();
    if (label == nullptr) {
        label = new QLabel(list->parentWidget());
        label->hide();
        label->setBuddy(list);
        list->setProperty(kLabel, QVariant::fromValue(label));
    }
    label->setAccessibleName(name);
}

} // namespace qdw8
