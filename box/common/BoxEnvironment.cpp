// SPDX-License-Identifier: Apache-2.0
#include "BoxEnvironment.h"

#include <unistd.h>

#include <filesystem>

namespace tamobox {

std::vector<std::string> environmentInBox(const std::string& boxName)
{
    const std::string assignment = std::string(boxVariable) + '=';
    std::vector<std::string> environment;
    for (char** entry = environ; *entry != nullptr; ++entry)
        if (std::string(*entry).rfind(assignment, 0) != 0)
            environment.emplace_back(*entry);
    environment.push_back(assignment + boxName);
    return environment;
}

std::string workingDirectory()
{
    std::error_code removed;
    return std::filesystem::current_path(removed);
}

} // namespace tamobox
