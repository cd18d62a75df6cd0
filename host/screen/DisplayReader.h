// SPDX-License-Identifier: Apache-2.0
#ifndef SCREEN_DISPLAYREADER_H
#define SCREEN_DISPLAYREADER_H

#include "Display.h"

#include <vector>

namespace screen {

/** The displays where nobody has said what there is: the one that is built in. */
std::vector<Display> builtInDisplays();

/**
 * Reads the text of `services/screen/displays`. What docs/platform-objects.md has left out is left
 * out; where the object does not say what there is, it is builtInDisplays().
 *
 * @param text zero-terminated; is changed
 * @return 0 or an `errno` value: EBADMSG (it is malformed), ENOMEM; `displays` is as it was then
 */
int readDisplays(char* text, std::vector<Display>& displays);

} // namespace screen

#endif
