#include "windows/simulator/texts.h"

#include "windows/access/spoken_name.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QHash>
#include <QLabel>
#include <QLocale>
#include <QVariant>
#include <QWidget>
#include <array>
#include <string_view>

namespace qdk8 {

extern const std::string_view k_simulator_rows; // made by the build

namespace {

constexpr const char* kText = "text-key";
constexpr const char* kTip = "tip-key";
constexpr const char* kName = "name-key";

using Pair = std::array<QString, 2>;

const QHash<QString, Pair>& AllTexts() {
    static const QHash<QString, Pair> all = [] {
        QHash<QString, Pair> read;
        const QString rows = QString::fromUtf8(k_simulator_rows.data(),
                                               static_cast<qsizetype>(k_simulator_rows.size()));
        for (const QString& row : rows.split('\n', Qt::SkipEmptyParts)) {
            const QStringList fields = row.split('\t');
            read[fields.value(0)] = {fields.value(1), fields.value(2)};
        }
        return read;
    }();
    return all;
}

Language& TheLanguage() {
    static Language language = Language::English;
    return language;
}

void ShowText(QWidget& control, const QString& text) {
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(&control)) {
        label->setText(text);
    } else if (auto* box = qobject_cast<QGroupBox*>(&control)) {
        box->setTitle(text);
    } else {
        control.setWindowTitle(text);
    }
}

void ShowTextsOf(QWidget& control) {
    if (const QString key = control.property(kText).toString(); !key.isEmpty()) {
        ShowText(control, Text(key));
    }
    if (const QString key = control.property(kTip).toString(); !key.isEmpty()) {
        // As rich text it breaks its lines.
        control.setToolTip("<qt>" + Text(key).toHtmlEscaped() + "</qt>");
        control.setAccessibleDescription(Text(key));
    }
    if (const QString key = control.property(kName).toString(); !key.isEmpty()) {
        qdw8::NameControl(control, Text(key));
    }
}

} // namespace

void ChooseLanguage(Language language) {
    TheLanguage() = language;
}

Language ChosenLanguage() {
    return TheLanguage();
}

Language LanguageOfDesktop() {
    return QLocale::system().language() == QLocale::Japanese ? Language::Japanese
                                                             : Language::English;
}

QString Text(const QString& key) {
    return TextIn(TheLanguage(), key);
}

QString TextIn(Language language, const QString& key) {
    const auto found = AllTexts().find(key);
    return found == AllTexts().end() ? key : (*found)[language == Language::Japanese ? 1 : 0];
}

bool HasText(const QString& key) {
    return AllTexts().contains(key);
}

void SetText(QWidget& control, const QString& key) {
    control.setProperty(kText, key);
    ShowTextsOf(control);
}

void SetTip(QWidget& control, const QString& key) {
    control.setProperty(kTip, key);
    ShowTextsOf(control);
}

void SetName(QWidget& control, const QString& key) {
    control.setProperty(kName, key);
    ShowTextsOf(control);
}

void ShowTexts(QWidget& window) {
    ShowTextsOf(window);
    for (QWidget* control : window.findChildren<QWidget*>()) {
        ShowTextsOf(*control);
    }
}

} // namespace qdk8
