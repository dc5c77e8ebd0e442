#pragma once

#include "app/main_panel.h"
#include "device/axis_device.h"
#include "platform/platform.h"
#include "platform/whole_file.h"
#include "support/scripted_platform.h"

#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace qdw8::test {

inline const std::string kNoList = "No device list file.";
inline const std::string kNoListTwoLines =
    kNoList + "\r\nPut device list file in the folder in which the program is saved in order to "
              "indicate device information correctly.";
inline const std::string kNotSelected =
    "Device type is not selected.\r\nPlease select device type again.";

/// A fresh device room, all axes in use, with a program folder of its own that holds no list yet.
class DeviceTest : public testing::Test {
protected:
    DeviceTest() {
        std::string name = testing::TempDir() + "qdw8_device_XXXXXX";
        folder = ::mkdtemp(name.data());
        ThePlatform().programFolder = folder;
        ResetModule1();
        ResetMainPanel();
        ResetDevices();
    }
    ~DeviceTest() override { std::filesystem::remove_all(folder); }

    void writeList(const std::string& text) const { WriteWholeFile(listPath(), text); }
    void removeList() const { std::filesystem::remove(listPath()); }
    std::string listPath() const { return folder + "/nqddevice.lst"; }

    static void setDevice(AxisDevice& device, const std::string& size, const std::string& speed,
                          std::int16_t stroke) {
        device.DevSize = size;
        device.DevSpeed = speed;
        device.DevStroke = stroke;
    }

    ScriptedPlatform platform;
    std::string folder;
};

/// One record of a list file.
inline std::string Record(const std::string& key, const std::string& rest = "2,400,0,0") {
    return "\"" + key + "\"," + rest + "\r\n";
}

/// Models of every kind of option code.
inline const std::string kModels =
    "6\r\n" + Record(" 44L-100", "2,400,1,1") + Record(" 44L-050", "2,400,1,1") +
    Record(" 33L-050", "2,400,0,2") + Record("J52L-100", "2,400,2,0") +
    Record(" 61F-200", "8,192,2,1") + Record(" 52H-300", "6,400,99,1");

} // namespace qdw8::test
