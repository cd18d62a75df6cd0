// SPDX-License-Identifier: Apache-2.0
#ifndef BOXTEST_PROCESSTABLE_H
#define BOXTEST_PROCESSTABLE_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace boxtest {

/** The processes of the machine, without zombies. */
std::vector<pid_t> allProcesses();

std::vector<pid_t> childrenOf(pid_t parent);

/** The number of the process namespace that a process is in; 0 where it is not known. */
ino_t processNamespaceOf(pid_t process);

std::vector<pid_t> processesIn(ino_t processNamespace);

/** The name of the program that a process executes, as the kernel keeps it: at most 15 bytes. */
std::string programOf(pid_t process);

/** The value of a field of `/proc/PID/status`, such as `CapEff`; empty where it has gone. */
std::string statusField(const std::string& process, const std::string& field);

} // namespace boxtest

#endif
