// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_KEPTSTATE_H
#define TAMOBOX_KEPTSTATE_H

#include <string>

namespace tamobox {

/**
 * The directory in which a kept box of this user has its state, made where it is not there:
 * `tamo-box/NAME` in `XDG_STATE_HOME`, or else in `.local/state` of `HOME`, for the user alone.
 *
 * @throws Failure where there can be none
 */
std::string keptStateDirectory(const std::string& boxName);

} // namespace tamobox

#endif
