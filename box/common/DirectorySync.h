// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_DIRECTORYSYNC_H
#define TAMOBOX_DIRECTORYSYNC_H

#include <string>

namespace tamobox {

/** Returns when what a directory lists is on the disk. Throws Failure where that is not known. */
void syncDirectory(const std::string& path);

} // namespace tamobox

#endif
