// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BATTERYSTATE_H
#define TAMOBOX_BATTERYSTATE_H

#include <optional>
#include <string>

namespace tamobox {

/** What `/pps` says of the battery and the charger. */
struct BatteryState
{
    std::optional<int> level;           ///< percent; nothing where it is unknown
    std::optional<std::string> charger; ///< NONE, CHARGE or PLUGGED; nothing where it is unknown

    /** Reads it in the box that this process is in. Throws ObjectFailure where `/pps` has ended. */
    static BatteryState read();

    std::string levelText() const;
    std::string chargerText() const;

    /** An object of `level` and `charger`, null where unknown. */
    std::string toJson() const;
};

} // namespace tamobox

#endif
