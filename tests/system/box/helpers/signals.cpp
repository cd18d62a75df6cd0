// SPDX-License-Identifier: Apache-2.0
// tamo-test-signals: prints "started", and then the name of each signal that it gets; SIGTERM ends
// it with 3.
#include <signal.h>
#include <string.h>

#include <cstdio>
#include <initializer_list>

int main()
{
    sigset_t expected;
    sigemptyset(&expected);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGUSR1, SIGUSR2, SIGTERM, SIGWINCH, SIGCONT})
        sigaddset(&expected, signal);
    sigprocmask(SIG_BLOCK, &expected, nullptr);
    std::puts("started");
    for (int signal = 0; signal != SIGTERM;) {
        std::fflush(stdout);
        sigwait(&expected, &signal);
        std::puts(sigabbrev_np(signal));
    }
    return 3;
}
