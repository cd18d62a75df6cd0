// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PRIVATEROOT_H
#define TAMOBOX_PRIVATEROOT_H

#include <string>
#include <vector>

namespace tamobox {

/**
 * The bwrap command, up to and including `--`, that starts a program as process 1 in a root
 * directory which is the machine's own, entry by entry, with an empty `/pps` added.
 *
 * @throws Failure where bwrap is not installed
 */
std::vector<std::string> privateRootCommand();

/** Whether a box of the calling process takes a user namespace: it does, but for a full root. */
bool needsUserNamespace();

} // namespace tamobox

#endif
