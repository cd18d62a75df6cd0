// SPDX-License-Identifier: Apache-2.0
// tamo-test-idle: prints "started" and waits for whatever ends it.
#include <unistd.h>

#include <cstdio>

int main()
{
    std::puts("started");
    std::fflush(stdout);
    for (;;)
        pause();
}
