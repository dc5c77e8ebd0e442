#pragma once

#include <cstdint>
#include <string>

/// The stored settings: text values by key in the section `Settings`. Numbers and flags are decimal
/// text. A missing key yields its default; nothing fails here.
namespace qdw8 {

std::string SettingText(const std::string& key, const std::string& fallback);
/// The leading number of the stored text; `fallback` for a missing key or a number that doesn't
/// fit into 16 bits.
std::int16_t SettingNumber(const std::string& key, std::int16_t fallback);
/// The stored port number as it is, 1 for a missing key, 0 for one that doesn't fit into 16 bits.
std::int16_t StoredPortNo();

void SaveSettingText(const std::string& key, const std::string& text);
void SaveSettingNumber(const std::string& key, std::int16_t number);

/// Behind settings that the user has confirmed: tells, once in a run, if the disk didn't take them.
/// They hold for the run.
void TellLostSettings();

} // namespace qdw8
