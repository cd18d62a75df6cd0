// SPDX-License-Identifier: Apache-2.0
#include "Request.h"

#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <vector>

namespace ppsfs {
namespace {

/** What an open directory held when it was last read from its beginning. */
struct Listing
{
    struct Entry
    {
        std::string name;
        struct stat attributes; ///< only the number and the kind are asked for
    };

    std::shared_ptr<Directory> directory;
    std::vector<Entry> entries;

    void refresh()
    {
        entries.clear();
        const struct stat own = FileSystem::attributesOf(*directory);
        entries.push_back({".", own});
        entries.push_back({"..", own});
        for (const auto& [name, node] : directory->children())
            entries.push_back({name, FileSystem::attributesOf(*node)});
    }
};

Listing* listingOf(const fuse_file_info* info)
{
    return reinterpret_cast<Listing*>(info->fh);
}

void open(fuse_req_t request, fuse_ino_t id, fuse_file_info* info)
{
    auto directory = directoryOf(request, id);
    if (!directory) {
        fuse_reply_err(request, ENOTDIR);
        return;
    }
    auto listing = std::make_unique<Listing>();
    listing->directory = std::move(directory);
    info->fh = reinterpret_cast<std::uintptr_t>(listing.get());
    if (fuse_reply_open(request, info) == 0)
        static_cast<void>(listing.release()); // the kernel's until it says that it is closed
}

void read(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info* info)
{
    Listing& listing = *listingOf(info);
    if (offset == 0)
        listing.refresh();
    std::vector<char> buffer(size);
    std::size_t used = 0;
    for (auto i = static_cast<std::size_t>(offset); i < listing.entries.size(); ++i) {
        const Listing::Entry& entry = listing.entries[i];
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
    delete listingOf(info);
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
