// SPDX-License-Identifier: Apache-2.0
#include "KeptState.h"

#include "common/Descriptor.h"
#include "common/DirectorySync.h"
#include "common/Failure.h"
#include "services/Complaints.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tamobox {

namespace {

constexpr mode_t forTheUserAlone = 0700;

std::string stateHome()
{
    const char* const given = std::getenv("XDG_STATE_HOME");
    if (given != nullptr && *given != '\0') {
        if (*given != '/')
            throw Failure("XDG_STATE_HOME must be an absolute path; it is '" + std::string(given) +
                          "'");
        return given;
    }
    const char* const home = std::getenv("HOME");
    if (home == nullptr || *home != '/')
        throw Failure("there is no place for a kept box: set HOME or XDG_STATE_HOME to an absolute "
                      "path");
    return std::string(home) + "/.local/state";
}

// A directory that a crash of the machine takes away takes what was kept in it along.
void syncParent(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    try {
        syncDirectory(slash == 0 ? "/" : path.substr(0, slash));
    } catch (const Failure& failure) {
        Complaints::write(std::string("a crash of the machine may lose what is kept: ") +
                          failure.what());
    }
}

void makeDirectory(const std::string& path)
{
    for (std::size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string part = path.substr(0, slash);
        if (mkdir(part.c_str(), forTheUserAlone) == 0)
            syncParent(part);
        else if (errno != EEXIST)
            throw systemFailure("cannot create " + part);
        if (slash == std::string::npos)
            return;
    }
}

} // namespace

std::string keptStateDirectory(const std::string& boxName)
{
    std::string path = stateHome() + "/tamo-box/" + boxName;
    makeDirectory(path);
    const Descriptor directory(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!directory || fstat(directory.get(), &status) == -1)
        throw systemFailure("cannot open " + path);
    if (status.st_uid != geteuid())
        throw Failure(path + " belongs to user " + std::to_string(status.st_uid));
    if ((status.st_mode & 07777) != forTheUserAlone &&
        fchmod(directory.get(), forTheUserAlone) == -1)
        throw systemFailure("cannot keep others out of " + path);
    return path;
}

} // namespace tamobox
