#include "positions.h"

#include "gui.h"

#include <QFile>

namespace e2e {

namespace {

constexpr int kHeadLines = 3;

QByteArrayList Lines() {
    static const QByteArrayList lines =
        ContentOf(QStringLiteral(STORIES_FOLDER "/controller.qdd")).split('\n');
    return lines;
}

/// In thousandths of a mm with whole numbers; with the simulator's actuators, lead in mm and pulses
/// per revolution, no value lies halfway between two.
QString Millimetres(int pulses, int axis) {
    constexpr int kLeads[] = {8, 2, 2, 8};
    constexpr int kPulses[] = {400, 400, 400, 192};
    const int thousandths = (2 * pulses * kLeads[axis] * 1000 / kPulses[axis] + 1) / 2;
    return QString::number(thousandths / 1000.0, 'f', 3).rightJustified(7);
}

} // namespace

QVector<QStringList> PositionRows(int first, int last, bool mm) {
    QVector<QStringList> rows;
    for (const QByteArray& line : Lines().mid(kHeadLines + first - 1, last - first + 1)) {
        QStringList cells = QString::fromLatin1(line).remove(u'"').split(u',');
        for (qsizetype i = 0; i < cells.size(); ++i) {
            cells[i] = cells[i].trimmed();
            if (mm && i <= 16 && i % 4 == 0 && i > 0) {
                cells[i] = Millimetres(cells[i].toInt(), static_cast<int>(i / 4 - 1));
            }
        }
        rows += cells;
    }
    return rows;
}

QByteArray PositionFile(int first, int last) {
    const QByteArrayList rows = Lines().mid(kHeadLines + first - 1, last - first + 1);
    return (Lines().first(kHeadLines) + rows).join('\n') + '\n';
}

QByteArray ContentOf(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        Fail(name + QStringLiteral(": can't be read"));
    }
    return file.readAll();
}

} // namespace e2e
