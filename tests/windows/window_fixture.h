#pragma once

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"
#include "program/init_tables.h"
#include "program/startup.h"
#include "support/scripted_platform.h"
#include "windows/access/visible_focus.h"

#include <QImage>
#include <QPixmap>
#include <QTableView>
#include <QWidget>
#include <gtest/gtest.h>

namespace qdw8::test {

/// A fresh start of everything that the windows show, in English.
class WindowTest : public ::testing::Test {
protected:
    WindowTest() {
        [[maybe_unused]] static const bool styled = (InstallStyle(), true);
        InitTables();
        AxisOff.fill(kClear);
        speak(10000);
    }

    static void speak(std::int16_t base) { LanguageBase = base; }

    ScriptedPlatform platform;
};

/// The control of that name; a missing one fails the test at once.
template<typename Control> Control& Get(const QObject& window, const QString& name) {
    auto* found = window.findChild<Control*>(name);
    if (found == nullptr) {
        throw std::runtime_error("no control " + name.toStdString());
    }
    return *found;
}

/// The colour of a cell as it stands on the screen, beside its text.
inline QColor PaintedColour(QTableView& table, const QModelIndex& cell) {
    const QImage picture = table.viewport()->grab().toImage();
    return picture.pixelColor(table.visualRect(cell).topLeft() + QPoint(2, 2));
}

} // namespace qdw8::test
