#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <string>
#include <unistd.h>

namespace qdw8::test {

/// The far end of a pseudo-terminal that is COM1 for a program with this settings folder.
struct FarEnd {
    explicit FarEnd(std::filesystem::path settings) : ports(settings / "ports") {
        std::filesystem::create_directories(ports);
        plug();
    }
    ~FarEnd() {
        ::close(near);
        ::close(far);
    }
    FarEnd(const FarEnd&) = delete;
    FarEnd& operator=(const FarEnd&) = delete;

    /// A new line, which echoes nothing while its port is closed; or COM1 is that device.
    void plug(const std::string& device = {}) {
        char name[128] = {};
        termios silent{};
        ::cfmakeraw(&silent);
        ::close(near);
        if (device.empty()) {
            ASSERT_EQ(::openpty(&far, &near, name, &silent, nullptr), 0);
        }
        std::filesystem::remove(ports / "com1");
        std::filesystem::create_symlink(device + name, ports / "com1");
    }
    void says(const std::string& text) const {
        ASSERT_EQ(::write(far, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    /// Waits for characters that have come to an end and were not taken yet.
    static bool hasCome(int end) {
        pollfd come{end, POLLIN, 0};
        return ::poll(&come, 1, 10'000) == 1;
    }
    /// What has come to the far end; waits for it.
    std::string hears() const {
        char bytes[64] = {};
        return hasCome(far) && ::read(far, bytes, sizeof bytes - 1) > 0 ? bytes : "";
    }

    std::filesystem::path ports;
    int far = -1;
    int near = -1; ///< keeps the far end alive while the port is closed
};

} // namespace qdw8::test
