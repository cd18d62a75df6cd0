// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_OPENFILE_H
#define PPSFS_OPENFILE_H

#include "ExpectedRequests.h"
#include "FuseApi.h"
#include "Handle.h"
#include "Listener.h"

#include <cstddef>
#include <list>
#include <memory>
#include <string_view>

namespace ppsfs {

class WakeList;

/** An open object as the kernel sees it: a handle, the reads that wait on it, and its poller. */
class OpenFile final : public Listener
{
public:
    OpenFile(WakeList& wakeList, ExpectedRequests& expected)
        : m_wakeList(wakeList), m_expected(expected)
    {
    }
    ~OpenFile();
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /** Opens the handle; as Handle::open(). */
    int open(std::shared_ptr<Object> object, const OpenMode& mode, const Opener& opener);

    /** Answers a read, now or when there is something to read. */
    void read(fuse_req_t request, std::size_t size, bool nonBlocking);

    /** Writes one text; as Handle::write(). */
    int write(std::string_view text) { return m_handle->write(text); }

    /** As Handle::truncate(). */
    void truncate() { m_handle->truncate(); }

    /**
     * Answers a poll.
     *
     * @param notification how to tell the kernel of the next change, or null where it does not want
     * to know; owned by this file from now on
     */
    void poll(fuse_req_t request, fuse_pollhandle* notification);

    /** Puts the file on the wake list. */
    void wake() override;

    /** Answers the reads that can be answered now, and tells the poller. */
    void serveWaiting();

private:
    struct WaitingRead
    {
        fuse_req_t request;
        std::size_t size;
    };
    struct PollHandleDeleter
    {
        void operator()(fuse_pollhandle* handle) const { fuse_pollhandle_destroy(handle); }
    };

    bool answer(fuse_req_t request, std::size_t size);
    static void interrupt(fuse_req_t request, void* file);

    WakeList& m_wakeList;
    ExpectedRequests& m_expected;
    ExpectedRequests::Mark m_mark;
    std::unique_ptr<Handle> m_handle;
    std::list<WaitingRead> m_waiting; ///< the oldest first
    std::unique_ptr<fuse_pollhandle, PollHandleDeleter> m_notification;
    bool m_woken = false; ///< whether it is on the wake list
};

} // namespace ppsfs

#endif
