#include "platform/fault.h"
#include "platform/last_word.h"
#include "platform/platform.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/qt_platform.h"

#include <QFileInfo>
#include <QSerialPort>
#include <QSignalBlocker>
#include <QStringList>
#include <QTimer>

#include <limits>
#include <linux/serial.h>
#include <memory>
#include <optional>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace qdw8 {
namespace {

constexpr int kCharactersCame = 2;
constexpr int kLineLost = 1007;

/// Characters of a line, its end among them, that the system keeps.
constexpr std::size_t kSystemLine = 4096;

/// Characters that are kept for a program that doesn't listen.
constexpr qint64 kUnreadBound = 65536;

constexpr int kLowLatency = static_cast<int>(ASYNC_LOW_LATENCY);

struct LineSettings {
    qint32 baud = 9600;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
};

/// State of the one serial line. Routines of the program never run on top of one of the port's
/// own signals: Qt signals no characters while such a routine waits, and closing a port out of
/// its own notifier deletes what is still at work. A notice goes through the event loop instead.
struct SerialLine {
    QSerialPort port;
    QTimer notice;     ///< runs while a call of `OnComm` is on its way
    bool open = false; ///< what the program sees; the port itself may close a turn later
    int portNo = 1;
    QString device; ///< opened last
    int inputLen = 0;
    int commEvent = 0;
    LineSettings settings;
    QSerialPort::FlowControl handshaking = QSerialPort::NoFlowControl;
    std::string lastWord;
};

[[noreturn]] void FailWithPort(SerialLine& line, const char* what) {
    const QString reason = line.port.errorString();
    throw Fault(std::string(what) + ": " + reason.toStdString());
}

void CloseLine(SerialLine& line) {
    line.open = false;
    line.notice.stop();
    const QSignalBlocker quiet(line.port);
    if (line.port.isOpen()) {
        line.port.close();
    }
}

void GiveNotice(SerialLine& line) {
    if (!line.open) {
        CloseLine(line);
    }
    const std::function<void()> onComm = MSComm1().OnComm;
    CallGuarded("OnComm", onComm);
}

/// The first error ends the connection: a line that lost its cable reports errors without end, at
/// full processor load, for as long as the port object stays open.
void LoseLine(SerialLine& line) {
    if (!line.open) {
        return;
    }
    line.open = false;
    line.commEvent = kLineLost;
    line.notice.start();
}

/// Has the driver hand characters over as they come. A USB adapter otherwise collects them for
/// 16 ms, which would double the time of every short exchange. Many drivers have no such mode.
void AskForLowLatency(int handle) {
    serial_struct driver{};
    if (::ioctl(handle, TIOCGSERIAL, &driver) == 0) {
        driver.flags |= kLowLatency;
        ::ioctl(handle, TIOCSSERIAL, &driver);
    }
}

/// Has the system hand over whole lines. A reply is one line, and many drivers deliver it character
/// by character: the program would otherwise be woken fifty times a row for nothing.
void AskForWholeLines(int handle) {
    termios modes{};
    if (::tcgetattr(handle, &modes) != 0) {
        return;
    }
    modes.c_lflag |= static_cast<tcflag_t>(ICANON);
    // No character but the line's end means anything.
    for (const int special : {VEOF, VEOL, VEOL2, VERASE, VKILL, VWERASE, VREPRINT, VLNEXT}) {
        modes.c_cc[special] = _POSIX_VDISABLE;
    }
    ::tcsetattr(handle, TCSANOW, &modes);
}

void ApplySettings(SerialLine& line) {
    QSerialPort& port = line.port;
    const LineSettings& want = line.settings;
    if (!port.setBaudRate(want.baud) || !port.setParity(want.parity) ||
        !port.setDataBits(want.dataBits) || !port.setStopBits(want.stopBits)) {
        FailWithPort(line, "line settings refused");
    }
}

/// The lock that keeps other programs off is made from the device's own name, not the link's.
QString DeviceOf(const SerialLine& line) {
    const QString device = QString::fromStdString(DeviceOfPort(line.portNo));
    const QString target = QFileInfo(device).canonicalFilePath();
    return target.isEmpty() ? device : target;
}

void KeepWord(const SerialLine& line) {
    KeepLastWord(line.device.toStdString(), line.lastWord);
}

void OpenLine(SerialLine& line) {
    if (line.open) {
        return;
    }
    CloseLine(line);
    line.device = DeviceOf(line);
    line.port.setPortName(line.device);
    ApplySettings(line);
    line.port.setFlowControl(line.handshaking);
    if (!line.port.open(QIODevice::ReadWrite)) {
        FailWithPort(line, line.device.toStdString().c_str());
    }
    line.open = true;
    if (!line.lastWord.empty()) {
        KeepWord(line); // it may be another port, or an adapter that came back under another name
    }
    AskForLowLatency(line.port.handle());
    AskForWholeLines(line.port.handle());
}

std::optional<QSerialPort::Parity> ParityOf(const QString& letter) {
    const QString letters = QStringLiteral("NEOSM");
    const QSerialPort::Parity parities[] = {QSerialPort::NoParity, QSerialPort::EvenParity,
                                            QSerialPort::OddParity, QSerialPort::SpaceParity,
                                            QSerialPort::MarkParity};
    const qsizetype at = letter.size() == 1 ? letters.indexOf(letter.toUpper()) : -1;
    if (at < 0) {
        return std::nullopt;
    }
    return parities[at];
}

std::optional<QSerialPort::StopBits> StopBitsOf(const QString& text) {
    if (text == u"1") {
        return QSerialPort::OneStop;
    }
    if (text == u"1.5") {
        return QSerialPort::OneAndHalfStop;
    }
    return text == u"2" ? std::optional(QSerialPort::TwoStop) : std::nullopt;
}

LineSettings ParseSettings(const std::string& text) {
    const QStringList fields = QString::fromStdString(text).split(u',');
    bool baudGood = false;
    bool bitsGood = false;
    if (fields.size() == 4) {
        const int baud = fields[0].toInt(&baudGood);
        const int bits = fields[2].toInt(&bitsGood);
        const auto parity = ParityOf(fields[1]);
        const auto stopBits = StopBitsOf(fields[3]);
        if (baudGood && bitsGood && baud > 0 && bits >= 5 && bits <= 8 && parity && stopBits) {
            return {baud, *parity, static_cast<QSerialPort::DataBits>(bits), *stopBits};
        }
    }
    throw Fault("bad line settings: " + text);
}

void SetHandshaking(SerialLine& line, int kind) {
    switch (kind) {
    case 0: line.handshaking = QSerialPort::NoFlowControl; break;
    case 1: line.handshaking = QSerialPort::SoftwareControl; break;
    case 2: line.handshaking = QSerialPort::HardwareControl; break;
    default: throw Fault("no such handshaking: " + std::to_string(kind));
    }
    if (line.open && !line.port.setFlowControl(line.handshaking)) {
        FailWithPort(line, "handshaking refused");
    }
}

void RequireOpen(const SerialLine& line) {
    if (!line.open) {
        throw Fault("the port is not open");
    }
}

void Send(SerialLine& line, const std::string& text) {
    RequireOpen(line);
    line.port.write(text.data(), static_cast<qint64>(text.size()));
    // The first flush hands the characters to the driver at once, the second one takes note of
    // that; left to the event loop it would cost a turn of its own in every exchange.
    line.port.flush();
    if (line.open) {
        line.port.flush();
    }
    if (!line.open) {
        FailWithPort(line, "sending failed");
    }
}

/// Of a line that is longer than its buffer the system drops the characters in front of the line's
/// end. The CR among them is put back: without it the noise would go on into the next reply.
std::string WithCarriageReturns(std::string text) {
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', begin)) {
        if (end - begin + 1 >= kSystemLine && text[end - 1] != '\r') {
            text.insert(end++, 1, '\r');
        }
        begin = end + 1;
    }
    return text;
}

/// The system hands over a line at a time; all that has come is taken together, as the lines of one
/// reply are to be judged together. The port may be gone afterwards.
void FetchAll(SerialLine& line) {
    int waiting = 0;
    while (line.open && line.port.bytesAvailable() < kUnreadBound &&
           ::ioctl(line.port.handle(), FIONREAD, &waiting) == 0 && waiting > 0 &&
           line.port.waitForReadyRead(0)) {
    }
}

std::string Receive(SerialLine& line) {
    RequireOpen(line);
    FetchAll(line);
    const qint64 count = line.inputLen > 0 ? line.inputLen : std::numeric_limits<qint64>::max();
    return WithCarriageReturns(
        line.port.read(qMin(count, line.port.bytesAvailable())).toStdString());
}

int WaitingCharacters(SerialLine& line) {
    return line.open ? static_cast<int>(line.port.bytesAvailable()) : 0;
}

void ConnectPort(SerialLine& line) {
    line.port.setReadBufferSize(kUnreadBound);
    line.notice.setSingleShot(true);
    line.notice.setInterval(0);
    QObject::connect(&line.notice, &QTimer::timeout, &line.port, [&line] { GiveNotice(line); });
    QObject::connect(&line.port, &QSerialPort::readyRead, &line.port, [&line] {
        if (line.open) {
            line.commEvent = kCharactersCame;
            line.notice.start();
        }
    });
    QObject::connect(&line.port, &QSerialPort::errorOccurred, &line.port,
                     [&line](QSerialPort::SerialPortError error) {
                         if (error != QSerialPort::NoError) {
                             LoseLine(line);
                         }
                     });
}

} // namespace

void InstallQtSerial() {
    auto line = std::make_shared<SerialLine>();
    ConnectPort(*line);

    SerialControl& control = MSComm1();
    control.SetCommPort = [line](int portNo) { line->portNo = portNo; };
    control.PortOpen = [line] { return line->open; };
    control.SetPortOpen = [line](bool open) { open ? OpenLine(*line) : CloseLine(*line); };
    control.SetSettings = [line](const std::string& text) {
        line->settings = ParseSettings(text);
        if (line->open) {
            ApplySettings(*line);
        }
    };
    // The cable to the controller has three wires: there is no carrier to miss.
    control.SetCDTimeout = [](int) {};
    control.SetHandshaking = [line](int kind) { SetHandshaking(*line, kind); };
    control.Output = [line](const std::string& text) { Send(*line, text); };
    control.InBufferCount = [line] { return WaitingCharacters(*line); };
    control.SetInputLen = [line](int count) { line->inputLen = count; };
    control.Input = [line] { return Receive(*line); };
    control.DropInput = [line] {
        if (line->open) {
            line->port.clear(QSerialPort::Input);
            line->port.readAll(); // a full buffer listens again only when it is read
        }
    };
    control.SetLastWord = [line](const std::string& text) {
        if (text != line->lastWord) {
            line->lastWord = text;
            KeepWord(*line);
        }
    };
    control.CommEvent = [line] { return line->commEvent; };
}

} // namespace qdw8
