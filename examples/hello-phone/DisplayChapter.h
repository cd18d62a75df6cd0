// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_DISPLAYCHAPTER_H
#define HELLO_PHONE_DISPLAYCHAPTER_H

#include <tamo/device/DisplayManager.h>

/** Reports displays that come and go: `display 2: attached, 1920 x 1080`. */
class DisplayChapter
{
public:
    DisplayChapter();

private:
    tamo::device::DisplayManager m_manager;
};

#endif
