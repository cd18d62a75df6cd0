// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_OBJECTCREATION_H
#define TAMOBOX_OBJECTCREATION_H

#include <sys/types.h>

#include <string>

namespace tamobox {

/**
 * Creates an object, unpublished, with the directories that lead to it (mode 0755). What is there
 * already stays as it is.
 *
 * @param object see objectPath()
 * @param mode exactly: the `umask` takes nothing away
 * @throws Failure
 */
void createObject(const std::string& object, mode_t mode);

} // namespace tamobox

#endif
