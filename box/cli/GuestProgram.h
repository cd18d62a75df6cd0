// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_GUESTPROGRAM_H
#define TAMOBOX_GUESTPROGRAM_H

#include <string>
#include <vector>

namespace tamobox {

/**
 * Runs a program in a box beside the application, with the caller's terminal, streams, working
 * directory and environment, and passes on signals that are sent to this process, which must not
 * have threads.
 *
 * @param boxName see enterBox()
 * @return the program's exit status, see status
 * @throws Failure where it could not be run, with the status that says why
 */
int runGuest(const std::string& boxName, const std::vector<std::string>& command);

} // namespace tamobox

#endif
