#include "position/recovery_slot.h"

#include "platform/fault.h"
#include "platform/platform.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTable = ".unsaved";

std::string NameOf(int number, const char* ending) {
    return ThePlatform().stateFolder + "/positions-" + std::to_string(number) + ending;
}

bool Exists(const std::string& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

fs::file_time_type TimeOf(const RecoverySlot& slot) {
    std::error_code error;
    return fs::last_write_time(slot.path(), error);
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
    : file(NameOf(number, kTable)), lock(NameOf(number, ".lock")) {}

bool RecoverySlot::holdsTable() const {
    return Exists(file);
}

std::unique_ptr<RecoverySlot> FreeSlot() {
    MakeStateFolder();
    std::string reason =
        ThePlatform().stateFolder + ": full of tables that nobody has decided about";
    for (int number = 1; number <= RecoverySlot::kSlots; ++number) {
        try {
            auto slot = std::make_unique<RecoverySlot>(number);
            if (slot->mine() && !slot->holdsTable()) {
                return slot;
            }
        } catch (const Fault& fault) {
            reason = fault.what();
        }
    }
    throw Fault(reason);
}

std::vector<std::unique_ptr<RecoverySlot>> LeftSlots() {
    std::vector<std::unique_ptr<RecoverySlot>> left;
    for (int number = 1; number <= RecoverySlot::kSlots; ++number) {
        // Looked at first: a place that nobody uses is not to get a lock.
        if (!Exists(NameOf(number, kTable))) {
            continue;
        }
        try {
            auto slot = std::make_unique<RecoverySlot>(number);
            if (slot->mine() && slot->holdsTable()) {
                left.push_back(std::move(slot));
            }
        } catch (const Fault&) {
            continue;
        }
    }
    std::stable_sort(left.begin(), left.end(), [](const auto& one, const auto& other) {
        return TimeOf(*one) > TimeOf(*other);
    });
    return left;
}

} // namespace qdw8
