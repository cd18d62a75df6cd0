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
        {"display-service", {{"services/screen/displays", 0644}, {"box/display", 0600}}},
        {"device-service",
         {{"services/deviceinfo/data", 0644}, {"services/deviceinfo/identity", 0644}}},
        {"led-service",
         {{"services/led/control", 0666}, {"services/led/status", 0644}, {"box/led", 0600}}},
        {"notification-service",
         {{"services/notification/control", 0666},
          {"box/notification", 0600},
          {"box/notifications", 0600}}},
        {"network-service",
         {{"services/network/status", 0644},
          {"services/network/events", 0666},
          {"box/network", 0600}}},
        {"payment-service",
         {{"services/paymentsystem/control", 0666},
          {"services/dialog/control", 0666},
          {"box/payment", 0600},
          {"box/payments", 0600},
          {"box/catalogue", 0600},
          {"box/clock", 0600},
          {"box/purchases/0", 0600},
          {"box/waiting/0", 0600}}},
        {"navigator-service",
         {{"services/navigator/events", 0666},
          {"services/navigator/control", 0666},
          {"services/navigator/applications", 0644},
          {"box/navigator", 0600}}},
    };
    return table;
}

} // namespace tamobox
