// SPDX-License-Identifier: Apache-2.0
#ifndef ZEL_NAVIGATOR_NAVIGATORMESSAGE_H
#define ZEL_NAVIGATOR_NAVIGATORMESSAGE_H

#include "NavigatorEvent.h"

#include "core/ObjectWatch.h"

#include <memory>
#include <string>

namespace zel {

/**
 * Reads a message of the mailbox `services/navigator/events`.
 *
 * @param message is parsed in place
 * @param fault what is wrong with it, where it is no event
 * @return the event, or NULL
 */
std::unique_ptr<NavigatorEvent> readNavigatorMessage(ObjectMessage message, std::string& fault);

} // namespace zel

#endif
