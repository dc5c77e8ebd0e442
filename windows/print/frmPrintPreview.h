#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;

namespace qdw8 {

class PagePicture;

/// The pages of the document as they will be printed. Its result is 1 when they are to be, 2 for
/// another printer, 0 otherwise.
class frmPrintPreview : public QDialog {
public:
    explicit frmPrintPreview(QWidget* parent = nullptr);

    /// Not while the pages go into a file.
    void reject() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class Fit { Width, Page, None };

    QPushButton* add(QHBoxLayout& row, const char* name, std::int16_t caption,
                     const std::function<void()>& click, char letter = 0);
    void makePageButtons(QHBoxLayout& row);
    void makeEndButtons(QHBoxLayout& row);
    void makeKeys();
    void turnTo(int wanted);
    void fitTo(Fit wanted);
    void zoom(int steps);
    void setScale(double wanted);
    void savePdf();

    QWidget* body = nullptr; ///< all that is locked while the pages go into a file
    PagePicture* picture = nullptr;
    QScrollArea* area = nullptr;
    QPushButton* back = nullptr;
    QPushButton* forward = nullptr;
    QLabel* number = nullptr;
    int page = 0;
    Fit fit = Fit::Width;
    double scale = 1.0; ///< pixels for a millimetre
};

/// Shows it over the parent and waits until it is left.
std::int16_t ShowPrintPreview(QWidget* parent);

} // namespace qdw8
