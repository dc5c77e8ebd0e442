#pragma once

#include <QIcon>
#include <QLabel>

namespace qdw8 {

/// A label that shows a drawing, crisp on every screen.
class PictureLabel : public QLabel {
public:
    PictureLabel(const QIcon& drawing, int side, QWidget* parent = nullptr);
    QSize sizeHint() const override { return {side, side}; }
    QSize minimumSizeHint() const override { return {side, side}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon drawing;
    int side;
};

/// A label in a sunken frame that shows a value of unknown length: it asks for room for
/// `characters` digits, and what doesn't fit ends in dots, with the whole text in the tool tip.
class FieldLabel : public QLabel {
public:
    FieldLabel(const QString& objectName, int characters, QWidget* parent = nullptr);
    /// Sets the value; a screen reader says `caption` before it.
    void setValue(const QString& caption, const QString& value);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int characters;
};

} // namespace qdw8
