#include "position/recovery_slot.h"

#include "platform/fault.h"
#include "platform/platform.h"

#include <filesystem>
#include <system_error>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

std::string NameOf(int number, const char* ending) {
    return ThePlatform().stateFolder + "/positions-" + std::to_string(number) + ending;
}

/// Nobody else is to look into it.
void MakeStateFolder() {
    std::error_code error;
    if (fs::create_directories(ThePlatform().stateFolder, error)) {
        fs::permissions(ThePlatform().stateFolder, fs::perms::owner_all, error);
    }
}

} // namespace

RecoverySlot::RecoverySlot(int number)
    : file(NameOf(number, ".unsaved")), lock(NameOf(number, ".lock")) {}

bool RecoverySlot::holdsTable() const {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

std::unique_ptr<RecoverySlot> FreeSlot() {
    MakeStateFolder();
    for (int number = 1; number <= RecoverySlot::kSlots; ++number) {
        auto slot = std::make_unique<RecoverySlot>(number);
        if (slot->mine() && !slot->holdsTable()) {
            return slot;
        }
    }
    throw Fault(ThePlatform().stateFolder + ": full of tables that nobody has decided about");
}

} // namespace qdw8
