// The system bus, and questions to the disk service of the desktop on it (UDisks2,
// org.freedesktop.UDisks2.Block).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace liedwerk {

// What the disk service tells of a block device.
struct Blockgerät {
    std::string Name;    // IdLabel, the volume label; may be empty
    bool System = true;  // HintSystem: belongs to the machine
};

// Asks for the device, as "/dev/sdb1". Nothing when there is no system bus or service, or when no answer has
// come within a second. A bus that was silent once is not asked again. May be called from several threads.
std::optional<Blockgerät> BlockgerätFragen(std::string_view Quelle);

// True when the system bus answers within a second: Qt's own connecting knows no time-out.
bool SystembusAntwortet();

}  // namespace liedwerk
