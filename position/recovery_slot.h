#pragma once

#include "platform/lock_file.h"

#include <memory>
#include <string>
#include <vector>

namespace qdw8 {

/// A place in the state folder where one running program keeps its unsaved table: a file, and a
/// lock beside it. Each program has a place of its own, so that two of them neither overwrite nor
/// offer each other's table, and one that nobody has decided about yet stays where it is.
class RecoverySlot {
public:
    static constexpr int kSlots = 20; ///< numbered from 1

    /// Throws `Fault` as `LockFile` does.
    explicit RecoverySlot(int number);

    /// False: another program that runs has it.
    bool mine() const { return lock.held(); }
    /// The file, whether it is there or not.
    const std::string& path() const { return file; }
    bool holdsTable() const;

    /// Times that a program began something with this table and never came to its end.
    int failures() const { return lock.marks(); }
    /// The table has come through.
    void forgetFailures() { lock.setMarks(0); }
    /// Something is done with the table for the life of the object; what ends it without a farewell
    /// leaves a failure behind, besides those of before.
    class Attempt {
    public:
        explicit Attempt(RecoverySlot& slot) : lock(slot.lock), before(lock.marks()) {
            lock.addMark();
        }
        ~Attempt() { lock.setMarks(before); }
        Attempt(const Attempt&) = delete;
        Attempt& operator=(const Attempt&) = delete;

    private:
        LockFile& lock;
        int before;
    };

private:
    std::string file;
    LockFile lock;
};

/// A place that nobody has and that holds no table; the state folder is made if it is missing.
/// One that can't be locked is passed over. Throws `Fault` if there is none.
std::unique_ptr<RecoverySlot> FreeSlot();

/// The places with a table whose program has gone, the one that was kept last first. One that can't
/// be locked is left out, for a later start.
std::vector<std::unique_ptr<RecoverySlot>> LeftSlots();

} // namespace qdw8
