// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"
#include "ObjectName.h"
#include "Request.h"

#include <sys/stat.h>

#include <cerrno>

namespace ppsfs {
namespace {

constexpr mode_t PermissionBits = S_ISUID | S_ISGID | S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO;

/** Tells the kernel of a node that it looked up or created, and counts the lookup. */
void replyEntry(fuse_req_t request, const NodeTable::View& view)
{
    NodeTable& nodes = fileSystemOf(request).nodes();
    fuse_entry_param entry{};
    entry.ino = NodeTable::idOf(*view.node, view.options);
    entry.attr = FileSystem::attributesOf(*view.node);
    nodes.remember(view);
    if (fuse_reply_entry(request, &entry) != 0)
        nodes.forget(entry.ino, 1);
}

/** Finds what a name stands for. 0 or an `errno` value. */
int find(const Directory& directory, std::string_view name, NodeTable::View& view)
{
    ObjectName parsed;
    if (const int error = ObjectName::parse(name, parsed))
        return error;
    view = {directory.find(parsed.plain), parsed.options};
    if (!view.node)
        return isValidNodeName(parsed.plain) ? ENOENT : EINVAL;
    const bool optionsFit = parsed.options == 0 || dynamic_cast<const Object*>(view.node.get());
    return optionsFit ? 0 : EINVAL;
}

void lookUp(fuse_req_t request, fuse_ino_t parent, const char* name)
{
    const auto directory = directoryOf(request, parent);
    NodeTable::View view;
    if (const int error = directory ? find(*directory, name, view) : ENOTDIR)
        fuse_reply_err(request, error);
    else
        replyEntry(request, view);
}

void forget(fuse_req_t request, fuse_ino_t id, std::uint64_t lookups)
{
    fileSystemOf(request).nodes().forget(id, lookups);
    fuse_reply_none(request);
}

void getAttributes(fuse_req_t request, fuse_ino_t id, fuse_file_info*)
{
    const NodeTable::View* const view = fileSystemOf(request).nodes().find(id);
    if (!view) {
        fuse_reply_err(request, ESTALE);
        return;
    }
    const struct stat attributes = FileSystem::attributesOf(*view->node);
    fuse_reply_attr(request, &attributes, 0);
}

/** Truncates an open object, where that is what is asked for. 0 or an `errno` value. */
int truncate(int what, const struct stat& wanted, const fuse_file_info* file)
{
    if (!(what & FUSE_SET_ATTR_SIZE))
        return 0;
    if (!file || wanted.st_size != 0)
        return EINVAL;
    HandleTable<OpenFile>::of(file).truncate();
    return 0;
}

void setTime(timespec& time, int what, int toNow, int toGiven, const timespec& given)
{
    if (what & toNow)
        time = timeStamp();
    else if (what & toGiven)
        time = given;
}

void setAttributes(fuse_req_t request, fuse_ino_t id, struct stat* wanted, int what,
                   fuse_file_info* file)
{
    const NodeTable::View* const view = fileSystemOf(request).nodes().find(id);
    if (const int error = view ? truncate(what, *wanted, file) : ESTALE) {
        fuse_reply_err(request, error);
        return;
    }
    NodeStatus& status = view->node->status();
    if (what & FUSE_SET_ATTR_MODE)
        status.permissions = wanted->st_mode & PermissionBits;
    if (what & FUSE_SET_ATTR_UID)
        status.owner = wanted->st_uid;
    if (what & FUSE_SET_ATTR_GID)
        status.group = wanted->st_gid;
    setTime(status.accessed, what, FUSE_SET_ATTR_ATIME_NOW, FUSE_SET_ATTR_ATIME, wanted->st_atim);
    setTime(status.modified, what, FUSE_SET_ATTR_MTIME_NOW, FUSE_SET_ATTR_MTIME, wanted->st_mtim);
    status.changed = timeStamp();
    const struct stat attributes = FileSystem::attributesOf(*view->node);
    fuse_reply_attr(request, &attributes, 0);
}

void makeNode(fuse_req_t request, fuse_ino_t parent, const char* name, mode_t mode, dev_t)
{
    const auto directory = directoryOf(request, parent);
    ObjectName parsed;
    std::shared_ptr<Object> object;
    int error = directory ? ObjectName::parse(name, parsed) : ENOTDIR;
    if (!error && !S_ISREG(mode))
        error = EPERM;
    if (!error)
        error = fileSystemOf(request).store().createObject(*directory, parsed.plain,
                                                           statusOfNew(request, mode), object);
    if (error)
        fuse_reply_err(request, error);
    else
        replyEntry(request, {object, parsed.options});
}

void makeDirectory(fuse_req_t request, fuse_ino_t parent, const char* name, mode_t mode)
{
    const auto directory = directoryOf(request, parent);
    ObjectName parsed;
    std::shared_ptr<Directory> made;
    int error = directory ? ObjectName::parse(name, parsed) : ENOTDIR;
    if (!error && parsed.options != 0)
        error = EINVAL;
    if (!error)
        error = fileSystemOf(request).store().createDirectory(*directory, parsed.plain,
                                                              statusOfNew(request, mode), made);
    if (error)
        fuse_reply_err(request, error);
    else
        replyEntry(request, {made, 0});
}

using Removal = int (ObjectStore::*)(Directory&, std::string_view);

void remove(fuse_req_t request, fuse_ino_t parent, const char* name, Removal removal)
{
    const auto directory = directoryOf(request, parent);
    NodeTable::View view;
    int error = directory ? find(*directory, name, view) : ENOTDIR;
    if (!error)
        error = (fileSystemOf(request).store().*removal)(*directory, view.node->name());
    fuse_reply_err(request, error);
}

void removeObject(fuse_req_t request, fuse_ino_t parent, const char* name)
{
    remove(request, parent, name, &ObjectStore::removeObject);
}

void removeDirectory(fuse_req_t request, fuse_ino_t parent, const char* name)
{
    remove(request, parent, name, &ObjectStore::removeDirectory);
}

void refuseLink(fuse_req_t request, fuse_ino_t, fuse_ino_t, const char*)
{
    fuse_reply_err(request, EPERM);
}

void refuseSymbolicLink(fuse_req_t request, const char*, fuse_ino_t, const char*)
{
    fuse_reply_err(request, EPERM);
}

void refuseRename(fuse_req_t request, fuse_ino_t, const char*, fuse_ino_t, const char*, unsigned)
{
    fuse_reply_err(request, EPERM);
}

void statFileSystem(fuse_req_t request, fuse_ino_t)
{
    struct statvfs status
    {
    };
    status.f_bsize = status.f_frsize = 4096;
    status.f_files = fileSystemOf(request).store().nodes();
    status.f_namemax = limits::NameSize;
    fuse_reply_statfs(request, &status);
}

} // namespace

void addTreeOperations(fuse_lowlevel_ops& operations)
{
    operations.lookup = lookUp;
    operations.forget = forget;
    operations.getattr = getAttributes;
    operations.setattr = setAttributes;
    operations.mknod = makeNode;
    operations.mkdir = makeDirectory;
    operations.unlink = removeObject;
    operations.rmdir = removeDirectory;
    operations.link = refuseLink;
    operations.symlink = refuseSymbolicLink;
    operations.rename = refuseRename;
    operations.statfs = statFileSystem;
}

} // namespace ppsfs
