// SPDX-License-Identifier: Apache-2.0
#include "DescriptorTable.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace tamobox {

void fillStandardDescriptors()
{
    for (int fd = 0; fd <= 2; ++fd)
        if (fcntl(fd, F_GETFD) == -1)
            open("/dev/null", O_RDWR | O_CLOEXEC); // takes the lowest free number, which is fd
}

bool isFilledDescriptor(int fd)
{
    // What was inherited cannot have the flag.
    return (fcntl(fd, F_GETFD) & FD_CLOEXEC) != 0;
}

std::vector<int> openDescriptors()
{
    std::vector<int> numbers;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        numbers.push_back(std::stoi(entry.path().filename()));
    // The directory was listed through a descriptor that is closed again by now.
    const auto isClosed = [](int fd) { return fcntl(fd, F_GETFD) == -1; };
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(), isClosed), numbers.end());
    return numbers;
}

void closeAllDescriptorsBut(std::vector<int> kept)
{
    std::sort(kept.begin(), kept.end());
    unsigned first = 0;
    for (const int fd : kept) {
        if (fd < static_cast<int>(first))
            continue;
        if (fd > static_cast<int>(first))
            close_range(first, static_cast<unsigned>(fd) - 1, 0);
        first = static_cast<unsigned>(fd) + 1;
    }
    close_range(first, ~0U, 0);
}

void setInherited(int fd, bool inherited)
{
    if (fd != -1)
        fcntl(fd, F_SETFD, inherited ? 0 : FD_CLOEXEC);
}

} // namespace tamobox
