// SPDX-License-Identifier: Apache-2.0
#include "DirectoryListing.h"

#include "FileSystem.h"

#include <utility>

namespace ppsfs {

DirectoryListing::DirectoryListing(std::shared_ptr<Directory> directory)
    : m_directory(std::move(directory))
{
}

void DirectoryListing::refresh()
{
    m_entries.clear();
    const struct stat own = FileSystem::attributesOf(*m_directory);
    m_entries.push_back({".", own});
    m_entries.push_back({"..", own}); // the kernel knows the parent; its number is not used
    for (const auto& [name, node] : m_directory->children())
        m_entries.push_back({name, FileSystem::attributesOf(*node)});
}

} // namespace ppsfs
