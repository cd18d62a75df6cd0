// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_CHOICESEARCH_H
#define TAMOBOX_CHOICESEARCH_H

#include "Notification.h"

namespace tamobox {

/**
 * The choice of a notification that a person means.
 *
 * @param label as it stands; nothing: any
 * @param choiceId the whole of its id, or as much from its beginning as no other has; nothing: any
 * @return its index, from 0
 * @throws Failure where there is none, or more than one
 */
std::size_t findChoice(const Notification& notification, const std::optional<std::string>& label,
                       const std::optional<std::string>& choiceId);

} // namespace tamobox

#endif
