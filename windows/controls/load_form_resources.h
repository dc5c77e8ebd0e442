#pragma once

#include <QString>
#include <cstdint>

class QObject;
class QWidget;

/// Windows hold no language: their controls carry the numbers of their texts, and the texts come in
/// when the window loads.
namespace qdw8 {

/// Dynamic properties that carry the numbers. A menu entry carries its number as its text.
inline constexpr const char* kTag = "Tag";
inline constexpr const char* kToolTipText = "ToolTipText";
/// The letter that reaches the control together with Alt, as it stands in the English caption.
inline constexpr const char* kMnemonic = "Mnemonic";
/// Role under which a column head of a list carries its number.
inline constexpr int kTagRole = 0x0100 + 0x54; // Qt::UserRole and some room

/// Gives a control its numbers; 0 leaves one out.
void SetNumbers(QObject& control, std::int16_t tag, std::int16_t toolTipText = 0);

/// Gives a control whose caption is set by its number a mnemonic: in an English caption the first
/// such letter is marked, a Japanese one gets the letter behind it in brackets.
void SetMnemonic(QObject& control, char letter);

/// Replaces the numbers in the window and its controls by texts. A control with no number keeps its
/// own text, and so does one whose number has no row. Windows inside the window are left alone.
///
/// - the window: the title, if its tag isn't empty
/// - labels: the caption by the tag, the tool tip by a number above 0
/// - menus and their entries: the caption by the number that stands in it
/// - tool bars: the tool tips of their buttons
/// - heads of lists: the caption by the tag of the column
/// - buttons, frames with a title and pages of tabs: caption and tool tip, each by a number above 0
/// - any other control has no caption of its own: a tag above 0 gives its accessible name alone,
/// and
///   a number above 0 its tool tip
///
/// What gets a caption gets it as its accessible name too, without mnemonic marks; a tool bar
/// button gets its tool tip.
void LoadFormResources(QWidget& window);

} // namespace qdw8
