#include "simulator/memory_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace qdk8 {
namespace {

constexpr const char* kHead = "QD-K8 memory 1";

std::string Crc32(std::string_view text) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char c : text) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xEDB88320U : crc >> 1U;
        }
    }
    crc = ~crc;
    return ToHex(static_cast<int>(crc >> 16U), 4) + ToHex(static_cast<int>(crc & 0xFFFFU), 4);
}

/// One kind of line: its word, the width of its number and how its digits are spaced for the eye.
struct Kind {
    const char* word;
    int numberWidth;
    int firstNumber;
    std::vector<std::size_t> columns;
};

const Kind kBlocks{"block", 1, 0, {32}};
const Kind kPositions{"position", 3, 1, {9, 9, 9, 9, 4}};
const Kind kGroups{"group", 2, 1, {3, 3}};
const Kind kMacros{"macro", 2, 1, {32}};

template<typename Rows> void WriteRows(std::string& text, const Kind& kind, const Rows& rows) {
    int number = kind.firstNumber;
    for (const std::string& row : rows) {
        text += std::string(kind.word) + " " + ToHex(number++, kind.numberWidth);
        std::size_t at = 0;
        for (const std::size_t width : kind.columns) {
            text += ' ';
            text += row.substr(at, width);
            at += width;
        }
        text += "\n";
    }
}

/// The lines of the file, comments left out, each with its number for a message.
struct Lines {
    std::istringstream stream;
    int number = 0;

    std::string place() const {
        std::string text = "line ";
        text += std::to_string(number);
        return text + ": ";
    }

    bool next(std::string& line) {
        while (std::getline(stream, line)) {
            ++number;
            if (line.empty() || line.front() != '#') {
                return true;
            }
        }
        return false;
    }
};

template<typename Rows>
bool ReadRows(Lines& lines, const Kind& kind, Rows& rows, std::string& problem) {
    int number = kind.firstNumber;
    for (std::string& row : rows) {
        const std::string wanted = std::string(kind.word) + " " + ToHex(number, kind.numberWidth);
        std::string line;
        if (!lines.next(line) || line.substr(0, wanted.size()) != wanted) {
            problem = lines.place() + "\"" + wanted + "\" expected";
            return false;
        }
        row.clear();
        std::size_t at = wanted.size();
        for (const std::size_t width : kind.columns) {
            const std::string digits = at < line.size() ? line.substr(at + 1, width) : "";
            if (line.substr(at, 1) != " " || digits.size() != width || !IsHex(digits)) {
                problem = lines.place() + "digits missing or wrong";
                return false;
            }
            row += digits;
            at += 1 + width;
        }
        if (at != line.size()) {
            problem = lines.place() + "too long";
            return false;
        }
        ++number;
    }
    return true;
}

std::string SystemProblem(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

bool WriteAll(int file, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = ::write(file, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return ::fsync(file) == 0;
}

} // namespace

std::string MemoryText(const Memory& memory) {
    std::string text = std::string(kHead) + "\n";
    text += "# Parameter blocks: number, 16 bytes.\n";
    WriteRows(text, kBlocks, memory.blocks);
    text += "# Positions: number; per axis VEL (2), ACC, WAY, pulses (5); ITPL, OUT, S/M (2).\n";
    WriteRows(text, kPositions, memory.positions);
    text += "# Groups: number, first and last position.\n";
    WriteRows(text, kGroups, memory.groups);
    text += "# Macros: number, 16 steps of command and data.\n";
    WriteRows(text, kMacros, memory.macros);
    return text + "check " + Crc32(text) + "\n";
}

bool MemoryFromText(const std::string& text, Memory& memory, std::string& problem) {
    if (text.substr(0, std::strlen(kHead) + 1) != std::string(kHead) + "\n") {
        problem = std::string("the head line \"") + kHead + "\" is missing";
        return false;
    }
    const std::size_t check = text.rfind("check ");
    if (check == std::string::npos || check == 0 || text[check - 1] != '\n' ||
        text.size() != check + 15 || text.back() != '\n') {
        problem = "the check line at the end is missing: the file was cut";
        return false;
    }
    if (text.substr(check + 6, 8) != Crc32(text.substr(0, check))) {
        problem = "the check does not fit: the file was altered or damaged";
        return false;
    }
    Lines lines{std::istringstream(text.substr(0, check)), 0};
    std::string line;
    lines.next(line); // the head
    Memory fresh;
    if (!ReadRows(lines, kBlocks, fresh.blocks, problem) ||
        !ReadRows(lines, kPositions, fresh.positions, problem) ||
        !ReadRows(lines, kGroups, fresh.groups, problem) ||
        !ReadRows(lines, kMacros, fresh.macros, problem)) {
        return false;
    }
    if (lines.next(line)) {
        problem = lines.place() + "nothing more expected";
        return false;
    }
    memory = fresh;
    return true;
}

FileState LoadMemory(const std::string& path, Memory& memory, std::string& problem) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT) {
            return FileState::Missing;
        }
        problem = SystemProblem("cannot be read");
        return FileState::Broken;
    }
    if (!S_ISREG(status.st_mode)) {
        problem = "is not a plain file";
        return FileState::Broken;
    }
    std::ifstream file(path, std::ios::binary);
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    file.read(content.data(), status.st_size);
    content.resize(static_cast<std::size_t>(file.gcount()));
    if (file.bad() || !file.is_open()) {
        problem = "cannot be read";
        return FileState::Broken;
    }
    return MemoryFromText(content, memory, problem) ? FileState::Read : FileState::Broken;
}

bool SaveMemory(const std::string& path, const Memory& memory, std::string& problem) {
    const std::string neighbour = path + ".new";
    const int file = ::open(neighbour.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (file < 0) {
        problem = SystemProblem("cannot be written");
        return false;
    }
    bool good = WriteAll(file, MemoryText(memory));
    good = ::close(file) == 0 && good;
    if (!good || std::rename(neighbour.c_str(), path.c_str()) != 0) {
        problem = SystemProblem("cannot be written");
        ::unlink(neighbour.c_str());
        return false;
    }
    return true;
}

} // namespace qdk8
