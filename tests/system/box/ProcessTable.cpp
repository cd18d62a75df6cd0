// SPDX-License-Identifier: Apache-2.0
#include "ProcessTable.h"

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace boxtest {

std::vector<pid_t> allProcesses()
{
    std::vector<pid_t> processes;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") == std::string::npos &&
            statusField(name, "State").rfind('Z', 0) != 0)
            processes.push_back(std::atoi(name.c_str()));
    }
    return processes;
}

std::vector<pid_t> childrenOf(pid_t parent)
{
    std::vector<pid_t> children;
    for (const pid_t process : allProcesses())
        if (statusField(std::to_string(process), "PPid") == std::to_string(parent))
            children.push_back(process);
    return children;
}

ino_t processNamespaceOf(pid_t process)
{
    struct stat status = {};
    const std::string path = "/proc/" + std::to_string(process) + "/ns/pid";
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

std::vector<pid_t> processesIn(ino_t processNamespace)
{
    std::vector<pid_t> processes;
    for (const pid_t process : allProcesses())
        if (processNamespaceOf(process) == processNamespace)
            processes.push_back(process);
    return processes;
}

std::string programOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/comm");
    std::string name;
    std::getline(file, name);
    return name;
}

std::string statusField(const std::string& process, const std::string& field)
{
    std::ifstream file("/proc/" + process + "/status");
    for (std::string line; std::getline(file, line);)
        if (line.rfind(field + ':', 0) == 0)
            return line.substr(line.find_first_not_of(" \t", field.size() + 1));
    return {};
}

} // namespace boxtest
