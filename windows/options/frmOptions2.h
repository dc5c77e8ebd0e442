#pragma once

#include "setup/options.h"

#include <QDialog>
#include <array>

class QBoxLayout;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace qdw8 {

class Arrows;
class KeyField;
class PortPage;

/// The options, in five tabs. The rules stand in setup/options.h.
class frmOptions2 : public QDialog {
public:
    explicit frmOptions2(QWidget* parent = nullptr);

    /// OK. Stays, at the field that was refused, unless all is stored.
    void accept() override;

private:
    template<std::size_t count> using Choices = std::array<QRadioButton*, count>;

    QWidget* addPage(const char* name, std::int16_t tag, QWidget* page);
    QWidget* makePosiPage();
    QWidget* makeChoicePage(std::int16_t head, const char* name, Choices<2>& choices,
                            std::int16_t firstText, std::int16_t note);
    QWidget* makeTeachingPage();
    QWidget* makeAcc(const char* name, std::int16_t tag, Choices<3>& choices, QWidget* parent);
    void makeButtons(QBoxLayout& layout);

    void showForm();
    OptionsForm form();
    void pageTurned(int page);
    void goTo(OptionsTab tab, KeyField& field);

    QTabWidget* tabs = nullptr;
    PortPage* port = nullptr;
    Choices<2> optSutiSyori{};
    Choices<2> optHyojiKirikae{};
    Choices<2> optLanguege{};
    Choices<3> optJogAcc{};
    Choices<3> optJogAcc2{};
    KeyField* txtJogVel = nullptr;
    Arrows* upDown = nullptr;
    int page = 0; ///< the tab that is being looked at
};

/// Modal, over the corner of the parent.
void ShowOptions2(QWidget* parent);

} // namespace qdw8
