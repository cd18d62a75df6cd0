// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DISPLAY_H
#define TAMOBOX_DISPLAY_H

#include <string>

namespace tamobox {

/** A display of the phone, as `/pps/services/screen/displays` describes it. */
struct Display
{
    int id = 0; ///< above 0
    std::string name;
    bool isInternal = false;
    bool isAttached = true;
    bool isDetachable = true;
    int rotation = 0;       ///< 0, 90, 180 or 270 degrees
    int width = 0;          ///< pixels at rotation 0, above 0
    int height = 0;         ///< likewise
    int physicalWidth = 0;  ///< millimetres at rotation 0; 0: unknown
    int physicalHeight = 0; ///< likewise
};

} // namespace tamobox

#endif
