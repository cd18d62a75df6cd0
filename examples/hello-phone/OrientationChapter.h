// SPDX-License-Identifier: Apache-2.0
#ifndef HELLO_PHONE_ORIENTATIONCHAPTER_H
#define HELLO_PHONE_ORIENTATIONCHAPTER_H

/** Lets the window turn with the phone, and redraws it: `orientation: redrawn for 90 degrees`. */
class OrientationChapter
{
public:
    OrientationChapter();
};

#endif
