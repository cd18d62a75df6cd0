// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_BATTERYCHAPTER_H
#define HELLO_PHONE_BATTERYCHAPTER_H

#include <tamo/device/BatteryInfo.h>

/** Reports the battery, as it is and with each change: `battery: 57 %, charging`. */
class BatteryChapter
{
public:
    BatteryChapter();

private:
    tamo::device::BatteryInfo m_battery;
};

#endif
