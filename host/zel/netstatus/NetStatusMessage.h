// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NETSTATUS_NETSTATUSMESSAGE_H
#define ZEL_NETSTATUS_NETSTATUSMESSAGE_H

#include "NetStatusEvent.h"

#include "core/ObjectWatch.h"

#include <memory>
#include <string>

namespace zel {

/**
 * Reads a message of the mailbox `services/network/events`.
 *
 * @param message is parsed in place
 * @param fault what is wrong with it, where it is no event
 * @return the event, or NULL
 */
std::unique_ptr<NetStatusEvent> readNetStatusMessage(ObjectMessage message, std::string& fault);

/**
 * Reads the text of the object `services/network/status`.
 *
 * @param message is parsed in place
 * @return 0, ENOMEM, or EBADMSG: it is no such object, or an attribute of it is malformed
 */
int readNetStatusObject(ObjectMessage message, NetworkState& state);

} // namespace zel

#endif
