#pragma once

#include <functional>
#include <string>

namespace qdw8 {

/// The serial control `MSComm1`: one serial line, opened by port number.
///
/// Every member may throw `Fault` as told. The control closes itself at the first error of any
/// kind (a line that lost its cable reports errors without end otherwise); `PortOpen` is then
/// false and the next `Input` or `Output` faults.
struct SerialControl {
    /// Chooses the port, 1 for COM1. Only looked at when the port is opened.
    std::function<void(int)> SetCommPort;
    /// True while the port is open.
    std::function<bool()> PortOpen;
    /// Opens or closes the port. Throws `Fault` if it can't be opened; it is closed then. Closing
    /// a closed port does nothing. What had come and was not read is lost.
    std::function<void(bool)> SetPortOpen;
    /// Line settings as "9600,N,8,1": baud, parity, data bits, stop bits. Written after opening.
    /// Throws `Fault` for settings that can't be read or set.
    std::function<void(const std::string&)> SetSettings;
    /// Time in milliseconds that the line may lack carrier; 0 to 65535.
    std::function<void(int)> SetCDTimeout;
    /// 0 is no handshaking. Throws `Fault` for a number that there is none for.
    std::function<void(int)> SetHandshaking;
    /// Sends the text, one byte a character. Throws `Fault` if the port is not open or the text
    /// can't be sent.
    std::function<void(const std::string&)> Output;
    /// Number of characters that have come and were not read yet; 0 if the port is closed. The
    /// beginning of a line may be held back until its line feed has come.
    std::function<int()> InBufferCount;
    /// How many characters `Input` hands over; 0 is all that have come.
    std::function<void(int)> SetInputLen;
    /// Takes characters out of the buffer. Throws `Fault` if the port is not open.
    std::function<std::string()> Input;
    /// Drops all that has come and was not read, half a line that is held back among it. Does
    /// nothing if the port is closed. Never faults.
    std::function<void()> DropInput;
    /// What the port chosen last is told, opened anew for it, if the process is gone, killed or
    /// crashed, before the word was taken back by an empty text. It is sent again until the other
    /// end repeats it.
    std::function<void(const std::string&)> SetLastWord;
    /// The last communication event, as a number.
    std::function<int()> CommEvent;

    /// Called by the control, out of the event pump, when characters have come or an error closed
    /// the port. Set by the link; may be empty.
    std::function<void()> OnComm;
};

} // namespace qdw8
