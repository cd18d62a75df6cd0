// SPDX-License-Identifier: Apache-2.0
#include "BoxEntrance.h"

#include "common/BoxEnvironment.h"
#include "common/BoxSocket.h"
#include "common/Capabilities.h"
#include "common/Failure.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tamobox {

namespace {

std::string chooseBox()
{
    if (const char* const own = std::getenv(boxVariable))
        return own;
    std::string names;
    int count = 0;
    for (const RunningBox& box : boxsocket::running()) {
        if (box.user != getuid())
            continue;
        names += (count == 0 ? "" : ", ") + box.name;
        ++count;
    }
    if (count == 0)
        throw Failure("no box is running; start one with 'tamo-box run -- APPLICATION'");
    if (count > 1)
        throw Failure("several boxes are running (" + names + "); choose one with --box NAME");
    return names;
}

bool isTheSame(const Descriptor& opened, const char* path)
{
    struct stat other = {};
    struct stat own = {};
    return fstat(opened.get(), &other) == 0 && stat(path, &own) == 0 &&
           own.st_dev == other.st_dev && own.st_ino == other.st_ino;
}

Failure cannotEnter(const std::string& box)
{
    return Failure("the box '" + box + "' cannot be entered from here (" + errorText(errno) +
                   "); use a shell outside any box, of the same user");
}

void enterNamespace(const Descriptor& space, int type, const char* ownPath, const std::string& box)
{
    if (isTheSame(space, ownPath) || setns(space.get(), type) == 0)
        return;
    throw cannotEnter(box);
}

// A namespace of mounts is entered at the root that it was made with, and that is not the box's
// where the box was started from within a chroot.
void enterRoot(const Descriptor& directory, const std::string& box)
{
    if (!isTheSame(directory, "/") && (fchdir(directory.get()) == -1 || chroot(".") == -1))
        throw cannotEnter(box);
}

} // namespace

EnteredBox enterBox(const std::string& requestedName, Depth depth)
{
    EnteredBox box;
    box.name = requestedName.empty() ? chooseBox() : requestedName;
    if (!boxsocket::isName(box.name))
        throw Failure("'" + box.name + "' is no name for a box");
    BoxIntroduction introduction = boxsocket::connect(box.name);
    box.status = std::move(introduction.status);

    // Who enters a user namespace gets every capability in it, on the way only.
    const CapabilitySet capabilities = permittedCapabilities();
    enterNamespace(introduction.userNamespace, CLONE_NEWUSER, "/proc/self/ns/user", box.name);
    if (depth == Depth::Processes)
        enterNamespace(introduction.processNamespace, CLONE_NEWPID,
                       "/proc/self/ns/pid_for_children", box.name);
    enterNamespace(introduction.mountNamespace, CLONE_NEWNS, "/proc/self/ns/mnt", box.name);
    enterRoot(introduction.rootDirectory, box.name);
    if (!restrictCapabilities(capabilities))
        throw systemFailure("cannot give up the capabilities that entering took");
    // Until the command ends, so that it may read what it was answered, though that made the box
    // end. What runs in the box ends with it anyway.
    static Descriptor presence;
    if (depth == Depth::Files)
        presence = std::move(introduction.connection);
    return box;
}

} // namespace tamobox
