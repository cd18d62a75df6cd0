// SPDX-License-Identifier: Apache-2.0
#ifndef PPSFS_ENDPOINT_H
#define PPSFS_ENDPOINT_H

#include <string_view>

namespace ppsfs {

/** What a handle is to its object: a subscription to it, or a mailbox's client or server. */
class Endpoint
{
public:
    virtual ~Endpoint() = default;

    /** Whether there is something new to read. */
    virtual bool hasMessage() const = 0;

    /** The next message, valid until anything else is called; only while there is one. */
    virtual std::string_view message() = 0;

    /** Counts the message that message() has just returned as read. */
    virtual void consume() = 0;

    /** Whether the next write finds room, however long its text. */
    virtual bool hasRoom() const { return true; }

    /**
     * Writes a text of at most limits::TextSize bytes.
     *
     * @param replace whether it replaces all that there is; only publications do
     * @return 0 or an `errno` value, and then nothing has changed
     */
    virtual int write(std::string_view text, bool replace) = 0;
};

} // namespace ppsfs

#endif
