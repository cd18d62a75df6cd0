// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_BOXENVIRONMENT_H
#define TAMOBOX_BOXENVIRONMENT_H

#include <string>
#include <vector>

namespace tamobox {

/** The variable that names the box which a program runs in. */
inline constexpr const char* boxVariable = "TAMO_BOX";

/** The variable in which tamo-box-init tells the services of a kept box the directory of its state.
 * Applications do not have it. */
inline constexpr const char* stateVariable = "TAMO_BOX_STATE";

/** This process's environment with boxVariable set: what a program in the box gets. */
std::vector<std::string> environmentInBox(const std::string& boxName);

/** This process's working directory; empty where it has been removed. */
std::string workingDirectory();

} // namespace tamobox

#endif
