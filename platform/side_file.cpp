#include "platform/side_file.h"

#include "platform/check_digits.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPrefixLength = 80;
constexpr int kNameTries = 100;

/// The first bytes of a name, cut at the end of a character.
std::string CutPrefix(const std::string& name) {
    std::size_t end = std::min(name.size(), kPrefixLength);
    while (end > 0 && end < name.size() &&
           (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return name.substr(0, end);
}

std::string NameOf(const SidePlace& place, const std::string& number, const char* ending) {
    return place.prefix + '.' + number + '-' + CheckDigits(place.key + '/' + number) + ending;
}

std::string FreshName(const SidePlace& place, const char* ending) {
    static std::mt19937_64 numbers{std::random_device{}()};
    char number[kCheckDigits + 1];
    std::snprintf(number, sizeof number, "%016llx", static_cast<unsigned long long>(numbers()));
    return place.folder + '/' + NameOf(place, number, ending);
}

bool IsSideFile(const SidePlace& place, const std::string& name, const char* ending) {
    const std::size_t at = place.prefix.size() + 1;
    return name.size() > at && NameOf(place, name.substr(at, kCheckDigits), ending) == name;
}

} // namespace

SidePlace Beside(const std::string& file) {
    const fs::path path(file);
    const std::string folder = path.parent_path().string();
    const std::string name = path.filename().string();
    return {folder.empty() ? "." : folder, CutPrefix(name), name};
}

SidePlace Elsewhere(const std::string& folder, const std::string& file) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(file, error);
    return {folder, CutPrefix(whole.filename().string()), error ? file : whole.string()};
}

SideFile::SideFile(SidePlace where, const char* nameEnding, mode_t mode)
    : place(std::move(where)), ending(nameEnding) {
    file.emplace(place.folder, O_TMPFILE | O_RDWR, mode);
    for (int tries = 0; !file->isOpen() && tries < kNameTries; ++tries) {
        path = FreshName(place, ending);
        file.emplace(path, O_CREAT | O_EXCL | O_RDWR, mode);
        named = file->isOpen();
        if (!named && errno != EEXIST) {
            break;
        }
    }
    if (!file->isOpen()) {
        file->fail();
    }
    // Another process that saves the same file must not take this one for a left one.
    ::flock(file->handle(), LOCK_EX | LOCK_NB);
}

SideFile::~SideFile() {
    if (named) {
        ::unlink(path.c_str());
    }
}

void SideFile::finish() {
    file->toDisk();
    const std::string self = "/proc/self/fd/" + std::to_string(file->handle());
    for (int tries = 0; !named && tries < kNameTries; ++tries) {
        path = FreshName(place, ending);
        named = ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
        if (!named && errno != EEXIST) {
            break;
        }
    }
    if (!named) {
        file->fail();
    }
}

bool SideFile::moveTo(const std::string& destination) {
    if (::rename(path.c_str(), destination.c_str()) != 0) {
        return false;
    }
    named = false;
    return true;
}

void RemoveLeftovers(const SidePlace& place, const char* ending) {
    std::error_code error;
    std::vector<std::string> left;
    for (fs::directory_iterator entry(place.folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (IsSideFile(place, entry->path().filename().string(), ending)) {
            left.push_back(entry->path().string());
        }
    }
    for (const std::string& path : left) {
        const OpenFile file(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
        struct stat status {};
        if (file.isOpen() && ::fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode) &&
            ::flock(file.handle(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(path.c_str());
        }
    }
}

void SyncFolder(const std::string& folder) {
    const OpenFile handle(folder, O_RDONLY | O_DIRECTORY);
    if (handle.isOpen()) {
        ::fsync(handle.handle());
    }
}

} // namespace qdw8
