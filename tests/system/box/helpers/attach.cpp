// SPDX-License-Identifier: Apache-2.0
// tamo-test-attach PID: attaches to a process as a debugger does, and lets it go; 0 where that
// works.
#include <sys/ptrace.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

int main(int, char** argv)
{
    const pid_t pid = std::atoi(argv[1]);
    if (ptrace(PTRACE_ATTACH, pid, nullptr, nullptr) == -1 || waitpid(pid, nullptr, __WALL) == -1 ||
        ptrace(PTRACE_DETACH, pid, nullptr, nullptr) == -1) {
        std::perror("attach");
        return 1;
    }
    return 0;
}
