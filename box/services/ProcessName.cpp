// SPDX-License-Identifier: Apache-2.0
#include "ProcessName.h"

#include <unistd.h>

#include <fstream>

namespace tamobox {

namespace {

// Where the box could not mount its own, /proc shows the machine's process ids.
bool procIsTheBoxes()
{
    char target[32] = {};
    const ssize_t size = readlink("/proc/self", target, sizeof target - 1);
    return size > 0 && std::to_string(getpid()) == target;
}

} // namespace

std::string processName(pid_t process)
{
    std::string name;
    if (!procIsTheBoxes())
        return name;
    std::ifstream file("/proc/" + std::to_string(process) + "/comm", std::ios::binary);
    std::getline(file, name);
    for (char& c : name)
        c = c >= ' ' && c < '\x7f' ? c : '?';
    return name;
}

} // namespace tamobox
