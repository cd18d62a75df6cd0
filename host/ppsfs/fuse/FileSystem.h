// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_FILESYSTEM_H
#define PPSFS_FILESYSTEM_H

#include "DirectoryListing.h"
#include "ExpectedRequests.h"
#include "FuseApi.h"
#include "HandleTable.h"
#include "NodeTable.h"
#include "ObjectStore.h"
#include "OpenFile.h"
#include "WakeList.h"

namespace ppsfs {

/** What the kernel's requests work on: the store, and what the kernel knows and has open of it. */
class FileSystem
{
public:
    /** An empty filesystem, whose root directory belongs to the calling process's user. */
    FileSystem();

    ObjectStore& store() { return m_store; }
    NodeTable& nodes() { return m_nodes; }
    WakeList& wakeList() { return m_wakeList; }
    ExpectedRequests& expected() { return m_expected; }

    /** The objects that are open. To close them is to answer every read that still waits. */
    HandleTable<OpenFile>& files() { return m_files; }

    /** The directories that are open. */
    HandleTable<DirectoryListing>& listings() { return m_listings; }

    /** The attributes of a node, as stat() tells them; they are the same in all its views. */
    static struct stat attributesOf(const Node& node);

private:
    ObjectStore m_store;
    NodeTable m_nodes;
    WakeList m_wakeList;
    ExpectedRequests m_expected;
    HandleTable<OpenFile> m_files;
    HandleTable<DirectoryListing> m_listings;
};

/** The operations on names and attributes, put into the library's table. */
void addTreeOperations(fuse_lowlevel_ops& operations);

/** The operations on open objects, put into the library's table. */
void addFileOperations(fuse_lowlevel_ops& operations);

/** The operations on open directories, put into the library's table. */
void addDirectoryOperations(fuse_lowlevel_ops& operations);

} // namespace ppsfs

#endif
