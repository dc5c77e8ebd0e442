#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// The controller at the other end: the simulator as a process of its own, plugged in as COM1.
namespace e2e {

class Cable {
public:
    /// Starts the simulator, with `options` besides the link, and returns when it is ready.
    explicit Cable(const QStringList& options);
    ~Cable();
    Cable(const Cable&) = delete;
    Cable& operator=(const Cable&) = delete;

    /// A line for the simulator's control input. Gives the answer's lines without the closing "ok";
    /// any other end of the answer is a failure of the test.
    QStringList tell(const QString& line);

private:
    QString readLine();

    QProcess simulator;
};

/// Every link to it is named so.
QString linkOfCom1();

} // namespace e2e
