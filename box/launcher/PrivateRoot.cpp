// SPDX-License-Identifier: Apache-2.0
#include "PrivateRoot.h"

#include "common/Capabilities.h"
#include "common/Failure.h"
#include "common/Program.h"

#include <unistd.h>

#include <filesystem>

namespace tamobox {

namespace {

namespace fs = std::filesystem;

void append(std::vector<std::string>& command, std::initializer_list<std::string> arguments)
{
    command.insert(command.end(), arguments);
}

} // namespace

bool needsUserNamespace()
{
    return geteuid() != 0 || !mayAdministerSystem();
}

std::vector<std::string> privateRootCommand()
{
    const std::string bwrap = findInPath("bwrap");
    if (bwrap.empty())
        throw Failure("bwrap is not installed; 'sudo apt-get install bubblewrap' does that",
                      status::boxFailed);
    std::vector<std::string> command = {bwrap, "--unshare-pid", "--as-pid-1", "--die-with-parent"};
    if (needsUserNamespace()) {
        // Mounting takes one capability; a root that has lost some keeps the others that it has,
        // and tamo-box-init takes away from the rest what the launcher did not have.
        append(command, {"--unshare-user", "--cap-add", geteuid() == 0 ? "ALL" : "CAP_SYS_ADMIN"});
    }
    for (const fs::directory_entry& entry : fs::directory_iterator("/")) {
        const std::string path = entry.path();
        if (path == "/pps")
            continue;
        if (entry.is_symlink())
            append(command, {"--symlink", fs::read_symlink(path), path});
        else // "dev": device files stay usable; "try": an entry may vanish meanwhile
            append(command, {"--dev-bind-try", path, path});
    }
    // Read-only: what a program writes to / itself must fail, and not vanish with the box.
    append(command, {"--dir", "/pps", "--remount-ro", "/", "--"});
    return command;
}

} // namespace tamobox
