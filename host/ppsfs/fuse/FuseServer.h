// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_FUSESERVER_H
#define PPSFS_FUSESERVER_H

#include "FileSystem.h"
#include "FuseApi.h"
#include "Lookout.h"
#include "common/FileDescriptor.h"

#include <memory>

namespace ppsfs {

/**
 * Serves a filesystem on a mounted FUSE device. One thread reads the kernel's requests and answers
 * them, one after the other, so that none waits for another thread to wake up.
 */
class FuseServer
{
public:
    /**
     * @param device the mounted device, non-blocking; it stays the caller's
     * @param ready where a byte is written, once, when requests are being served; may be none
     *
     * Throws std::runtime_error.
     */
    FuseServer(int device, host::FileDescriptor ready);
    ~FuseServer();
    FuseServer(const FuseServer&) = delete;
    FuseServer& operator=(const FuseServer&) = delete;

    /** Serves until a signal asks for the end or the filesystem is unmounted. 0 or an `errno`
     * value. */
    int run();

private:
    static void initialize(void* fileSystem, fuse_conn_info* connection);
    void announce();
    void lookOut();

    struct SessionDeleter
    {
        void operator()(fuse_session* session) const;
    };

    host::FileDescriptor m_ready;
    FileSystem m_fileSystem;
    Lookout m_lookout;
    std::unique_ptr<fuse_session, SessionDeleter> m_session;
    fuse_buf m_buffer{}; ///< allocated once, by the library, for the longest request
};

} // namespace ppsfs

#endif
