// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_LEDTEXT_H
#define TAMOBOX_LEDTEXT_H

#include "LedState.h"

#include "pps/MessageReader.h"
#include "pps/MessageWriter.h"

namespace tamobox {

/** The object in which the service keeps what the LED does, below `/pps`. */
inline constexpr const char* ledObject = "box/led";

/** Adds the attributes of that object. */
void writeLed(MessageWriter& message, const LedState& state);

/** Reads what writeLed() wrote. A request without a client, a colour or a number of flashes is left
 * out. */
LedState readLed(const std::string& text);

} // namespace tamobox

#endif
