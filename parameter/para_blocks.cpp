#include "parameter/para_blocks.h"

#include "app/number_forms.h"
#include "platform/fault.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace qdw8 {
namespace {

constexpr std::size_t kBlockDigits = 32;

/// Where an item stands in its block.
struct BlockItem {
    ParaRow row;
    std::size_t byte;
    std::size_t width; ///< bytes
};

constexpr std::size_t kAccByte = 8;

constexpr std::array<BlockItem, 9> kCommonItems = {{
    {kRowHOME_OUT, 0, 1},
    {kRowAUTO_HOME, 1, 1},
    {kRowALM_CODE, 2, 1},
    {kRowGRP_ENABLE, 3, 1},
    {kRowSM_TIMEOUT, 4, 1},
    {kRowSM_TIMER, 5, 1},
    {kRowAXIS, 6, 1},
    {kRowSTOP_PAUSE, 7, 1},
    {kRowACC_DCC, kAccByte, 1},
}};

constexpr std::array<BlockItem, 1> kOrderItems = {{{kRowSEQ, 0, 1}}};

constexpr std::array<BlockItem, 12> kHomingItems = {{
    {kRowOFFSET, 0, 2},
    {kRowPUSH, 2, 1},
    {kRowVEL, 3, 1},
    {kRowOFSVEL, 4, 1},
    {kRowPUSHVEL, 5, 1},
    {kRowJOGVEL, 6, 1},
    {kRowALM, 7, 2},
    {kRowPG_TIMER, 9, 1},
    {kRowLS_SERCH_TIMER, 10, 1},
    {kRowSOFT_LIMIT, 11, 1},
    {kRowAUTODRIVE, 12, 1},
    {kRowM0_DISABLE, 13, 1},
}};

constexpr std::array<BlockItem, 5> kDeviceItems = {{
    {kRowTYPE, 0, 1},
    {kRowLEAD, 1, 1},
    {kRowPULSE, 2, 2},
    {kRowFUNCTION, 4, 1},
    {kRowSTROKE, 5, 3},
}};

// The actuator, in a device block behind its items.
constexpr std::size_t kSizeByte = 8;
constexpr std::size_t kSpeedByte = 9;
constexpr std::size_t kStrokeByte = 10;
constexpr std::int32_t kJ52Number = 52;
constexpr std::int32_t kJ52Letter = 'E';

enum class Kind { Common, Order, Homing, Device };

struct Place {
    Kind kind;
    std::size_t axis;
};

Place PlaceOf(int block) {
    if (block == 0) {
        return {Kind::Common, 0};
    }
    if (block < kFirstDeviceWriteBlock) {
        return {Kind::Order, static_cast<std::size_t>(block - 1)};
    }
    const auto index = static_cast<std::size_t>(block - kFirstDeviceWriteBlock);
    return {index % 2 == 0 ? Kind::Homing : Kind::Device, index / 2};
}

std::span<const BlockItem> ItemsOf(Kind kind) {
    switch (kind) {
    case Kind::Common: return kCommonItems;
    case Kind::Order: return kOrderItems;
    case Kind::Homing: return kHomingItems;
    case Kind::Device: return kDeviceItems;
    }
    return {};
}

/// The bytes at the end of a block that belong to no item, and the first of their cells.
struct Reserved {
    std::size_t byte = 16;
    std::size_t count = 0;
    std::size_t cell = 0;
};

Reserved ReservedOf(Place place, ReservedMap map) {
    constexpr std::size_t kPerAxis = 6;
    const std::size_t step = kPerAxis * place.axis;
    const bool asRead = map == ReservedMap::AsRead;
    switch (place.kind) {
    case Kind::Common: return {9, 7, 0};
    case Kind::Homing: return {14, 2, (asRead ? 7 : 9) + step};
    case Kind::Device: return {12, 4, (asRead || place.axis == 0 ? 9 : 11) + step};
    case Kind::Order: break;
    }
    return {};
}

/// Puts a number over the digits at a byte.
void Put(std::string& digits, std::size_t byte, std::size_t width, double value) {
    const std::string text = HexField(ToInt32(value), static_cast<int>(2 * width));
    if (text.size() != 2 * width) {
        throw Fault("a value is too wide for its bytes");
    }
    digits.replace(2 * byte, 2 * width, text);
}

std::int32_t Take(std::string_view digits, std::size_t byte, std::size_t width) {
    return HexValue(Mid(digits, 2 * byte + 1, 2 * width));
}

/// The number that the digits of a size make, whatever letters stand among them.
double SizeNumber(const std::string& size) {
    std::string digits;
    std::copy_if(size.begin(), size.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return NumberFromText(digits);
}

void PutActuator(std::string& digits, const ActuatorParts& parts) {
    if (parts.size == "J52") {
        Put(digits, kSizeByte, 1, kJ52Number);
        Put(digits, kSpeedByte, 1, kJ52Letter);
    } else {
        Put(digits, kSizeByte, 1, SizeNumber(parts.size));
        const unsigned char letter =
            parts.speed.empty() ? 0 : static_cast<unsigned char>(parts.speed.front());
        Put(digits, kSpeedByte, 1, letter);
    }
    Put(digits, kStrokeByte, 2, parts.stroke);
}

} // namespace

bool IsBlockOff(int block) {
    return block != 0 && IsSet(AxisOff[PlaceOf(block).axis]);
}

std::string BuildParaBlock(int block, ReservedMap map) {
    const Place place = PlaceOf(block);
    std::string digits(kBlockDigits, '0');
    for (const BlockItem& item : ItemsOf(place.kind)) {
        Put(digits, item.byte, item.width, ParaValue(ParaSet, ItemOfRow(item.row), place.axis));
    }
    if (place.kind == Kind::Device) {
        PutActuator(digits, ParaSet.parts[place.axis]);
    }
    const Reserved reserved = ReservedOf(place, map);
    for (std::size_t i = 0; i < reserved.count; ++i) {
        Put(digits, reserved.byte + i, 1, ParaReserved.at(reserved.cell + i));
    }
    return digits;
}

void CutParaBlock(int block, std::string_view digits, ParaRows& rows, ReservedBytes& reserved) {
    const Place place = PlaceOf(block);
    for (const BlockItem& item : ItemsOf(place.kind)) {
        rows.at(place.axis, item.row) = static_cast<double>(Take(digits, item.byte, item.width));
    }
    if (place.kind == Kind::Device) {
        ActuatorParts& parts = rows.parts[place.axis];
        parts = ActuatorOfBytes(Take(digits, kSizeByte, 1), Take(digits, kSpeedByte, 1));
        parts.stroke = ToInt16(Take(digits, kStrokeByte, 2));
        rows.at(place.axis, kRowActuator) = BuildActuator(parts);
    }
    CutReserved(block, digits, reserved);
}

void CutReserved(int block, std::string_view digits, ReservedBytes& reserved) {
    ReservedBytes taken = reserved;
    const Reserved bytes = ReservedOf(PlaceOf(block), ReservedMap::AsRead);
    for (std::size_t i = 0; i < bytes.count; ++i) {
        taken.at(bytes.cell + i) = static_cast<std::uint8_t>(Take(digits, bytes.byte + i, 1));
    }
    reserved = taken;
}

bool HasReserved(int block) {
    return ReservedOf(PlaceOf(block), ReservedMap::AsRead).count > 0;
}

std::int16_t AccelerationOf(std::string_view digits) {
    return ToInt16(Take(digits, kAccByte, 1));
}

ActuatorParts ActuatorOfBytes(int size, int letter) {
    if (letter == kJ52Letter) {
        return {"J52", "L", 0};
    }
    ActuatorParts parts;
    parts.size = std::to_string(size);
    if (parts.size.size() == 2) {
        parts.size.insert(parts.size.begin(), ' ');
    }
    // A memory that was never set holds no letter at all.
    if (letter > ' ' && letter < 0x7F) {
        parts.speed = static_cast<char>(letter);
    }
    return parts;
}

} // namespace qdw8
