// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_MESSAGEJSON_H
#define TAMOBOX_MESSAGEJSON_H

#include "pps/MessageReader.h"

#include <string>

namespace tamobox {

/**
 * A PPS message as one line of JSON: an object whose members are the message's objects under their
 * lines
 * (`@battery`), each an object of its attributes. What has been deleted is a member `-NAME` that is
 * null.
 *
 * @throws Failure where the message is malformed
 */
std::string messageToJson(const std::string& message);

/** The members of the object in which the reader stands, as an object on one line. */
std::string membersToJson(MessageReader& reader);

} // namespace tamobox

#endif
