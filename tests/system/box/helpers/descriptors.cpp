// SPDX-License-Identifier: Apache-2.0
// tamo-test-descriptors: prints the numbers of its open descriptors, in one line.
#include <fcntl.h>

#include <cstdio>

int main()
{
    bool open[1024];
    for (int fd = 0; fd < 1024; ++fd)
        open[fd] = fcntl(fd, F_GETFD) != -1;
    for (int fd = 0; fd < 1024; ++fd)
        if (open[fd])
            std::printf("%d ", fd);
    std::puts("");
    return 0;
}
