#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What the lists of a device window offer, out of the axis' own copy of the device list
/// (`DeviceListTables`). Each text comes once, in the order of the file.
namespace qdw8 {

/// The speeds that a size is made in; they become the axis' list of speeds.
const std::vector<std::string>& FilterSpeedsForSize(std::size_t axis, const std::string& size);

/// The strokes that a size and speed are made in, in mm as decimal text.
std::vector<std::string> FilterStrokes(std::size_t axis, const std::string& size,
                                       const std::string& speed);

bool Holds(const std::vector<std::string>& rows, const std::string& text);

/// What was typed as a size or a speed in the list's form: "44" is typed for " 44", "l" for "L".
std::string SizeCodeOf(const std::string& typed);
std::string SpeedLetterOf(const std::string& typed);

/// True for the sizes that are of the new type whatever the box of the old type says.
bool CountsAsNewOnly(const std::string& size);
/// The stroke that a text means in mm; 0 if it means none.
std::int16_t StrokeNumber(const std::string& text);

} // namespace qdw8
