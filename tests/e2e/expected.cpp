#include "expected.h"

#include "simulator/start_memory.h"
#include "simulator/wire.h"

#include <array>
#include <string_view>

namespace e2e {

namespace {

constexpr int kAxisCount = 4;

/// A row as the controller keeps it, cut into its 19 numbers.
QVector<int> numbersOf(int position) {
    static const qdk8::Memory memory = qdk8::StartMemory();
    const std::string_view row = memory.positions[static_cast<std::size_t>(position - 1)];
    QVector<int> numbers;
    std::size_t at = 0;
    const auto take = [&](std::size_t width) {
        numbers += qdk8::FromHex(row.substr(at, width));
        at += width;
    };
    for (int axis = 0; axis < kAxisCount; ++axis) {
        for (const std::size_t width : {2U, 1U, 1U, 5U}) {
            take(width);
        }
    }
    for (const std::size_t width : {1U, 1U, 2U}) {
        take(width);
    }
    return numbers;
}

/// Lead in mm and pulses per revolution of the actuators that the simulator comes with.
struct Drive {
    int lead;
    int pulses;
};
constexpr std::array<Drive, kAxisCount> kDrives{{{8, 400}, {2, 400}, {2, 400}, {8, 192}}};

/// Thousandths of a mm in whole numbers; with these drives no value lies halfway between two.
QString millimetres(int pulses, const Drive& drive) {
    const int twice = 2 * pulses * drive.lead * 1000 / drive.pulses;
    const int thousandths = (twice + 1) / 2;
    return QStringLiteral("%1.%2")
        .arg(thousandths / 1000)
        .arg(thousandths % 1000, 3, 10, QLatin1Char('0'))
        .rightJustified(7);
}

} // namespace

QVector<GridRow> expectedRows(int first, int last, Unit unit) {
    QVector<GridRow> rows;
    for (int position = first; position <= last; ++position) {
        GridRow row{QString::number(position)};
        const QVector<int> numbers = numbersOf(position);
        for (int column = 0; column < numbers.size(); ++column) {
            const bool isPosition = column < 4 * kAxisCount && column % 4 == 3;
            row += isPosition && unit == Unit::Mm
                       ? millimetres(numbers[column], kDrives[static_cast<std::size_t>(column / 4)])
                       : QString::number(numbers[column]);
        }
        rows += row << QString();
    }
    return rows;
}

QStringList expectedDevices() {
    return {QStringLiteral("QD- 61H-300_ "), QStringLiteral("QD- 44L-100_ "),
            QStringLiteral("QD-J52L-100  "), QStringLiteral("QD- 61F-200  ")};
}

QByteArray expectedFile(int first, int last) {
    QByteArray file = "\"QD-K8\"\r\n";
    QByteArrayList names;
    for (const QString& device : expectedDevices()) {
        names += '"' + device.toLatin1() + '"';
    }
    file += names.join(',') + "\r\n\"NEW\",\"NEW\",\"NEW\",\"NEW\"\r\n";
    for (int position = first; position <= last; ++position) {
        file += QByteArray::number(position);
        for (const int number : numbersOf(position)) {
            file += ",\" " + QByteArray::number(number) + '"';
        }
        file += ",\"\"\r\n";
    }
    return file;
}

} // namespace e2e
