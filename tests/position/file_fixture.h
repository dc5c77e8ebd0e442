#pragma once

#include "device/device_name.h"
#include "platform/whole_file.h"
#include "position/posi_file.h"
#include "position_fixture.h"

#include <filesystem>

namespace qdw8::test {

/// A folder for position files, and the device names of the fixture's axes on the panel.
class PosiFilesTest : public PositionTest {
protected:
    PosiFilesTest();
    ~PosiFilesTest() override;

    std::string path(const std::string& name) const { return folder + "/" + name; }
    void write(const std::string& name, const std::string& bytes) const {
        WriteWholeFile(path(name), bytes);
    }
    FileQuestion question(const std::string& title) const;
    void expectOpen(const std::string& name);
    /// Waits for the choice dialog about other devices.
    void expectDeviceChoice(std::int16_t answer);

    /// A row of defaults with a comment.
    static std::string row(int position, const std::string& comment = {});
    /// Magic, names and types that agree with the fixture.
    static std::string head();

    std::string folder;
};

} // namespace qdw8::test
