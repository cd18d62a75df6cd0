// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_FILESYSTEM_H
#define PPSFS_FILESYSTEM_H

#include "FuseApi.h"
#include "NodeTable.h"
#include "ObjectStore.h"
#include "OpenFile.h"
#include "WakeList.h"

#include <memory>
#include <unordered_map>

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

    /** Keeps an open file until release(); the pointer is what the kernel is given for it. */
    OpenFile* keep(std::unique_ptr<OpenFile> file);

    /** Closes an open file. */
    void release(OpenFile* file);

    /** Closes all open files, and so answers every read that still waits. */
    void releaseAll() { m_files.clear(); }

    /** The attributes of a node, as stat() tells them; they are the same in all its views. */
    static struct stat attributesOf(const Node& node);

private:
    ObjectStore m_store;
    NodeTable m_nodes;
    WakeList m_wakeList;
    std::unordered_map<const OpenFile*, std::unique_ptr<OpenFile>> m_files;
};

/** The operations on names and attributes, put into the library's table. */
void addTreeOperations(fuse_lowlevel_ops& operations);

/** The operations on open objects, put into the library's table. */
void addFileOperations(fuse_lowlevel_ops& operations);

/** The operations on open directories, put into the library's table. */
void addDirectoryOperations(fuse_lowlevel_ops& operations);

} // namespace ppsfs

#endif
