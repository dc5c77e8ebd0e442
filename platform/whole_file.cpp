#include "platform/whole_file.h"

#include "platform/fault.h"
#include "platform/file_attributes.h"
#include "platform/open_file.h"
#include "platform/platform.h"
#include "platform/side_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;
constexpr const char* kNewEnding = ".new";
constexpr const char* kOldEnding = ".old";

/// The name that a chain of links ends in, whether something stands there or not; the name itself
/// if it is no link.
std::string EndOfLinks(const std::string& path) {
    fs::path end = path;
    std::error_code error;
    for (int links = 0; links < kMostLinks; ++links) {
        if (!fs::is_symlink(fs::symlink_status(end, error))) {
            return end.string();
        }
        // A target with a whole path takes the place of the folder, too.
        end = end.parent_path() / fs::read_symlink(end, error);
    }
    throw Fault(path + ": too many links");
}

/// The file that stands under a name.
struct OldFile {
    explicit OldFile(const std::string& path) : content(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK) {}
    OpenFile content;
    struct stat status {};
};

/// Opens the file as an ordinary save would: moving a new one over it would get around its
/// protection. Nothing if there is none. Throws `Fault` for what is no file, or may not be written.
std::unique_ptr<OldFile> OpenOld(const std::string& path) {
    struct stat status {};
    // Asked before: to open a pipe or a device can have effects of its own.
    const bool exists = ::lstat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) {
        throw Fault(path + ": " + std::strerror(errno));
    }
    if (exists && !S_ISREG(status.st_mode)) {
        throw Fault(path + ": is no file");
    }
    if (!exists) {
        return nullptr;
    }
    auto old = std::make_unique<OldFile>(path);
    if (!old->content.isOpen() || ::fstat(old->content.handle(), &old->status) != 0) {
        old->content.fail();
    }
    return old;
}

/// Puts a new file in the place of the old one, or of nothing. False if the folder takes no new
/// file, or it can't have what belongs to the old one, or can't take its place; nothing has changed
/// then. Throws `Fault` if it can't be written.
bool Replace(const std::string& destination, const OldFile* old, std::string_view bytes) {
    if (old != nullptr && old->status.st_nlink > 1) {
        return false;
    }
    std::optional<SideFile> file;
    try {
        // Nobody else is to read what the old file may keep from him.
        file.emplace(Beside(destination), kNewEnding, old == nullptr ? 0666 : 0600);
    } catch (const Fault&) {
        if (old == nullptr) {
            throw;
        }
        return false;
    }
    if (old != nullptr && !TakeAttributes(old->content.handle(), file->content().handle())) {
        return false;
    }
    file->content().write(bytes);
    file->finish();
    return file->moveTo(destination);
}

/// A copy of a file's content, on the disk.
std::unique_ptr<SideFile> CopyOf(const std::string& path, const SidePlace& place) {
    OpenFile source(path, O_RDONLY | O_NOFOLLOW);
    if (!source.isOpen()) {
        source.fail();
    }
    auto copy = std::make_unique<SideFile>(place, kOldEnding, 0600);
    copy->content().writeRestOf(source);
    copy->finish();
    SyncFolder(place.folder);
    return copy;
}

std::unique_ptr<SideFile> SafeCopy(const std::string& path) {
    try {
        return CopyOf(path, Beside(path));
    } catch (const Fault&) {
        return CopyOf(path, Elsewhere(ThePlatform().settingsFolder, path));
    }
}

/// Sees to it that the disk has room for the new content before a byte of the old one is lost.
void ReserveRoom(OpenFile& file, std::size_t size) {
    if (size > 0 &&
        ::fallocate(file.handle(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) != 0 &&
        errno != EOPNOTSUPP && errno != ENOSYS) {
        file.fail();
    }
}

void WriteInPlace(const std::string& path, OpenFile& file, std::string_view bytes) {
    const std::unique_ptr<SideFile> copy = SafeCopy(path);
    ReserveRoom(file, bytes.size());
    try {
        file.write(bytes);
        file.cut();
        file.toDisk();
    } catch (const Fault&) {
        try {
            copy->content().rewind();
            file.rewind();
            file.writeRestOf(copy->content());
            file.cut();
            file.toDisk();
        } catch (const Fault& second) {
            copy->keep();
            throw Fault(std::string(second.what()) + "; what it held is in " + copy->name());
        }
        throw;
    }
}

} // namespace

std::string ReadWholeFile(const std::string& path, std::size_t limit) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        throw Fault(path + ": is no file"); // a folder, or a pipe that would never end
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw Fault(path + ": can't be opened");
    }
    std::string bytes;
    char chunk[1U << 16U];
    while (file.read(chunk, sizeof chunk) || file.gcount() > 0) {
        bytes.append(chunk, static_cast<std::size_t>(file.gcount()));
        if (bytes.size() > limit) {
            throw Fault(path + ": too large");
        }
    }
    if (file.bad()) {
        throw Fault(path + ": can't be read");
    }
    return bytes;
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
    const std::string destination = EndOfLinks(path);
    const SidePlace beside = Beside(destination);
    const std::unique_ptr<OldFile> old = OpenOld(destination);
    // First, so that a full disk has their room.
    RemoveLeftovers(beside, kNewEnding);
    if (!Replace(destination, old.get(), bytes)) {
        if (old == nullptr) {
            throw Fault(destination + ": the new file can't be moved there");
        }
        WriteInPlace(destination, old->content, bytes);
    }
    SyncFolder(beside.folder);
    // Until now they may have held the one good copy.
    RemoveLeftovers(beside, kOldEnding);
    RemoveLeftovers(Elsewhere(ThePlatform().settingsFolder, destination), kOldEnding);
}

void RemoveFile(const std::string& path) {
    if (::unlink(path.c_str()) == 0) {
        SyncFolder(fs::path(path).parent_path().string());
    } else if (errno != ENOENT) {
        throw Fault(path + ": " + std::strerror(errno));
    }
}

} // namespace qdw8
