// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DISPLAYTEXT_H
#define TAMOBOX_DISPLAYTEXT_H

#include "services/display/DisplayList.h"

#include <string>

namespace tamobox {

/** All displays, a line for each, under a line of headings. */
std::string displayTable(const DisplayList& list);

/** A display in a few words. */
std::string displaySummary(const Display& display);

/** A display: an object with the members that it has in the published one. */
std::string displayToJson(const Display& display);

/** All displays: an array of objects with the members that the published object has. */
std::string displaysToJson(const DisplayList& list);

} // namespace tamobox

#endif
