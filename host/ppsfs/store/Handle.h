// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_HANDLE_H
#define PPSFS_HANDLE_H

#include "ObjectName.h"
#include "Opener.h"

#include <cerrno>
#include <cstddef>
#include <memory>
#include <string_view>

namespace ppsfs {

class Endpoint;
class Listener;
class Object;

/** How a handle is opened. */
struct OpenMode
{
    OpenOptions options = 0;
    bool reads = false;
    bool writes = false;
    bool truncates = false; ///< the first write replaces the whole object

    bool serves() const { return (options & ServeOption) != 0; }

    /** 0, or EINVAL where the options do not fit the access that is asked for. */
    int check() const { return serves() && !reads ? EINVAL : 0; }
};

/** An open object: what a file description is to the kernel. Destroying it closes it. */
class Handle
{
public:
    /**
     * Opens an object, which stays alive at least as long as the handle.
     *
     * @param listener is told of news; it must outlive the handle
     * @param handle where the handle is put
     * @return 0; EINVAL as of OpenMode::check(); EBUSY for a second server; ENOENT for a removed
     *         object
     */
    static int open(std::shared_ptr<Object> object, const OpenMode& mode, const Opener& opener,
                    Listener& listener, std::unique_ptr<Handle>& handle);
    ~Handle();
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    const OpenMode& mode() const { return m_mode; }
    const std::shared_ptr<Object>& object() const { return m_object; }

    /** Whether there is something new to read. */
    bool isReadable() const;

    /** Whether a write of any length finds room. */
    bool isWritable() const;

    /** Whether a read with nothing new is to wait for the next message. */
    bool waits() const;

    /** The next message, valid until anything else is called in the store. Empty: nothing new. */
    std::string_view message();

    /** Counts the message that message() has just returned as read. */
    void consume();

    /**
     * Writes one text, whole or not at all.
     *
     * @return 0; EINVAL, EFBIG, EPIPE, EAGAIN, ENOENT as docs/pps.md has them
     */
    int write(std::string_view text);

    /** Lets the next successful write replace the whole object. */
    void truncate() { m_mode.truncates = true; }

private:
    friend class Object;

    enum class Removal { None, Unread, Read };

    Handle(std::shared_ptr<Object> object, const OpenMode& mode, const Opener& opener,
           Listener& listener);
    void objectRemoved();
    bool hasEndpointMessage() const;

    const std::shared_ptr<Object> m_object;
    OpenMode m_mode;
    const Opener m_opener;
    Listener& m_listener;
    std::unique_ptr<Endpoint> m_endpoint; ///< none on an ordinary object that was removed
    Removal m_removal = Removal::None;
    std::size_t m_place = 0; ///< in the object's list
};

} // namespace ppsfs

#endif
