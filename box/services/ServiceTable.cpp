// SPDX-License-Identifier: Apache-2.0
#include "ServiceTable.h"

namespace tamobox {

const std::vector<ServiceEntry>& serviceTable()
{
    // What applications read is readable to everybody; a control mailbox of the box takes requests
    // from the box's own user alone.
    static const std::vector<ServiceEntry> table = {
        {"power-service",
         {{"services/power/battery", 0644}, {"services/power/charger", 0644}, {"box/power", 0600}}},
    };
    return table;
}

} // namespace tamobox
