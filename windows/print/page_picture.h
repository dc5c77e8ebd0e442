#pragma once

#include <QWidget>
#include <functional>

namespace qdw8 {

/// A page of the document that is being printed, white with black print whatever the scheme of the
/// screen is.
class PagePicture : public QWidget {
public:
    explicit PagePicture(QWidget* parent);

    /// Page from 0; nothing is drawn for one that there isn't.
    void showPage(int page);
    /// Pixels for a millimetre.
    void setScale(double pixels);

    std::function<void(int steps)> onZoom; ///< the wheel together with Ctrl

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int page = 0;
    double scale = 1.0;
};

/// Pixels that stand around the sheet.
inline constexpr int kSheetBorder = 8;

} // namespace qdw8
