// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_DIRECTORYLISTING_H
#define PPSFS_DIRECTORYLISTING_H

#include "Directory.h"

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

namespace ppsfs {

/**
 * What an open directory held when it was last read from its beginning. Reading it takes several
 * requests, between which the directory may change; the listing does not.
 */
class DirectoryListing
{
public:
    struct Entry
    {
        std::string name;
        struct stat attributes;
    };

    explicit DirectoryListing(std::shared_ptr<Directory> directory);

    /** Looks into the directory again. */
    void refresh();

    /** The entries, `.` and `..` first. */
    const std::vector<Entry>& entries() const { return m_entries; }

private:
    const std::shared_ptr<Directory> m_directory;
    std::vector<Entry> m_entries;
};

} // namespace ppsfs

#endif
