#pragma once

#include "parameter/para_controls.h"

#include <QPointer>
#include <QTabWidget>
#include <array>
#include <optional>
#include <vector>

class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace qdw8 {

/// The five pages `SSTabPrm` of the parameter window, with a control for every item and axis. They
/// show what the rules hold and hand the user's edits back; they hold nothing of their own.
class ParaPages : public QTabWidget {
public:
    explicit ParaPages(QWidget* parent);
    ~ParaPages() override;

    /// Captions that are made of others; after the window's texts have come in.
    void nameControls();
    /// Shows the fields again: texts, what may be edited, marks.
    void showFields();
    /// Brings up the page of a field and gives it the focus; for a special one that is locked, the
    /// box that opens it.
    void goTo(ParaPlace place);
    /// The first field that may be edited, or, with `marked`, that the last check refused.
    std::optional<ParaPlace> firstField(bool marked) const;
    /// The field that had the focus last, if any.
    std::optional<ParaPlace> lastField() const;
    /// As if the field with the focus had been left: what was typed is judged.
    void finishInput();
    /// Enter in the field with the focus; false if none has it.
    bool enter();

    QPushButton* cmdCalculate = nullptr;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// How a field looks beside its text.
    enum class Look { Normal, Grey, Marked };
    struct Field {
        QWidget* widget = nullptr;
        std::optional<Look> look = {}; ///< none until it was shown
    };

    void makePage(int page);
    void makeRow(const ParaControlRow& row, QGridLayout& grid, int line);
    QWidget* makeField(const ParaControlRow& row, std::size_t axis, QWidget* parent);
    QWidget* makeText(const ParaControlRow& row, ParaPlace place, QWidget* parent);
    QWidget* makeList(const ParaControlRow& row, ParaPlace place, QWidget* parent);
    void takeActuator(const QComboBox& list, ParaPlace place);
    void showField(const ParaControlRow& row, std::size_t axis);
    void showLook(Field& field, Look look);
    std::optional<ParaPlace> placeOf(const QWidget* widget) const;
    Field& at(ParaPlace place);

    std::array<std::array<Field, kAxes>, kParaControls> fields;
    std::array<QLabel*, kParaControls> items{};
    std::array<QLabel*, kParaControls> labels{}; ///< parts of the actuator
    std::vector<QGridLayout*> grids;             ///< of the pages
    QWidget* chkTokuParaChange = nullptr;
    QPointer<QWidget> last;
};

} // namespace qdw8
