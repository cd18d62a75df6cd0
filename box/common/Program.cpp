// SPDX-License-Identifier: Apache-2.0
#include "Program.h"

#include "Failure.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace tamobox {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> searchPath()
{
    const char* const path = std::getenv("PATH");
    std::istringstream text(path == nullptr ? "/bin:/usr/bin" : path);
    std::vector<fs::path> directories;
    for (std::string directory; std::getline(text, directory, ':');)
        directories.emplace_back(directory.empty() ? "." : directory);
    return directories;
}

// execvp() says "permission denied" as soon as one directory of PATH may not be searched.
bool isNowhereInPath(const std::string& name)
{
    std::error_code ignored;
    for (const fs::path& directory : searchPath())
        if (fs::exists(directory / name, ignored))
            return false;
    return name.find('/') == std::string::npos;
}

bool isExecutable(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_regular_file(path, ignored) && access(path.c_str(), X_OK) == 0;
}

} // namespace

std::string findOwnProgram(const std::string& name)
{
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error).parent_path();
    const fs::path places[] = {own, own / TAMO_FROM_BIN_TO_LIBEXEC, own / TAMO_FROM_LIBEXEC_TO_BIN};
    for (const fs::path& place : places)
        if (isExecutable(place / name))
            return (place / name).lexically_normal();
    throw Failure("the program " + name + " is missing beside " + own.string() +
                  "; build or install all of tamo");
}

std::string findInPath(const std::string& name)
{
    for (const fs::path& directory : searchPath())
        if (isExecutable(directory / name))
            return directory / name;
    return {};
}

int executeProgram(const std::vector<std::string>& arguments)
{
    std::vector<char*> pointers;
    for (const std::string& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str())); // execvp() does not change them
    pointers.push_back(nullptr);
    execvp(pointers[0], pointers.data());
    return errno == EACCES && isNowhereInPath(arguments[0]) ? ENOENT : errno;
}

int statusForExecuteError(int error)
{
    return error == ENOENT || error == ENOTDIR ? status::notFound : status::notExecutable;
}

std::string textForExecuteError(const std::string& program, int error)
{
    return "cannot run '" + program + "': " + errorText(error);
}

int statusForWaitResult(int waitResult)
{
    return WIFSIGNALED(waitResult) ? status::signalBase + WTERMSIG(waitResult)
                                   : WEXITSTATUS(waitResult);
}

std::string textForWaitResult(int waitResult)
{
    return WIFSIGNALED(waitResult)
               ? "ended by signal " + std::to_string(WTERMSIG(waitResult))
               : "exited with status " + std::to_string(WEXITSTATUS(waitResult));
}

} // namespace tamobox
