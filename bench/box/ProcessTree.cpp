// SPDX-License-Identifier: Apache-2.0
#include "ProcessTree.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace tamobench {

namespace {

/** A process's parent as /proc tells it; 0 where the process has gone. */
pid_t parentOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    // The name stands in parentheses and may hold anything, parentheses too.
    const std::size_t nameEnd = text.rfind(')');
    if (nameEnd == std::string::npos)
        return 0;
    std::istringstream fields(text.substr(nameEnd + 1));
    std::string state;
    pid_t parent = 0;
    fields >> state >> parent;
    return parent;
}

ProcessMemory memoryOf(pid_t process)
{
    const std::string directory = "/proc/" + std::to_string(process);
    ProcessMemory memory;
    std::getline(std::ifstream(directory + "/comm"), memory.name);
    std::ifstream file(directory + "/smaps_rollup");
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("Rss:", 0) == 0)
            memory.resident = std::stod(line.substr(4));
        else if (line.rfind("Pss:", 0) == 0)
            memory.proportional = std::stod(line.substr(4));
    }
    return memory;
}

} // namespace

std::vector<ProcessMemory> memoryOfTree(pid_t root)
{
    std::multimap<pid_t, pid_t> children;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const auto process = static_cast<pid_t>(std::atoi(entry.path().filename().c_str()));
        if (process > 0)
            children.emplace(parentOf(process), process);
    }
    std::vector<pid_t> tree = {root};
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const auto [first, last] = children.equal_range(tree[i]);
        for (auto child = first; child != last; ++child)
            tree.push_back(child->second);
    }
    std::vector<ProcessMemory> memories;
    for (const pid_t process : tree)
        memories.push_back(memoryOf(process));
    return memories;
}

} // namespace tamobench
