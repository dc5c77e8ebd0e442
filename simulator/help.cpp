#include "simulator/help.h"

#include "simulator/control.h"
#include "simulator/faults.h"
#include "simulator/front_control.h"

namespace qdk8 {

std::string HelpText() {
    return R"(qd-k8-sim: a QD-K8 positioning controller on a pseudo-terminal.

usage: qd-k8-sim [OPTION]...
       qd-k8-sim --help | --version

It prints one line as soon as a program can connect:
    qd-k8-sim ready on /dev/pts/N
and runs until SIGINT, SIGTERM or SIGHUP, or "quit" on a --control input. The
controller stands ready with four axes, nothing homed, and data in all 999 rows.

The line
    --link PATH       make a symbolic link PATH to the terminal, and take it away
                      at the end; a link that is there is replaced, a file is not
    --unpaced         as fast as possible; else 9600 baud, 10 bits a character,
                      in both directions
    --turnaround MS   time from a request to its reply (0)
    --handful N       the driver hands over N characters together (8); with 1
                      each comes by itself, unpaced too
    --trace           show on standard error what goes over the line

The machine
    --memory FILE     keep the lasting memory in FILE; it is made if it is not
                      there. Blocks, groups and macros last once they are
                      committed (0WE), positions as soon as they are written.
                      What is not committed is lost when power goes off
    --blank           start with empty tables (not with a FILE that exists)
    --axes N          a controller with N axes (4)
    --mask HEX        axes in use, bit 0 AXIS 1 to bit 3 AXIS 4 (F); of those
                      that the controller has
    --identity TEXT   the six characters of the reply to 0RV (140A40)
    --board TEXT      the six characters of each axis board (121K8R)
    --homing-fails    no homing finds its sensor: alarm 0%%134
    --alarm ALARM     start with an alarm up: class and code, such as 06, or the
                      whole reply, such as 0%%134. With :MS behind it a
                      resettable alarm (class 0) goes out by itself, as in 06:3000

The window
    --window          show the machine: the axes on their strokes, inputs to switch,
                      outputs, alarms, power, cable and faults of the line; closing
                      it ends the simulator. Only this needs a desktop
    --language WHICH  of the window, en or ja; else that of the desktop

Faults
    --fault RULE      may be given often; of several rules that fit, the first
                      counts. RULE is COMMAND:OCCURRENCE:FAULT, as in
                      0RP:3:silence, 0WE2:*:error=05, *:10+:late=1500
                      In TEXT \r\n is CR LF, \s a blank, \\ is \
    COMMAND           the beginning of the frames meant, or * for every frame
    OCCURRENCE        counted among those frames: 3, 2-5, 4+ or *
    FAULT             one of
)" + FaultHelp() +
           R"(
Control
    --control         read commands from standard input, one on a line; each is
                      answered on standard output, the last line being "ok" or
                      "error: ...". The end of the input ends the simulator
)" + ControlHelp() +
           FrontHelp() +
           R"(
Alarms, by class and code (class 0 can be reset, class 1 takes a power cycle)
    A request is refused with, which puts no alarm up:
        01 Command not understood
        02 Value out of range
        03 Homing not completed
        04 Axis not in use
        05 Writing refused during movement
        0D Start refused during movement
    The machine raises by itself:
        07 Soft limit exceeded
        08 Position data invalid
        09 Group data invalid
        0B Sequence macro input wait timed out
        14 Home sensor not detected
        1E Writing to the non-volatile memory failed
    Any other comes only when it is asked for, by --alarm, "alarm" on the control
    input or the fault "error":
        06 Stop input is on
        11 Overcurrent in the motor drive
        and so on

Exit status: 0 after an ordinary end, 1 when something cannot be done, 2 for a
wrong option.
)";
}

} // namespace qdk8
