#pragma once

#include "link/background.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// What a command does on the line, said once: a run of exchanges, the writing mode, the test that
/// the machine stands still, reading and sending many rows.
namespace qdw8 {

/// A run on the line. While the object lives no tick talks; the program goes on line at its head,
/// and on every way out the transfer dialog goes and the port is closed unless it is kept.
class LineBatch {
public:
    LineBatch();
    ~LineBatch();
    LineBatch(const LineBatch&) = delete;
    LineBatch& operator=(const LineBatch&) = delete;

private:
    PollHeld held;
};

/// What a failed question about the motion shows, beside the boxes of the exchange.
enum class OnFailure { Silent, Tell };

/// `0RA`. True: the machine stands still. Otherwise box 424 when it moves, and box 377 or nothing
/// when the exchange failed.
bool StandsStill(OnFailure onFailure);

/// The controller's writing mode, `0CM01`, and its end, `0CM00`: one that was left in the writing
/// mode would refuse to move. The mode is ended at the latest when the object goes, also when the
/// controller's answer to `begin` was no good one, since it may have taken the mode; never into a
/// line that no longer answers.
class WritingMode {
public:
    WritingMode() = default;
    ~WritingMode();
    WritingMode(const WritingMode&) = delete;
    WritingMode& operator=(const WritingMode&) = delete;

    /// Asks for the mode. False: failed, and box 377 was shown; or the program is to end, and
    /// nothing went out.
    bool begin();
    /// Ends the mode, in up to `tries` tries, 100 ms apart; box 377 when the last one failed too,
    /// or the line died at one. Nothing goes out, and nothing is told, when the line no longer
    /// answers, or the mode was not asked for.
    void end(int tries = 1);
    /// The mode stays as it is.
    void leave() { on = false; }

private:
    bool on = false;
};

enum class LineResult {
    Done,
    Failed,    ///< an exchange failed; it has told
    WrongEcho, ///< another echo came back; 384 with 385 was shown
    Cancelled  ///< by the user, or by the end of the program
};
/// The user stopped the run, or gave up a wait of it, or the end of the program stopped it.
bool WasStopped(LineResult result);

/// What the transfer dialog shows of a run over rows.
struct RunShown {
    int maximum = 0;
    std::int16_t textId = 0;
    bool cancel = false; ///< the dialog has its cancel button
    int firstValue = 1;  ///< where the bar stands after the first row; it moves by 1 with each
};

/// Reads `count` replies under the transfer dialog. `read` gets the index of the row, from 0, does
/// the exchange and keeps the reply (a row that isn't asked for is simply good); 0 good, 1 failed.
/// Stops at the next row when the user cancels or the program is to end.
LineResult ReadMany(int count, const RunShown& shown,
                    const std::function<std::int16_t(int index)>& read);

/// One frame of a run of writes.
struct LineWrite {
    /// The exchange: a wrapper of ct_commands.h with its data. Empty: nothing goes out in this
    /// step.
    std::function<std::int16_t()> send;
    /// What the reply must begin with; empty: it is not compared.
    std::string echo;
};

/// Sends the frames in order under the transfer dialog and compares the echoes. After another echo
/// the dialog is gone and the box shown; the line still answers.
/// Stops at the next frame when the program is to end; the dialog's button cancels only a read.
LineResult SendMany(const std::vector<LineWrite>& writes, const RunShown& shown);

} // namespace qdw8
