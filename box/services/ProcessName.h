// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOBOX_PROCESSNAME_H
#define TAMOBOX_PROCESSNAME_H

#include <sys/types.h>

#include <string>

namespace tamobox {

/** The name of a process, without control characters; empty where it cannot be seen. */
std::string processName(pid_t process);

} // namespace tamobox

#endif
