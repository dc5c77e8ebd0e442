#pragma once

#include <QWidget>

namespace qdk8 {

/// A lamp with its caption: an empty ring, or a disc with a tick, or with an exclamation mark where
/// it warns.
class Lamp : public QWidget {
public:
    Lamp(const QString& text, bool isWarning, QWidget* parent);

    void light(bool shallShine);
    void setCaption(const QString& text);
    bool lit() const { return shines; }
    const QString& text() const { return caption; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    void paintEvent(QPaintEvent* event) override;
    void name();

    QString caption;
    bool warns;
    bool shines = false;
};

} // namespace qdk8
