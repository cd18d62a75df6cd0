// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_NAVIGATOR_DISPLAYGEOMETRY_H
#define TAMO_NAVIGATOR_DISPLAYGEOMETRY_H

namespace tamo {

/** How the phone's first display stands. */
struct DisplayGeometry
{
    int angle = 0;                   ///< degrees
    bool isNaturalLandscape = false; ///< whether it is wider than high at angle 0

    /** Asks the screen library. What fails is logged and stays as it is above. */
    static DisplayGeometry read();
};

} // namespace tamo

#endif
