#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QObject;

namespace qdw8 {

/// What the user has in front of him when he asks for help.
struct HelpAsked {
    QStringList names = {}; ///< of controls and windows, from the one with the keys outwards
    QString text = {};      ///< of a message box: the page is opened where it stands
};

/// F1 opens help from every window of the program, one that is modal or a box too, and whether or
/// not a command runs, as long as `owner` lives.
void InstallHelpKey(QObject& owner, const std::function<void(const HelpAsked&)>& open);

} // namespace qdw8
