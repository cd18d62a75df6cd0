// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_OBJECTCREATION_H
#define TAMOBOX_OBJECTCREATION_H

#include "services/ServiceTable.h"

namespace tamobox {

/**
 * Creates an object of a service, unpublished, with the directories that lead to it (mode 0755).
 * What is there already stays as it is.
 *
 * @throws Failure
 */
void createObject(const ServiceObject& object);

} // namespace tamobox

#endif
