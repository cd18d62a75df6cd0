// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DISPLAYMEMBERS_H
#define TAMOBOX_DISPLAYMEMBERS_H

#include "Display.h"

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"

namespace tamobox {

/**
 * Reads the members of one display.
 *
 * @param message stands in the display's object
 * @throws Failure where one that must be there is missing, or one is of another type or value than
 * docs/platform-objects.md says
 */
Display readDisplay(const MessageReader& message);

/**
 * Reads those members that are there into a display; the others stay as they are.
 *
 * @param message as for readDisplay()
 * @throws Failure where one is of another type or value; what the display is then, is not said
 */
void changeDisplay(const MessageReader& message, Display& display);

/** Adds every member of a display to the object that is being written. */
void writeDisplay(MessageWriter& message, const Display& display);

} // namespace tamobox

#endif
