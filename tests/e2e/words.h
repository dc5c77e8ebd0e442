#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

/// The words in which a story is told: what a user at the screen does and sees. They are spoken by
/// the user's own thread; stories/words.txt tells what each of them means.
namespace e2e {

using Told = const QStringList&; ///< what follows the word
using Words = QHash<QString, std::function<void(Told)>>;

Words ScreenWords();
Words GridWords();
Words ControllerWords();

} // namespace e2e
