#pragma once

#include <cstdint>
#include <functional>
#include <memory>

/// What the commands of the position document have in common.
namespace qdw8 {

/// Takes the commands and the grid away for the life of the object. The current cell and the
/// selection stay; a cell being edited gets its old text back (the window commits it before it runs
/// a command). At the end the grid is free again and has the focus, and the commands are back, the
/// edit commands with the selection if it still stands. A command that runs inside another one
/// changes none of this.
class PositionCommand {
public:
    PositionCommand();
    ~PositionCommand();
    PositionCommand(const PositionCommand&) = delete;
    PositionCommand& operator=(const PositionCommand&) = delete;
};

/// Asks for a range by the screen function of a range dialog. True: `PosiFirst` and `PosiLast` are
/// set. False: it was left by Cancel, or didn't come up because the program ends.
bool AskRange(const std::function<void()>& dialog);

/// Makes the working range the whole grid when the object goes: a command that works on a part of
/// the document must not leave it narrowed, or the next save would write that part alone. Nothing
/// happens without data.
class WholeGridAfter {
public:
    WholeGridAfter() = default;
    ~WholeGridAfter();
    WholeGridAfter(const WholeGridAfter&) = delete;
    WholeGridAfter& operator=(const WholeGridAfter&) = delete;
};

/// For a command that can begin in the middle of another one, as the save does that is offered when
/// the program is to end: if a command ran when the object was made, its working range and the
/// marks of its check are put back when the object goes. If the program stays after all, that
/// command goes on with the rows that were chosen for it, and with no others.
class OuterWorkKept {
public:
    OuterWorkKept();
    ~OuterWorkKept();
    OuterWorkKept(const OuterWorkKept&) = delete;
    OuterWorkKept& operator=(const OuterWorkKept&) = delete;

private:
    struct Work;
    std::unique_ptr<Work> work; ///< none: no command ran
};

/// Part of `ResetPositions`: no command runs.
void ResetPositionCommand();

} // namespace qdw8
