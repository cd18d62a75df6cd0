// SPDX-License-Identifier: Apache-2.0
#include "ObjectName.h"
#include "Request.h"

#include <fcntl.h>
#include <linux/fuse.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace ppsfs {
namespace {

/**
 * How the kernel treats an open object: it keeps none of it, has no position in it, so that a
 * reader that waits on a descriptor does not keep a writer off it, and does not ask when it is
 * closed.
 */
constexpr std::uint32_t OpenFlags =
    FOPEN_DIRECT_IO | FOPEN_STREAM | FOPEN_NOFLUSH | FOPEN_PARALLEL_DIRECT_WRITES;

using Files = HandleTable<OpenFile>;

OpenMode openModeOf(OpenOptions options, int flags)
{
    const int access = flags & O_ACCMODE;
    return {options, access == O_RDONLY || access == O_RDWR, access == O_WRONLY || access == O_RDWR,
            (flags & O_TRUNC) != 0};
}

fuse_open_out openReply(std::uint64_t file)
{
    fuse_open_out reply{};
    reply.fh = file;
    reply.open_flags = OpenFlags;
    return reply;
}

void open(fuse_req_t request, fuse_ino_t id, fuse_file_info* info)
{
    FileSystem& fileSystem = fileSystemOf(request);
    const NodeTable::View* const view = fileSystem.nodes().find(id);
    auto object = view ? std::dynamic_pointer_cast<Object>(view->node) : nullptr;
    auto opened = std::make_unique<OpenFile>(fileSystem.wakeList(), fileSystem.expected());
    const int error = object
                          ? opened->open(std::move(object), openModeOf(view->options, info->flags),
                                         openerOf(request))
                          : ESTALE;
    if (error) {
        fuse_reply_err(request, error);
        return;
    }
    const std::uint64_t file = fileSystem.files().keep(std::move(opened));
    // By hand: the library's own reply does not know files without a position.
    const fuse_open_out reply = openReply(file);
    if (fuse_reply_buf(request, reinterpret_cast<const char*>(&reply), sizeof reply) != 0)
        fileSystem.files().release(file);
}

/** The library's attributes in the kernel's own structure. */
fuse_attr kernelAttributes(const struct stat& attributes)
{
    fuse_attr kernel{};
    kernel.ino = attributes.st_ino;
    kernel.size = static_cast<std::uint64_t>(attributes.st_size);
    kernel.blocks = static_cast<std::uint64_t>(attributes.st_blocks);
    kernel.atime = static_cast<std::uint64_t>(attributes.st_atim.tv_sec);
    kernel.mtime = static_cast<std::uint64_t>(attributes.st_mtim.tv_sec);
    kernel.ctime = static_cast<std::uint64_t>(attributes.st_ctim.tv_sec);
    kernel.atimensec = static_cast<std::uint32_t>(attributes.st_atim.tv_nsec);
    kernel.mtimensec = static_cast<std::uint32_t>(attributes.st_mtim.tv_nsec);
    kernel.ctimensec = static_cast<std::uint32_t>(attributes.st_ctim.tv_nsec);
    kernel.mode = attributes.st_mode;
    kernel.nlink = static_cast<std::uint32_t>(attributes.st_nlink);
    kernel.uid = attributes.st_uid;
    kernel.gid = attributes.st_gid;
    kernel.blksize = static_cast<std::uint32_t>(attributes.st_blksize);
    return kernel;
}

/** Finds or makes the object, and opens it. 0 or an `errno` value. */
int createAndOpen(fuse_req_t request, Directory& directory, const char* name, mode_t mode,
                  int flags, OpenFile& file, NodeTable::View& view)
{
    ObjectName parsed;
    if (const int error = ObjectName::parse(name, parsed))
        return error;
    const OpenMode openMode = openModeOf(parsed.options, flags);
    if (const int error = openMode.check())
        return error;
    std::shared_ptr<Object> object;
    if (const int error = fileSystemOf(request).store().createObject(
            directory, parsed.plain, statusOfNew(request, mode), object))
        return error;
    view = {object, parsed.options};
    return file.open(std::move(object), openMode, openerOf(request));
}

void create(fuse_req_t request, fuse_ino_t parent, const char* name, mode_t mode,
            fuse_file_info* info)
{
    FileSystem& fileSystem = fileSystemOf(request);
    const auto directory = directoryOf(request, parent);
    auto opened = std::make_unique<OpenFile>(fileSystem.wakeList(), fileSystem.expected());
    NodeTable::View view;
    const int error =
        directory ? createAndOpen(request, *directory, name, mode, info->flags, *opened, view)
                  : ENOTDIR;
    if (error) {
        fuse_reply_err(request, error);
        return;
    }
    const std::uint64_t file = fileSystem.files().keep(std::move(opened));
    struct
    {
        fuse_entry_out entry;
        fuse_open_out open;
    } reply{};
    reply.entry.nodeid = NodeTable::idOf(*view.node, view.options);
    reply.entry.attr = kernelAttributes(FileSystem::attributesOf(*view.node));
    reply.open = openReply(file);
    fileSystem.nodes().remember(view);
    if (fuse_reply_buf(request, reinterpret_cast<const char*>(&reply), sizeof reply) != 0) {
        fileSystem.nodes().forget(reply.entry.nodeid, 1);
        fileSystem.files().release(file);
    }
}

void read(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info)
{
    // There is no position: what does not begin at 0 goes on with a read that the kernel has split,
    // and whose first part was filled to the last byte by a whole message.
    if (offset != 0)
        fuse_reply_buf(request, nullptr, 0);
    else
        Files::of(info).read(request, size, (info->flags & O_NONBLOCK) != 0);
}

void write(fuse_req_t request, fuse_ino_t, const char* data, std::size_t size, off_t offset,
           fuse_file_info* info)
{
    // Likewise for a write; under O_APPEND the kernel counts from the end that it believes in.
    const bool continues = offset != 0 && !(info->flags & O_APPEND);
    const int error = continues ? EFBIG : Files::of(info).write({data, size});
    if (error) {
        fuse_reply_err(request, error);
        return;
    }
    // The server wakes the subscribers after this reply. Woken before it, the publisher would come
    // between a subscriber and the message that it is about to ask for.
    fuse_reply_write(request, size);
}

void poll(fuse_req_t request, fuse_ino_t, fuse_file_info* info, fuse_pollhandle* notification)
{
    Files::of(info).poll(request, notification);
}

void release(fuse_req_t request, fuse_ino_t, fuse_file_info* info)
{
    fileSystemOf(request).files().release(info->fh);
    fuse_reply_err(request, 0);
}

} // namespace

void addFileOperations(fuse_lowlevel_ops& operations)
{
    operations.open = open;
    operations.create = create;
    operations.read = read;
    operations.write = write;
    operations.poll = poll;
    operations.release = release;
}

} // namespace ppsfs
