// SPDX-License-Identifier: Apache-2.0
#include "DirectoryListing.h"
#include "Request.h"

#include <cerrno>
#include <utility>
#include <vector>

namespace ppsfs {
namespace {

using Listings = HandleTable<DirectoryListing>;

void open(fuse_req_t request, fuse_ino_t id, fuse_file_info* info)
{
    auto directory = directoryOf(request, id);
    if (!directory) {
        fuse_reply_err(request, ENOTDIR);
        return;
    }
    Listings& listings = fileSystemOf(request).listings();
    info->fh = listings.keep(std::make_unique<DirectoryListing>(std::move(directory)));
    if (fuse_reply_open(request, info) != 0)
        listings.release(info->fh);
}

void read(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info)
{
    DirectoryListing& listing = Listings::of(info);
    if (offset == 0)
        listing.refresh();
    std::vector<char> buffer(size);
    std::size_t used = 0;
    for (auto i = static_cast<std::size_t>(offset); i < listing.entries().size(); ++i) {
        const DirectoryListing::Entry& entry = listing.entries()[i];
        const std::size_t length =
            fuse_add_direntry(request, buffer.data() + used, size - used, entry.name.c_str(),
                              &entry.attributes, static_cast<off_t>(i + 1));
        if (length > size - used)
            break;
        used += length;
    }
    fuse_reply_buf(request, buffer.data(), used);
}

void release(fuse_req_t request, fuse_ino_t, fuse_file_info* info)
{
    fileSystemOf(request).listings().release(info->fh);
    fuse_reply_err(request, 0);
}

} // namespace

void addDirectoryOperations(fuse_lowlevel_ops& operations)
{
    operations.opendir = open;
    operations.readdir = read;
    operations.releasedir = release;
}

} // namespace ppsfs
