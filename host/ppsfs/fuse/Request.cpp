// SPDX-License-Identifier: Apache-2.0
#include "Request.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>

namespace ppsfs {
namespace {

constexpr mode_t PermissionBits = S_ISUID | S_ISGID | S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO;

/** The process of a thread; the kernel's requests name threads. */
pid_t processOf(pid_t thread)
{
    // A thread that leads its process has the process's number. This asks without a look into
    // /proc.
    if (syscall(SYS_tgkill, thread, thread, 0) == 0 || errno != ESRCH)
        return thread;
    std::ifstream status("/proc/" + std::to_string(thread) + "/status");
    const std::string key = "Tgid:";
    for (std::string word; status >> word;) {
        pid_t process = 0;
        if (word == key && status >> process)
            return process;
    }
    return thread;
}

} // namespace

FileSystem& fileSystemOf(fuse_req_t request)
{
    return *static_cast<FileSystem*>(fuse_req_userdata(request));
}

std::shared_ptr<Directory> directoryOf(fuse_req_t request, fuse_ino_t id)
{
    const NodeTable::View* const view = fileSystemOf(request).nodes().find(id);
    return view ? std::dynamic_pointer_cast<Directory>(view->node) : nullptr;
}

NodeStatus statusOfNew(fuse_req_t request, mode_t mode)
{
    const fuse_ctx* const context = fuse_req_ctx(request);
    const timespec now = timeStamp();
    return {context->uid, context->gid, mode & PermissionBits, now, now, now};
}

Opener openerOf(fuse_req_t request)
{
    const fuse_ctx* const context = fuse_req_ctx(request);
    return {processOf(context->pid), context->uid, context->gid};
}

} // namespace ppsfs
