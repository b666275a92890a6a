// Questions to the disk service of the desktop (UDisks2, org.freedesktop.UDisks2.Block) over the system bus.
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

}  // namespace liedwerk
