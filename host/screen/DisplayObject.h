// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_DISPLAYOBJECT_H
#define SCREEN_DISPLAYOBJECT_H

#include "Display.h"

#include <vector>

namespace screen {

/**
 * Reads the displays as `/pps/services/screen/displays` has them now.
 *
 * @return 0 or an `errno` value: those of readDisplays() and of reading a file; `displays` is as it
 *         was then. That there is no such object is no error.
 */
int readDisplayObject(std::vector<Display>& displays);

} // namespace screen

#endif
