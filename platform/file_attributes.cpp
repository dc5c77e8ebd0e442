#include "platform/file_attributes.h"

#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace qdw8 {
namespace {

using Attributes = std::map<std::string, std::vector<char>>;

/// The extended attributes of a file; none on a file system that has no such thing. Nothing if one
/// of them can't be read.
std::optional<Attributes> AttributesOf(int file) {
    Attributes result;
    const ssize_t size = ::flistxattr(file, nullptr, 0);
    if (size <= 0) {
        return result;
    }
    std::vector<char> names(static_cast<std::size_t>(size));
    const ssize_t filled = ::flistxattr(file, names.data(), names.size());
    for (ssize_t at = 0; at < filled;) {
        const char* name = names.data() + at;
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
        const ssize_t length = ::fgetxattr(file, name, nullptr, 0);
        std::vector<char> value(static_cast<std::size_t>(length < 0 ? 0 : length));
        if (length < 0 || ::fgetxattr(file, name, value.data(), value.size()) != length) {
            return std::nullopt;
        }
        result[name] = value;
    }
    return result;
}

} // namespace

bool TakeAttributes(int from, int to) {
    struct stat wanted {};
    struct stat got {};
    const auto attributes = AttributesOf(from);
    const auto inherited = AttributesOf(to);
    if (!attributes || !inherited || ::fstat(from, &wanted) != 0) {
        return false;
    }
    // What is refused here shows in the comparison. A new owner takes rights away, and an access
    // list changes them: hence the order.
    [[maybe_unused]] const int owned = ::fchown(to, wanted.st_uid, wanted.st_gid);
    for (const auto& [name, value] : *inherited) {
        if (!attributes->contains(name)) {
            ::fremovexattr(to, name.c_str());
        }
    }
    for (const auto& [name, value] : *attributes) {
        ::fsetxattr(to, name.c_str(), value.data(), value.size(), 0);
    }
    [[maybe_unused]] const int moded = ::fchmod(to, wanted.st_mode & 07777U);
    return ::fstat(to, &got) == 0 && got.st_uid == wanted.st_uid && got.st_gid == wanted.st_gid &&
           got.st_mode == wanted.st_mode && AttributesOf(to) == attributes;
}

} // namespace qdw8
