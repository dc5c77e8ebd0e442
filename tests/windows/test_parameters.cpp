// The parameter window: what is the same for each of its fields.

#include "link/background.h"
#include "main_form.h"
#include "parameter/para_controls.h"
#include "windows/parameter/frmParameta2.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace qdw8::test {
namespace {

class Parameters : public MainForm {
protected:
    Parameters() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
        ThePlatform().ShowMessageBox = [](const BoxQuestion&) { return BoxAnswer::Yes; };
        loadParameters();
        Screens().frmParameta2 = Screens().frmMainCommands = [this] { form.showState(); };
        form.open(false);
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &form; }));
    }

    /// Each field that the user may edit, its page up and the lock open.
    void eachField(const std::function<void(const ParaControlRow&, std::size_t, QWidget&)>& look) {
        for (const ParaControlRow& row : ParaControls()) {
            Get<QTabWidget>(form, "SSTabPrm").setCurrentIndex(row.page);
            for (std::size_t axis = 0; axis < (row.perAxis() ? kAxes : 1); ++axis) {
                const QString name = QLatin1String(row.name);
                look(row, axis,
                     Get<QWidget>(form,
                                  row.perAxis() ? QString("%1(%2)").arg(name).arg(axis) : name));
            }
        }
    }

    frmParameta2 form{window.get()};
};

TEST_F(Parameters, WhatIsEditedGoesToItsOwnItemAndAxis) {
    Get<QTabWidget>(form, "SSTabPrm").setCurrentIndex(4);
    Get<QAbstractButton>(form, "chkTokuParaChange").click();
    std::map<std::string, std::string> typed;
    std::size_t number = 0;
    eachField([&](const ParaControlRow& row, std::size_t axis, QWidget& field) {
        field.setFocus();
        if (row.isText()) {
            const bool order = row.control == ParaControl::txtHomeOrder;
            const auto text = std::to_string(order ? axis + 1 : 5 + ++number % 26);
            QTest::keyClicks(&field, QString::fromStdString(text));
            typed[field.objectName().toStdString()] = text;
        } else if (row.kind == ParaKind::List) {
            QTest::keyClick(&field, axis % 2 == 0 ? Qt::Key_End : Qt::Key_Home);
        }
    });
    eachField([&](const ParaControlRow& row, std::size_t axis, QWidget& field) {
        const std::string name = field.objectName().toStdString();
        if (row.isText()) {
            EXPECT_EQ(ParaText(row.control, axis), typed[name]) << name;
        } else if (row.kind == ParaKind::List) {
            const int last = static_cast<int>(ParaListRows(row.row).size()) - 1;
            EXPECT_EQ(ParaSelected(row.control, axis), axis % 2 == 0 ? last : 0) << name;
        }
    });
}

TEST_F(Parameters, OpenedAgainItStaysAsItIs) {
    ParaText(ParaControl::txtHomeVel, 1) = "7";
    form.open(true);
    EXPECT_TRUE(form.isVisible() && form.isModal());
    EXPECT_EQ(Get<QLineEdit>(form, "txtHomeVel(1)").text(), "7");
}

TEST_F(Parameters, NothingCanBeUsedWhileACommandRuns) {
    Get<QWidget>(form, "txtHomeVel(1)").setFocus();
    const auto anyOn = [this] {
        QStringList on;
        eachField([&](const ParaControlRow&, std::size_t, QWidget& field) {
            on << (field.isEnabled() && field.focusPolicy() != Qt::NoFocus ? field.objectName()
                                                                           : QString());
        });
        for (const auto* button : form.findChildren<QAbstractButton*>()) {
            on << (button->isEnabled() && button->isVisible() ? button->objectName() : QString());
        }
        on.removeAll(QString());
        return on.join(' ').toStdString();
    };
    ParaText(ParaControl::txtHomeOfsVel, 2) = "99";
    {
        const CommandsAway away;
        EXPECT_EQ(anyOn(), "");
        form.close();
        EXPECT_TRUE(form.isVisible());
    }
    EXPECT_EQ(form.focusWidget()->objectName(), "txtHomeVel(1)");
    EXPECT_EQ(ParaText(ParaControl::txtHomeOfsVel, 2), "99") << "nobody was there";
    EXPECT_NE(anyOn(), "");
}

TEST_F(Parameters, FollowWhatACommandElsewhereLoaded) {
    const auto load = [](std::int16_t push) {
        const CommandsAway away;
        ParaSet.PUSH[0] = push;
    };
    auto& field = Get<QLineEdit>(form, "txtHomePush(0)");
    load(77);
    EXPECT_EQ(field.text(), "77");
    field.setFocus();
    QTest::keyClicks(&field, "8");
    load(66);
    EXPECT_EQ(field.text(), "8") << "what was typed stays";
}

TEST_F(Parameters, ACommandThatWaitsForTheLineGoesWithTheWindow) {
    int asked = 0;
    ThePlatform().ShowMessageBox = [&asked](const BoxQuestion&) {
        ++asked;
        return BoxAnswer::No;
    };
    const auto waits = [this](bool closes) {
        EXPECT_TRUE(RunWatched([&] {
            Get<QPushButton>(form, "cmdParaWrite").click();
            if (closes) {
                form.close();
                form.open(false);
            }
        }));
    };
    waits(true);
    EXPECT_EQ(asked, 0);
    waits(false);
    EXPECT_EQ(asked, 1);
}

} // namespace
} // namespace qdw8::test
