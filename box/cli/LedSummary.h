// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDSUMMARY_H
#define TAMOBOX_LEDSUMMARY_H

#include "services/led/LedState.h"

#include <string>

namespace tamobox {

/** What `/pps` says of the LED, in the box that this process is in. Throws ObjectFailure. */
LedState publishedLed();

/** The LED in a few words, without a line end: is it lit, for whom, and how many wait. */
std::string ledSummary(const LedState& state);

/** The LED for people: its summary, and a line for each request that waits. */
std::string ledToText(const LedState& state);

/** An object of `lit` (the colour, or null), `shown` (the request, or null) and `waiting`. */
std::string ledToJson(const LedState& state);

} // namespace tamobox

#endif
