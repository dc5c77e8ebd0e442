#pragma once

// The texts of the simulator's window, in both languages. They are its own: it shares nothing with
// the program at the other end of the line.

#include <QString>

class QWidget;

namespace qdk8 {

enum class Language { English, Japanese };

/// The language of the window from now on; what stands on it changes with `ShowTexts`.
void ChooseLanguage(Language language);
Language ChosenLanguage();
/// Japanese on a desktop that speaks it, else English.
Language LanguageOfDesktop();

/// The text of a key in the language chosen, of a given one; the key itself where there is no text.
QString Text(const QString& key);
QString TextIn(Language language, const QString& key);
bool HasText(const QString& key);

/// The control shows the text of that key, as caption or title, and is called by it.
void SetText(QWidget& control, const QString& key);
/// The control has the tool tip of that key.
void SetTip(QWidget& control, const QString& key);
/// Called by it, where nothing is written on the control itself.
void SetName(QWidget& control, const QString& key);

/// Puts the texts of all controls below in the language chosen.
void ShowTexts(QWidget& window);

} // namespace qdk8
